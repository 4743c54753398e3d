#pragma once

#include <span>
#include <string_view>

namespace quorvale {

/// A picture of the control's own, as SVG text that a surface draws at whatever scale it needs.
/// Only mid-tone colours are used, on a transparent ground: they stand out on light and on dark
/// windows alike.
struct PictureData {
    std::string_view Key;
    std::string_view Svg;
    int Width;   ///< in pixels at 96 dpi
    int Height;  ///< in pixels at 96 dpi
};

/// Pictures of the toolbar, of the button that shows and hides it, and of the results list's return
/// item: "left", "right", "Edit", "Find", "Print", "Collapsed", "Grid", "Back"; 16 x 16.
std::span<const PictureData> ToolbarPictures();

/// The glyphs of a collapsible range: "Collapsed", "Expanded"; 12 x 12, which is 180 x 180 twips.
std::span<const PictureData> GlyphPictures();

/// The caret marker shown while the host has set no picture of its own; 16 x 16. It is laid over
/// the row, centred on the caret, so it is a slim bar that leaves the characters readable.
const PictureData& CaretMarkerPicture();

/// The mark beside a corrected row: a bar as narrow as its place, drawn as high as the row; 5 x 15.
const PictureData& CorrectionMarkPicture();

/// The icon of a window that shows the control; 64 x 64.
const PictureData& WindowIcon();

}  // namespace quorvale
