#include "corrections/fitting.h"

#include <algorithm>
#include <map>

#include "base/integers.h"
#include "base/numbers_in_text.h"
#include "base/text.h"
#include "corrections/edit_script.h"
#include "corrections/journal_index.h"
#include "document/encodings.h"

namespace quorvale {

namespace {

/// Finds what does not fit one document.
class Fitting {
public:
    Fitting(std::vector<PendingCorrection>& pending, const DocumentState& document)
        : pending_(pending), document_(document) {}

    void Run(const std::vector<Update>& updates) {
        FindPlaces(updates);
        for (const Update& update : updates) {
            PendingCorrection& pending = pending_[update.Number];
            if (pending.Fits()) pending.Problem = PlaceProblemOf(update);
            if (!pending.Fits()) continue;
            pending.Problem = UnwritableCharacter(update);
            pending.IsUnwritable = !pending.Fits();
        }
    }

private:
    void FindPlaces(const std::vector<Update>& updates) {
        placed_.assign(pending_.size(), false);
        for (const ScriptStep& step : MakeEditScript(1, document_.LineSlots, updates)) {
            if (step.Insert == nullptr) continue;
            placed_[step.Insert->Number] = true;
            starts_.push_back(step.Insert->Range.Start);
        }
        std::sort(starts_.begin(), starts_.end());
    }

    std::string PlaceProblemOf(const Update& update) const {
        const UpdateRange range = update.Range;
        const std::int32_t last = document_.LastLine().Number();
        if (range.Start < 1) return "there is no such line";
        if (range.Start > last + 1 || range.End() - 1 > last) return "the file ends before";
        if (!placed_[update.Number] || ReachesIntoAnother(range)) {
            return "it overlaps another correction";
        }
        return {};
    }

    bool ReachesIntoAnother(UpdateRange range) const {
        const auto next = std::upper_bound(starts_.begin(), starts_.end(), range.Start);
        return next != starts_.end() && *next < range.End();
    }

    std::string UnwritableCharacter(const Update& update) const {
        const std::u16string text = UpdateText(*update.Node);
        const EncodedText encoded = EncodeText(text, document_.ReadAs);
        if (encoded) return {};
        return "the file's encoding has no U+" + ToUtf8(HexText(text[encoded.BadPosition - 1]));
    }

    std::vector<PendingCorrection>& pending_;
    const DocumentState& document_;
    std::vector<bool> placed_;
    /// Where the corrections begin that have a place.
    std::vector<std::int32_t> starts_;
};

}  // namespace

std::vector<PendingCorrection> FindPending(const CorrectionsState& journal,
                                           const DocumentState* document) {
    std::vector<PendingCorrection> pending;
    if (journal.JournalDocument == nullptr) return pending;
    for (const XmlNodePtr& node : journal.JournalDocument->SelectNodes(u"update")) {
        pending.push_back({node, std::nullopt, "it does not say where it belongs"});
    }
    const JournalIndex index(journal);
    for (const Update& update : index.Updates()) {
        pending[update.Number].Range = update.Range;
        pending[update.Number].Problem =
            HoldsOneText(*update.Node) ? "" : "it holds more than one text";
    }
    if (document != nullptr) Fitting(pending, *document).Run(index.Updates());
    return pending;
}

}  // namespace quorvale
