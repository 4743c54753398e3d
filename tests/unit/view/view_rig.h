#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "document/text_loading.h"
#include "platform/host_options.h"
#include "platform/picture.h"
#include "platform/surface.h"
#include "state/appearance_state.h"
#include "state/collapse_state.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"
#include "support/even_metrics.h"
#include "view/row_slots.h"

namespace quorvale {

/// The state and the elements that the view works on, of a surface of 12000 by 7560 twips: with
/// rows of 240 twips, 30 of them fit below the toolbar.
class ViewRig {
public:
    EvenMetrics Metrics;
    HostOptions Options;
    DocumentState Document;
    ViewState View;
    NavigationState Navigation;
    CollapseState Collapse;
    AppearanceState Looks;
    Surface Elements{Metrics};
    RowSlots Slots{View, Elements, Collapse};

    ViewRig() {
        for (const char16_t* key : {u"Expanded", u"Collapsed"}) {
            Elements.ilExpand.Add(key, std::make_shared<const Picture>("glyph", 180, 180));
        }
        Elements.ilMore.Add(u"right", std::make_shared<const Picture>("right", 240, 240));
        Elements.UserControl.SetWidth(12000);
        Elements.UserControl.SetHeight(7560);
        View.RowsPerView = 30;
    }

    /// The rows exist and stand at their places.
    void CreateRows() {
        Slots.CreateRowSlots();
        Slots.InitSurface();
    }

    void SetText(std::u16string_view text) {
        LoadedText loaded = TextFromString(text);
        const std::int32_t slots = loaded.Starts.Count();
        Document.Text = std::move(loaded.Text);
        Document.Table.Starts = std::move(loaded.Starts);
        Document.Table.ForeColors.Reset(slots, Elements.UserControl.ForeColor());
        Document.Table.BackColors.Reset(slots, Elements.UserControl.BackColor());
        Document.Table.Images.Reset(slots, std::int16_t{0});
        Document.Table.HiddenDepth.Reset(slots, 0);
        Document.LineSlots = slots;
        ++Document.Generation;
        Navigation.CaretRow = Line{1};
        Navigation.CaretCol = 1;
    }

    void Register(std::int32_t from, std::int32_t to) {
        Collapse.Ranges.push_back({from, to, 0});
        Collapse.RangesUnchanged = false;
    }

    void Hide(std::int32_t from, std::int32_t to) {
        Document.Table.HiddenDepth.AddToRange(from, to, 1);
    }
};

}  // namespace quorvale
