#include "base/text_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace quorvale {
namespace {

constexpr std::int32_t block = TextStore::BlockUnits;
constexpr std::int32_t farOut = std::numeric_limits<std::int32_t>::max();

std::u16string Units(std::int32_t count, char16_t unit) {
    return std::u16string(static_cast<std::size_t>(count), unit);
}

/// The text as its pieces tell it: "n3 w2" for three narrow units and two wide ones behind them.
std::string ShapeOf(const TextStore& text, std::int32_t start, std::int32_t count) {
    std::string shape;
    text.VisitSpans(start, count, [&](auto units) {
        if (!shape.empty()) shape += ' ';
        shape += (sizeof(units[0]) == 1 ? "n" : "w") + std::to_string(units.size());
    });
    return shape;
}

std::u16string NaiveMid(const std::u16string& text, std::int64_t start, std::int64_t count) {
    std::u16string out;
    for (std::int64_t p = std::max<std::int64_t>(start, 1);
         p < start + count && p <= static_cast<std::int64_t>(text.size()); ++p) {
        out.push_back(text[static_cast<std::size_t>(p - 1)]);
    }
    return out;
}

TEST(TextStore, ANewOneIsEmpty) {
    const TextStore text;
    EXPECT_EQ(text.Length(), 0);
    EXPECT_TRUE(text.IsNarrow());
    EXPECT_EQ(text.At(1), 0);
    EXPECT_EQ(text.Mid(1, 10), u"");
    EXPECT_EQ(text.FindLineFeed(1), 0);
    EXPECT_EQ(ShapeOf(text, 1, farOut), "");
}

TEST(TextStore, PositionsCountFromOne) {
    const TextStore text = TextStore::FromString(u"a\u00FFz");
    EXPECT_EQ(text.Length(), 3);
    EXPECT_EQ(text.At(1), u'a');
    EXPECT_EQ(text.At(2), u'\u00FF');
    EXPECT_EQ(text.At(3), u'z');
}

TEST(TextStore, OutsideTheTextThereAreNulCharacters) {
    const TextStore text = TextStore::FromString(u"abc");
    EXPECT_EQ(text.At(0), 0);
    EXPECT_EQ(text.At(4), 0);
    EXPECT_EQ(text.At(-farOut - 1), 0);
    EXPECT_EQ(text.At(farOut), 0);
}

TEST(TextStore, MidGivesOnlyWhatLiesInTheText) {
    const TextStore text = TextStore::FromString(u"abcdef");
    EXPECT_EQ(text.Mid(2, 3), u"bcd");
    EXPECT_EQ(text.Mid(1, 6), u"abcdef");
    EXPECT_EQ(text.Mid(5, 100), u"ef");
    EXPECT_EQ(text.Mid(5, farOut), u"ef");
    EXPECT_EQ(text.Mid(7, 1), u"");
    EXPECT_EQ(text.Mid(farOut, farOut), u"");
    EXPECT_EQ(text.Mid(3, 0), u"");
    EXPECT_EQ(text.Mid(3, -1), u"");
    EXPECT_EQ(text.Mid(3, -farOut - 1), u"");
}

TEST(TextStore, WhatMidIsAskedForInFrontOfTheTextIsMissing) {
    const TextStore text = TextStore::FromString(u"abcdef");
    EXPECT_EQ(text.Mid(0, 3), u"ab");
    EXPECT_EQ(text.Mid(-1, 3), u"a");
    EXPECT_EQ(text.Mid(-2, 3), u"");
    EXPECT_EQ(text.Mid(-farOut - 1, farOut), u"");
}

TEST(TextStore, AppendToKeepsWhatIsThere) {
    const TextStore text = TextStore::FromString(u"abc\u3042");
    std::u16string out = u"x";
    text.AppendTo(out, 2, 3);
    EXPECT_EQ(out, u"xbc\u3042");
}

TEST(TextStore, ATailStandsBehindTheText) {
    EXPECT_EQ(TextStore::FromString(u"ab", u"\r\n").Mid(1, 9), u"ab\r\n");
    EXPECT_EQ(TextStore::FromString(u"", u"\r\n").Mid(1, 9), u"\r\n");
    EXPECT_EQ(TextStore::FromString(u"ab", u"\u3042").Mid(1, 9), u"ab\u3042");
}

TEST(TextStore, ATailMayBeginInAnotherBlock) {
    for (const std::int32_t size : {block - 2, block - 1, block, block + 1}) {
        const TextStore text = TextStore::FromString(Units(size, u'x'), u"\r\n");
        EXPECT_EQ(text.Length(), size + 2);
        EXPECT_EQ(text.Mid(size, 3), u"x\r\n");
        EXPECT_TRUE(text.IsNarrow());
    }
}

TEST(TextStore, EveryUnitComesBack) {
    std::u16string all;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) all.push_back(static_cast<char16_t>(unit));
    const TextStore text = TextStore::FromString(all);
    EXPECT_FALSE(text.IsNarrow());
    EXPECT_EQ(text.Mid(1, farOut), all);
    EXPECT_TRUE(TextStore::FromString(all.substr(0, 256)).IsNarrow());
    EXPECT_FALSE(TextStore::FromString(all.substr(0, 257)).IsNarrow());
}

TEST(TextStore, ANarrowTextIsOnePiece) {
    const TextStore text = TextStore::FromString(Units(3 * block + 5, u'x'));
    EXPECT_EQ(ShapeOf(text, 1, farOut), "n" + std::to_string(3 * block + 5));
    EXPECT_EQ(ShapeOf(text, block, 2), "n2");
}

TEST(TextStore, OnlyABlockWithAWideUnitIsWide) {
    std::u16string units = Units(5 * block + 7, u'x');
    units[static_cast<std::size_t>(block)] = u'\u3042';
    units[static_cast<std::size_t>(2 * block - 1)] = u'\u3042';
    const TextStore text = TextStore::FromString(units);
    const std::string one = std::to_string(block);
    EXPECT_EQ(ShapeOf(text, 1, farOut),
              "n" + one + " w" + one + " n" + std::to_string(3 * block + 7));
    EXPECT_EQ(ShapeOf(text, block, 2), "n1 w1");
    EXPECT_EQ(ShapeOf(text, 2 * block, 2), "w1 n1");
    EXPECT_EQ(ShapeOf(text, 2 * block + 1, block), "n" + one);
    EXPECT_EQ(text.At(block + 1), u'\u3042');
    EXPECT_EQ(text.At(block), u'x');
    EXPECT_EQ(text.At(2 * block + 1), u'x');
}

TEST(TextStore, AWideUnitAtTheEndWidensTheLastBlockOnly) {
    const TextStore text = TextStore::FromString(Units(2 * block, u'x'), u"\u3042");
    EXPECT_EQ(ShapeOf(text, 1, farOut), "n" + std::to_string(2 * block) + " w1");
    EXPECT_EQ(text.Mid(2 * block, 9), u"x\u3042");
}

TEST(TextStore, AllBlocksMayBeWide) {
    const TextStore text = TextStore::FromString(Units(block + 3, u'\u3042'));
    EXPECT_EQ(ShapeOf(text, 1, farOut), "w" + std::to_string(block) + " w3");
    EXPECT_EQ(text.Mid(block, farOut), Units(4, u'\u3042'));
}

TEST(TextStore, FindLineFeedFindsTheFirstAtOrBehindThePosition) {
    for (const std::u16string last : {u"", u"\u3042"}) {
        const TextStore text = TextStore::FromString(u"ab\ncd\n\nx" + last);
        EXPECT_EQ(text.FindLineFeed(1), 3);
        EXPECT_EQ(text.FindLineFeed(3), 3);
        EXPECT_EQ(text.FindLineFeed(4), 6);
        EXPECT_EQ(text.FindLineFeed(7), 7);
        EXPECT_EQ(text.FindLineFeed(8), 0);
        EXPECT_EQ(text.FindLineFeed(100), 0);
        EXPECT_EQ(text.FindLineFeed(farOut), 0);
        EXPECT_EQ(text.FindLineFeed(0), 3);
        EXPECT_EQ(text.FindLineFeed(-farOut - 1), 3);
    }
}

TEST(TextStore, FindLineFeedGoesAcrossBlocksOfBothWidths) {
    for (const std::int32_t wideBlock : {0, 1, 2}) {
        std::u16string units = Units(3 * block, u'x');
        units[static_cast<std::size_t>(wideBlock * block + 77)] = u'\u3042';
        units.back() = u'\n';
        const TextStore text = TextStore::FromString(units);
        EXPECT_EQ(text.FindLineFeed(1), 3 * block);
        EXPECT_EQ(text.FindLineFeed(3 * block), 3 * block);
    }
}

TEST(TextStore, OtherUnitsThatHoldTheByteOfALineFeedAreNone) {
    const TextStore text = TextStore::FromString(u"\u0A0A\u0A00\u010A\u000A");
    EXPECT_EQ(text.FindLineFeed(1), 4);
}

TEST(TextStore, MovingLeavesAnEmptyTextBehind) {
    TextStore from = TextStore::FromString(u"abc\u3042");
    TextStore to = std::move(from);
    EXPECT_EQ(to.Mid(1, 9), u"abc\u3042");
    EXPECT_EQ(from.Length(), 0);
    EXPECT_EQ(from.Mid(1, 9), u"");
    from = std::move(to);
    EXPECT_EQ(from.Mid(1, 9), u"abc\u3042");
    EXPECT_EQ(to.At(1), 0);
}

TEST(TextStore, CannotBeCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<TextStore>);
    EXPECT_FALSE(std::is_copy_assignable_v<TextStore>);
}

TEST(TextStore, AgreesWithAPlainStringOnRandomTexts) {
    std::mt19937 random(7);
    std::u16string units = Units(4 * block + 1234, u'x');
    for (std::size_t i = 0; i < units.size(); i += 1 + random() % 100) {
        units[i] = random() % 3 == 0 ? u'\n' : static_cast<char16_t>(random() % 256);
    }
    for (const std::int32_t wideBlock : {1, 4}) {
        units[static_cast<std::size_t>(wideBlock * block) + random() % 1234] = u'\u4E00';
    }
    const TextStore text = TextStore::FromString(units);
    ASSERT_EQ(text.Mid(1, text.Length()), units);
    for (int round = 0; round < 2000; ++round) {
        // Near the borders of blocks, where it is interesting.
        const auto start = static_cast<std::int32_t>(random() % 5) * block +
                           static_cast<std::int32_t>(random() % 400) - 200;
        const auto count = static_cast<std::int32_t>(random() % 500) - 50;
        ASSERT_EQ(text.Mid(start, count), NaiveMid(units, start, count));
        const auto from = static_cast<std::size_t>(std::max(start, 1) - 1);
        ASSERT_EQ(text.At(start), start < 1 ? 0 : units[from]);
        ASSERT_EQ(text.FindLineFeed(start), static_cast<std::int32_t>(units.find(u'\n', from) + 1));
    }
}

}  // namespace
}  // namespace quorvale
