#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// A host that does something inside the next event: once, so that it does not answer itself.
class HostInsideEvents : public testing::Test {
protected:
    HostInsideEvents() {
        box_.Files().Put(u"/other", DocFile(500, 'o'));
        Start();
    }

    void Start() {
        box_->text(Doc(300));
        box_->AddButton(u"Mine", std::make_shared<Picture>("mine", 240, 240));
        box_.Log().Clear();
    }

    void Inside(const std::string& event, std::function<void()> action) {
        box_.Log().OnEvent = [this, event, action = std::move(action)](const std::string& raised) {
            if (raised != event || done_) return;
            done_ = true;
            action();
        };
        done_ = false;
    }

    /// Rows, caret and bar are those of the document: no slot is left from another one.
    void ExpectWhole() {
        const std::vector<std::int32_t> lines = box_.RowLines();
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(lines.front(), box_->TopLine());
        const std::u16string all = box_->text();
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_EQ(lines[i], lines.front() + static_cast<std::int32_t>(i));
            const auto caption = box_.Elements().lblLine[static_cast<int>(i)].Caption();
            EXPECT_NE(all.find(std::u16string(caption) + u"\r\n"), all.npos);
            EXPECT_EQ(caption.substr(1), Wide(std::to_string(lines[i])));
        }
        EXPECT_EQ(box_.Elements().scrVert.Value(), box_->TopLine());
        EXPECT_GE(box_->row(), 1);
        EXPECT_LE(box_->row(), box_->LineCount());
        EXPECT_EQ(box_.Elements().txtLn.Text(), Wide(std::to_string(box_->row())));
        EXPECT_TRUE(done_) << "the event was never raised";
    }

    HeadlessBox box_;
    bool done_ = false;
};

TEST_F(HostInsideEvents, LoadsAFileWhenTheViewScrolls) {
    Inside("Scrolled", [&] { box_->LoadFile(u"/other"); });
    box_->TopLine(100);
    EXPECT_EQ(box_->LineCount(), 500);
    EXPECT_EQ(box_.Rows().front(), "o1");
    EXPECT_TRUE(box_.Elements().tbMore.Button(u"Edit").Enabled);
    ExpectWhole();
}

TEST_F(HostInsideEvents, LoadsAFileWhenTheThumbIsLetGo) {
    Inside("Scrolled", [&] { box_->LoadFile(u"/other"); });
    box_.DragThumb({50, 200});
    EXPECT_EQ(box_.Rows().front(), "o1");
    EXPECT_FALSE(box_.Elements().lblScrollTip.Visible());
    ExpectWhole();
}

TEST_F(HostInsideEvents, LoadsAShortFileWhenTheCaretMoves) {
    box_.Files().Put(u"/short", "s1\r\ns2");
    Inside("SelChanged", [&] { box_->LoadFile(u"/short"); });
    box_->MoveTo(250, 3);
    EXPECT_EQ(box_->LineCount(), 2);
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_->col(), 1);
    EXPECT_EQ(box_.Rows(), (std::vector<std::string>{"s1", "s2"}));
}

TEST_F(HostInsideEvents, LoadsAnotherFileWhileOneIsBeingShown) {
    box_->TopLine(50);
    box_.Files().Put(u"/first", DocFile(400, 'f'));
    Inside("Scrolled", [&] { box_->LoadFile(u"/other"); });
    box_->LoadFile(u"/first");
    EXPECT_EQ(box_->LineCount(), 500);
    EXPECT_TRUE(box_.Elements().tbMore.Button(u"Edit").Enabled) << "of the file that is shown";
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_->TopLine(), 1);
    ExpectWhole();
}

TEST_F(HostInsideEvents, LoadsAFileAndGoesToALineOfItWhileAnotherIsBeingShown) {
    box_->TopLine(50);
    Inside("Scrolled", [&] {
        box_->LoadFile(u"/other");
        box_->CollapseLines(3, 9);
        box_->MoveTo(300, 2);
    });
    box_->text(Doc(80, 't'));
    EXPECT_EQ(box_->row(), 300);
    EXPECT_EQ(box_->col(), 2);
    EXPECT_TRUE(box_.Elements().tbMore.Button(u"Collapsed").Enabled);
    ExpectWhole();
}

TEST_F(HostInsideEvents, SetsATextWhileAFileIsBeingShown) {
    box_->TopLine(50);
    Inside("Scrolled", [&] { box_->text(Doc(80, 't')); });
    box_->LoadFile(u"/other");
    EXPECT_EQ(box_->LineCount(), 80);
    EXPECT_FALSE(box_.Elements().tbMore.Button(u"Edit").Enabled) << "a text has no file";
    ExpectWhole();
}

TEST_F(HostInsideEvents, LoadsAFileWhileTheViewScrollsToTheCaretsNewLine) {
    const std::pair<const char*, std::function<void()>> moves[] = {
        {"MoveTo", [&] { box_->MoveTo(250, 3); }},
        {"row", [&] { box_->row(250); }},
        {"Offset", [&] { box_->Offset(1300); }},
        {"the end", [&] { box_->Offset(2147483647); }},
    };
    for (const auto& [name, move] : moves) {
        SCOPED_TRACE(name);
        Start();
        Inside("Scrolled", [&] { box_->LoadFile(u"/other"); });
        move();
        EXPECT_EQ(box_->row(), 1) << "the line was one of the old document";
        EXPECT_EQ(box_->col(), 1);
        EXPECT_EQ(box_->TopLine(), 1);
        ExpectWhole();
    }
}

TEST_F(HostInsideEvents, LoadsAFileWhileFoldingScrollsTheView) {
    box_->CollapseLines(100, 290);
    box_->TopLine(250);
    box_->MoveTo(280, 1);
    Inside("Scrolled", [&] { box_->LoadFile(u"/other"); });
    box_->CollapseAll();
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_->TopLine(), 1);
    ExpectWhole();
}

TEST_F(HostInsideEvents, ScrollsOnWhileTheViewScrolls) {
    Inside("Scrolled", [&] { box_->TopLine(200); });
    box_->TopLine(100);
    EXPECT_EQ(box_->TopLine(), 200);
    EXPECT_EQ(box_.Log().Count("Scrolled"), 2U);
    ExpectWhole();
}

TEST_F(HostInsideEvents, MovesTheCaretWhileTheViewScrolls) {
    Inside("Scrolled", [&] { box_->MoveTo(10, 2); });
    box_->TopLine(100);
    EXPECT_EQ(box_->row(), 10);
    EXPECT_LE(box_->TopLine(), 10);
    ExpectWhole();
}

TEST_F(HostInsideEvents, ScrollsWhileTheCaretMoves) {
    Inside("SelChanged", [&] { box_->TopLine(40); });
    box_->MoveTo(250, 1);
    EXPECT_EQ(box_->TopLine(), 40);
    EXPECT_EQ(box_->row(), 250);
    ExpectWhole();
}

TEST_F(HostInsideEvents, MovesTheCaretBackWhileItMoves) {
    Inside("SelChanged", [&] { box_->MoveTo(7, 2); });
    box_->MoveTo(250, 1);
    EXPECT_EQ(box_->row(), 7);
    EXPECT_EQ(box_->col(), 2);
    EXPECT_EQ(box_.Log().Count("SelChanged"), 2U);
    ExpectWhole();
}

TEST_F(HostInsideEvents, SelectsRowsWhileTheCaretMoves) {
    Inside("SelChanged", [&] { box_->SelectedRowsCount(2); });
    box_->MoveTo(5, 1);
    EXPECT_EQ(box_.Elements().lblLine[4].BackColor(), system_colour::Highlight);
    EXPECT_EQ(box_.Elements().lblLine[5].BackColor(), system_colour::Highlight);
    ExpectWhole();
}

TEST_F(HostInsideEvents, FoldsWhileTheCaretMoves) {
    box_->CollapseLines(200, 280);
    Inside("SelChanged", [&] { box_->CollapseAll(); });
    box_->MoveTo(250, 1);
    EXPECT_EQ(box_->row(), 200) << "its line is hidden";
    EXPECT_TRUE(done_);
}

TEST_F(HostInsideEvents, SuspendsPaintingInOneEventAndTakesItUpInAnother) {
    Inside("Scrolled", [&] { box_->AutoRedraw(false); });
    box_->TopLine(100);
    box_->TopLine(120);
    EXPECT_EQ(box_.Log().Count("Scrolled"), 1U);
    Inside("SelChanged", [&] { box_->AutoRedraw(true); });
    box_->MoveTo(130, 1);
    ExpectWhole();
}

TEST_F(HostInsideEvents, AddsAButtonWhileOneIsClicked) {
    Inside("ButtonClick(Mine)", [&] {
        for (char16_t name = u'a'; name <= u'z'; ++name) {
            box_->AddButton({name}, std::make_shared<Picture>("more", 240, 240));
        }
    });
    box_.Elements().tbMore.UserClick(u".Mine");
    box_.Elements().tbMore.UserClick(u".z");
    EXPECT_EQ(box_.Log().Count("ButtonClick(z)"), 1U);
    ExpectWhole();
}

/// Every way in which a host or a user makes an event happen.
struct Cause {
    const char* Event;
    const char* What;
    std::function<void(HeadlessBox&)> Act;
};

std::vector<Cause> Causes() {
    return {
        {"Scrolled", "TopLine", [](auto& box) { box->TopLine(100); }},
        {"Scrolled", "a clamped TopLine", [](auto& box) { box->TopLine(-1); }},
        {"Scrolled", "EnsureVisible", [](auto& box) { box->EnsureVisible(200); }},
        {"Scrolled", "MoveTo", [](auto& box) { box->MoveTo(200, 1); }},
        {"Scrolled", "row", [](auto& box) { box->row(200); }},
        {"Scrolled", "Offset", [](auto& box) { box->Offset(1200); }},
        {"Scrolled", "the end", [](auto& box) { box->Offset(2147483647); }},
        {"Scrolled", "dragging", [](auto& box) { box.DragThumb({50}); }},
        {"Scrolled", "the wheel", [](auto& box) { box.TurnWheel(9); }},
        {"Scrolled", "an arrow", [](auto& box) { box.Elements().scrVert.UserArrow(1); }},
        {"Scrolled", "a page", [](auto& box) { box.Elements().scrVert.UserPage(1); }},
        {"SelChanged", "MoveTo", [](auto& box) { box->MoveTo(3, 2); }},
        {"SelChanged", "row", [](auto& box) { box->row(3); }},
        {"SelChanged", "col", [](auto& box) { box->col(3); }},
        {"SelChanged", "Offset", [](auto& box) { box->Offset(9); }},
        {"SelChanged", "the end", [](auto& box) { box->Offset(2147483647); }},
        {"SelChanged", "a selection", [](auto& box) { box->SelectedRowsCount(2); }},
        {"ButtonClick(Mine)", "a click", [](auto& b) { b.Elements().tbMore.UserClick(u".Mine"); }},
        {"ButtonClick(Grid)", "a click", [](auto& b) { b.Elements().tbMore.UserClick(u"Grid"); }},
        {"ButtonClick(Grid)", "ShowGrid", [](auto& box) { box->ShowGrid(true); }},
    };
}

/// The same for what needs a view that does not stand at the top, or a fold around the caret.
std::vector<Cause> CausesFromBelow() {
    return {
        {"Scrolled", "LoadFile", [](auto& box) { box->LoadFile(u"/other"); }},
        {"Scrolled", "a missing file", [](auto& box) { box->LoadFile(u"/missing"); }},
        {"Scrolled", "text", [](auto& box) { box->text(u"x"); }},
        {"Scrolled", "a larger surface", [](auto& box) { box.Resize(12000, 30000); }},
        {"Scrolled", "folding", [](auto& box) { box->CollapseAll(); }},
        {"SelChanged", "folding", [](auto& box) { box->CollapseAll(); }},
    };
}

class DestroyedInsideEvents : public HostInsideEvents {
protected:
    void ExpectToSurvive(const Cause& cause) {
        SCOPED_TRACE(std::string(cause.What) + " raises " + cause.Event);
        HeadlessBox box;
        box.Files().Put(u"/other", DocFile(500, 'o'));
        box->text(Doc(300));
        box->AddButton(u"Mine", std::make_shared<Picture>("mine", 240, 240));
        box->CollapseLines(230, 295);
        if (below_) {
            box->TopLine(260);
            box->MoveTo(280, 1);
        }
        box.Log().Clear();
        box.Log().OnEvent = [&](const std::string& event) {
            if (event == cause.Event) box.Destroy();
        };
        EXPECT_NO_THROW(cause.Act(box));
        ASSERT_TRUE(box.Destroyed()) << "the event was never raised";
        EXPECT_EQ(box.Log().Entries().back(), cause.Event) << "who is gone says nothing";
    }

    bool below_ = false;
};

TEST_F(DestroyedInsideEvents, TheControlComesToItsEndQuietly) {
    for (const Cause& cause : Causes()) ExpectToSurvive(cause);
}

TEST_F(DestroyedInsideEvents, TheControlComesToItsEndQuietlyFarDownInADocument) {
    below_ = true;
    for (const Cause& cause : CausesFromBelow()) ExpectToSurvive(cause);
}

TEST_F(HostInsideEvents, AHandlersFailureReachesTheCallerAndTheControlWorksOn) {
    for (const Cause& cause : Causes()) {
        SCOPED_TRACE(std::string(cause.What) + " raises " + cause.Event);
        Start();
        box_->MoveTo(1, 1);
        Inside(cause.Event, [] { throw ControlError(ErrorKind::File, "the host's own"); });
        try {
            cause.Act(box_);
        } catch (const ControlError& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::File);
        }
        EXPECT_TRUE(done_);
        box_->TopLine(150);
        EXPECT_EQ(box_->TopLine(), 150);
        box_->MoveTo(155, 2);
        EXPECT_EQ(box_->row(), 155);
        ExpectWhole();
    }
}

TEST_F(HostInsideEvents, AFailureOfAnotherKindPassesThroughAMemberUnchanged) {
    Inside("Scrolled", [] { throw std::runtime_error("the host's own"); });
    EXPECT_THROW(box_->TopLine(100), std::runtime_error);
    box_->TopLine(120);
    ExpectWhole();
    Inside("SelChanged", [] { throw std::runtime_error("the host's own"); });
    EXPECT_THROW(box_->MoveTo(130, 1), std::runtime_error);
    box_->MoveTo(131, 1);
    EXPECT_EQ(box_->row(), 131);
    ExpectWhole();
}

TEST_F(HostInsideEvents, AHandlersFailureInAUsersActionGoesNoFurther) {
    Inside("Scrolled", [] { throw ControlError(ErrorKind::File, "the host's own"); });
    EXPECT_NO_THROW(box_.DragThumb({60}));
    EXPECT_EQ(box_->TopLine(), 60);
    ExpectWhole();
    Inside("ButtonClick(Mine)", [] { throw ControlError(ErrorKind::File, "the host's own"); });
    EXPECT_NO_THROW(box_.Elements().tbMore.UserClick(u".Mine"));
    ExpectWhole();
}

TEST_F(HostInsideEvents, AHandlersFailureWhileATextIsShownLeavesTheTextInPlace) {
    box_->LoadFile(u"/other");
    box_->CollapseLines(3, 9);
    box_->TopLine(100);
    Inside("Scrolled", [] { throw ControlError(ErrorKind::Index, "the host's own"); });
    EXPECT_THROW(box_->text(Doc(90, 't')), ControlError);
    EXPECT_EQ(box_->LineCount(), 90);
    EXPECT_EQ(box_->row(), 1);
    ExpectWhole();
    EXPECT_FALSE(box_.Elements().tbMore.Button(u"Edit").Enabled);
    EXPECT_FALSE(box_.Elements().tbMore.Button(u"Collapsed").Enabled);
}

TEST(HostInsideALoad, WhatItDoesToTheNewDocumentStays) {
    // Symptom: the caret went back to the start after the host had heard that it had moved.
    HeadlessBox box;
    box->text(Doc(300));
    box->TopLine(50);
    box.Log().OnEvent = [&](const std::string& event) {
        if (event != "Scrolled") return;
        box.Log().OnEvent = nullptr;
        box->MoveTo(10, 2);
        box->CollapseLines(3, 9);
    };
    box->text(Doc(300));
    EXPECT_EQ(box->row(), 10);
    EXPECT_EQ(box->col(), 2);
    EXPECT_TRUE(box.Elements().tbMore.Button(u"Collapsed").Enabled);
}

}  // namespace
}  // namespace quorvale
