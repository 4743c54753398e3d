#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "document/line_access.h"
#include "document/text_loading.h"
#include "platform/host_options.h"
#include "platform/memory_files.h"
#include "platform/surface.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/search_state.h"
#include "support/documents.h"
#include "support/even_metrics.h"

namespace quorvale {

/// The state and the elements that a search works on: nothing is on screen, all is in the document.
class SearchRig {
public:
    EvenMetrics Metrics;
    HostOptions Options;
    DocumentState Document;
    ViewState View;
    NavigationState Navigation;
    SearchState Search;
    Surface Elements{Metrics};
    LineAccess Lines{Document, View, Elements, Metrics, Options};
    MemoryFiles Files;
    /// What the peers were asked for, in order.
    std::vector<std::string> Calls;

    SearchRig() {
        ToolbarButton find;
        find.Key = u"Find";
        Elements.tbMore.Add(find);
    }

    void SetText(std::u16string_view text, const std::u16string& fileName = {}) {
        LoadedText loaded = TextFromString(text);
        Document.Text = std::move(loaded.Text);
        Document.Table.Starts = std::move(loaded.Starts);
        Document.LineSlots = Document.Table.Starts.Count();
        Document.FileName = fileName;
        ++Document.Generation;
        Navigation.StartDocument();
    }

    void PutCaret(std::int32_t row, std::int32_t col) {
        Navigation.CaretRow = Line{row};
        Navigation.CaretCol = col;
    }
};

}  // namespace quorvale
