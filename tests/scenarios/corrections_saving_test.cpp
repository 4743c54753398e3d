#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/errors.h"
#include "platform/memory_files.h"
#include "platform/xml_service.h"
#include "support/corrections_in_box.h"

namespace quorvale {
namespace {

using All = std::vector<InJournal>;

constexpr const char* threeLines = "A\r\nB\r\nC";

/// Two controls of one host, or of two, have the same document open.
class TwoControls : public testing::Test {
protected:
    TwoControls() {
        files_->Put(u"/doc.txt", threeLines);
        first_ = Open();
        second_ = Open();
    }

    std::unique_ptr<CorrectionsBox> Open(bool readOnly = false) const {
        HeadlessSetup setup;
        setup.Options.ReadOnly = readOnly;
        setup.Files = files_;
        auto box = std::make_unique<CorrectionsBox>(std::move(setup));
        (*box)->LoadFile(u"/doc.txt");
        return box;
    }

    All Stored() const {
        const std::string* bytes = files_->Bytes(u"/doc.txt!.xml");
        return bytes == nullptr ? All{} : CorrectionsBox::InFile(*bytes);
    }

    /// The corrections that lie aside, file by file.
    std::vector<All> Displaced() const {
        std::vector<All> all;
        for (const std::string& bytes : files_->Displaced()) {
            all.push_back(CorrectionsBox::InFile(bytes));
        }
        return all;
    }

    std::shared_ptr<MemoryFiles> files_ = std::make_shared<MemoryFiles>();
    std::unique_ptr<CorrectionsBox> first_;
    std::unique_ptr<CorrectionsBox> second_;
};

// Symptom: whoever closed last had the only corrections left.
TEST_F(TwoControls, WhatTheFirstOneSavedIsKeptWhenTheSecondOneSaves) {
    first_->Correct(1, u"one");
    second_->Correct(2, u"two");
    first_->Destroy();
    second_->Destroy();
    EXPECT_EQ(Stored(), (All{{2, 1, u"two\n"}}));
    EXPECT_EQ(Displaced(), (std::vector<All>{{{1, 1, u"one\n"}}}));
}

TEST_F(TwoControls, AnEmptyJournalTakesNoOtherAwayForEver) {
    first_->Correct(1, u"one");
    first_->Destroy();
    second_->Destroy();
    EXPECT_EQ(Stored(), All{});
    EXPECT_EQ(Displaced(), (std::vector<All>{{{1, 1, u"one\n"}}}));
}

TEST_F(TwoControls, ACommitKeepsTheJournalOfTheOther) {
    first_->Correct(1, u"one");
    (*first_)->Corrections().Save();
    second_->Correct(2, u"two");
    second_->PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(*files_->Bytes(u"/doc.txt"), "A\r\ntwo\r\nC\r\n");
    EXPECT_EQ(Stored(), All{});
    EXPECT_EQ(Displaced(), (std::vector<All>{{{1, 1, u"one\n"}}}));
    EXPECT_TRUE(second_->Messages().Log.empty());
    // The first one's numbers are those of the file it has read: they lie aside.
    first_->Destroy();
    EXPECT_EQ(Stored(), All{});
    EXPECT_EQ(Displaced(), (std::vector<All>(2, {{1, 1, u"one\n"}})));
}

TEST_F(TwoControls, OneAloneNeverMovesAnythingAside) {
    second_.reset();
    for (const int line : {1, 2, 3}) {
        first_->Correct(line, u"x");
        (*first_)->Corrections().Save();
    }
    first_->Messages().Answers = {MessageAnswer::Ok};
    first_->PickCorrections(u"mnuUndoAll");
    (*first_)->Corrections().Save();
    first_->Correct(1, u"one");
    first_->Destroy();
    const auto next = Open();
    EXPECT_EQ((*next)->Corrections().Pending(), 1);
    next->Correct(2, u"two");
    next->PickCorrections(u"mnuPopupCommit");
    next->Correct(3, u"three");
    next->Destroy();
    EXPECT_EQ(Stored(), (All{{3, 1, u"three\n"}}));
    EXPECT_TRUE(files_->Displaced().empty());
}

// Symptom: the insertion was committed, the other control brought its journal back when it closed,
// and the next one inserted the line a second time.
TEST_F(TwoControls, ACommittedJournalIsNotBroughtBack) {
    first_->Correct(2, u"inserted\r\nB");
    first_->Destroy();
    const All insertion = Stored();
    ASSERT_EQ(insertion.size(), 1U);
    const auto third = Open();
    const auto fourth = Open();
    third->PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(Stored(), All{});
    EXPECT_THROW((*fourth)->Corrections().Save(), ControlError);
    fourth->Destroy();
    EXPECT_EQ(Stored(), All{});
    EXPECT_EQ(Displaced().front(), insertion);
}

TEST_F(TwoControls, OneThatOnlyShowsTouchesNoJournal) {
    first_->Correct(2, u"two");
    (*first_)->Corrections().Save();
    const std::string before = *files_->Bytes(u"/doc.txt!.xml");
    const auto shown = Open(true);
    EXPECT_EQ((*shown)->Corrections().Pending(), 1);
    EXPECT_EQ(shown->Marked(), std::vector<int>{1});
    shown->OpenEditor(1);
    EXPECT_FALSE(shown->EditorIsOpen());
    shown->Messages().Answers = {MessageAnswer::Ok};
    shown->PickCorrections(u"mnuUndoAll");
    shown->Elements().OnEditMarkClick(1);
    shown->PickCorrections(u"mnuPopupUndo");
    EXPECT_EQ((*shown)->Corrections().Pending(), 1);
    shown->PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(*files_->Bytes(u"/doc.txt"), threeLines);
    (*shown)->Corrections().Save();
    first_->PickCorrections(u"mnuPopupCommit");
    (*shown)->Corrections().SaveRecorded();
    shown->Destroy();
    EXPECT_EQ(Stored(), All{});
    EXPECT_TRUE(files_->Displaced().empty());
    EXPECT_FALSE(before.empty());
}

TEST_F(TwoControls, WhatIsRecordedIsSavedAndTheEditorStaysOpen) {
    first_->Correct(1, u"one");
    first_->OpenEditor(2);
    first_->TypeInEditor(u"half");
    (*first_)->Corrections().SaveRecorded();
    EXPECT_EQ(Stored(), (All{{1, 1, u"one\n"}}));
    EXPECT_TRUE(first_->EditorIsOpen());
    files_->Remove(u"/doc.txt!.xml");
    (*first_)->Corrections().SaveRecorded();
    EXPECT_EQ(Stored(), All{}) << "nothing has changed since";
}

// A file that was put there by hand, as deep as one may be.
TEST(AJournalThatCouldNotBeReadAgain, IsNotSavedAndItsCorrectionsStay) {
    std::string journal = "<corrections/>";
    for (std::size_t depth = 1; depth < XmlService::MaxDepth; ++depth) {
        journal = "<a>" + journal + "</a>";
    }
    CorrectionsBox box;
    box.Files().Put(u"/doc.txt!.xml", journal);
    box.Load(threeLines);
    ASSERT_FALSE(box->Corrections().Unreadable().has_value());
    box.Correct(2, u"new");
    std::string reason;
    try {
        box->Corrections().Save();
    } catch (const ControlError& error) {
        reason = error.what();
    }
    EXPECT_NE(reason.find("/doc.txt!.xml"), std::string::npos) << reason;
    EXPECT_NE(reason.find("The elements are nested too deeply"), std::string::npos) << reason;
    EXPECT_EQ(box.FileBytes(u"/doc.txt!.xml"), journal);
    EXPECT_EQ(box->Corrections().Pending(), 1);
    EXPECT_EQ(box.Marked(), std::vector<int>{1});
    box.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box.FileBytes(), "A\r\nnew\r\nC\r\n");
}

}  // namespace
}  // namespace quorvale
