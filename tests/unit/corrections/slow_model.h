#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "corrections_rig.h"
#include "document/display_text.h"

namespace quorvale {

/// A document and its corrections, worked out in the plainest way, line by line: what the real ones
/// are compared with.
class SlowModel {
public:
    using Lines = std::vector<std::u16string>;

    /// `ends` has the line end of every line but the last.
    SlowModel(Lines document, Lines ends) : document_(std::move(document)), ends_(std::move(ends)) {
        ends_.resize(document_.size());
    }

    std::vector<Correction> Corrections;

    int LineCount() const { return static_cast<int>(document_.size()); }

    /// The corrected lines of some lines, without what is inserted behind them.
    Lines Corrected(int first, int count) const {
        Lines lines;
        for (const Item& item : Items(first, count)) lines.push_back(item.Text);
        return lines;
    }

    /// The corrected lines of the whole document.
    Lines All() const {
        Lines lines;
        for (const Item& item : WholeItems()) lines.push_back(item.Text);
        return lines;
    }

    /// The lines of all corrections that begin at a line.
    Lines InsertedAt(int line) const {
        Lines lines;
        for (const Correction& each : Corrections) {
            if (each.Start != line) continue;
            for (const std::u16string& text : TextLines(each)) lines.push_back(text);
        }
        return lines;
    }

    /// What a commit writes that does not keep the format.
    std::u16string Text() const {
        std::u16string text;
        for (const Item& item : Items(1, LineCount() + 1)) {
            text += (item.Number ? ExpandTabs(item.Text) : item.Text) + u"\r\n";
        }
        // Behind the last line comes the place where nothing stands.
        if (text.ends_with(u"\r\n")) text.resize(text.size() - 2);
        return text;
    }

    /// What a commit writes that keeps the line format. A byte order mark stays at the front,
    /// whatever becomes of the first line; who shows it and gives it back means the same one.
    std::u16string KeptText() const {
        constexpr char16_t mark = 0xFEFF;
        const std::u16string usual = ends_.size() > 1 ? ends_.front() : u"\n";
        const bool marked = !document_.empty() && document_.front().starts_with(mark);
        std::u16string text(marked ? 1 : 0, mark);
        bool first = true;
        std::u16string end;
        for (const Item& item : WholeItems()) {
            if (!first) text += end.empty() ? usual : end;
            const bool again = first && marked && item.Number.value_or(1) == 1;
            text += item.Text.substr(again && item.Text.starts_with(mark) ? 1 : 0);
            first = false;
            end = item.End;
        }
        return text;
    }

private:
    struct Item {
        std::optional<int> Number;
        std::u16string Text;
        std::u16string End;
        /// A correction stands before it, though it may have no lines: none reaches across.
        bool Apart = false;
    };

    static Lines TextLines(const Correction& correction) {
        Lines lines;
        std::u16string line;
        for (const char16_t unit : correction.Text) {
            if (unit != u'\n') {
                line += unit;
                continue;
            }
            lines.push_back(line);
            line.clear();
        }
        return lines;
    }

    std::u16string EndOf(int line) const {
        const bool exists = line >= 1 && line <= LineCount();
        return exists ? ends_[static_cast<std::size_t>(line - 1)] : std::u16string();
    }

    std::vector<Item> Items(int first, int count) const {
        std::vector<Item> items;
        for (int line = first; line < first + count; ++line) {
            const bool exists = line >= 1 && line <= LineCount();
            items.push_back({line, exists ? document_[static_cast<std::size_t>(line - 1)] : u"",
                             EndOf(line), false});
        }
        for (const Correction& each : Corrections) Apply(items, each);
        return items;
    }

    // The place behind the last line takes part, so that something can be inserted there.
    std::vector<Item> WholeItems() const {
        std::vector<Item> items = Items(1, LineCount() + 1);
        std::erase_if(items, [this](const Item& item) { return item.Number == LineCount() + 1; });
        return items;
    }

    void Apply(std::vector<Item>& items, const Correction& correction) const {
        const auto at = std::find_if(items.begin(), items.end(), [&](const Item& item) {
            return item.Number == correction.Start;
        });
        if (at == items.end()) return;
        auto behind = at;
        int line = correction.Start;
        while (behind != items.end() && behind->Number == line &&
               (behind == at || !behind->Apart) && line < correction.Start + correction.Count) {
            ++behind;
            ++line;
        }
        std::vector<Item> made(items.begin(), at);
        const std::u16string usual = ends_.size() > 1 ? ends_.front() : u"\n";
        int replaced = correction.Start;
        for (const std::u16string& text : TextLines(correction)) {
            made.push_back(
                {std::nullopt, text, correction.Count == 0 ? usual : EndOf(replaced), false});
            if (replaced + 1 < correction.Start + correction.Count) ++replaced;
        }
        if (behind != items.end()) behind->Apart = true;
        made.insert(made.end(), behind, items.end());
        items = std::move(made);
    }

    Lines document_;
    Lines ends_;
};

}  // namespace quorvale
