#pragma once

#include <string>
#include <string_view>

namespace quorvale {

/// The bytes of a name: UTF-8, where a lone surrogate U+DC80 to U+DCFF stands for the byte 0x80 to
/// 0xFF. What stands for no byte makes the name one that no file can have, and that is for the
/// system to say.
std::string PathOf(std::u16string_view name);

/// The name of a path; `PathOf` gives back the very bytes.
std::u16string NameOf(std::string_view path);

/// A path as its folder, "." for none, and the last name in it.
struct SplitPath {
    std::string Folder;
    std::string Base;
};

SplitPath Split(std::string_view path);

}  // namespace quorvale
