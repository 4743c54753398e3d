#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "adapters/folder.h"

namespace quorvale {

/// A new file of ours that is locked as long as it is in use, and gone again with this object
/// unless it is kept. The folder must outlive it.
class TemporaryFile {
public:
    /// Throws SystemError, with EEXIST when the name is taken.
    TemporaryFile(const Folder& folder, std::string name, mode_t mode);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::string& Name() const { return name_; }
    const PosixFile& File() const { return lock_ ? *lock_ : file_; }

    /// All bytes, with room looked for before.
    void Fill(const ByteSpans& bytes) const;
    /// On the disk, `size` bytes long, and closed to find out whether that went well. The lock
    /// stays, and the file can still be read.
    void Finish(std::uint64_t size);

    /// The name is somebody else's from now on.
    void Keep() { keep_ = true; }
    /// The name is to go with this object after all.
    void Discard() { keep_ = false; }

private:
    const Folder& folder_;
    std::string name_;
    PosixFile file_;
    std::optional<PosixFile> lock_;
    bool keep_ = false;
};

}  // namespace quorvale
