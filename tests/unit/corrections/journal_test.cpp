#include "corrections/journal.h"

#include <gtest/gtest.h>

#include "corrections/journal_index.h"

namespace quorvale {
namespace {

/// A document element with that name around some children.
XmlDocumentPtr DocumentWith(const char16_t* name, std::initializer_list<XmlNodePtr> children) {
    XmlDocumentPtr document = CreateXmlDocument();
    XmlNodePtr root = CreateXmlElement(name);
    for (const XmlNodePtr& child : children) root->AppendChild(child);
    document->AppendChild(root);
    return document;
}

XmlNodePtr Element(const char16_t* name, std::initializer_list<XmlNodePtr> children) {
    XmlNodePtr element = CreateXmlElement(name);
    for (const XmlNodePtr& child : children) element->AppendChild(child);
    return element;
}

class JournalTest : public testing::Test {
protected:
    CorrectionsState state_;
    Journal journal_{state_};
    JournalIndex index_{state_};
};

TEST_F(JournalTest, ThereIsNoneUntilOneIsOpened) {
    EXPECT_FALSE(journal_.IsOpen());
    EXPECT_FALSE(journal_.HasCorrections());
    journal_.Open(nullptr);
    EXPECT_TRUE(journal_.IsOpen());
    EXPECT_FALSE(journal_.HasCorrections());
    EXPECT_EQ(state_.JournalRoot->Name(), u"corrections");
    EXPECT_EQ(state_.JournalRoot->ParentNode(), state_.JournalDocument.get());
    journal_.Drop();
    EXPECT_FALSE(journal_.IsOpen());
    EXPECT_EQ(state_.JournalDocument, nullptr);
}

TEST_F(JournalTest, TheFirstElementOfThatNameIsTheRootWhereverItStands) {
    const XmlNodePtr root = Element(u"corrections", {CreateUpdate({2, 1}, u"X\n")});
    const XmlDocumentPtr document = DocumentWith(u"x", {CreateXmlElement(u"y"), root});
    journal_.Open(document);
    EXPECT_EQ(state_.JournalRoot, root);
    EXPECT_EQ(state_.JournalDocument, document);
    ASSERT_NE(index_.FindCorrection(Line{2}), nullptr);
    journal_.AppendCorrection({3, 1}, u"Y\n");
    EXPECT_EQ(root->ChildNodes().size(), 2U);
}

TEST_F(JournalTest, OfTwoRootsTheFirstTakesNewCorrectionsAndBothAreLookedAt) {
    const XmlNodePtr first = Element(u"corrections", {CreateUpdate({2, 1}, u"X\n")});
    const XmlNodePtr second = Element(u"corrections", {CreateUpdate({5, 1}, u"Y\n")});
    journal_.Open(DocumentWith(u"both", {first, second}));
    EXPECT_EQ(state_.JournalRoot, first);
    EXPECT_NE(index_.FindCorrection(Line{2}), nullptr);
    EXPECT_NE(index_.FindCorrection(Line{5}), nullptr);
}

TEST_F(JournalTest, AFileThatIsNoJournalIsReplacedByAnEmptyOne) {
    journal_.Open(DocumentWith(u"notes", {CreateUpdate({2, 1}, u"X\n")}));
    EXPECT_TRUE(journal_.IsOpen());
    EXPECT_EQ(index_.FindCorrection(Line{2}), nullptr);
    ASSERT_EQ(state_.JournalDocument->ChildNodes().size(), 1U);
    EXPECT_EQ(state_.JournalDocument->FirstChild(), state_.JournalRoot);
}

TEST_F(JournalTest, AnotherCaseIsAnotherName) {
    journal_.Open(DocumentWith(u"Corrections", {CreateUpdate({2, 1}, u"X\n")}));
    EXPECT_EQ(index_.FindCorrection(Line{2}), nullptr);
}

TEST_F(JournalTest, NewCorrectionsComeLast) {
    journal_.Open(nullptr);
    journal_.AppendCorrection({7, 1}, u"later\n");
    journal_.AppendCorrection({2, 1}, u"X\n");
    const XmlNodePtr last = state_.JournalRoot->ChildNodes().back();
    EXPECT_EQ(last->Name(), u"update");
    EXPECT_EQ(*last->GetAttribute(u"start"), u"2");
    EXPECT_EQ(last->FirstChild()->Data(), u"X\n");
}

TEST_F(JournalTest, AnyChildMakesItNotEmpty) {
    const XmlNodePtr root = Element(u"corrections", {CreateXmlText(u"\n")});
    XmlDocumentPtr document = CreateXmlDocument();
    document->AppendChild(root);
    journal_.Open(document);
    EXPECT_TRUE(journal_.HasCorrections());
    journal_.RemoveAll();
    EXPECT_FALSE(journal_.HasCorrections());
}

TEST_F(JournalTest, ACorrectionIsTakenFromUnderItsOwnParent) {
    const XmlNodePtr inner = CreateUpdate({2, 1}, u"X\n");
    const XmlNodePtr group = Element(u"group", {inner});
    journal_.Open(DocumentWith(u"corrections", {group}));
    journal_.Remove(*inner);
    EXPECT_FALSE(group->HasChildNodes());
    EXPECT_EQ(index_.FindCorrection(Line{2}), nullptr);
}

TEST_F(JournalTest, RemovingTwiceOrFromAnotherJournalChangesNothing) {
    journal_.Open(nullptr);
    journal_.AppendCorrection({2, 1}, u"X\n");
    journal_.AppendCorrection({3, 1}, u"Y\n");
    const XmlNodePtr removed = state_.JournalRoot->FirstChild();
    const XmlNodePtr kept = state_.JournalRoot->ChildNodes().back();
    journal_.Remove(*removed);
    journal_.Remove(*removed);
    EXPECT_EQ(state_.JournalRoot->ChildNodes().size(), 1U);
    EXPECT_EQ(UpdateText(*removed), u"X\n") << "whoever holds it can still read it";
    journal_.Open(nullptr);
    journal_.AppendCorrection({5, 1}, u"Z\n");
    journal_.Remove(*kept);
    EXPECT_EQ(state_.JournalRoot->ChildNodes().size(), 1U);
}

TEST_F(JournalTest, WhatWentWithItsParentIsNoPartAnyMore) {
    const XmlNodePtr inner = CreateUpdate({2, 1}, u"X\n");
    const XmlNodePtr outer = CreateUpdate({2, 1}, u"");
    outer->AppendChild(inner);
    journal_.Open(DocumentWith(u"corrections", {outer}));
    journal_.Remove(*outer);
    journal_.Remove(*inner);
    EXPECT_EQ(inner->ParentNode(), outer.get());
}

}  // namespace
}  // namespace quorvale
