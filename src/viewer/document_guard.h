#pragma once

#include <QObject>
#include <cstdint>

namespace quorvale {

class QuorvaleBoxWidget;

/// Watches over the file and the corrections that one control shows: asks before a commit
/// overwrites what another program has written meanwhile, and before corrections that cannot be
/// saved are left behind. What is recorded is saved within a second.
class DocumentGuard final : public QObject {
    Q_OBJECT

public:
    /// Belongs to the control.
    explicit DocumentGuard(QuorvaleBoxWidget& control);

    /// Saves the corrections beside the file. Where that fails the user decides; false: the control
    /// must stay open.
    bool mayClose();

    /// Saves them where nobody can be asked; what went wrong, or the empty text.
    QString saveFailure();

signals:
    /// The user wants to see the file as it is on the disk now.
    void reloadWanted();
    /// For the status bar.
    void told(const QString& message);

private:
    bool mayCommit();
    bool mayDropUnplaced();
    bool mayReplace();
    bool mayWriteAnew(const QString& fileName);
    bool keepJournal();
    void saveRecorded();

    QuorvaleBoxWidget& control_;
    /// The last attempt failed, and the user was told so.
    bool toldFailure_ = false;
    /// What the corrections were then: there is no sense in trying the same over and over.
    std::uint64_t failedAt_ = 0;
};

}  // namespace quorvale
