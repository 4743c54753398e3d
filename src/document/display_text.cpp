#include "document/display_text.h"

#include <algorithm>
#include <utility>

namespace quorvale {

std::u16string MarkControlChars(std::u16string text) {
    std::replace(text.begin(), text.end(), u'\r', u'\u00B6');
    std::replace(text.begin(), text.end(), u'\0', u'\u00B7');
    return text;
}

std::u16string ExpandTabs(std::u16string_view text) {
    std::u16string expanded;
    expanded.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t tab = text.find(u'\t'); tab != text.npos; tab = text.find(u'\t', from)) {
        expanded.append(text.substr(from, tab - from));
        expanded.append(tabWidth - expanded.size() % tabWidth, u' ');
        from = tab + 1;
    }
    return expanded.append(text.substr(from));
}

std::u16string DisplayForm(std::u16string raw) {
    if (raw.find(u'\t') == raw.npos) return MarkControlChars(std::move(raw));
    return MarkControlChars(ExpandTabs(raw));
}

}  // namespace quorvale
