#include "document/line_pictures.h"

#include "base/errors.h"
#include "platform/keyed_pictures.h"

namespace quorvale {

PicturePtr FindLinePicture(const AppearanceState& appearance, const Variant& image) {
    if (IsZero(image)) return nullptr;
    const auto* list = dynamic_cast<const ImageList*>(appearance.ImageList.get());
    if (list == nullptr) return nullptr;
    try {
        return list->Find(image);
    } catch (const ControlError&) {
        return nullptr;
    }
}

}  // namespace quorvale
