#include "document/utf8_decoding.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "base/utf8.h"

namespace quorvale {

namespace {

constexpr std::size_t runBytes = 32;
using Run = std::array<std::uint8_t, runBytes>;

/// Reads a run; true when it is all ASCII.
bool ReadAsciiRun(Run& run, const std::uint8_t* from) {
    std::memcpy(run.data(), from, runBytes);
    std::array<std::uint64_t, runBytes / sizeof(std::uint64_t)> words;
    std::memcpy(words.data(), run.data(), runBytes);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words) all |= word;
    return (all & 0x8080808080808080U) == 0;
}

/// Copies whole ASCII runs to `out` as long as there are any; returns how many units.
template <class Unit>
std::size_t CopyAsciiRuns(std::span<const std::uint8_t> from, Unit* out, std::size_t room) {
    const std::size_t limit = std::min(from.size(), room);
    std::size_t done = 0;
    // The run is read whole before any of it is written: the two places may overlap.
    for (Run run; limit - done >= runBytes && ReadAsciiRun(run, from.data() + done);
         done += runBytes) {
        std::copy(run.begin(), run.end(), out + done);
    }
    return done;
}

}  // namespace

std::size_t Utf8Decoder::DecodeNarrow(std::uint8_t* out, std::size_t room) {
    std::size_t done = 0;
    if (pendingLow_ != 0) return done;
    while (done < room && !rest_.empty()) {
        const std::size_t run = CopyAsciiRuns(rest_, out + done, room - done);
        rest_ = rest_.subspan(run);
        done += run;
        // What follows holds a character beyond ASCII or is short.
        for (std::size_t i = 0; i < runBytes && done < room && !rest_.empty(); ++i) {
            const Utf8Character character = ReadUtf8(rest_);
            if (character.Length == 0 || character.Code > 0xFF) return done;
            rest_ = rest_.subspan(character.Length);
            out[done++] = static_cast<std::uint8_t>(character.Code);
        }
    }
    return done;
}

std::size_t Utf8Decoder::DecodeWide(char16_t* out, std::size_t room) {
    std::size_t done = 0;
    if (pendingLow_ != 0 && room > 0) out[done++] = std::exchange(pendingLow_, u'\0');
    while (done < room && !rest_.empty()) {
        const std::size_t run = CopyAsciiRuns(rest_, out + done, room - done);
        rest_ = rest_.subspan(run);
        done += run;
        for (std::size_t i = 0; i < runBytes && done < room && !rest_.empty(); ++i) {
            const Utf8Character character = ReadUtf8(rest_);
            if (character.Length == 0) {
                out[done++] = static_cast<char16_t>(0xDC00U + rest_[0]);
            } else if (character.Code < 0x10000) {
                out[done++] = static_cast<char16_t>(character.Code);
            } else {
                out[done++] = HighSurrogate(character.Code);
                pendingLow_ = LowSurrogate(character.Code);
                if (done < room) out[done++] = std::exchange(pendingLow_, u'\0');
            }
            rest_ = rest_.subspan(std::max(character.Length, 1U));
        }
    }
    return done;
}

}  // namespace quorvale
