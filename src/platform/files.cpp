#include "platform/files.h"

namespace quorvale {

FileResult<std::unique_ptr<ReadStream>> FileSystem::OpenJournalForReading(
    std::u16string_view name) {
    auto exists = Exists(name);
    if (!exists) return exists.Failure();
    if (!*exists) return std::unique_ptr<ReadStream>();
    return OpenForReading(name);
}

bool Holds(ReadableFiles& files, std::u16string_view name, const FileDigest& digest) {
    // It stays in the processor's cache between reading and looking.
    constexpr std::size_t pieceSize = std::size_t{1} << 18;
    auto stream = files.OpenForReading(name);
    if (!stream || *stream == nullptr || (*stream)->Size() != digest.Size) return false;
    DigestBuilder builder;
    const auto piece = std::make_unique_for_overwrite<std::byte[]>(pieceSize);
    for (;;) {
        auto size = (*stream)->Read(piece.get(), pieceSize);
        if (!size) return false;
        if (*size == 0) return builder.Digest() == digest;
        builder.Add({reinterpret_cast<const char*>(piece.get()), *size});
    }
}

}  // namespace quorvale
