#pragma once

#include "collapse/folding.h"
#include "corrections/commit.h"
#include "corrections/editor.h"
#include "corrections/marks.h"
#include "corrections/walk.h"
#include "document/loading.h"
#include "navigation/caret.h"
#include "navigation/keyboard.h"
#include "navigation/marker_blink.h"
#include "navigation/reveal.h"
#include "navigation/row_mouse.h"
#include "navigation/row_shift.h"
#include "navigation/scrolling.h"
#include "search/find.h"
#include "search/find_all.h"
#include "search/go_to_line.h"
#include "search/picking.h"
#include "view/editor_place.h"
#include "view/fresh_view.h"
#include "view/layout.h"
#include "view/redraw.h"
#include "view/row_fill.h"

namespace quorvale {

class ControlParts;

/// Connects the behaviours: what one asks of its peers goes to the one that does it. The only place
/// that knows everyone, and it does nothing itself.
class Switchboard final : public LoadingPeers,
                          public FreshViewPeers,
                          public LayoutPeers,
                          public FillPeers,
                          public EditorPlacePeers,
                          public RedrawPeers,
                          public ScrollPeers,
                          public RowShiftPeers,
                          public RevealPeers,
                          public CaretPeers,
                          public RowMousePeers,
                          public KeyboardPeers,
                          public MarkerBlinkPeers,
                          public FoldingPeers,
                          public CorrectionMarksPeers,
                          public LineEditorPeers,
                          public CorrectionWalkPeers,
                          public CommitPeers,
                          public FindPeers,
                          public FindAllPeers,
                          public PickingPeers,
                          public GoToLinePeers {
public:
    explicit Switchboard(ControlParts& parts) : parts_(parts) {}

    // The view.
    void LayoutView() override;
    void FillRows() override;
    void FillNewRows() override;
    void PaintRowColours() override;
    void PlaceEditor() override;
    void ShowFromStart() override;

    // Moving over the document.
    void SetTopLine(Line line) override;
    void SettleTopLine() override;
    void SettleRowShift() override;
    void RevealLine(Line line, std::int32_t col) override;
    void StoreRow(Line row) override;
    void SetRow(Line row) override;
    void MoveTo(Line row, std::int32_t col) override;
    void PlaceCaret() override;
    void PlaceMarker() override;
    void NameFirstRow() override;
    void SettleCaret() override;
    void CaretMoved() override;
    void ForgetPlaces() override;

    // Folds.
    void ExpandAt(Line line) override;
    void OpenAround(Line line) override;

    // Search.
    void SetOffset(std::int32_t position) override;
    void LoadFile(const std::u16string& fileName) override;
    void BoxFocusChanged(FocusChild box, bool entered) override;
    void SearchEnded(FindOutcome outcome) override;
    void PickedElsewhere(const PickedPlace& place) override;

    // Corrections.
    void CloseEdit() override;
    void CloseJournal() override;
    void OpenJournal(const std::u16string& fileName) override;
    void RefreshCorrectionMarks() override;
    void OpenEditor() override;
    void LoadAgain(const std::u16string& name, const std::u16string& path) override;

    // The host.
    bool HasEnded() const override;
    bool UserMode() const override;
    bool MayCommit() override;
    void TellTooMuchToEdit() override;
    void ReportTextChanged() override;
    void RaiseScrolled() override;
    void RaiseSelChanged() override;
    void RaiseMouseDown(const MouseEvent& event) override;
    void RaiseMouseUp(const MouseEvent& event) override;
    void RaiseDblClick() override;
    void RaiseImageClick(Line line) override;
    void RaiseKeyDown(std::int16_t keyCode, std::int16_t shift) override;
    void RaiseKeyUp(std::int16_t keyCode, std::int16_t shift) override;
    void RaiseBeforeFileChange(const std::u16string& fileName, bool& changed) override;

private:
    ControlParts& parts_;
};

}  // namespace quorvale
