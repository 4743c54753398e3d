#include "platform/byte_buffer.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace quorvale {
namespace {

TEST(ByteBuffer, HoldsWhatWasAppended) {
    PlainMemory memory;
    ByteBuffer buffer(memory);
    EXPECT_EQ(buffer.View(), "");
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string piece(static_cast<std::size_t>(i % 7), static_cast<char>('a' + i % 26));
        buffer.Append(piece);
        expected += piece;
    }
    EXPECT_EQ(buffer.View(), expected);
    EXPECT_EQ(buffer.Size(), expected.size());
}

TEST(ByteBuffer, WhatIsExtendedIsWrittenByTheCaller) {
    PlainMemory memory;
    ByteBuffer buffer(memory);
    buffer.Append("ab");
    char* const place = buffer.Extend(2);
    place[0] = 'c';
    place[1] = 'd';
    buffer.DropLast(1);
    EXPECT_EQ(buffer.View(), "abc");
    buffer.Clear();
    buffer.Append("x");
    EXPECT_EQ(buffer.View(), "x");
}

TEST(ByteBuffer, ReservedRoomIsTakenOnce) {
    FailingMemory memory(1);
    ByteBuffer buffer(memory);
    buffer.Reserve(1000);
    buffer.Append(std::string(1000, 'x'));
    EXPECT_EQ(buffer.Size(), 1000U);
}

TEST(ByteBuffer, WithoutMemoryItStaysAsItWas) {
    FailingMemory memory(1);
    ByteBuffer buffer(memory);
    buffer.Reserve(4);
    buffer.Append("abcd");
    EXPECT_THROW(buffer.Append("e"), std::bad_alloc);
    EXPECT_THROW(buffer.Extend(static_cast<std::size_t>(-1)), std::bad_alloc);
    EXPECT_EQ(buffer.View(), "abcd");
}

}  // namespace
}  // namespace quorvale
