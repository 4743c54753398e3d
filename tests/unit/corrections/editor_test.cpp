#include "corrections/editor.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "corrections_rig.h"
#include "platform/keys.h"

namespace quorvale {
namespace {

using Shifts = std::vector<std::int16_t>;

class LineEditorTest : public testing::Test {
protected:
    LineEditorTest() { rig.ShowRows(); }

    void SelectAndOpen(std::int32_t caret, std::int32_t rows) {
        rig.Navigation.CaretRow = Line{caret};
        rig.Navigation.SelectedRowsCount = rows;
        rig.Editor.Open();
    }

    void ExpectOpen(std::int32_t start, std::int32_t count, const std::u16string& text) {
        EXPECT_TRUE(rig.Elements.rtbEdit.Visible());
        EXPECT_EQ(rig.Editing.EditStart, Line{start});
        EXPECT_EQ(rig.Editing.EditCount, count);
        EXPECT_EQ(rig.Elements.rtbEdit.Text(), text);
        EXPECT_FALSE(rig.Editing.EditChanged);
        EXPECT_EQ(rig.Elements.Focus.Active(), FocusChild::Editor);
    }

    void ExpectClosed() {
        EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
        EXPECT_EQ(rig.Elements.Focus.Active(), FocusChild::None);
    }

    std::int16_t Key(std::int16_t code, std::int16_t shift = 0) {
        rig.Editor.KeyDown(code, shift);
        return code;
    }

    CorrectionsRig rig;
};

TEST_F(LineEditorTest, BeforeItIsOpenedItStandsForNoLines) {
    EXPECT_EQ(rig.Editing.EditStart, Line{0});
    EXPECT_EQ(rig.Editing.EditCount, 0);
    EXPECT_FALSE(rig.Editing.EditChanged);
    EXPECT_EQ(rig.Corrections.Current, nullptr);
    ExpectClosed();
}

TEST_F(LineEditorTest, OpensOverTheSelectedRows) {
    SelectAndOpen(2, 2);
    ExpectOpen(2, 2, u"B\r\nC");
    EXPECT_EQ(rig.Log, std::vector<std::string>{"place editor"});
}

TEST_F(LineEditorTest, OpensOverRowsSelectedUpwards) {
    SelectAndOpen(3, -2);
    ExpectOpen(2, 2, u"B\r\nC");
}

TEST_F(LineEditorTest, OpensOverTheCaretsLineWhenNothingIsSelected) {
    SelectAndOpen(2, 0);
    ExpectOpen(2, 1, u"B");
}

TEST_F(LineEditorTest, OpensOverEverythingAndNeverBeyond) {
    SelectAndOpen(3, -4);
    ExpectOpen(1, 3, u"A\r\nB\r\nC");
    SelectAndOpen(2, 1000000);
    ExpectOpen(2, 2, u"B\r\nC");
}

TEST_F(LineEditorTest, ShowsWhatIsCorrectedAlready) {
    rig.Put({{2, 1, u"x\n"}});
    SelectAndOpen(2, 0);
    ExpectOpen(2, 1, u"x");
}

TEST_F(LineEditorTest, ShowsTheWholeOfACorrection) {
    rig.SetText(Doc(6));
    rig.Put({{3, 3, u"p\nq\nr\n"}});
    SelectAndOpen(5, 0);
    ExpectOpen(3, 3, u"p\r\nq\r\nr");
}

TEST_F(LineEditorTest, ShowsWhatWasInsertedBehindTheLines) {
    rig.Put({{3, 0, u"new\n"}});
    SelectAndOpen(2, 0);
    ExpectOpen(2, 1, u"B\r\nnew");
    rig.Elements.rtbEdit.SetText(u"B!\r\nnew");
    rig.Recording.RecordEdit(true);
    EXPECT_EQ(rig.All(), (std::vector<Correction>{{2, 1, u"B!\nnew\n"}}));
}

TEST_F(LineEditorTest, ShowsTheNextLinesCorrectionBecauseItWillBeReplaced) {
    rig.Put({{2, 1, u"x\n"}});
    SelectAndOpen(1, 0);
    ExpectOpen(1, 2, u"A\r\nx");
    rig.Elements.rtbEdit.SetText(u"a\r\nx");
    rig.Recording.RecordEdit(true);
    EXPECT_EQ(rig.All(), (std::vector<Correction>{{1, 2, u"a\nx\n"}}));
}

TEST_F(LineEditorTest, ShowsALineThatWasInsertedBehindTheLastOne) {
    rig.Put({{4, 0, u"new\n"}});
    SelectAndOpen(3, 0);
    ExpectOpen(3, 1, u"C\r\nnew");
}

TEST_F(LineEditorTest, ShowsLinesAsTheyAreInTheFile) {
    rig.SetText(u"a\tb\r\na\u00A0b\ra\r\n\x01\n");
    rig.ShowRows();
    SelectAndOpen(1, 3);
    ExpectOpen(1, 3, u"a\tb\r\na\u00A0b\ra\r\n\x01");
}

TEST_F(LineEditorTest, OpensOnlyWhereTheHostOffersEditing) {
    rig.Options.OfferEditing = false;
    SelectAndOpen(2, 0);
    ExpectClosed();
    EXPECT_EQ(rig.Editing.EditStart, Line{0});
    EXPECT_EQ(rig.Editing.EditCount, 0);
}

TEST_F(LineEditorTest, ATextOfNoFileCannotBeEdited) {
    rig.Journal.Drop();
    SelectAndOpen(2, 0);
    ExpectClosed();
}

TEST_F(LineEditorTest, NothingOpensWhilePaintingIsSuspended) {
    rig.View.RedrawSuspendCount = 1;
    SelectAndOpen(2, 0);
    ExpectClosed();
}

TEST_F(LineEditorTest, AnOpenEditIsRecordedBeforeTheNextOneOpens) {
    SelectAndOpen(2, 0);
    rig.Elements.rtbEdit.SetText(u"b");
    SelectAndOpen(2, 2);
    ExpectOpen(2, 2, u"b\r\nC");
    EXPECT_EQ(rig.All(), (std::vector<Correction>{{2, 1, u"b\n"}}));
}

TEST_F(LineEditorTest, LinesThatAreOutOfSightAreShownFirst) {
    rig.SetText(Doc(500));
    rig.ShowRows(300);
    SelectAndOpen(5, 0);
    ExpectOpen(5, 1, u"L5");
    EXPECT_EQ(rig.Log, (std::vector<std::string>{"reveal 5", "place editor"}));
}

TEST_F(LineEditorTest, LinesThatCanBeSeenStayWhereTheyAre) {
    rig.SetText(Doc(500));
    rig.ShowRows(300);
    SelectAndOpen(329, 0);
    ExpectOpen(329, 1, u"L329");
    EXPECT_EQ(rig.Log, std::vector<std::string>{"place editor"});
}

TEST_F(LineEditorTest, NothingOpensOverADocumentThatComesWhileTheOpenEditIsRecorded) {
    SelectAndOpen(2, 0);
    rig.Elements.Focus.UserMovesTo(FocusChild::Editor);
    rig.Elements.Focus.OnRequest = [this](FocusChild) {
        rig.SetText(u"other");
        return true;
    };
    rig.Editor.Open();
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
    rig.Elements.Focus.OnRequest = nullptr;
    SelectAndOpen(1, 0);
    rig.Elements.Focus.OnRequest = [this](FocusChild) {
        rig.Journal.Drop();
        return true;
    };
    rig.Editor.Open();
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible()) << "nobody could close it again";
}

TEST_F(LineEditorTest, AnythingElseThanTheOpenerLeavesTheFlag) {
    EXPECT_FALSE(rig.Editing.EditChanged);
    SelectAndOpen(2, 0);
    rig.Elements.rtbEdit.SetText(u"b");
    EXPECT_TRUE(rig.Editing.EditChanged);
    rig.Recording.RecordEdit(true);
    EXPECT_TRUE(rig.Editing.EditChanged);
    SelectAndOpen(2, 0);
    EXPECT_FALSE(rig.Editing.EditChanged);
}

TEST_F(LineEditorTest, EscDropsTheEdit) {
    SelectAndOpen(2, 0);
    rig.Elements.rtbEdit.SetText(u"b");
    EXPECT_EQ(Key(key_code::Escape), key_code::Escape);
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
    EXPECT_TRUE(rig.All().empty());
}

TEST_F(LineEditorTest, CtrlEnterRecordsAndIsSwallowed) {
    for (const std::int16_t shift : Shifts{2, 3, 6, 7}) {
        rig.Journal.RemoveAll();
        SelectAndOpen(2, 0);
        rig.Elements.rtbEdit.SetText(u"b");
        EXPECT_EQ(Key(key_code::Return, shift), 0) << shift;
        EXPECT_FALSE(rig.Elements.rtbEdit.Visible()) << shift;
        EXPECT_EQ(rig.All(), (std::vector<Correction>{{2, 1, u"b\n"}})) << shift;
    }
}

TEST_F(LineEditorTest, CtrlEnterWithAnUntouchedTextRecordsNothing) {
    SelectAndOpen(2, 0);
    EXPECT_EQ(Key(key_code::Return, shift_mask::Ctrl), 0);
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
    EXPECT_TRUE(rig.All().empty());
}

TEST_F(LineEditorTest, AllOtherKeysAreTheEditors) {
    SelectAndOpen(2, 0);
    rig.Elements.rtbEdit.SetText(u"b");
    for (const std::int16_t shift : Shifts{0, 1, 4, 5}) {
        EXPECT_EQ(Key(key_code::Return, shift), key_code::Return);
    }
    for (const std::int16_t code : {key_code::A, key_code::Up, key_code::F2, key_code::PageDown}) {
        EXPECT_EQ(Key(code, shift_mask::Ctrl), code);
    }
    EXPECT_TRUE(rig.Elements.rtbEdit.Visible());
    EXPECT_TRUE(rig.All().empty());
}

TEST_F(LineEditorTest, WithoutAJournalTheEditorStaysAsItIs) {
    SelectAndOpen(2, 0);
    rig.Journal.Drop();
    Key(key_code::Escape);
    EXPECT_TRUE(rig.Elements.rtbEdit.Visible());
}

// Symptom: with everything selected, F2 filled the editor for half a minute.
TEST_F(LineEditorTest, MoreThanTheHostAllowsStaysClosedAndIsTold) {
    rig.Options.MostEditedLines = 2;
    SelectAndOpen(1, 3);
    ExpectClosed();
    EXPECT_EQ(std::count(rig.Log.begin(), rig.Log.end(), "TooMuchToEdit"), 1);
    SelectAndOpen(1, 2);
    ExpectOpen(1, 2, u"A\r\nB");
    rig.Recording.RecordEdit(false);
    rig.Options.MostEditedCharacters = 3;
    SelectAndOpen(1, 2);
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
    SelectAndOpen(2, 1);
    ExpectOpen(2, 1, u"B");
}

}  // namespace
}  // namespace quorvale
