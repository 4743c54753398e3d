#pragma once

#include "platform/picture.h"
#include "platform/variant.h"
#include "state/appearance_state.h"

namespace quorvale {

/// The host's picture for what a line carries: none for a zero, for a key or number that the image
/// list does not have, and without an image list. A picture that is missing must not keep the rows
/// below it from being painted, so nothing fails here.
PicturePtr FindLinePicture(const AppearanceState& appearance, const Variant& image);

}  // namespace quorvale
