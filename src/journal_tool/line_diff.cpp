#include "journal_tool/line_diff.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "corrections/update.h"

namespace quorvale {

namespace {

constexpr std::size_t contextLines = 3;

/// The lines of some bytes, each with its line feed.
class Lines {
public:
    explicit Lines(std::string_view bytes) : rest_(bytes) {}

    bool AtEnd() const { return rest_.empty(); }

    std::string_view Next() {
        const std::size_t end = rest_.find('\n');
        const std::string_view line = rest_.substr(0, end == rest_.npos ? end : end + 1);
        rest_.remove_prefix(line.size());
        return line;
    }

private:
    std::string_view rest_;
};

/// Gathers changed lines and their context, and writes a hunk when the next change is far away.
class Hunks {
public:
    Hunks(const std::function<std::string(std::string_view)>& show, const Sink& put)
        : show_(show), put_(put) {}

    void Removed(std::string_view line) { removed_.push_back(line); }
    void Added(std::string_view line) { added_.push_back(line); }

    void Same(std::string_view line) {
        TakeChange();
        hunk_.push_back({' ', line});
        ++behind_;
        if (!changed_ && hunk_.size() > contextLines) {
            hunk_.erase(hunk_.begin());
            ++oldStart_;
            ++newStart_;
        }
        // Twice the context and one more: the next hunk begins with a context of its own.
        if (changed_ && behind_ > 2 * contextLines) WriteHunk();
    }

    void Finish() {
        TakeChange();
        if (changed_) WriteHunk();
    }

private:
    struct HunkLine {
        char Sign;
        std::string_view Text;
    };

    void TakeChange() {
        if (removed_.empty() && added_.empty()) return;
        for (const std::string_view line : removed_) hunk_.push_back({'-', line});
        for (const std::string_view line : added_) hunk_.push_back({'+', line});
        removed_.clear();
        added_.clear();
        changed_ = true;
        behind_ = 0;
    }

    void WriteHunk() {
        const std::size_t surplus = behind_ > contextLines ? behind_ - contextLines : 0;
        const auto end = hunk_.end() - static_cast<std::ptrdiff_t>(surplus);
        const auto count = [&](char other) {
            return std::count_if(hunk_.begin(), end,
                                 [&](const HunkLine& line) { return line.Sign != other; });
        };
        const std::int64_t oldCount = count('+');
        const std::int64_t newCount = count('-');
        put_("@@ -" + Place(oldStart_, oldCount) + " +" + Place(newStart_, newCount) + " @@\n");
        std::for_each(hunk_.begin(), end, [&](const HunkLine& line) { WriteLine(line); });
        const auto surplusLines = static_cast<std::int64_t>(surplus);
        const auto kept = std::min<std::int64_t>(surplusLines, contextLines);
        oldStart_ += oldCount + surplusLines - kept;
        newStart_ += newCount + surplusLines - kept;
        hunk_.erase(hunk_.begin(), hunk_.end() - static_cast<std::ptrdiff_t>(kept));
        changed_ = false;
    }

    /// A place of no lines is named by the line in front of it.
    static std::string Place(std::int64_t start, std::int64_t count) {
        return std::to_string(count == 0 ? start - 1 : start) + "," + std::to_string(count);
    }

    void WriteLine(const HunkLine& line) {
        std::string_view text = line.Text;
        const bool ended = text.ends_with('\n');
        if (ended) text.remove_suffix(1);
        put_(line.Sign + show_(text) + "\n");
        if (!ended) put_("\\ No newline at end of file\n");
    }

    const std::function<std::string(std::string_view)>& show_;
    const Sink& put_;
    std::vector<HunkLine> hunk_;
    std::vector<std::string_view> removed_;
    std::vector<std::string_view> added_;
    /// Where the hunk begins in the two versions.
    std::int64_t oldStart_ = 1;
    std::int64_t newStart_ = 1;
    bool changed_ = false;
    /// How many same lines stand behind the last change.
    std::size_t behind_ = 0;
};

/// Walks along both versions.
class Walk {
public:
    Walk(std::string_view before, std::string_view after, Hunks& hunks)
        : old_(before), new_(after), hunks_(hunks) {}

    void Copy(std::int32_t from, std::int32_t to) {
        for (std::int32_t line = from; line <= to; ++line) {
            while (at_ < line && !old_.AtEnd()) RemoveNext();
            CopyNext();
        }
    }

    void Insert(std::size_t lines) {
        for (; lines > 0 && !new_.AtEnd(); --lines) hunks_.Added(new_.Next());
    }

    void Finish() {
        while (!old_.AtEnd()) RemoveNext();
        while (!new_.AtEnd()) hunks_.Added(new_.Next());
        hunks_.Finish();
    }

private:
    void RemoveNext() {
        hunks_.Removed(old_.Next());
        ++at_;
    }

    void CopyNext() {
        const std::string_view before = old_.AtEnd() ? std::string_view() : old_.Next();
        const std::string_view after = new_.AtEnd() ? std::string_view() : new_.Next();
        ++at_;
        if (before == after) {
            if (!before.empty()) hunks_.Same(before);
            return;
        }
        if (!before.empty()) hunks_.Removed(before);
        if (!after.empty()) hunks_.Added(after);
    }

    Lines old_;
    Lines new_;
    Hunks& hunks_;
    /// The old version's next line.
    std::int32_t at_ = 1;
};

}  // namespace

void WriteLineDiff(std::string_view before, std::string_view after, const EditScript& script,
                   const std::function<std::string(std::string_view)>& show, const Sink& put) {
    Hunks hunks(show, put);
    Walk walk(before, after, hunks);
    for (const ScriptStep& step : script) {
        if (step.Insert == nullptr) {
            walk.Copy(step.From, step.To);
        } else {
            walk.Insert(LinesOfUpdate(UpdateText(*step.Insert->Node)).size());
        }
    }
    walk.Finish();
}

}  // namespace quorvale
