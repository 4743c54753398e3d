#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/corrections_in_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using All = std::vector<InJournal>;

class EditingLines : public testing::Test {
protected:
    EditingLines() {
        box_.Load(DocFile(500));
        box_.EnterText();
        box_.Log().Clear();
    }

    const TextBox& Editor() { return box_.Elements().rtbEdit; }

    CorrectionsBox box_;
};

TEST(EditingByDefault, TheEditCommandAndF2ChangeNothing) {
    HeadlessBox box;
    box.Load(DocFile(3));
    box.EnterText();
    box.Log().Clear();
    box.PickCorrections(u"mnuPopupEdit");
    box.Press(key_code::F2);
    EXPECT_FALSE(box.Elements().rtbEdit.Visible());
    EXPECT_EQ(box.Elements().Focus.Active(), FocusChild::TextArea);
    EXPECT_EQ(box->Corrections().Pending(), 0);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("KeyUp(113, 0)"));
}

TEST_F(EditingLines, F2OpensTheEditorOverTheCaretsLine) {
    box_->row(5);
    box_.Log().Clear();
    box_.Press(key_code::F2);
    EXPECT_TRUE(box_.EditorIsOpen());
    EXPECT_EQ(Editor().Text(), u"L5");
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::Editor);
    EXPECT_EQ(Editor().Top(), 360 + 4 * 240 - 30);
    EXPECT_EQ(Editor().Height(), 240 + 60 - 15);
    EXPECT_THAT(box_.Log().Entries(), testing::Not(testing::Contains("KeyDown(113, 0)")));
}

TEST_F(EditingLines, TheMenuOpensItOverTheSelectedRows) {
    box_.OpenEditor(5, 3);
    EXPECT_EQ(Editor().Text(), u"L5\r\nL6\r\nL7");
    EXPECT_EQ(Editor().Height(), 3 * 240 + 60 - 15);
    box_.OpenEditor(7, -3);
    EXPECT_EQ(Editor().Text(), u"L5\r\nL6\r\nL7");
}

TEST_F(EditingLines, EverythingSelectedBeginsAtTheFirstLine) {
    box_.Load("A\r\nB\r\nC");
    box_.Press(key_code::A, shift_mask::Ctrl);
    EXPECT_EQ(box_->SelectedRowsCount(), -4);
    box_.Press(key_code::F2);
    EXPECT_EQ(Editor().Text(), u"A\r\nB\r\nC");
    box_.TypeInEditor(u"A\r\nb\r\nC");
    box_.PressInEditor(key_code::Return, shift_mask::Ctrl);
    EXPECT_EQ(box_.Now(), (All{{2, 1, u"b\n"}}));
}

TEST_F(EditingLines, ATextOfNoFileCannotBeEdited) {
    box_->text(Doc(5));
    box_.Press(key_code::F2);
    EXPECT_FALSE(box_.EditorIsOpen());
}

TEST_F(EditingLines, KeysInTheEditorAreItsOwn) {
    box_.OpenEditor(5);
    EXPECT_EQ(box_.PressInEditor(key_code::Return), key_code::Return);
    EXPECT_EQ(Editor().Text(), u"\r\nL5");
    EXPECT_EQ(box_.PressInEditor(key_code::Return, shift_mask::Shift), key_code::Return);
    EXPECT_EQ(box_.PressInEditor(key_code::Down, shift_mask::Ctrl), key_code::Down);
    EXPECT_TRUE(box_.EditorIsOpen());
    EXPECT_EQ(box_->row(), 5);
    EXPECT_EQ(box_->Corrections().Pending(), 0);
}

TEST_F(EditingLines, EscLeavesNoTrace) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    EXPECT_EQ(box_.PressInEditor(key_code::Escape), key_code::Escape);
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::TextArea);
    box_->Terminate();
    EXPECT_FALSE(box_.HasJournal());
}

TEST_F(EditingLines, CtrlEnterRecordsAndTypesNoLineBreak) {
    for (const int shift : {2, 3, 6}) {
        box_.OpenEditor(5);
        box_.TypeInEditor(u"L5 " + Wide(std::to_string(shift)));
        EXPECT_EQ(box_.PressInEditor(key_code::Return, static_cast<std::int16_t>(shift)), 0);
        EXPECT_EQ(box_.Now(), (All{{5, 1, u"L5 " + Wide(std::to_string(shift)) + u"\n"}}));
    }
}

TEST_F(EditingLines, CtrlEnterInAnUntouchedTextRecordsNothing) {
    box_.OpenEditor(5);
    EXPECT_EQ(box_.PressInEditor(key_code::Return, shift_mask::Ctrl), 0);
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_->Corrections().Pending(), 0);
}

TEST_F(EditingLines, ACaretThatMovesRecords) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    box_->row(5);
    EXPECT_TRUE(box_.EditorIsOpen()) << "it stands there already";
    box_.Log().Clear();
    box_->row(6);
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Now(), (All{{5, 1, u"changed\n"}}));
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("SelChanged"));
}

TEST_F(EditingLines, AClickOnAnotherRowRecords) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    box_.MousePress(9, {.Button = mouse_button::Left});
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Now(), (All{{5, 1, u"changed\n"}}));
}

TEST_F(EditingLines, LeavingTheControlRecordsAndPullsNoFocusBack) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    box_.Leave();
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::None);
    EXPECT_EQ(box_.Now(), (All{{5, 1, u"changed\n"}}));
}

TEST_F(EditingLines, ScrolledAwayItIsRecorded) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    box_.TurnWheel(3);
    EXPECT_TRUE(box_.EditorIsOpen()) << "still in sight";
    EXPECT_EQ(Editor().Top(), 360 + 240 - 30);
    box_->TopLine(300);
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Now(), (All{{5, 1, u"changed\n"}}));
    EXPECT_TRUE(box_.Marked().empty());
    box_->TopLine(1);
    EXPECT_EQ(box_.Marked(), std::vector<int>{4});
}

TEST_F(EditingLines, ScrolledAwayUntouchedItOnlyCloses) {
    box_.OpenEditor(5);
    box_.DragThumb({100, 300});
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_->Corrections().Pending(), 0);
}

TEST_F(EditingLines, ALineOutOfSightIsShownBeforeItIsEdited) {
    box_->row(5);
    box_->TopLine(300);
    box_.Log().Clear();
    box_.Press(key_code::F2);
    EXPECT_TRUE(box_.EditorIsOpen());
    EXPECT_EQ(Editor().Text(), u"L5");
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("Scrolled", "KeyUp(113, 0)"));
    const std::vector<std::int32_t> lines = box_.RowLines();
    EXPECT_THAT(lines, testing::Contains(5));
}

TEST_F(EditingLines, AFoldedLineIsUnfolded) {
    box_->CollapseLines(4, 9);
    box_.OpenEditor(6);
    EXPECT_TRUE(box_.EditorIsOpen());
    box_.PressInEditor(key_code::Escape);
    box_->CollapseAll();
    box_.OpenEditor(4, 3);
    EXPECT_TRUE(box_.EditorIsOpen());
    EXPECT_EQ(Editor().Text(), u"L4\r\nL5\r\nL6") << "hidden lines belong to the selection";
}

TEST_F(EditingLines, OpeningAgainRecordsWhatIsOpen) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    box_.PickCorrections(u"mnuPopupEdit");
    EXPECT_TRUE(box_.EditorIsOpen());
    EXPECT_EQ(Editor().Text(), u"changed");
    EXPECT_EQ(box_->Corrections().Of(5)->Lines, std::vector<std::u16string>{u"changed"});
    box_.PressInEditor(key_code::Return, shift_mask::Ctrl);
    EXPECT_EQ(box_.Now(), (All{{5, 1, u"changed\n"}}));
}

TEST_F(EditingLines, TheToolbarsEditButtonBringsUpTheMenuBelowIt) {
    box_.Elements().tbMore.UserClick(u"Edit");
    ASSERT_TRUE(box_.Elements().mnuPopup.PoppedUpAt().has_value());
    EXPECT_EQ(box_.Elements().mnuPopup.PoppedUpAt()->Y, 360);
    std::vector<std::u16string> keys;
    for (const MenuItem& item : box_.Elements().mnuPopup.Items) keys.push_back(item.Key);
    EXPECT_THAT(keys, ElementsAre(u"mnuPopupEdit", u"", u"mnuPopupUndo", u"mnuUndoAll", u"",
                                  u"mnuPopupPrev", u"mnuPopupNext", u"", u"mnuPopupCommit"));
}

TEST_F(EditingLines, TheToolbarDoesNotCloseTheEditor) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    box_.Elements().tbMore.UserClick(u"Edit");
    EXPECT_TRUE(box_.EditorIsOpen());
}

TEST_F(EditingLines, AHiddenControlOpensNothing) {
    box_->row(5);
    box_->Hide();
    box_.PickCorrections(u"mnuPopupEdit");
    EXPECT_FALSE(box_.EditorIsOpen());
    box_->Show();
    box_.PickCorrections(u"mnuPopupEdit");
    EXPECT_TRUE(box_.EditorIsOpen());
}

TEST_F(EditingLines, ANewFontKeepsTheEditOpenOverItsRows) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    box_.Metrics().RowHeight = 300;
    box_->Font({.Name = u"Larger"});
    EXPECT_TRUE(box_.EditorIsOpen());
    EXPECT_EQ(Editor().Top(), 360 + 4 * 300 - 30);
}

TEST_F(EditingLines, AViewTooLowForARowRecords) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    box_.Resize(12000, 400);
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Now(), (All{{5, 1, u"changed\n"}}));
}

TEST_F(EditingLines, TheLastLineCanGetLinesBehindIt) {
    box_.Load("A\r\nB\r\nC");
    box_.Correct(3, u"C\r\nnew");
    EXPECT_EQ(box_.Now(), (All{{4, 0, u"new\n"}}));
    EXPECT_TRUE(box_.Marked().empty()) << "an insertion covers no line";
    box_.OpenEditor(3);
    EXPECT_EQ(Editor().Text(), u"C\r\nnew");
}

}  // namespace
}  // namespace quorvale
