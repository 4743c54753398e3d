#include "search/result_store.h"

#include <gtest/gtest.h>

#include <string_view>

namespace quorvale {
namespace {

std::span<const std::uint8_t> Bytes(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string TextOf(const ResultStore& store, std::size_t index) {
    const auto text = store[index].Text;
    return {text.begin(), text.end()};
}

TEST(ResultStore, KeepsWhatWasFound) {
    ResultStore store;
    const auto first = store.AddSource(u"/one", LineForm::SingleByte);
    const auto second = store.AddSource(u"/two", LineForm::Utf8);
    store.Add(first, Line{7}, 3, Bytes("seven"));
    store.Add(first, Line{9}, 1, Bytes(""));
    store.Add(second, Line{1}, 20, Bytes("one"));
    ASSERT_EQ(store.Count(), 3U);
    EXPECT_EQ(store[0].Source, u"/one");
    EXPECT_EQ(store[0].Line, Line{7});
    EXPECT_EQ(store[0].Column, 3);
    EXPECT_EQ(TextOf(store, 0), "seven");
    EXPECT_EQ(TextOf(store, 1), "");
    EXPECT_EQ(store[2].Source, u"/two");
    EXPECT_EQ(store[2].Form, LineForm::Utf8);
    EXPECT_EQ(TextOf(store, 2), "one");
}

TEST(ResultStore, AFormMayBecomeKnownLater) {
    ResultStore store;
    const auto source = store.AddSource(u"/one", LineForm::Utf8);
    store.Add(source, Line{1}, 1, Bytes("\xE9"));
    store.SetForm(source, LineForm::SingleByte);
    EXPECT_EQ(TextOfLine(store[0].Text, store[0].Form), u"\u00E9");
}

TEST(ResultStore, FillsOneBlockAfterTheOther) {
    ResultStore store;
    const auto source = store.AddSource(u"/one", LineForm::SingleByte);
    const std::string large(3'000'000, 'x');
    for (int line = 1; line <= 30'000; ++line) {
        const std::string text = line % 10'000 == 0 ? large : "line " + std::to_string(line);
        store.Add(source, Line{line}, line % 100, Bytes(text));
    }
    for (int line = 1; line <= 30'000; ++line) {
        const auto index = static_cast<std::size_t>(line - 1);
        ASSERT_EQ(store[index].Line, Line{line});
        ASSERT_EQ(store[index].Column, line % 100);
        ASSERT_EQ(TextOf(store, index),
                  line % 10'000 == 0 ? large : "line " + std::to_string(line));
    }
}

TEST(ResultStore, FindsTheFirstResultFromALineOn) {
    ResultStore store;
    const auto source = store.AddSource(u"/one", LineForm::SingleByte);
    for (const int line : {90, 10, 20, 20, 30}) store.Add(source, Line{line}, 1, Bytes("x"));
    EXPECT_EQ(store.FirstAtOrAfter(1, Line{1}), 1U);
    EXPECT_EQ(store.FirstAtOrAfter(1, Line{11}), 2U);
    EXPECT_EQ(store.FirstAtOrAfter(1, Line{20}), 2U);
    EXPECT_EQ(store.FirstAtOrAfter(1, Line{30}), 4U);
    EXPECT_EQ(store.FirstAtOrAfter(1, Line{31}), 5U);
    EXPECT_EQ(store.FirstAtOrAfter(5, Line{1}), 5U);
}

TEST(ResultStore, DropsTheLastResults) {
    ResultStore store;
    const auto source = store.AddSource(u"/one", LineForm::SingleByte);
    const std::string text(1000, 'x');
    for (int line = 1; line <= 5'000; ++line) store.Add(source, Line{line}, 1, Bytes(text));
    for (const std::size_t kept : {4'999U, 2'000U, 1'049U, 1'048U, 1'047U, 3U, 0U}) {
        store.Truncate(kept);
        EXPECT_EQ(store.Count(), kept);
        store.Add(source, Line{77}, 5, Bytes("new"));
        EXPECT_EQ(TextOf(store, kept), "new");
        EXPECT_EQ(store[kept].Line, Line{77});
        if (kept > 0) {
            EXPECT_EQ(TextOf(store, kept - 1), text);
        }
    }
    store.Truncate(100);
    EXPECT_EQ(store.Count(), 1U) << "there were no more";
}

TEST(ResultStore, TenMillionResultsTakeLittleMoreThanTheirBytes) {
    ResultStore store;
    const auto source = store.AddSource(u"/one", LineForm::SingleByte);
    for (int line = 1; line <= 10'000'000; ++line) {
        store.Add(source, Line{line}, 1, Bytes("ab"));
    }
    EXPECT_EQ(store.Count(), 10'000'000U);
    EXPECT_EQ(store[9'999'999].Line, Line{10'000'000});
    EXPECT_EQ(TextOf(store, 4'444'444), "ab");
    // 16 bytes a result and its own; not more than half of that again for what has room to grow.
    EXPECT_LT(store.MemoryUsed(), std::size_t{10'000'000} * 18 * 3 / 2);
}

}  // namespace
}  // namespace quorvale
