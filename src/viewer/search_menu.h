#pragma once

#include <QObject>
#include <QPointer>

#include "control/search_extras.h"
#include "qt/quorvale_box_widget.h"

class QMenu;

namespace quorvale {

/// The Search menu: the control's ways of finding with keys that work from everywhere in the
/// window. It works on the control of the file that is shown.
class SearchMenu final : public QObject {
    Q_OBJECT

public:
    explicit SearchMenu(QMenu& menu);

    void setControl(QuorvaleBoxWidget& control);

signals:
    /// For the status bar.
    void told(const QString& message);

private:
    void goTo(QWidget* box);
    void findAgain(FindDirection direction);
    void tell(FindOutcome outcome);
    void pickOfFind(std::size_t item);

    QPointer<QuorvaleBoxWidget> control_;
};

}  // namespace quorvale
