#include "view/row_fill.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/errors.h"
#include "support/documents.h"
#include "support/error_of.h"
#include "view_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class RecordingPeers final : public FillPeers {
public:
    explicit RecordingPeers(ViewState& view, const DocumentState& document)
        : view_(view), document_(document) {}

    Log Calls;

    void PaintRowColours() override { Calls.emplace_back("PaintRowColours"); }
    void RefreshCorrectionMarks() override { Calls.emplace_back("RefreshCorrectionMarks"); }
    void PlaceEditor() override { Calls.emplace_back("PlaceEditor"); }
    void LayoutView() override {
        Calls.emplace_back("LayoutView");
        view_.LaidOutWidth = document_.WidestLineWidth;
        view_.LaidOutMargin = view_.TextLeftMargin;
    }
    void PlaceMarker() override { Calls.emplace_back("PlaceMarker"); }
    void NameFirstRow() override { Calls.emplace_back("NameFirstRow"); }

private:
    ViewState& view_;
    const DocumentState& document_;
};

/// Writes down what is set on the row `Slot` and on the brackets.
class SetLog final : public ElementWatcher {
public:
    int Slot = 0;
    Log Sets;

    void Setting(const Element& element, std::string_view property) override {
        if (element.Name() != "lblLine" || element.Index() != Slot) return;
        Sets.emplace_back(property);
    }
};

class RowFillTest : public testing::Test {
protected:
    RowFillTest() {
        rig.CreateRows();
        rig.SetText(Doc(100));
    }

    void LaidOut() {
        rig.View.LaidOutWidth = rig.Document.WidestLineWidth;
        rig.View.LaidOutMargin = rig.View.TextLeftMargin;
    }

    std::u16string Tag(int slot) { return rig.Elements.lblLine[slot].Tag(); }

    ViewRig rig;
    RecordingPeers peers{rig.View, rig.Document};
    LineAccess lines{rig.Document, rig.View, rig.Elements, rig.Metrics, rig.Options};
    RowFill fill{rig.View,       rig.Collapse, rig.Elements, rig.Document,
                 rig.Navigation, rig.Looks,    lines,        peers};
};

TEST_F(RowFillTest, ColoursThenMarksThenEditorThenTheCaretFollow) {
    fill.FillRows();
    peers.Calls.clear();
    LaidOut();
    fill.FillRows();
    EXPECT_EQ(peers.Calls,
              (Log{"PaintRowColours", "RefreshCorrectionMarks", "PlaceEditor", "PlaceMarker"}));
}

TEST_F(RowFillTest, AWiderLineThanTheLastLayoutKnewAsksForAnotherLayoutOnce) {
    fill.FillRows();
    LaidOut();
    peers.Calls.clear();
    rig.SetText(Times(300) + u"\r\n" + Doc(50));
    fill.FillRows();
    EXPECT_EQ(peers.Calls, (Log{"PaintRowColours", "RefreshCorrectionMarks", "PlaceEditor",
                                "LayoutView", "PlaceMarker"}));
    peers.Calls.clear();
    fill.FillRows();
    EXPECT_EQ(peers.Calls.size(), 4U);
}

TEST_F(RowFillTest, ADeeperNestingThanTheLastLayoutKnewAsksForAnotherLayout) {
    fill.FillRows();
    LaidOut();
    rig.Register(5, 20);
    rig.Register(8, 12);
    peers.Calls.clear();
    fill.FillRows();
    EXPECT_EQ(rig.View.TextLeftMargin, 435);
    EXPECT_EQ(peers.Calls[3], "LayoutView");
}

TEST_F(RowFillTest, DuringALayoutItAsksForNone) {
    rig.View.LayoutInProgress = true;
    fill.FillRows();
    EXPECT_EQ(peers.Calls,
              (Log{"PaintRowColours", "RefreshCorrectionMarks", "PlaceEditor", "PlaceMarker"}));
}

TEST_F(RowFillTest, WhileSuspendedNothingIsTouched) {
    fill.FillRows();
    peers.Calls.clear();
    rig.View.RedrawSuspendCount = 1;
    rig.Navigation.TopLine = Line{50};
    rig.Register(55, 60);
    SetLog log;
    rig.Elements.Watch(&log);
    fill.FillRows();
    EXPECT_TRUE(log.Sets.empty());
    EXPECT_TRUE(peers.Calls.empty());
    EXPECT_EQ(Tag(0), u"1");
    EXPECT_FALSE(rig.Collapse.RangesUnchanged);
}

// A reader that finds a line's row must find the line's text in it.
TEST_F(RowFillTest, ARowGetsItsCaptionBeforeItsLine) {
    fill.FillRows();
    SetLog log;
    log.Slot = 12;
    rig.Elements.Watch(&log);
    rig.Navigation.TopLine = Line{40};
    fill.FillRows();
    ASSERT_GE(log.Sets.size(), 2U);
    EXPECT_EQ(log.Sets[0], "Caption");
    EXPECT_EQ(log.Sets[1], "Tag");
}

// The rows of the old place still name lines: the fill must not take a text from there.
TEST_F(RowFillTest, ACaptionComesFromTheDocumentNeverFromARow) {
    fill.FillRows();
    rig.Elements.lblLine[20].SetCaption(u"stale");
    rig.Navigation.TopLine = Line{21};
    fill.FillRows();
    EXPECT_EQ(rig.Elements.lblLine[0].Caption(), u"L21");
}

TEST_F(RowFillTest, AllRowsButTheLastOfThePoolAreFilled) {
    rig.SetText(Doc(500));
    fill.FillRows();
    EXPECT_EQ(Tag(127), u"128");
    EXPECT_EQ(Tag(128), u"-1");
}

TEST_F(RowFillTest, BeforeAnyDocumentEveryRowIsBlank) {
    rig.Document = {};
    rig.Navigation.CaretRow = Line{0};
    fill.FillRows();
    for (int slot = 0; slot < 128; ++slot) {
        EXPECT_EQ(Tag(slot), u"0");
        EXPECT_EQ(rig.Elements.lblLine[slot].Caption(), u"");
    }
}

TEST_F(RowFillTest, ATopLineBehindTheEndShowsBlankRows) {
    rig.Navigation.TopLine = Line{101};
    fill.FillRows();
    EXPECT_EQ(Tag(0), u"101");
    rig.Navigation.TopLine = Line{2147483647};
    fill.FillRows();
    EXPECT_EQ(Tag(0), u"101");
}

TEST_F(RowFillTest, TooManyOpenRangesAreReportedAfterEverythingIsPainted) {
    for (int k = 1; k <= 65; ++k) rig.Register(k, 200 - k);
    rig.Navigation.TopLine = Line{66};
    EXPECT_NE(ErrorOf([&] { fill.FillRows(); }), std::nullopt);
    EXPECT_EQ(peers.Calls.front(), "PaintRowColours");
    EXPECT_EQ(peers.Calls.back(), "PlaceMarker");
    EXPECT_EQ(Tag(34), u"100");
    EXPECT_EQ(Tag(35), u"101");
    EXPECT_EQ(rig.Elements.lnExpand.UpperBound(), 64);
}

TEST_F(RowFillTest, ManyThousandHiddenLinesAreSteppedOver) {
    rig.SetText(std::u16string(300'000, u'\n'));
    rig.Register(2, 299'990);
    rig.Hide(3, 299'990);
    fill.FillRows();
    EXPECT_EQ(Tag(1), u"2");
    EXPECT_TRUE(rig.Elements.lblLine[1].Bold());
    EXPECT_EQ(Tag(2), u"299991");
}

TEST_F(RowFillTest, ALineThatCannotBeMeasuredIsShownAllTheSame) {
    rig.Metrics.Fails = ErrorKind::InvalidValue;
    fill.FillRows();
    EXPECT_EQ(rig.Elements.lblLine[9].Caption(), u"L10");
}

}  // namespace
}  // namespace quorvale
