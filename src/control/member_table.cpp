#include "control/member_table.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/errors.h"
#include "base/text.h"

namespace quorvale {

namespace {

using namespace member_kind;
using Type = ValueType;

constexpr ClassDescription classDescription{
    .Name = "QuorvaleBox",
    .Description = "Shows one text file as rows",
    .ClassId = "863D88FF-D606-44D4-857F-FDE2821EC5DB",
    .InterfaceName = "_QuorvaleBox",
    .InterfaceId = "BA3F5F41-10CD-4F1D-873D-546AC25BDFD2",
    .EventInterfaceName = "__QuorvaleBox",
    .EventInterfaceId = "F5D364B2-02A3-4DCE-BC4B-D8ACEC5E3F7F",
};

template <std::size_t count>
using Parameters = std::array<ParameterDescription, count>;

constexpr Parameters<1> fileName{{{"FileName", Type::String}}};
constexpr Parameters<1> lineIndex{{{"i", Type::Long}}};
constexpr Parameters<2> foldedRows{{{"FromRow", Type::Long}, {"ToRow", Type::Long}}};
constexpr Parameters<1> rowAsked{{{"r", Type::Long}}};
constexpr Parameters<2> caretPlace{{{"r", Type::Long}, {"c", Type::Long}}};
constexpr Parameters<3> newButton{{
    {"ButtonName", Type::String},
    {"Picture", Type::Picture},
    {.Name = "ToolTipText", .Type = Type::String, .Optional = true},
}};
constexpr Parameters<1> lineToShow{{{.Name = "l", .Type = Type::Long, .WrittenBack = true}}};
constexpr Parameters<3> offsetRowCol{{
    {.Name = "o", .Type = Type::Long, .WrittenBack = true},
    {.Name = "r", .Type = Type::Long, .WrittenBack = true},
    {.Name = "c", .Type = Type::Long, .Optional = true, .WrittenBack = true},
}};

constexpr Parameters<4> mouse{{
    {"Button", Type::Integer},
    {"Shift", Type::Integer},
    {"X", Type::Single},
    {"Y", Type::Single},
}};
constexpr Parameters<1> clickedRow{{{"row", Type::Long}}};
constexpr Parameters<2> key{{{"KeyCode", Type::Integer}, {"Shift", Type::Integer}}};
constexpr Parameters<1> clickedButton{{{"ButtonName", Type::String}}};
constexpr Parameters<2> fileChange{{
    {"FileName", Type::String},
    {.Name = "changed", .Type = Type::Boolean, .WrittenBack = true},
}};

// The help texts are part of the interface and stay as hosts know them, slips included.
constexpr std::array<MemberDescription, 33> members{{
    {"ImageList", Get | Set, {}, Type::Object, member_id::ImageList},
    {"LoadFile", Method, fileName, Type::None, member_id::LoadFile,
     "Loads text from the given file."},
    {"CollapseLines", Method, foldedRows, Type::Boolean, member_id::CollapseLines},
    {"LineText", Get, lineIndex, Type::String, member_id::LineText,
     "Returns given line of the text", true},
    {"LineForeColor", Get | Let, lineIndex, Type::Long, member_id::LineForeColor,
     "Returns/sets forcolor of the given line", true},
    {"LineBackColor", Get | Let, lineIndex, Type::Long, member_id::LineBackColor,
     "Returns/sets backcolor of the given line", true},
    {"LineImage", Get | Let, lineIndex, Type::AnyValue, member_id::LineImage},
    {"RowTop", Method, rowAsked, Type::Single, member_id::RowTop},
    {"LineCount",
     Get,
     {},
     Type::Long,
     member_id::LineCount,
     "Returns number of lines in the text",
     true},
    {"TopLine", Get | Let, {}, Type::Long, member_id::TopLine, "", true},
    {"SelectedRowsCount", Get | Let, {}, Type::Long, member_id::SelectedRowsCount},
    {"row", Get | Let, {}, Type::Long, member_id::row, "Returns/set current row", true},
    {"col", Get | Let, {}, Type::Long, member_id::col, "Returns/sets current column", true},
    {"MoveTo", Method, caretPlace, Type::None, member_id::MoveTo},
    {"SearchText", Get | Let, {}, Type::String, member_id::SearchText},
    {"CollapseAll", Method, {}, Type::None, member_id::CollapseAll},
    {"ExpandAll", Method, {}, Type::None, member_id::ExpandAll},
    {"AddButton", Method, newButton, Type::Boolean, member_id::AddButton},
    {"ShowGrid", Get | Let, {}, Type::Boolean, member_id::ShowGrid},
    {"EnsureVisible", Method, lineToShow, Type::None, member_id::EnsureVisible,
     "Privides that the given line must be  visible."},
    {"Icon", Set, {}, Type::Picture, member_id::Icon},
    {"BackColor",
     Get | Let,
     {},
     Type::ColourValue,
     member_id::BackColor,
     "Returns/sets the background color used to display text and graphics in an object.",
     false,
     false},
    {"BorderColor", Get | Let, {}, Type::ColourValue, member_id::BorderColor, "", false, false},
    {"LeftBorderWidth",
     Get | Let,
     {},
     Type::Single,
     member_id::LeftBorderWidth,
     "",
     false,
     true,
     true},
    {"ForeColor",
     Get | Let,
     {},
     Type::ColourValue,
     member_id::ForeColor,
     "Returns/sets the foreground color used to display text and graphics in an object.",
     false,
     false},
    {"Enabled",
     Get | Let,
     {},
     Type::Boolean,
     member_id::Enabled,
     "Returns/sets a value that determines whether an object can respond to user-generated "
     "events.",
     false,
     false},
    {"Font", Get | Set, {}, Type::Font, member_id::Font, "Returns a Font object."},
    {"BorderStyle",
     Get | Let,
     {},
     Type::Integer,
     member_id::BorderStyle,
     "Returns/sets the border style for an object.",
     false,
     false},
    {"text",
     Get | Let,
     {},
     Type::String,
     member_id::text,
     "Returns text in the contol",
     true,
     false},
    {"Offset",
     Get | Let,
     {},
     Type::Long,
     member_id::Offset,
     "Returns/sets offset in the text",
     true},
    {"OffsetToRowCol", Method, offsetRowCol, Type::None, member_id::OffsetToRowCol},
    {"AutoRedraw", Let, {}, Type::Boolean, member_id::AutoRedraw},
    {"SearchFiles", Let, {}, Type::String, member_id::SearchFiles},
}};

constexpr std::array<EventDescription, 10> events{{
    {"MouseDown", event_id::MouseDown, mouse,
     "Occurs when the user presses the mouse button while an object has the focus."},
    {"MouseUp", event_id::MouseUp, mouse},
    {"SelChanged", event_id::SelChanged, {}},
    {"DblClick", event_id::DblClick, {}},
    {"ImageClick", event_id::ImageClick, clickedRow},
    {"KeyDown", event_id::KeyDown, key},
    {"KeyUp", event_id::KeyUp, key},
    {"Scrolled", event_id::Scrolled, {}},
    {"ButtonClick", event_id::ButtonClick, clickedButton},
    {"BeforeFileChange", event_id::BeforeFileChange, fileChange},
}};

constexpr char16_t Lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

/// All names are ASCII.
bool IsNamed(const MemberDescription& member, std::u16string_view name) {
    return std::equal(
        member.Name.begin(), member.Name.end(), name.begin(), name.end(),
        [](char own, char16_t asked) { return Lower(static_cast<char16_t>(own)) == Lower(asked); });
}

}  // namespace

const ClassDescription& DescribeClass() { return classDescription; }
std::span<const MemberDescription> DescribeMembers() { return members; }
std::span<const EventDescription> DescribeEvents() { return events; }

const MemberDescription& DescribeMember(std::int32_t id) {
    const auto found =
        std::find_if(members.begin(), members.end(),
                     [&](const MemberDescription& member) { return member.Id == id; });
    if (found == members.end()) {
        throw ControlError(ErrorKind::MemberNotFound,
                           "There is no member with the id " + std::to_string(id));
    }
    return *found;
}

std::int32_t GetIdOfName(std::u16string_view name) {
    const auto found =
        std::find_if(members.begin(), members.end(),
                     [&](const MemberDescription& member) { return IsNamed(member, name); });
    if (found == members.end()) {
        throw ControlError(ErrorKind::MemberNotFound, "There is no member " + ToUtf8(name));
    }
    return found->Id;
}

}  // namespace quorvale
