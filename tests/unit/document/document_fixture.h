#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "document/text_loading.h"
#include "state/document_state.h"
#include "support/even_metrics.h"

namespace quorvale {

/// A document with that text and the CR LF behind it, every column at its default.
inline DocumentState DocumentOf(std::u16string_view text) {
    LoadedText loaded = TextFromString(text);
    DocumentState document;
    document.Text = std::move(loaded.Text);
    document.Table.Starts = std::move(loaded.Starts);
    document.LineSlots = document.Table.Starts.Count();
    document.Table.ForeColors.Reset(document.LineSlots, 0);
    document.Table.BackColors.Reset(document.LineSlots, 0);
    document.Table.Images.Reset(document.LineSlots, std::int16_t{0});
    document.Table.HiddenDepth.Reset(document.LineSlots, 0);
    document.Generation = 1;
    return document;
}

}  // namespace quorvale
