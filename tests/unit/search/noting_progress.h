#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/search_progress.h"

namespace quorvale {

/// Writes down how far a search says it is, and answers as a test wants.
class NotingProgress final : public SearchProgress {
public:
    std::function<bool(const SearchPlace&)> OnGoOn;
    std::function<void()> OnEnded;
    std::vector<std::string> Log;

    void Began() override { Log.push_back("began"); }
    bool GoOn(const SearchPlace& place) override {
        Log.push_back(std::to_string(place.Done));
        const auto answer = OnGoOn;
        return !answer || answer(place);
    }
    void Ended() noexcept override {
        Log.push_back("ended");
        if (OnEnded) OnEnded();
    }
};

}  // namespace quorvale
