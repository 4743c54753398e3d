#include "search/find.h"

#include "base/integers.h"
#include "document/positions.h"
#include "platform/keys.h"
#include "search/file_list.h"
#include "search/match_search.h"
#include "search/watched_search.h"

namespace quorvale {

std::int32_t Find::Offset() const {
    return OffsetOfCaret(document_, {navigation_.CaretRow, navigation_.CaretCol});
}

void Find::TextChanged() {
    surface_.tbMore.SetButtonEnabled(u"Find", !surface_.txtSearch.Text().empty());
    if (search_.SearchStartOffset <= 0) return;
    // What is typed on meanwhile must not be lost to somebody who watches.
    peers_.SearchEnded(GoToMatch(FindDirection::Forward, search_.SearchStartOffset, nullptr));
}

void Find::FindNext() {
    const FindOutcome outcome =
        GoToMatch(FindDirection::Forward, CheckedAdd(Offset(), 1), progress_);
    if (peers_.HasEnded()) return;
    surface_.Focus.Request(FocusChild::SearchBox);
    peers_.SearchEnded(outcome);
}

FindOutcome Find::FindAgain(FindDirection direction) {
    const std::int32_t step = direction == FindDirection::Forward ? 1 : -1;
    const FindOutcome outcome = GoToMatch(direction, CheckedAdd(Offset(), step), progress_);
    peers_.SearchEnded(outcome);
    return outcome;
}

FindOutcome Find::GoToMatch(FindDirection direction, std::int32_t start,
                            const std::shared_ptr<SearchProgress>& progress) {
    const TextSearch search(surface_.txtSearch.Text(), cases_);
    const std::uint64_t generation = document_.Generation;
    const std::uint32_t number = ++search_.Finds;
    const auto isWanted = [&] {
        return !peers_.HasEnded() && document_.Generation == generation && search_.Finds == number;
    };
    const std::u16string file =
        document_.FileName.empty() ? std::u16string(InMemory) : document_.FileName;
    SearchPlace place{file, 0, 1, 0, static_cast<std::uint64_t>(document_.Text.Length()), 0};
    WatchedSearch watched(progress);
    MatchSearch matches(document_.Text, search, [&](std::int32_t done) {
        place.Done = static_cast<std::uint64_t>(done);
        return watched.GoesOn(place) && isWanted();
    });
    const Match match =
        direction == FindDirection::Forward ? matches.Forward(start) : matches.Backward(start);
    watched.End();
    if (!isWanted()) return FindOutcome::Stopped;
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
