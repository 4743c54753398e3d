#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvale {

/// The entry of a list of files that means the document in memory, not a file of that name.
inline constexpr std::u16string_view InMemory = u"*";

/// Takes the names off a list, one by one: each up to the next CR. What a CR ends with has no empty
/// name behind it; a line feed is part of the name it stands in.
class FileList {
public:
    explicit FileList(std::u16string names) : names_(std::move(names)) {}

    /// How many names there are in all.
    std::size_t Count() const;

    /// The next name; nothing behind the last one.
    std::optional<std::u16string> Next();

private:
    std::u16string names_;
    std::size_t at_ = 0;
};

/// The name of a file without its folder.
std::u16string FileNamePart(std::u16string_view path);

}  // namespace quorvale
