#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

std::size_t Scrolls(HeadlessBox& box) { return box.Log().Count("Scrolled"); }

TEST(TopLine, SettingItShowsTheRowsFromThereAndIsReported) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Log().Clear();
    box->TopLine(42);
    EXPECT_EQ(box->TopLine(), 42);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L42");
    EXPECT_EQ(box.Elements().scrVert.Value(), 42);
    EXPECT_EQ(box.Log().Entries(), (std::vector<std::string>{"Scrolled"}));
}

TEST(TopLine, ItsCurrentValueDoesNothing) {
    HeadlessBox box;
    box->text(Doc(100));
    box->TopLine(42);
    box.Log().Clear();
    box.Elements().lblLine[3].SetCaption(u"not repainted");
    box->TopLine(42);
    EXPECT_EQ(Scrolls(box), 0U);
    EXPECT_EQ(box.Elements().lblLine[3].Caption(), u"not repainted");
}

TEST(TopLine, ZeroAndNegativeNumbersShowTheFirstLineAndAreReportedEachTime) {
    HeadlessBox box;
    box->text(Doc(100));
    box->TopLine(50);
    box.Log().Clear();
    box->TopLine(0);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(Scrolls(box), 1U);
    box->TopLine(-7);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(Scrolls(box), 2U);
    box->TopLine(-2147483647 - 1);
    EXPECT_EQ(box->TopLine(), 1);
}

TEST(TopLine, BeyondTheEndItStopsWhereTheLastLineIsTheLastWholeRowButOne) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Log().Clear();
    box->TopLine(99999);
    EXPECT_EQ(box->TopLine(), 71);
    EXPECT_EQ(box.Elements().lblLine[29].Caption(), u"L100");
    EXPECT_EQ(Scrolls(box), 1U);
    box->TopLine(99999);
    EXPECT_EQ(box->TopLine(), 71);
    EXPECT_EQ(Scrolls(box), 2U) << "the request differed from where the view stands";
}

TEST(TopLine, ADocumentShorterThanTheViewStaysAtItsFirstLine) {
    HeadlessBox box;
    box->text(Doc(10));
    for (const std::int32_t line : {2, 10, 11, 99, -3}) {
        box->TopLine(line);
        EXPECT_EQ(box->TopLine(), 1) << line;
    }
}

TEST(TopLine, WhileSuspendedTheClampedLineIsStoredAndNothingElseHappens) {
    HeadlessBox box;
    box->text(Doc(100));
    box->AutoRedraw(false);
    box.Log().Clear();
    box->TopLine(999);
    EXPECT_EQ(box->TopLine(), 71);
    EXPECT_EQ(Scrolls(box), 0U);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1");
    EXPECT_EQ(box.Elements().scrVert.Value(), 1);
    box->AutoRedraw(true);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L71");
    EXPECT_EQ(box.Elements().scrVert.Value(), 71);
    EXPECT_EQ(Scrolls(box), 0U) << "the host has set it itself";
}

TEST(TopLine, OnAHiddenLineTheViewGoesToTheFoldsHead) {
    HeadlessBox box;
    box->text(Doc(200));
    box->CollapseLines(5, 50);
    box->CollapseAll();
    box.Log().Clear();
    box->TopLine(15);
    EXPECT_EQ(box->TopLine(), 5);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L5");
    EXPECT_GE(Scrolls(box), 1U);
}

TEST(TopLine, OnAHiddenLineWhileSuspendedItGoesToTheHeadAtTheEnd) {
    HeadlessBox box;
    box->text(Doc(200));
    box->CollapseLines(5, 50);
    box->CollapseAll();
    box->AutoRedraw(false);
    box->TopLine(15);
    EXPECT_EQ(box->TopLine(), 15);
    box->AutoRedraw(true);
    EXPECT_EQ(box->TopLine(), 5);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L5");
    EXPECT_EQ(box.Elements().lblLine[1].Caption(), u"L51");
}

TEST(TopLine, ScrollingLeavesTheCaretsKeptPlaceAlone) {
    HeadlessBox box;
    box->text(Times(60) + u"\r\n" + Doc(10) + u"\r\n" + Times(60) + u"\r\n" + Times(200) + u"\r\n" +
              Doc(200));
    box->MoveTo(1, 50);
    box->row(3);
    EXPECT_EQ(box->col(), 2) << "the last character's column of a short line";
    box->TopLine(40);
    box.Elements().scrHorz.UserStepBy(2400);
    box.Elements().scrHorz.UserStepBy(-2400);
    box->row(12);
    EXPECT_EQ(box->col(), 50);
}

TEST(TopLine, TheMarkerFollowsItsRowAndIsParkedWhenItLeaves) {
    HeadlessBox box;
    box->text(Doc(100));
    box->MoveTo(10, 2);
    const Image& marker = box.Elements().imgMarker;
    EXPECT_EQ(marker.Top(), 360 + 9 * 240);
    box->TopLine(4);
    EXPECT_EQ(marker.Top(), 360 + 6 * 240);
    EXPECT_EQ(marker.Left(), 555 + 120 - 120);
    box->TopLine(60);
    EXPECT_EQ(marker.Left(), -1000);
    box->TopLine(1);
    EXPECT_EQ(marker.Left(), 555);
}

TEST(TopLine, AHostMayScrollAgainInsideTheEvent) {
    HeadlessBox box;
    box->text(Doc(200));
    box.Log().OnEvent = [&](const std::string&) {
        if (box->TopLine() == 50) box->TopLine(120);
    };
    box->TopLine(50);
    EXPECT_EQ(box->TopLine(), 120);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L120");
    EXPECT_EQ(box.Elements().scrVert.Value(), 120);
}

TEST(TopLine, AHostMayReplaceTheDocumentInsideTheEvent) {
    HeadlessBox box;
    box->text(Doc(200));
    bool replaced = false;
    box.Log().OnEvent = [&](const std::string&) {
        if (replaced) return;
        replaced = true;
        box->text(Doc(3, 'N'));
    };
    box->TopLine(150);
    EXPECT_EQ(box->LineCount(), 3);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box.Rows(), (std::vector<std::string>{"N1", "N2", "N3"}));
}

TEST(TopLine, AHostMayDestroyTheControlInsideTheEvent) {
    HeadlessBox box;
    box->text(Doc(200));
    box.Log().OnEvent = [&](const std::string&) { box.Destroy(); };
    box->TopLine(150);
    EXPECT_TRUE(box.Destroyed());
}

TEST(VerticalBar, ItsValueIsTheTopLine) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Log().Clear();
    box.DragThumb({36});
    EXPECT_EQ(box->TopLine(), 36);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L36");
    EXPECT_EQ(Scrolls(box), 1U);
}

TEST(VerticalBar, ArrowsAndTroughMoveByALineAndByAPage) {
    HeadlessBox box;
    box->text(Doc(100));
    ScrollBar& bar = box.Elements().scrVert;
    bar.UserArrow(1);
    EXPECT_EQ(box->TopLine(), 2);
    bar.UserPage(1);
    EXPECT_EQ(box->TopLine(), 30);
    bar.UserArrow(-1);
    EXPECT_EQ(box->TopLine(), 29);
    bar.UserPage(1);
    bar.UserPage(1);
    EXPECT_EQ(box->TopLine(), 71);
    for (int i = 0; i < 4; ++i) bar.UserPage(-1);
    EXPECT_EQ(box->TopLine(), 1);
}

TEST(VerticalBar, TheWheelMovesWholeRows) {
    HeadlessBox box;
    box->text(Doc(100));
    box.TurnWheel(3);
    EXPECT_EQ(box->TopLine(), 4);
    box.TurnWheel(-9);
    EXPECT_EQ(box->TopLine(), 1);
    box.TurnWheel(1000);
    EXPECT_EQ(box->TopLine(), 71);
}

TEST(VerticalBar, IntoAFoldTheThumbLandsBelowItGoingDownAndOnItsHeadGoingUp) {
    HeadlessBox box;
    box->text(Doc(200));
    box->CollapseLines(10, 20);
    box->CollapseAll();
    ASSERT_EQ(box->TopLine(), 1);
    box.DragThumb({15});
    EXPECT_EQ(box->TopLine(), 21);
    box.DragThumb({50});
    box.DragThumb({15});
    EXPECT_EQ(box->TopLine(), 10);
}

TEST(VerticalBar, TheArrowsStepOverAFold) {
    HeadlessBox box;
    box->text(Doc(200));
    box->CollapseLines(10, 20);
    box->CollapseAll();
    box->TopLine(10);
    box.Elements().scrVert.UserArrow(1);
    EXPECT_EQ(box->TopLine(), 21);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L21");
    box.Elements().scrVert.UserArrow(-1);
    EXPECT_EQ(box->TopLine(), 10);
}

TEST(VerticalBar, NearTheEndAFoldThatCannotBePassedKeepsItsHeadOnTop) {
    HeadlessBox box;
    box->text(Doc(69));
    box->CollapseLines(5, 50);
    box->CollapseAll();
    box.DragThumb({15});
    EXPECT_EQ(box->TopLine(), 5) << "all lines below the fold fit under its head";
    box.Resize(12000, 360 + 10 * 240);
    box->TopLine(1);
    box.DragThumb({15});
    EXPECT_EQ(box->TopLine(), 51);
}

TEST(VerticalBar, InFortyThousandLinesAStepIsTwoLines) {
    HeadlessBox box;
    box->text(Doc(40000));
    ScrollBar& bar = box.Elements().scrVert;
    box.DragThumb({10000});
    EXPECT_EQ(box->TopLine(), 20000);
    EXPECT_EQ(bar.Value(), 10000);
    box.DragThumb({bar.Min()});
    EXPECT_EQ(box->TopLine(), 1);
    box.DragThumb({bar.Max()});
    EXPECT_EQ(box->TopLine(), 39971);
    EXPECT_EQ(box.Elements().lblLine[29].Caption(), u"L40000");
}

TEST(VerticalBar, AtEveryLengthTheThumbsEndsReachTheDocumentsEnds) {
    for (const int lines : {32766, 32767, 39999, 40000, 40001, 40002, 65535, 65536, 98305}) {
        HeadlessBox box;
        box->text(Doc(lines));
        ScrollBar& bar = box.Elements().scrVert;
        box.DragThumb({bar.Max()});
        EXPECT_EQ(box->TopLine(), lines + 1 - 30) << lines;
        EXPECT_EQ(box->RowTop(lines), 360 + 29 * 240) << lines;
        box.DragThumb({bar.Min()});
        EXPECT_EQ(box->TopLine(), 1) << lines;
    }
}

TEST(VerticalBar, InALongDocumentAClickOnTheArrowAlwaysMoves) {
    HeadlessBox box;
    box->text(Doc(40000));
    box->TopLine(101);
    std::int32_t before = box->TopLine();
    for (int i = 0; i < 20; ++i) {
        box.Elements().scrVert.UserArrow(1);
        EXPECT_GT(box->TopLine(), before);
        before = box->TopLine();
    }
    for (int i = 0; i < 20; ++i) {
        box.Elements().scrVert.UserArrow(-1);
        EXPECT_LT(box->TopLine(), before);
        before = box->TopLine();
    }
}

TEST(WideScrollBars, EveryLineOfALongDocumentHasItsOwnStep) {
    HeadlessSetup setup;
    setup.Options.WideScrollBars = true;
    HeadlessBox box(setup);
    box->text(Doc(100000));
    ScrollBar& bar = box.Elements().scrVert;
    EXPECT_EQ(bar.Max(), 100001 - 30);
    EXPECT_EQ(bar.SmallChange(), 1);
    for (const std::int32_t line : {1, 2, 32767, 32768, 65537, 99970, 99971}) {
        box.DragThumb({line});
        EXPECT_EQ(box->TopLine(), line);
        EXPECT_EQ(bar.Value(), line);
        EXPECT_EQ(box->RowTop(line), 360);
    }
    bar.UserArrow(-1);
    EXPECT_EQ(box->TopLine(), 99970);
}

TEST(LongDocument, StepsReachBothEndsFromTheLinesNextToThem) {
    HeadlessBox box;
    for (const int lines : {40000, 40001, 40002, 40003}) {
        box->text(Doc(lines));
        box->TopLine(2);
        box.TurnWheel(-1);
        EXPECT_EQ(box->TopLine(), 1) << lines;
        box->TopLine(99999);
        const std::int32_t last = box->TopLine();
        box->TopLine(last - 1);
        box.Elements().scrVert.UserArrow(1);
        EXPECT_EQ(box->TopLine(), last) << lines;
    }
}

TEST(LongDocument, AThumbLetGoWhereItBeganMovesNothing) {
    HeadlessBox box;
    box->text(Doc(40000));
    box->TopLine(101);
    box.Log().Clear();
    box.DragThumb({box.Elements().scrVert.Value()});
    EXPECT_EQ(box->TopLine(), 101);
    EXPECT_EQ(box.Log().Count("Scrolled"), 0U);
    EXPECT_FALSE(box.Elements().lblScrollTip.Visible());
}

}  // namespace
}  // namespace quorvale
