#include <gtest/gtest.h>

#include "support/corrections_in_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using All = std::vector<InJournal>;

/// A document in which a user edits some lines, by the editor.
class RecordingACorrection : public testing::Test {
protected:
    RecordingACorrection() { box_.Load("A\r\nB\r\nC"); }

    All Edited(std::int32_t row, std::int32_t rows, const std::u16string& text) {
        box_.Correct(row, rows, text);
        return box_.Now();
    }

    CorrectionsBox box_;
};

TEST_F(RecordingACorrection, OneLineIsReplacedByTheLinesThatWereTyped) {
    EXPECT_EQ(Edited(2, 1, u"new"), (All{{2, 1, u"new\n"}}));
    EXPECT_EQ(Edited(2, 1, u"n1\r\nn2"), (All{{2, 1, u"n1\nn2\n"}}));
    EXPECT_EQ(Edited(2, 1, u"b"), (All{{2, 1, u"b\n"}}));
    EXPECT_EQ(Edited(2, 1, u""), (All{{2, 1, u"\n"}}));
    EXPECT_EQ(Edited(2, 1, u"B"), All{}) << "as in the file";
}

TEST_F(RecordingACorrection, UnchangedLinesAroundItAreLeftOut) {
    EXPECT_EQ(Edited(2, 2, u"b\r\nc"), (All{{2, 2, u"b\nc\n"}}));
    EXPECT_EQ(Edited(2, 2, u"b\r\nC"), (All{{2, 1, u"b\n"}}));
    EXPECT_EQ(Edited(2, 2, u"B\r\nc"), (All{{3, 1, u"c\n"}}));
    EXPECT_EQ(Edited(2, 2, u"B\r\nC\r\nnew"), (All{{4, 0, u"new\n"}}));
    EXPECT_EQ(Edited(2, 2, u"B"), (All{{3, 1, u""}}));
    EXPECT_EQ(Edited(2, 2, u"C"), (All{{2, 1, u""}}));
}

TEST_F(RecordingACorrection, OnlyTheMiddleOfThreeLinesIsRecorded) {
    box_.Load("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8");
    EXPECT_EQ(Edited(5, 3, u"5\r\nx\r\n7"), (All{{6, 1, u"x\n"}}));
}

TEST_F(RecordingACorrection, ALoneCarriageReturnStaysInItsLine) {
    box_.Correct(2, 1, u"a\rb");
    EXPECT_EQ(box_->Corrections().Of(2)->Lines, std::vector<std::u16string>{u"a\rb"});
}

TEST_F(RecordingACorrection, TheRowIsMarkedAndTheKeyboardIsBackInTheText) {
    box_.EnterText();
    box_.Correct(2, u"new");
    EXPECT_EQ(box_.Marked(), std::vector<int>{1});
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::TextArea);
    EXPECT_EQ(box_->LineText(2), u"B") << "the document itself is as it was";
}

TEST_F(RecordingACorrection, ALineWithATabIsRecordedThoughItWasNotTouched) {
    box_.Load("a\tb\r\nB");
    EXPECT_EQ(Edited(1, 2, u"a\tb\r\nnew"), (All{{1, 2, u"a\tb\nnew\n"}}));
}

TEST_F(RecordingACorrection, AnEditTheDayAfterKeepsWhatWasInsertedTheDayBefore) {
    EXPECT_EQ(Edited(2, 1, u"B\r\ninserted"), (All{{3, 0, u"inserted\n"}}));
    box_.OpenEditor(2);
    EXPECT_EQ(box_.Elements().rtbEdit.Text(), u"B\r\ninserted");
    box_.TypeInEditor(u"b\r\ninserted");
    box_.PressInEditor(key_code::Return, shift_mask::Ctrl);
    EXPECT_EQ(box_.Now(), (All{{2, 1, u"b\ninserted\n"}}));
}

TEST_F(RecordingACorrection, EditingTheLineAboveTakesTheCorrectionBelowWithIt) {
    Edited(2, 1, u"x");
    box_.OpenEditor(1);
    EXPECT_EQ(box_.Elements().rtbEdit.Text(), u"A\r\nx");
    box_.TypeInEditor(u"a\r\nx");
    box_.PressInEditor(key_code::Return, shift_mask::Ctrl);
    EXPECT_EQ(box_.Now(), (All{{1, 2, u"a\nx\n"}}));
}

TEST_F(RecordingACorrection, NeighboursOfCharactersThatAWidgetMayChangeStayAsTheyAre) {
    const std::string bytes(
        "a\xA0"
        "b\r\nx\ry\r\nn\0n\r\nlast",
        19);
    HeadlessSetup setup;
    setup.Options.KeepLineFormat = true;
    CorrectionsBox box(setup);
    box.Load(bytes);
    box.OpenEditor(1, 4);
    EXPECT_EQ(box.Elements().rtbEdit.Text(),
              std::u16string(u"a\u00A0b\r\nx\ry\r\nn\0n\r\nlast", 19));
    box.TypeInEditor(std::u16string(u"a\u00A0b\r\nx\ry\r\nn\0n\r\nnew!", 19));
    box.PressInEditor(key_code::Return, shift_mask::Ctrl);
    box.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box.FileBytes(), bytes.substr(0, 15) + "new!");
}

TEST_F(RecordingACorrection, NothingIsHeardOfIt) {
    box_.OpenEditor(2);
    box_.Log().Clear();
    box_.TypeInEditor(u"new");
    box_.PressInEditor(key_code::Return, shift_mask::Ctrl);
    EXPECT_TRUE(box_.Log().Entries().empty());
}

TEST_F(RecordingACorrection, TheHostSeesThatSomethingChanged) {
    const auto before = box_->Corrections().Changes();
    box_.Correct(2, u"new");
    EXPECT_GT(box_->Corrections().Changes(), before);
    ASSERT_TRUE(box_->Corrections().Of(2).has_value());
    EXPECT_EQ(box_->Corrections().Of(2)->FirstLine, 2);
    EXPECT_EQ(box_->Corrections().Of(2)->LineCount, 1);
    EXPECT_FALSE(box_->Corrections().Of(1).has_value());
}

}  // namespace
}  // namespace quorvale
