#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "control/member_ids.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

/// Keeps every event as a host gets it that binds by number.
class NumberedEvents final : public EventSink {
public:
    std::vector<std::pair<std::int32_t, std::vector<Variant>>> All;

    void OnEvent(std::int32_t id, std::span<Variant> arguments) override {
        All.emplace_back(id, std::vector<Variant>(arguments.begin(), arguments.end()));
    }
};

/// A control with a hundred lines whose events go to a listener and, by number, to a sink.
class Events : public testing::Test {
protected:
    Events() {
        box_->text(Doc(100));
        box_->AddButton(u"Mine", std::make_shared<Picture>("mine", 240, 240));
        box_->SetEventSink(&sink_);
        box_.Log().Clear();
    }

    /// What the action made the listener hear; the sink must have heard the same.
    std::vector<std::string> After(const std::function<void()>& action) {
        box_.Log().Clear();
        sink_.All.clear();
        action();
        std::vector<std::string> numbered;
        for (const auto& [id, arguments] : sink_.All) {
            if (id == event_id::SelChanged) numbered.emplace_back("SelChanged");
            if (id == event_id::Scrolled) numbered.emplace_back("Scrolled");
            if (id != event_id::ButtonClick) {
                EXPECT_TRUE(arguments.empty());
                continue;
            }
            const auto name = std::get<std::u16string>(arguments.at(0));
            EXPECT_EQ(arguments.size(), 1U);
            numbered.push_back("ButtonClick(" + std::string(name.begin(), name.end()) + ")");
        }
        EXPECT_EQ(numbered, box_.Log().Entries());
        return box_.Log().Entries();
    }

    NumberedEvents sink_;
    HeadlessBox box_;
};

TEST_F(Events, TheCaretsMovesAreHeardAndNothingElse) {
    EXPECT_THAT(After([&] { box_->MoveTo(5, 2); }), ElementsAre("SelChanged"));
    EXPECT_THAT(After([&] { box_->row(7); }), ElementsAre("SelChanged"));
    EXPECT_THAT(After([&] { box_->col(1); }), ElementsAre("SelChanged"));
    EXPECT_THAT(After([&] { box_->Offset(1); }), ElementsAre("SelChanged"));
    EXPECT_THAT(After([&] { box_->MoveTo(1, 1); }), ElementsAre()) << "it stands there already";
    EXPECT_THAT(After([&] { box_->Offset(1); }), ElementsAre());
}

TEST_F(Events, ASelectionIsHeardEvenWhenItStaysTheSame) {
    EXPECT_THAT(After([&] { box_->SelectedRowsCount(3); }), ElementsAre("SelChanged"));
    EXPECT_THAT(After([&] { box_->SelectedRowsCount(3); }), ElementsAre("SelChanged"));
}

TEST_F(Events, ATopLineIsHeardWhoeverSetsIt) {
    EXPECT_THAT(After([&] { box_->TopLine(20); }), ElementsAre("Scrolled"));
    EXPECT_THAT(After([&] { box_->TopLine(20); }), ElementsAre()) << "the present one";
    EXPECT_THAT(After([&] { box_.DragThumb({30, 40}); }), ElementsAre("Scrolled"));
    EXPECT_THAT(After([&] { box_.TurnWheel(3); }), ElementsAre("Scrolled"));
    EXPECT_THAT(After([&] { box_.Elements().scrVert.UserPage(-1); }), ElementsAre("Scrolled"));
    EXPECT_THAT(After([&] { box_.Elements().scrVert.UserArrow(1); }), ElementsAre("Scrolled"));
    EXPECT_THAT(After([&] { box_->EnsureVisible(1); }), ElementsAre("Scrolled"));
    EXPECT_THAT(After([&] { box_->EnsureVisible(3); }), ElementsAre()) << "it is in view";
}

TEST_F(Events, ARequestThatIsClampedBackIsHeardAllTheSame) {
    box_->TopLine(99999);
    EXPECT_EQ(box_->TopLine(), 71);
    EXPECT_THAT(After([&] { box_->TopLine(99999); }), ElementsAre("Scrolled"));
    box_->TopLine(1);
    EXPECT_THAT(After([&] { box_->TopLine(-7); }), ElementsAre("Scrolled"));
    EXPECT_EQ(box_->TopLine(), 1);
}

TEST_F(Events, AFarCaretScrollsFirstAndThenIsHeard) {
    EXPECT_THAT(After([&] { box_->MoveTo(60, 1); }), ElementsAre("Scrolled", "SelChanged"));
}

TEST_F(Events, ScrollingAlongTheLinesIsNotHeard) {
    box_->text(Times(300));
    EXPECT_THAT(After([&] { box_.Elements().scrHorz.SetValue(900); }), ElementsAre());
    EXPECT_EQ(box_.Elements().lblLine[0].Left(), 240 + 315 - 900);
}

TEST_F(Events, WhilePaintingIsSuspendedNoScrollingIsHeard) {
    box_->AutoRedraw(false);
    EXPECT_THAT(After([&] { box_->TopLine(20); }), ElementsAre());
    EXPECT_EQ(box_->TopLine(), 20);
    EXPECT_THAT(After([&] { box_->AutoRedraw(true); }), ElementsAre());
}

TEST_F(Events, AButtonOfTheHostIsHeardByTheNameItWasGiven) {
    EXPECT_THAT(After([&] { box_.Elements().tbMore.UserClick(u".Mine"); }),
                ElementsAre("ButtonClick(Mine)"));
    EXPECT_THAT(After([&] { box_.Elements().tbMore.UserClick(u"Print"); }), ElementsAre());
}

TEST_F(Events, TheGridIsHeardWhenItIsClickedAndWhenItIsSet) {
    EXPECT_THAT(After([&] { box_.Elements().tbMore.UserClick(u"Grid"); }),
                ElementsAre("ButtonClick(Grid)"));
    EXPECT_TRUE(box_->ShowGrid());
    EXPECT_THAT(After([&] { box_->ShowGrid(false); }), ElementsAre("ButtonClick(Grid)"));
    EXPECT_THAT(After([&] { box_->ShowGrid(false); }), ElementsAre("ButtonClick(Grid)"));
}

TEST_F(Events, ALoadIsHeardAsScrollingAtMost) {
    box_.Files().Put(u"/other", DocFile(80));
    EXPECT_THAT(After([&] { box_->LoadFile(u"/other"); }), ElementsAre());
    box_->TopLine(30);
    EXPECT_THAT(After([&] { box_->LoadFile(u"/other"); }), ElementsAre("Scrolled"));
    box_->TopLine(30);
    EXPECT_THAT(After([&] { box_->text(u"x"); }), ElementsAre("Scrolled"));
}

TEST_F(Events, FoldingMovesTheCaretOnlyWhenItsLineIsHidden) {
    box_->CollapseLines(10, 20);
    box_->MoveTo(5, 1);
    EXPECT_THAT(After([&] { box_->CollapseAll(); }), testing::Not(testing::Contains("SelChanged")));
    box_->ExpandAll();
    box_->MoveTo(15, 2);
    EXPECT_THAT(After([&] { box_->CollapseAll(); }), testing::Contains("SelChanged"));
    EXPECT_EQ(box_->row(), 10);
}

TEST_F(Events, ColoursPicturesAndAppearanceAreNotHeard) {
    EXPECT_THAT(After([&] {
                    box_->LineForeColor(1, 5);
                    box_->LineBackColor(1, 5);
                    box_->LineImage(1, std::int16_t{1});
                    box_->BackColor(9);
                    box_->ForeColor(9);
                    box_->BorderColor(9);
                    box_->Enabled(true);
                    box_->BorderStyle(0);
                    box_->Icon(nullptr);
                    box_->CollapseLines(1, 4);
                }),
                ElementsAre());
}

TEST_F(Events, TheListenerHearsBeforeTheSink) {
    std::vector<std::size_t> heardBefore;
    box_.Log().OnEvent = [&](const std::string&) { heardBefore.push_back(sink_.All.size()); };
    EXPECT_THAT(After([&] {
                    box_->TopLine(20);
                    box_->ShowGrid(true);
                    box_->MoveTo(21, 2);
                }),
                ElementsAre("Scrolled", "ButtonClick(Grid)", "SelChanged"));
    EXPECT_THAT(heardBefore, ElementsAre(0, 1, 2));
}

TEST_F(Events, NobodyNeedsToListen) {
    box_->SetEvents(nullptr);
    box_->SetEventSink(nullptr);
    box_->TopLine(20);
    box_->MoveTo(60, 1);
    box_->ShowGrid(true);
    EXPECT_TRUE(box_.Log().Entries().empty());
    EXPECT_TRUE(sink_.All.empty());
}

TEST_F(Events, AListenerThatIsTakenBackInItsOwnEventHearsNoMore) {
    box_.Log().OnEvent = [&](const std::string&) {
        box_->SetEvents(nullptr);
        box_->SetEventSink(nullptr);
    };
    box_->MoveTo(60, 1);
    EXPECT_EQ(box_.Log().Entries().size(), 1U);
    EXPECT_TRUE(sink_.All.empty());
}

}  // namespace
}  // namespace quorvale
