#include "navigation/caret.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class RecordingPeers final : public CaretPeers {
public:
    explicit RecordingPeers(NavigationRig& rig) : rig_(rig) {}

    Log Calls;

    void CloseEdit() override { Calls.push_back("CloseEdit " + Selected()); }
    void ExpandAt(Line line) override {
        Calls.push_back("ExpandAt " + std::to_string(line.Number()));
        rig_.Document.Table.HiddenDepth.Reset(rig_.Document.LineSlots, 0);
    }
    void PaintRowColours() override { Calls.push_back("PaintRowColours " + Selected()); }
    void RaiseSelChanged() override { Calls.push_back("SelChanged " + Selected()); }
    void RevealLine(Line line, std::int32_t col) override {
        Calls.push_back("RevealLine " + std::to_string(line.Number()) + " " + std::to_string(col));
    }

private:
    std::string Selected() const { return std::to_string(rig_.Navigation.SelectedRowsCount); }

    NavigationRig& rig_;
};

class CaretTest : public testing::Test {
protected:
    CaretTest() {
        rig.SetText(Doc(100));
        rig.Navigation.StartDocument();
        rig.ShowRows();
        for (int slot = 0; slot <= 128; ++slot) {
            rig.Elements.lblLine[slot].Move(555, 360 + slot * 240, 40000, 240);
        }
        rig.Elements.imgMarker.Move(0, 0, 240, 240);
    }

    /// Where the caret is after it was put there, as "row column at place".
    std::string Placed(std::int32_t row, std::int32_t col) {
        Twips x = -1;
        caret.PlaceCaretMarker(Line{row}, col, x);
        const NavigationState& now = rig.Navigation;
        return std::to_string(now.CaretRow.Number()) + " " + std::to_string(now.CaretCol) + " at " +
               std::to_string(static_cast<int>(x));
    }

    Log CallsOf(std::int32_t row, std::int32_t col) {
        peers.Calls.clear();
        Placed(row, col);
        return peers.Calls;
    }

    NavigationRig rig;
    RecordingPeers peers{rig};
    LineAccess lines{rig.Document, rig.View, rig.Elements, rig.Metrics, rig.Options};
    Caret caret{rig.Navigation, rig.Elements, rig.Document, rig.View,
                lines,          rig.Metrics,  rig.Options,  peers};
};

TEST_F(CaretTest, TheColumnAtAPlaceIsThatOfTheFirstCharacterThatReachesPastIt) {
    EXPECT_EQ(caret.ColumnAtX(u"abcdef", -50), 1);
    EXPECT_EQ(caret.ColumnAtX(u"abcdef", 0), 1);
    EXPECT_EQ(caret.ColumnAtX(u"abcdef", 119), 1);
    EXPECT_EQ(caret.ColumnAtX(u"abcdef", 120), 2) << "the first character ends there";
    EXPECT_EQ(caret.ColumnAtX(u"abcdef", 719), 6);
}

TEST_F(CaretTest, RightOfATextIsItsLastCharactersColumn) {
    EXPECT_EQ(caret.ColumnAtX(u"abcdef", 720), 6);
    EXPECT_EQ(caret.ColumnAtX(u"abcdef", 99999), 6);
    EXPECT_EQ(caret.ColumnAtX(u"", 0), 0);
    EXPECT_EQ(caret.ColumnAtX(u"", 99999), 0);
}

TEST_F(CaretTest, RowAndColumnAreKeptWithinTheDocument) {
    EXPECT_EQ(Placed(0, 1), "1 1 at 0");
    EXPECT_EQ(Placed(-2147483647 - 1, 1), "1 1 at 0");
    EXPECT_EQ(Placed(500, 1), "100 1 at 0");
    EXPECT_EQ(Placed(101, 1), "100 1 at 0") << "the place behind the last line holds no caret";
    EXPECT_EQ(Placed(7, 99), "7 3 at 240") << "the end of \"L7\"";
    EXPECT_EQ(Placed(7, -5), "7 0 at 0");
}

TEST_F(CaretTest, ThePlaceAlongTheLineIsTheWidthOfWhatStandsBeforeTheColumn) {
    EXPECT_EQ(Placed(100, 3), "100 3 at 240");
    EXPECT_EQ(Placed(100, 1), "100 1 at 0");
    EXPECT_EQ(Placed(100, 0), "100 0 at 0");
}

TEST_F(CaretTest, WithoutADocumentNothingIsPlaced) {
    rig.Document = {};
    rig.Navigation = {};
    EXPECT_EQ(Placed(5, 5), "0 0 at -1");
    EXPECT_EQ(peers.Calls, Log{});
    EXPECT_EQ(rig.Elements.txtLn.Text(), u"");
}

TEST_F(CaretTest, TheMarkerStandsInTheMiddleOfTheCaretsLeftEdge) {
    Placed(3, 3);
    EXPECT_EQ(rig.Elements.imgMarker.Left(), 240 - 120 + 555);
    EXPECT_EQ(rig.Elements.imgMarker.Top(), 840);
}

TEST_F(CaretTest, OutOfViewTheMarkerIsParkedAtTheHeightWhereItWas) {
    Placed(3, 3);
    Placed(90, 1);
    EXPECT_EQ(rig.Elements.imgMarker.Left(), -1000);
    EXPECT_EQ(rig.Elements.imgMarker.Top(), 840);
}

TEST_F(CaretTest, AMoveClosesTheEditorFirstThenSelectsTellsAndPaints) {
    rig.Navigation.SelectedRowsCount = 7;
    EXPECT_EQ(CallsOf(5, 2), (Log{"CloseEdit 7", "SelChanged 0", "PaintRowColours 0"}));
    EXPECT_EQ(rig.Navigation.SelectionAnchor, Line{5});
}

TEST_F(CaretTest, AtTheSamePlaceNothingIsClosedSelectedOrTold) {
    Placed(5, 2);
    rig.Navigation.SelectedRowsCount = 7;
    EXPECT_EQ(CallsOf(5, 2), Log{});
    EXPECT_EQ(rig.Navigation.SelectedRowsCount, 7);
}

TEST_F(CaretTest, AnExtendedSelectionOpensTheFoldThatStartsAtTheCaret) {
    Placed(4, 1);
    rig.Hide(6, 20);
    rig.Navigation.ExtendSelection = true;
    EXPECT_EQ(CallsOf(5, 1),
              (Log{"CloseEdit 0", "ExpandAt 5", "SelChanged -2", "PaintRowColours -2"}));
    EXPECT_FALSE(rig.Navigation.ExtendSelection) << "for one move only";
}

TEST_F(CaretTest, OnlyAnExtendedSelectionOpensAFold) {
    Placed(4, 1);
    rig.Hide(6, 20);
    EXPECT_EQ(CallsOf(5, 1), (Log{"CloseEdit 0", "SelChanged 0", "PaintRowColours 0"}));
}

TEST_F(CaretTest, ARowIsRevealedAtTheColumnItWillHave) {
    caret.MoveTo(Line{7}, 3);
    peers.Calls.clear();
    caret.SetRow(Line{9});
    ASSERT_FALSE(peers.Calls.empty());
    EXPECT_EQ(peers.Calls.front(), "RevealLine 9 2");
    peers.Calls.clear();
    caret.SetCol(50);
    EXPECT_EQ(peers.Calls.front(), "RevealLine 9 50");
}

TEST_F(CaretTest, AStoredRowTellsNobodyAndKeepsTheColumnWithinItsLine) {
    Placed(100, 5);
    rig.Navigation.SelectedRowsCount = -3;
    peers.Calls.clear();
    caret.StoreRow(Line{7});
    EXPECT_EQ(rig.Navigation.CaretRow, Line{7});
    EXPECT_EQ(rig.Navigation.CaretCol, 3);
    EXPECT_EQ(rig.Navigation.SelectedRowsCount, -3);
    EXPECT_EQ(peers.Calls, Log{});
}

}  // namespace
}  // namespace quorvale
