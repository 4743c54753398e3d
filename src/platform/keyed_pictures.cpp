#include "platform/keyed_pictures.h"

#include <algorithm>

#include "base/errors.h"
#include "base/text.h"

namespace quorvale {

namespace {

char16_t Lower(char16_t unit) {
    const bool capital = unit >= u'A' && unit <= u'Z';
    return capital ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

}  // namespace

bool SameKey(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return Lower(x) == Lower(y); });
}

bool ImageList::Add(std::u16string key, PicturePtr picture) {
    if (picture == nullptr) return false;
    const bool taken =
        !key.empty() && std::any_of(entries_.begin(), entries_.end(),
                                    [&](const Entry& e) { return SameKey(e.Key, key); });
    if (taken) return false;
    entries_.push_back({std::move(key), std::move(picture)});
    return true;
}

PicturePtr ImageList::Find(const Variant& keyOrNumber) const {
    if (const auto* key = std::get_if<std::u16string>(&keyOrNumber)) {
        for (const Entry& entry : entries_) {
            if (SameKey(entry.Key, *key)) return entry.Shown;
        }
        throw ControlError(ErrorKind::Index, "No picture has the key " + ToUtf8(*key));
    }
    const std::int32_t number = ToLong(keyOrNumber);
    if (number < 1 || static_cast<std::size_t>(number) > entries_.size()) {
        throw ControlError(ErrorKind::Index, "There is no picture " + std::to_string(number));
    }
    return entries_[static_cast<std::size_t>(number - 1)].Shown;
}

}  // namespace quorvale
