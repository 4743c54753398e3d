#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "corrections_rig.h"

namespace quorvale {

/// Which lines an editor stands for, and which corrections come out of what is typed in it, worked
/// out step by step as a person would do it on paper: what the real ones are compared with.
class SlowEditing {
public:
    using Lines = std::vector<std::u16string>;

    explicit SlowEditing(int lineCount) : lineCount_(lineCount) {}

    /// The lines that an editor opens over: all of every correction that it shows a part of.
    UpdateRange Opened(int caret, int selected, const std::vector<Correction>& corrections) const {
        int other = caret;
        if (selected > 0) other = caret + selected - 1;
        if (selected < 0) other = caret + selected + 1;
        int first = std::clamp(std::min(caret, other), 1, lineCount_);
        int end = std::clamp(std::max(caret, other), 1, lineCount_) + 1;
        for (bool again = true; again;) {
            again = false;
            for (const Correction& each : corrections) {
                if (each.Start > lineCount_) continue;
                const int behind = each.Start + each.Count;
                const bool holdsFirst = each.Start <= first && first < behind;
                const bool begins = first <= each.Start && each.Start < end;
                const bool follows = each.Start == end && each.Count > 0;
                if (!holdsFirst && !begins && !follows) continue;
                const int widerFirst = std::max(1, std::min(first, each.Start));
                const int widerEnd = std::max(end, std::min(behind, lineCount_ + 1));
                again = again || widerFirst != first || widerEnd != end;
                first = widerFirst;
                end = widerEnd;
            }
        }
        return {first, end - first};
    }

    /// The corrections after the lines `shown` were edited to `typed`. `same` says whether a line
    /// of the file counts as unchanged.
    static std::vector<Correction> Recorded(
        std::vector<Correction> corrections, UpdateRange shown, const std::u16string& typed,
        const std::function<bool(int, const std::u16string&)>& same) {
        Lines left = TypedLines(typed);
        int first = shown.Start;
        while (first != shown.Start + shown.Count && !left.empty() && same(first, left.front())) {
            left.erase(left.begin());
            ++first;
        }
        int last = shown.Start + shown.Count - 1;
        while (last > first && !left.empty() && same(last, left.back())) {
            left.pop_back();
            --last;
        }
        std::erase_if(corrections, [&](const Correction& each) {
            const bool holds = each.Start <= shown.Start && shown.Start < each.Start + each.Count;
            const bool begins =
                shown.Start <= each.Start && each.Start <= shown.Start + shown.Count;
            return holds || begins;
        });
        Correction fresh{first, last - first + 1, {}};
        for (const std::u16string& line : left) fresh.Text += line + u"\n";
        if (fresh.Count > 0 || !fresh.Text.empty()) corrections.push_back(std::move(fresh));
        return corrections;
    }

    /// The lines of an editor's text: CR LF ends one, and so does LF.
    static Lines TypedLines(const std::u16string& typed) {
        Lines lines(1);
        for (std::size_t i = 0; i < typed.size(); ++i) {
            if (typed[i] == u'\r' && i + 1 < typed.size() && typed[i + 1] == u'\n') continue;
            if (typed[i] == u'\n') {
                lines.emplace_back();
            } else {
                lines.back() += typed[i];
            }
        }
        return lines;
    }

private:
    int lineCount_;
};

}  // namespace quorvale
