#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>

#include "control/member_ids.h"
#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using namespace key_code;
using testing::ElementsAre;

constexpr std::int16_t handled[] = {Up, Down, Left, Right, Home, End, PageUp, PageDown, A, F2};
constexpr std::int16_t B = 66;

struct Keys : testing::Test {
    Keys() { Show(Doc(100)); }

    void Show(const std::u16string& text) {
        box->text(text);
        box.EnterText();
        box.Log().Clear();
    }
    void FoldLines(std::int32_t from, std::int32_t to) {
        box->CollapseLines(from, to);
        box->CollapseAll();
    }
    std::int32_t RowAfter(std::int16_t key, std::int16_t shift = 0) {
        box.Press(key, shift);
        return box->row();
    }
    std::int32_t ColAfter(std::int16_t key, std::int16_t shift = 0) {
        box.Press(key, shift);
        return box->col();
    }

    HeadlessBox box;
};

TEST_F(Keys, UpAndDownMoveByALine) {
    box->MoveTo(5, 1);
    EXPECT_EQ(RowAfter(Up), 4);
    EXPECT_EQ(RowAfter(Down), 5);
    EXPECT_EQ(RowAfter(Down, shift_mask::Ctrl), 6);
}

TEST_F(Keys, UpAndDownStepOverAFold) {
    FoldLines(5, 20);
    box->MoveTo(5, 1);
    for (const std::int16_t shift : {std::int16_t{0}, shift_mask::Ctrl, shift_mask::Alt}) {
        EXPECT_EQ(RowAfter(Down, shift), 21);
        EXPECT_EQ(RowAfter(Up, shift), 5);
    }
}

TEST_F(Keys, AtTheEndsUpStaysAndDownGoesLeftOfTheText) {
    EXPECT_EQ(RowAfter(Up), 1);
    box->MoveTo(100, 2);
    EXPECT_EQ(RowAfter(Down), 100);
    EXPECT_EQ(box->col(), 0);
}

TEST_F(Keys, DownStaysWhereTheRestOfTheDocumentIsFolded) {
    FoldLines(50, 100);
    box->MoveTo(50, 1);
    EXPECT_EQ(RowAfter(Down), 50);
    EXPECT_EQ(RowAfter(PageDown), 50);
}

TEST_F(Keys, LeftAndRightMoveByACharacterWithinTheLine) {
    box->MoveTo(1, 3);
    EXPECT_EQ(ColAfter(Left), 2);
    EXPECT_EQ(ColAfter(Left), 1);
    EXPECT_EQ(ColAfter(Left), 0);
    EXPECT_EQ(ColAfter(Left), 0);
    EXPECT_EQ(ColAfter(Right), 1);
    EXPECT_EQ(ColAfter(Right), 2);
    EXPECT_EQ(ColAfter(Right), 3);
    EXPECT_EQ(ColAfter(Right), 3) << "the end of \"L1\"";
}

TEST_F(Keys, HomeAndEndGoToTheEndsOfTheLineAndWithCtrlOfTheDocument) {
    box->MoveTo(40, 2);
    EXPECT_EQ(ColAfter(Home), 1);
    EXPECT_EQ(ColAfter(End), 4);
    EXPECT_EQ(RowAfter(Home, shift_mask::Ctrl), 1);
    EXPECT_EQ(RowAfter(End, shift_mask::Ctrl), 100);
}

TEST_F(Keys, ToTheFirstLineTheCaretKeepsItsPlaceAlongTheLine) {
    box->MoveTo(40, 2);
    EXPECT_EQ(RowAfter(Home, shift_mask::Ctrl), 1);
    EXPECT_EQ(box->col(), 2);
    EXPECT_EQ(RowAfter(PageDown, shift_mask::Ctrl), 100);
    EXPECT_EQ(box->col(), 0) << "behind the last line there is no text to stand in";
    EXPECT_EQ(RowAfter(PageUp, shift_mask::Ctrl), 1);
    EXPECT_EQ(box->col(), 2);
}

TEST_F(Keys, AltChangesNothing) {
    box->MoveTo(40, 2);
    EXPECT_EQ(ColAfter(Left, shift_mask::Alt), 1);
    EXPECT_EQ(RowAfter(Down, shift_mask::Alt), 41);
}

TEST_F(Keys, PagesCountWholeRowsLessTwo) {
    EXPECT_EQ(RowAfter(PageDown), 29);
    box->MoveTo(100, 1);
    EXPECT_EQ(RowAfter(PageUp), 72);
    EXPECT_EQ(RowAfter(PageUp, shift_mask::Ctrl), 1);
    EXPECT_EQ(RowAfter(PageDown, shift_mask::Ctrl), 100);
}

TEST_F(Keys, PagesCountOnlyVisibleLines) {
    Show(Doc(300));
    FoldLines(5, 104);
    box->MoveTo(1, 1);
    EXPECT_EQ(RowAfter(PageDown), 29 + 99 + 0);
}

TEST_F(Keys, InAViewOfTwoRowsPagesLeaveTheRow) {
    box.Resize(12000, 360 + 2 * 240 + 100);
    box->MoveTo(40, 1);
    EXPECT_EQ(RowAfter(PageDown), 40);
    EXPECT_EQ(RowAfter(PageUp), 40);
}

TEST_F(Keys, ShiftExtendsTheSelectionBackAndForth) {
    box->MoveTo(5, 1);
    box.Press(Down, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -2);
    box.Press(Down, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -3);
    box.Press(Up, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -2);
    box.Press(Up, shift_mask::Shift);
    box.Press(Up, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), 2);
    box->MoveTo(20, 1);
    EXPECT_EQ(box->SelectedRowsCount(), 0) << "a host's move selects nothing";
}

TEST_F(Keys, ShiftWithPageDownSelectsThePage) {
    box.Press(PageDown, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -29);
}

TEST_F(Keys, ExtendingOntoTheHeadOfAFoldOpensIt) {
    FoldLines(5, 20);
    box->MoveTo(4, 1);
    box.Press(Down, shift_mask::Shift);
    EXPECT_EQ(box->row(), 5);
    EXPECT_EQ(box->SelectedRowsCount(), -2);
    EXPECT_EQ(box.RowLines()[5], 6);
}

TEST_F(Keys, ExtendingFromTheHeadOfAFoldPassesOverIt) {
    FoldLines(5, 20);
    box->MoveTo(5, 1);
    box.Press(Down, shift_mask::Shift);
    EXPECT_EQ(box->row(), 21);
    EXPECT_EQ(box->SelectedRowsCount(), -17);
    EXPECT_EQ(box.RowLines()[5], 21);
}

TEST_F(Keys, CtrlASelectsEverythingAndIsNotReported) {
    box.Press(A, shift_mask::Ctrl);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box->SelectedRowsCount(), -101);
    for (const Label& row : box.Elements().lblLine) {
        if (row.Top() >= 7000) break;
        EXPECT_EQ(row.BackColor(), system_colour::Highlight);
    }
    EXPECT_THAT(box.Log().Entries(), ElementsAre("Scrolled", "SelChanged", "KeyUp(65, 2)"));
    box.Log().Clear();
    box.Press(A, shift_mask::Ctrl);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box->col(), 0);
    EXPECT_EQ(box->SelectedRowsCount(), -101);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("Scrolled", "KeyUp(65, 2)"))
        << "the caret stood there already";
}

TEST_F(Keys, KeysThatTheControlDoesNotUseGoToTheHost) {
    box.Press(B);
    EXPECT_EQ(box.Log().Entries(), (std::vector<std::string>{"KeyDown(66, 0)", "KeyUp(66, 0)"}));
}

TEST_F(Keys, HandledKeysAreOnlyReportedWhenTheyComeUp) {
    for (const std::int16_t key : handled) {
        box.Log().Clear();
        box.Press(key);
        EXPECT_EQ(box.Log().Count("KeyDown(" + std::to_string(key) + ", 0)"), 0U) << key;
        EXPECT_EQ(box.Log().Count("KeyUp(" + std::to_string(key) + ", 0)"), 1U) << key;
    }
}

TEST_F(Keys, HandledKeysAreNeverReportedAsPressedWhateverIsHeldWithThem) {
    for (const std::int16_t key : handled) {
        for (std::int16_t shift = 0; shift < 8; ++shift) {
            box.Log().Clear();
            box.Press(key, shift);
            for (const std::string& event : box.Log().Entries()) {
                EXPECT_NE(event.substr(0, 7), "KeyDown") << key << " with " << shift;
            }
            EXPECT_EQ(box.Log().Entries().back(),
                      "KeyUp(" + std::to_string(key) + ", " + std::to_string(shift) + ")");
        }
    }
}

TEST_F(Keys, OtherKeysAreReportedWithWhateverIsHeldWithThem) {
    box.Press(B, 7);
    box.Press(16, 1);
    EXPECT_THAT(box.Log().Entries(),
                ElementsAre("KeyDown(66, 7)", "KeyUp(66, 7)", "KeyDown(16, 1)", "KeyUp(16, 1)"));
}

TEST_F(Keys, TheEditorsKeyAndAPlainAChangeNothing) {
    box->MoveTo(5, 2);
    box->SelectedRowsCount(3);
    const auto after = [&](std::int16_t key, std::int16_t shift) {
        box.Log().Clear();
        box.Press(key, shift);
        EXPECT_EQ(box->row(), 5);
        EXPECT_EQ(box->col(), 2);
        EXPECT_EQ(box->SelectedRowsCount(), 3);
        return box.Log().Entries();
    };
    EXPECT_THAT(after(F2, 0), ElementsAre("KeyUp(113, 0)"));
    EXPECT_THAT(after(F2, shift_mask::Ctrl), ElementsAre("KeyUp(113, 2)"));
    EXPECT_THAT(after(A, 0), ElementsAre("KeyUp(65, 0)"));
    EXPECT_THAT(after(A, shift_mask::Shift), ElementsAre("KeyUp(65, 1)"));
}

TEST_F(Keys, AKeyOfTheHostEndsAnExtensionThatMovedNothing) {
    box.Press(Up, shift_mask::Shift);
    EXPECT_EQ(box->row(), 1);
    box->MoveTo(5, 1);
    EXPECT_EQ(box->SelectedRowsCount(), -5) << "kept: the next move takes it, whoever makes it";
    box->MoveTo(1, 1);
    box.Press(Up, shift_mask::Shift);
    box.Press(B, shift_mask::Shift);
    box->MoveTo(5, 1);
    EXPECT_EQ(box->SelectedRowsCount(), 0);
}

TEST_F(Keys, ANewDocumentEndsAnExtensionThatMovedNothing) {
    box.Press(Up, shift_mask::Shift);
    Show(Doc(100));
    box->MoveTo(5, 1);
    EXPECT_EQ(box->SelectedRowsCount(), 0);
}

/// A host that writes into the arguments of every event.
class WritingSink final : public EventSink {
public:
    void OnEvent(std::int32_t id, std::span<Variant> arguments) override {
        if (id != event_id::KeyDown && id != event_id::KeyUp) return;
        ++Keys;
        arguments[0] = Down;
        arguments[1] = shift_mask::Shift;
    }

    int Keys = 0;
};

TEST_F(Keys, WhatTheHostWritesIntoAKeysEventChangesNothing) {
    WritingSink sink;
    box->SetEventSink(&sink);
    box.Press(B);
    box->SetEventSink(nullptr);
    EXPECT_EQ(sink.Keys, 2);
    EXPECT_EQ(box->row(), 1);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("KeyDown(66, 0)", "KeyUp(66, 0)"));
    box->MoveTo(5, 1);
    EXPECT_EQ(box->SelectedRowsCount(), 0);
}

TEST_F(Keys, AKeyThatComesUpInAnotherElementIsReportedWhenItWentDownInTheText) {
    box.Elements().OnKeyDown(Down, 0);
    box.Elements().Focus.UserMovesTo(FocusChild::SearchBox);
    box.Elements().OnKeyUp(Down, 0);
    box.Elements().OnKeyUp(Down, 0);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("SelChanged", "KeyUp(40, 0)"));
}

TEST_F(Keys, OneReleaseIsReportedForAllKeysThatWentDownTogether) {
    box.Elements().OnKeyDown(B, 0);
    box.Elements().OnKeyDown(67, 0);
    box.Elements().OnKeyUp(B, 0);
    box.Elements().OnKeyUp(67, 0);
    EXPECT_EQ(box.Log().Count("KeyUp(66, 0)"), 1U);
    EXPECT_EQ(box.Log().Count("KeyUp(67, 0)"), 0U);
}

TEST_F(Keys, InAnyOtherElementKeysAreNotTheTexts) {
    for (const FocusChild child : {FocusChild::SearchBox, FocusChild::LineBox, FocusChild::Editor,
                                   FocusChild::FoundList, FocusChild::None}) {
        box.Elements().Focus.UserMovesTo(child);
        box.Log().Clear();
        box.Press(Down);
        box.Press(B);
        EXPECT_EQ(box->row(), 1);
        EXPECT_TRUE(box.Log().Entries().empty());
    }
}

TEST_F(Keys, BeforeAnyDocumentEveryKeyIsHarmless) {
    HeadlessBox empty;
    empty.EnterText();
    for (const std::int16_t key : handled) {
        for (const std::int16_t shift : {std::int16_t{0}, shift_mask::Shift, shift_mask::Ctrl}) {
            EXPECT_NO_THROW(empty.Press(key, shift));
        }
    }
    EXPECT_EQ(empty->row(), 0);
}

TEST_F(Keys, EveryMoveBringsTheCaretIntoTheUpperHalf) {
    box->MoveTo(15, 1);
    EXPECT_EQ(box->TopLine(), 1);
    box.Press(Down);
    EXPECT_EQ(box->TopLine(), 2);
    box.Press(Down);
    EXPECT_EQ(box->TopLine(), 3);
    EXPECT_EQ(box.Log().Count("Scrolled"), 2U);
}

TEST_F(Keys, GoingToTheEndOpensAFoldThatHidesIt) {
    FoldLines(50, 100);
    box.Press(End, shift_mask::Ctrl);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box->col(), 0);
    EXPECT_GE(box->RowTop(100), 0);
}

TEST_F(Keys, EveryKeyMakesTheMarkerVisible) {
    for (const std::int16_t key : {Up, Down, Left, Right, Home, End, PageUp, PageDown, A, F2, B}) {
        box.Elements().imgMarker.SetVisible(false);
        box.Elements().OnKeyDown(key, 0);
        EXPECT_TRUE(box.Elements().imgMarker.Visible()) << key;
        box.Elements().OnKeyUp(key, 0);
    }
}

TEST_F(Keys, InAnEmptyDocumentAKeyShowsTheMarkerUntilTheNextTick) {
    Show(u"");
    box.Elements().imgMarker.SetVisible(false);
    box.Press(B);
    EXPECT_TRUE(box.Elements().imgMarker.Visible());
    box.TickTimer();
    EXPECT_FALSE(box.Elements().imgMarker.Visible());
}

}  // namespace
}  // namespace quorvale
