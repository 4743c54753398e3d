#include "search/go_to_line.h"

#include <gtest/gtest.h>

#include "search_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class GoToLineTest : public testing::Test, public GoToLinePeers {
protected:
    void SetRow(Line row) override { rig_.Calls.push_back(std::to_string(row.Number())); }
    void BoxFocusChanged(FocusChild box, bool entered) override {
        EXPECT_EQ(box, FocusChild::LineBox);
        rig_.Calls.push_back(entered ? "entered" : "left");
    }

    void Go(std::u16string text) {
        rig_.Elements.txtLn.SetText(std::move(text));
        GoToLine(rig_.Elements, *this).Go();
    }

    SearchRig rig_;
};

TEST_F(GoToLineTest, GoesToTheLineWhateverTheFormOfTheNumber) {
    for (const auto* text :
         {u"120", u" 12 ", u"12.5", u"13.5", u"1e3", u"&H10", u"1,000", u"0", u"-3", u"999999"}) {
        Go(text);
    }
    EXPECT_EQ(rig_.Calls,
              (Log{"120", "12", "12", "14", "1000", "16", "1000", "0", "-3", "999999"}));
}

TEST_F(GoToLineTest, NothingHappensForWhatIsNoNumberOf32Bits) {
    for (const auto* text : {u"abc", u"", u"12a", u"12345678901", u"2147483648"}) Go(text);
    EXPECT_EQ(rig_.Calls, Log{});
}

TEST_F(GoToLineTest, TheMarkerBlinksWhileTheBoxHasTheKeyboard) {
    GoToLine go(rig_.Elements, *this);
    go.BoxGotFocus();
    EXPECT_TRUE(rig_.Elements.tmrImage.Enabled());
    go.BoxLostFocus();
    EXPECT_EQ(rig_.Calls, (Log{"entered", "left"}));
}

}  // namespace
}  // namespace quorvale
