#pragma once

#include <QObject>

class QMenu;

namespace quorvale {

/// The menu of the files that were opened last, numbered for the keyboard. It is filled each time
/// it opens: other viewers add to the same list.
class RecentFiles final : public QObject {
    Q_OBJECT

public:
    explicit RecentFiles(QMenu& menu);

    /// The file was opened: it comes first.
    static void add(const QString& fileName);

signals:
    void picked(const QString& fileName);
    /// A file is gone, and is gone from the list too.
    void missing(const QString& fileName);

private:
    void fill();
    void pick(const QString& fileName);

    QMenu& menu_;
};

}  // namespace quorvale
