#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/errors.h"
#include "control/dispatch.h"
#include "control/member_table.h"
#include "headless/event_log.h"
#include "headless/fixed_metrics.h"
#include "headless/headless_box.h"
#include "headless/headless_host.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

/// The control alone, as its container creates it step by step.
class LifeCycle : public testing::Test {
protected:
    HostServices Services() const {
        HostServices services;
        services.Metrics = std::make_shared<FixedMetrics>();
        services.Files = files_;
        services.Xml = std::make_shared<PlainXml>();
        services.Memory = std::make_shared<PlainMemory>();
        services.Site = site_;
        services.Messages = std::make_shared<HeadlessMessages>();
        return services;
    }

    std::shared_ptr<MemoryFiles> files_ = std::make_shared<MemoryFiles>();
    std::shared_ptr<HeadlessContainer> site_ = std::make_shared<HeadlessContainer>();
};

TEST_F(LifeCycle, ACreatedControlHasItsTextsButNoRowsYet) {
    QuorvaleBox box(Services());
    EXPECT_NE(box.Elements().tbMore.Button(u"Find").ToolTip, u"");
    EXPECT_EQ(box.Elements().lblScrollTip.Caption(), u" Line 0 ");
    EXPECT_NE(box.Elements().mnuCollapse.Items.at(0).Caption, u"");
    EXPECT_EQ(box.Elements().lblLine.UpperBound(), 0);
}

TEST_F(LifeCycle, ANewControlGetsItsRowsAndShowsItsName) {
    QuorvaleBox box(Services());
    box.InitProperties();
    EXPECT_EQ(box.Elements().lblLine.UpperBound(), 128);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"QuorvaleBox1");
    EXPECT_FALSE(box.Enabled());
    site_->Name = u"Renamed";
    box.AmbientChanged(u"DisplayName");
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"Renamed");
    box.AmbientChanged(u"Font");
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"Renamed");
}

TEST_F(LifeCycle, TheNameNeverReplacesALineOfADocument) {
    QuorvaleBox box(Services());
    box.InitProperties();
    box.Elements().Resize(12000, 7560);
    box.text(u"first");
    site_->Name = u"Renamed";
    box.AmbientChanged(u"DisplayName");
    EXPECT_EQ(box.LineText(1), u"first");
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"first");
}

TEST_F(LifeCycle, TheFirstSizeLaysTheViewOutBeforeAnythingIsShown) {
    QuorvaleBox box(Services());
    box.InitProperties();
    box.text(Doc(100));
    box.Elements().Resize(12000, 7560);
    EXPECT_TRUE(box.Elements().scrVert.Visible());
    EXPECT_EQ(box.Elements().lblLine[30].Tag(), u"31");
    EXPECT_NO_THROW(box.Show());
    EXPECT_EQ(box.Elements().lblLine[30].Tag(), u"31");
}

TEST_F(LifeCycle, AHiddenControlPaintsWhenItIsShownAgain) {
    QuorvaleBox box(Services());
    box.InitProperties();
    box.Elements().Resize(12000, 7560);
    box.Show();
    box.text(Doc(100));
    box.Hide();
    box.TopLine(40);
    EXPECT_EQ(box.TopLine(), 40);
    EXPECT_EQ(box.Elements().lblLine[0].Tag(), u"1");
    box.Show();
    EXPECT_EQ(box.Elements().lblLine[0].Tag(), u"40");
}

TEST_F(LifeCycle, AStoredControlComesBackShowsHidesAndSavesWhatWasCorrected) {
    files_->Put(u"/doc.txt", "one\r\ntwo\r\nthree");
    MemoryBag bag;
    bag.Values[u"LeftBorderWidth"] = 600.0F;
    bag.Values[u"ShowGrid"] = true;
    EventLog log;
    HostOptions options;
    options.OfferEditing = true;
    QuorvaleBox box(Services(), options);
    box.SetEvents(&log);
    EXPECT_EQ(box.Elements().lblScrollTip.Caption(), u" Line 0 ") << "the texts come first";
    box.ReadProperties(bag);
    EXPECT_EQ(box.Elements().lblLine.UpperBound(), 128);
    EXPECT_EQ(log.Entries(), std::vector<std::string>{"ButtonClick(Grid)"});
    box.Elements().Resize(12000, 7560);
    box.Show();
    box.LoadFile(u"/doc.txt");
    EXPECT_EQ(box.Elements().lblLine[1].Caption(), u"two");
    EXPECT_EQ(box.Elements().lblLine[1].Left(), 600 + 315);
    box.row(2);
    box.Elements().mnuPopup.OnPick(u"mnuPopupEdit");
    box.Elements().rtbEdit.SetText(u"TWO");
    std::int16_t key = key_code::Return;
    box.Elements().rtbEdit.OnKeyDown(key, shift_mask::Ctrl);
    box.Hide();
    EXPECT_EQ(files_->Bytes(u"/doc.txt!.xml"), nullptr) << "nothing is saved by hiding";
    box.Terminate();
    ASSERT_NE(files_->Bytes(u"/doc.txt!.xml"), nullptr);
    EXPECT_NE(files_->Bytes(u"/doc.txt!.xml")->find("TWO"), std::string::npos);
    EXPECT_EQ(*files_->Bytes(u"/doc.txt"), "one\r\ntwo\r\nthree");
}

TEST_F(LifeCycle, AHiddenControlPaintsOnceForAllThatHappenedMeanwhile) {
    /// Counts how often the first row gets a text.
    class Painted final : public ElementWatcher {
    public:
        int Times = 0;
        void Setting(const Element& element, std::string_view property) override {
            if (element.Name() == "lblLine" && element.Index() == 0 && property == "Caption") {
                ++Times;
            }
        }
    };
    QuorvaleBox box(Services());
    box.InitProperties();
    box.Elements().Resize(12000, 7560);
    box.Show();
    box.text(Doc(100));
    box.Hide();
    Painted painted;
    box.Elements().Watch(&painted);
    for (std::int32_t line = 2; line <= 40; ++line) box.TopLine(line);
    box.CollapseLines(60, 70);
    box.CollapseAll();
    box.MoveTo(65, 1);
    box.TopLine(41);
    EXPECT_EQ(painted.Times, 0);
    box.Show();
    EXPECT_EQ(painted.Times, 1);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L41");
    box.Elements().Watch(nullptr);
}

TEST_F(LifeCycle, ShowingTwiceIsShowingOnce) {
    QuorvaleBox box(Services());
    box.InitProperties();
    box.Elements().Resize(12000, 7560);
    box.Show();
    box.Show();
    box.text(Doc(100));
    box.Hide();
    box.TopLine(40);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1");
}

TEST_F(LifeCycle, InDesignTheFirstRowFollowsTheControlsName) {
    site_->IsUserMode = false;
    MemoryBag empty;
    QuorvaleBox box(Services());
    box.ReadProperties(empty);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"QuorvaleBox1");
    site_->Name = u"Log";
    for (const auto* other : {u"Font", u"BackColor", u"UserMode", u"displayname", u""}) {
        box.AmbientChanged(other);
        EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"QuorvaleBox1");
    }
    box.AmbientChanged(u"DisplayName");
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"Log");
}

TEST_F(LifeCycle, ANewControlHasTheFontOfItsSurroundingsAndRowsOfItsHeight) {
    site_->AmbientFont = Font{u"Surrounding", 11, 128};
    QuorvaleBox box(Services());
    EXPECT_EQ(box.Font(), (Font{u"Surrounding", 11, 128}));
    box.InitProperties();
    EXPECT_EQ(box.Elements().lblLine[128].Font(), (Font{u"Surrounding", 11, 128}));
    EXPECT_EQ(box.Elements().RowHeight(), 240);
}

TEST_F(LifeCycle, InitialisingTwiceLeavesTheSameRows) {
    QuorvaleBox box(Services());
    box.InitProperties();
    EXPECT_NO_THROW(box.InitProperties());
    EXPECT_EQ(box.Elements().lblLine.UpperBound(), 128);
    EXPECT_EQ(box.Elements().imgLine.UpperBound(), 128);
}

TEST_F(LifeCycle, AControlThatWasNeverInitialisedComesAndGoes) {
    QuorvaleBox box(Services());
    EXPECT_EQ(box.LineCount(), -1);
    EXPECT_EQ(box.text(), u"");
}

TEST_F(LifeCycle, ItsTextsAreInTheLanguageOfThePlatform) {
    HeadlessSetup setup;
    setup.LanguageId = 1041;
    HeadlessBox japanese(setup);
    HeadlessBox english;
    EXPECT_NE(japanese.Elements().tbMore.Button(u"Find").ToolTip,
              english.Elements().tbMore.Button(u"Find").ToolTip);
}

/// Members that fail on purpose; afterwards everything goes on.
class AFailingMember : public testing::Test {
protected:
    AFailingMember() { box_->text(Doc(100)); }

    void ExpectUsable() {
        box_->TopLine(50);
        EXPECT_EQ(box_.Rows().size(), 30U);
        EXPECT_EQ(box_.Rows().front(), "L50");
        box_->MoveTo(52, 2);
        EXPECT_EQ(box_->row(), 52);
        EXPECT_EQ(box_.Elements().imgMarker.Top(), box_->RowTop(52));
    }

    HeadlessBox box_;
};

TEST_F(AFailingMember, ASelectionPastAllNumbersIsRefusedAndThePresentOneStays) {
    box_->MoveTo(5, 1);
    box_->SelectedRowsCount(3);
    EXPECT_EQ(ErrorOf([&] { box_->SelectedRowsCount(2147483647); }), ErrorKind::Overflow);
    EXPECT_EQ(box_->SelectedRowsCount(), 3);
    ExpectUsable();
}

TEST_F(AFailingMember, AFoldPastTheDocumentFailsWithTheLinesItReachedHidden) {
    box_->CollapseLines(60, 500);
    EXPECT_EQ(ErrorOf([&] { box_->CollapseAll(); }), ErrorKind::Index);
    box_->TopLine(1);
    box_->EnsureVisible(60);
    EXPECT_EQ(box_.RowLines().back(), 60);
    box_->ExpandAll();
    ExpectUsable();
}

TEST_F(AFailingMember, SixtyFiveOpenRangesInOneAnotherAreTooManyToDraw) {
    for (std::int32_t head = 1; head <= 65; ++head) box_->CollapseLines(head, 99);
    EXPECT_TRUE(ErrorOf([&] { box_->TopLine(2); }).has_value());
    const std::vector<std::int32_t> lines = box_.RowLines();
    for (std::size_t i = 1; i < lines.size(); ++i) EXPECT_EQ(lines[i], lines[i - 1] + 1);
    box_->text(Doc(100));
    ExpectUsable();
}

TEST_F(AFailingMember, TooManySuspensionsAreRefused) {
    for (int count = 0; count < 32767; ++count) box_->AutoRedraw(false);
    EXPECT_EQ(ErrorOf([&] { box_->AutoRedraw(false); }), ErrorKind::Overflow);
    for (int count = 0; count < 32767; ++count) box_->AutoRedraw(true);
    ExpectUsable();
}

TEST_F(AFailingMember, ItsDescriptionReachesTheCallerWhoBindsByNumber) {
    box_->CollapseLines(60, 500);
    try {
        Invoke(box_.Box(), member_id::CollapseAll, member_kind::Method, {});
        ADD_FAILURE() << "nothing failed";
    } catch (const ControlError& error) {
        EXPECT_STRNE(error.what(), "");
    }
    box_->ExpandAll();
    ExpectUsable();
}

TEST_F(AFailingMember, ATextThatCannotBeMeasuredDoesNotStopTheNextCalls) {
    box_.Metrics().Fails = ErrorKind::Overflow;
    EXPECT_NO_THROW(box_->TopLine(10));
    ErrorOf([&] { box_->MoveTo(90, 3); });
    EXPECT_NO_THROW(box_->LoadFile(u"/missing"));
    box_.Metrics().Fails.reset();
    box_->text(Doc(100));
    ExpectUsable();
}

}  // namespace
}  // namespace quorvale
