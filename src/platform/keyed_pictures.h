#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/export.h"
#include "platform/picture.h"
#include "platform/variant.h"

namespace quorvale {

/// Equality of keys: the case of the letters does not count.
QUORVALE_CORE_EXPORT bool SameKey(std::u16string_view a, std::u16string_view b);

/// A list of pictures that are found by key or by number. This is what a host assigns as the
/// control's image list, and what the control keeps its own pictures in.
class QUORVALE_CORE_EXPORT ImageList : public Object {
public:
    /// False, and nothing happens, for a null picture or a key that is taken. Empty keys are free.
    bool Add(std::u16string key, PicturePtr picture);

    /// The picture of a key, or of a 1-based number. Index error where there is none.
    virtual PicturePtr Find(const Variant& keyOrNumber) const;

    /// The greatest number that finds a picture.
    std::size_t Count() const { return entries_.size(); }

private:
    struct Entry {
        std::u16string Key;
        PicturePtr Shown;
    };
    std::vector<Entry> entries_;
};

}  // namespace quorvale
