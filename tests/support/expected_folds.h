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
    using Range = std::pair<std::int32_t, std::int32_t>;

    void Start(std::int32_t entries) {
        depths_.assign(static_cast<std::size_t>(entries) + 1, 0);
        ranges_.clear();
    }

    std::int32_t Entries() const { return static_cast<std::int32_t>(depths_.size()) - 1; }
    int& Depth(std::int32_t line) { return depths_.at(static_cast<std::size_t>(line)); }
    int Depth(std::int32_t line) const { return depths_.at(static_cast<std::size_t>(line)); }
    /// In the order of registration.
    const std::vector<Range>& Ranges() const { return ranges_; }

    bool Register(std::int32_t from, std::int32_t to) {
        if (from < 1 || from >= Entries() || Depth(from) < Depth(from + 1) || to <= from) {
            return false;
        }
        ranges_.emplace_back(from, to);
        return true;
    }

    void ExpandAll() { std::fill(depths_.begin(), depths_.end(), 0); }

    /// In the order in which the control has the ranges by now: what follows a range that reaches
    /// past the document is not folded any more.
    void CollapseAll(const std::vector<Range>& ordered) {
        ExpandAll();
        for (const auto& [from, to] : ordered) {
            if (!CollapseRange(from, to)) return;
        }
    }

    /// False when the range reaches past the document: folded is what lies in it.
    bool CollapseRange(std::int32_t from, std::int32_t to) {
        for (std::int32_t line = from + 1; line <= std::min(to, Entries()); ++line) ++Depth(line);
        return to <= Entries();
    }

    /// One level of the hidden lines right below a line.
    void ExpandAt(std::int32_t line) {
        for (std::int32_t i = line + 1; i <= Entries() && Depth(i) != 0; ++i) --Depth(i);
    }

    void OpenAround(std::int32_t line) {
        const int around = Depth(line);
        int level = around;
        for (std::int32_t i = line; i >= 1 && Depth(i) != 0; --i) Open(i, level);
        level = around;
        for (std::int32_t i = line + 1; i < Entries() && Depth(i) != 0; ++i) Open(i, level);
    }

    /// What bringing a line into view does, whatever number names it.
    void Reveal(std::int32_t line) {
        const std::int32_t shown = std::min(std::max(line, 1), Entries() - 1);
        if (Depth(shown) != 0) OpenAround(shown);
    }

    /// The line, or the first one below it that is not hidden; the last entry when there is none.
    std::int32_t ShownFrom(std::int32_t line) const {
        while (line < Entries() && Depth(line) != 0) ++line;
        return std::min(line, Entries());
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
    std::vector<Range> ranges_;
};

}  // namespace quorvale
