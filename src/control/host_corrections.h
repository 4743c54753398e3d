#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_digest.h"
#include "platform/files.h"

namespace quorvale {

class ControlParts;

/// What a host may know and do about the corrections of the shown file, beyond the control's
/// members. It lives as long as its control.
class HostCorrections {
public:
    explicit HostCorrections(ControlParts& parts) : parts_(parts) {}

    /// How many corrections are not yet in the file; 0 without a file.
    std::int32_t Pending() const;

    /// How many of them a commit has no place for and drops: those that begin behind the end of a
    /// file that became shorter, overlap others, or do not say where they belong.
    std::int32_t WithoutPlace() const;

    /// Rises with every change of the corrections, and when another file comes: for a host that
    /// looks now and then whether what it shows of them still holds.
    std::uint64_t Changes() const;

    /// A correction: so many lines from the first on will be replaced by these.
    struct Correction {
        std::int32_t FirstLine = 0;
        std::int32_t LineCount = 0;
        std::vector<std::u16string> Lines;
    };

    /// The correction that covers a line; none for any other line.
    std::optional<Correction> Of(std::int32_t line) const;

    /// Records an open editor and saves the corrections beside the file, as closing does, and goes
    /// on: for a host that has to know whether closing will succeed. File error when they cannot
    /// be saved; they are all still there.
    void Save();

    /// Why the corrections that lie beside the file could not be read. They stay as they are, and
    /// new ones can be neither saved nor committed.
    std::optional<FileFailure> Unreadable() const;

    /// The shown file by the absolute name under which it was read, and the digest of the bytes it
    /// then had: tells whether it is still the same. Empty, and of nothing, without a file.
    std::u16string FilePath() const;
    FileDigest LoadedDigest() const;

    /// Asked before a commit, when there is something to commit; false gives it up. It may show
    /// messages, load another file or destroy the control.
    std::function<bool()> BeforeCommit;

    /// What the host answers.
    bool MayCommit() const;

private:
    ControlParts& parts_;
};

}  // namespace quorvale
