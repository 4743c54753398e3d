#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_digest.h"

namespace quorvale {

// How records are written: a title, any number of fields, and a digest of all that, so that one
// that was cut off or half written is known for what it is.

std::string EncodeFields(std::string_view title, const std::vector<std::string>& fields);

struct DecodedFields {
    std::vector<std::string> Fields;
    /// How many bytes they take; others may follow.
    std::size_t Size = 0;
};

/// None when the bytes do not begin with a whole record of that title.
std::optional<DecodedFields> DecodeFields(std::string_view title, std::string_view bytes);

/// Always of the same length.
std::string EncodeDigest(const FileDigest& digest);
std::optional<FileDigest> DecodeDigest(std::string_view text);

}  // namespace quorvale
