#include "corrections/marks.h"

#include <gtest/gtest.h>

#include "corrections_rig.h"

namespace quorvale {
namespace {

class CorrectionMarksTest : public testing::Test {
protected:
    CorrectionMarksTest() {
        rig.SetText(Doc(50));
        rig.View.RowsPerView = 10;
        rig.Elements.picExpand.SetLeft(240);
        for (Label& label : rig.Elements.lblLine) label.SetTop(240.0 * label.Index() + 360);
        rig.ShowRows();
    }

    std::vector<int> Marked() const {
        std::vector<int> slots;
        for (int slot = 0; slot <= 128; ++slot) {
            if (rig.IsMarked(slot)) slots.push_back(slot);
        }
        return slots;
    }

    CorrectionsRig rig;
};

using Slots = std::vector<int>;

TEST_F(CorrectionMarksTest, RowsOfCoveredLinesAreMarked) {
    rig.Put({{3, 2, u"x\n"}, {7, 0, u"y\n"}, {9, 1, u"z\n"}});
    rig.Marks.RefreshCorrectionMarks();
    EXPECT_EQ(Marked(), (Slots{2, 3, 8}));
}

TEST_F(CorrectionMarksTest, MarksFollowTheRowsAndTheJournal) {
    rig.Put({{3, 2, u"x\n"}});
    rig.Marks.RefreshCorrectionMarks();
    rig.ShowRows(3);
    rig.Marks.RefreshCorrectionMarks();
    EXPECT_EQ(Marked(), (Slots{0, 1}));
    rig.Journal.Drop();
    rig.Marks.RefreshCorrectionMarks();
    EXPECT_EQ(Marked(), Slots{});
}

TEST_F(CorrectionMarksTest, RowsBelowTheViewAreMarkedBeforeTheyComeIntoSight) {
    rig.Put({{11, 1, u"cut by the edge\n"}, {40, 1, u"below\n"}});
    rig.Marks.RefreshCorrectionMarks();
    EXPECT_EQ(Marked(), (Slots{10, 39}));
}

TEST_F(CorrectionMarksTest, ACorrectionOfThePlaceBehindTheEndMarksEveryBlankRow) {
    rig.SetText(Doc(125));
    rig.ShowRows();
    rig.Put({{126, 1, u"x\n"}});
    rig.Marks.RefreshCorrectionMarks();
    EXPECT_EQ(Marked(), (Slots{125, 126, 127}));
}

TEST_F(CorrectionMarksTest, ARowThatSaysNoNumberShowsNoLine) {
    rig.Elements.lblLine[4].SetTag(u"");
    rig.Elements.lblLine[5].SetTag(u"x");
    rig.Put({{-1, 9, u"x\n"}});
    rig.Marks.RefreshCorrectionMarks();
    EXPECT_FALSE(rig.IsMarked(4));
    EXPECT_FALSE(rig.IsMarked(5));
    EXPECT_TRUE(rig.IsMarked(6));
}

TEST_F(CorrectionMarksTest, WhilePaintingIsSuspendedMarksStay) {
    rig.Put({{3, 1, u"x\n"}});
    rig.Marks.RefreshCorrectionMarks();
    rig.Journal.RemoveAll();
    rig.View.RedrawSuspendCount = 1;
    rig.Marks.RefreshCorrectionMarks();
    EXPECT_EQ(Marked(), Slots{2});
}

TEST_F(CorrectionMarksTest, MoreRowsThanSlotsAreNoReasonToReadBeyondThem) {
    rig.View.RowsPerView = 200;
    rig.Put({{3, 1, u"x\n"}});
    rig.Marks.RefreshCorrectionMarks();
    EXPECT_EQ(Marked(), Slots{2});
}

TEST_F(CorrectionMarksTest, AClickPicksTheCorrectionSelectsItsRowsAndBringsTheMenuUp) {
    rig.Put({{3, 3, u"x\n"}});
    rig.Marks.Clicked(3);
    EXPECT_EQ(rig.Corrections.Current, rig.Corrections.JournalRoot->FirstChild());
    EXPECT_EQ(rig.Log, (std::vector<std::string>{"row 3", "colours"}));
    EXPECT_EQ(rig.Navigation.SelectedRowsCount, 3);
    ASSERT_TRUE(rig.Elements.mnuPopup.PoppedUpAt().has_value());
    EXPECT_EQ(rig.Elements.mnuPopup.PoppedUpAt()->X, 240);
    EXPECT_EQ(rig.Elements.mnuPopup.PoppedUpAt()->Y, 360 + 4 * 240) << "below the row";
}

TEST_F(CorrectionMarksTest, AClickBesideAllCorrectionsPicksNothing) {
    rig.Put({{3, 1, u"x\n"}});
    rig.Marks.Clicked(2);
    rig.Elements.mnuPopup.UserCancel();
    rig.Log.clear();
    rig.Marks.Clicked(5);
    EXPECT_EQ(rig.Corrections.Current, nullptr);
    EXPECT_EQ(rig.Log, std::vector<std::string>{});
    EXPECT_FALSE(rig.Elements.mnuPopup.PoppedUpAt().has_value());
}

TEST_F(CorrectionMarksTest, WithoutAJournalAClickChangesNothing) {
    rig.Put({{3, 1, u"x\n"}});
    rig.Marks.Clicked(2);
    rig.Elements.mnuPopup.UserCancel();
    const XmlNodePtr picked = rig.Corrections.Current;
    rig.Journal.Drop();
    rig.Marks.Clicked(2);
    EXPECT_EQ(rig.Corrections.Current, picked);
    EXPECT_FALSE(rig.Elements.mnuPopup.PoppedUpAt().has_value());
}

TEST_F(CorrectionMarksTest, AHugeCorrectionSelectsNoRowsPastAllNumbers) {
    rig.Put({{-5, 2147483647, u"x\n"}});
    rig.Marks.Clicked(0);
    EXPECT_EQ(rig.Navigation.CaretRow, Line{1});
    EXPECT_EQ(rig.Navigation.SelectedRowsCount, 2147483646);
}

/// A host that opens another file as soon as it hears of the caret.
class ReplacingRig : public CorrectionsRig {
public:
    void SetRow(Line row) override {
        CorrectionsRig::SetRow(row);
        SetText(u"other");
    }
};

TEST(CorrectionMarksReentry, AnotherDocumentInTheMiddleOfAClickIsLeftAlone) {
    ReplacingRig rig;
    rig.ShowRows();
    rig.Put({{2, 1, u"x\n"}});
    rig.Marks.Clicked(1);
    EXPECT_EQ(rig.Navigation.SelectedRowsCount, 0);
    EXPECT_FALSE(rig.Elements.mnuPopup.PoppedUpAt().has_value());
}

}  // namespace
}  // namespace quorvale
