#pragma once

#include <memory>
#include <utility>

#include "platform/search_progress.h"

namespace quorvale {

/// One search as its watcher hears of it, from its beginning to its end. The watcher is held: it
/// may destroy the control that the search runs in.
class WatchedSearch {
public:
    /// Null for nobody who watches.
    explicit WatchedSearch(std::shared_ptr<SearchProgress> progress)
        : progress_(std::move(progress)) {
        if (progress_) progress_->Began();
    }
    ~WatchedSearch() { End(); }
    WatchedSearch(const WatchedSearch&) = delete;
    WatchedSearch& operator=(const WatchedSearch&) = delete;

    bool GoesOn(const SearchPlace& place) { return !progress_ || progress_->GoOn(place); }

    /// The watcher may still do anything in it: whether the result is wanted is known afterwards.
    void End() {
        if (const auto ending = std::exchange(progress_, nullptr)) ending->Ended();
    }

private:
    std::shared_ptr<SearchProgress> progress_;
};

}  // namespace quorvale
