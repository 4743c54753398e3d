#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/export.h"
#include "platform/file_digest.h"
#include "platform/files.h"

namespace quorvale {

class ControlParts;

/// What a host may know and do about the corrections of the shown file, beyond the control's
/// members. It lives as long as its control.
class QUORVALE_CORE_EXPORT HostCorrections {
public:
    /// For the control itself, which makes its own.
    explicit HostCorrections(ControlParts& parts) : parts_(parts) {}

    /// How many corrections are not yet in the file; 0 without a file.
    std::int32_t Pending() const;

    /// How many of them a commit cannot do justice to: those that reach behind the end of a file
    /// that became shorter, overlap others, do not say where they belong, or hold more than a text.
    /// It drops them, or part of them.
    std::int32_t WithoutPlace() const;

    /// Rises with every change of the corrections, and when another file comes: for a host that
    /// looks now and then whether what it shows of them still holds.
    std::uint64_t Changes() const;

    /// A correction: so many lines from the first on will be replaced by these.
    struct Correction {
        std::int32_t FirstLine = 0;         ///< counted from 1
        std::int32_t LineCount = 0;         ///< 0 where lines are inserted in front of it
        std::vector<std::u16string> Lines;  ///< without line breaks; none deletes
    };

    /// The correction that covers a line; none for any other line.
    std::optional<Correction> Of(std::int32_t line) const;

    /// Records an open editor and saves the corrections beside the file, as closing does, and goes
    /// on: for a host that has to know whether closing will succeed. File error when they cannot
    /// be saved; they are all still there.
    void Save();

    /// Saves what is recorded by now, where that is not what lies beside the file; an open editor
    /// stays open with its text. For a host that saves now and then. File error when they cannot be
    /// saved; they are all still there.
    void SaveRecorded();

    /// Why the corrections that lie beside the file could not be read. They stay as they are, and
    /// new ones can be neither saved nor committed.
    std::optional<FileFailure> Unreadable() const;

    /// The shown file by the absolute name under which it was read; empty without a file.
    std::u16string FilePath() const;
    /// The digest of the bytes that the file had when it was read: tells whether it is still the
    /// same. The digest of nothing without a file.
    FileDigest LoadedDigest() const;

    /// Asked before a commit, when there is something to commit; false gives it up. It may show
    /// messages, load another file or destroy the control.
    std::function<bool()> BeforeCommit;

    /// What the host answers.
    bool MayCommit() const;

    // What the user can do with corrections, for a host's own menus and keys. None of these throws:
    // what fails is shown to the user where the control's own menu shows it, and the answer is
    // false.

    /// Opens the editor over the selected rows, or the caret's, as F2 does; whether it is open now.
    bool Edit();
    /// Takes back the correction that covers a line, wherever the caret is; what is in an open
    /// editor is dropped, and the editor closes. False where nothing is corrected: nothing happens.
    bool Undo(std::int32_t line);
    /// Asks the user, then takes back all corrections and drops what is in an open editor. Whether
    /// none is left.
    bool UndoAll();
    /// Records an open editor, asks `BeforeCommit` and writes the corrections into the file.
    /// Whether none is left to be written; without any it is true at once.
    bool Commit();
    /// Moves the caret to the first line of the nearest correction behind the caret's line; false
    /// when there is none. A walk with it ends: the caret goes further with every step.
    bool Next();
    /// The same with the nearest one in front of it.
    bool Previous();
    /// Called when the user wants more lines in the editor than the host's options allow. It may do
    /// anything.
    std::function<void()> TooMuchToEdit;

    /// Calls it.
    void TellTooMuchToEdit() const;

private:
    bool HasNone() const;
    bool Walk(std::int32_t direction);

    ControlParts& parts_;
};

}  // namespace quorvale
