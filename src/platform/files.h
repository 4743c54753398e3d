#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/export.h"
#include "platform/byte_spans.h"
#include "platform/file_digest.h"

namespace quorvale {

/// What failed in the outside world: which operation, on which name, and why. All three are for
/// people to read; nothing is decided by their text.
struct FileFailure {
    std::string Operation;  ///< a verb: "open", "write"
    std::u16string Name;    ///< of the file it was about
    std::string Reason;     ///< as the system tells it
};

/// A value, or what failed instead.
template <class T>
class FileResult {
public:
    /// What was asked for.
    FileResult(T value) : value_(std::move(value)) {}
    /// Why there is nothing.
    FileResult(FileFailure failure) : failure_(std::move(failure)) {}

    /// Whether there is a value.
    explicit operator bool() const { return value_.has_value(); }
    /// The value; to be asked for only where there is one.
    T& operator*() { return *value_; }
    /// Into the value, where there is one.
    T* operator->() { return &*value_; }
    /// What failed; to be asked for only where there is no value.
    const FileFailure& Failure() const { return *failure_; }

private:
    std::optional<T> value_;
    std::optional<FileFailure> failure_;
};

/// One regular file open for reading, from its first byte. Closed when it goes.
class QUORVALE_CORE_EXPORT ReadStream {
public:
    virtual ~ReadStream() = default;

    /// The file's size in bytes when it was opened. A file may grow or shrink while it is read.
    virtual std::uint64_t Size() const = 0;

    /// Reads up to `count` bytes; fewer only at the end of the file, 0 there.
    virtual FileResult<std::size_t> Read(std::byte* into, std::size_t count) = 0;
};

/// Stands for "done" where there is nothing else to say.
struct Done {};

/// A journal's name, and what its holder knows of the file there.
struct JournalPlace {
    std::u16string Name;  ///< the absolute name
    /// The file beside it. Empty for the journal that belongs to none: whoever comes last
    /// overwrites that one.
    std::u16string Document;
    /// The versions that the holder has read there or written: others are somebody else's and kept.
    std::vector<FileDigest> Known;
    /// The document when it was loaded: saving fails where it and a known journal went since.
    std::optional<LateDigest> Loaded = std::nullopt;
};

/// A new content for a document file, which makes the journal beside it void.
struct Replacement {
    std::u16string Document;  ///< the name of the file
    /// Empty when there is no journal that the replacement makes void.
    std::u16string Journal;
    /// What the document file held when it was loaded; to be asked for before the call returns.
    LateDigest Loaded;
    ByteSpans NewBytes;  ///< the whole new content
    /// The versions of the journal that the corrections come from, as in `JournalPlace`.
    std::vector<FileDigest> KnownJournals = {};
};

/// What stands on disk of a journal.
enum class JournalStanding {
    InForce,  ///< it belongs to the document file as it is, or there is none
    Spent,    ///< its corrections are in the document file already, though it could not be removed
};

/// Files that can be read. Names are literal: no pattern, no expansion. A relative name means the
/// current directory.
class QUORVALE_CORE_EXPORT ReadableFiles {
public:
    virtual ~ReadableFiles() = default;

    /// Fails for a missing name, for anything that is not a regular file (a directory, a FIFO, a
    /// device: opening them never waits) and without permission.
    virtual FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) = 0;
};

/// Whether the file holds just these bytes. One that cannot be read, or is no file any more, holds
/// others.
QUORVALE_CORE_EXPORT bool Holds(ReadableFiles& files, std::u16string_view name,
                                const FileDigest& digest);

/// The files of the outside world. Whatever writes builds the new content beside the old one and
/// puts it in place whole: after a failure, or a power cut, a name holds the old bytes or the new
/// ones.
class QUORVALE_CORE_EXPORT FileSystem : public ReadableFiles {
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

    /// Writes a journal: never more readable than the document beside it. A version that is not
    /// known is moved aside before.
    virtual FileResult<Done> SaveJournal(const JournalPlace& journal, std::string_view bytes) = 0;

    /// Removes a journal; one that is not there is no failure. A read-only one goes with `force`
    /// only. A version that is not known is moved aside instead.
    virtual FileResult<Done> DeleteJournal(const JournalPlace& journal, bool force) = 0;

    /// Gives the document file its new content. When it fails, calling again is safe. Until
    /// `RemoveSpentJournal` the journal stays, and whoever asks `Recover` learns that it is spent.
    virtual FileResult<Done> ReplaceDocument(const Replacement& replacement) = 0;

    /// After a replacement: removes the journal that was in force before it, and moves one aside
    /// that is not known.
    virtual FileResult<Done> RemoveSpentJournal(const Replacement& replacement) = 0;

    /// Before a document and its journal are read: ends what an earlier replacement, here or in a
    /// process that was killed, has left unfinished, in the document file too. When it fails, the
    /// journal is as one that cannot be read: neither used, deleted nor overwritten.
    virtual FileResult<JournalStanding> Recover(std::u16string_view document,
                                                std::u16string_view journal) = 0;
};

}  // namespace quorvale
