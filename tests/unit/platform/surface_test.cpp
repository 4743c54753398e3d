#include "platform/surface.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/even_metrics.h"

namespace quorvale {
namespace {

class SurfaceTest : public testing::Test {
protected:
    EvenMetrics metrics;
    Surface surface{metrics};
};

TEST_F(SurfaceTest, EveryRowArrayStartsWithItsModel) {
    EXPECT_EQ(surface.lblLine.UpperBound(), 0);
    EXPECT_EQ(surface.imgLine.UpperBound(), 0);
    EXPECT_EQ(surface.imgExpand.UpperBound(), 0);
    EXPECT_EQ(surface.imgEdit.UpperBound(), 0);
    EXPECT_EQ(surface.lnExpand.UpperBound(), 0);
    EXPECT_EQ(surface.lnExpandTo.UpperBound(), 0);
    EXPECT_EQ(surface.lnGrid.UpperBound(), 0) << "boundary lines count from 1";
    EXPECT_EQ(surface.lblLine[0].Tag(), u"-1");
}

TEST_F(SurfaceTest, TheDesignedMeasures) {
    EXPECT_EQ(surface.imgEdit[0].Width(), 75);
    EXPECT_EQ(surface.imgExpand[0].Width(), 180);
    EXPECT_EQ(surface.scrVert.Width(), 255);
    EXPECT_EQ(surface.scrHorz.Height(), 255);
    EXPECT_EQ(surface.picBorder.Width(), 240);
    EXPECT_EQ(surface.tbMore.Height(), 360);
    EXPECT_EQ(surface.tmrImage.Interval(), 1000);
}

TEST_F(SurfaceTest, WhatIsNotNeededAtFirstIsHidden) {
    EXPECT_FALSE(surface.scrVert.Visible());
    EXPECT_FALSE(surface.scrHorz.Visible());
    EXPECT_FALSE(surface.picCorner.Visible());
    EXPECT_FALSE(surface.lblScrollTip.Visible());
    EXPECT_FALSE(surface.rtbEdit.Visible());
    EXPECT_FALSE(surface.lvFound.Visible());
    EXPECT_FALSE(surface.lnExpand[0].Visible());
    EXPECT_TRUE(surface.tbMore.Visible());
    EXPECT_TRUE(surface.lblLine[0].Visible());
}

TEST_F(SurfaceTest, PicturesOfRowsAreFittedToTheirPlacesTheMarkerTakesItsPicturesSize) {
    EXPECT_TRUE(surface.imgLine[0].Stretch());
    EXPECT_TRUE(surface.imgExpand[0].Stretch());
    EXPECT_TRUE(surface.imgEdit[0].Stretch());
    EXPECT_FALSE(surface.imgMarker.Stretch());
}

TEST_F(SurfaceTest, AHiddenToolbarHasNoHeightInTheLayout) {
    EXPECT_EQ(surface.ToolbarHeight(), 360);
    surface.tbMore.SetVisible(false);
    EXPECT_EQ(surface.ToolbarHeight(), 0);
    EXPECT_EQ(surface.tbMore.Height(), 360);
}

TEST_F(SurfaceTest, TheRowHeightIsTheFirstLabelsAndReadAfresh) {
    surface.lblLine[0].SetHeight(195);
    EXPECT_EQ(surface.RowHeight(), 195);
}

TEST_F(SurfaceTest, ANewSizeRunsTheHandlerOnceWhenBothSidesAreSet) {
    std::vector<std::pair<Twips, Twips>> sizes;
    surface.OnResize = [&] {
        sizes.emplace_back(surface.UserControl.Width(), surface.UserControl.Height());
    };
    surface.Resize(12000, 7560);
    surface.Resize(-5, 100);
    EXPECT_EQ(sizes, (std::vector<std::pair<Twips, Twips>>{{12000, 7560}, {0, 100}}));
}

TEST_F(SurfaceTest, OneWatcherHearsOfEveryElement) {
    class Counter final : public ElementWatcher {
    public:
        std::vector<std::string> Heard;
        void Setting(const Element& element, std::string_view) override {
            Heard.push_back(element.Name());
        }
    } counter;
    surface.lnGrid.Load();
    surface.Watch(&counter);
    surface.lblLine[0].SetLeft(1);
    surface.lnGrid[1].SetX1(1);
    surface.scrHorz.SetMax(7);
    surface.tbMore.SetVisible(false);
    surface.mnuPopup.PopUp(0, 0);
    surface.tmrImage.SetEnabled(true);
    surface.lblLine.Load().SetVisible(true);
    EXPECT_EQ(counter.Heard, (std::vector<std::string>{"lblLine", "lnGrid", "scrHorz", "tbMore",
                                                       "mnuPopup", "tmrImage", "lblLine"}));
    counter.Heard.clear();
    surface.Watch(nullptr);
    surface.lblLine[1].SetLeft(2);
    EXPECT_TRUE(counter.Heard.empty());
}

}  // namespace
}  // namespace quorvale
