#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include "platform/paced_progress.h"
#include "qt/control_link.h"
#include "qt/input_block.h"
#include "qt/search_panel.h"

namespace quorvale {

/// Keeps a control alive while a search takes long: a panel shows how far it is, the window is
/// painted, timers run, and Escape ends it. A search that is over within the first 300 ms shows
/// nothing, and no event is handled in it; nor is one in a search of a control that is not seen.
///
/// What the user does to the control's window meanwhile is dropped (`InputBlock`); what a timer of
/// the host does is the host's: it may load another document or destroy the control, and the search
/// ends. Other windows stay usable, since a search keeps nothing that they could spoil. A search
/// that is set off there, or by a timer, runs inside this one, with a panel of its own; this one
/// goes on when that one is over.
class SearchWatch final : public PacedProgress {
public:
    SearchWatch(QWidget& control, std::weak_ptr<ControlLink> link,
                std::shared_ptr<const Clock> clock);

private:
    void TakesLong() override;
    bool Turn(const SearchPlace& place) override;
    void Over() noexcept override;
    bool isSeen() const { return control_ != nullptr && control_->isVisible(); }
    void handleEvents();

    QPointer<QWidget> control_;
    std::weak_ptr<ControlLink> link_;
    QPointer<SearchPanel> panel_;
    InputBlock block_;
    /// Long searches of this control that run inside one another.
    int searches_ = 0;
};

}  // namespace quorvale
