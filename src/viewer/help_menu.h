#pragma once

#include <QDialog>
#include <QList>
#include <QObject>
#include <QPointer>

class QMainWindow;
class QMenu;

namespace quorvale {

/// The Help menu: the keys of everything that the window's menus offer, and what this program is.
class HelpMenu final : public QObject {
    Q_OBJECT

public:
    /// Tells of the keys of this window.
    HelpMenu(QMenu& menu, QMainWindow& window);
    /// Its windows go along: the next ones may speak another language.
    ~HelpMenu() override;

private:
    void showKeys();
    void showAbout();
    void show(QDialog* dialog);

    QMainWindow& window_;
    QList<QPointer<QDialog>> shown_;
};

}  // namespace quorvale
