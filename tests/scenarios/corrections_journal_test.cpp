#include <gtest/gtest.h>

#include "base/errors.h"
#include "platform/memory_files.h"
#include "support/control_inside.h"
#include "support/corrections_in_box.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

using All = std::vector<InJournal>;

constexpr const char* threeLines = "A\r\nB\r\nC";

/// A journal file with one correction of line 2.
constexpr const char* oneCorrection =
    "<corrections><update start=\"2\" loc=\"1\">X\n</update></corrections>";

class CorrectionsJournal : public testing::Test {
protected:
    /// The file is loaded with that beside it.
    void LoadWith(const std::string& journal) {
        box_.Files().Put(u"/doc.txt!.xml", journal);
        box_.Load(threeLines);
        EXPECT_EQ(box_->LineCount(), 3);
        EXPECT_EQ(box_.Rows().front(), "A");
        EXPECT_TRUE(box_.Messages().Log.empty());
    }

    CorrectionsBox box_;
};

TEST_F(CorrectionsJournal, AFileWithoutOneHasNoneAfterwardsEither) {
    box_.Load(threeLines);
    EXPECT_EQ(box_->Corrections().Pending(), 0);
    box_->Terminate();
    EXPECT_FALSE(box_.HasJournal());
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(CorrectionsJournal, WhatIsCorrectedLiesBesideTheFileAfterwards) {
    box_.Load(threeLines);
    box_.Correct(2, u"new");
    EXPECT_EQ(box_->Corrections().Pending(), 1);
    EXPECT_FALSE(box_.HasJournal()) << "not before the control ends";
    box_->Terminate();
    EXPECT_EQ(box_.Stored(), (All{{2, 1, u"new\n"}}));
    EXPECT_EQ(box_.FileBytes(), threeLines);
}

TEST_F(CorrectionsJournal, DestroyingTheControlSavesItToo) {
    box_.Load(threeLines);
    box_.Correct(2, u"new");
    box_.Destroy();
    EXPECT_EQ(box_.Stored(), (All{{2, 1, u"new\n"}}));
}

TEST_F(CorrectionsJournal, TheFileIsPlainUtf8WithNothingAdded) {
    box_.Load(threeLines);
    box_.Correct(2, u"caf\u00E9\r\n  b ");
    box_->Terminate();
    EXPECT_EQ(
        box_.FileBytes(u"/doc.txt!.xml"),
        "<corrections><update start=\"2\" loc=\"1\">caf\xC3\xA9\n  b \n</update></corrections>");
}

TEST_F(CorrectionsJournal, AnEditThatIsOpenAtTheEndIsSaved) {
    box_.Load(threeLines);
    box_.OpenEditor(2);
    box_.TypeInEditor(u"typed");
    box_->Terminate();
    EXPECT_EQ(box_.Stored(), (All{{2, 1, u"typed\n"}}));
}

TEST_F(CorrectionsJournal, CorrectionsAreThereAgainTheNextDayAndTheirRowsAreMarked) {
    LoadWith(oneCorrection);
    EXPECT_EQ(box_->Corrections().Pending(), 1);
    EXPECT_EQ(box_.Marked(), std::vector<int>{1}) << "without any scrolling";
    box_.OpenEditor(2);
    EXPECT_EQ(box_.Elements().rtbEdit.Text(), u"X");
}

TEST_F(CorrectionsJournal, TextsOfEveryKindComeBack) {
    for (const std::u16string& text :
         {std::u16string(u"  a "), std::u16string(), std::u16string(u"a\tb"),
          std::u16string(u"a\rb"), std::u16string(u"x]]>y&<z\"'"), std::u16string(u"\u00A0"),
          std::u16string(u"\u0001\u000C\0", 3), std::u16string(1, 0xD83D),
          std::u16string(u"\u65E5\u672C"), std::u16string(u"c:\\u0041\\"),
          std::u16string(u"\uFFFE\uFFFF\u2028\u0085")}) {
        SCOPED_TRACE(testing::PrintToString(text));
        CorrectionsBox first;
        first.Load(threeLines);
        first.Correct(2, text);
        first->Terminate();
        CorrectionsBox second;
        second.Files().Put(u"/doc.txt!.xml", first.FileBytes(u"/doc.txt!.xml"));
        second.Load(threeLines);
        ASSERT_TRUE(second->Corrections().Of(2).has_value());
        EXPECT_EQ(second->Corrections().Of(2)->Lines, std::vector<std::u16string>{text});
        second->Terminate();
        EXPECT_EQ(second.FileBytes(u"/doc.txt!.xml"), first.FileBytes(u"/doc.txt!.xml"));
    }
}

TEST_F(CorrectionsJournal, AnyToolCanReadATextThatNeedsNoEscaping) {
    box_.Load(threeLines);
    box_.Correct(2, u"c:\\u0041");
    box_.Correct(3, 1, u"a\rb");
    box_->Terminate();
    EXPECT_EQ(box_.FileBytes(u"/doc.txt!.xml"),
              "<corrections><update start=\"2\" loc=\"1\">c:\\u0041\n</update>"
              "<update start=\"3\" loc=\"1\" escaped=\"1\">a\\u000Db\n</update></corrections>");
}

TEST_F(CorrectionsJournal, ACutFileOpensEmptyAndIsReplacedByNewCorrections) {
    LoadWith("<corrections><update");
    EXPECT_EQ(box_->Corrections().Pending(), 0);
    box_.Correct(2, u"new");
    box_->Terminate();
    EXPECT_EQ(box_.Stored(), (All{{2, 1, u"new\n"}}));
}

TEST_F(CorrectionsJournal, ACutFileGoesWhenNothingIsCorrected) {
    LoadWith("<corrections><update");
    box_->Terminate();
    EXPECT_FALSE(box_.HasJournal());
}

TEST_F(CorrectionsJournal, AnotherRootAroundTheCorrectionsStays) {
    LoadWith("<x><y/><corrections><update start=\"2\" loc=\"1\">X&#10;</update></corrections></x>");
    EXPECT_EQ(box_.Marked(), std::vector<int>{1});
    box_.Correct(3, u"c");
    box_->Terminate();
    EXPECT_EQ(box_.FileBytes(u"/doc.txt!.xml"),
              "<x><y/><corrections><update start=\"2\" loc=\"1\">X\n</update>"
              "<update start=\"3\" loc=\"1\">c\n</update></corrections></x>");
}

TEST_F(CorrectionsJournal, AFileThatIsNoJournalHarmsNothing) {
    LoadWith("<notes/>");
    EXPECT_TRUE(box_.Elements().tbMore.Button(u"Edit").Enabled);
    box_.Correct(2, u"new");
    EXPECT_EQ(box_.Now(), (All{{2, 1, u"new\n"}}));
}

TEST_F(CorrectionsJournal, AJournalThatWasEmptiedIsRemovedEvenWhenItIsReadOnly) {
    LoadWith(oneCorrection);
    box_.Files().SetReadOnly(u"/doc.txt!.xml");
    box_.Messages().Answers = {MessageAnswer::Ok};
    box_.PickCorrections(u"mnuUndoAll");
    box_->Terminate();
    EXPECT_FALSE(box_.HasJournal());
}

TEST_F(CorrectionsJournal, WhiteSpaceInTheRootIsKept) {
    LoadWith("<corrections>\n</corrections>");
    box_->Terminate();
    EXPECT_EQ(box_.FileBytes(u"/doc.txt!.xml"), "<corrections>\n</corrections>");
}

TEST_F(CorrectionsJournal, UselessCorrectionsDisturbNobodyAndStay) {
    const std::string useless =
        "<update start=\"abc\" loc=\"1\">a\n</update><update start=\"2\">b\n</update>"
        "<update start=\"2\" loc=\"-2\">c\n</update><update start=\"99999999999\" loc=\"1\"/>";
    LoadWith("<corrections>" + useless +
             "<update start=\"2\" loc=\"1\">X\n</update></corrections>");
    EXPECT_EQ(box_.Marked(), std::vector<int>{1});
    EXPECT_EQ(box_->Corrections().Pending(), 5);
    box_.ClickMark(1);
    box_.PickCorrections(u"mnuPopupNext");
    EXPECT_EQ(box_.Messages().Log.size(), 1U);
    box_.Correct(3, u"c");
    box_->Terminate();
    EXPECT_EQ(box_.FileBytes(u"/doc.txt!.xml"),
              "<corrections>" + useless +
                  "<update start=\"2\" loc=\"1\">X\n</update>"
                  "<update start=\"3\" loc=\"1\">c\n</update></corrections>");
}

TEST_F(CorrectionsJournal, NumbersAreReadAsUsersWriteThem) {
    LoadWith(
        "<corrections><update start=\" 2 \" loc=\"+1\">a\n</update>"
        "<update start=\"2.5\" loc=\"0\">b\n</update></corrections>");
    EXPECT_EQ(box_.Marked(), std::vector<int>{1});
    box_.OpenEditor(2);
    EXPECT_EQ(box_.Elements().rtbEdit.Text(), u"a");
}

TEST_F(CorrectionsJournal, CorrectionsInForeignElementsAreMarkedReplacedAndUndone) {
    const std::string nested =
        "<corrections><g><update start=\"2\" loc=\"1\">X\n</update></g></corrections>";
    LoadWith(nested);
    EXPECT_EQ(box_.Marked(), std::vector<int>{1});
    box_.Correct(2, u"new");
    EXPECT_EQ(box_.Now(), (All{{2, 1, u"new\n"}}));
    CorrectionsBox other;
    other.Files().Put(u"/doc.txt!.xml", nested);
    other.Load(threeLines);
    other.ClickMark(1);
    other.PickCorrections(u"mnuPopupUndo");
    EXPECT_TRUE(other.Marked().empty());
    EXPECT_EQ(other->Corrections().Pending(), 0);
}

TEST_F(CorrectionsJournal, ACorrectionWithoutTextOrWithCdataIsUnderstood) {
    LoadWith(
        "<corrections><update start=\"2\" loc=\"1\"/>"
        "<update start=\"3\" loc=\"1\"><![CDATA[X\n]]></update></corrections>");
    EXPECT_EQ(box_->Corrections().Of(2)->Lines, std::vector<std::u16string>{});
    EXPECT_EQ(box_->Corrections().Of(3)->Lines, std::vector<std::u16string>{u"X"});
    box_.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box_.FileBytes(), "A\r\nX\r\n");
}

TEST_F(CorrectionsJournal, WithoutAFileThereIsNone) {
    EXPECT_EQ(box_->Corrections().FilePath(), u"");
    box_->text(Doc(3));
    box_.OpenEditor(2);
    EXPECT_FALSE(box_.EditorIsOpen());
    box_.Load(threeLines);
    EXPECT_EQ(box_->Corrections().FilePath(), u"/doc.txt");
    box_->LoadFile(u"/missing");
    box_.OpenEditor(1);
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_->Corrections().FilePath(), u"");
}

TEST_F(CorrectionsJournal, AnotherFilePutsTheCorrectionsIntoTheCurrentFolder) {
    LoadWith(oneCorrection);
    box_.Correct(3, u"c");
    box_.Load("other", u"/other.txt");
    EXPECT_EQ(box_.Stored(u"!.xml"), (All{{2, 1, u"X\n"}, {3, 1, u"c\n"}}));
    EXPECT_EQ(box_.FileBytes(u"/doc.txt!.xml"), oneCorrection) << "as it was";
    EXPECT_EQ(box_->Corrections().Pending(), 0);
    EXPECT_TRUE(box_.Marked().empty());
}

TEST_F(CorrectionsJournal, AnotherFileWithoutCorrectionsRemovesTheOneInTheCurrentFolder) {
    box_.Files().Put(u"!.xml", "of some other document");
    box_.Load(threeLines);
    box_.Load("other", u"/other.txt");
    EXPECT_FALSE(box_.HasJournal(u"!.xml"));
}

TEST_F(CorrectionsJournal, ATextOfNoFileEndsItTheSameWay) {
    box_.Load(threeLines);
    box_.Correct(2, u"new");
    box_->text(u"x");
    EXPECT_EQ(box_.Stored(u"!.xml"), (All{{2, 1, u"new\n"}}));
    EXPECT_FALSE(box_->Corrections().Of(1).has_value());
    box_->Terminate();
    EXPECT_FALSE(box_.HasJournal());
}

TEST_F(CorrectionsJournal, AnOpenEditIsRecordedAgainstTheLinesItWasOpenedOver) {
    box_.Load(DocFile(900));
    box_.OpenEditor(900);
    box_.TypeInEditor(u"L900!");
    box_->TopLine(1);
    box_.Load("", u"/empty.txt");
    EXPECT_EQ(box_.Stored(u"!.xml"), (All{{900, 1, u"L900!\n"}}));
    box_.Load(DocFile(900));
    box_.OpenEditor(450);
    box_.TypeInEditor(u"L450\r\nmore");
    box_->text(u"x");
    EXPECT_EQ(box_.Stored(u"!.xml"), (All{{451, 0, u"more\n"}}));
}

TEST_F(CorrectionsJournal, LoadingByTheControlsOwnNameLoadsThatFile) {
    box_.Load(threeLines);
    box_->LoadFile(Inside(box_.Box()).Document.FileName);
    EXPECT_EQ(box_->Corrections().FilePath(), u"/doc.txt");
    EXPECT_EQ(box_->LineCount(), 3);
}

/// A control on files that can be made to fail.
class FailingJournal : public testing::Test {
protected:
    FailingJournal() {
        memory_.Put(u"/doc.txt", threeLines);
        memory_.Put(u"/other.txt", DocFile(200));
        HeadlessSetup setup;
        setup.Files = failing_;
        box_ = std::make_unique<CorrectionsBox>(std::move(setup));
        (*box_)->LoadFile(u"/doc.txt");
    }

    MemoryFiles memory_;
    std::shared_ptr<FailingFiles> failing_ = std::make_shared<FailingFiles>(memory_);
    std::unique_ptr<CorrectionsBox> box_;
};

TEST_F(FailingJournal, TheFailureReachesWhoeverTerminatesTheControl) {
    box_->Correct(2, u"new");
    failing_->FailSave = true;
    EXPECT_EQ(ErrorOf([&] { (*box_)->Terminate(); }), ErrorKind::File);
    EXPECT_EQ((*box_)->Corrections().FilePath(), u"");
    EXPECT_EQ((*box_)->Corrections().Pending(), 0);
    EXPECT_NO_THROW((*box_)->Terminate()) << "there is nothing left to save";
    EXPECT_EQ((*box_)->LineText(2), u"B");
}

TEST_F(FailingJournal, DestroyingTheControlIsQuiet) {
    box_->Correct(2, u"new");
    failing_->FailSave = true;
    EXPECT_NO_THROW(box_->Destroy());
}

TEST_F(FailingJournal, AFailingRemovalIsNobodysConcern) {
    failing_->FailDelete = true;
    EXPECT_NO_THROW((*box_)->Terminate());
}

TEST_F(FailingJournal, SavingBeforehandTellsWhetherItWillSucceedAndLosesNothing) {
    box_->Correct(2, u"new");
    failing_->FailSave = true;
    EXPECT_EQ(ErrorOf([&] { (*box_)->Corrections().Save(); }), ErrorKind::File);
    EXPECT_EQ((*box_)->Corrections().Pending(), 1);
    EXPECT_EQ(box_->Marked(), std::vector<int>{1});
    failing_->FailSave = false;
    EXPECT_NO_THROW((*box_)->Corrections().Save());
    EXPECT_EQ(CorrectionsBox::InFile(*memory_.Bytes(u"/doc.txt!.xml")), (All{{2, 1, u"new\n"}}));
}

TEST_F(FailingJournal, AnotherFileIsShownWholeAllTheSame) {
    box_->Correct(2, u"new");
    failing_->FailSave = true;
    EXPECT_NO_THROW((*box_)->LoadFile(u"/other.txt"));
    EXPECT_EQ((*box_)->LineCount(), 1) << "no file can be shown, and no half of one is";
    EXPECT_EQ((*box_)->LineText(1), u"");
    EXPECT_EQ(box_->Rows(), std::vector<std::string>{""});
    EXPECT_EQ((*box_)->Corrections().FilePath(), u"");
    EXPECT_EQ((*box_)->Corrections().Pending(), 0);
    EXPECT_TRUE(box_->Marked().empty());
    // Saving still fails; nobody tries it again with corrections that are gone.
    EXPECT_NO_THROW((*box_)->LoadFile(u"/other.txt"));
    EXPECT_EQ((*box_)->Corrections().FilePath(), u"/other.txt");
    EXPECT_EQ((*box_)->LineCount(), 200);
    EXPECT_EQ((*box_)->LineText(200), u"L200");
    EXPECT_EQ(box_->RowLines().size(), 30U);
}

TEST_F(FailingJournal, AJournalThatCannotBeReadIsNeitherUsedNorTouched) {
    memory_.Put(u"/doc.txt!.xml", oneCorrection);
    failing_->FailRecover = true;
    (*box_)->LoadFile(u"/doc.txt");
    failing_->FailRecover = false;
    EXPECT_EQ((*box_)->LineCount(), 3);
    EXPECT_TRUE((*box_)->Corrections().Unreadable().has_value());
    EXPECT_EQ((*box_)->Corrections().Pending(), 0);
    box_->Correct(3, u"c");
    EXPECT_EQ(ErrorOf([&] { (*box_)->Corrections().Save(); }), ErrorKind::File);
    box_->PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box_->Messages().Log.size(), 1U);
    EXPECT_EQ(*memory_.Bytes(u"/doc.txt"), threeLines);
    EXPECT_EQ(ErrorOf([&] { (*box_)->Terminate(); }), ErrorKind::File);
    EXPECT_EQ(*memory_.Bytes(u"/doc.txt!.xml"), oneCorrection);
}

}  // namespace
}  // namespace quorvale
