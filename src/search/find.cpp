#include "search/find.h"

#include "base/integers.h"
#include "document/positions.h"
#include "platform/keys.h"

namespace quorvale {

namespace {

struct Match {
    std::int32_t Position = 0;
    FindOutcome Outcome = FindOutcome::NotFound;
};

/// Behind the start only, then what lies in front of it: no unit is looked at twice.
Match FindForward(const TextStore& text, const TextSearch& search, std::int32_t start) {
    const std::int32_t behind = FindText(text, start, search);
    if (behind != 0) return {behind, FindOutcome::Found};
    if (text.Length() == 0) return {};
    const std::int32_t before = search.IsEmpty() ? 1 : search.FirstIn(text, 1, start - 1);
    return before == 0 ? Match{} : Match{before, FindOutcome::Wrapped};
}

/// The last match that begins at or before the start, then the last one of all behind it.
Match FindBackward(const TextStore& text, const TextSearch& search, std::int32_t start) {
    if (text.Length() == 0) return {};
    if (search.IsEmpty()) {
        return start >= 1 ? Match{start, FindOutcome::Found}
                          : Match{text.Length(), FindOutcome::Wrapped};
    }
    const std::int32_t before = search.LastIn(text, 1, start);
    if (before != 0) return {before, FindOutcome::Found};
    const std::int32_t behind = search.LastIn(text, std::max(start, 0) + 1, text.Length());
    return behind == 0 ? Match{} : Match{behind, FindOutcome::Wrapped};
}

}  // namespace

std::int32_t Find::Offset() const {
    return OffsetOfCaret(document_, {navigation_.CaretRow, navigation_.CaretCol});
}

void Find::TextChanged() {
    surface_.tbMore.SetButtonEnabled(u"Find", !surface_.txtSearch.Text().empty());
    if (search_.SearchStartOffset <= 0) return;
    peers_.SearchEnded(GoToMatch(FindDirection::Forward, search_.SearchStartOffset));
}

void Find::FindNext() {
    const FindOutcome outcome = GoToMatch(FindDirection::Forward, CheckedAdd(Offset(), 1));
    surface_.Focus.Request(FocusChild::SearchBox);
    peers_.SearchEnded(outcome);
}

FindOutcome Find::FindAgain(FindDirection direction) {
    const std::int32_t step = direction == FindDirection::Forward ? 1 : -1;
    const FindOutcome outcome = GoToMatch(direction, CheckedAdd(Offset(), step));
    peers_.SearchEnded(outcome);
    return outcome;
}

FindOutcome Find::GoToMatch(FindDirection direction, std::int32_t start) {
    const TextSearch search(surface_.txtSearch.Text(), cases_);
    const Match match = direction == FindDirection::Forward
                            ? FindForward(document_.Text, search, start)
                            : FindBackward(document_.Text, search, start);
    search_.LastOutcome = match.Outcome;
    if (match.Position != 0) peers_.SetOffset(match.Position);
    return match.Outcome;
}

void Find::KeyDown(std::int16_t& keyCode) {
    const std::int16_t key = keyCode;
    if (key != key_code::F3 && key != key_code::Return && key != key_code::Escape) return;
    // What is done here is not typed as well.
    keyCode = 0;
    if (key == key_code::Escape) {
        surface_.Focus.Request(FocusChild::TextArea);
    } else {
        FindNext();
    }
}

void Find::BoxGotFocus() {
    search_.SearchStartOffset = Offset();
    surface_.tmrImage.SetEnabled(true);
    peers_.BoxFocusChanged(FocusChild::SearchBox, true);
}

void Find::BoxLostFocus() { peers_.BoxFocusChanged(FocusChild::SearchBox, false); }

}  // namespace quorvale
