#include "corrections/update.h"

#include <gtest/gtest.h>

namespace quorvale {
namespace {

XmlNodePtr WithRange(const char16_t* start, const char16_t* loc) {
    XmlNodePtr update = CreateXmlElement(u"update");
    if (start != nullptr) update->SetAttribute(u"start", start);
    if (loc != nullptr) update->SetAttribute(u"loc", loc);
    return update;
}

std::optional<UpdateRange> Range(const char16_t* start, const char16_t* loc) {
    return RangeOf(*WithRange(start, loc));
}

using Lines = std::vector<std::u16string>;

TEST(CreateUpdate, HasItsAttributesInOrderAndOneText) {
    const XmlNodePtr update = CreateUpdate({2, 1}, u"X\n");
    EXPECT_EQ(update->Name(), u"update");
    ASSERT_EQ(update->Attributes().size(), 2U);
    EXPECT_EQ(update->Attributes()[0].Name, u"start");
    EXPECT_EQ(update->Attributes()[0].Value, u"2");
    EXPECT_EQ(update->Attributes()[1].Name, u"loc");
    EXPECT_EQ(update->Attributes()[1].Value, u"1");
    ASSERT_EQ(update->ChildNodes().size(), 1U);
    EXPECT_EQ(update->FirstChild()->Kind(), XmlKind::Text);
    EXPECT_EQ(update->FirstChild()->Data(), u"X\n");
}

TEST(CreateUpdate, NumbersArePlainDecimals) {
    const XmlNodePtr update = CreateUpdate({-5, 1234567}, u"");
    EXPECT_EQ(*update->GetAttribute(u"start"), u"-5");
    EXPECT_EQ(*update->GetAttribute(u"loc"), u"1234567");
}

TEST(CreateUpdate, ATextThatXmlCannotCarryIsEscapedAndMarked) {
    const XmlNodePtr update = CreateUpdate({2, 1}, u"a\rb\\\n");
    ASSERT_EQ(update->Attributes().size(), 3U);
    EXPECT_EQ(update->Attributes()[2].Name, u"escaped");
    EXPECT_EQ(update->Attributes()[2].Value, u"1");
    EXPECT_EQ(update->FirstChild()->Data(), u"a\\u000Db\\\\\n");
    EXPECT_EQ(UpdateText(*update), u"a\rb\\\n");
}

TEST(CreateUpdate, ABackslashAloneNeedsNoMark) {
    const XmlNodePtr update = CreateUpdate({2, 1}, u"c:\\u0041\n");
    EXPECT_EQ(update->GetAttribute(u"escaped"), nullptr);
    EXPECT_EQ(UpdateText(*update), u"c:\\u0041\n");
}

TEST(RangeOf, ReadsNumbersAsUsersWriteThem) {
    for (const char16_t* two : {u"2", u" 2 ", u"+2", u"2.5", u"1.5", u"&H2", u"002", u"2e0"}) {
        EXPECT_EQ(Range(two, u"0"), (UpdateRange{2, 0})) << testing::PrintToString(two);
    }
    EXPECT_EQ(Range(u"1,234", u"&H10"), (UpdateRange{1234, 16}));
    EXPECT_EQ(Range(u"-7", u"1"), (UpdateRange{-7, 1}));
    EXPECT_EQ(Range(u"1234567890", u"1"), (UpdateRange{1234567890, 1}));
}

TEST(RangeOf, WhatIsNoRangeCannotBeUsed) {
    EXPECT_EQ(Range(u"abc", u"1"), std::nullopt);
    EXPECT_EQ(Range(u"", u"1"), std::nullopt);
    EXPECT_EQ(Range(nullptr, u"1"), std::nullopt);
    EXPECT_EQ(Range(u"1", nullptr), std::nullopt);
    EXPECT_EQ(Range(u"1", u"-1"), std::nullopt);
    EXPECT_EQ(Range(u"99999999999", u"1"), std::nullopt);
}

TEST(RangeOf, TheEndMustFitIntoThirtyTwoBits) {
    EXPECT_EQ(Range(u"2147483647", u"1"), std::nullopt);
    EXPECT_EQ(Range(u"2147483647", u"0"), (UpdateRange{2147483647, 0}));
    EXPECT_EQ(Range(u"-2147483648", u"2147483647"), (UpdateRange{-2147483647 - 1, 2147483647}));
}

TEST(UpdateText, OnlyATextAsTheFirstChildCounts) {
    const XmlNodePtr update = WithRange(u"1", u"1");
    EXPECT_EQ(UpdateText(*update), u"");
    update->AppendChild(std::make_shared<XmlNode>(XmlKind::CData, u"", u"X"));
    EXPECT_EQ(UpdateText(*update), u"X");
    const XmlNodePtr commented = WithRange(u"1", u"1");
    commented->AppendChild(std::make_shared<XmlNode>(XmlKind::Comment, u"", u"why"));
    commented->AppendChild(CreateXmlText(u"X\n"));
    EXPECT_EQ(UpdateText(*commented), u"");
    const XmlNodePtr nested = WithRange(u"1", u"1");
    nested->AppendChild(CreateUpdate({1, 1}, u"inner\n"));
    EXPECT_EQ(UpdateText(*nested), u"");
}

TEST(UpdateText, OnlyTheMarkOneMeansEscaped) {
    const XmlNodePtr update = CreateUpdate({1, 1}, u"\\u0041\n");
    update->SetAttribute(u"escaped", u"0");
    EXPECT_EQ(UpdateText(*update), u"\\u0041\n");
    update->SetAttribute(u"escaped", u"1");
    EXPECT_EQ(UpdateText(*update), u"A\n");
}

TEST(LinesOfUpdate, EveryLineFeedEndsOne) {
    EXPECT_EQ(LinesOfUpdate(u""), Lines{});
    EXPECT_EQ(LinesOfUpdate(u"\n"), Lines{u""});
    EXPECT_EQ(LinesOfUpdate(u"a\nb\n"), (Lines{u"a", u"b"}));
    EXPECT_EQ(LinesOfUpdate(u"a\n\n"), (Lines{u"a", u""}));
    EXPECT_EQ(LinesOfUpdate(u"a\nb"), (Lines{u"a", u"b"})) << "a hand that forgot the last one";
    EXPECT_EQ(LinesOfUpdate(u"a\rb\n"), (Lines{u"a\rb"}));
}

}  // namespace
}  // namespace quorvale
