#pragma once

#include <QActionGroup>
#include <QObject>
#include <QPointer>

#include "qt/quorvale_box_widget.h"
#include "viewer/line_folds.h"

class QAction;
class QMenu;

namespace quorvale {

/// The entries of the View menu for folds and colours that help to read a file. All are off until
/// the user asks for them; then they hold for every file that is opened, and in the next run.
class ViewMenu final : public QObject {
    Q_OBJECT

public:
    explicit ViewMenu(QMenu& menu);

    /// From now on the menu works on the document that this control shows.
    void setControl(QuorvaleBoxWidget& control);

    /// A document was put in place: what is switched on is done to it.
    void applyToDocument();

    /// The desktop's colours changed: text must stay readable.
    void recolour();

signals:
    /// For the status bar.
    void told(const QString& message);

private:
    using FoldFinder = std::vector<FoldRange> (*)(const LineReader&, std::int32_t);

    void addFolding(QMenu& menu);
    QAction* addToggle(QMenu& menu, const QString& text);
    void pickOfFolds(const char16_t* key);
    void toggleAtCaret();
    void keepFolds();
    void addFolds(FoldFinder find);
    void fold();
    void colour();

    QPointer<QuorvaleBoxWidget> control_;
    QActionGroup folds_;
    QAction* byIndentation_;
    QAction* byBlankLines_;
    QAction* bySeverity_;
};

}  // namespace quorvale
