#include "control/switchboard.h"

#include "control/control_parts.h"

namespace quorvale {

void Switchboard::LayoutView() { parts_.Layout.LayoutView(); }

void Switchboard::FillRows() { parts_.Fill.FillRows(); }

void Switchboard::FillNewRows() { parts_.Fill.FillRows(); }

void Switchboard::PaintRowColours() { parts_.Colours.PaintRowColours(); }

void Switchboard::PlaceEditor() { parts_.EditorPlace.PlaceEditor(); }

void Switchboard::ShowFromStart() { parts_.FreshView.ShowFromStart(); }

void Switchboard::SetTopLine(Line line) { parts_.Scrolling.SetTopLine(line); }

void Switchboard::SettleTopLine() { parts_.Scrolling.SettleTopLine(); }

void Switchboard::SettleRowShift() { parts_.RowShift.HorizontalChanged(); }

void Switchboard::RevealLine(Line line, std::int32_t col) { parts_.Reveal.RevealLine(line, col); }

void Switchboard::SetRow(Line row) { parts_.Caret.SetRow(row); }

void Switchboard::StoreRow(Line row) { parts_.Caret.StoreRow(row); }
void Switchboard::MoveTo(Line row, std::int32_t col) { parts_.Caret.MoveTo(row, col); }

void Switchboard::PlaceCaret() { parts_.Caret.PlaceCaret(); }

void Switchboard::PlaceMarker() { parts_.Caret.PlaceMarker(); }

void Switchboard::NameFirstRow() {
    if (!UserMode()) parts_.Appearance.ShowName();
}

void Switchboard::SettleCaret() { parts_.Caret.SettleCaret(); }

void Switchboard::CaretMoved() { parts_.Caret.CaretMoved(); }

void Switchboard::ForgetPlaces() {
    parts_.Navigation.StartDocument();
    parts_.Collapse = {};
}

void Switchboard::ExpandAt(Line line) { parts_.Folding.ExpandAt(line, false); }

void Switchboard::OpenAround(Line line) { parts_.Folding.OpenAround(line); }

void Switchboard::CloseEdit() { parts_.Recording.RecordEdit(true); }

void Switchboard::CloseJournal() { parts_.JournalFile.CloseJournal(); }

void Switchboard::OpenJournal(const std::u16string&) { parts_.JournalFile.OpenJournal(); }

void Switchboard::RefreshCorrectionMarks() { parts_.Marks.RefreshCorrectionMarks(); }

void Switchboard::OpenEditor() { parts_.Editor.Open(); }

void Switchboard::LoadAgain(const std::u16string& name, const std::u16string& path) {
    parts_.DocumentPath.OpenNext(path);
    parts_.Loading.LoadFile(name);
    // Where it did not come as far as opening a file.
    parts_.DocumentPath.OpenNext({});
}

bool Switchboard::MayCommit() { return parts_.HostCorrections.MayCommit(); }
void Switchboard::TellTooMuchToEdit() { parts_.HostCorrections.TellTooMuchToEdit(); }
void Switchboard::SetOffset(std::int32_t position) { parts_.Caret.SetOffset(position); }

void Switchboard::LoadFile(const std::u16string& fileName) { parts_.Loading.LoadFile(fileName); }

void Switchboard::BoxFocusChanged(FocusChild, bool) {}

void Switchboard::SearchEnded(FindOutcome outcome) { parts_.SearchExtras.Tell(outcome); }

void Switchboard::PickedElsewhere(const PickedPlace& place) {
    parts_.SearchExtras.TellPicked(place);
}

bool Switchboard::HasEnded() const { return parts_.Ended; }

bool Switchboard::UserMode() const { return parts_.Services.Site->UserMode(); }

void Switchboard::ReportTextChanged() { parts_.Services.Site->PropertyChanged(u"Text"); }

void Switchboard::RaiseScrolled() {
    parts_.Events.Raise([](QuorvaleBoxEvents& events) { events.Scrolled(); });
}

void Switchboard::RaiseSelChanged() {
    parts_.Events.Raise([](QuorvaleBoxEvents& events) { events.SelChanged(); });
}

void Switchboard::RaiseMouseDown(const MouseEvent& event) {
    parts_.Events.Raise([&](QuorvaleBoxEvents& events) {
        events.MouseDown(event.Button, event.Shift, static_cast<float>(event.X),
                         static_cast<float>(event.Y));
    });
}

void Switchboard::RaiseMouseUp(const MouseEvent& event) {
    parts_.Events.Raise([&](QuorvaleBoxEvents& events) {
        events.MouseUp(event.Button, event.Shift, static_cast<float>(event.X),
                       static_cast<float>(event.Y));
    });
}

void Switchboard::RaiseDblClick() {
    parts_.Events.Raise([](QuorvaleBoxEvents& events) { events.DblClick(); });
}

void Switchboard::RaiseImageClick(Line line) {
    parts_.Events.Raise([&](QuorvaleBoxEvents& events) { events.ImageClick(line.Number()); });
}

void Switchboard::RaiseKeyDown(std::int16_t keyCode, std::int16_t shift) {
    parts_.Events.Raise([&](QuorvaleBoxEvents& events) { events.KeyDown(keyCode, shift); });
}

void Switchboard::RaiseBeforeFileChange(const std::u16string& fileName, bool& changed) {
    parts_.Events.Raise(
        [&](QuorvaleBoxEvents& events) { events.BeforeFileChange(fileName, changed); });
}

void Switchboard::RaiseKeyUp(std::int16_t keyCode, std::int16_t shift) {
    parts_.Events.Raise([&](QuorvaleBoxEvents& events) { events.KeyUp(keyCode, shift); });
}

}  // namespace quorvale
