#pragma once

#include <cstdint>

namespace quorvale {

/// How a member is called by id; callers add them up when more than one will do.
namespace member_kind {
inline constexpr unsigned Method = 1;  ///< a call
inline constexpr unsigned Get = 2;     ///< a property is read
inline constexpr unsigned Let = 4;     ///< a property is set
inline constexpr unsigned Set = 8;     ///< a Let that takes an object reference
}  // namespace member_kind

/// The ids that hosts bind to; they never change. 0x6803.... are properties, 0x6003.... methods,
/// 0x4003.... the public field, negative ones standard ids of containers.
namespace member_id {
/// @{
/// Of the member of that name, which QuorvaleBox documents.
inline constexpr std::int32_t ImageList = 0x40030013;
inline constexpr std::int32_t LoadFile = 0x60030012;
inline constexpr std::int32_t CollapseLines = 0x60030014;
inline constexpr std::int32_t LineText = 0x68030010;
inline constexpr std::int32_t LineForeColor = 0x6803000F;
inline constexpr std::int32_t LineBackColor = 0x6803000E;
inline constexpr std::int32_t LineImage = 0x6803000D;
inline constexpr std::int32_t RowTop = 0x60030044;
inline constexpr std::int32_t LineCount = 0x6803000C;
inline constexpr std::int32_t TopLine = 0x6803000B;
inline constexpr std::int32_t SelectedRowsCount = 0x68030046;
inline constexpr std::int32_t row = 0x6803000A;
inline constexpr std::int32_t col = 0x68030009;
inline constexpr std::int32_t MoveTo = 0x60030019;
inline constexpr std::int32_t SearchText = 0x6803009A;
inline constexpr std::int32_t CollapseAll = 0x60030096;
inline constexpr std::int32_t ExpandAll = 0x60030098;
inline constexpr std::int32_t AddButton = 0x60030075;
inline constexpr std::int32_t ShowGrid = 0x68030047;
inline constexpr std::int32_t EnsureVisible = 0x60030025;
inline constexpr std::int32_t Icon = 0x68030008;
inline constexpr std::int32_t BackColor = 0x68030007;
inline constexpr std::int32_t BorderColor = 0x68030006;
inline constexpr std::int32_t LeftBorderWidth = 0x68030005;
inline constexpr std::int32_t ForeColor = 0x68030004;
inline constexpr std::int32_t Enabled = 0x68030003;
inline constexpr std::int32_t Font = -512;
inline constexpr std::int32_t BorderStyle = 0x68030002;
inline constexpr std::int32_t text = 0x68030001;
inline constexpr std::int32_t Offset = 0x68030000;
inline constexpr std::int32_t OffsetToRowCol = 0x60030040;
inline constexpr std::int32_t AutoRedraw = 0x68030026;
inline constexpr std::int32_t SearchFiles = 0x68030099;
/// @}
}  // namespace member_id

/// The numbers by which an EventSink hears of events; they never change.
namespace event_id {
/// @{
/// Of the event of that name, which QuorvaleBoxEvents documents.
inline constexpr std::int32_t MouseDown = 1;
inline constexpr std::int32_t DblClick = 2;
inline constexpr std::int32_t ImageClick = 3;
inline constexpr std::int32_t KeyDown = 4;
inline constexpr std::int32_t Scrolled = 5;
inline constexpr std::int32_t SelChanged = 6;
inline constexpr std::int32_t KeyUp = 7;
inline constexpr std::int32_t MouseUp = 8;
inline constexpr std::int32_t ButtonClick = 9;
inline constexpr std::int32_t BeforeFileChange = 10;
/// @}
}  // namespace event_id

}  // namespace quorvale
