#include <gtest/gtest.h>

#include "base/errors.h"
#include "headless/headless_box.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

/// Counts fills and layouts by what each does once: a fill asks the control to be drawn again, a
/// layout hides the scroll tip first.
class Repaints final : public ElementWatcher {
public:
    explicit Repaints(HeadlessBox& box) : surface_(box.Elements()) { surface_.Watch(this); }
    ~Repaints() override { surface_.Watch(nullptr); }

    int Fills = 0;

    void Setting(const Element& element, std::string_view property) override {
        if (&element == &surface_.UserControl && property == "Refresh") ++Fills;
    }

private:
    Surface& surface_;
};

TEST(AutoRedraw, SuspensionsCount) {
    HeadlessBox box;
    box->text(Doc(100));
    box->AutoRedraw(false);
    box->AutoRedraw(false);
    box->TopLine(50);
    box->AutoRedraw(true);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1") << "still suspended";
    Repaints repaints(box);
    box->AutoRedraw(true);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L50");
    EXPECT_EQ(repaints.Fills, 1);
}

TEST(AutoRedraw, OneTrueTooManyDoesNothing) {
    HeadlessBox box;
    box->text(Doc(100));
    box->AutoRedraw(false);
    Repaints repaints(box);
    box->AutoRedraw(true);
    EXPECT_EQ(repaints.Fills, 1);
    box->AutoRedraw(true);
    EXPECT_EQ(repaints.Fills, 1);
    box->AutoRedraw(false);
    box->TopLine(50);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1") << "a true is not saved up";
}

TEST(AutoRedraw, TrueWithoutFalsePaintsNothing) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Elements().lblLine[3].SetCaption(u"not repainted");
    Repaints repaints(box);
    box->AutoRedraw(true);
    EXPECT_EQ(repaints.Fills, 0);
    EXPECT_EQ(box.Elements().lblLine[3].Caption(), u"not repainted");
}

TEST(AutoRedraw, ThousandChangesCostOneFill) {
    HeadlessBox box;
    box->text(Doc(1000));
    Repaints repaints(box);
    box->AutoRedraw(false);
    for (std::int32_t line = 1; line <= 1000; ++line) {
        box->LineBackColor(line, 0x445566);
        box->TopLine(line);
        box->MoveTo(line, 1);
    }
    EXPECT_EQ(repaints.Fills, 0);
    box->AutoRedraw(true);
    EXPECT_EQ(repaints.Fills, 1);
    EXPECT_EQ(box.Elements().lblLine[29].BackColor(), 0x445566U);
}

TEST(AutoRedraw, TakingItUpRaisesNoEvent) {
    HeadlessBox box;
    box->text(Doc(100));
    box->AutoRedraw(false);
    box->TopLine(50);
    box.Log().Clear();
    box->AutoRedraw(true);
    EXPECT_TRUE(box.Log().Entries().empty());
}

TEST(AutoRedraw, NothingOfTheRowsChangesWhileSuspended) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->AutoRedraw(false);
    const auto before = box.Rows();
    box->CollapseAll();
    box->TopLine(30);
    EXPECT_EQ(box.Rows(), before);
    EXPECT_FALSE(box.Elements().imgExpand[4].Visible());
    EXPECT_EQ(box.Elements().lnExpand.UpperBound(), 0);
    box->TopLine(1);
    box->AutoRedraw(true);
    EXPECT_EQ(box.Elements().lblLine[5].Caption(), u"L21");
    EXPECT_TRUE(box.Elements().imgExpand[4].Visible());
}

TEST(AutoRedraw, TheMarkerFollowsAtTheEnd) {
    HeadlessBox box;
    box->text(Doc(100));
    box->AutoRedraw(false);
    box->MoveTo(8, 3);
    EXPECT_EQ(box.Elements().imgMarker.Top(), 360);
    box->AutoRedraw(true);
    EXPECT_EQ(box.Elements().imgMarker.Top(), 360 + 7 * 240);
    EXPECT_EQ(box.Elements().imgMarker.Left(), 555 + 240 - 120);
}

TEST(AutoRedraw, AWindowSizedWhileSuspendedIsFilledAtTheEnd) {
    HeadlessBox box;
    box->text(Doc(100));
    box->TopLine(71);
    box->AutoRedraw(false);
    box.Resize(12000, 360 + 40 * 240);
    box->AutoRedraw(true);
    EXPECT_EQ(box->TopLine(), 61);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L61");
    EXPECT_EQ(box.Elements().lblLine[39].Caption(), u"L100");
}

TEST(AutoRedraw, ATextSetWhileSuspendedIsShownAtTheEnd) {
    HeadlessBox box;
    box->text(Doc(100));
    box->TopLine(40);
    box->AutoRedraw(false);
    box->text(Doc(50, 'N'));
    box->AutoRedraw(true);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box.Rows().front(), "N1");
    EXPECT_EQ(box.Elements().scrVert.Max(), 21);
}

TEST(AutoRedraw, MoreSuspensionsThanCanBeCountedAreAnError) {
    HeadlessBox box;
    box->text(Doc(100));
    for (int i = 0; i < 32767; ++i) box->AutoRedraw(false);
    EXPECT_EQ(ErrorOf([&] { box->AutoRedraw(false); }), ErrorKind::Overflow);
    for (int i = 0; i < 32766; ++i) box->AutoRedraw(true);
    Repaints repaints(box);
    box->AutoRedraw(true);
    EXPECT_EQ(repaints.Fills, 1);
}

TEST(ShowAndHide, HidingSuspendsAndShowingPaintsAgain) {
    HeadlessBox box;
    box->text(Doc(100));
    box->Hide();
    box->TopLine(50);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1");
    box->Show();
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L50");
}

TEST(Resize, TheResultsListCoversWhatTheToolbarLeaves) {
    HeadlessBox box;
    box.Resize(9000, 6000);
    const ListView& list = box.Elements().lvFound;
    EXPECT_EQ(list.Top(), 360);
    EXPECT_EQ(list.Width(), 9000);
    EXPECT_EQ(list.Top() + list.Height(), 6000);
    EXPECT_FALSE(list.Visible());
}

TEST(Resize, ItDoesNotReportAnything) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Log().Clear();
    for (const Twips height : {5000, 9000, 7560}) box.Resize(12000, height);
    EXPECT_TRUE(box.Log().Entries().empty());
}

}  // namespace
}  // namespace quorvale
