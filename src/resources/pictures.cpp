#include "resources/pictures.h"

#include <array>

namespace quorvale {

namespace {

// Strokes one pixel wide lie on half pixels, so that they are crisp at 96 dpi.

constexpr std::string_view leftSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<path d="M10 3L5 8L10 13" fill="none" stroke="#808080" stroke-width="2"/>
</svg>
)";

constexpr std::string_view rightSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<path d="M6 3L11 8L6 13" fill="none" stroke="#808080" stroke-width="2"/>
</svg>
)";

constexpr std::string_view editSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<path d="M2.5 13.5L3.5 10L11 2.5L13.5 5L6 12.5Z" fill="none" stroke="#3d85c6"
 stroke-width="1.5" stroke-linejoin="round"/>
<path d="M9 4.5L11.5 7" fill="none" stroke="#3d85c6"/>
<path d="M8 14.5H14" fill="none" stroke="#808080"/>
</svg>
)";

constexpr std::string_view findSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<circle cx="6.5" cy="6.5" r="4.5" fill="none" stroke="#3d85c6" stroke-width="1.5"/>
<path d="M10 10L14 14" fill="none" stroke="#808080" stroke-width="2" stroke-linecap="round"/>
</svg>
)";

constexpr std::string_view printSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<path d="M4.5 6V1.5H11.5V6" fill="none" stroke="#808080"/>
<path d="M4 11.5H1.5V6.5H14.5V11.5H12" fill="none" stroke="#808080"/>
<rect x="4.5" y="9.5" width="7" height="5" fill="none" stroke="#3d85c6"/>
<path d="M6 12H10" fill="none" stroke="#3d85c6" stroke-width="2"/>
</svg>
)";

constexpr std::string_view collapseLinesSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<rect x="1.5" y="1.5" width="6" height="6" fill="none" stroke="#3d85c6"/>
<path d="M3 4.5H6M4.5 3V6" fill="none" stroke="#3d85c6"/>
<path d="M10 4.5H15M4.5 8V13.5H7M9 9.5H15M9 13.5H15" fill="none" stroke="#808080"/>
</svg>
)";

constexpr std::string_view gridSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<path d="M1 3.5H8M1 6.5H7M1 9.5H8M1 12.5H5" fill="none" stroke="#808080"/>
<path d="M10.5 1V15M14.5 1V15" fill="none" stroke="#3d85c6"/>
</svg>
)";

constexpr std::string_view backSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<path d="M6 2L2 6L6 10M2.5 6H10C12.5 6 14 7.5 14 9.5S12.5 13 10 13H7" fill="none"
 stroke="#3d85c6" stroke-width="2"/>
</svg>
)";

// The sign stands on the pixel column that starts at half the glyph's width: there the bracket of
// the range hangs.
constexpr std::string_view collapsedGlyphSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="12" height="12" viewBox="0 0 12 12">
<rect x="2.5" y="2.5" width="8" height="8" fill="none" stroke="#808080"/>
<path d="M4 6.5H9M6.5 4V9" fill="none" stroke="#3d85c6"/>
</svg>
)";

constexpr std::string_view expandedGlyphSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="12" height="12" viewBox="0 0 12 12">
<rect x="2.5" y="2.5" width="8" height="8" fill="none" stroke="#808080"/>
<path d="M4 6.5H9" fill="none" stroke="#3d85c6"/>
</svg>
)";

constexpr std::string_view caretMarkerSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
<rect x="7" y="0" width="2" height="16" fill="#de4f2f"/>
</svg>
)";

constexpr std::string_view correctionMarkSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="5" height="15" viewBox="0 0 5 15">
<rect x="1" y="0" width="3" height="15" fill="#35915e"/>
</svg>
)";

constexpr std::string_view windowIconSvg =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64" viewBox="0 0 64 64">
<rect x="8" y="4" width="48" height="56" rx="4" fill="#ffffff" stroke="#808080"
 stroke-width="2"/>
<rect x="9" y="27" width="46" height="10" fill="#3d85c6"/>
<path d="M16 15V49" stroke="#3d85c6" stroke-width="2"/>
<path d="M22 14H46M22 23H40M22 41H48M22 50H36" stroke="#808080" stroke-width="3"/>
<path d="M22 32H38" stroke="#ffffff" stroke-width="3"/>
<rect x="41" y="26" width="3" height="12" fill="#de4f2f"/>
</svg>
)";

constexpr std::array<PictureData, 8> toolbar{{
    {"left", leftSvg, 16, 16},
    {"right", rightSvg, 16, 16},
    {"Edit", editSvg, 16, 16},
    {"Find", findSvg, 16, 16},
    {"Print", printSvg, 16, 16},
    {"Collapsed", collapseLinesSvg, 16, 16},
    {"Grid", gridSvg, 16, 16},
    {"Back", backSvg, 16, 16},
}};

constexpr std::array<PictureData, 2> glyphs{{
    {"Collapsed", collapsedGlyphSvg, 12, 12},
    {"Expanded", expandedGlyphSvg, 12, 12},
}};

constexpr PictureData caretMarker{"Marker", caretMarkerSvg, 16, 16};
constexpr PictureData correctionMark{"Correction", correctionMarkSvg, 5, 15};
constexpr PictureData windowIcon{"Window", windowIconSvg, 64, 64};

}  // namespace

std::span<const PictureData> ToolbarPictures() { return toolbar; }
std::span<const PictureData> GlyphPictures() { return glyphs; }
const PictureData& CaretMarkerPicture() { return caretMarker; }
const PictureData& CorrectionMarkPicture() { return correctionMark; }
const PictureData& WindowIcon() { return windowIcon; }

}  // namespace quorvale
