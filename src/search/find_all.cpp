#include "search/find_all.h"

#include <cstring>
#include <new>
#include <optional>
#include <span>
#include <stdexcept>
#include <utility>

#include "base/errors.h"
#include "search/file_list.h"
#include "search/file_scan.h"
#include "search/found_rows.h"
#include "search/watched_search.h"

namespace quorvale {

namespace {

/// What ends the search of one file; everything else is the host's.
template <class Action>
void EndingOneFile(Action action) {
    try {
        action();
    } catch (const ControlError&) {
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
}

bool IsNarrow(std::u16string_view text) {
    char16_t all = 0;
    for (const char16_t unit : text) all |= unit;
    return all <= 0xFF;
}

}  // namespace

/// One run. The host may do anything when it is told how far the search is: afterwards the run
/// looks whether the list and the document are still the ones it works for.
class FindAll::Search {
public:
    Search(const FindAll& all, LineQuery::Kind kind)
        : in_(all.sources_),
          surface_(all.surface_),
          peers_(all.peers_),
          rows_(std::make_shared<FoundRows>(in_.Texts)),
          query_(surface_.txtSearch.Text(), kind, in_.Cases),
          files_(in_.Files, in_.Options.Encoding, query_, rows_->Results()),
          entries_(Entries()),
          watched_(in_.Progress),
          generation_(in_.Document.Generation) {
        place_.Files = entries_.Count();
        surface_.lvFound.SetRows(rows_);
    }

    void Run() {
        while (const auto entry = entries_.Next()) {
            if (*entry == in_.Document.FileName) currentFileSeen_ = true;
            const std::size_t before = rows_->Results().Count();
            place_.File = *entry;
            if (GoOn(0, 0)) {
                EndingOneFile([&] {
                    if (*entry == InMemory) {
                        SearchMemory();
                    } else {
                        SearchFile(*entry);
                    }
                });
            }
            NoteCaretLine(before);
            ++place_.FilesDone;
            if (stopped_) break;
        }
        watched_.End();
    }

    const std::shared_ptr<FoundRows>& Rows() const { return rows_; }

    /// False when nobody waits for the results any more.
    bool IsWanted() const {
        return !peers_.HasEnded() && surface_.lvFound.Rows() == rows_ &&
               in_.Document.Generation == generation_;
    }

    void Finish() {
        rows_->Finish(place_.FilesDone - (stopped_ ? 1 : 0));
        if (peers_.HasEnded() || surface_.lvFound.Rows() != rows_) return;
        ListView& list = surface_.lvFound;
        list.NoteMoreRows();
        if (preselected_) {
            list.Select(FoundRows::RowOf(*preselected_));
            list.EnsureVisible(FoundRows::RowOf(*preselected_));
        } else if (rows_->Results().Count() > 0) {
            list.Select(FoundRows::RowOf(0));
        }
    }

private:
    FileList Entries() const {
        if (!in_.Search.SearchFiles.empty()) return FileList(in_.Search.SearchFiles);
        if (!in_.Document.FileName.empty()) return FileList(in_.Document.FileName);
        return FileList(std::u16string(InMemory));
    }

    bool GoOn(std::uint64_t done, std::uint64_t size) {
        place_.Done = done;
        place_.Size = size;
        place_.Found = rows_->Results().Count();
        stopped_ = !watched_.GoesOn(place_) || !IsWanted();
        return !stopped_;
    }

    void SearchFile(const std::u16string& name) {
        files_.Search(name,
                      [&](std::uint64_t done, std::uint64_t size) { return GoOn(done, size); });
    }

    /// Line by line as the control gives them to its host: what is on screen as it is shown there,
    /// and every other line measured.
    void SearchMemory() {
        constexpr std::size_t unitsBetween = std::size_t{1} << 16;
        constexpr std::size_t costOfALine = 64;
        std::size_t units = 0;
        const std::int32_t count = in_.Document.LastLine().Number();
        for (std::int32_t line = 1; line <= count; ++line) {
            const SharedText text = in_.Lines.TextOf(Line{line});
            const std::u16string_view view = text.View();
            const std::int32_t position =
                query_.PositionIn(std::span<const char16_t>(view.data(), view.size()));
            if (position != 0) AddFromMemory(Line{line}, position, view);
            // A line costs something even where nothing is in it.
            units += view.size() + costOfALine;
            if (units < unitsBetween && line != count) continue;
            units = 0;
            const auto done = static_cast<std::uint64_t>(line);
            if (!GoOn(done, static_cast<std::uint64_t>(count))) return;
        }
    }

    void AddFromMemory(Line line, std::int32_t position, std::u16string_view units) {
        if (!memory_) {
            memory_ = rows_->Results().AddSource(std::u16string(InMemory), LineForm::SingleByte);
            memoryUnits_ = rows_->Results().AddSource(std::u16string(InMemory), LineForm::Units);
        }
        const bool narrow = IsNarrow(units);
        bytes_.resize(narrow ? units.size() : units.size() * sizeof(char16_t));
        if (narrow) {
            for (std::size_t i = 0; i < units.size(); ++i) {
                bytes_[i] = static_cast<std::uint8_t>(units[i]);
            }
        } else {
            std::memcpy(bytes_.data(), units.data(), bytes_.size());
        }
        rows_->Results().Add(narrow ? *memory_ : memoryUnits_, line, position, bytes_);
    }

    /// The first result at or behind the caret's line is the list's selection: of the file that is
    /// shown, or of one that comes later in the list; never of one in front of it.
    void NoteCaretLine(std::size_t before) {
        if (!currentFileSeen_ || preselected_) return;
        const ResultStore& results = rows_->Results();
        const std::size_t first = results.FirstAtOrAfter(before, in_.Navigation.CaretRow);
        if (first < results.Count()) preselected_ = first;
    }

    const FindAllSources& in_;
    Surface& surface_;
    FindAllPeers& peers_;
    std::shared_ptr<FoundRows> rows_;
    LineQuery query_;
    FileScan files_;
    FileList entries_;
    WatchedSearch watched_;
    std::uint64_t generation_;
    SearchPlace place_;
    bool stopped_ = false;
    bool currentFileSeen_ = false;
    std::optional<std::size_t> preselected_;
    std::optional<std::uint32_t> memory_;
    std::uint32_t memoryUnits_ = 0;
    std::vector<std::uint8_t> bytes_;
};

void FindAll::Run(LineQuery::Kind kind) {
    Search search(*this, kind);
    last_ = search.Rows();
    search.Run();
    search.Finish();
    if (search.IsWanted()) list_.Show();
}

void FindAll::Speak(Language texts) {
    sources_.Texts = texts;
    const auto rows = last_.lock();
    if (rows == nullptr) return;
    rows->Speak(texts);
    surface_.lvFound.NoteMoreRows();
}

}  // namespace quorvale
