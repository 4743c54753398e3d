#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace quorvale {

/// What failed in the outside world: which operation, on which name, and why. All three are for
/// people to read; nothing is decided by their text.
struct FileFailure {
    std::string Operation;
    std::u16string Name;
    std::string Reason;
};

/// A value, or what failed instead.
template <class T>
class FileResult {
public:
    FileResult(T value) : value_(std::move(value)) {}
    FileResult(FileFailure failure) : failure_(std::move(failure)) {}

    explicit operator bool() const { return value_.has_value(); }
    T& operator*() { return *value_; }
    T* operator->() { return &*value_; }
    const FileFailure& Failure() const { return *failure_; }

private:
    std::optional<T> value_;
    std::optional<FileFailure> failure_;
};

/// One regular file open for reading, from its first byte. Closed when it goes.
class ReadStream {
public:
    virtual ~ReadStream() = default;

    /// The file's size in bytes when it was opened. A file may grow or shrink while it is read.
    virtual std::uint64_t Size() const = 0;

    /// Reads up to `count` bytes; fewer only at the end of the file, 0 there.
    virtual FileResult<std::size_t> Read(std::byte* into, std::size_t count) = 0;
};

/// The files of the outside world. Names are literal: no pattern, no expansion. A relative name
/// means the current directory.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Fails for a missing name, for anything that is not a regular file (a directory, a FIFO, a
    /// device: opening them never waits) and without permission.
    virtual FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) = 0;
};

/// Files kept in memory: for tests and for hosts' tests.
class MemoryFiles : public FileSystem {
public:
    void Put(std::u16string name, std::string bytes);
    void Remove(std::u16string_view name);

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override;

private:
    std::map<std::u16string, std::shared_ptr<const std::string>, std::less<>> files_;
};

/// Wraps another file system and lets chosen calls fail, each with a reason of its own.
class FailingFiles final : public FileSystem {
public:
    explicit FailingFiles(FileSystem& real) : real_(real) {}

    bool FailOpen = false;
    /// The number of the read call, from 1, that fails in every stream opened from now on; 0: none.
    int FailRead = 0;

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override;

private:
    FileSystem& real_;
};

}  // namespace quorvale
