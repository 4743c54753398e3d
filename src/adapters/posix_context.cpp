#include "adapters/posix_context.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>

#include "adapters/posix_file.h"
#include "adapters/posix_names.h"
#include "adapters/system_error.h"

namespace quorvale {

void PosixContext::Note(FileNotice::Kind what, std::string_view name, std::string_view keptAs) {
    Notices.push_back({what, NameOf(name), NameOf(keptAs)});
}

std::string RandomName(PosixContext& context) {
    std::array<std::uint8_t, 16> bytes{};
    const ssize_t got =
        Uninterrupted([&] { return context.Calls.Random(bytes.data(), bytes.size()); });
    if (got != static_cast<ssize_t>(bytes.size())) {
        throw SystemError("name a temporary file", got < 0 ? errno : EIO);
    }
    std::string name;
    for (const std::uint8_t byte : bytes) {
        name += "0123456789abcdef"[byte >> 4];
        name += "0123456789abcdef"[byte & 15];
    }
    return name;
}

}  // namespace quorvale
