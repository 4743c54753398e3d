#pragma once

#include "headless/headless_box.h"

namespace quorvale {

/// How many whole rows fit: the page of the scroll bar is two rows less.
inline int WholeRows(HeadlessBox& box) { return box.Elements().scrVert.LargeChange() + 2; }

}  // namespace quorvale
