#include "search/picking.h"

#include "base/numbers_in_text.h"
#include "platform/keys.h"
#include "search/file_list.h"
#include "search/found_rows.h"

namespace quorvale {

namespace {

/// What is picked is known to the host only as long as this stands.
class KnownPick {
public:
    KnownPick(SearchState& search, PickedPlace place) : search_(search) {
        search_.Picked = std::move(place);
    }
    ~KnownPick() { search_.Picked.reset(); }
    KnownPick(const KnownPick&) = delete;
    KnownPick& operator=(const KnownPick&) = delete;

private:
    SearchState& search_;
};

}  // namespace

bool Picking::IsReturn(std::size_t row) const {
    return surface_.lvFound.SmallIcon(row) == BackIcon;
}

void Picking::PickSelected() {
    const ListView& list = surface_.lvFound;
    const auto row = list.Selected();
    if (!row) return;
    if (IsReturn(*row)) return list_.Hide();
    pickedFrom_ = list.Rows();
    // The host may change or empty the list: what is needed of it is taken now.
    const std::u16string tag = list.RowTag(*row);
    const std::size_t end = tag.find(u'\r');
    const std::u16string fileName = tag.substr(0, end);
    const std::int32_t line = ToLong(std::u16string_view(list.Cell(*row, 1)));
    const std::int32_t column = ToLong(std::u16string_view(tag).substr(end + 1));
    const bool isCurrent = fileName == InMemory || fileName == document_.FileName;
    bool takenOver = false;
    const PickedPlace place{fileName, line, column};
    if (!isCurrent && !document_.FileName.empty()) {
        const KnownPick known(search_, place);
        takenOver = ChangeFile(fileName);
    }
    if (peers_.HasEnded()) return;
    if (!takenOver || !stays_) peers_.MoveTo(Line{line}, column);
    if (!peers_.HasEnded()) list_.Hide();
    if (!isCurrent && !peers_.HasEnded()) peers_.PickedElsewhere(place);
}

bool Picking::ChangeFile(const std::u16string& fileName) {
    bool changed = false;
    // The host gets a name of its own, so that it cannot change what is loaded.
    peers_.RaiseBeforeFileChange(std::u16string(fileName), changed);
    if (!changed && !peers_.HasEnded()) peers_.LoadFile(fileName);
    return changed;
}

bool Picking::PickSelectedResult() {
    const auto row = surface_.lvFound.Selected();
    if (!row || IsReturn(*row)) return false;
    PickSelected();
    return true;
}

bool Picking::PickNeighbour(bool next) {
    if (next && IsFresh() && PickSelectedResult()) return true;
    ListView& list = surface_.lvFound;
    const std::size_t count = list.RowCount();
    const std::size_t last = count > 0 ? count - 1 : 0;
    std::size_t row = list.Selected().value_or(next ? 0 : last);
    const bool ends = next ? row >= last : row == 0;
    if (ends) return false;
    row = next ? row + 1 : row - 1;
    if (IsReturn(row)) return false;
    list.Select(row);
    list.EnsureVisible(row);
    PickSelected();
    return true;
}

void Picking::KeyDown(std::int16_t& keyCode) {
    const std::int16_t key = keyCode;
    if (key != key_code::Return && key != key_code::Escape) return;
    keyCode = 0;
    if (key == key_code::Escape) return list_.Hide();
    PickSelected();
}

}  // namespace quorvale
