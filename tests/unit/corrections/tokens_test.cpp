#include "corrections/tokens.h"

#include <gtest/gtest.h>

namespace quorvale {
namespace {

struct Taken {
    std::u16string Token;
    std::u16string Rest;

    bool operator==(const Taken&) const = default;
};

Taken First(std::u16string text) {
    std::u16string token = TakeFirstToken(text);
    return {token, text};
}

Taken Last(std::u16string text) {
    std::u16string token = TakeLastToken(text);
    return {token, text};
}

TEST(TakeFirstToken, TakesWhatStandsBeforeTheFirstSeparator) {
    EXPECT_EQ(First(u"a;b;c"), (Taken{u"a", u"b;c"}));
}

TEST(TakeLastToken, TakesWhatStandsBehindTheLastSeparator) {
    EXPECT_EQ(Last(u"a;b;c"), (Taken{u"c", u"a;b"}));
}

TEST(Tokens, ATextWithoutASeparatorIsTakenWhole) {
    EXPECT_EQ(First(u"abc"), (Taken{u"abc", u""}));
    EXPECT_EQ(Last(u"abc"), (Taken{u"abc", u""}));
    EXPECT_EQ(First(u""), (Taken{u"", u""}));
    EXPECT_EQ(Last(u""), (Taken{u"", u""}));
}

TEST(Tokens, ASeparatorAtTheEdgeGivesAnEmptyToken) {
    EXPECT_EQ(First(u";a"), (Taken{u"", u"a"}));
    EXPECT_EQ(First(u"a;"), (Taken{u"a", u""}));
    EXPECT_EQ(Last(u"a;"), (Taken{u"", u"a"}));
    EXPECT_EQ(Last(u";a"), (Taken{u"a", u""}));
}

TEST(Tokens, LineBreaksSeparateToo) {
    std::u16string text = u"a;1\rb\rc";
    EXPECT_EQ(TakeFirstToken(text, u'\r'), u"a;1");
    EXPECT_EQ(TakeLastToken(text, u'\r'), u"c");
    EXPECT_EQ(text, u"b");
    text = u"x\n\ny";
    EXPECT_EQ(TakeLastToken(text, u'\n'), u"y");
    EXPECT_EQ(TakeLastToken(text, u'\n'), u"");
    EXPECT_EQ(text, u"x");
}

}  // namespace
}  // namespace quorvale
