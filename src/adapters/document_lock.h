#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/export.h"

namespace quorvale {

struct PosixContext;

/// Two programs that correct one file would overwrite one another's journal: whoever works on a
/// file takes its lock, and others leave its corrections alone. The lock holds between the user's
/// own programs, and that of a program that was killed counts for nothing.
class QUORVALE_CORE_EXPORT DocumentLock {
public:
    /// Takes the lock of the file, in whatever way it is named, or finds it taken. The file itself
    /// need not be there. Never fails: a lock that cannot be had is not ours.
    explicit DocumentLock(std::u16string_view fileName);
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;
    ~DocumentLock();

    /// Until this object ends.
    bool IsOurs() const { return held_ != nullptr; }
    /// Somebody else has it. Otherwise, when it is not ours, `WhyNot` says what stood in the way.
    bool IsTaken() const { return taken_; }
    /// In words for a log; empty when the lock is ours or somebody else has it.
    const std::string& WhyNot() const { return whyNot_; }

private:
    struct Held;

    void Take(std::u16string_view fileName);

    std::unique_ptr<PosixContext> context_;
    std::unique_ptr<Held> held_;
    bool taken_ = false;
    std::string whyNot_;
};

}  // namespace quorvale
