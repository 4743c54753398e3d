#include "document/text_builder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "base/errors.h"
#include "support/noting_memory.h"

namespace quorvale {
namespace {

constexpr std::size_t block = TextBuilder::BlockUnits;

TEST(TextBuilder, BytesBecomeNarrowUnits) {
    PlainMemory memory;
    TextBuilder builder(memory, 5);
    std::memcpy(builder.Bytes(), "abc", 3);
    builder.Put(3, '\r');
    builder.Put(4, 0xFF);
    const TextStore text = builder.Take(5);
    EXPECT_TRUE(text.IsNarrow());
    EXPECT_EQ(text.Mid(1, 9), u"abc\r\u00FF");
}

TEST(TextBuilder, AWidenedBlockKeepsItsUnitsAndTakesMore) {
    PlainMemory memory;
    TextBuilder builder(memory, 5);
    std::memcpy(builder.Bytes(), "ab\xE9", 3);
    EXPECT_EQ(builder.WideBlock(0), nullptr);
    char16_t* const units = builder.Widen(0, 3, 5);
    EXPECT_EQ(builder.WideBlock(0), units);
    units[3] = u'\u3042';
    builder.Put(4, 'z');
    EXPECT_EQ(builder.Take(5).Mid(1, 9), u"ab\u00E9\u3042z");
}

TEST(TextBuilder, BlocksOfBothWidthsStandSideBySide) {
    PlainMemory memory;
    TextBuilder builder(memory, 3 * block);
    std::memset(builder.Bytes(), 'x', 3 * block);
    builder.Widen(1, block, block)[block - 1] = u'\u3042';
    const TextStore text = builder.Take(2 * block + 2);
    EXPECT_EQ(text.Length(), static_cast<std::int32_t>(2 * block + 2));
    EXPECT_EQ(text.Mid(static_cast<std::int32_t>(2 * block - 1), 9), u"x\u3042xx");
    EXPECT_EQ(text.Mid(static_cast<std::int32_t>(block), 2), u"xx");
}

TEST(TextBuilder, WhatTheNarrowUnitsDoNotNeedIsGivenBack) {
    NotingMemory memory;
    TextBuilder builder(memory, 3 * block);
    std::memset(builder.Bytes(), 'x', 3 * block);
    builder.Widen(2, 10, block);
    builder.Take(2 * block + 10);
    EXPECT_EQ(memory.Notes, std::vector<std::string>{"keep " + std::to_string(2 * block)});
    NotingMemory second;
    TextBuilder narrow(second, 100);
    narrow.Take(40);
    EXPECT_EQ(second.Notes, std::vector<std::string>{"keep 40"});
}

TEST(TextBuilder, ATextOfWideBlocksAloneKeepsNoBytes) {
    NotingMemory memory;
    TextBuilder builder(memory, 100);
    builder.Widen(0, 0, 10)[0] = u'\u3042';
    const TextStore text = builder.Take(1);
    EXPECT_EQ(memory.Notes, std::vector<std::string>{"keep 0"});
    EXPECT_EQ(text.Mid(1, 9), u"\u3042");
}

TEST(TextBuilder, DecodedBytesAreGivenBackInLargePiecesOnce) {
    NotingMemory memory;
    constexpr std::size_t mebibyte = std::size_t{1} << 20;
    TextBuilder builder(memory, 64 * mebibyte);
    builder.Discard(mebibyte, 10 * mebibyte);
    EXPECT_TRUE(memory.Notes.empty());
    builder.Discard(mebibyte, 20 * mebibyte);
    builder.Discard(mebibyte, 21 * mebibyte);
    builder.Discard(2 * mebibyte, 40 * mebibyte);
    const std::vector<std::string> expected = {
        "discard " + std::to_string(19 * mebibyte) + " from " + std::to_string(mebibyte),
        "discard " + std::to_string(20 * mebibyte) + " from " + std::to_string(20 * mebibyte)};
    EXPECT_EQ(memory.Notes, expected);
}

TEST(TextBuilder, WithoutMemoryThereIsAnError) {
    FailingMemory none(0);
    EXPECT_THROW(TextBuilder(none, 10), ControlError);
    FailingMemory one(1);
    TextBuilder builder(one, 10);
    EXPECT_THROW(builder.Widen(0, 0, 10), ControlError);
}

TEST(TextBuilder, TheLineTableTakesItsMemoryFromTheSamePlace) {
    FailingMemory two(2);
    TextBuilder builder(two, 10);
    LineStarts starts = builder.MakeLineStarts();
    starts.Append(1);
    EXPECT_EQ(starts[1], 1);
    EXPECT_THROW(builder.Widen(0, 0, 10), ControlError);
}

}  // namespace
}  // namespace quorvale
