#pragma once

#include <QObject>

namespace quorvale {

class QuorvaleBoxWidget;

/// Watches over the file and the corrections that one control shows: asks before a commit
/// overwrites what another program has written meanwhile, and before corrections that cannot be
/// saved are left behind.
class DocumentGuard final : public QObject {
    Q_OBJECT

public:
    /// Belongs to the control.
    explicit DocumentGuard(QuorvaleBoxWidget& control);

    /// Saves the corrections beside the file. Where that fails the user decides; false: the control
    /// must stay open.
    bool mayClose();

signals:
    /// The user wants to see the file as it is on the disk now.
    void reloadWanted();

private:
    bool mayCommit();
    bool mayDropUnplaced();
    bool mayReplace();
    QString saveFailure();

    QuorvaleBoxWidget& control_;
};

}  // namespace quorvale
