#include "platform/xml_document.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace quorvale {
namespace {

/// <r><update n="1"/><group><update n="2"><update n="3"/></update></group></r>
class XmlTree : public testing::Test {
protected:
    XmlTree() {
        document_->AppendChild(root_);
        root_->AppendChild(first_);
        root_->AppendChild(group_);
        group_->AppendChild(second_);
        second_->AppendChild(third_);
        first_->SetAttribute(u"n", u"1");
        second_->SetAttribute(u"n", u"2");
        third_->SetAttribute(u"n", u"3");
    }

    std::u16string Found() const {
        std::u16string found;
        for (const XmlNodePtr& node : document_->SelectNodes(u"update")) {
            found += *node->GetAttribute(u"n");
        }
        return found;
    }

    XmlDocumentPtr document_ = CreateXmlDocument();
    XmlNodePtr root_ = CreateXmlElement(u"r");
    XmlNodePtr first_ = CreateXmlElement(u"update");
    XmlNodePtr group_ = CreateXmlElement(u"group");
    XmlNodePtr second_ = CreateXmlElement(u"update");
    XmlNodePtr third_ = CreateXmlElement(u"update");
};

TEST_F(XmlTree, ElementsAreFoundInTheOrderOfTheDocument) {
    EXPECT_EQ(Found(), u"123");
    EXPECT_EQ(document_->SelectSingleNode(u"update"), first_);
    EXPECT_EQ(document_->SelectSingleNode(u"Update"), nullptr);
    EXPECT_TRUE(document_->SelectNodes(u"nothing").empty());
    EXPECT_EQ(group_->SelectNodes(u"update").size(), 2U);
}

TEST_F(XmlTree, WhatWasFoundStaysWhenTheDocumentChanges) {
    const auto found = document_->SelectNodes(u"update");
    for (const XmlNodePtr& node : found) {
        if (node->ParentNode() != nullptr) node->ParentNode()->RemoveChild(*node);
    }
    EXPECT_EQ(Found(), u"");
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(*found[1]->GetAttribute(u"n"), u"2");
}

TEST_F(XmlTree, ANodeIsRemovedFromItsOwnParentOnly) {
    EXPECT_FALSE(root_->RemoveChild(*second_));
    EXPECT_EQ(Found(), u"123");
    EXPECT_TRUE(group_->RemoveChild(*second_));
    EXPECT_EQ(Found(), u"1");
    EXPECT_FALSE(group_->RemoveChild(*second_));
    EXPECT_EQ(second_->ParentNode(), nullptr);
    EXPECT_EQ(third_->ParentNode(), second_.get());
}

TEST_F(XmlTree, ANodeOutlivesItsDocument) {
    document_.reset();
    root_.reset();
    group_.reset();
    EXPECT_EQ(second_->ParentNode(), nullptr);
    EXPECT_EQ(*second_->GetAttribute(u"n"), u"2");
    EXPECT_EQ(second_->FirstChild(), third_);
}

TEST_F(XmlTree, ANodeThatIsAppendedElsewhereLeavesItsPlace) {
    root_->AppendChild(third_);
    EXPECT_EQ(Found(), u"123");
    EXPECT_FALSE(second_->HasChildNodes());
    EXPECT_EQ(third_->ParentNode(), root_.get());
}

TEST_F(XmlTree, ElementsInANamespaceAreOthers) {
    group_->SetAttribute(u"xmlns", u"urn:other");
    EXPECT_EQ(Found(), u"1");
    second_->SetAttribute(u"xmlns", u"");
    EXPECT_EQ(Found(), u"123");
}

TEST_F(XmlTree, AttributesKeepTheirOrder) {
    first_->SetAttribute(u"b", u"x");
    first_->SetAttribute(u"n", u"7");
    ASSERT_EQ(first_->Attributes().size(), 2U);
    EXPECT_EQ(first_->Attributes()[0].Name, u"n");
    EXPECT_EQ(first_->Attributes()[0].Value, u"7");
    EXPECT_EQ(first_->GetAttribute(u"c"), nullptr);
    first_->SetAttributes({{u"p", u"1"}, {u"q", u"2"}});
    EXPECT_EQ(*first_->GetAttribute(u"q"), u"2");
    EXPECT_EQ(first_->GetAttribute(u"n"), nullptr);
}

TEST_F(XmlTree, WhatStaysKeepsItsOrderWhenOthersGo) {
    for (const bool fromTheFront : {true, false}) {
        XmlNode parent(XmlKind::Element, u"p");
        std::vector<XmlNodePtr> nodes;
        for (int i = 0; i < 6; ++i) {
            nodes.push_back(CreateXmlElement(u"update"));
            parent.AppendChild(nodes.back());
        }
        for (const std::size_t i : {0U, 2U, 3U}) {
            EXPECT_TRUE(parent.RemoveChild(*nodes[fromTheFront ? i : 5 - i]));
        }
        EXPECT_TRUE(parent.HasChildNodes());
        parent.AppendChild(nodes[fromTheFront ? 2 : 3]);
        const std::vector<XmlNodePtr> expected =
            fromTheFront ? std::vector{nodes[1], nodes[4], nodes[5], nodes[2]}
                         : std::vector{nodes[0], nodes[1], nodes[4], nodes[3]};
        EXPECT_EQ(parent.FirstChild(), expected.front());
        EXPECT_EQ(parent.ChildNodes(), expected);
        for (const XmlNodePtr& node : expected) EXPECT_TRUE(parent.RemoveChild(*node));
        EXPECT_FALSE(parent.HasChildNodes());
        EXPECT_EQ(parent.FirstChild(), nullptr);
        EXPECT_TRUE(parent.ChildNodes().empty());
    }
}

// An edit over the whole file removes all of its corrections, the first one first: with hundreds of
// thousands of them that took minutes.
TEST_F(XmlTree, RemovingMostChildrenFromTheFrontTakesNoLongerThanLookingAtThem) {
    using Clock = std::chrono::steady_clock;
    constexpr std::size_t count = 400'000;
    XmlNode parent(XmlKind::Element, u"p");
    for (std::size_t i = 0; i < count; ++i) parent.AppendChild(CreateXmlElement(u"update"));
    const std::vector<XmlNodePtr> all = parent.ChildNodes();
    const Clock::time_point start = Clock::now();
    for (std::size_t i = 0; i + 1 < count; ++i) {
        ASSERT_TRUE(parent.RemoveChild(*all[i]));
        ASSERT_LT(Clock::now() - start, std::chrono::seconds(10)) << "after " << i;
    }
    ASSERT_EQ(parent.ChildNodes().size(), 1U);
    EXPECT_EQ(parent.FirstChild(), all.back());
}

TEST_F(XmlTree, RemovingAllChildrenLeavesThemWithoutAParent) {
    root_->RemoveAllChildren();
    EXPECT_FALSE(root_->HasChildNodes());
    EXPECT_EQ(root_->FirstChild(), nullptr);
    EXPECT_EQ(first_->ParentNode(), nullptr);
    EXPECT_EQ(group_->SelectNodes(u"update").size(), 2U);
}

}  // namespace
}  // namespace quorvale
