#include "control/dispatch.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/errors.h"
#include "box_by_id.h"
#include "control/member_table.h"
#include "control/quorvale_box.h"
#include "support/calls_by_id.h"

namespace quorvale {
namespace {

using namespace member_kind;

class Dispatch : public BoxById {};

bool IsOfType(const Variant& value, ValueType type) {
    switch (type) {
        case ValueType::None:
            return std::holds_alternative<std::monostate>(value);
        case ValueType::Long:
        case ValueType::ColourValue:
            return std::holds_alternative<std::int32_t>(value);
        case ValueType::Integer:
            return std::holds_alternative<std::int16_t>(value);
        case ValueType::Single:
            return std::holds_alternative<float>(value);
        case ValueType::Boolean:
            return std::holds_alternative<bool>(value);
        case ValueType::String:
            return std::holds_alternative<std::u16string>(value);
        case ValueType::AnyValue:
            return true;
        case ValueType::Font:
            return std::holds_alternative<Font>(value);
        case ValueType::Picture:
            return std::holds_alternative<PicturePtr>(value);
        case ValueType::Object:
            return std::holds_alternative<std::shared_ptr<Object>>(value);
    }
    return false;
}

TEST_F(Dispatch, EveryMemberAnswersInEveryKindItHasWithTheTypeItHas) {
    int calls = 0;
    for (const auto& member : DescribeMembers()) {
        for (const unsigned kind : {Method, Get, Let, Set}) {
            if ((member.Kinds & kind) == 0) continue;
            SCOPED_TRACE(std::string(member.Name) + " as " + std::to_string(kind));
            const bool writes = kind == Let || kind == Set;
            Arguments arguments;
            for (const auto& parameter : member.Parameters) {
                arguments.push_back(CallsById::SomeValue(parameter.Type));
            }
            if (writes) arguments.push_back(CallsById::SomeValue(member.Type));
            const Variant result = Invoke(*box_, member.Id, kind, arguments);
            EXPECT_TRUE(IsOfType(result, writes ? ValueType::None : member.Type));
            ++calls;
        }
    }
    EXPECT_EQ(calls, 52);
}

TEST_F(Dispatch, APropertyWrittenByIdIsReadBackByIdAndByTheMember) {
    struct Property {
        const char16_t* Name;
        Variant Value;
        std::function<Variant(const QuorvaleBox&)> Read;
    };
    const std::vector<Property> properties{
        {u"TopLine", Long(20), [](const auto& box) { return box.TopLine(); }},
        {u"row", Long(7), [](const auto& box) { return box.row(); }},
        {u"col", Long(2), [](const auto& box) { return box.col(); }},
        {u"SelectedRowsCount", Long(-2), [](const auto& box) { return box.SelectedRowsCount(); }},
        {u"Offset", Long(9), [](const auto& box) { return box.Offset(); }},
        {u"SearchText", Text(u"L5"), [](const auto& box) { return box.SearchText(); }},
        {u"Enabled", true, [](const auto& box) { return box.Enabled(); }},
        {u"ShowGrid", true, [](const auto& box) { return box.ShowGrid(); }},
        {u"LeftBorderWidth", 600.0F, [](const auto& box) { return box.LeftBorderWidth(); }},
    };
    for (const auto& property : properties) {
        SCOPED_TRACE(GetIdOfName(property.Name));
        EXPECT_NE(property.Read(*box_), property.Value) << "the test changes nothing";
        Call(property.Name, Let, {property.Value});
        EXPECT_EQ(property.Read(*box_), property.Value);
        EXPECT_EQ(Call(property.Name, Get), property.Value);
    }
}

TEST_F(Dispatch, TheBorderStyleIsAnInteger) {
    for (const std::int16_t style : {std::int16_t{0}, std::int16_t{1}}) {
        Call(u"BorderStyle", Let, {style});
        EXPECT_EQ(Call(u"BorderStyle", Get), Variant(style));
        EXPECT_EQ(box_->BorderStyle(), style);
    }
}

TEST_F(Dispatch, ColoursTravelAsSignedLongs) {
    Call(u"BackColor", Let, {Long(static_cast<std::int32_t>(0x8000000DU))});
    Call(u"ForeColor", Let, {Long(static_cast<std::int32_t>(0x8000000EU))});
    Call(u"BorderColor", Let, {Long(0x112233)});
    EXPECT_EQ(box_->BackColor(), 0x8000000DU);
    EXPECT_EQ(box_->ForeColor(), 0x8000000EU);
    EXPECT_EQ(box_->BorderColor(), 0x112233U);
    EXPECT_EQ(Call(u"BackColor", Get), Long(static_cast<std::int32_t>(0x8000000DU)));
    EXPECT_EQ(Call(u"ForeColor", Get), Long(static_cast<std::int32_t>(0x8000000EU)));
    EXPECT_EQ(Call(u"BorderColor", Get), Long(0x112233));
}

TEST_F(Dispatch, TheColoursOfALineAreReachedByItsNumber) {
    Call(u"LineForeColor", Let, {Long(5), Long(0x112233)});
    Call(u"LineBackColor", Let, {Long(5), Long(static_cast<std::int32_t>(0x8000000EU))});
    EXPECT_EQ(box_->LineForeColor(5), 0x112233U);
    EXPECT_EQ(box_->LineBackColor(5), 0x8000000EU);
    EXPECT_EQ(Call(u"LineForeColor", Get, {Long(5)}), Long(0x112233));
    EXPECT_EQ(Call(u"LineBackColor", Get, {Long(5)}), Long(static_cast<std::int32_t>(0x8000000EU)));
    EXPECT_NE(box_->LineForeColor(4), 0x112233U);
}

TEST_F(Dispatch, ThePictureKeyOfALineIsAnyValue) {
    Call(u"LineImage", Let, {Long(5), Text(u"0")});
    EXPECT_EQ(Call(u"LineImage", Get, {Long(5)}), Text(u"0"));
    EXPECT_EQ(box_->LineImage(5), Text(u"0"));
    Call(u"LineImage", Let, {Long(5), Long(2)});
    EXPECT_EQ(Call(u"LineImage", Get, {Long(5)}), Long(2));
}

TEST_F(Dispatch, TextAndLinesAreReadById) {
    EXPECT_EQ(Call(u"LineCount", Get), Long(100));
    EXPECT_EQ(Call(u"LineText", Get, {Long(12)}), Text(u"L12"));
    EXPECT_EQ(Call(u"LineText", Get, {Text(u"&HC")}), Text(u"L12"));
    Call(u"text", Let, {Text(u"one\r\ntwo")});
    EXPECT_EQ(Call(u"text", Get), Text(u"one\r\ntwo\r\n"));
    EXPECT_EQ(Call(u"LineCount", Get), Long(2));
}

TEST_F(Dispatch, AFileIsLoadedById) {
    EXPECT_EQ(Call(u"LoadFile", Method, {Text(u"three.txt")}), Variant{});
    EXPECT_EQ(box_->text(), u"A\r\nB\r\nC\r\n");
}

TEST_F(Dispatch, MethodsReachTheirMembers) {
    EXPECT_EQ(Call(u"RowTop", Method, {Long(3)}), Variant(box_->RowTop(3)));
    EXPECT_EQ(Call(u"RowTop", Method, {Long(99)}), Variant(box_->RowTop(99)));
    Call(u"MoveTo", Method, {Long(40), Long(2)});
    EXPECT_EQ(box_->row(), 40);
    EXPECT_EQ(box_->col(), 2);
    Call(u"TopLine", Let, {Long(1)});
    Call(u"EnsureVisible", Method, {Long(90)});
    EXPECT_GE(box_->RowTop(90), 0);
}

TEST_F(Dispatch, SuspendedRedrawIsCountedThroughAutoRedraw) {
    Call(u"AutoRedraw", Let, {false});
    Call(u"TopLine", Let, {Long(50)});
    EXPECT_EQ(box_->LineText(1), u"L1");
    EXPECT_LT(box_->RowTop(50), 0);
    Call(u"AutoRedraw", Let, {std::int16_t{-1}});
    EXPECT_GE(box_->RowTop(50), 0);
}

TEST_F(Dispatch, AnObjectComesBackAsItWasGiven) {
    const std::shared_ptr<Object> list = std::make_shared<ImageList>();
    EXPECT_EQ(Call(u"ImageList", Get), Variant(std::shared_ptr<Object>()));
    Call(u"ImageList", Set, {list});
    EXPECT_EQ(Call(u"ImageList", Get), Variant(list));
    EXPECT_EQ(box_->ImageList(), list);
    const PicturePtr picture = std::make_shared<Picture>("p", 240, 240);
    Call(u"ImageList", Set, {picture});
    EXPECT_EQ(box_->ImageList(), picture);
    Call(u"ImageList", Set, {std::shared_ptr<Object>()});
    EXPECT_EQ(box_->ImageList(), nullptr);
}

TEST_F(Dispatch, AFontIsSetAndReadById) {
    const Font font{.Name = u"Other", .Size = 12};
    Call(u"Font", Set, {font});
    EXPECT_EQ(std::get<Font>(Call(u"Font", Get)).Name, u"Other");
    EXPECT_EQ(box_->Font().Size, 12);
}

TEST_F(Dispatch, AnIconIsTakenAsAPictureOrAsAnObjectThatIsOne) {
    const auto picture = std::make_shared<Picture>("mine", 240, 240);
    Call(u"Icon", Set, {PicturePtr(picture)});
    EXPECT_EQ(box_->Elements().imgMarker.Shown(), picture);
    Call(u"Icon", Set, {std::shared_ptr<Object>()});
    EXPECT_NE(box_->Elements().imgMarker.Shown(), picture);
    Call(u"Icon", Set, {std::shared_ptr<Object>(picture)});
    EXPECT_EQ(box_->Elements().imgMarker.Shown(), picture);
    EXPECT_EQ(Failure(u"Icon", Set, {std::shared_ptr<Object>(std::make_shared<ImageList>())}),
              ErrorKind::TypeMismatch);
    EXPECT_EQ(Failure(u"Icon", Set, {Variant{}}), ErrorKind::TypeMismatch);
    EXPECT_EQ(box_->Elements().imgMarker.Shown(), picture);
}

TEST_F(Dispatch, AddButtonDoesWithoutAToolTip) {
    const PicturePtr picture = std::make_shared<Picture>("p", 240, 240);
    EXPECT_EQ(Call(u"AddButton", Method, {Text(u"One"), picture}), Variant(true));
    EXPECT_EQ(Call(u"AddButton", Method, {Text(u"Two"), picture, Text(u"Tip")}), Variant(true));
    EXPECT_EQ(Call(u"AddButton", Method, {Text(u"One"), picture}), Variant(false));
}

TEST_F(Dispatch, ReadingAWriteOnlyPropertyFails) {
    for (const auto* name : {u"Icon", u"AutoRedraw", u"SearchFiles"}) {
        EXPECT_EQ(Failure(name, Get, {}), ErrorKind::WriteOnly) << GetIdOfName(name);
        EXPECT_EQ(Failure(name, Method | Get, {}), ErrorKind::WriteOnly) << GetIdOfName(name);
    }
}

TEST_F(Dispatch, WritingAReadOnlyPropertyFails) {
    EXPECT_EQ(Failure(u"LineText", Let, {Long(1), Text(u"x")}), ErrorKind::ReadOnly);
    EXPECT_EQ(Failure(u"LineCount", Let, {Long(1)}), ErrorKind::ReadOnly);
    EXPECT_EQ(Failure(u"LineCount", Set, {Long(1)}), ErrorKind::ReadOnly);
    EXPECT_EQ(Failure(u"LineCount", Let | Set, {Long(1)}), ErrorKind::ReadOnly);
    EXPECT_EQ(box_->LineText(1), u"L1");
}

TEST_F(Dispatch, AKindThatTheMemberDoesNotHaveIsNotFound) {
    EXPECT_EQ(Failure(u"MoveTo", Get, {Long(1), Long(1)}), ErrorKind::MemberNotFound);
    EXPECT_EQ(Failure(u"MoveTo", Let, {Long(1), Long(1)}), ErrorKind::MemberNotFound);
    EXPECT_EQ(Failure(u"TopLine", Method, {}), ErrorKind::MemberNotFound);
    EXPECT_EQ(Failure(u"TopLine", Set, {Long(2)}), ErrorKind::MemberNotFound);
    EXPECT_EQ(Failure(u"Font", Let, {Font{}}), ErrorKind::MemberNotFound);
    EXPECT_EQ(Failure(u"TopLine", 0, {}), ErrorKind::MemberNotFound);
    EXPECT_EQ(Failure(u"TopLine", 16, {}), ErrorKind::MemberNotFound);
}

TEST_F(Dispatch, AnUnknownIdIsNotFound) {
    for (const std::int32_t id : {0, 1, -1, -511, 0x68030011, 0x60030013}) {
        Arguments arguments;
        try {
            Invoke(*box_, id, Method | Get | Let | Set, arguments);
            ADD_FAILURE() << id;
        } catch (const ControlError& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::MemberNotFound) << id;
        }
    }
}

TEST_F(Dispatch, SeveralKindsAtOnceRunTheOneThatExists) {
    EXPECT_EQ(Call(u"LineText", Method | Get, {Long(2)}), Text(u"L2"));
    EXPECT_EQ(Call(u"RowTop", Method | Get, {Long(2)}), Variant(box_->RowTop(2)));
    Call(u"TopLine", Let | Set, {Long(5)});
    EXPECT_EQ(box_->TopLine(), 5);
    EXPECT_EQ(Call(u"TopLine", Get | Let), Long(5));
    Call(u"Font", Let | Set, {Font{.Name = u"Other"}});
    EXPECT_EQ(box_->Font().Name, u"Other");
}

TEST_F(Dispatch, TheNumberOfArgumentsIsChecked) {
    const PicturePtr picture = std::make_shared<Picture>("p", 240, 240);
    EXPECT_EQ(Failure(u"MoveTo", Method, {Long(5)}), ErrorKind::ArgumentCount);
    EXPECT_EQ(Failure(u"MoveTo", Method, {Long(5), Long(1), Long(1)}), ErrorKind::ArgumentCount);
    EXPECT_EQ(Failure(u"TopLine", Get, {Long(5)}), ErrorKind::ArgumentCount);
    EXPECT_EQ(Failure(u"TopLine", Let, {}), ErrorKind::ArgumentCount);
    EXPECT_EQ(Failure(u"LineText", Get, {}), ErrorKind::ArgumentCount);
    EXPECT_EQ(Failure(u"LineImage", Let, {Long(5)}), ErrorKind::ArgumentCount);
    EXPECT_EQ(Failure(u"AddButton", Method, {Text(u"One")}), ErrorKind::ArgumentCount);
    EXPECT_EQ(Failure(u"AddButton", Method, {Text(u"One"), picture, Text(u""), Text(u"")}),
              ErrorKind::ArgumentCount);
    EXPECT_EQ(Failure(u"OffsetToRowCol", Method, {Long(5)}), ErrorKind::ArgumentCount);
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_->TopLine(), 1);
}

TEST_F(Dispatch, AnUnreadableArgumentIsNamedAndNothingHappens) {
    box_->BorderStyle(1);
    EXPECT_EQ(Failure(u"MoveTo", Method, {Long(50), Text(u"two")}), ErrorKind::TypeMismatch);
    EXPECT_NE(description_.find("Argument 2 (c) of MoveTo"), std::string::npos) << description_;
    EXPECT_EQ(Failure(u"MoveTo", Method, {Text(u"3000000000"), Long(1)}), ErrorKind::Overflow);
    EXPECT_NE(description_.find("Argument 1 (r) of MoveTo"), std::string::npos) << description_;
    EXPECT_EQ(Failure(u"TopLine", Let, {Font{}}), ErrorKind::TypeMismatch);
    EXPECT_NE(description_.find("(new value) of TopLine"), std::string::npos) << description_;
    EXPECT_EQ(Failure(u"LineForeColor", Let, {Long(1), Text(u"red")}), ErrorKind::TypeMismatch);
    EXPECT_EQ(Failure(u"BorderStyle", Let, {Long(32768)}), ErrorKind::Overflow);
    EXPECT_EQ(Failure(u"LeftBorderWidth", Let, {1e300}), ErrorKind::Overflow);
    EXPECT_EQ(Failure(u"Font", Set, {Text(u"Even")}), ErrorKind::TypeMismatch);
    EXPECT_EQ(Failure(u"ImageList", Set, {Long(1)}), ErrorKind::TypeMismatch);
    EXPECT_EQ(Failure(u"OffsetToRowCol", Method, {Long(200000), Text(u"here")}),
              ErrorKind::TypeMismatch);
    EXPECT_EQ(Failure(u"OffsetToRowCol", Method, {Long(200000), Long(0), Text(u"here")}),
              ErrorKind::TypeMismatch);
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_->col(), 1);
    EXPECT_EQ(box_->TopLine(), 1);
    EXPECT_EQ(box_->BorderStyle(), 1);
    EXPECT_EQ(box_->LeftBorderWidth(), 240);
}

TEST_F(Dispatch, TheControlWorksOnAfterARefusedCall) {
    Failure(u"MoveTo", Method, {Text(u"x"), Long(1)});
    Call(u"MoveTo", Method, {Text(u" 12 "), 1.5});
    EXPECT_EQ(box_->row(), 12);
    EXPECT_EQ(box_->col(), 2);
}

}  // namespace
}  // namespace quorvale
