#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/errors.h"
#include "control/dispatch.h"
#include "control/member_table.h"
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
