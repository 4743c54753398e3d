#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "found_rows.h"
#include "support/corrections_in_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using All = std::vector<InJournal>;

/// A document whose fifth line is being corrected.
class SearchWhileEditing : public testing::Test {
protected:
    SearchWhileEditing() {
        box_.Load(DocFile(20), u"/doc.txt");
        box_->SearchText(u"L9");
        box_.OpenEditor(5);
        box_.TypeInEditor(u"changed");
        box_.Log().Clear();
    }

    CorrectionsBox box_;
};

TEST_F(SearchWhileEditing, FindNextRecordsWhatWasTyped) {
    box_.Elements().tbMore.UserClick(u"Find");
    EXPECT_EQ(box_->row(), 9);
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Now(), (All{{5, 1, u"changed\n"}}));
}

TEST_F(SearchWhileEditing, FindNextWithoutAMatchLeavesTheEditorOpen) {
    box_->SearchText(u"nowhere");
    box_.Elements().tbMore.UserClick(u"Find");
    EXPECT_TRUE(box_.EditorIsOpen());
}

TEST_F(SearchWhileEditing, ItIsRecordedBeforeTheHostHearsOfTheCaret) {
    bool open = true;
    box_.Log().OnEvent = [&](const std::string& event) {
        if (event == "SelChanged") open = box_.EditorIsOpen();
    };
    box_.Elements().tbMore.UserClick(u"Find");
    EXPECT_FALSE(open);
}

TEST_F(SearchWhileEditing, APickedResultRecordsItToo) {
    FindAll(box_, u"L9");
    box_.Elements().lvFound.UserDoubleClick(1);
    EXPECT_FALSE(box_.EditorIsOpen());
    EXPECT_EQ(box_.Now(), (All{{5, 1, u"changed\n"}}));
}

TEST(SearchAfterCorrecting, FindAllReadsTheFileAndFindNextTheText) {
    CorrectionsBox box;
    box.Load("one\ntwo\nthree", u"/doc.txt");
    box.Correct(2, u"corrected");
    FindAll(box, u"corrected");
    EXPECT_THAT(FoundRows(box), ElementsAre("Back:Return||No match found.|"));
    FindAll(box, u"two");
    EXPECT_THAT(FoundRows(box), testing::Contains("Sel:doc.txt|      2|two|/doc.txt>2"));
    EXPECT_EQ(box->Corrections().Pending(), 1);
}

}  // namespace
}  // namespace quorvale
