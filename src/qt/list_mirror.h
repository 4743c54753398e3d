#pragma once

#include <QTreeView>

#include "qt/control_link.h"
#include "qt/list_model.h"

namespace quorvale {

/// The real list of results. What the user does goes to the element; what is selected there is
/// selected here.
class ListMirror final : public QTreeView {
    Q_OBJECT

public:
    ListMirror(ControlLinkPtr link, QWidget* parent);

    /// Shows the element; `controlOrigin` is the control's corner in the parent.
    void mirror(const Surface& surface, QPoint controlOrigin);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showSelection(const ListView& list);
    void takeCurrent();
    int rowAt(QPoint place) const;

    ControlLinkPtr link_;
    ListModel model_;
    std::optional<std::size_t> ensuredShown_;
    bool showing_ = false;
};

}  // namespace quorvale
