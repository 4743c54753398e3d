#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "document/text_loading.h"
#include "document/visible_lines.h"
#include "platform/host_options.h"
#include "platform/surface.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/slot_lines.h"
#include "state/view_state.h"
#include "support/documents.h"
#include "support/even_metrics.h"

namespace quorvale {

/// The state and the elements that moving over a document works on: a view of 30 rows on a surface
/// of 12000 by 7560 twips whose bars stand as a layout leaves them.
class NavigationRig {
public:
    EvenMetrics Metrics;
    HostOptions Options;
    DocumentState Document;
    ViewState View;
    NavigationState Navigation;
    Surface Elements{Metrics};

    NavigationRig() {
        while (Elements.lblLine.UpperBound() < 128) Elements.lblLine.Load();
        View.RowSlotCount = 128;
        View.RowsPerView = 30;
        View.TextLeftMargin = 315;
        Elements.UserControl.SetWidth(12000);
        Elements.UserControl.SetHeight(7560);
        Elements.scrVert.Move(11745, 360, 255, 7200);
        Elements.scrVert.SetVisible(true);
        Elements.scrHorz.Move(0, 7305, 11745, 255);
    }

    /// Nothing but a number of lines: enough for whatever does not read them.
    void SetLines(std::int32_t lines) {
        Document.LineSlots = lines + 1;
        Document.ScrollScale = static_cast<std::int16_t>(Document.LineSlots / 32768 + 1);
        Document.Table.HiddenDepth.Reset(Document.LineSlots, 0);
        SetVerticalRange();
    }

    void SetText(std::u16string_view text) {
        LoadedText loaded = TextFromString(text);
        Document.Text = std::move(loaded.Text);
        Document.Table.Starts = std::move(loaded.Starts);
        SetLines(Document.Table.Starts.Count() - 1);
        ++Document.Generation;
    }

    void Hide(std::int32_t from, std::int32_t to) {
        Document.Table.HiddenDepth.AddToRange(from, to, 1);
    }

    /// The rows name the lines that a fill would put there.
    void ShowRows() {
        Line line = VisibleAtOrAbove(Document, Navigation.TopLine);
        for (int slot = 0; slot < 128; ++slot) {
            SetSlot(Elements, slot, CaptionOf(line), line);
            line = NextVisibleLine(Document, line);
        }
    }

    /// The line's text; "" where the document has none, as after `SetLines`.
    SharedText CaptionOf(Line line) const {
        if (Document.Text.Length() == 0 || !Document.IsLine(line)) return {};
        const LineStarts& starts = Document.Table.Starts;
        const std::int32_t from = starts[line.Number()];
        return SharedText(Document.Text.Mid(from, starts[line.Number() + 1] - 2 - from));
    }

    void SetVerticalRange() {
        ScrollBar& bar = Elements.scrVert;
        const std::int32_t rows = Document.LineSlots - View.RowsPerView;
        const bool scrollable = rows > 0;
        bar.SetMin(1);
        bar.SetMax(scrollable ? rows / Document.ScrollScale : 1);
        bar.SetLargeChange(std::max(1, View.RowsPerView - 2));
    }
};

}  // namespace quorvale
