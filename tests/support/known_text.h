#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvale {

/// A text as the control must understand it, taken apart unit by unit: its lines, where they start
/// and what their rows show.
class KnownText {
public:
    /// The text without the line break that the control appends.
    void Set(std::u16string text) {
        text_ = std::move(text) + u"\r\n";
        displays_.assign(1, u"");
        starts_.assign(1, 1);
        std::int32_t position = 0;
        for (const char16_t unit : text_) Take(unit, ++position);
    }

    const std::u16string& Text() const { return text_; }
    std::int32_t Length() const { return static_cast<std::int32_t>(text_.size()); }
    /// The lines and the place behind the last one.
    std::int32_t Entries() const { return static_cast<std::int32_t>(displays_.size()); }

    /// What a row shows of a line; "" of the place behind the last one.
    const std::u16string& Display(std::int32_t line) const { return displays_.at(Index(line)); }
    /// The 1-based position of an entry's first character.
    std::int32_t Start(std::int32_t entry) const { return starts_.at(Index(entry)); }
    char16_t At(std::int32_t position) const { return text_.at(Index(position)); }

    /// The line that holds a 1-based position.
    std::int32_t LineAt(std::int32_t position) const {
        const auto behind = std::upper_bound(starts_.begin(), starts_.end(), position);
        return static_cast<std::int32_t>(behind - starts_.begin());
    }

private:
    static std::size_t Index(std::int32_t number) { return static_cast<std::size_t>(number) - 1; }

    void Take(char16_t unit, std::int32_t position) {
        std::u16string& line = displays_.back();
        if (unit == u'\n') {
            if (!line.empty() && line.back() == u'\u00B6') line.pop_back();
            displays_.emplace_back();
            starts_.push_back(position + 1);
        } else if (unit == u'\t') {
            line.append(8 - line.size() % 8, u' ');
        } else {
            line += unit == u'\r' ? u'\u00B6' : unit == u'\0' ? u'\u00B7' : unit;
        }
    }

    std::u16string text_;
    std::vector<std::u16string> displays_;
    std::vector<std::int32_t> starts_;
};

}  // namespace quorvale
