#include "adapters/record_fields.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace quorvale {

namespace {

constexpr std::size_t wordLength = 16;
constexpr std::size_t digestLength = 3 * wordLength;
/// Nothing that is recorded has more.
constexpr std::size_t mostFields = 32;

std::string EncodeWord(std::uint64_t word) {
    std::array<char, wordLength> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), word, 16).ptr;
    const std::string text(digits.data(), end);
    return std::string(wordLength - text.size(), '0') + text;
}

bool DecodeWord(std::string_view text, std::uint64_t& word) {
    const auto read = std::from_chars(text.data(), text.data() + text.size(), word, 16);
    return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

/// A field is its length, a colon, its bytes and a line feed.
bool TakeField(std::string_view& bytes, std::string& field) {
    std::size_t length = 0;
    const auto read = std::from_chars(bytes.data(), bytes.data() + bytes.size(), length);
    if (read.ec != std::errc()) return false;
    bytes.remove_prefix(static_cast<std::size_t>(read.ptr - bytes.data()));
    if (!bytes.starts_with(':') || bytes.size() < 2 || length > bytes.size() - 2) return false;
    if (bytes[length + 1] != '\n') return false;
    field = bytes.substr(1, length);
    bytes.remove_prefix(length + 2);
    return true;
}

}  // namespace

std::string EncodeDigest(const FileDigest& digest) {
    return EncodeWord(digest.Size) + EncodeWord(digest.High) + EncodeWord(digest.Low);
}

std::optional<FileDigest> DecodeDigest(std::string_view text) {
    FileDigest digest;
    if (text.size() != digestLength || !DecodeWord(text.substr(0, wordLength), digest.Size) ||
        !DecodeWord(text.substr(wordLength, wordLength), digest.High) ||
        !DecodeWord(text.substr(2 * wordLength), digest.Low)) {
        return std::nullopt;
    }
    return digest;
}

std::string EncodeFields(std::string_view title, const std::vector<std::string>& fields) {
    std::string bytes(title);
    bytes.append("\n").append(std::to_string(fields.size())).append("\n");
    for (const std::string& field : fields) {
        bytes.append(std::to_string(field.size())).append(":").append(field).append("\n");
    }
    return bytes + EncodeDigest(DigestOf(bytes)) + "\n";
}

std::optional<DecodedFields> DecodeFields(std::string_view title, std::string_view bytes) {
    std::string_view rest = bytes;
    if (!rest.starts_with(title)) return std::nullopt;
    rest.remove_prefix(title.size());
    if (!rest.starts_with('\n')) return std::nullopt;
    rest.remove_prefix(1);
    std::size_t count = 0;
    const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), count);
    if (read.ec != std::errc() || count > mostFields) return std::nullopt;
    rest.remove_prefix(static_cast<std::size_t>(read.ptr - rest.data()));
    if (!rest.starts_with('\n')) return std::nullopt;
    rest.remove_prefix(1);

    DecodedFields decoded;
    decoded.Fields.resize(count);
    for (std::string& field : decoded.Fields) {
        if (!TakeField(rest, field)) return std::nullopt;
    }
    const std::string_view covered = bytes.substr(0, bytes.size() - rest.size());
    if (rest.size() < digestLength + 1 || rest[digestLength] != '\n') return std::nullopt;
    if (DecodeDigest(rest.substr(0, digestLength)) != DigestOf(covered)) return std::nullopt;
    decoded.Size = covered.size() + digestLength + 1;
    return decoded;
}

}  // namespace quorvale
