#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/corrections_in_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using All = std::vector<InJournal>;

/// A document of five hundred lines with corrections of the lines 9, 2 and 5, in this order.
class CorrectionsMenu : public testing::Test {
protected:
    CorrectionsMenu() {
        box_.Load(DocFile(500));
        for (const int line : {9, 2, 5}) box_.Correct(line, u"x" + Wide(std::to_string(line)));
        box_->row(12);
        box_.Log().Clear();
    }

    void Pick(std::u16string_view key) { box_.PickCorrections(key); }

    std::u16string Message() {
        if (box_.Messages().Log.size() != 1) return u"not one message";
        return box_.Messages().Log.front().Text;
    }

    CorrectionsBox box_;
};

TEST_F(CorrectionsMenu, AMarkSelectsItsRowsAndBringsTheMenuUp) {
    box_.Correct(30, 3, u"a\r\nb\r\nc");
    box_->TopLine(25);
    box_.Log().Clear();
    box_.ClickMark(6);
    EXPECT_EQ(box_->row(), 30);
    EXPECT_EQ(box_->SelectedRowsCount(), 3);
    EXPECT_EQ(box_.Elements().lblLine[5].BackColor(), system_colour::Highlight);
    EXPECT_EQ(box_.Elements().lblLine[7].BackColor(), system_colour::Highlight);
    EXPECT_NE(box_.Elements().lblLine[8].BackColor(), system_colour::Highlight);
    ASSERT_TRUE(box_.Elements().mnuPopup.PoppedUpAt().has_value());
    EXPECT_EQ(box_.Elements().mnuPopup.PoppedUpAt()->X, box_.Elements().picExpand.Left());
    Pick(u"mnuPopupUndo");
    EXPECT_EQ(box_.Marked(), std::vector<int>{}) << "the others are out of view";
    EXPECT_EQ(box_->Corrections().Pending(), 3);
}

TEST_F(CorrectionsMenu, TheHostHearsOfTheCaretBeforeTheRowsAreSelected) {
    std::vector<std::int32_t> counts;
    box_.Log().OnEvent = [&](const std::string&) { counts.push_back(box_->SelectedRowsCount()); };
    box_.ClickMark(4);
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("SelChanged"));
    EXPECT_THAT(counts, ElementsAre(0));
    EXPECT_EQ(box_->SelectedRowsCount(), 1);
}

TEST_F(CorrectionsMenu, AMarkOfAnotherRowPicksNothing) {
    box_.ClickMark(4);
    box_.Elements().mnuPopup.UserCancel();
    box_->row(12);
    box_.ClickMark(6);
    EXPECT_EQ(box_->row(), 12);
    EXPECT_FALSE(box_.Elements().mnuPopup.PoppedUpAt().has_value());
    Pick(u"mnuPopupUndo");
    EXPECT_EQ(box_->Corrections().Pending(), 3);
}

TEST_F(CorrectionsMenu, EveryRowHasAPictureForItsMarkInTheMarksSize) {
    for (const Image& mark : box_.Elements().imgEdit) {
        EXPECT_NE(mark.Shown(), nullptr) << mark.Index();
        EXPECT_EQ(mark.Width(), 75) << mark.Index();
        EXPECT_EQ(mark.Height(), 225) << mark.Index();
    }
}

TEST_F(CorrectionsMenu, WithoutAFileAMarkDoesNothing) {
    box_->text(Doc(5));
    box_.ClickMark(1);
    EXPECT_FALSE(box_.Elements().mnuPopup.PoppedUpAt().has_value());
}

TEST_F(CorrectionsMenu, UndoWithoutAPickedCorrectionLeavesTheEditorOpen) {
    box_.OpenEditor(12);
    Pick(u"mnuPopupUndo");
    EXPECT_TRUE(box_.EditorIsOpen());
    EXPECT_EQ(box_->Corrections().Pending(), 3);
}

TEST_F(CorrectionsMenu, UndoTakesThePickedCorrectionWhereverTheCaretIs) {
    box_.ClickMark(4);
    box_.OpenEditor(12);
    box_.TypeInEditor(u"dropped");
    Pick(u"mnuPopupUndo");
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Now(), (All{{9, 1, u"x9\n"}, {2, 1, u"x2\n"}}));
    EXPECT_THAT(box_.Marked(), ElementsAre(1, 8));
    Pick(u"mnuPopupUndo");
    EXPECT_EQ(box_->Corrections().Pending(), 2) << "it is gone already";
    Pick(u"mnuPopupNext");
    EXPECT_EQ(box_->row(), 9) << "and still the place to go on from";
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(CorrectionsMenu, UndoAllAsksFirst) {
    box_.OpenEditor(12);
    box_.ClickMark(4);
    Pick(u"mnuUndoAll");
    EXPECT_EQ(Message(), u"You are about to undo all corrections made to the file.\r\nContinue?");
    EXPECT_EQ(box_.Messages().Log[0].Style, MessageStyle::ExclamationOkCancel);
    EXPECT_EQ(box_->Corrections().Pending(), 3);
    EXPECT_THAT(box_.Marked(), ElementsAre(1, 4, 8));
    Pick(u"mnuPopupUndo");
    EXPECT_EQ(box_->Corrections().Pending(), 2) << "the picked one was kept too";
}

TEST_F(CorrectionsMenu, UndoAllLeavesNothing) {
    box_.ClickMark(4);
    box_.OpenEditor(12);
    box_.TypeInEditor(u"dropped");
    box_.Messages().Answers = {MessageAnswer::Ok};
    Pick(u"mnuUndoAll");
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_->Corrections().Pending(), 0);
    EXPECT_TRUE(box_.Marked().empty());
    Pick(u"mnuPopupNext");
    EXPECT_EQ(box_.Messages().Log.size(), 1U) << "nothing is picked any more";
    box_->Terminate();
    EXPECT_FALSE(box_.HasJournal());
}

TEST_F(CorrectionsMenu, UndoAllInATextOfNoFileDoesNoHarm) {
    box_->text(Doc(5));
    box_.Messages().Answers = {MessageAnswer::Ok};
    Pick(u"mnuUndoAll");
    EXPECT_EQ(box_.Messages().Log.size(), 1U);
    EXPECT_EQ(box_->LineCount(), 5);
}

TEST_F(CorrectionsMenu, TheWalkGoesByLine) {
    box_.ClickMark(4);
    Pick(u"mnuPopupNext");
    EXPECT_EQ(box_->row(), 9);
    Pick(u"mnuPopupNext");
    EXPECT_EQ(box_->row(), 9) << "still from the picked one";
    Pick(u"mnuPopupPrev");
    EXPECT_EQ(box_->row(), 2);
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(CorrectionsMenu, TheWalkSaysWhereItEnds) {
    box_.ClickMark(8);
    Pick(u"mnuPopupNext");
    EXPECT_EQ(Message(), u"This is the last update to the file.");
    EXPECT_EQ(box_.Messages().Log[0].Style, MessageStyle::Exclamation);
    EXPECT_EQ(box_->row(), 9);
    box_.Messages().Log.clear();
    box_.ClickMark(1);
    Pick(u"mnuPopupPrev");
    EXPECT_EQ(Message(), u"This is the first update to the file.");
    EXPECT_EQ(box_->row(), 2);
}

TEST_F(CorrectionsMenu, TheWalkBringsItsLineIntoSightAndRecordsAnOpenEdit) {
    box_.Correct(400, u"far");
    box_.ClickMark(0);
    box_->TopLine(1);
    box_.ClickMark(8);
    box_.OpenEditor(12);
    box_.TypeInEditor(u"recorded");
    box_.Log().Clear();
    Pick(u"mnuPopupNext");
    EXPECT_EQ(box_->row(), 400) << "the edit was not yet a correction when the line was looked for";
    EXPECT_THAT(box_.RowLines(), testing::Contains(400));
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("Scrolled", "SelChanged"));
    EXPECT_EQ(box_->Corrections().Pending(), 5);
}

TEST_F(CorrectionsMenu, ACorrectionPastTheEndIsTheLastLine) {
    box_.Files().Put(u"/short.txt!.xml",
                     "<corrections><update start=\"1\" loc=\"1\">x\n</update>"
                     "<update start=\"700\" loc=\"1\">y\n</update></corrections>");
    box_.Load(DocFile(40), u"/short.txt");
    box_.ClickMark(0);
    Pick(u"mnuPopupNext");
    EXPECT_EQ(box_->row(), 40);
}

TEST_F(CorrectionsMenu, APickedCorrectionOfAnotherFileTakesNothingFromThisOne) {
    box_.ClickMark(4);
    box_.Load(DocFile(50), u"/other.txt");
    box_.Correct(5, u"mine");
    Pick(u"mnuPopupUndo");
    EXPECT_EQ(box_->Corrections().Pending(), 1);
}

TEST_F(CorrectionsMenu, MarksFollowTheRowsThroughScrollingFoldingAndSuspending) {
    box_->TopLine(5);
    EXPECT_THAT(box_.Marked(), ElementsAre(0, 4));
    box_->TopLine(1);
    box_->CollapseLines(3, 7);
    box_->CollapseAll();
    EXPECT_THAT(box_.Marked(), ElementsAre(1, 4)) << "line 5 is folded away";
    box_->ExpandAll();
    box_->AutoRedraw(false);
    box_.Messages().Answers = {MessageAnswer::Ok};
    Pick(u"mnuUndoAll");
    EXPECT_THAT(box_.Marked(), ElementsAre(1, 4, 8)) << "nothing is painted now";
    box_->AutoRedraw(true);
    EXPECT_TRUE(box_.Marked().empty());
}

TEST_F(CorrectionsMenu, AViewOfMoreRowsThanSlotsIsNoTrap) {
    box_.Resize(12000, 50000);
    box_->TopLine(2);
    EXPECT_THAT(box_.Marked(), ElementsAre(0, 3, 7));
}

TEST_F(CorrectionsMenu, ATallViewMarksRowsFarDown) {
    HeadlessSetup setup;
    setup.Options.TallView = true;
    setup.Height = 50000;
    CorrectionsBox tall(setup);
    tall.Load(DocFile(500));
    tall.Correct(190, u"x");
    tall->TopLine(1);
    EXPECT_THAT(tall.Marked(), ElementsAre(189));
}

TEST_F(CorrectionsMenu, TheRowCutByTheEdgeIsMarkedTruthfully) {
    box_.Correct(31, u"cut");
    box_->TopLine(1);
    EXPECT_THAT(box_.Marked(), testing::Contains(30));
    box_->TopLine(2);
    EXPECT_THAT(box_.Marked(), testing::Not(testing::Contains(30)));
}

}  // namespace
}  // namespace quorvale
