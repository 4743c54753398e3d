#include "control/member_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "base/text.h"

namespace quorvale {
namespace {

struct ExpectedMember {
    std::string Name;
    std::string Kinds;
    std::string Parameters;
    std::string Type;
    std::uint32_t Id;
    std::string HelpText;
    bool Hidden = false;
};

/// The interface as hosts know it. Kinds: method, get, let, set. Parameters: "[" marks an optional
/// one, "*" one that is written back.
const std::vector<ExpectedMember>& ExpectedMembers() {
    static const std::vector<ExpectedMember> members{
        {"ImageList", "get set", "", "Object", 0x40030013, ""},
        {"LoadFile", "method", "FileName String", "", 0x60030012,
         "Loads text from the given file."},
        {"CollapseLines", "method", "FromRow Long, ToRow Long", "Boolean", 0x60030014, ""},
        {"LineText", "get", "i Long", "String", 0x68030010, "Returns given line of the text", true},
        {"LineForeColor", "get let", "i Long", "Long", 0x6803000F,
         "Returns/sets forcolor of the given line", true},
        {"LineBackColor", "get let", "i Long", "Long", 0x6803000E,
         "Returns/sets backcolor of the given line", true},
        {"LineImage", "get let", "i Long", "Variant", 0x6803000D, ""},
        {"RowTop", "method", "r Long", "Single", 0x60030044, ""},
        {"LineCount", "get", "", "Long", 0x6803000C, "Returns number of lines in the text", true},
        {"TopLine", "get let", "", "Long", 0x6803000B, "", true},
        {"SelectedRowsCount", "get let", "", "Long", 0x68030046, ""},
        {"row", "get let", "", "Long", 0x6803000A, "Returns/set current row", true},
        {"col", "get let", "", "Long", 0x68030009, "Returns/sets current column", true},
        {"MoveTo", "method", "r Long, c Long", "", 0x60030019, ""},
        {"SearchText", "get let", "", "String", 0x6803009A, ""},
        {"CollapseAll", "method", "", "", 0x60030096, ""},
        {"ExpandAll", "method", "", "", 0x60030098, ""},
        {"AddButton", "method", "ButtonName String, Picture Picture, [ToolTipText String",
         "Boolean", 0x60030075, ""},
        {"ShowGrid", "get let", "", "Boolean", 0x68030047, ""},
        {"EnsureVisible", "method", "l Long*", "", 0x60030025,
         "Privides that the given line must be  visible."},
        {"Icon", "set", "", "Picture", 0x68030008, ""},
        {"BackColor", "get let", "", "Colour", 0x68030007,
         "Returns/sets the background color used to display text and graphics in an object."},
        {"BorderColor", "get let", "", "Colour", 0x68030006, ""},
        {"LeftBorderWidth", "get let", "", "Single", 0x68030005, ""},
        {"ForeColor", "get let", "", "Colour", 0x68030004,
         "Returns/sets the foreground color used to display text and graphics in an object."},
        {"Enabled", "get let", "", "Boolean", 0x68030003,
         "Returns/sets a value that determines whether an object can respond to user-generated "
         "events."},
        {"Font", "get set", "", "Font", 0xFFFFFE00, "Returns a Font object."},
        {"BorderStyle", "get let", "", "Integer", 0x68030002,
         "Returns/sets the border style for an object."},
        {"text", "get let", "", "String", 0x68030001, "Returns text in the contol", true},
        {"Offset", "get let", "", "Long", 0x68030000, "Returns/sets offset in the text", true},
        {"OffsetToRowCol", "method", "o Long*, r Long*, [c Long*", "", 0x60030040, ""},
        {"AutoRedraw", "let", "", "Boolean", 0x68030026, ""},
        {"SearchFiles", "let", "", "String", 0x68030099, ""},
    };
    return members;
}

std::string NameOf(ValueType type) {
    switch (type) {
        case ValueType::None:
            return "";
        case ValueType::Long:
            return "Long";
        case ValueType::Integer:
            return "Integer";
        case ValueType::Single:
            return "Single";
        case ValueType::Boolean:
            return "Boolean";
        case ValueType::String:
            return "String";
        case ValueType::AnyValue:
            return "Variant";
        case ValueType::ColourValue:
            return "Colour";
        case ValueType::Font:
            return "Font";
        case ValueType::Picture:
            return "Picture";
        case ValueType::Object:
            return "Object";
    }
    return "?";
}

std::string KindsOf(unsigned kinds) {
    std::string names;
    const auto add = [&](unsigned kind, const char* name) {
        if ((kinds & kind) != 0) names += (names.empty() ? "" : " ") + std::string(name);
    };
    add(1, "method");
    add(2, "get");
    add(4, "let");
    add(8, "set");
    return names;
}

std::string TextOf(std::span<const ParameterDescription> parameters) {
    std::string text;
    for (const auto& parameter : parameters) {
        if (!text.empty()) text += ", ";
        if (parameter.Optional) text += "[";
        text += std::string(parameter.Name) + " " + NameOf(parameter.Type);
        if (parameter.WrittenBack) text += "*";
    }
    return text;
}

ErrorKind KindOfFailure(const std::function<void()>& action) {
    try {
        action();
    } catch (const ControlError& error) {
        return error.Kind();
    }
    ADD_FAILURE() << "nothing failed";
    return ErrorKind::File;
}

TEST(MemberTable, HasTheMembersOfTheInterfaceInItsOrder) {
    const auto members = DescribeMembers();
    const auto& expected = ExpectedMembers();
    ASSERT_EQ(expected.size(), 33U);
    ASSERT_EQ(members.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(expected[i].Name);
        EXPECT_EQ(members[i].Name, expected[i].Name);
        EXPECT_EQ(KindsOf(members[i].Kinds), expected[i].Kinds);
        EXPECT_EQ(TextOf(members[i].Parameters), expected[i].Parameters);
        EXPECT_EQ(NameOf(members[i].Type), expected[i].Type);
        EXPECT_EQ(static_cast<std::uint32_t>(members[i].Id), expected[i].Id);
        EXPECT_EQ(members[i].HelpText, expected[i].HelpText);
        EXPECT_EQ(members[i].Hidden, expected[i].Hidden);
    }
}

TEST(MemberTable, FontAnswersToTheContainersStandardId) { EXPECT_EQ(GetIdOfName(u"Font"), -512); }

TEST(MemberTable, NineMembersAreHiddenFromBrowsing) {
    std::set<std::string> hidden;
    for (const auto& member : DescribeMembers()) {
        if (member.Hidden) hidden.emplace(member.Name);
    }
    EXPECT_EQ(hidden,
              (std::set<std::string>{"LineText", "LineForeColor", "LineBackColor", "LineCount",
                                     "TopLine", "row", "col", "text", "Offset"}));
}

TEST(MemberTable, SixPropertiesTakeTheirNewValueByValueAndAllElseIsByReference) {
    std::set<std::string> byValue;
    for (const auto& member : DescribeMembers()) {
        if (!member.ValueByReference) byValue.emplace(member.Name);
        for (const auto& parameter : member.Parameters) {
            EXPECT_TRUE(parameter.ByReference) << member.Name << " " << parameter.Name;
        }
    }
    EXPECT_EQ(byValue, (std::set<std::string>{"BackColor", "BorderColor", "ForeColor", "Enabled",
                                              "BorderStyle", "text"}));
    for (const auto& event : DescribeEvents()) {
        for (const auto& parameter : event.Parameters) {
            EXPECT_TRUE(parameter.ByReference) << event.Name << " " << parameter.Name;
        }
    }
}

TEST(MemberTable, OnlyLeftBorderWidthWritesItsNewValueBack) {
    for (const auto& member : DescribeMembers()) {
        EXPECT_EQ(member.ValueWrittenBack, member.Name == "LeftBorderWidth") << member.Name;
    }
}

TEST(MemberTable, IdsAreUnique) {
    std::set<std::int32_t> ids;
    for (const auto& member : DescribeMembers()) ids.insert(member.Id);
    EXPECT_EQ(ids.size(), DescribeMembers().size());
}

TEST(MemberTable, EveryNameLeadsToItsIdWhateverItsCase) {
    for (const auto& member : DescribeMembers()) {
        auto upper = std::string(member.Name);
        auto lower = upper;
        for (auto& letter : upper) letter = static_cast<char>(std::toupper(letter));
        for (auto& letter : lower) letter = static_cast<char>(std::tolower(letter));
        EXPECT_EQ(GetIdOfName(FromUtf8(member.Name)), member.Id) << member.Name;
        EXPECT_EQ(GetIdOfName(FromUtf8(upper)), member.Id) << upper;
        EXPECT_EQ(GetIdOfName(FromUtf8(lower)), member.Id) << lower;
    }
}

TEST(MemberTable, UnknownNamesAreRefused) {
    for (const auto* name : {u"", u"Lines", u"TopLin", u"TopLines", u"ＴopLine", u"MouseDown"}) {
        EXPECT_EQ(KindOfFailure([&] { GetIdOfName(name); }), ErrorKind::MemberNotFound)
            << ToUtf8(name);
    }
}

TEST(MemberTable, UnknownIdsAreRefused) {
    for (const std::int32_t id : {0, 1, 10, -1, -513, 0x6803000, 0x68030011}) {
        EXPECT_EQ(KindOfFailure([&] { DescribeMember(id); }), ErrorKind::MemberNotFound) << id;
    }
    EXPECT_EQ(DescribeMember(0x6803000B).Name, "TopLine");
}

struct ExpectedEvent {
    std::string Name;
    std::int32_t Id;
    std::string Parameters;
    std::string HelpText;
};

TEST(EventTable, HasTheEventsOfTheInterfaceInItsOrder) {
    const std::vector<ExpectedEvent> expected{
        {"MouseDown", 1, "Button Integer, Shift Integer, X Single, Y Single",
         "Occurs when the user presses the mouse button while an object has the focus."},
        {"MouseUp", 8, "Button Integer, Shift Integer, X Single, Y Single", ""},
        {"SelChanged", 6, "", ""},
        {"DblClick", 2, "", ""},
        {"ImageClick", 3, "row Long", ""},
        {"KeyDown", 4, "KeyCode Integer, Shift Integer", ""},
        {"KeyUp", 7, "KeyCode Integer, Shift Integer", ""},
        {"Scrolled", 5, "", ""},
        {"ButtonClick", 9, "ButtonName String", ""},
        {"BeforeFileChange", 10, "FileName String, changed Boolean*", ""},
    };
    const auto events = DescribeEvents();
    ASSERT_EQ(events.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(expected[i].Name);
        EXPECT_EQ(events[i].Name, expected[i].Name);
        EXPECT_EQ(events[i].Id, expected[i].Id);
        EXPECT_EQ(TextOf(events[i].Parameters), expected[i].Parameters);
        EXPECT_EQ(events[i].HelpText, expected[i].HelpText);
    }
}

TEST(ClassDescription, NamesTheClassAndItsTwoInterfaces) {
    EXPECT_EQ(DescribeClass().Name, "QuorvaleBox");
    EXPECT_EQ(DescribeClass().InterfaceName, "_QuorvaleBox");
    EXPECT_EQ(DescribeClass().EventInterfaceName, "__QuorvaleBox");
    EXPECT_FALSE(DescribeClass().Description.empty());
}

/// Version 4, variant 1, in capitals. In the pattern "h" stands for any hexadecimal digit and "v"
/// for one that names the variant.
bool IsRandomIdentifier(std::string_view id) {
    const std::string_view pattern = "hhhhhhhh-hhhh-4hhh-vhhh-hhhhhhhhhhhh";
    const auto fits = [](char c, char wanted) {
        if (wanted == 'h')
            return std::string_view("0123456789ABCDEF").find(c) != std::string_view::npos;
        if (wanted == 'v') return std::string_view("89AB").find(c) != std::string_view::npos;
        return c == wanted;
    };
    return std::equal(id.begin(), id.end(), pattern.begin(), pattern.end(), fits);
}

TEST(ClassDescription, HasThreeDifferentRandomIdentifiers) {
    std::set<std::string> ids;
    for (const auto id :
         {DescribeClass().ClassId, DescribeClass().InterfaceId, DescribeClass().EventInterfaceId}) {
        EXPECT_TRUE(IsRandomIdentifier(id)) << id;
        ids.emplace(id);
    }
    EXPECT_EQ(ids.size(), 3U);
}

}  // namespace
}  // namespace quorvale
