#include "corrections/edit_lines.h"

#include <cstddef>

namespace quorvale {

namespace {

/// The lines of a text from an editor; the last one has no line break behind it.
std::vector<std::u16string_view> LinesOf(std::u16string_view text) {
    std::vector<std::u16string_view> lines;
    while (true) {
        const std::size_t end = text.find(u'\n');
        std::u16string_view line = text.substr(0, end);
        const bool last = end == text.npos;
        if (!last && !line.empty() && line.back() == u'\r') line.remove_suffix(1);
        lines.push_back(line);
        if (last) return lines;
        text.remove_prefix(end + 1);
    }
}

}  // namespace

EditedLines WithoutUnchanged(std::u16string_view text, UpdateRange shown, const SameLine& same) {
    const std::vector<std::u16string_view> lines = LinesOf(text);
    std::size_t front = 0;
    std::size_t back = lines.size();
    std::int32_t first = shown.Start;
    while (first != shown.End() && front < back && same(first, lines[front])) {
        ++first;
        ++front;
    }
    std::int32_t last = shown.End() - 1;
    while (last > first && front < back && same(last, lines[back - 1])) {
        --last;
        --back;
    }
    EditedLines edited{{first, last - first + 1}, {}};
    for (; front < back; ++front) edited.Text.append(lines[front]) += u'\n';
    return edited;
}

}  // namespace quorvale
