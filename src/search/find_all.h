#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "document/line_access.h"
#include "platform/files.h"
#include "platform/host_options.h"
#include "platform/search_progress.h"
#include "platform/surface.h"
#include "resources/string_table.h"
#include "search/case_table.h"
#include "search/found_list.h"
#include "search/line_query.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/search_state.h"

namespace quorvale {

class FoundRows;

/// What finding all matches asks of the others.
class FindAllPeers {
public:
    virtual ~FindAllPeers() = default;
    /// The control has been destroyed meanwhile.
    virtual bool HasEnded() const = 0;
};

/// What finding all matches reads.
struct FindAllSources {
    const SearchState& Search;
    const DocumentState& Document;
    const NavigationState& Navigation;
    LineAccess& Lines;
    FileSystem& Files;
    const HostOptions& Options;
    Language Texts;
    CaseTablePtr Cases;
    std::shared_ptr<SearchProgress> Progress;
};

/// Lists every line that contains the text of the search box, or that matches it as a wildcard
/// pattern: in the files that the host has named, else in the file that is shown, as it stands on
/// the disk, else in the document in memory.
///
/// A file that cannot be opened or read, a line too long and an invalid pattern end the search of
/// that one file without a word.
class FindAll {
public:
    FindAll(FindAllSources sources, Surface& surface, FoundList& list, FindAllPeers& peers)
        : sources_(std::move(sources)), surface_(surface), list_(list), peers_(peers) {}

    void Run(LineQuery::Kind kind);

    /// The language of the lists from now on, also of the one that is there.
    void Speak(Language texts);

private:
    class Search;

    FindAllSources sources_;
    Surface& surface_;
    FoundList& list_;
    FindAllPeers& peers_;
    /// The rows of the last run.
    std::weak_ptr<FoundRows> last_;
};

}  // namespace quorvale
