#include "corrections/recording.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "corrections_rig.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

using All = std::vector<Correction>;

class EditRecordingTest : public testing::Test {
protected:
    CorrectionsRig rig;
};

TEST_F(EditRecordingTest, AChangedLineIsACorrection) {
    EXPECT_EQ(rig.Record(2, 1, u"new"), (All{{2, 1, u"new\n"}}));
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
    EXPECT_EQ(rig.Elements.Focus.Active(), FocusChild::TextArea);
}

TEST_F(EditRecordingTest, WhatIsStillBeingComposedIsRecordedToo) {
    TextBox& box = rig.Elements.rtbEdit;
    box.OnFinishTyping = [&box] { box.SetText(u"composed"); };
    rig.OpenOver(2, 1);
    rig.Recording.RecordEdit(true);
    EXPECT_EQ(rig.All(), (All{{2, 1, u"composed\n"}}));
    rig.OpenOver(2, 1);
    box.OnFinishTyping = [] { FAIL() << "it is dropped"; };
    rig.Recording.RecordEdit(false);
}

TEST_F(EditRecordingTest, WithoutAJournalNothingHappens) {
    rig.Journal.Drop();
    rig.OpenOver(2, 1);
    rig.Elements.rtbEdit.SetText(u"new");
    rig.Recording.RecordEdit(true);
    EXPECT_TRUE(rig.Elements.rtbEdit.Visible());
    EXPECT_EQ(rig.Elements.Focus.Active(), FocusChild::None);
}

TEST_F(EditRecordingTest, WithTheEditorClosedNothingHappens) {
    rig.OpenOver(2, 1);
    rig.Elements.rtbEdit.SetText(u"new");
    rig.Elements.rtbEdit.SetVisible(false);
    rig.Recording.RecordEdit(true);
    EXPECT_EQ(rig.All(), All{});
    EXPECT_EQ(rig.Elements.Focus.Active(), FocusChild::None);
}

TEST_F(EditRecordingTest, AnEditThatIsDroppedOnlyCloses) {
    rig.Put({{2, 1, u"old\n"}});
    rig.OpenOver(2, 1);
    rig.Elements.rtbEdit.SetText(u"new");
    rig.Recording.RecordEdit(false);
    EXPECT_EQ(rig.All(), (All{{2, 1, u"old\n"}}));
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
    EXPECT_EQ(rig.Elements.Focus.Active(), FocusChild::TextArea);
}

TEST_F(EditRecordingTest, AnEditorWhoseTextNobodyTouchedOnlyCloses) {
    rig.Put({{2, 1, u"old\n"}});
    rig.OpenOver(2, 1);
    rig.Recording.RecordEdit(true);
    EXPECT_EQ(rig.All(), (All{{2, 1, u"old\n"}}));
    EXPECT_FALSE(rig.Elements.rtbEdit.Visible());
}

TEST_F(EditRecordingTest, AFocusThatCannotBeHadIsNoFailure) {
    rig.Elements.Focus.OnRequest = [](FocusChild) { return false; };
    EXPECT_EQ(rig.Record(2, 1, u"new"), (All{{2, 1, u"new\n"}}));
    rig.Elements.Focus.OnRequest = [](FocusChild) -> bool {
        throw ControlError(ErrorKind::InvalidValue, "as the test wants it");
    };
    EXPECT_EQ(rig.Record(3, 1, u"x"), (All{{2, 1, u"new\n"}, {3, 1, u"x\n"}}));
}

TEST_F(EditRecordingTest, ANewCorrectionReplacesTheOneThatWasThere) {
    rig.Put({{2, 1, u"old\n"}, {9, 1, u"other\n"}});
    EXPECT_EQ(rig.Record(2, 1, u"new"), (All{{9, 1, u"other\n"}, {2, 1, u"new\n"}}));
}

TEST_F(EditRecordingTest, WhatWasTypedBackLeavesNoCorrection) {
    EXPECT_EQ(rig.Record(2, 1, u"B"), All{});
    rig.Put({{2, 1, u"old\n"}, {3, 1, u"kept? no: right behind\n"}, {9, 1, u"other\n"}});
    EXPECT_EQ(rig.Record(2, 1, u"B"), (All{{9, 1, u"other\n"}}));
}

TEST_F(EditRecordingTest, RemovesWhatMeetsTheEditedLinesAndKeepsTheRest) {
    rig.SetText(Doc(9));
    rig.Put({{1, 3, u"a\n"},
             {2, 3, u"b\n"},
             {4, 1, u"c\n"},
             {5, 0, u"d\n"},
             {6, 1, u"e\n"},
             {6, 0, u"f\n"},
             {7, 1, u"g\n"}});
    EXPECT_EQ(rig.Record(4, 2, u"x\r\ny"),
              (All{{1, 3, u"a\n"}, {7, 1, u"g\n"}, {4, 2, u"x\ny\n"}}));
}

TEST_F(EditRecordingTest, RemovesNeighboursToo) {
    rig.SetText(Doc(9));
    rig.Put({{2, 1, u"a\n"}, {3, 1, u"b\n"}, {4, 1, u"c\n"}});
    EXPECT_EQ(rig.Record(2, 3, u"x"), (All{{2, 3, u"x\n"}}));
}

TEST_F(EditRecordingTest, RemovesACorrectionFromInsideAForeignElement) {
    const XmlNodePtr group = CreateXmlElement(u"group");
    group->AppendChild(CreateUpdate({2, 1}, u"old\n"));
    rig.Journal.Append(group);
    EXPECT_EQ(rig.Record(2, 1, u"new"), (All{{2, 1, u"new\n"}}));
    EXPECT_FALSE(group->HasChildNodes());
}

TEST_F(EditRecordingTest, UselessCorrectionsStayInTheJournal) {
    rig.PutUpdate({{u"start", u"2"}, {u"loc", u"x"}});
    EXPECT_EQ(rig.Record(2, 1, u"new"), (All{{2, 1, u"new\n"}}));
    EXPECT_EQ(rig.Corrections.JournalRoot->ChildNodes().size(), 2U);
}

TEST_F(EditRecordingTest, RowsAreMarkedAfterwards) {
    rig.ShowRows();
    rig.Record(2, 1, u"new");
    EXPECT_FALSE(rig.IsMarked(0));
    EXPECT_TRUE(rig.IsMarked(1));
    EXPECT_FALSE(rig.IsMarked(2));
}

TEST_F(EditRecordingTest, ALineWithATabAlwaysCountsAsChanged) {
    rig.SetText(u"A\r\na\tb\r\nC");
    EXPECT_EQ(rig.Record(2, 2, u"a\tb\r\nnew"), (All{{2, 2, u"a\tb\nnew\n"}}));
}

TEST_F(EditRecordingTest, BlanksTypedForATabAreACorrection) {
    rig.SetText(u"A\r\na\tb\r\nC");
    EXPECT_EQ(rig.Record(2, 1, u"a       b"), (All{{2, 1, u"a       b\n"}}));
}

TEST_F(EditRecordingTest, AMarkTypedForAControlCharacterIsACorrection) {
    rig.SetText(u"A\r\na\rb\r\nC");
    rig.ShowRows();
    EXPECT_EQ(rig.Record(2, 1, u"a\u00B6b"), (All{{2, 1, u"a\u00B6b\n"}}));
}

TEST_F(EditRecordingTest, AFailureLeavesTheTypedTextInTheOpenEditor) {
    rig.OpenOver(2, 1);
    rig.Elements.rtbEdit.SetText(u"new");
    class Refusing final : public ElementWatcher {
        void Setting(const Element& element, std::string_view property) override {
            if (element.Name() == "rtbEdit" && property == "Visible") {
                throw ControlError(ErrorKind::InvalidValue, "as the test wants it");
            }
        }
    } refusing;
    rig.Elements.Watch(&refusing);
    EXPECT_EQ(ErrorOf([&] { rig.Recording.RecordEdit(true); }), ErrorKind::InvalidValue);
    rig.Elements.Watch(nullptr);
    EXPECT_TRUE(rig.Elements.rtbEdit.Visible());
    EXPECT_EQ(rig.All(), All{});
    rig.Recording.RecordEdit(true);
    EXPECT_EQ(rig.All(), (All{{2, 1, u"new\n"}}));
}

TEST_F(EditRecordingTest, AFocusThatIsHeardOfRecordsNoSecondTime) {
    rig.OpenOver(2, 1);
    rig.Elements.rtbEdit.SetText(u"new");
    rig.Elements.Focus.UserMovesTo(FocusChild::Editor);
    rig.Elements.Focus.OnLost = [&](FocusChild) { rig.Recording.RecordEdit(true); };
    rig.Recording.RecordEdit(false);
    EXPECT_EQ(rig.All(), All{}) << "Esc drops the edit, whatever the focus does";
}

TEST_F(EditRecordingTest, TheFlagStaysAsItIs) {
    rig.Record(2, 1, u"new");
    EXPECT_TRUE(rig.Editing.EditChanged);
}

}  // namespace
}  // namespace quorvale
