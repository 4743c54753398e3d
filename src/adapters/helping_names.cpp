#include "adapters/helping_names.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ctime>

#include "platform/file_digest.h"

namespace quorvale {

namespace {

constexpr std::string_view prefix = ".qbx-";
constexpr std::size_t randomLength = 32;

std::string Now() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm parts{};
    gmtime_r(&now, &parts);
    char text[32] = {};
    const std::size_t length = std::strftime(text, sizeof text, "%Y%m%dT%H%M%SZ", &parts);
    return {text, length};
}

}  // namespace

std::string NameTag(std::string_view base) {
    std::uint64_t hash = DigestOf(base).High;
    std::string tag(16, '0');
    for (auto digit = tag.rbegin(); digit != tag.rend(); ++digit, hash >>= 4) {
        *digit = "0123456789abcdef"[hash & 15];
    }
    return tag;
}

std::string TemporaryName(PosixContext& context, const std::string& tag) {
    return std::string(prefix) + tag + "-" + RandomName(context);
}

bool IsTemporaryName(std::string_view name, const std::string& tag) {
    const std::string start = std::string(prefix) + tag + "-";
    if (!name.starts_with(start) || name.size() != start.size() + randomLength) return false;
    name.remove_prefix(start.size());
    return name.find_first_not_of("0123456789abcdef") == name.npos;
}

std::string CommitRecordName(const std::string& tag) {
    return std::string(prefix) + tag + ".commit";
}

std::string DisplacedName(PosixContext& context) {
    return std::string(prefix) + "displaced-" + Now() + "-" + RandomName(context);
}

bool IsDisplacedName(std::string_view name) {
    return name.starts_with(std::string(prefix) + "displaced-");
}

std::string RedoRecordName(PosixContext& context) {
    return RandomName(context) + std::string(redoRecordEnding);
}

}  // namespace quorvale
