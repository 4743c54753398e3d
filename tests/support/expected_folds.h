#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quorvale {

/// How deep every line of a document must be folded, told line by line from the rules alone: what
/// the control's own, faster ways are held against.
class ExpectedFolds {
public:
    void Start(std::int32_t entries) {
        depths_.assign(static_cast<std::size_t>(entries) + 1, 0);
        ranges_.clear();
    }

    std::int32_t Entries() const { return static_cast<std::int32_t>(depths_.size()) - 1; }
    int& Depth(std::int32_t line) { return depths_.at(static_cast<std::size_t>(line)); }
    std::size_t Ranges() const { return ranges_.size(); }

    void Register(std::int32_t from, std::int32_t to) {
        if (from < 1 || from >= Entries() || Depth(from) < Depth(from + 1) || to <= from) return;
        ranges_.emplace_back(from, to);
    }

    void ExpandAll() { std::fill(depths_.begin(), depths_.end(), 0); }

    void CollapseAll() {
        ExpandAll();
        for (const auto& [from, to] : ranges_) {
            for (std::int32_t line = from + 1; line <= to; ++line) ++Depth(line);
        }
    }

    void OpenAround(std::int32_t line) {
        const int around = Depth(line);
        int level = around;
        for (std::int32_t i = line; i >= 1 && Depth(i) != 0; --i) Open(i, level);
        level = around;
        for (std::int32_t i = line + 1; i < Entries() && Depth(i) != 0; ++i) Open(i, level);
    }

private:
    void Open(std::int32_t line, int& level) {
        if (Depth(line) > level) {
            Depth(line) -= level;
        } else {
            level = std::exchange(Depth(line), 0);
        }
    }

    std::vector<int> depths_;
    std::vector<std::pair<std::int32_t, std::int32_t>> ranges_;
};

}  // namespace quorvale
