#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

#include "adapters/posix_calls.h"
#include "platform/byte_spans.h"
#include "platform/file_digest.h"

namespace quorvale {

using FileStatus = struct stat;

/// Runs a system call again when a signal interrupts it; a call that is interrupted over and over
/// fails in the end.
template <class Call>
auto Uninterrupted(Call call) {
    constexpr int mostInterruptions = 1000;
    auto result = call();
    for (int i = 0; result == -1 && errno == EINTR && i < mostInterruptions; ++i) result = call();
    return result;
}

/// Is it the same file, and has nobody written into it in between?
bool SameUntouched(const FileStatus& a, const FileStatus& b);
bool SameFile(const FileStatus& a, const FileStatus& b);

/// An open file. Every function throws SystemError when it cannot do its work.
class PosixFile {
public:
    PosixFile(PosixCalls& calls, int descriptor) : calls_(&calls), descriptor_(descriptor) {}
    PosixFile(PosixFile&& other) noexcept;
    PosixFile& operator=(PosixFile&& other) noexcept;
    ~PosixFile();

    PosixCalls& Calls() const { return *calls_; }
    int Descriptor() const { return descriptor_; }

    FileStatus Status() const;
    /// Fewer than `count` bytes only at the end of the file.
    std::size_t Read(char* into, std::size_t count, std::uint64_t from) const;
    /// Hands over the bytes from `from` on, `size` of them or what there is, piece by piece.
    void ReadPieces(std::uint64_t from, std::uint64_t size,
                    const std::function<void(std::string_view)>& take) const;
    void Write(std::string_view bytes, std::uint64_t to) const;
    void WriteSpans(const ByteSpans& bytes, std::uint64_t to) const;
    /// Finds room before anything is written; where the system cannot, writing will tell.
    void Reserve(std::uint64_t size) const;
    void Truncate(std::uint64_t size) const;
    /// Never tried a second time: after a failure the system forgets what it could not write.
    void Sync() const;
    /// Some systems tell only here that writing has failed.
    void Close();
    /// False when somebody else holds the lock. Where there are no locks, it is ours.
    bool Lock() const;
    /// A second descriptor, which keeps the lock when the first is closed.
    PosixFile Duplicate() const;
    /// Of the whole content.
    FileDigest Digest() const;

private:
    PosixCalls* calls_;
    int descriptor_;
};

}  // namespace quorvale
