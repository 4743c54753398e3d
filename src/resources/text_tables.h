#pragma once

#include <span>
#include <string_view>

namespace quorvale {

/// One line of a string table. A table holds each number once, in ascending order.
struct TextEntry {
    int Id;
    std::u16string_view Text;
};

std::span<const TextEntry> EnglishTexts();
std::span<const TextEntry> JapaneseTexts();
std::span<const TextEntry> KoreanTexts();

}  // namespace quorvale
