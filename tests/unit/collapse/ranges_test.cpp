#include "collapse/ranges.h"

#include <gtest/gtest.h>

#include "support/even_metrics.h"

namespace quorvale {
namespace {

class RangeRegisterTest : public testing::Test {
protected:
    RangeRegisterTest() {
        ToolbarButton button;
        button.Key = u"Collapsed";
        button.Enabled = false;
        surface.tbMore.Add(button);
        document.LineSlots = 101;
        document.Table.HiddenDepth.Reset(101, 0);
    }

    bool Takes(std::int32_t from, std::int32_t to) {
        const std::size_t before = collapse.Ranges.size();
        ranges.CollapseLines(from, to);
        return collapse.Ranges.size() > before;
    }

    EvenMetrics metrics;
    CollapseState collapse;
    Surface surface{metrics};
    DocumentState document;
    RangeRegister ranges{collapse, surface, document};
};

TEST_F(RangeRegisterTest, ARangeIsNotedInTheOrderOfRegistration) {
    EXPECT_TRUE(Takes(30, 40));
    EXPECT_TRUE(Takes(5, 20));
    EXPECT_EQ(collapse.Ranges,
              (std::vector<CollapseRange>{CollapseRange{30, 40, 0}, CollapseRange{5, 20, 0}}));
    EXPECT_FALSE(collapse.RangesUnchanged);
}

TEST_F(RangeRegisterTest, TheFirstOneEnablesTheButton) {
    EXPECT_FALSE(surface.tbMore.Button(u"Collapsed").Enabled);
    ranges.CollapseLines(5, 5);
    EXPECT_FALSE(surface.tbMore.Button(u"Collapsed").Enabled);
    ranges.CollapseLines(5, 6);
    EXPECT_TRUE(surface.tbMore.Button(u"Collapsed").Enabled);
}

TEST_F(RangeRegisterTest, ItMustStartAtALineOfTheDocument) {
    EXPECT_FALSE(Takes(0, 9));
    EXPECT_FALSE(Takes(-3, 9));
    EXPECT_FALSE(Takes(101, 103));
    EXPECT_FALSE(Takes(2147483647, 2147483647));
    EXPECT_TRUE(Takes(100, 101));
    EXPECT_TRUE(Takes(1, 2));
}

TEST_F(RangeRegisterTest, ItMustBeAtLeastTwoLinesLong) {
    EXPECT_FALSE(Takes(5, 5));
    EXPECT_FALSE(Takes(5, 4));
    EXPECT_TRUE(collapse.RangesUnchanged);
}

TEST_F(RangeRegisterTest, ItMustNotStartWhereAFoldIsHeaded) {
    document.Table.HiddenDepth.Fill(6, 20, 1);
    EXPECT_FALSE(Takes(5, 30));
    EXPECT_TRUE(Takes(4, 30));
    EXPECT_TRUE(Takes(6, 10)) << "a hidden line may head a range";
    document.Table.HiddenDepth.Fill(9, 12, 2);
    EXPECT_FALSE(Takes(8, 30)) << "a hidden line that heads a deeper fold may not";
}

TEST_F(RangeRegisterTest, TheSameRangeMayBeRegisteredTwice) {
    EXPECT_TRUE(Takes(5, 20));
    EXPECT_TRUE(Takes(5, 20));
}

TEST_F(RangeRegisterTest, ItsEndIsNotChecked) {
    EXPECT_TRUE(Takes(90, 2147483647));
    EXPECT_EQ(document.HiddenDepth(Line{95}), 0) << "nothing is folded by a registration";
}

TEST_F(RangeRegisterTest, BeforeAnyDocumentNothingIsTaken) {
    document = {};
    EXPECT_FALSE(Takes(1, 2));
    EXPECT_FALSE(Takes(0, 2));
}

}  // namespace
}  // namespace quorvale
