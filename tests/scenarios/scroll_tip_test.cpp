#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

const Label& Tip(HeadlessBox& box) { return box.Elements().lblScrollTip; }

TEST(ScrollTip, IsHiddenAtFirstAndNamesLineZero) {
    HeadlessBox box;
    EXPECT_FALSE(Tip(box).Visible());
    EXPECT_EQ(Tip(box).Caption(), u" Line 0 ");
}

TEST(ScrollTip, AppearsBesideTheThumbWithTheLineItAimsAt) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Elements().scrVert.UserDrag(36);
    EXPECT_TRUE(Tip(box).Visible());
    EXPECT_EQ(Tip(box).Caption(), u" Line 36 ");
    EXPECT_NEAR(Tip(box).Top(), 36.0 / 99 * 6720 + 600, 0.01);
    EXPECT_EQ(Tip(box).Left(), 11745 - 9 * 120 - 30);
    EXPECT_EQ(box->TopLine(), 1) << "nothing scrolls before the thumb is let go";
}

TEST(ScrollTip, KeepsTheHeightWhereTheDragBeganAndItsDistanceToTheBar) {
    HeadlessBox box;
    box->text(Doc(2000));
    ScrollBar& bar = box.Elements().scrVert;
    bar.UserDrag(9);
    const Twips top = Tip(box).Top();
    EXPECT_EQ(Tip(box).Left(), 11745 - 8 * 120 - 30);
    bar.UserDrag(1500);
    EXPECT_EQ(Tip(box).Top(), top);
    EXPECT_EQ(Tip(box).Caption(), u" Line 1500 ");
    EXPECT_EQ(Tip(box).Left(), 11745 - 11 * 120 - 30);
    EXPECT_EQ(Tip(box).Left() + Tip(box).Width(), 11745 - 30);
}

TEST(ScrollTip, GoesWhenTheThumbIsLetGo) {
    HeadlessBox box;
    box->text(Doc(100));
    box.DragThumb({36, 40});
    EXPECT_FALSE(Tip(box).Visible());
}

TEST(ScrollTip, GoesWhenTheThumbIsLetGoWhereItStarted) {
    HeadlessBox box;
    box->text(Doc(100));
    box.DragThumb({1});
    EXPECT_FALSE(Tip(box).Visible());
    box->TopLine(20);
    box.DragThumb({36, 20});
    EXPECT_FALSE(Tip(box).Visible());
    EXPECT_EQ(box->TopLine(), 20);
}

TEST(ScrollTip, GoesWithAnyLayout) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Elements().scrVert.UserDrag(36);
    box.Resize(9000, 7560);
    EXPECT_FALSE(Tip(box).Visible());
}

TEST(ScrollTip, EveryDragPlacesItAnew) {
    HeadlessBox box;
    box->text(Doc(100));
    box.DragThumb({36});
    box.Elements().scrVert.UserDrag(60);
    EXPECT_NEAR(Tip(box).Top(), 60.0 / 99 * 6720 + 600, 0.01);
}

TEST(ScrollTip, NamesTheLineOfAStepOfSeveralLines) {
    HeadlessBox box;
    box->text(Doc(40000));
    box.Elements().scrVert.UserDrag(10000);
    EXPECT_EQ(Tip(box).Caption(), u" Line 20000 ");
    EXPECT_EQ(Tip(box).Width(), 1440);
}

TEST(ScrollTip, NamesTheLineAimedAtEvenInsideAFold) {
    HeadlessBox box;
    box->text(Doc(200));
    box->CollapseLines(10, 20);
    box->CollapseAll();
    box.Elements().scrVert.UserDrag(15);
    EXPECT_EQ(Tip(box).Caption(), u" Line 15 ");
}

TEST(ScrollTip, ARangeAtTheEndOf16BitsIsNoProblem) {
    HeadlessBox box;
    box->text(Doc(65534));
    ASSERT_EQ(box.Elements().scrVert.Max(), 32752);
    ASSERT_EQ(box.Elements().scrVert.LargeChange(), 28);
    box.Elements().scrVert.UserDrag(32752);
    EXPECT_TRUE(Tip(box).Visible());
    EXPECT_NEAR(Tip(box).Top(), 32752.0 / 32780 * 6720 + 600, 0.01);
    EXPECT_EQ(Tip(box).Caption(), u" Line 65504 ");
}

TEST(ScrollTip, SpeaksTheUsersLanguage) {
    HeadlessSetup setup;
    setup.LanguageId = 1042;
    HeadlessBox box(setup);
    box->text(Doc(100));
    box.Elements().scrVert.UserDrag(36);
    EXPECT_NE(Tip(box).Caption().find(u"36"), std::u16string_view::npos);
    EXPECT_EQ(Tip(box).Caption().find(u"Line"), std::u16string_view::npos);
}

}  // namespace
}  // namespace quorvale
