#include "collapse/ranges.h"

#include "base/errors.h"

namespace quorvale {

void RangeRegister::CollapseLines(std::int32_t fromRow, std::int32_t toRow) {
    const Line head{fromRow};
    if (!document_.IsLine(head)) return;
    if (document_.HiddenDepth(head) < document_.HiddenDepth(head + 1)) return;
    if (toRow <= fromRow) return;
    collapse_.Ranges.push_back({fromRow, toRow, 0});
    collapse_.RangesUnchanged = false;
    surface_.tbMore.SetButtonEnabled(u"Collapsed", true);
}

void RangeRegister::ForgetAll() {
    collapse_ = {};
    // The next fill takes back the room that their glyphs had.
    collapse_.RangesUnchanged = false;
    surface_.tbMore.SetButtonEnabled(u"Collapsed", false);
}

}  // namespace quorvale
