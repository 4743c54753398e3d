#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "document/text_loading.h"
#include "platform/memory_files.h"

namespace quorvale {

inline constexpr std::int32_t block = TextStore::BlockUnits;
inline constexpr std::int32_t farOut = std::numeric_limits<std::int32_t>::max();

/// A stream that hands out less than is asked for, or not what its size promised.
class OddStream final : public ReadStream {
public:
    OddStream(std::string bytes, std::uint64_t size, std::size_t most)
        : bytes_(std::move(bytes)), size_(size), most_(most) {}

    std::uint64_t Size() const override { return size_; }

    FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
        const std::size_t size = std::min({count, most_, bytes_.size() - at_});
        std::memcpy(into, bytes_.data() + at_, size);
        at_ += size;
        return size;
    }

private:
    std::string bytes_;
    std::uint64_t size_;
    std::size_t most_;
    std::size_t at_ = 0;
};

inline LoadedText Load(const std::string& bytes, Encoding encoding = Encoding::SingleByte) {
    OddStream stream(bytes, bytes.size(), bytes.size() + 1);
    PlainMemory memory;
    return ReadText(stream, encoding, memory);
}

inline std::u16string All(const LoadedText& loaded) { return loaded.Text.Mid(1, farOut); }

inline std::vector<std::int32_t> Starts(const LoadedText& loaded) {
    std::vector<std::int32_t> starts;
    for (std::int32_t i = 1; i <= loaded.Starts.Count(); ++i) starts.push_back(loaded.Starts[i]);
    return starts;
}

/// Which blocks are wide: "nnw" for two narrow ones and a wide one.
inline std::string BlocksOf(const TextStore& text) {
    std::string blocks;
    for (std::int32_t first = 1; first <= text.Length(); first += block) {
        text.VisitSpans(first, block,
                        [&](auto units) { blocks += sizeof(units[0]) == 1 ? 'n' : 'w'; });
    }
    return blocks;
}

}  // namespace quorvale
