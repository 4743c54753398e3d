#include "adapters/posix_file.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

#include "adapters/system_error.h"

namespace quorvale {

namespace {

constexpr std::size_t pieceSize = std::size_t{1} << 20;
constexpr std::size_t writtenAtOnce = std::size_t{4} << 20;

/// Sizes come from files and from memory: both fit.
off_t Offset(std::uint64_t at) { return static_cast<off_t>(at); }

bool SameTime(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

}  // namespace

bool SameFile(const FileStatus& a, const FileStatus& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool SameUntouched(const FileStatus& a, const FileStatus& b) {
    return SameFile(a, b) && a.st_size == b.st_size && SameTime(a.st_mtim, b.st_mtim);
}

PosixFile::PosixFile(PosixFile&& other) noexcept
    : calls_(other.calls_), descriptor_(std::exchange(other.descriptor_, -1)) {}

PosixFile& PosixFile::operator=(PosixFile&& other) noexcept {
    std::swap(calls_, other.calls_);
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

PosixFile::~PosixFile() {
    if (descriptor_ >= 0) calls_->Close(descriptor_);
}

FileStatus PosixFile::Status() const {
    FileStatus status{};
    if (Uninterrupted([&] { return calls_->Status(descriptor_, status); }) != 0) {
        throw SystemError("examine", errno);
    }
    return status;
}

std::size_t PosixFile::Read(char* into, std::size_t count, std::uint64_t from) const {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = Uninterrupted([&] {
            return calls_->Read(descriptor_, into + done, count - done, Offset(from + done));
        });
        if (got < 0) throw SystemError("read", errno);
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

void PosixFile::ReadPieces(std::uint64_t from, std::uint64_t size,
                           const std::function<void(std::string_view)>& take) const {
    // Not filled with zeros first: most files are small.
    const auto piece = std::make_unique_for_overwrite<char[]>(pieceSize);
    const std::uint64_t end = from + size;
    while (from < end) {
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(end - from, pieceSize));
        const std::size_t got = Read(piece.get(), wanted, from);
        take({piece.get(), got});
        if (got < wanted) return;
        from += got;
    }
}

void PosixFile::Write(std::string_view bytes, std::uint64_t to) const {
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, writtenAtOnce);
        const ssize_t put = Uninterrupted(
            [&] { return calls_->Write(descriptor_, piece.data(), piece.size(), Offset(to)); });
        if (put <= 0) throw SystemError("write", put < 0 ? errno : EIO);
        // With a large file the disk begins while the rest is still being handed over.
        const auto size = static_cast<std::size_t>(put);
        if (size == writtenAtOnce) calls_->StartWriting(descriptor_, Offset(to), put);
        to += size;
        bytes.remove_prefix(size);
    }
}

// One call to the system for many small spans, and a copy that stays in the processor's cache.
void PosixFile::WriteSpans(const ByteSpans& bytes, std::uint64_t to) const {
    if (bytes.Spans().size() == 1) return Write(bytes.Spans().front(), to);
    const auto piece =
        std::make_unique_for_overwrite<char[]>(std::min(writtenAtOnce, bytes.Size()));
    std::size_t filled = 0;
    for (std::string_view span : bytes.Spans()) {
        while (!span.empty()) {
            const std::size_t size = std::min(span.size(), writtenAtOnce - filled);
            std::copy_n(span.data(), size, piece.get() + filled);
            filled += size;
            span.remove_prefix(size);
            if (filled < writtenAtOnce) continue;
            Write({piece.get(), filled}, to);
            to += filled;
            filled = 0;
        }
    }
    Write({piece.get(), filled}, to);
}

void PosixFile::Reserve(std::uint64_t size) const {
    if (size == 0) return;
    if (Uninterrupted([&] { return calls_->Reserve(descriptor_, Offset(size)); }) == 0) return;
    if (errno == EOPNOTSUPP || errno == ENOSYS || errno == EINVAL) return;
    throw SystemError("find room", errno);
}

void PosixFile::Truncate(std::uint64_t size) const {
    if (Uninterrupted([&] { return calls_->Truncate(descriptor_, Offset(size)); }) != 0) {
        throw SystemError("cut to size", errno);
    }
}

void PosixFile::Sync() const {
    if (calls_->Sync(descriptor_) != 0) throw SystemError("write to the disk", errno);
}

void PosixFile::Close() {
    // An interrupted close has closed all the same.
    if (calls_->Close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) {
        throw SystemError("close", errno);
    }
}

bool PosixFile::Lock() const {
    return Uninterrupted([&] { return calls_->Lock(descriptor_); }) == 0 || errno != EWOULDBLOCK;
}

PosixFile PosixFile::Duplicate() const {
    const int descriptor = Uninterrupted([&] { return calls_->Duplicate(descriptor_); });
    if (descriptor < 0) throw SystemError("open", errno);
    return {*calls_, descriptor};
}

FileDigest PosixFile::Digest() const {
    DigestBuilder builder;
    ReadPieces(0, std::numeric_limits<off_t>::max(),
               [&builder](std::string_view piece) { builder.Add(piece); });
    return builder.Digest();
}

}  // namespace quorvale
