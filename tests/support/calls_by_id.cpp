#include "support/calls_by_id.h"

#include "base/errors.h"
#include "control/dispatch.h"
#include "platform/keyed_pictures.h"

namespace quorvale {

Variant CallsById::SomeValue(ValueType type) {
    switch (type) {
        case ValueType::Boolean:
            return true;
        case ValueType::String:
        case ValueType::AnyValue:
            return Text(u"x");
        case ValueType::Font:
            return Font{.Name = u"Other"};
        case ValueType::Picture:
            return PicturePtr(std::make_shared<Picture>("p", 240, 240));
        case ValueType::Object:
            return std::shared_ptr<Object>(std::make_shared<ImageList>());
        default:
            return Long(1);
    }
}

std::vector<std::pair<Variant, ErrorKind>> CallsById::BadValues(ValueType type) {
    using enum ErrorKind;
    const Variant font = Font{};
    const Variant object = std::shared_ptr<Object>(std::make_shared<ImageList>());
    switch (type) {
        case ValueType::Long:
        case ValueType::ColourValue:
            return {{Text(u"two"), TypeMismatch},   {Text(u""), TypeMismatch}, {font, TypeMismatch},
                    {object, TypeMismatch},         {4294967296.0, Overflow},  {-3e9, Overflow},
                    {Text(u"9999999999"), Overflow}};
        case ValueType::Integer:
            return {{Text(u"two"), TypeMismatch},
                    {font, TypeMismatch},
                    {object, TypeMismatch},
                    {Long(32768), Overflow},
                    {-32769.0, Overflow}};
        case ValueType::Single:
            return {{Text(u"wide"), TypeMismatch}, {object, TypeMismatch}, {1e300, Overflow}};
        case ValueType::Boolean:
            return {{Text(u"yes"), TypeMismatch}, {font, TypeMismatch}, {object, TypeMismatch}};
        case ValueType::String:
            return {{font, TypeMismatch}, {object, TypeMismatch}};
        case ValueType::Font:
            return {{Text(u"Even"), TypeMismatch}, {object, TypeMismatch}, {{}, TypeMismatch}};
        case ValueType::Picture:
            return {{Long(1), TypeMismatch}, {object, TypeMismatch}, {{}, TypeMismatch}};
        case ValueType::Object:
            return {{Long(1), TypeMismatch}, {font, TypeMismatch}, {{}, TypeMismatch}};
        default:
            return {};
    }
}

void CallsById::Right(const char16_t* name, unsigned kind, Arguments arguments,
                      const Variant& result, std::optional<Arguments> after) {
    const MemberDescription& member = DescribeMember(GetIdOfName(name));
    const std::string call = std::string(member.Name) + " as " + std::to_string(kind);
    const Arguments before = arguments;
    called_.emplace(member.Id, kind);
    try {
        Expect(Invoke(box_, member.Id, kind, arguments) == result, call + ": another result");
        Expect(arguments == after.value_or(before), call + ": other arguments afterwards");
    } catch (const ControlError& error) {
        Expect(false, call + ": " + error.what());
    }
}

void CallsById::Refused(const MemberDescription& member, unsigned kind, Arguments arguments,
                        ErrorKind error) {
    const std::string call = std::string(member.Name) + " as " + std::to_string(kind) + " with " +
                             std::to_string(arguments.size()) + " arguments";
    const Arguments before = arguments;
    const std::vector<Variant> state = State();
    ++refusals_;
    try {
        Invoke(box_, member.Id, kind, arguments);
        Expect(false, call + ": was not refused");
    } catch (const ControlError& raised) {
        Expect(raised.Kind() == error, call + ": another error: " + raised.what());
        Expect(std::string(raised.what()).find(member.Name) != std::string::npos,
               call + ": the member is not named");
    }
    Expect(arguments == before, call + ": the arguments changed");
    Expect(State() == state, call + ": the control changed");
}

std::vector<Variant> CallsById::State() {
    const Surface& surface = box_.Elements();
    return {box_.text(),
            box_.TopLine(),
            box_.row(),
            box_.col(),
            box_.SelectedRowsCount(),
            box_.SearchText(),
            std::int32_t(box_.BackColor()),
            std::int32_t(box_.ForeColor()),
            std::int32_t(box_.BorderColor()),
            std::int32_t(box_.LineForeColor(1)),
            box_.LineImage(1),
            box_.LeftBorderWidth(),
            box_.Enabled(),
            box_.Font(),
            box_.BorderStyle(),
            box_.ShowGrid(),
            std::int32_t(surface.tbMore.Buttons().size()),
            surface.imgMarker.Shown(),
            box_.ImageList(),
            box_.RowTop(3)};
}

void CallsById::CallWithBadArguments(const MemberDescription& member, unsigned kind) {
    const bool writes = kind == member_kind::Let || kind == member_kind::Set;
    std::vector<ValueType> types;
    std::size_t optional = 0;
    for (const ParameterDescription& parameter : member.Parameters) {
        types.push_back(parameter.Type);
        if (parameter.Optional) ++optional;
    }
    if (writes) types.push_back(member.Type);
    Arguments good;
    for (const ValueType type : types) good.push_back(SomeValue(type));
    for (std::size_t place = 0; place < types.size(); ++place) {
        for (const auto& [value, error] : BadValues(types[place])) {
            Arguments bad = good;
            bad[place] = value;
            Refused(member, kind, bad, error);
        }
    }
    Arguments fewer = good;
    fewer.resize(good.size() - optional);
    if (!fewer.empty()) {
        fewer.pop_back();
        Refused(member, kind, fewer, ErrorKind::ArgumentCount);
    }
    good.push_back(Long(1));
    Refused(member, kind, good, ErrorKind::ArgumentCount);
}

void CallsById::CallWrongly() {
    using namespace member_kind;
    for (const MemberDescription& member : DescribeMembers()) {
        for (const unsigned kind : Kinds()) {
            if ((member.Kinds & kind) != 0) {
                CallWithBadArguments(member, kind);
            } else if (kind == Get && (member.Kinds & (Let | Set)) != 0) {
                Refused(member, kind, {}, ErrorKind::WriteOnly);
            } else if ((kind & (Let | Set)) != 0 && member.Kinds == Get) {
                Refused(member, kind, {Long(1)}, ErrorKind::ReadOnly);
            } else {
                Refused(member, kind, {}, ErrorKind::MemberNotFound);
            }
        }
    }
}

void CallsById::CallRightly() {
    CallTextRightly();
    CallAppearanceRightly();
}

void CallsById::CallTextRightly() {
    using namespace member_kind;
    Right(u"LineCount", Get, {}, Long(100));
    Right(u"LineText", Get, {Long(3)}, Text(u"L3"));
    Right(u"LineText", Get, {Text(u" 3 ")}, Text(u"L3"));
    Right(u"LineText", Get, {Long(0)}, Text(u""));
    Right(u"LineForeColor", Let, {Long(3), Long(0x112233)});
    Right(u"LineForeColor", Get, {Long(3)}, Long(0x112233));
    Right(u"LineBackColor", Let, {Long(3), Long(-2147483635)});
    Right(u"LineBackColor", Get, {Long(3)}, Long(-2147483635));
    Right(u"LineBackColor", Get, {Long(777)}, Long(std::int32_t(box_.BackColor())));
    Right(u"LineImage", Let, {Long(3), Text(u"key")});
    Right(u"LineImage", Get, {Long(3)}, Text(u"key"));
    Right(u"RowTop", Method, {Long(3)}, box_.RowTop(3));
    Expect(box_.RowTop(3) > box_.RowTop(2), "The third row is not below the second");
    Right(u"TopLine", Let, {Long(20)});
    Right(u"TopLine", Get, {}, Long(20));
    Right(u"row", Let, {Long(22)});
    Right(u"row", Get, {}, Long(22));
    Right(u"col", Let, {2.5});
    Right(u"col", Get, {}, Long(2));
    Right(u"MoveTo", Method, {Long(25), Long(3)});
    Expect(box_.row() == 25 && box_.col() == 3, "MoveTo led elsewhere");
    Right(u"SelectedRowsCount", Let, {Long(-2)});
    Right(u"SelectedRowsCount", Get, {}, Long(-2));
    Right(u"Offset", Let, {Long(9)});
    Right(u"Offset", Get, {}, Long(9));
    Right(u"OffsetToRowCol", Method, {Long(9), Long(0), Long(0)}, {},
          {{Long(9), Long(3), Long(1)}});
    Right(u"OffsetToRowCol", Method, {Long(9), 0.0F}, {}, {{Long(9), 3.0F}});
    Right(u"OffsetToRowCol", Method, {Long(0), Long(0)}, {}, {{Long(1), Long(1)}});
    Right(u"EnsureVisible", Method, {Long(5000)}, {}, {{Long(101)}});
    Right(u"EnsureVisible", Method, {Long(2)});
    Expect(box_.RowTop(2) >= 0, "EnsureVisible did not show the line");
    Right(u"CollapseLines", Method, {Long(10), Long(20)}, false);
    Right(u"CollapseAll", Method, {});
    Expect(box_.RowTop(15) < 0, "CollapseAll hid nothing");
    Right(u"ExpandAll", Method, {});
    Right(u"EnsureVisible", Method, {Long(15)});
    Right(u"SearchText", Let, {Text(u"L5")});
    Right(u"SearchText", Get, {}, Text(u"L5"));
    Right(u"SearchFiles", Let, {Text(u"/a\r/b")});
    Right(u"AutoRedraw", Let, {false});
    Right(u"AutoRedraw", Let, {std::int16_t{-1}});
    Right(u"LoadFile", Method, {Text(u"/no/such/file")});
    Right(u"text", Get, {}, Text(u"\r\n"));
    Right(u"text", Let, {Text(u"one\r\ntwo")});
    Right(u"text", Get, {}, Text(u"one\r\ntwo\r\n"));
}

void CallsById::CallAppearanceRightly() {
    using namespace member_kind;
    const PicturePtr picture = std::make_shared<Picture>("p", 240, 240);
    const std::shared_ptr<Object> list = std::make_shared<ImageList>();
    Right(u"ImageList", Set, {list});
    Right(u"ImageList", Get, {}, list);
    Right(u"AddButton", Method, {Text(u"N"), picture}, true);
    Right(u"AddButton", Method, {Text(u"n"), picture, Text(u"tip")}, false);
    Right(u"AddButton", Method, {Text(u"M"), picture, Text(u"tip")}, true);
    Right(u"ShowGrid", Let, {true});
    Right(u"ShowGrid", Get, {}, true);
    Right(u"Icon", Set, {picture});
    Expect(box_.Elements().imgMarker.Shown() == picture, "The icon is not the marker's");
    Right(u"Icon", Set, {std::shared_ptr<Object>()});
    Expect(box_.Elements().imgMarker.Shown() != picture, "The icon was not taken back");
    for (const auto* colour : {u"BackColor", u"ForeColor", u"BorderColor"}) {
        Right(colour, Let, {Long(-2147483643)});
        Right(colour, Get, {}, Long(-2147483643));
        Right(colour, Let, {Text(u"&H80000005")});
        Right(colour, Get, {}, Long(-2147483643));
    }
    Right(u"LeftBorderWidth", Let, {-50.0F}, {}, {{0.0F}});
    Right(u"LeftBorderWidth", Get, {}, 0.0F);
    Right(u"LeftBorderWidth", Let, {Long(300)});
    Right(u"LeftBorderWidth", Get, {}, 300.0F);
    Right(u"Enabled", Let, {true});
    Right(u"Enabled", Get, {}, true);
    Right(u"BorderStyle", Let, {std::int16_t{0}});
    Right(u"BorderStyle", Get, {}, std::int16_t{0});
    Font font = box_.Font();
    font.Size += 2;
    Right(u"Font", Set, {font});
    Right(u"Font", Get, {}, font);
}

}  // namespace quorvale
