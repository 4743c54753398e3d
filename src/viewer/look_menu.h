#pragma once

#include <QFont>
#include <QObject>
#include <QPointer>

#include "qt/quorvale_box_widget.h"

class QAction;
class QMenu;

namespace quorvale {

/// The entries of the View menu for how a document looks: boundary lines, toolbar, font and zoom.
/// What is chosen holds for every file that is opened, and in the next run.
class LookMenu final : public QObject {
    Q_OBJECT

public:
    explicit LookMenu(QMenu& menu);

    /// A new control gets the look that was chosen, and is followed from now on.
    void setControl(QuorvaleBoxWidget& control);

    /// The look of the menu that was there before, whatever is kept by now.
    void takeOver(const LookMenu& former);

    /// The font that the rows are shown in, zoomed.
    QFont shownFont() const;

signals:
    /// For the status bar.
    void told(const QString& message);

private:
    void addParts(QMenu& menu);
    void addText(QMenu& menu);
    void showToolbar(bool show);
    void followToolbar();
    void chooseFont();
    void zoomBy(int points);
    void zoomTo(int points);
    void showFont();

    QPointer<QuorvaleBoxWidget> control_;
    QAction* grid_ = nullptr;
    QAction* toolbar_ = nullptr;
    /// What was kept last.
    bool toolbarShown_ = true;
    QFont font_;
    /// Points more than the font's own.
    int zoom_ = 0;
};

}  // namespace quorvale
