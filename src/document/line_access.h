#pragma once

#include <map>
#include <optional>
#include <string>

#include "base/ordinals.h"
#include "platform/host_options.h"
#include "platform/surface.h"
#include "platform/text_metrics.h"
#include "state/document_state.h"
#include "state/view_state.h"

namespace quorvale {

/// Cuts lines out of the document and brings them into the form that rows show. Keeps the display
/// form of very long lines while they are on screen: making it again for every step of a scroll
/// would be felt.
class LineAccess {
public:
    LineAccess(DocumentState& document, const ViewState& view, const Surface& surface,
               const TextMetrics& metrics, const HostOptions& options)
        : document_(document),
          view_(view),
          surface_(surface),
          metrics_(metrics),
          options_(options) {}

    /// The line as it stands in the document, without its line break; "" for a bad number.
    std::u16string RawLineText(Line line) const;

    /// The caption of a line that is on screen, otherwise the line with its tabs expanded, which is
    /// then measured. "" for a bad number.
    std::u16string LineText(Line line) { return std::u16string(TextOf(line).View()); }

    /// The same text, shared with the row that shows it.
    SharedText TextOf(Line line);

    /// What a row shows of the line, made from the document, never from a row; and measured.
    SharedText DisplayText(Line line);

    /// Width in twips, not rounded, of the characters of a text before a 1-based column.
    Twips WidthBefore(const SharedText& text, std::int32_t col) const;

    /// Between these two every display form that was asked for is kept for the next time.
    void BeginFill();
    void EndFill();

private:
    struct LongLine {
        SharedText Display;
        Twips Width;
        bool Used;
    };

    void ForgetStale();
    struct Expanded {
        Line Of;
        SharedText Text;
        Twips Width = 0;
    };

    /// The place along a long line that was measured last: a caret stays there while rows move.
    struct Measured {
        SharedText Text;
        std::int32_t Col = 0;
        quorvale::Font Font;
        Twips Width = 0;
    };

    SharedText ExpandedText(Line line);
    SharedText KeepLong(Line line, SharedText display);
    std::optional<Twips> Measure(std::u16string_view display);
    void NoteWidth(Twips textWidth);

    DocumentState& document_;
    const ViewState& view_;
    const Surface& surface_;
    const TextMetrics& metrics_;
    const HostOptions& options_;
    std::map<Line, LongLine> longLines_;
    std::uint64_t longLinesOf_ = 0;
    Font longLinesFont_;
    /// The long line that was last read off screen.
    Expanded expanded_;
    mutable Measured measured_;
};

}  // namespace quorvale
