#include "platform/property_bag.h"

#include <gtest/gtest.h>

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

TEST(ValueText, KeepsNumbersAndTruth) {
    EXPECT_EQ(ThroughText(std::int32_t{-2147483633}), Variant(std::int32_t{-2147483633}));
    EXPECT_EQ(ThroughText(std::int16_t{1}), Variant(std::int32_t{1}));
    EXPECT_EQ(ThroughText(240.0F), Variant(std::int32_t{240}));
    EXPECT_EQ(ThroughText(0.5F), Variant(0.5));
    EXPECT_EQ(ThroughText(true), Variant(true));
    EXPECT_EQ(ThroughText(false), Variant(false));
}

TEST(ValueText, KeepsAFontWithEveryName) {
    for (const char16_t* name : {u"DejaVu Sans Mono", u"", u"a;b;c", u"\u65e5\u672c"}) {
        const Font font{name, 10.5, 128, true, false};
        EXPECT_EQ(ThroughText(font), Variant(font));
    }
}

TEST(ValueText, KeepsOtherTextsAsTexts) {
    EXPECT_EQ(ThroughText(std::u16string(u"any words")), Variant(std::u16string(u"any words")));
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
