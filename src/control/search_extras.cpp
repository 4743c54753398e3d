#include "control/search_extras.h"

#include <utility>

#include "control/control_parts.h"
#include "control/frame.h"
#include "search/found_rows.h"

namespace quorvale {

FindOutcome SearchExtras::LastOutcome() const { return parts_.Search.LastOutcome; }

FindOutcome SearchExtras::FindAgain(FindDirection direction) {
    const Frame frame(parts_.shared_from_this());
    return frame->Find.FindAgain(direction);
}

std::size_t SearchExtras::FindAll() { return List(false); }

std::size_t SearchExtras::FindAllOfPattern() { return List(true); }

std::size_t SearchExtras::List(bool asPattern) {
    // The host may destroy the control, and this with it.
    const auto held = parts_.shared_from_this();
    Surface& surface = held->Elements;
    if (surface.txtSearch.Text().empty()) return 0;
    const auto kind = asPattern ? LineQuery::Kind::Wildcard : LineQuery::Kind::Plain;
    RunUserAction(*held, [&] { held->FindAll.Run(kind); });
    const auto* rows = dynamic_cast<const FoundRows*>(surface.lvFound.Rows().get());
    return rows == nullptr ? 0 : rows->Results().Count();
}

void SearchExtras::ShowLastList() {
    const auto held = parts_.shared_from_this();
    RunUserAction(*held, [&] { held->FoundList.Show(); });
}

bool SearchExtras::PickSelected() {
    const Frame frame(parts_.shared_from_this());
    return frame->Picking.PickSelectedResult();
}

void SearchExtras::PutText(const std::u16string& text) {
    const Frame frame(parts_.shared_from_this());
    WithoutSearching(*frame.operator->(), [&] { frame->Elements.txtSearch.SetText(text); });
}

// What is written into the box is searched for only behind a start in the text.
void SearchExtras::WithoutSearching(ControlParts& parts, const std::function<void()>& act) {
    struct Start {
        explicit Start(std::int32_t& kept) : offset(kept), former(std::exchange(kept, 0)) {}
        ~Start() { offset = former; }
        std::int32_t& offset;
        std::int32_t former;
    };
    const Start start(parts.Search.SearchStartOffset);
    act();
}

bool SearchExtras::PickNextResult() { return PickNeighbour(true); }

bool SearchExtras::PickPreviousResult() { return PickNeighbour(false); }

bool SearchExtras::PickNeighbour(bool next) {
    const Frame frame(parts_.shared_from_this());
    return frame->Picking.PickNeighbour(next);
}

std::size_t SearchExtras::FilesSearched() const {
    const auto* rows = dynamic_cast<const FoundRows*>(parts_.Elements.lvFound.Rows().get());
    return rows == nullptr ? 0 : rows->EntriesSearched();
}

void SearchExtras::StayWhenTakenOver(bool stay) { parts_.Picking.StayWhenTakenOver(stay); }

std::optional<PickedPlace> SearchExtras::Picked() const { return parts_.Search.Picked; }

void SearchExtras::Tell(FindOutcome outcome) {
    if (parts_.Ended) return;
    const auto tell = OnSearched;
    if (tell) tell(outcome);
}

void SearchExtras::TellPicked(const PickedPlace& place) {
    if (parts_.Ended) return;
    const auto tell = OnPickedElsewhere;
    if (tell) tell(place);
}

}  // namespace quorvale
