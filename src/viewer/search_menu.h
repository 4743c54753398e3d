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
    /// These lead out of the control: to other files, and back to the list that led there.
    void filesWanted();
    void neighbourWanted(bool next);
    void lastListWanted();

protected:
    /// Escape leads from the line box to the text: the control leaves that key to its host.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void goTo(QWidget* box);
    void list(std::size_t (SearchExtras::*search)());
    void findAgain(FindDirection direction);
    void tell(FindOutcome outcome);

    QPointer<QuorvaleBoxWidget> control_;
};

}  // namespace quorvale
