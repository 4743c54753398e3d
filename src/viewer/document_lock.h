#pragma once

#include <QLockFile>
#include <QString>
#include <memory>

namespace quorvale {

/// Corrections of one file in two viewers would overwrite one another's journal: the first viewer
/// that opens a file takes its lock, and others show the file without offering to correct it. The
/// lock of a viewer that was killed counts for nothing.
class DocumentLock {
public:
    /// Takes the lock of the file, in whatever way it is named, or finds it taken.
    explicit DocumentLock(const QString& fileName);

    bool isOurs() const { return lock_->isLocked(); }

private:
    std::unique_ptr<QLockFile> lock_;
};

}  // namespace quorvale
