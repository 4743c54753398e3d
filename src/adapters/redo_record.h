#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "adapters/spent_journal.h"
#include "adapters/temporary_file.h"

namespace quorvale {

/// What the record of a protected write says. Behind it in the same file stand the old bytes and
/// the new ones: whatever becomes of the document, it can be made whole.
struct RedoRecord {
    std::string Path;
    std::uint64_t Device = 0;
    std::uint64_t Inode = 0;
    FileDigest Old;
    FileDigest New;
    RecordedJournal Journal;

    bool IsOf(const LocatedFile& document) const;
};

/// A record with its bytes.
struct StoredRedo {
    RedoRecord Record;
    /// Where in the file the old bytes begin; the new ones follow.
    std::uint64_t OldAt = 0;
    std::uint64_t NewAt() const { return OldAt + Record.Old.Size; }
};

/// Writes a record: the old bytes first, from the document, then the new ones, at last what makes
/// it valid. The record's `Old` is filled in on the way. Afterwards the file is finished.
StoredRedo WriteRedo(TemporaryFile& file, RedoRecord record, const PosixFile& document,
                     std::uint64_t oldSize, const ByteSpans& newBytes);

/// None when the record is torn: whoever wrote it did not touch the document.
std::optional<StoredRedo> ReadRedo(const PosixFile& file);

/// Are both contents in the file the ones that were written?
bool IsIntact(const PosixFile& file, const StoredRedo& redo);

/// What a document holds, seen in blocks that a disk writes as one.
enum class WriteProgress { Untouched, Partial, Complete, Foreign };
WriteProgress ProgressOf(const PosixFile& document, const PosixFile& file, const StoredRedo& redo);

}  // namespace quorvale
