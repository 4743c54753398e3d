#include "platform/property_bag.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace quorvale {
namespace {

TEST(MemoryBag, HoldsWhatDiffersFromItsDefault) {
    MemoryBag bag;
    bag.Write(u"Width", 300.0F, 240.0F);
    bag.Write(u"Flag", false, false);
    EXPECT_EQ(bag.Read(u"Width"), Variant(300.0F));
    EXPECT_EQ(bag.Values.size(), 1U);
}

TEST(MemoryBag, ForgetsAValueThatIsTheDefaultAgain) {
    MemoryBag bag;
    bag.Write(u"Flag", true, false);
    bag.Write(u"Flag", false, false);
    EXPECT_TRUE(bag.Values.empty());
    EXPECT_EQ(bag.Read(u"Flag"), Variant());
}

TEST(MemoryBag, TellsAnotherTypeFromTheDefault) {
    MemoryBag bag;
    bag.Write(u"Style", std::int32_t{1}, std::int16_t{1});
    EXPECT_EQ(bag.Read(u"Style"), Variant(std::int32_t{1}));
}

Variant ThroughText(const Variant& value) { return ValueOfText(TextOfValue(value)); }

TEST(ValueText, KeepsEveryNumberAndItsType) {
    const Variant values[] = {
        std::int32_t{-2147483633},
        std::int32_t{0},
        std::int16_t{1},
        std::int16_t{-32768},
        240.0F,
        300.123456F,
        0.1F,
        -3.4028235e38F,
        0.5,
        3.0,
        1.0 / 3,
        1e-300,
        true,
        false,
        Variant(-1.5e300),
    };
    for (const Variant& value : values) {
        EXPECT_EQ(ThroughText(value), value) << ToUtf8(TextOfValue(value));
    }
}

TEST(ValueText, IsPlainWhereAPersonWouldReadItTheSame) {
    EXPECT_EQ(TextOfValue(std::int32_t{255}), u"255");
    EXPECT_EQ(TextOfValue(true), u"True");
    EXPECT_EQ(TextOfValue(0.5), u"0.5");
    EXPECT_EQ(TextOfValue(std::u16string(u"some words")), u"some words");
    EXPECT_EQ(TextOfValue(240.0F), u"Single:240");
    EXPECT_EQ(TextOfValue(std::int16_t{1}), u"Integer:1");
}

TEST(ValueText, ReadsWhatAPersonWrites) {
    EXPECT_EQ(ValueOfText(u"true"), Variant(true));
    EXPECT_EQ(ValueOfText(u"FALSE"), Variant(false));
    EXPECT_EQ(ValueOfText(u"600"), Variant(std::int32_t{600}));
    EXPECT_EQ(ValueOfText(u"600.5"), Variant(600.5));
    EXPECT_EQ(ValueOfText(u"&HFF"), Variant(std::int32_t{255}));
    EXPECT_EQ(ValueOfText(u"4294967296"), Variant(4294967296.0));
    for (const char16_t* text : {u"Integer:70000", u"Integer:", u"Single:1e300", u"Long:x",
                                 u"Double:nan", u"integer:1", u"Colour:1", u":1"}) {
        EXPECT_EQ(ValueOfText(text), Variant(std::u16string(text))) << ToUtf8(text);
    }
}

TEST(ValueText, KeepsAFontWithEveryName) {
    for (const char16_t* name : {u"DejaVu Sans Mono", u"", u"a;b;c", u"\u65e5\u672c"}) {
        const Font font{name, 10.5, 128, true, false};
        EXPECT_EQ(ThroughText(font), Variant(font));
    }
}

TEST(ValueText, KeepsOtherTextsAsTexts) {
    for (const char16_t* text : {u"any words", u"", u"12", u"True", u"false", u"Single:1", u"1e3",
                                 u"Font:9;0;0;0;Name", u"String:x", u" 7 "}) {
        EXPECT_EQ(ThroughText(std::u16string(text)), Variant(std::u16string(text))) << ToUtf8(text);
    }
    EXPECT_EQ(ValueOfText(u""), Variant(std::u16string()));
    EXPECT_EQ(ValueOfText(u"Font:9;0"), Variant(std::u16string(u"Font:9;0")));
    EXPECT_EQ(ValueOfText(u"Font:x;0;0;0;Name"), Variant(std::u16string(u"Font:x;0;0;0;Name")));
}

TEST(ValueText, IsEmptyForWhatCannotBeStored) {
    EXPECT_EQ(TextOfValue(Variant()), u"");
    EXPECT_EQ(TextOfValue(std::make_shared<Object>()), u"");
}

}  // namespace
}  // namespace quorvale
