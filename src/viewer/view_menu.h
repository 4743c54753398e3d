#pragma once

#include <QActionGroup>
#include <QObject>

#include "viewer/line_folds.h"

class QMenu;

namespace quorvale {

class QuorvaleBoxWidget;

/// The View menu: folds and colours that help to read a file. All are off until the user asks for
/// them; then they hold for every file that is opened.
class ViewMenu final : public QObject {
    Q_OBJECT

public:
    ViewMenu(QMenu& menu, QuorvaleBoxWidget& control);

    /// A document was put in place: what is switched on is done to it.
    void applyToDocument();

signals:
    /// For the status bar.
    void told(const QString& message);

private:
    using FoldFinder = std::vector<FoldRange> (*)(const LineReader&, std::int32_t);

    QAction* addToggle(QMenu& menu, const QString& text);
    void addFolds(FoldFinder find);
    void fold();
    void colour();

    QuorvaleBoxWidget& control_;
    QActionGroup folds_;
    QAction* byIndentation_;
    QAction* byBlankLines_;
    QAction* bySeverity_;
};

}  // namespace quorvale
