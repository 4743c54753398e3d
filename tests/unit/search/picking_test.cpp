#include "search/picking.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "platform/keys.h"
#include "search/found_rows.h"
#include "search_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class PickingTest : public testing::Test, public PickingPeers {
protected:
    PickingTest() { SetResults(u"/other"); }

    void SetResults(std::u16string file) {
        auto rows = std::make_shared<FoundRows>(Language::English);
        const auto source = rows->Results().AddSource(std::move(file), LineForm::SingleByte);
        for (const int line : {7, 12, 90}) rows->Results().Add(source, Line{line}, line + 1, {});
        rows->Finish();
        rig_.Elements.lvFound.SetRows(rows);
        list_.Show();
    }

    void RaiseBeforeFileChange(const std::u16string& fileName, bool& changed) override {
        rig_.Calls.push_back("BeforeFileChange " + ToUtf8(fileName) + (changed ? " true" : ""));
        seen_ = rig_.Search.Picked;
        if (OnEvent) OnEvent();
        changed = hostChanges_;
    }
    void LoadFile(const std::u16string& fileName) override {
        rig_.Calls.push_back("LoadFile " + ToUtf8(fileName));
    }
    void MoveTo(Line row, std::int32_t col) override {
        rig_.Calls.push_back("MoveTo " + std::to_string(row.Number()) + " " + std::to_string(col));
    }
    void PickedElsewhere(const PickedPlace& place) override {
        ExpectHidden();
        elsewhere_.push_back(place);
    }
    bool HasEnded() const override { return ended_; }

    void Pick(std::size_t row) {
        rig_.Elements.lvFound.Select(row);
        picking_.PickSelected();
    }

    void ExpectHidden() {
        EXPECT_FALSE(rig_.Elements.lvFound.Visible());
        EXPECT_EQ(rig_.Elements.Focus.Active(), FocusChild::TextArea);
    }

    SearchRig rig_;
    FoundList list_{rig_.Elements};
    Picking picking_{rig_.Search, rig_.Elements, rig_.Document, list_, *this};
    std::optional<PickedPlace> seen_;
    std::vector<PickedPlace> elsewhere_;
    std::function<void()> OnEvent;
    bool hostChanges_ = false;
    bool ended_ = false;
};

TEST_F(PickingTest, AnotherFileIsLoadedAfterTheHostWasAsked) {
    rig_.SetText(u"x", u"/doc");
    Pick(2);
    EXPECT_EQ(rig_.Calls, (Log{"BeforeFileChange /other", "LoadFile /other", "MoveTo 12 14"}));
    ExpectHidden();
}

TEST_F(PickingTest, TheHostMayChangeTheFileItself) {
    rig_.SetText(u"x", u"/doc");
    hostChanges_ = true;
    Pick(2);
    EXPECT_EQ(rig_.Calls, (Log{"BeforeFileChange /other", "MoveTo 12 14"}));
    ExpectHidden();
}

TEST_F(PickingTest, TheHostIsToldWhereThePickLeadsWhileItIsAsked) {
    rig_.SetText(u"x", u"/doc");
    Pick(3);
    EXPECT_EQ(seen_, (PickedPlace{u"/other", 90, 92}));
    EXPECT_EQ(rig_.Search.Picked, std::nullopt);
}

TEST_F(PickingTest, InTheShownFileOnlyTheCaretMoves) {
    rig_.SetText(u"x", u"/other");
    Pick(1);
    EXPECT_EQ(rig_.Calls, (Log{"MoveTo 7 9"}));
    ExpectHidden();
}

TEST_F(PickingTest, WhileNoFileIsShownNoneIsLoaded) {
    rig_.SetText(u"x");
    Pick(1);
    EXPECT_EQ(rig_.Calls, (Log{"MoveTo 7 9"}));
}

TEST_F(PickingTest, AMatchInMemoryBelongsToWhateverIsShown) {
    SetResults(u"*");
    rig_.SetText(u"x", u"/doc");
    Pick(1);
    EXPECT_EQ(rig_.Calls, (Log{"MoveTo 7 9"}));
}

TEST_F(PickingTest, AWayBackOnlyHidesTheList) {
    rig_.SetText(u"x", u"/doc");
    for (const std::size_t row : {0U, 4U}) {
        list_.Show();
        Pick(row);
        EXPECT_EQ(rig_.Calls, Log{});
        ExpectHidden();
    }
}

TEST_F(PickingTest, OnlyAPickInAnotherFileIsReportedWhenItIsOver) {
    rig_.SetText(u"x", u"/other");
    Pick(1);
    SetResults(u"*");
    Pick(1);
    Pick(0);
    EXPECT_TRUE(elsewhere_.empty());
    SetResults(u"/other");
    rig_.SetText(u"x", u"/doc");
    Pick(2);
    EXPECT_EQ(elsewhere_, (std::vector<PickedPlace>{{u"/other", 12, 14}}));
    rig_.SetText(u"x");
    Pick(1);
    EXPECT_EQ(elsewhere_.size(), 2U) << "also while no file is shown";
}

TEST_F(PickingTest, NothingHappensWhenNothingIsSelected) {
    picking_.PickSelected();
    EXPECT_EQ(rig_.Calls, Log{});
    EXPECT_TRUE(rig_.Elements.lvFound.Visible());
}

TEST_F(PickingTest, AHostMayEmptyTheListMeanwhile) {
    rig_.SetText(u"x", u"/doc");
    OnEvent = [&] { rig_.Elements.lvFound.Clear(); };
    Pick(2);
    EXPECT_EQ(rig_.Calls.back(), "MoveTo 12 14");
}

TEST_F(PickingTest, AControlThatHasEndedDoesNoMore) {
    rig_.SetText(u"x", u"/doc");
    OnEvent = [&] { ended_ = true; };
    Pick(2);
    EXPECT_EQ(rig_.Calls, (Log{"BeforeFileChange /other"}));
    EXPECT_TRUE(elsewhere_.empty());
}

TEST_F(PickingTest, EnterPicksAndEscapeHides) {
    rig_.SetText(u"x", u"/other");
    rig_.Elements.lvFound.Select(1);
    std::int16_t key = key_code::Return;
    picking_.KeyDown(key);
    EXPECT_EQ(rig_.Calls, (Log{"MoveTo 7 9"}));
    list_.Show();
    key = key_code::Escape;
    picking_.KeyDown(key);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(rig_.Calls.size(), 1U);
    ExpectHidden();
    EXPECT_EQ(rig_.Elements.lvFound.RowCount(), 5U) << "the rows stay";
    key = 65;
    picking_.KeyDown(key);
    EXPECT_EQ(key, 65);
}

TEST_F(PickingTest, TheNeighboursOfAResultArePickedInTurn) {
    rig_.SetText(u"x", u"/other");
    EXPECT_TRUE(picking_.PickNeighbour(true));
    EXPECT_TRUE(picking_.PickNeighbour(true));
    EXPECT_TRUE(picking_.PickNeighbour(true));
    EXPECT_FALSE(picking_.PickNeighbour(true)) << "a way back is no result";
    EXPECT_EQ(rig_.Elements.lvFound.Selected(), 3U);
    EXPECT_TRUE(picking_.PickNeighbour(false));
    EXPECT_EQ(rig_.Calls, (Log{"MoveTo 7 9", "MoveTo 12 14", "MoveTo 90 92", "MoveTo 12 14"}));
    EXPECT_EQ(rig_.Elements.lvFound.EnsuredRow(), 2U);
}

TEST_F(PickingTest, WithoutASelectionTheLastResultIsThePreviousOne) {
    rig_.SetText(u"x", u"/other");
    EXPECT_TRUE(picking_.PickNeighbour(false));
    EXPECT_EQ(rig_.Calls, (Log{"MoveTo 90 92"}));
    rig_.Elements.lvFound.Clear();
    EXPECT_FALSE(picking_.PickNeighbour(true));
    EXPECT_FALSE(picking_.PickNeighbour(false));
}

}  // namespace
}  // namespace quorvale
