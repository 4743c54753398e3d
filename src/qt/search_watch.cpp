#include "qt/search_watch.h"

#include <QEventLoop>
#include <QTimer>

#include "control/host_extras.h"

namespace quorvale {

SearchWatch::SearchWatch(QWidget& control, std::weak_ptr<ControlLink> link,
                         std::shared_ptr<const Clock> clock)
    : PacedProgress(std::move(clock)),
      control_(&control),
      link_(std::move(link)),
      block_(control) {}

void SearchWatch::TakesLong() { ++searches_; }

bool SearchWatch::Turn(const SearchPlace& place) {
    if (control_ == nullptr) return false;
    if (panel_ == nullptr) {
        if (!isSeen()) return true;
        panel_ = new SearchPanel(*control_);
        block_.begin();
    }
    const auto link = link_.lock();
    if (link == nullptr || link->box() == nullptr) return false;
    panel_->speak(link->box()->Extras().Language());
    panel_->showPlace(place);
    handleEvents();
    return control_ != nullptr && !block_.takeWishToEnd();
}

void SearchWatch::Over() noexcept {
    // What the user did since the last turn is dropped as well.
    if (panel_ != nullptr && control_ != nullptr) handleEvents();
    if (--searches_ > 0) return;
    delete panel_;
    block_.end();
}

void SearchWatch::handleEvents() {
    constexpr int itsOwnEnd = 0x5ea2c4;
    QEventLoop loop;
    QTimer end;
    end.setTimerType(Qt::PreciseTimer);
    end.setSingleShot(true);
    QObject::connect(&end, &QTimer::timeout, &loop, [&loop] { loop.exit(itsOwnEnd); });
    // Not at once: a timer without an interval waits until nothing else is to be done.
    end.start(1);
    const auto link = link_.lock();
    const ControlLink::Closed closed(link.get());
    if (loop.exec() != itsOwnEnd) block_.leave();
}

}  // namespace quorvale
