#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <source_location>
#include <string>
#include <string_view>

namespace quorvale {

/// What must hold for every input; otherwise the fuzzer has found something.
inline void Require(bool holds,
                    const std::source_location& where = std::source_location::current()) {
    if (holds) return;
    std::fprintf(stderr, "line %u does not hold\n", static_cast<unsigned>(where.line()));
    std::abort();
}

/// Takes small numbers and texts off a fuzzer's input; when it is used up everything is 0 and
/// empty.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : bytes_(reinterpret_cast<const char*>(data), size) {}

    bool IsUsedUp() const { return bytes_.empty(); }

    int Number(int below) {
        if (bytes_.empty()) return 0;
        const auto byte = static_cast<std::uint8_t>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte % below;
    }

    std::string Bytes(int most) {
        const std::string taken(bytes_.substr(0, static_cast<std::size_t>(most)));
        bytes_.remove_prefix(taken.size());
        return taken;
    }

private:
    std::string_view bytes_;
};

}  // namespace quorvale
