#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/corrections_in_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using All = std::vector<InJournal>;

/// A host with menus and keys of its own for the corrections of the lines 9, 2 and 5.
class CorrectionsByHost : public testing::Test {
protected:
    CorrectionsByHost() {
        box_.Load(DocFile(100));
        for (const int line : {9, 2, 5}) box_.Correct(line, u"x" + Wide(std::to_string(line)));
        box_->row(1);
        box_.Log().Clear();
    }

    HostCorrections& Corrections() { return box_->Corrections(); }

    CorrectionsBox box_;
};

TEST_F(CorrectionsByHost, TheEditorIsOpenedOverTheCaretsLine) {
    box_->row(3);
    EXPECT_TRUE(Corrections().Edit());
    EXPECT_TRUE(box_.EditorIsOpen());
    box_.TypeInEditor(u"three");
    box_.PressInEditor(key_code::Return, shift_mask::Ctrl);
    EXPECT_EQ(Corrections().Of(3)->Lines, std::vector<std::u16string>{u"three"});
}

TEST_F(CorrectionsByHost, WhereNothingCanBeEditedTheEditorStaysClosed) {
    HeadlessBox reading;
    reading.Load("one\n");
    EXPECT_FALSE(reading->Corrections().Edit()) << "editing is not offered";
    box_->text(u"of no file");
    EXPECT_FALSE(Corrections().Edit());
    EXPECT_FALSE(box_.EditorIsOpen());
}

TEST_F(CorrectionsByHost, TheCorrectionOfALineIsUndoneWhereverTheCaretIs) {
    box_.ClickMark(8);
    box_.Elements().mnuPopup.UserCancel();
    EXPECT_TRUE(Corrections().Undo(5));
    EXPECT_FALSE(box_.Elements().mnuPopup.PoppedUpAt().has_value());
    EXPECT_EQ(box_.Now(), (All{{9, 1, u"x9\n"}, {2, 1, u"x2\n"}}));
    EXPECT_THAT(box_.Marked(), ElementsAre(1, 8));
    EXPECT_FALSE(Corrections().Undo(5)) << "there is none any more";
    EXPECT_FALSE(Corrections().Undo(0));
    EXPECT_FALSE(Corrections().Undo(1000));
    EXPECT_EQ(Corrections().Pending(), 2);
}

TEST_F(CorrectionsByHost, UndoDropsWhatIsInTheEditorAndClosesIt) {
    box_.OpenEditor(12);
    box_.TypeInEditor(u"dropped");
    EXPECT_TRUE(Corrections().Undo(2));
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Now(), (All{{9, 1, u"x9\n"}, {5, 1, u"x5\n"}}));
}

TEST_F(CorrectionsByHost, AllCorrectionsAreUndoneOnceTheUserAgrees) {
    EXPECT_FALSE(Corrections().UndoAll());
    EXPECT_EQ(Corrections().Pending(), 3);
    box_.Messages().Answers = {MessageAnswer::Ok};
    EXPECT_TRUE(Corrections().UndoAll());
    EXPECT_EQ(Corrections().Pending(), 0);
    EXPECT_TRUE(box_.Marked().empty());
}

TEST_F(CorrectionsByHost, ACommitWritesTheFileWithWhatIsInTheEditor) {
    box_.OpenEditor(7);
    box_.TypeInEditor(u"seven");
    EXPECT_TRUE(Corrections().Commit());
    EXPECT_NE(box_.FileBytes().find("seven\r\n"), std::string::npos);
    EXPECT_NE(box_.FileBytes().find("x9\r\n"), std::string::npos);
    EXPECT_FALSE(box_.HasJournal());
    EXPECT_TRUE(Corrections().Commit()) << "nothing is left to be written";
}

TEST_F(CorrectionsByHost, ACommitThatIsGivenUpOrFailsSaysSo) {
    Corrections().BeforeCommit = [] { return false; };
    EXPECT_FALSE(Corrections().Commit());
    EXPECT_EQ(box_.FileBytes(), DocFile(100));
    Corrections().BeforeCommit = [&] {
        box_.Destroy();
        return true;
    };
    EXPECT_FALSE(Corrections().Commit());
    EXPECT_TRUE(box_.Destroyed());
}

TEST_F(CorrectionsByHost, TheWalkGoesOnWithEveryStepAndEnds) {
    std::vector<std::int32_t> rows;
    while (Corrections().Next()) rows.push_back(box_->row());
    EXPECT_THAT(rows, ElementsAre(2, 5, 9));
    rows.clear();
    while (Corrections().Previous()) rows.push_back(box_->row());
    EXPECT_THAT(rows, ElementsAre(5, 2));
    EXPECT_TRUE(box_.Messages().Log.empty()) << "the host says it in its own way";
}

TEST_F(CorrectionsByHost, AWalkOverCorrectionsOutsideTheDocumentEndsToo) {
    box_.Files().Put(u"/short.txt!.xml",
                     "<corrections><update start=\"2\" loc=\"1\">x\n</update>"
                     "<update start=\"700\" loc=\"1\">y\n</update>"
                     "<update start=\"800\" loc=\"1\">z\n</update></corrections>");
    box_.Load(DocFile(40), u"/short.txt");
    std::vector<std::int32_t> rows;
    while (Corrections().Next() && rows.size() < 9) rows.push_back(box_->row());
    EXPECT_THAT(rows, ElementsAre(2, 40));
}

TEST_F(CorrectionsByHost, AWalkMayDestroyTheControl) {
    box_.Log().OnEvent = [&](const std::string&) { box_.Destroy(); };
    EXPECT_TRUE(Corrections().Next());
    EXPECT_TRUE(box_.Destroyed());
}

TEST_F(CorrectionsByHost, WithoutADocumentNothingHappens) {
    CorrectionsBox empty;
    HostCorrections& corrections = empty->Corrections();
    EXPECT_FALSE(corrections.Edit());
    EXPECT_FALSE(corrections.Undo(1));
    EXPECT_FALSE(corrections.Next());
    EXPECT_FALSE(corrections.Previous());
    EXPECT_TRUE(corrections.Commit());
    corrections.SaveRecorded();
    EXPECT_EQ(empty.Files().Bytes(u"!.xml"), nullptr);
}

TEST_F(CorrectionsByHost, WhatIsRecordedIsSavedWhileTheEditorStaysOpen) {
    box_.OpenEditor(7);
    box_.TypeInEditor(u"still typing");
    const std::uint64_t changes = Corrections().Changes();
    Corrections().SaveRecorded();
    EXPECT_EQ(box_.Stored(), (All{{9, 1, u"x9\n"}, {2, 1, u"x2\n"}, {5, 1, u"x5\n"}}));
    EXPECT_TRUE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Elements().rtbEdit.Text(), u"still typing");
    EXPECT_EQ(Corrections().Changes(), changes) << "saving is no change that has to be saved";
    Corrections().Save();
    EXPECT_EQ(box_.Stored().back(), (InJournal{7, 1, u"still typing\n"}));
}

TEST_F(CorrectionsByHost, SavingAfterTheLastUndoTakesTheJournalAway) {
    Corrections().SaveRecorded();
    EXPECT_TRUE(box_.HasJournal());
    box_.Messages().Answers = {MessageAnswer::Ok};
    Corrections().UndoAll();
    Corrections().SaveRecorded();
    EXPECT_FALSE(box_.HasJournal());
}

}  // namespace
}  // namespace quorvale
