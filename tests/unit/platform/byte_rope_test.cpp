#include "platform/byte_rope.h"

#include <gtest/gtest.h>

#include <new>
#include <random>
#include <string>

namespace quorvale {
namespace {

TEST(ByteRope, PutsTogetherWhatLiesInSeveralPlaces) {
    PlainMemory memory;
    ByteRope rope(memory);
    EXPECT_EQ(rope, "");
    const std::string elsewhere = "elsewhere";
    rope.Append("own");
    rope.Append(" ");
    rope.Refer(elsewhere);
    *rope.Extend(1) = '.';
    EXPECT_EQ(rope, "own elsewhere.");
    EXPECT_EQ(rope.Size(), 14U);
    const ByteSpans spans = rope.Spans();
    ASSERT_EQ(spans.Spans().size(), 3U);
    EXPECT_EQ(spans.Spans()[1].data(), elsewhere.data()) << "it was copied";
    EXPECT_EQ(spans.Digest(), DigestOf("own elsewhere."));
}

TEST(ByteRope, LosesItsEndAcrossThePlaces) {
    PlainMemory memory;
    ByteRope rope(memory);
    rope.Append("ab");
    rope.Refer("cd");
    rope.Append("ef");
    EXPECT_TRUE(rope.EndsWith("cdef"));
    EXPECT_TRUE(rope.EndsWith("abcdef"));
    EXPECT_FALSE(rope.EndsWith("xabcdef"));
    EXPECT_FALSE(rope.EndsWith("ccef"));
    rope.DropLast(3);
    EXPECT_EQ(rope, "abc");
    rope.Append("x");
    EXPECT_EQ(rope, "abcx");
    rope.DropLast(4);
    EXPECT_EQ(rope, "");
    rope.Append("y");
    EXPECT_EQ(rope, "y");
    rope.Clear();
    EXPECT_EQ(rope.Size(), 0U);
    EXPECT_FALSE(rope.EndsWith("y"));
}

TEST(ByteRope, HoldsWhatAStringWouldHold) {
    PlainMemory memory;
    std::mt19937 random(3);
    const std::string elsewhere(1000, 'e');
    ByteRope rope(memory);
    std::string expected;
    for (int step = 0; step < 3000; ++step) {
        const std::string piece(random() % 40, static_cast<char>('a' + step % 26));
        const std::string_view there = std::string_view(elsewhere).substr(random() % 900, 50);
        switch (random() % 4) {
            case 0:
                rope.Refer(there);
                expected += there;
                break;
            case 1:
                rope.DropLast(random() % (std::min<std::size_t>(rope.Size(), 60) + 1));
                expected.resize(rope.Size());
                break;
            default:
                rope.Append(piece);
                expected += piece;
        }
        ASSERT_EQ(rope.Size(), expected.size());
    }
    EXPECT_EQ(rope, expected);
    EXPECT_TRUE(rope.EndsWith(std::string_view(expected).substr(expected.size() / 2)));
}

TEST(ByteRope, WithoutMemoryThereIsNoCopy) {
    FailingMemory memory(0);
    ByteRope rope(memory);
    rope.Refer("there");
    EXPECT_THROW(rope.Append("x"), std::bad_alloc);
    EXPECT_EQ(rope, "there");
}

}  // namespace
}  // namespace quorvale
