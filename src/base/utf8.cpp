#include "base/utf8.h"

#include <cstring>

namespace quorvale {

namespace {

constexpr std::size_t wordBytes = sizeof(std::uint64_t);

bool WordIsAscii(const std::uint8_t* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return (word & 0x8080808080808080U) == 0;
}

}  // namespace

Utf8Prefix ValidUtf8Prefix(std::span<const std::uint8_t> bytes) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        if (bytes.size() - at >= wordBytes && WordIsAscii(bytes.data() + at)) {
            at += wordBytes;
            continue;
        }
        const Utf8Character character = ReadUtf8(bytes.subspan(at));
        if (character.Length == 0) return {at, character.Cut};
        at += character.Length;
    }
    return {at, false};
}

std::size_t FirstBeyondAscii(std::span<const std::uint8_t> bytes) {
    std::size_t at = 0;
    while (bytes.size() - at >= wordBytes && WordIsAscii(bytes.data() + at)) at += wordBytes;
    while (at < bytes.size() && bytes[at] < 0x80) ++at;
    return at;
}

void AppendUtf8(std::string& out, char32_t code) {
    const auto tail = [&](int shift) {
        out.push_back(static_cast<char>(0x80U | ((code >> shift) & 0x3FU)));
    };
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0U | (code >> 6)));
        tail(0);
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0U | (code >> 12)));
        tail(6);
        tail(0);
    } else {
        out.push_back(static_cast<char>(0xF0U | (code >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace quorvale
