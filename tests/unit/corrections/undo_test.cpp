#include "corrections/undo.h"

#include <gtest/gtest.h>

#include "corrections_rig.h"

namespace quorvale {
namespace {

using All = std::vector<Correction>;

class CorrectionUndoTest : public testing::Test {
protected:
    CorrectionUndoTest() {
        rig.SetText(Doc(20));
        rig.ShowRows();
        rig.Put({{2, 1, u"two\n"}, {5, 1, u"five\n"}, {9, 1, u"nine\n"}});
        rig.Marks.RefreshCorrectionMarks();
    }

    void Pick(std::int32_t line) {
        rig.Corrections.Current = rig.Index.FindCorrection(Line{line})->Node;
    }

    CorrectionsRig rig;
    CorrectionUndo undo{rig.Corrections, rig.Journal,       rig.Recording, rig.Marks,
                        rig.Messages,    Language::English, rig.Options};
};

TEST_F(CorrectionUndoTest, WithoutAPickedCorrectionNothingHappens) {
    rig.OpenOver(3, 1);
    undo.Undo();
    EXPECT_TRUE(rig.Elements.rtbEdit.Visible());
    EXPECT_EQ(rig.All().size(), 3U);
}

TEST_F(CorrectionUndoTest, ThePickedCorrectionGoesAndTheEditorClosesUnrecorded) {
    Pick(5);
    rig.OpenOver(12, 1);
    rig.Elements.rtbEdit.SetText(u"typed");
    undo.Undo();
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
    EXPECT_EQ(rig.All(), (All{{2, 1, u"two\n"}, {9, 1, u"nine\n"}}));
    EXPECT_TRUE(rig.IsMarked(1));
    EXPECT_FALSE(rig.IsMarked(4));
}

TEST_F(CorrectionUndoTest, ASecondUndoChangesNothingAndTheCorrectionStaysPicked) {
    Pick(5);
    const XmlNodePtr picked = rig.Corrections.Current;
    undo.Undo();
    undo.Undo();
    EXPECT_EQ(rig.All().size(), 2U);
    EXPECT_EQ(rig.Corrections.Current, picked);
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CorrectionUndoTest, ACorrectionOfAnotherDocumentTakesNoneOfThisOne) {
    Pick(2);
    rig.Journal.Open(nullptr);
    rig.Put({{2, 1, u"other\n"}});
    undo.Undo();
    EXPECT_EQ(rig.All(), (All{{2, 1, u"other\n"}}));
}

TEST_F(CorrectionUndoTest, UndoingAllAsksWithTheTwoLinesOfTheQuestion) {
    undo.UndoAll();
    ASSERT_EQ(rig.Messages.Log.size(), 1U);
    EXPECT_EQ(rig.Messages.Log[0].Text,
              u"You are about to undo all corrections made to the file.\r\nContinue?");
    EXPECT_EQ(rig.Messages.Log[0].Style, MessageStyle::ExclamationOkCancel);
}

TEST_F(CorrectionUndoTest, CancelLeavesEverything) {
    Pick(5);
    rig.OpenOver(12, 1);
    rig.Messages.Answer = MessageAnswer::Cancel;
    undo.UndoAll();
    EXPECT_EQ(rig.All().size(), 3U);
    EXPECT_TRUE(rig.Elements.rtbEdit.Visible());
    EXPECT_TRUE(rig.IsMarked(4));
    EXPECT_NE(rig.Corrections.Current, nullptr);
}

TEST_F(CorrectionUndoTest, OkRemovesEveryChildOfTheRoot) {
    Pick(5);
    rig.Corrections.JournalRoot->AppendChild(CreateXmlText(u"\n"));
    rig.Corrections.JournalRoot->AppendChild(
        std::make_shared<XmlNode>(XmlKind::Comment, u"", u"mine"));
    rig.OpenOver(12, 1);
    rig.Elements.rtbEdit.SetText(u"typed");
    undo.UndoAll();
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
    EXPECT_FALSE(rig.Corrections.JournalRoot->HasChildNodes());
    EXPECT_EQ(rig.Corrections.Current, nullptr);
    for (int slot = 0; slot < 20; ++slot) EXPECT_FALSE(rig.IsMarked(slot)) << slot;
}

TEST_F(CorrectionUndoTest, AnEmptyJournalIsAskedForToo) {
    rig.Journal.RemoveAll();
    undo.UndoAll();
    EXPECT_EQ(rig.Messages.Log.size(), 1U);
    EXPECT_TRUE(rig.Journal.IsOpen());
}

TEST_F(CorrectionUndoTest, WithoutAJournalTheAnswerDoesNoHarm) {
    rig.Journal.Drop();
    undo.UndoAll();
    EXPECT_EQ(rig.Messages.Log.size(), 1U);
    EXPECT_FALSE(rig.Journal.IsOpen());
}

TEST_F(CorrectionUndoTest, ADocumentThatComesWhileTheQuestionIsUpIsNotMeant) {
    rig.Messages.While = [this] {
        rig.Journal.Open(nullptr);
        rig.Put({{1, 1, u"other\n"}});
    };
    undo.UndoAll();
    EXPECT_EQ(rig.All(), (All{{1, 1, u"other\n"}}));
    rig.Messages.While = [this] { rig.Journal.Drop(); };
    undo.UndoAll();
    EXPECT_FALSE(rig.Journal.IsOpen());
}

TEST_F(CorrectionUndoTest, ADocumentThatComesWhenTheKeyboardGoesBackIsNotMeantEither) {
    rig.OpenOver(12, 1);
    rig.Elements.Focus.OnRequest = [this](FocusChild) {
        rig.Journal.Open(nullptr);
        rig.Put({{1, 1, u"other\n"}});
        return true;
    };
    undo.UndoAll();
    EXPECT_EQ(rig.All(), (All{{1, 1, u"other\n"}}));
    rig.OpenOver(12, 1);
    rig.Elements.Focus.UserMovesTo(FocusChild::Editor);
    rig.Elements.Focus.OnRequest = [this](FocusChild) {
        rig.Journal.Drop();
        return true;
    };
    undo.UndoAll();
    EXPECT_FALSE(rig.Journal.IsOpen());
}

TEST_F(CorrectionUndoTest, TheQuestionComesInTheControlsLanguage) {
    CorrectionUndo japanese{rig.Corrections, rig.Journal,        rig.Recording, rig.Marks,
                            rig.Messages,    Language::Japanese, rig.Options};
    rig.Messages.Answer = MessageAnswer::Cancel;
    japanese.UndoAll();
    EXPECT_EQ(rig.Messages.Log[0].Text.find(u"You are"), std::u16string::npos);
    EXPECT_NE(rig.Messages.Log[0].Text.find(u"\r\n"), std::u16string::npos);
}

}  // namespace
}  // namespace quorvale
