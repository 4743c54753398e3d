#include "navigation/scroll_tip.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "navigation_rig.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

class ScrollTipTest : public testing::Test {
protected:
    ScrollTipTest() {
        rig.SetLines(100);
        rig.Elements.cmdMore.SetHeight(360);
    }

    void DragTo(std::int32_t value) {
        rig.Elements.scrVert.SetValue(value);
        scrollTip.ThumbMoved();
    }

    NavigationRig rig;
    Label& tip = rig.Elements.lblScrollTip;
    ScrollTip scrollTip{rig.Elements, rig.Document, Language::English};
};

TEST_F(ScrollTipTest, TheFirstMoveShowsItAtTheThumb) {
    DragTo(36);
    EXPECT_TRUE(tip.Visible());
    EXPECT_EQ(tip.Top(), Single(36.0 / 99 * 6720 + 600));
}

TEST_F(ScrollTipTest, LaterMovesKeepItsHeightAndRenewTheRest) {
    DragTo(9);
    const Twips top = tip.Top();
    DragTo(60);
    EXPECT_EQ(tip.Top(), top);
    EXPECT_EQ(tip.Caption(), u" Line 60 ");
    EXPECT_EQ(tip.Left(), 11745 - 9 * 120 - 30);
}

TEST_F(ScrollTipTest, ARangeWithoutExtentPutsItAtTheTop) {
    rig.Elements.scrVert.SetMin(-28);
    rig.Elements.scrVert.SetMax(-28);
    DragTo(-28);
    EXPECT_EQ(tip.Top(), 600);
    EXPECT_EQ(tip.Caption(), u" Line -28 ");
}

TEST_F(ScrollTipTest, TheSumOfRangeAndPageMayPass16Bits) {
    rig.Elements.scrVert.SetMax(32752);
    DragTo(32752);
    EXPECT_NEAR(tip.Top(), 32752.0 / 32780 * 6720 + 600, 0.01);
}

TEST_F(ScrollTipTest, ALineBeyond32BitsIsAnOverflow) {
    rig.Document.ScrollScale = 32767;
    rig.Elements.scrVert.SetWide(true);
    rig.Elements.scrVert.SetMax(100'000);
    rig.Elements.scrVert.SetValue(70'000);
    EXPECT_EQ(ErrorOf([&] { scrollTip.ThumbMoved(); }), ErrorKind::Overflow);
}

}  // namespace
}  // namespace quorvale
