#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "base/numbers_in_text.h"
#include "base/text.h"
#include "control/host_corrections.h"
#include "headless/headless_box.h"
#include "platform/keys.h"

namespace quorvale {

/// A correction as a journal holds it.
struct InJournal {
    std::int32_t Start;
    std::int32_t Count;
    std::u16string Text;

    bool operator==(const InJournal&) const = default;
};

inline void PrintTo(const InJournal& correction, std::ostream* out) {
    *out << '(' << correction.Start << ',' << correction.Count << ",\""
         << ToUtf8(ReplaceAll(correction.Text, u"\n", u"\\n")) << "\")";
}

/// A control whose host offers editing, with the hands of a user who corrects lines.
class CorrectionsBox : public HeadlessBox {
public:
    explicit CorrectionsBox(HeadlessSetup setup = {}) : HeadlessBox(Offering(std::move(setup))) {}

    static HeadlessSetup Offering(HeadlessSetup setup) {
        setup.Options.OfferEditing = true;
        return setup;
    }

    /// The selected rows are opened in the editor: the caret's when `rows` is 0.
    void OpenEditor(std::int32_t row, std::int32_t rows = 0) {
        Box().row(row);
        if (rows != 0) Box().SelectedRowsCount(rows);
        PickCorrections(u"mnuPopupEdit");
    }

    /// They are edited to a text, and the edit is recorded.
    void Correct(std::int32_t row, std::int32_t rows, const std::u16string& text) {
        OpenEditor(row, rows);
        TypeInEditor(text);
        PressInEditor(key_code::Return, shift_mask::Ctrl);
    }
    void Correct(std::int32_t row, const std::u16string& text) { Correct(row, 0, text); }

    bool EditorIsOpen() { return Elements().rtbEdit.Visible(); }

    /// The rows that are marked, by their slots.
    std::vector<int> Marked() {
        std::vector<int> slots;
        for (const Image& mark : Elements().imgEdit) {
            if (mark.Visible()) slots.push_back(mark.Index());
        }
        return slots;
    }

    std::string FileBytes(const std::u16string& name = u"/doc.txt") {
        const std::string* bytes = Files().Bytes(name);
        return bytes == nullptr ? "(no file)" : *bytes;
    }

    bool HasJournal(const std::u16string& name = u"/doc.txt!.xml") {
        return Files().Bytes(name) != nullptr;
    }

    /// The corrections that lie in a journal file.
    std::vector<InJournal> Stored(const std::u16string& name = u"/doc.txt!.xml") {
        const std::string* bytes = Files().Bytes(name);
        return bytes == nullptr ? std::vector<InJournal>{} : InFile(*bytes);
    }

    static std::vector<InJournal> InFile(const std::string& bytes) {
        PlainXml xml;
        XmlReadOptions options;
        options.PreserveWhiteSpace = true;
        const XmlReading reading = xml.Read(bytes, options);
        if (!reading) return {{-1, -1, u"malformed"}};
        std::vector<InJournal> all;
        for (const XmlNodePtr& update : reading.Document->SelectNodes(u"update")) {
            const XmlNodePtr text = update->FirstChild();
            const auto number = [&](std::u16string_view name) {
                return ToLong(std::u16string_view(*update->GetAttribute(name)));
            };
            all.push_back({number(u"start"), number(u"loc"), text ? text->Data() : u""});
        }
        return all;
    }

    /// The present corrections, as closing would store them.
    std::vector<InJournal> Now() {
        Box().Corrections().Save();
        return Stored();
    }
};

}  // namespace quorvale
