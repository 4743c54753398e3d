#pragma once

#include <QObject>
#include <QPointer>
#include <memory>

#include "platform/list_view.h"
#include "state/search_state.h"

namespace quorvale {

class QuorvaleBoxWidget;
class ViewerWindow;

/// Closes the list of results, if there is one: it lies over the text, and would hide where a
/// command leads.
void hideResults(QuorvaleBoxWidget& control);

/// Where the results of one window lead. A result in another file opens in the window that shows
/// the file, or else in a window of its own; a window without a file shows it itself. From there
/// the keys for the next and the previous result go on with the list that led there.
class ResultWindows final : public QObject {
    Q_OBJECT

public:
    /// Belongs to the window.
    explicit ResultWindows(ViewerWindow& window);

    /// The window has another control.
    void setControl(QuorvaleBoxWidget& control);

public slots:
    void pickNeighbour(bool next);
    void showLastList();

private:
    void follow(const PickedPlace& place);
    void open(const PickedPlace& place);
    void arrive(ViewerWindow& target, const PickedPlace& place);
    ViewerWindow* newWindow(const QString& fileName);
    bool step(bool next);
    ResultWindows& leader();

    ViewerWindow& window_;
    int followed_ = 0;
    /// Whose list led here last, and what this window's own list held then: once that is another
    /// one, it counts.
    QPointer<ResultWindows> leader_;
    std::weak_ptr<const ListRows> ownRows_;
};

}  // namespace quorvale
