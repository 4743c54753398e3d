#include "corrections/editor.h"

#include <utility>
#include <vector>

#include "corrections/edit_range.h"
#include "document/line_extent.h"
#include "platform/keys.h"
#include "state/slot_lines.h"

namespace quorvale {

void LineEditor::Open() {
    const std::uint64_t meant = document_.Generation;
    if (!MayOpen(meant)) return;
    recording_.RecordEdit(true);
    if (!MayOpen(meant)) return;
    UpdateRange lines = WantedLines();
    if (IsTooMuch(lines)) return peers_.TellTooMuchToEdit();
    if (!IsOnScreen(lines)) {
        peers_.RevealLine(Line{lines.Start}, navigation_.CaretCol);
        // A host that hears of the scrolling may have moved the caret.
        if (!MayOpen(meant)) return;
        lines = WantedLines();
    }
    surface_.rtbEdit.SetText(TextOf(lines));
    surface_.rtbEdit.Select(0, 0);
    editing_ = {Line{lines.Start}, lines.Count, false};
    surface_.rtbEdit.SetVisible(true);
    peers_.PlaceEditor();
    if (surface_.rtbEdit.Visible()) surface_.Focus.Request(FocusChild::Editor);
}

/// Asked again after everything that a host may hear of: it may put another document in place.
bool LineEditor::MayOpen(std::uint64_t generation) const {
    return document_.Generation == generation && options_.OfferEditing && !options_.ReadOnly &&
           journal_.IsOpen() && !view_.Suspended();
}

UpdateRange LineEditor::WantedLines() const {
    const Line last = document_.LastLine();
    return WidenedToCorrections(
        SelectedLines(navigation_.CaretRow, navigation_.SelectedRowsCount, last), index_.Updates(),
        last);
}

bool LineEditor::IsTooMuch(const UpdateRange& lines) const {
    if (options_.MostEditedLines > 0 && lines.Count > options_.MostEditedLines) return true;
    if (options_.MostEditedCharacters <= 0 || lines.Count <= 0) return false;
    const LineExtent last = ExtentOf(document_, Line{lines.End() - 1});
    return last.Start + last.Length - ExtentOf(document_, Line{lines.Start}).Start >
           options_.MostEditedCharacters;
}

bool LineEditor::IsOnScreen(const UpdateRange& lines) const {
    for (int slot = 0; slot < view_.RowsPerView && surface_.lblLine.Has(slot); ++slot) {
        const std::int32_t line = SlotLine(surface_, slot).Number();
        if (line >= lines.Start && line < lines.End()) return true;
    }
    return false;
}

std::u16string LineEditor::TextOf(const UpdateRange& lines) const {
    std::vector<std::u16string> shown = corrected_.CorrectedLines(lines.Start, lines.Count);
    for (const Update& update : InsertionsBehind(lines, index_.Updates())) {
        for (auto& line : LinesOfUpdate(UpdateText(*update.Node))) shown.push_back(std::move(line));
    }
    std::u16string text;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (i > 0) text += u"\r\n";
        text += shown[i];
    }
    return text;
}

void LineEditor::KeyDown(std::int16_t& keyCode, std::int16_t shift) {
    if (keyCode == key_code::Escape) recording_.RecordEdit(false);
    if (keyCode == key_code::Return && (shift & shift_mask::Ctrl) != 0) {
        keyCode = 0;
        recording_.RecordEdit(true);
    }
}

}  // namespace quorvale
