#include "search/file_list.h"

#include <algorithm>

namespace quorvale {

std::size_t FileList::Count() const {
    const auto ends = static_cast<std::size_t>(std::count(names_.begin(), names_.end(), u'\r'));
    return ends + (names_.empty() || names_.back() == u'\r' ? 0 : 1);
}

std::optional<std::u16string> FileList::Next() {
    if (at_ >= names_.size()) return std::nullopt;
    const std::size_t end = std::min(names_.find(u'\r', at_), names_.size());
    std::u16string name = names_.substr(at_, end - at_);
    at_ = end + 1;
    return name;
}

std::u16string FileNamePart(std::u16string_view path) {
#ifdef _WIN32
    constexpr std::u16string_view separators = u"/\\:";
#else
    constexpr std::u16string_view separators = u"/";
#endif
    const std::size_t last = path.find_last_of(separators);
    return std::u16string(last == path.npos ? path : path.substr(last + 1));
}

}  // namespace quorvale
