#include "adapters/posix_names.h"

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/utf8.h"

namespace quorvale {

std::string PathOf(std::u16string_view name) {
    std::string path;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char16_t unit = name[i];
        if (IsHighSurrogate(unit) && i + 1 < name.size() && IsLowSurrogate(name[i + 1])) {
            AppendUtf8(path, FromSurrogates(unit, name[++i]));
        } else if (unit >= 0xDC80 && unit <= 0xDCFF) {
            path.push_back(static_cast<char>(unit - 0xDC00));
        } else {
            AppendUtf8(path, unit);
        }
    }
    return path;
}

std::u16string NameOf(std::string_view path) {
    std::u16string name;
    std::span<const std::uint8_t> rest(reinterpret_cast<const std::uint8_t*>(path.data()),
                                       path.size());
    while (!rest.empty()) {
        const Utf8Character character = ReadUtf8(rest);
        if (character.Length == 0) {
            name.push_back(static_cast<char16_t>(0xDC00 + rest[0]));
            rest = rest.subspan(1);
            continue;
        }
        if (character.Code >= 0x10000) {
            name.push_back(HighSurrogate(character.Code));
            name.push_back(LowSurrogate(character.Code));
        } else {
            name.push_back(static_cast<char16_t>(character.Code));
        }
        rest = rest.subspan(character.Length);
    }
    return name;
}

SplitPath Split(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == path.npos) return {".", std::string(path)};
    const std::string_view folder = path.substr(0, slash == 0 ? 1 : slash);
    return {std::string(folder), std::string(path.substr(slash + 1))};
}

}  // namespace quorvale
