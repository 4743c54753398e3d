#include "platform/list_view.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/keys.h"

namespace quorvale {
namespace {

/// Rows that make up their texts when they are asked for one.
class Numbered final : public ListRows {
public:
    explicit Numbered(std::size_t count) : count_(count) {}

    std::size_t Count() const override { return count_; }
    std::u16string Cell(std::size_t row, std::size_t column, std::size_t most) const override {
        ++Asked;
        const std::string text = std::to_string(row) + "." + std::to_string(column);
        return std::u16string(text.begin(), text.end()).substr(0, most);
    }
    bool IsBold(std::size_t row) const override { return row == 0; }
    std::u16string SmallIcon(std::size_t row) const override { return row == 0 ? u"Back" : u""; }
    std::u16string Tag(std::size_t row) const override { return row == 1 ? u"tag" : u""; }

    mutable int Asked = 0;

private:
    std::size_t count_;
};

class ListViewTest : public testing::Test {
protected:
    ListViewTest() {
        list_.OnActivate = [&] { ++activated_; };
        list_.OnKeyDown = [&](std::int16_t& key, std::int16_t) {
            keys_.push_back(key);
            if (key == key_code::Return) key = 0;
        };
        list_.SetRows(std::make_shared<Numbered>(4));
    }

    ListView list_{"lvFound"};
    int activated_ = 0;
    std::vector<int> keys_;
};

TEST_F(ListViewTest, ShowsWhatItsRowsAre) {
    EXPECT_EQ(list_.RowCount(), 4U);
    EXPECT_EQ(list_.Cell(2, 1), u"2.1");
    EXPECT_EQ(list_.Cell(2, 1, 1), u"2");
    EXPECT_TRUE(list_.IsBold(0));
    EXPECT_FALSE(list_.IsBold(1));
    EXPECT_EQ(list_.SmallIcon(0), u"Back");
    EXPECT_EQ(list_.RowTag(1), u"tag");
}

TEST_F(ListViewTest, OutsideItsRowsThereIsNothing) {
    EXPECT_EQ(list_.Cell(4, 0), u"");
    EXPECT_EQ(list_.Cell(0, 3), u"");
    EXPECT_EQ(list_.RowTag(4), u"");
    EXPECT_EQ(list_.SmallIcon(4), u"");
    EXPECT_FALSE(list_.IsBold(4));
    list_.Select(4);
    EXPECT_EQ(list_.Selected(), std::nullopt);
    list_.EnsureVisible(4);
    EXPECT_EQ(list_.EnsuredRow(), std::nullopt);
}

TEST_F(ListViewTest, TenMillionRowsAreNotAskedForOneByOne) {
    const auto rows = std::make_shared<Numbered>(10'000'000);
    list_.SetRows(rows);
    list_.Select(9'999'999);
    list_.EnsureVisible(9'999'999);
    EXPECT_EQ(list_.RowCount(), 10'000'000U);
    EXPECT_EQ(rows->Asked, 0);
    EXPECT_EQ(list_.Cell(9'999'999, 0), u"9999999.0");
}

TEST_F(ListViewTest, NothingIsSelectedByItself) {
    EXPECT_EQ(list_.Selected(), std::nullopt);
    list_.Select(2);
    list_.Select(3);
    EXPECT_EQ(list_.Selected(), 3U);
    list_.SetRows(std::make_shared<Numbered>(9));
    EXPECT_EQ(list_.Selected(), std::nullopt);
    list_.Select(2);
    list_.Clear();
    EXPECT_EQ(list_.Selected(), std::nullopt);
    EXPECT_EQ(list_.RowCount(), 0U);
}

TEST_F(ListViewTest, AClickSelectsAndADoubleClickPicks) {
    list_.UserClick(1);
    EXPECT_EQ(list_.Selected(), 1U);
    EXPECT_EQ(activated_, 0);
    list_.UserDoubleClick(2);
    EXPECT_EQ(list_.Selected(), 2U);
    EXPECT_EQ(activated_, 1);
}

TEST_F(ListViewTest, ADoubleClickWhereNoRowIsDoesNothing) {
    list_.UserClick(1);
    list_.UserDoubleClickBeside();
    list_.UserDoubleClick(4);
    EXPECT_EQ(list_.Selected(), 1U);
    EXPECT_EQ(activated_, 0);
}

TEST_F(ListViewTest, SomeKeysMoveTheSelectionWithinTheRows) {
    const std::vector<std::pair<std::int16_t, std::size_t>> steps = {
        {key_code::Down, 0}, {key_code::Down, 1}, {key_code::End, 3}, {key_code::Down, 3},
        {key_code::Up, 2},   {key_code::Home, 0}, {key_code::Up, 0},
    };
    for (const auto& [key, row] : steps) {
        EXPECT_EQ(list_.UserKey(key, 0), key);
        EXPECT_EQ(list_.Selected(), row);
        EXPECT_EQ(list_.EnsuredRow(), row);
    }
    EXPECT_TRUE(keys_.empty());
}

TEST_F(ListViewTest, OtherKeysGoToTheHandlerWhichMaySwallowThem) {
    EXPECT_EQ(list_.UserKey(key_code::Return, 0), 0);
    EXPECT_EQ(list_.UserKey(key_code::Escape, 0), key_code::Escape);
    EXPECT_EQ(keys_, (std::vector<int>{13, 27}));
}

TEST_F(ListViewTest, AHiddenOrDisabledListRefusesTheUser) {
    for (const bool hidden : {true, false}) {
        list_.SetVisible(!hidden);
        list_.SetEnabled(hidden);
        list_.UserClick(1);
        list_.UserDoubleClick(1);
        list_.UserKey(key_code::Down, 0);
        list_.UserKey(key_code::Return, 0);
    }
    EXPECT_EQ(list_.Selected(), std::nullopt);
    EXPECT_EQ(activated_, 0);
    EXPECT_TRUE(keys_.empty());
    list_.Select(1);
    EXPECT_EQ(list_.Selected(), 1U) << "the control itself is not the user";
}

TEST_F(ListViewTest, AnEmptyListHasNothingToSelect) {
    list_.Clear();
    for (const auto key : {key_code::Up, key_code::Down, key_code::Home, key_code::End}) {
        list_.UserKey(key, 0);
        EXPECT_EQ(list_.Selected(), std::nullopt);
    }
}

TEST_F(ListViewTest, EveryChangeIsSeenByWhoShowsIt) {
    std::uint32_t revision = list_.Revision();
    const auto changed = [&] { return std::exchange(revision, list_.Revision()) != revision; };
    list_.Select(1);
    EXPECT_TRUE(changed());
    list_.Select(1);
    EXPECT_FALSE(changed());
    list_.EnsureVisible(1);
    EXPECT_TRUE(changed());
    list_.NoteMoreRows();
    EXPECT_TRUE(changed());
    list_.BringToFront();
    EXPECT_TRUE(changed());
    list_.Clear();
    EXPECT_TRUE(changed());
}

}  // namespace
}  // namespace quorvale
