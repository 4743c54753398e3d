#include <gtest/gtest.h>

#include <stdexcept>

#include "support/corrections_in_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// A host that does something inside the events that corrections raise: once.
class HostInsideCorrections : public testing::Test {
protected:
    HostInsideCorrections() {
        box_.Files().Put(u"/other.txt", DocFile(80, 'o'));
        box_.Load(DocFile(300));
        box_.Correct(5, u"five");
        box_.Correct(200, u"two hundred");
        box_->MoveTo(100, 1);
        box_->TopLine(1);
    }

    void Inside(const std::string& event, std::function<void()> action) {
        box_.Log().OnEvent = [this, event, action = std::move(action)](const std::string& raised) {
            if (raised != event || done_) return;
            done_ = true;
            action();
        };
        done_ = false;
    }

    CorrectionsBox box_;
    bool done_ = false;
};

TEST_F(HostInsideCorrections, DestroysTheControlWhenAMarkIsClicked) {
    Inside("SelChanged", [&] { box_.Destroy(); });
    box_.ClickMark(4);
    EXPECT_TRUE(box_.Destroyed());
    EXPECT_EQ(box_.Stored().size(), 2U);
}

TEST_F(HostInsideCorrections, DestroysTheControlWhenTheEditorIsOpened) {
    box_->row(100);
    box_->TopLine(1);
    Inside("Scrolled", [&] { box_.Destroy(); });
    box_.PickCorrections(u"mnuPopupEdit");
    EXPECT_TRUE(done_);
    EXPECT_EQ(box_.Stored().size(), 2U);
}

TEST_F(HostInsideCorrections, DestroysTheControlWhenAnEditIsRecordedByACaretMove) {
    box_.OpenEditor(5);
    box_.TypeInEditor(u"changed");
    Inside("SelChanged", [&] { box_.Destroy(); });
    box_->row(6);
    EXPECT_TRUE(done_);
    EXPECT_EQ(box_.Stored().back(), (InJournal{5, 1, u"changed\n"}));
}

TEST_F(HostInsideCorrections, DestroysTheControlWhileACommitShowsTheFile) {
    box_->TopLine(50);
    Inside("Scrolled", [&] { box_.Destroy(); });
    box_.PickCorrections(u"mnuPopupCommit");
    EXPECT_TRUE(box_.Destroyed());
    EXPECT_FALSE(box_.HasJournal());
    EXPECT_NE(box_.FileBytes().find("five\r\n"), std::string::npos);
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(HostInsideCorrections, DestroysTheControlBeforeACommit) {
    box_->Corrections().BeforeCommit = [&] {
        box_.Destroy();
        return true;
    };
    box_.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box_.FileBytes(), DocFile(300)) << "its corrections were saved instead";
    EXPECT_EQ(box_.Stored().size(), 2U);
}

TEST_F(HostInsideCorrections, LoadsAnotherFileWhileACommitShowsTheFile) {
    box_->TopLine(50);
    Inside("Scrolled", [&] { box_->LoadFile(u"/other.txt"); });
    box_.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box_->Corrections().FilePath(), u"/other.txt");
    EXPECT_EQ(box_->LineCount(), 80);
    EXPECT_EQ(box_->row(), 1);
    EXPECT_TRUE(box_.Messages().Log.empty());
    EXPECT_NE(box_.FileBytes().find("five\r\n"), std::string::npos);
}

TEST_F(HostInsideCorrections, LoadsAnotherFileWhenTheEditorIsOpened) {
    Inside("Scrolled", [&] { box_->LoadFile(u"/other.txt"); });
    box_.PickCorrections(u"mnuPopupEdit");
    EXPECT_TRUE(done_);
    EXPECT_FALSE(box_.EditorIsOpen());
}

TEST_F(HostInsideCorrections, MovesTheCaretWhenTheEditorIsOpened) {
    Inside("Scrolled", [&] { box_->row(101); });
    box_.PickCorrections(u"mnuPopupEdit");
    EXPECT_EQ(box_.Elements().rtbEdit.Text(), u"L101");
}

TEST_F(HostInsideCorrections, LoadsAnotherFileWhenAMarkIsClicked) {
    Inside("SelChanged", [&] { box_->LoadFile(u"/other.txt"); });
    box_.ClickMark(4);
    EXPECT_FALSE(box_.Elements().mnuPopup.PoppedUpAt().has_value());
    EXPECT_EQ(box_->SelectedRowsCount(), 0);
}

TEST_F(HostInsideCorrections, ThrowsWhileTheViewGoesBackAndTheCommitStands) {
    box_->TopLine(50);
    bool first = true;
    box_.Log().OnEvent = [&](const std::string& event) {
        // The first one comes while the file is being loaded; a load keeps everything to itself.
        if (event == "Scrolled" && !std::exchange(first, false)) throw std::runtime_error("host");
    };
    EXPECT_THROW(box_.PickCorrections(u"mnuPopupCommit"), std::runtime_error);
    box_.Log().OnEvent = nullptr;
    EXPECT_NE(box_.FileBytes().find("five\r\n"), std::string::npos);
    EXPECT_TRUE(box_.Messages().Log.empty()) << "the file was saved: nothing else may be said";
    EXPECT_EQ(box_->Corrections().Pending(), 0);
}

TEST_F(HostInsideCorrections, ReloadsTheFileBeforeACommitAndNothingIsWritten) {
    box_->Corrections().BeforeCommit = [&] {
        box_->LoadFile(u"/other.txt");
        box_.Correct(1, u"of the other file");
        return true;
    };
    box_.PickCorrections(u"mnuPopupCommit");
    EXPECT_EQ(box_.FileBytes(u"/other.txt"), DocFile(80, 'o'));
    EXPECT_EQ(box_.FileBytes(), DocFile(300));
    EXPECT_EQ(box_->Corrections().Pending(), 1);
}

TEST_F(HostInsideCorrections, LetsItsUserEditOnBeforeACommitAndThatIsCommittedToo) {
    // Symptom: the edit was recorded afterwards, by the old line numbers, against the new file.
    box_->Corrections().BeforeCommit = [&] {
        box_.OpenEditor(9);
        box_.TypeInEditor(u"late");
        return true;
    };
    box_.PickCorrections(u"mnuPopupCommit");
    EXPECT_NE(box_.FileBytes().find("late\r\n"), std::string::npos);
    EXPECT_EQ(box_->Corrections().Pending(), 0);
    EXPECT_FALSE(box_.EditorIsOpen());
}

TEST_F(HostInsideCorrections, HearsHowManyCorrectionsHaveNoPlaceInTheFile) {
    EXPECT_EQ(box_->Corrections().WithoutPlace(), 0);
    box_.Files().Put(u"/short.txt", "A\nB\nC\n");
    box_.Files().Put(u"/short.txt!.xml",
                     "<corrections><update start='2' loc='1'>x\n</update>"
                     "<update start='9' loc='1'>behind the end\n</update>"
                     "<update start='2' loc='2'>overlaps\n</update>"
                     "<update start='?' loc='1'>nowhere\n</update></corrections>");
    box_->LoadFile(u"/short.txt");
    EXPECT_EQ(box_->Corrections().Pending(), 4);
    EXPECT_EQ(box_->Corrections().WithoutPlace(), 3);
    box_->text(u"no file");
    EXPECT_EQ(box_->Corrections().WithoutPlace(), 0);
}

/// A surface whose focus goes wherever it is sent, and tells at once.
TEST_F(HostInsideCorrections, AFocusThatLeavesWhileAnEditIsDroppedRecordsNothing) {
    box_.OpenEditor(7);
    box_.TypeInEditor(u"dropped");
    box_.Elements().Focus.OnRequest = [&](FocusChild) {
        box_.Elements().OnExit();
        return true;
    };
    box_.PressInEditor(key_code::Escape);
    EXPECT_FALSE(box_->Corrections().Of(7).has_value());
}

TEST_F(HostInsideCorrections, DestroysTheControlWhenTheFocusComesBack) {
    box_.OpenEditor(7);
    box_.TypeInEditor(u"seven");
    box_.Elements().Focus.OnRequest = [&](FocusChild) {
        box_.Destroy();
        return false;
    };
    box_.PressInEditor(key_code::Return, shift_mask::Ctrl);
    EXPECT_EQ(box_.Stored().back(), (InJournal{7, 1, u"seven\n"}));
}

}  // namespace
}  // namespace quorvale
