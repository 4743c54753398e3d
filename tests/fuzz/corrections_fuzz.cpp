#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/pugi_xml.h"
#include "base/utf8.h"
#include "base/western_code_page.h"
#include "corrections/commit.h"
#include "corrections/document_path.h"
#include "corrections/journal_file.h"
#include "corrections/undo.h"
#include "fuzz_input.h"
#include "platform/memory_files.h"
#include "state/slot_lines.h"
#include "unit/corrections/corrections_rig.h"
#include "unit/corrections/slow_editing.h"
#include "unit/corrections/slow_model.h"

namespace {

using namespace quorvale;
using TextLines = SlowModel::Lines;

constexpr int rows = 2;
constexpr int mostActions = 6;
const std::u16string documentName = u"/doc.txt";
const std::u16string journalName = u"/doc.txt!.xml";

/// The bytes of a text, unit by unit; none when one has no bytes.
std::optional<std::string> SlowlyEncoded(const std::u16string& text, Encoding encoding) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (encoding == Encoding::Utf8) {
            if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
                AppendUtf8(bytes, FromSurrogates(unit, text[++i]));
            } else if (unit >= 0xDC80 && unit <= 0xDCFF) {
                bytes += static_cast<char>(unit - 0xDC00);
            } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
                return std::nullopt;
            } else {
                AppendUtf8(bytes, unit);
            }
            continue;
        }
        const bool western = encoding == Encoding::Windows1252;
        int byte = 0;
        while (byte < 256 && unit != (western ? FromWindows1252(static_cast<std::uint8_t>(byte))
                                              : static_cast<char16_t>(byte))) {
            ++byte;
        }
        if (byte == 256) return std::nullopt;
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

std::u16string Joined(const TextLines& lines) {
    std::u16string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) text += u"\r\n";
        text += lines[i];
    }
    return text;
}

/// A text as a user could have put it into the editor: line ends of two kinds and characters of
/// every kind.
std::u16string AsTyped(const std::string& bytes) {
    static constexpr char16_t rare[] = {0x20AC, 0x65E5, 0xD83D, 0xDE00, 0xFFFE, 0x2028,
                                        0xFEFF, 0xDC80, 0xDCC3, 0xDCA9, u'\n',  u'\\'};
    std::u16string text;
    for (const char byte : bytes) {
        const auto unit = static_cast<std::uint8_t>(byte);
        if (unit == '\n') {
            text += u"\r\n";
        } else if (unit >= 0xF4) {
            text += rare[unit - 0xF4];
        } else {
            text += char16_t{unit};
        }
    }
    return text;
}

/// Marks follow the rows, as they do when a view fills them.
class Rows final : public CorrectionsRig {
public:
    using CorrectionsRig::CorrectionsRig;

    void RevealLine(Line line, std::int32_t col) override {
        CorrectionsRig::RevealLine(line, col);
        Marks.RefreshCorrectionMarks();
    }
};

/// One user's day after day with one file: everything that corrections work on, files in memory,
/// and no control around it. After every action the slow model is asked what should have come out.
class Desk final : public CommitPeers {
public:
    void Begin(FuzzInput& input) {
        const int choices = input.Number(256);
        static constexpr Encoding encodings[] = {Encoding::Utf8, Encoding::SingleByte,
                                                 Encoding::Windows1252, Encoding::Automatic};
        encoding_ = encodings[choices & 3];
        rig_.Options.KeepLineFormat = (choices & 4) != 0;
        onScreen_ = (choices & 8) != 0;
        memory_ = MemoryFiles();
        failing_.FailReplace = false;
        failing_.FailRemoveSpent = false;
        rig_.Messages.Log.clear();
        rig_.Log.clear();
        rig_.Elements.rtbEdit.SetVisible(false);
        rig_.Journal.Drop();
        rig_.Corrections.Current.reset();
        memory_.Put(documentName, input.Bytes(input.Number(40)));
        Load();
        foreign_ = (choices & 0x70) == 0;
        for (int left = foreign_ ? input.Number(4) : 0; left > 0; --left) PutForeign(input);
        rig_.Marks.RefreshCorrectionMarks();
        model_->Corrections = rig_.All();
    }

    /// The last action is the commit.
    void End() { CommitAll(); }

    void Act(FuzzInput& input) {
        switch (input.Number(16)) {
            case 0:
                return NextDay();
            case 1:
                return UndoOne(input);
            case 2:
                return input.Number(4) == 0 ? UndoAll() : UndoOne(input);
            case 3:
                return CommitAll();
            case 4:
                return FailToCommit();
            case 5:
                return Edit(input, false);
            default:
                return Edit(input, true);
        }
    }

private:
    const std::string& FileBytes() const { return *memory_.Bytes(documentName); }

    bool MayCommit() override { return true; }
    void SetTopLine(Line) override {}
    void MoveTo(Line, std::int32_t) override {}
    void LoadAgain(const std::u16string& name, const std::u16string& path) override {
        Require(name == documentName && path == documentName);
        Load();
    }

    void Load() {
        auto stream = path_.OpenForReading(documentName);
        Require(bool(stream));
        rig_.SetLoaded(ReadText(**stream, encoding_, plainMemory_));
        // What is on screen is compared as it is shown.
        rig_.ShowRows(onScreen_ ? 1 : rig_.Document.LineSlots);
        file_.OpenJournal();
        Require(!rig_.Corrections.Unreadable);
        const DocumentState& document = rig_.Document;
        MakeModel(document.Text.Mid(1, document.Text.Length() - 2));
    }

    void MakeModel(const std::u16string& text) {
        TextLines lines(1);
        TextLines ends;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] != u'\n') {
                lines.back() += text[i];
                continue;
            }
            const bool two = lines.back().ends_with(u'\r');
            if (two) lines.back().pop_back();
            ends.push_back(two ? u"\r\n" : u"\n");
            lines.emplace_back();
        }
        model_.emplace(std::move(lines), std::move(ends));
        Require(model_->LineCount() == rig_.Document.LineSlots - 1);
        model_->Corrections = rig_.All();
    }

    /// A correction as somebody else's journal may hold it: past the end, over others, or useless.
    void PutForeign(FuzzInput& input) {
        const int start = input.Number(16) - 2;
        const int count = input.Number(8);
        if (count == 7) {
            rig_.PutUpdate({{u"start", u"1x"}, {u"loc", u"2147483647"}});
            return;
        }
        std::u16string text;
        for (const auto& line : SlowEditing::TypedLines(AsTyped(input.Bytes(input.Number(8))))) {
            if (!line.empty()) text += line + u"\n";
        }
        rig_.Put({{start, count, text}});
    }

    void Edit(FuzzInput& input, bool apply) {
        rig_.Navigation.CaretRow = Line{1 + input.Number(model_->LineCount())};
        rig_.Navigation.SelectedRowsCount = input.Number(9) - 4;
        rig_.Editor.Open();
        Require(rig_.Elements.rtbEdit.Visible());
        const UpdateRange lines{rig_.Editing.EditStart.Number(), rig_.Editing.EditCount};
        const SlowEditing slow(model_->LineCount());
        Require(lines == slow.Opened(rig_.Navigation.CaretRow.Number(),
                                     rig_.Navigation.SelectedRowsCount, model_->Corrections));
        TextLines shown = model_->Corrected(lines.Start, lines.Count);
        for (auto& line : model_->InsertedAt(lines.End())) shown.push_back(line);
        const std::u16string before = rig_.Elements.rtbEdit.Text();
        Require(before == Joined(shown));
        const std::u16string typed = Typed(input, shown);
        rig_.Elements.rtbEdit.SetText(typed);
        const TextLines whole = model_->All();
        const std::size_t above = model_->Corrected(1, lines.Start - 1).size();
        if (apply && typed != before) {
            model_->Corrections =
                SlowEditing::Recorded(std::move(model_->Corrections), lines, typed,
                                      [this](int line, const std::u16string& text) {
                                          return rig_.Lines.RawLineText(Line{line}) == text &&
                                                 rig_.Lines.LineText(Line{line}) == text;
                                      });
        }
        rig_.Recording.RecordEdit(apply);
        Require(!rig_.Elements.rtbEdit.Visible());
        Require(rig_.All() == model_->Corrections);
        if (!foreign_) RequireInPlace(whole, above, shown, apply ? typed : before);
        RequireMarks();
    }

    /// What the user makes of the lines in the editor.
    std::u16string Typed(FuzzInput& input, const TextLines& shown) {
        const int how = input.Number(16);
        const std::u16string text = AsTyped(input.Bytes(how % 8));
        if (how < 8) return text;
        TextLines typed = shown;
        const auto at = static_cast<std::ptrdiff_t>(
            shown.empty() ? 0 : input.Number(static_cast<int>(shown.size())));
        if (how >= 12 && !typed.empty()) typed.erase(typed.begin() + at);
        if (how != 12) typed.insert(typed.begin() + at, text);
        return Joined(typed);
    }

    /// The corrected document is the one before, with what was typed in the place of what was
    /// shown.
    void RequireInPlace(TextLines whole, std::size_t above, const TextLines& shown,
                        const std::u16string& typed) {
        Require(above + shown.size() <= whole.size());
        if (typed != Joined(shown)) {
            const auto from = whole.begin() + static_cast<std::ptrdiff_t>(above);
            const auto to = from + static_cast<std::ptrdiff_t>(shown.size());
            const TextLines lines = SlowEditing::TypedLines(typed);
            whole.insert(whole.erase(from, to), lines.begin(), lines.end());
        }
        Require(model_->All() == whole);
    }

    void RequireMarks() {
        for (int slot = 0; slot < rows; ++slot) {
            const int line = SlotLine(rig_.Elements, slot).Number();
            const bool covered = std::any_of(
                model_->Corrections.begin(), model_->Corrections.end(),
                [&](const Correction& c) { return c.Start <= line && line < c.Start + c.Count; });
            Require(rig_.IsMarked(slot) == covered);
        }
    }

    void UndoOne(FuzzInput& input) {
        if (model_->Corrections.empty()) return;
        const int at = input.Number(static_cast<int>(model_->Corrections.size()));
        rig_.Corrections.Current = rig_.Index.Updates()[static_cast<std::size_t>(at)].Node;
        undo_.Undo();
        model_->Corrections.erase(model_->Corrections.begin() + at);
        Require(rig_.All() == model_->Corrections);
        RequireMarks();
    }

    void UndoAll() {
        undo_.UndoAll();
        rig_.Messages.Log.clear();
        model_->Corrections.clear();
        Require(rig_.Index.CountOfAll() == 0);
        RequireMarks();
    }

    /// The program ends and is started again.
    void NextDay() {
        const std::vector<Correction> kept = std::move(model_->Corrections);
        const std::size_t all = rig_.Index.CountOfAll();
        const std::string bytes = FileBytes();
        file_.CloseJournal();
        Require((memory_.Bytes(journalName) != nullptr) == (all > 0));
        Load();
        Require(FileBytes() == bytes);
        Require(rig_.All() == kept);
        Require(rig_.Index.CountOfAll() == all);
        model_->Corrections = kept;
        RequireMarks();
    }

    /// What the file should hold after a commit; none when that cannot be written.
    std::optional<std::string> Wanted() const {
        const std::u16string text =
            rig_.Options.KeepLineFormat ? model_->KeptText() : model_->Text();
        return SlowlyEncoded(text, rig_.Document.ReadAs);
    }

    void CommitAll() {
        const std::string before = FileBytes();
        const bool any = rig_.Index.CountOfAll() > 0;
        const std::optional<std::string> wanted = Wanted();
        if (any) Require(rig_.Document.FileName == documentName);
        commit_.CommitUpdates();
        if (!any || !wanted) {
            Require(FileBytes() == before);
            Require(rig_.Messages.Log.size() == (any ? 1U : 0U));
            Require(rig_.All() == model_->Corrections);
            rig_.Messages.Log.clear();
            return;
        }
        Require(rig_.Messages.Log.empty());
        Require(FileBytes() == *wanted);
        Require(memory_.Bytes(journalName) == nullptr);
        Require(rig_.Index.CountOfAll() == 0);
    }

    /// Nothing is lost when the file cannot be written, and nothing is done twice when its journal
    /// cannot be removed.
    void FailToCommit() {
        const std::string before = FileBytes();
        if (rig_.Index.CountOfAll() == 0) return;
        failing_.FailReplace = true;
        commit_.CommitUpdates();
        failing_.FailReplace = false;
        Require(rig_.Messages.Log.size() == 1);
        Require(FileBytes() == before);
        Require(rig_.All() == model_->Corrections);
        const std::optional<std::string> wanted = Wanted();
        if (!wanted) return rig_.Messages.Log.clear();
        file_.SaveNow();
        failing_.FailRemoveSpent = true;
        commit_.CommitUpdates();
        failing_.FailRemoveSpent = false;
        Require(rig_.Messages.Log.size() == 2);
        rig_.Messages.Log.clear();
        Require(FileBytes() == *wanted);
        Require(!rig_.Journal.IsOpen());
        Load();
        Require(rig_.Index.CountOfAll() == 0);
        Require(FileBytes() == *wanted);
    }

    Rows rig_{rows};
    MemoryFiles memory_;
    FailingFiles failing_{memory_};
    PlainMemory plainMemory_;
    PugiXml xml_;
    DocumentPath path_{failing_};
    JournalFile file_{rig_.Document, rig_.Corrections, rig_.Journal, rig_.Recording, rig_.Marks,
                      path_,         failing_,         xml_,         rig_.Options};
    CorrectionUndo undo_{rig_.Corrections, rig_.Journal,      rig_.Recording, rig_.Marks,
                         rig_.Messages,    Language::English, rig_.Options};
    Commit commit_{rig_.Document,  rig_.Corrections, rig_.Navigation,   rig_.Journal,
                   rig_.Corrected, rig_.Recording,   rig_.Marks,        failing_,
                   rig_.Options,   rig_.Messages,    Language::English, *this};
    std::optional<SlowModel> model_;
    Encoding encoding_ = Encoding::Utf8;
    bool onScreen_ = false;
    /// Corrections of somebody else may be such that not every edit can be seen in the file.
    bool foreign_ = false;
};

}  // namespace

// Any file, any corrections of others, edited, undone, put off to another day and committed in any
// order: what the slow model says comes out, byte by byte.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Desk desk;
    FuzzInput input(data, size);
    desk.Begin(input);
    for (int left = mostActions; left > 0 && !input.IsUsedUp(); --left) desk.Act(input);
    desk.End();
    return 0;
}
