#include "platform/text_box.h"

#include <gtest/gtest.h>

namespace quorvale {
namespace {

class TextBoxTest : public testing::Test {
protected:
    TextBoxTest() {
        box.OnChange = [this] { ++changes; };
    }

    TextBox box{"txtSearch"};
    int changes = 0;
};

TEST_F(TextBoxTest, ADifferentTextRunsTheChangeTheSameOneDoesNot) {
    box.SetText(u"Find");
    EXPECT_EQ(changes, 1);
    box.SetText(u"Find");
    EXPECT_EQ(changes, 1);
    box.SetText(u"");
    EXPECT_EQ(changes, 2);
}

TEST_F(TextBoxTest, TheChangeSeesTheNewText) {
    std::u16string seen;
    box.OnChange = [&] { seen = box.Text(); };
    box.SetText(u"abc");
    EXPECT_EQ(seen, u"abc");
}

TEST_F(TextBoxTest, CodeMaySetLineBreaksAndTextOfAnyLength) {
    const std::u16string text = u"a\r\nb" + std::u16string(100'000, u'x');
    box.SetText(text);
    EXPECT_EQ(box.Text(), text);
}

TEST_F(TextBoxTest, TheInsertionPointIsSetOnItsOwnAndKeptWithinTheText) {
    box.SetText(u"12345");
    box.Select(5, 0);
    EXPECT_EQ(box.SelStart(), 5U);
    box.Select(2, 10);
    EXPECT_EQ(box.SelStart(), 2U);
    EXPECT_EQ(box.SelLength(), 3U);
    box.Select(99, 1);
    EXPECT_EQ(box.SelStart(), 5U);
    EXPECT_EQ(box.SelLength(), 0U);
    EXPECT_EQ(changes, 1);
}

TEST_F(TextBoxTest, AShorterTextTakesTheInsertionPointWithIt) {
    box.SetText(u"12345");
    box.Select(1, 4);
    box.SetText(u"123");
    EXPECT_EQ(box.SelStart(), 1U);
    EXPECT_EQ(box.SelLength(), 2U);
    box.SetText(u"");
    EXPECT_EQ(box.SelStart(), 0U);
    EXPECT_EQ(box.SelLength(), 0U);
}

TEST_F(TextBoxTest, AKeyMayBeSwallowed) {
    EXPECT_EQ(box.UserKey(13, 0), 13) << "nobody listens";
    box.OnKeyDown = [](std::int16_t& keyCode, std::int16_t shift) {
        if (keyCode == 13 && shift == 0) keyCode = 0;
    };
    EXPECT_EQ(box.UserKey(13, 0), 0);
    EXPECT_EQ(box.UserKey(13, 2), 13);
    EXPECT_EQ(changes, 0);
}

TEST_F(TextBoxTest, WhatIsBeingTypedIsFinishedByTheSurface) {
    box.FinishTyping();
    box.OnFinishTyping = [this] { box.SetText(u"typed"); };
    box.FinishTyping();
    EXPECT_EQ(box.Text(), u"typed");
}

}  // namespace
}  // namespace quorvale
