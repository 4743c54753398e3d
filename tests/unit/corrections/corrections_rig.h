#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "corrections/corrected_text.h"
#include "corrections/editor.h"
#include "corrections/journal.h"
#include "corrections/journal_index.h"
#include "corrections/marks.h"
#include "corrections/recording.h"
#include "document/line_access.h"
#include "document/text_loading.h"
#include "platform/memory.h"
#include "platform/message_box.h"
#include "state/slot_lines.h"
#include "support/documents.h"
#include "support/even_metrics.h"

namespace quorvale {

/// A correction in one line of a test: where it begins, how many lines it replaces, by what.
struct Correction {
    std::int32_t Start;
    std::int32_t Count;
    std::u16string Text;

    bool operator==(const Correction&) const = default;
};

inline void PrintTo(const Correction& correction, std::ostream* out) {
    *out << '(' << correction.Start << ',' << correction.Count << ",\""
         << ToUtf8(ReplaceAll(correction.Text, u"\n", u"\\n")) << "\")";
}

/// A message box that writes down what it shows and does what the test says while it is up.
class NotedMessages final : public MessageBoxes {
public:
    struct Shown {
        std::u16string Text;
        MessageStyle Style;
    };
    std::vector<Shown> Log;
    MessageAnswer Answer = MessageAnswer::Ok;
    std::function<void()> While;

    MessageAnswer Show(std::u16string_view text, MessageStyle style) override {
        Log.push_back({std::u16string(text), style});
        if (While) While();
        return Answer;
    }
};

/// Everything that the corrections work on, the behaviours that most of them need, and peers that
/// write down what they are asked. A document of the lines A, B, C that was loaded from a file, in
/// a view of 30 rows.
class CorrectionsRig : public CorrectionMarksPeers, public LineEditorPeers {
public:
    std::vector<std::string> Log;

    EvenMetrics Metrics;
    HostOptions Options;
    DocumentState Document;
    ViewState View;
    NavigationState Navigation;
    EditingState Editing;
    CorrectionsState Corrections;
    Surface Elements{Metrics};
    NotedMessages Messages;

    LineAccess Lines{Document, View, Elements, Metrics, Options};
    quorvale::Journal Journal{Corrections};
    JournalIndex Index{Corrections};
    PlainMemory Memory;
    CorrectedText Corrected{Document, Corrections, Index, Memory};
    CorrectionMarks Marks{Corrections, Index, Navigation, Elements, Document, View, *this};
    EditRecording Recording{Editing, Elements, Lines, Journal, Index, Marks};
    LineEditor Editor{Editing, Elements,  Document, Navigation, View, Options,
                      Index,   Corrected, Journal,  Recording,  *this};

    explicit CorrectionsRig(int slots = 128) {
        Options.OfferEditing = true;
        while (Elements.lblLine.UpperBound() < slots) {
            Elements.lblLine.Load().SetTag(u"-1");
            Elements.imgEdit.Load();
        }
        View.RowSlotCount = slots;
        View.RowsPerView = std::min(30, slots);
        Elements.rtbEdit.OnChange = [this] { Editor.TextChanged(); };
        SetText(u"A\r\nB\r\nC");
        Journal.Open(nullptr);
    }

    void SetText(std::u16string_view text) { SetLoaded(TextFromString(text)); }

    void SetLoaded(LoadedText loaded) {
        Document.Text = std::move(loaded.Text);
        Document.Table.Starts = std::move(loaded.Starts);
        Document.LineSlots = Document.Table.Starts.Count();
        Document.Table.HiddenDepth.Reset(Document.LineSlots, 0);
        Document.FileName = u"/doc.txt";
        Document.ReadAs = loaded.Used;
        ++Document.Generation;
        Navigation.StartDocument();
    }

    /// The rows show the lines from `top` on, as a fill writes them.
    void ShowRows(std::int32_t top = 1) {
        for (int slot = 0; slot < View.RowSlotCount; ++slot) {
            const Line line = std::min(Line{top + slot}, Document.Sentinel());
            SetSlot(Elements, slot, Lines.DisplayText(line), line);
        }
    }

    /// Corrections as they stand in a journal that somebody else wrote.
    void Put(std::initializer_list<Correction> corrections) {
        for (const Correction& each : corrections) {
            Journal.AppendCorrection({each.Start, each.Count}, each.Text);
        }
    }

    /// An element `update` with any attributes and no child.
    XmlNodePtr PutUpdate(std::initializer_list<XmlAttribute> attributes) {
        XmlNodePtr update = CreateXmlElement(u"update");
        for (const XmlAttribute& each : attributes) update->SetAttribute(each.Name, each.Value);
        Journal.Append(update);
        return update;
    }

    /// The usable corrections of the journal.
    std::vector<Correction> All() const {
        std::vector<Correction> all;
        for (const Update& update : Index.Updates()) {
            all.push_back({update.Range.Start, update.Range.Count, UpdateText(*update.Node)});
        }
        return all;
    }

    /// The editor stands open over these lines, filled with something else than it will be given.
    void OpenOver(std::int32_t start, std::int32_t count) {
        Editing = {Line{start}, count, false};
        Elements.rtbEdit.SetText(u"not yet");
        Editing.EditChanged = false;
        Elements.rtbEdit.SetVisible(true);
    }

    /// The lines are edited to a text and the edit is recorded.
    std::vector<Correction> Record(std::int32_t start, std::int32_t count, std::u16string text) {
        OpenOver(start, count);
        Elements.rtbEdit.SetText(std::move(text));
        Recording.RecordEdit(true);
        return All();
    }

    bool IsMarked(int slot) const { return Elements.imgEdit[slot].Visible(); }

    void SetRow(Line row) override {
        Log.push_back("row " + std::to_string(row.Number()));
        Navigation.CaretRow = std::clamp(row, Line{1}, Document.LastLine());
        Navigation.SelectedRowsCount = 0;
    }
    void PaintRowColours() override { Log.emplace_back("colours"); }
    void RevealLine(Line line, std::int32_t) override {
        Log.push_back("reveal " + std::to_string(line.Number()));
        ShowRows(line.Number());
    }
    void TellTooMuchToEdit() override { Log.push_back("TooMuchToEdit"); }
    void PlaceEditor() override { Log.emplace_back("place editor"); }
};

}  // namespace quorvale
