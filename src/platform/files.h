#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/file_digest.h"

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

/// Stands for "done" where there is nothing else to say.
struct Done {};

/// A new content for a document file, which makes the journal beside it void.
struct Replacement {
    std::u16string Document;
    /// Empty when there is no journal that the replacement makes void.
    std::u16string Journal;
    /// What the document file held when it was loaded.
    FileDigest Loaded;
    std::string_view NewBytes;
};

/// What stands on disk of a journal.
enum class JournalStanding {
    InForce,  ///< it belongs to the document file as it is, or there is none
    Spent,    ///< its corrections are in the document file already, though it could not be removed
};

/// Files that can be read. Names are literal: no pattern, no expansion. A relative name means the
/// current directory.
class ReadableFiles {
public:
    virtual ~ReadableFiles() = default;

    /// Fails for a missing name, for anything that is not a regular file (a directory, a FIFO, a
    /// device: opening them never waits) and without permission.
    virtual FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) = 0;
};

/// The files of the outside world. Whatever writes builds the new content beside the old one and
/// puts it in place whole: after a failure, or a power cut, a name holds the old bytes or the new
/// ones.
class FileSystem : public ReadableFiles {
public:
    /// Fails when it cannot be known.
    virtual FileResult<bool> Exists(std::u16string_view name) = 0;

    /// The name that means the same file when the current directory has changed.
    virtual std::u16string AbsoluteName(std::u16string_view name) = 0;

    /// The journal's bytes. Null when there is nothing that could be read as one: no such name, or
    /// no regular file (a link counts as none), and whatever is there may be replaced. Fails when
    /// there is a journal that cannot be read: it may be good, and is neither to be deleted nor
    /// overwritten.
    virtual FileResult<std::unique_ptr<ReadStream>> OpenJournalForReading(std::u16string_view name);

    /// Writes a journal: never more readable than the document beside it.
    virtual FileResult<Done> SaveJournal(std::u16string_view journal, std::u16string_view document,
                                         std::string_view bytes) = 0;

    /// Removes a journal; one that is not there is no failure. A read-only one goes with `force`
    /// only.
    virtual FileResult<Done> DeleteJournal(std::u16string_view journal, bool force) = 0;

    /// Gives the document file its new content. When it fails, calling again is safe. Until
    /// `RemoveSpentJournal` the journal stays, and whoever asks `Recover` learns that it is spent.
    virtual FileResult<Done> ReplaceDocument(const Replacement& replacement) = 0;

    /// After a replacement: removes the journal that was in force before it.
    virtual FileResult<Done> RemoveSpentJournal(const Replacement& replacement) = 0;

    /// Before a document and its journal are read: ends what an earlier replacement, here or in a
    /// process that was killed, has left unfinished, in the document file too. When it fails, the
    /// journal is as one that cannot be read: neither used, deleted nor overwritten.
    virtual FileResult<JournalStanding> Recover(std::u16string_view document,
                                                std::u16string_view journal) = 0;
};

}  // namespace quorvale
