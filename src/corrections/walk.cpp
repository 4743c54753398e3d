#include "corrections/walk.h"

#include <cstdint>

#include "resources/text_ids.h"

namespace quorvale {

void CorrectionWalk::GoToCorrection(WalkDirection direction) {
    if (corrections_.Current == nullptr || corrections_.JournalDocument == nullptr) return;
    const auto picked = RangeOf(*corrections_.Current);
    if (!picked) return;
    if (const Update* best = Neighbour(picked->Start, direction)) {
        return peers_.SetRow(Line{best->Range.Start});
    }
    const int id =
        direction == WalkDirection::Previous ? text_id::FirstUpdate : text_id::LastUpdate;
    messages_.Show(LoadText(id, texts_), MessageStyle::Exclamation);
}

const Update* CorrectionWalk::Neighbour(std::int32_t start, WalkDirection direction) const {
    const std::int64_t sign = static_cast<int>(direction);
    const Update* best = nullptr;
    for (const Update& update : index_.Updates()) {
        const std::int64_t place = sign * update.Range.Start;
        if (place <= sign * start) continue;
        if (best == nullptr || place < sign * best->Range.Start) best = &update;
    }
    return best;
}

}  // namespace quorvale
