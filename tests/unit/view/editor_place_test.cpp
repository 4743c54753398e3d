#include "view/editor_place.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/documents.h"
#include "view_rig.h"

namespace quorvale {
namespace {

class CountingPeers final : public EditorPlacePeers {
public:
    int Closed = 0;
    void CloseEdit() override { ++Closed; }
};

/// A laid out view of many lines whose editor is open over `Count` lines from `Start` on.
class EditorPlaceTest : public testing::Test {
protected:
    EditorPlaceTest() {
        rig.CreateRows();
        rig.Elements.picExpand.SetLeft(240);
        rig.Elements.picExpand.SetWidth(315);
        rig.Elements.scrVert.SetLeft(11745);
        rig.Elements.scrVert.SetVisible(true);
        rig.Elements.scrHorz.SetTop(7305);
        ShowFrom(1);
    }

    void ShowFrom(std::int32_t top, std::int32_t sentinel = 1000) {
        for (int slot = 0; slot < 128; ++slot) {
            rig.Elements.lblLine[slot].SetTag(Wide(std::to_string(std::min(top + slot, sentinel))));
        }
    }

    void OpenOver(std::int32_t start, std::int32_t count) {
        editing.EditStart = Line{start};
        editing.EditCount = count;
        rig.Elements.rtbEdit.SetVisible(true);
    }

    void ExpectAt(Twips top, Twips height) {
        const TextBox& editor = rig.Elements.rtbEdit;
        EXPECT_EQ(editor.Left(), 555);
        EXPECT_EQ(editor.Width(), 11190);
        EXPECT_EQ(editor.Top(), top);
        EXPECT_EQ(editor.Height(), height);
        EXPECT_EQ(peers.Closed, 0);
    }

    ViewRig rig;
    EditingState editing;
    CountingPeers peers;
    EditorPlace place{rig.View, rig.Elements, editing, peers};
};

TEST_F(EditorPlaceTest, TheEditorStandsOverItsRows) {
    OpenOver(5, 2);
    place.PlaceEditor();
    ExpectAt(1290, 525);
}

TEST_F(EditorPlaceTest, OverTheFirstLineItReachesALittleIntoTheToolbar) {
    OpenOver(1, 1);
    place.PlaceEditor();
    ExpectAt(330, 285);
}

TEST_F(EditorPlaceTest, WithoutAToolbarItStaysOnTheSurface) {
    rig.Elements.tbMore.SetVisible(false);
    OpenOver(1, 1);
    place.PlaceEditor();
    ExpectAt(0, 255);
}

TEST_F(EditorPlaceTest, ItsLowerEdgeEndsAtTheHorizontalBarOrTheSurface) {
    OpenOver(25, 40);
    place.PlaceEditor();
    ExpectAt(24 * 240 - 30 + 360, 7560 - (24 * 240 - 30 + 360) - 15);
    rig.Elements.scrHorz.SetVisible(true);
    place.PlaceEditor();
    ExpectAt(24 * 240 - 30 + 360, 7305 - (24 * 240 - 30 + 360) - 15);
}

TEST_F(EditorPlaceTest, WithoutAVerticalBarItReachesToTheSurfacesEdge) {
    rig.Elements.scrVert.SetVisible(false);
    OpenOver(5, 2);
    place.PlaceEditor();
    EXPECT_EQ(rig.Elements.rtbEdit.Width(), 12000 - 555);
}

TEST_F(EditorPlaceTest, LinesThatBeginAboveTheViewStartAtItsTop) {
    ShowFrom(50);
    OpenOver(48, 5);
    place.PlaceEditor();
    ExpectAt(330, 3 * 240 + 30 + 360 - 330 - 15);
}

TEST_F(EditorPlaceTest, LinesBelowTheViewCloseItAndNothingIsMoved) {
    rig.Elements.rtbEdit.Move(1, 2, 3, 4);
    OpenOver(500, 2);
    place.PlaceEditor();
    EXPECT_EQ(peers.Closed, 1);
    EXPECT_EQ(rig.Elements.rtbEdit.Left(), 1);
    EXPECT_EQ(rig.Elements.rtbEdit.Height(), 4);
}

TEST_F(EditorPlaceTest, LinesAboveTheViewCloseIt) {
    ShowFrom(50);
    OpenOver(5, 2);
    place.PlaceEditor();
    EXPECT_EQ(peers.Closed, 1);
}

TEST_F(EditorPlaceTest, RowsThatShowNothingSayNothing) {
    rig.View.RowsPerView = 127;
    rig.Elements.UserControl.SetHeight(32400);
    OpenOver(5, 2);
    place.PlaceEditor();
    ExpectAt(1290, 525);
    EXPECT_EQ(rig.Elements.lblLine[128].Tag(), u"-1");
}

TEST_F(EditorPlaceTest, BlankRowsPastTheEndEndIt) {
    ShowFrom(1, 11);
    OpenOver(9, 2);
    place.PlaceEditor();
    ExpectAt(8 * 240 + 330, 2 * 240 + 60 - 15);
}

TEST_F(EditorPlaceTest, AClosedEditorStaysWhereItIs) {
    rig.Elements.rtbEdit.Move(1, 2, 3, 4);
    OpenOver(500, 2);
    rig.Elements.rtbEdit.SetVisible(false);
    place.PlaceEditor();
    EXPECT_EQ(peers.Closed, 0);
    EXPECT_EQ(rig.Elements.rtbEdit.Left(), 1);
}

TEST_F(EditorPlaceTest, ItsPlaceIsInWholeTwips) {
    for (Label& label : rig.Elements.lblLine) label.SetHeight(195.5);
    rig.Elements.picExpand.SetWidth(315.25);
    OpenOver(2, 1);
    place.PlaceEditor();
    EXPECT_EQ(rig.Elements.rtbEdit.Left(), 555);
    EXPECT_EQ(rig.Elements.rtbEdit.Top(), 526) << "525.5, to the even number";
}

}  // namespace
}  // namespace quorvale
