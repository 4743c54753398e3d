#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/file_digest.h"
#include "platform/memory_files.h"
#include "support/corrections_in_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using All = std::vector<InJournal>;

class Committing : public testing::Test {
protected:
    /// The file is loaded, with corrections beside it that were made earlier.
    void Load(const std::string& bytes, std::initializer_list<InJournal> corrections) {
        std::string journal = "<corrections>";
        for (const InJournal& each : corrections) {
            journal += "<update start=\"" + std::to_string(each.Start) + "\" loc=\"" +
                       std::to_string(each.Count) + "\">" + ToUtf8(each.Text) + "</update>";
        }
        box_.Files().Put(u"/doc.txt!.xml", journal + "</corrections>");
        box_.Load(bytes);
    }

    std::string Committed(const std::string& bytes, std::initializer_list<InJournal> corrections) {
        Load(bytes, corrections);
        Commit();
        EXPECT_FALSE(box_.HasJournal());
        EXPECT_TRUE(box_.Messages().Log.empty());
        return box_.FileBytes();
    }

    void Commit() { box_.PickCorrections(u"mnuPopupCommit"); }

    CorrectionsBox box_;
};

constexpr const char* three = "A\r\nB\r\nC";

TEST_F(Committing, OneLine) {
    EXPECT_EQ(Committed(three, {{2, 1, u"X\n"}}), "A\r\nX\r\nC\r\n");
    EXPECT_THAT(box_.Rows(), ElementsAre("A", "X", "C", ""));
}

TEST_F(Committing, AnInsertion) {
    EXPECT_EQ(Committed(three, {{2, 0, u"N\n"}}), "A\r\nN\r\nB\r\nC\r\n");
    EXPECT_EQ(Committed(three, {{4, 0, u"N\n"}}), "A\r\nB\r\nC\r\nN\r\n");
}

TEST_F(Committing, SeveralAndOverlappingOnes) {
    EXPECT_EQ(Committed(three, {{3, 1, u"Y\n"}, {1, 1, u"X\n"}}), "X\r\nB\r\nY\r\n");
    EXPECT_EQ(Committed(three, {{2, 3, u"P\n"}, {3, 1, u"Q\n"}}), "A\r\nP");
    EXPECT_EQ(Committed(three, {{0, 1, u"Z\n"}, {5, 1, u"Z\n"}}), "A\r\nB\r\nC\r\n");
}

TEST_F(Committing, TheEndOfTheFile) {
    EXPECT_EQ(Committed("A", {{1, 1, u"X\n"}}), "X\r\n");
    EXPECT_EQ(Committed(three, {{1, 3, u""}}), "");
    EXPECT_EQ(box_->LineCount(), 1);
}

TEST_F(Committing, AFileThatEndsWithABreakGrowsByALineEachTime) {
    EXPECT_EQ(Committed("A\r\nB\r\n", {{1, 1, u"X\n"}}), "X\r\nB\r\n\r\n");
    EXPECT_EQ(box_->LineCount(), 4);
    box_.Correct(2, u"Y");
    Commit();
    EXPECT_EQ(box_->LineCount(), 5);
}

TEST_F(Committing, TabsBecomeBlanksButInCorrectedLines) {
    EXPECT_EQ(Committed("a\tb\r\nB", {{2, 1, u"x\ty\n"}}), "a       b\r\nx\ty\r\n");
}

TEST_F(Committing, BareLineFeedsBecomeCrLf) {
    EXPECT_EQ(Committed("A\nB\nC", {{2, 1, u"X\n"}}), "A\r\nX\r\nC\r\n");
}

TEST_F(Committing, EveryByteOfUncorrectedLinesStays) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\t' && byte != '\r' && byte != '\n') all += static_cast<char>(byte);
    }
    EXPECT_EQ(Committed(all + "\r\nB", {{2, 1, u"\u00E9\n"}}), all + "\r\n\xE9\r\n");
}

TEST_F(Committing, WithItsFormatKeptAFileDiffersInTheCorrectedLineOnly) {
    HeadlessSetup setup;
    setup.Options.KeepLineFormat = true;
    CorrectionsBox box(setup);
    box.Load("a\tb\nB\r\nC\n\nlast");
    box.Correct(2, u"new");
    box.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box.FileBytes(), "a\tb\nnew\r\nC\n\nlast");
    box.Correct(5, u"last!");
    box.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box.FileBytes(), "a\tb\nnew\r\nC\n\nlast!");
}

TEST_F(Committing, AnOpenEditIsPartOfIt) {
    box_.Load(three);
    box_.OpenEditor(2);
    box_.TypeInEditor(u"typed");
    Commit();
    EXPECT_EQ(box_.FileBytes(), "A\r\ntyped\r\nC\r\n");
}

TEST_F(Committing, WithoutCorrectionsNothingIsDone) {
    box_.Load(DocFile(300));
    box_->MoveTo(40, 3);
    box_->LineBackColor(40, 0x00FF00);
    box_.Log().Clear();
    Commit();
    EXPECT_EQ(box_.FileBytes(), DocFile(300));
    EXPECT_TRUE(box_.Messages().Log.empty());
    EXPECT_TRUE(box_.Log().Entries().empty());
    EXPECT_EQ(box_->LineBackColor(40), 0x00FF00);
    EXPECT_EQ(box_->row(), 40);
}

TEST_F(Committing, ATextOfNoFileIsNotWrittenAnywhere) {
    Commit();
    box_->text(Doc(5));
    Commit();
    EXPECT_TRUE(box_.Messages().Log.empty());
    EXPECT_EQ(box_->LineCount(), 5);
}

TEST_F(Committing, AfterwardsTheFileIsShownAfreshWithAnEmptyJournal) {
    Load(three, {{2, 1, u"X\n"}});
    box_->LineBackColor(1, 0x00FF00);
    box_->CollapseLines(1, 2);
    box_->CollapseAll();
    Commit();
    EXPECT_EQ(box_->Corrections().FilePath(), u"/doc.txt");
    EXPECT_EQ(box_->Corrections().Pending(), 0);
    EXPECT_TRUE(box_.Elements().tbMore.Button(u"Edit").Enabled);
    EXPECT_TRUE(box_.Marked().empty());
    EXPECT_NE(box_->LineBackColor(1), 0x00FF00);
    EXPECT_EQ(box_.Rows().size(), 4U) << "nothing is folded";
    EXPECT_FALSE(box_.HasJournal(u"!.xml"));
    box_.Correct(1, u"again");
    Commit();
    EXPECT_EQ(box_.FileBytes(), "again\r\nX\r\nC\r\n\r\n");
}

/// A view of twenty rows over two hundred lines, the first of which was corrected.
class CommittingFromTheMiddle : public Committing {
protected:
    CommittingFromTheMiddle() {
        box_.Resize(12000, 360 + 20 * 240);
        Load(DocFile(200), {{1, 1, u"first\n"}});
        box_->TopLine(40);
    }
};

TEST_F(CommittingFromTheMiddle, TheViewAndTheCaretStay) {
    box_->MoveTo(45, 3);
    ASSERT_EQ(box_->TopLine(), 40);
    Commit();
    EXPECT_EQ(box_->TopLine(), 40);
    EXPECT_EQ(box_->row(), 45);
    EXPECT_EQ(box_->col(), 3);
    EXPECT_EQ(box_.Rows().front(), "L40");
}

TEST_F(CommittingFromTheMiddle, ACaretInTheLowerHalfIsBroughtToTheMiddle) {
    box_->MoveTo(55, 1);
    box_->TopLine(40);
    ASSERT_EQ(box_->row(), 55);
    Commit();
    EXPECT_EQ(box_->row(), 55);
    EXPECT_EQ(box_->TopLine(), 46);
}

TEST_F(CommittingFromTheMiddle, APlaceThatIsGoneBecomesTheNearest) {
    box_.Correct(45, u"x");
    box_->MoveTo(45, 4);
    Commit();
    EXPECT_EQ(box_->row(), 45);
    EXPECT_EQ(box_->col(), 2) << "behind the last character";
    box_.Correct(100, 101, u"");
    box_->MoveTo(200, 1);
    Commit();
    EXPECT_EQ(box_->row(), box_->LineCount());
}

TEST_F(CommittingFromTheMiddle, TheHostHearsWhatMoves) {
    box_->MoveTo(45, 3);
    box_.Log().Clear();
    Commit();
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("Scrolled", "Scrolled", "SelChanged"));
}

TEST_F(Committing, ACharacterThatTheFileCannotHoldIsNamedAndNothingIsWritten) {
    box_.Load(three);
    box_.Correct(2, u"\u65E5");
    Commit();
    ASSERT_EQ(box_.Messages().Log.size(), 1U);
    EXPECT_EQ(box_.Messages().Log[0].Text,
              u"Fail to save file.\r\nThe character U+65E5 in the correction of line 2 does not "
              u"exist in the file's encoding");
    EXPECT_EQ(box_.FileBytes(), three);
    EXPECT_EQ(box_->Corrections().Pending(), 1);
}

TEST_F(Committing, AnUpdateThatCannotBeUsedDoesNotStopTheOthers) {
    EXPECT_EQ(Committed(three, {{2, -1, u"Z\n"}, {2, 1, u"X\n"}}), "A\r\nX\r\nC\r\n");
}

TEST_F(Committing, NamesAreLiteral) {
    for (const std::u16string& name :
         {std::u16string(u"/*"), std::u16string(u"/a?.txt"), std::u16string(u"/100%1 #.txt"),
          std::u16string(u"/\u65E5 \u672C.txt")}) {
        CorrectionsBox box;
        box.Files().Put(u"/a!.xml", "of another file");
        box.Files().Put(u"/ab.txt!.xml", "of another file");
        box.Load(three, name);
        box.Correct(2, u"X");
        box->Corrections().Save();
        EXPECT_TRUE(box.HasJournal(name + u"!.xml"));
        box.PickCorrections(u"mnuPopupCommit");
        EXPECT_EQ(box.FileBytes(name), "A\r\nX\r\nC\r\n");
        EXPECT_FALSE(box.HasJournal(name + u"!.xml"));
        EXPECT_TRUE(box.HasJournal(u"/a!.xml"));
        EXPECT_TRUE(box.HasJournal(u"/ab.txt!.xml"));
    }
}

/// Files that can be made to fail in each of the steps.
class FailingCommit : public testing::Test {
protected:
    FailingCommit() {
        memory_.Put(u"/100%1.txt", three);
        HeadlessSetup setup;
        setup.Files = failing_;
        box_ = std::make_unique<CorrectionsBox>(std::move(setup));
        (*box_)->LoadFile(u"/100%1.txt");
        box_->Correct(2, u"X");
        (*box_)->Corrections().Save();
    }

    void Commit() { box_->PickCorrections(u"mnuPopupCommit"); }
    std::string Bytes() { return *memory_.Bytes(u"/100%1.txt"); }
    bool HasJournal() { return memory_.Bytes(u"/100%1.txt!.xml") != nullptr; }

    std::u16string Message() {
        if (box_->Messages().Log.size() != 1) return u"not one message";
        EXPECT_EQ(box_->Messages().Log[0].Style, MessageStyle::Exclamation);
        return box_->Messages().Log[0].Text;
    }

    MemoryFiles memory_;
    std::shared_ptr<FailingFiles> failing_ = std::make_shared<FailingFiles>(memory_);
    std::unique_ptr<CorrectionsBox> box_;
};

TEST_F(FailingCommit, AFileThatCannotBeWrittenStaysAndTheNextTrySucceeds) {
    failing_->FailReplace = true;
    Commit();
    EXPECT_TRUE(Message().starts_with(u"Fail to save file.\r\n"));
    EXPECT_NE(Message().find(u"100%1.txt"), std::u16string::npos);
    EXPECT_EQ(Bytes(), three);
    EXPECT_TRUE(HasJournal());
    EXPECT_EQ((*box_)->Corrections().Pending(), 1);
    failing_->FailReplace = false;
    Commit();
    EXPECT_EQ(Bytes(), "A\r\nX\r\nC\r\n");
    EXPECT_FALSE(HasJournal());
}

TEST_F(FailingCommit, AJournalThatCannotBeRemovedIsNotAppliedTwice) {
    failing_->FailRemoveSpent = true;
    Commit();
    EXPECT_TRUE(Message().starts_with(u"Fail to save file.\r\n"));
    EXPECT_EQ(Bytes(), "A\r\nX\r\nC\r\n");
    EXPECT_TRUE(HasJournal());
    EXPECT_EQ((*box_)->Corrections().Pending(), 0);
    EXPECT_EQ((*box_)->LineText(2), u"B") << "the file was not loaded again";
    Commit();
    EXPECT_EQ(box_->Messages().Log.size(), 1U) << "there is nothing to write any more";
    EXPECT_EQ(Bytes(), "A\r\nX\r\nC\r\n");
    failing_->FailRemoveSpent = false;
    (*box_)->LoadFile(u"/100%1.txt");
    EXPECT_EQ((*box_)->Corrections().Pending(), 0);
    Commit();
    EXPECT_EQ(Bytes(), "A\r\nX\r\nC\r\n");
}

TEST_F(FailingCommit, AFileThatCannotBeLoadedAgainIsReported) {
    (*box_)->Corrections().BeforeCommit = [this] {
        failing_->FailOpen = true;
        return true;
    };
    Commit();
    EXPECT_EQ(Message(), u"Fail to save file.\r\n'/100%1.txt' could not be loaded again");
    EXPECT_EQ(Bytes(), "A\r\nX\r\nC\r\n");
    EXPECT_EQ((*box_)->LineCount(), 1);
    EXPECT_EQ((*box_)->Corrections().FilePath(), u"");
}

TEST_F(FailingCommit, AHostThatSaysNoIsObeyed) {
    (*box_)->Corrections().BeforeCommit = [] { return false; };
    Commit();
    EXPECT_EQ(Bytes(), three);
    EXPECT_EQ((*box_)->Corrections().Pending(), 1);
    EXPECT_TRUE(box_->Messages().Log.empty());
}

TEST_F(FailingCommit, AHostCanTellThatTheFileIsAnotherOneByNow) {
    EXPECT_EQ((*box_)->Corrections().LoadedDigest(), DigestOf(three));
    memory_.Put(u"/100%1.txt", "changed");
    EXPECT_NE((*box_)->Corrections().LoadedDigest(), DigestOf(Bytes()));
}

TEST_F(FailingCommit, ASecondSessionSeesWhatTheFirstOneLeft) {
    box_->Destroy();
    HeadlessSetup setup;
    setup.Files = failing_;
    CorrectionsBox second(std::move(setup));
    second->LoadFile(u"/100%1.txt");
    EXPECT_THAT(second.Marked(), ElementsAre(1));
    second.OpenEditor(2);
    EXPECT_EQ(second.Elements().rtbEdit.Text(), u"X");
    second.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(Bytes(), "A\r\nX\r\nC\r\n");
}

}  // namespace
}  // namespace quorvale
