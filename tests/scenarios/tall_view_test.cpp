#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"
#include "whole_rows.h"

namespace quorvale {
namespace {

TEST(RowTop, NamesTheTopOfARowOnScreen) {
    HeadlessBox box;
    box->text(Doc(100));
    EXPECT_EQ(box->RowTop(1), 360);
    EXPECT_EQ(box->RowTop(3), 840);
    EXPECT_EQ(box->RowTop(31), 7560);
}

TEST(RowTop, IsNegativeForWhatIsNotOnScreen) {
    HeadlessBox box;
    box->text(Doc(100));
    for (const std::int32_t line : {0, -1, 32, 100, 101, 102, 2147483647}) {
        EXPECT_EQ(box->RowTop(line), -480) << line;
    }
    box->TopLine(50);
    EXPECT_EQ(box->RowTop(1), -480);
    EXPECT_EQ(box->RowTop(50), 360);
}

TEST(RowTop, TheEntryBehindTheLastLineHasNoRowAlthoughBlankRowsCarryIt) {
    HeadlessBox box;
    box->text(Doc(10));
    ASSERT_EQ(box.Elements().lblLine[10].Tag(), u"11");
    EXPECT_EQ(box->RowTop(11), -480);
}

TEST(TallView, ShowsAsManyRowsAsFitATallScreen) {
    HeadlessSetup setup;
    setup.Options.TallView = true;
    setup.Height = 360 + 164 * 240;
    HeadlessBox box(setup);
    box->text(Doc(1000));
    EXPECT_EQ(WholeRows(box), 164);
    EXPECT_EQ(box.RowLines().size(), 164U);
    EXPECT_EQ(box.Elements().lblLine[163].Caption(), u"L164");
    EXPECT_EQ(box.Elements().lblLine[163].Top(), 360 + 163 * 240);
    EXPECT_TRUE(box.Elements().lblLine[163].Visible());
    EXPECT_TRUE(box.Elements().imgLine[163].Visible());
    box->TopLine(900);
    EXPECT_EQ(box->TopLine(), 1001 - 164);
    EXPECT_EQ(box.Elements().lblLine[163].Caption(), u"L1000");
}

TEST(TallView, RowsThatAWindowGainsAreFilledAtOnce) {
    HeadlessSetup setup;
    setup.Options.TallView = true;
    HeadlessBox box(setup);
    box->text(Doc(1000));
    box->TopLine(11);
    box.Resize(12000, 360 + 200 * 240 + 100);
    EXPECT_EQ(WholeRows(box), 200);
    EXPECT_EQ(box.Elements().lblLine[199].Caption(), u"L210");
    EXPECT_EQ(box.Elements().lblLine[200].Caption(), u"L211") << "the row that is cut";
    EXPECT_EQ(box.Elements().lblLine[199].BackColor(), box->LineBackColor(210));
    box.Resize(12000, 7560);
    EXPECT_EQ(WholeRows(box), 30);
}

TEST(TallView, RowsGainedWhileScrolledSidewaysAreShiftedLikeTheOthers) {
    HeadlessSetup setup;
    setup.Options.TallView = true;
    HeadlessBox box(setup);
    box->text(Times(200) + u"\r\n" + Doc(1000));
    box.Elements().scrHorz.UserStepBy(1200);
    ASSERT_EQ(box.Elements().lblLine[0].Left(), -645);
    box.Resize(12000, 360 + 200 * 240);
    EXPECT_EQ(box.Elements().lblLine[199].Left(), -645);
}

TEST(TallView, WithoutItTheLongestPageIsThatOfThePool) {
    HeadlessSetup setup;
    setup.Height = 360 + 164 * 240;
    HeadlessBox box(setup);
    box->text(Doc(1000));
    EXPECT_EQ(WholeRows(box), 127);
}

}  // namespace
}  // namespace quorvale
