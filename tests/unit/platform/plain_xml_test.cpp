#include "platform/plain_xml.h"

#include <gtest/gtest.h>

#include <string>

#include "base/text.h"
#include "platform/xml_writer.h"
#include "support/xml_cases.h"
#include "support/xml_notation.h"

namespace quorvale {
namespace {

XmlReading Read(const std::string& bytes, bool preserveWhiteSpace = true) {
    XmlReadOptions options;
    options.PreserveWhiteSpace = preserveWhiteSpace;
    return PlainXml().Read(bytes, options);
}

std::string Nested(std::size_t depth) {
    std::string bytes;
    for (std::size_t i = 0; i < depth; ++i) bytes += "<a>";
    for (std::size_t i = 0; i < depth; ++i) bytes += "</a>";
    return bytes;
}

TEST(PlainXml, MakesOfEveryDocumentWhatItShould) {
    for (const XmlCase& each : XmlCases()) {
        const std::string found = Notation(Read(each.Bytes));
        if (each.Expected == "<>") {
            EXPECT_EQ(found.substr(0, 1), "<") << each.Bytes;
        } else {
            EXPECT_EQ(found, each.Expected) << each.Bytes;
        }
    }
}

TEST(PlainXml, WhiteSpaceIsDroppedUnlessItIsToBeKept) {
    EXPECT_EQ(Notation(Read("<a> <b>\n</b> c </a>", false)), "E(a)[E(b)[]T\" c \"]");
    EXPECT_EQ(Notation(Read("<a>&#32;</a>", false)), "E(a)[T\" \"]");
}

TEST(PlainXml, TheDeclaredEncodingMustBeUtf8) {
    EXPECT_TRUE(Read("<?xml version='1.0' encoding='UTF-8'?><a/>"));
    const XmlReading other = Read("<?xml version='1.0' encoding='windows-1252'?><a/>");
    EXPECT_FALSE(other);
    EXPECT_TRUE(other.ParseError.CannotBeRead);
    EXPECT_TRUE(Read("\xEF\xBB\xBF<?xml encoding='windows-1252'?><a/>"));
}

TEST(PlainXml, WhatIsOverALimitIsNotMalformed) {
    EXPECT_TRUE(Read(Nested(256)));
    const XmlReading deep = Read(Nested(257));
    EXPECT_FALSE(deep);
    EXPECT_TRUE(deep.ParseError.CannotBeRead);
    EXPECT_FALSE(Read("<a>").ParseError.CannotBeRead);
    EXPECT_FALSE(Read("<!DOCTYPE a><a/>").ParseError.CannotBeRead);
}

TEST(PlainXml, TellsWhereReadingStopped) {
    const XmlReading reading = Read("<a>\n<b></a>");
    EXPECT_FALSE(reading);
    EXPECT_GE(reading.ParseError.Position, 7U);
    EXPECT_LE(reading.ParseError.Position, 11U);
    EXPECT_FALSE(reading.ParseError.Reason.empty());
}

class WritingXml : public testing::Test {
protected:
    WritingXml() { document_->AppendChild(root_); }

    std::string Written() {
        auto bytes = PlainXml().Write(*document_);
        return bytes ? *bytes : "<" + bytes.Failure().Reason + ">";
    }

    void SetText(std::u16string text) {
        root_->RemoveAllChildren();
        root_->AppendChild(CreateXmlText(std::move(text)));
    }

    void SetNode(XmlKind kind, std::u16string name, std::u16string data) {
        root_->RemoveAllChildren();
        root_->AppendChild(std::make_shared<XmlNode>(kind, std::move(name), std::move(data)));
    }

    XmlDocumentPtr document_ = CreateXmlDocument();
    XmlNodePtr root_ = CreateXmlElement(u"a");
};

TEST_F(WritingXml, NothingIsAdded) {
    EXPECT_EQ(Written(), "<a/>");
    XmlNodePtr update = CreateXmlElement(u"update");
    update->SetAttribute(u"start", u"2");
    update->SetAttribute(u"loc", u"1");
    update->AppendChild(CreateXmlText(u" x\t\u65E5\U0001F600\n"));
    root_->AppendChild(update);
    EXPECT_EQ(Written(),
              "<a><update start=\"2\" loc=\"1\"> x\t\xE6\x97\xA5\xF0\x9F\x98\x80\n</update></a>");
}

TEST_F(WritingXml, TextIsEscapedWhereItMustBe) {
    SetText(u"a&b<c>d\"e']]>f");
    EXPECT_EQ(Written(), "<a>a&amp;b&lt;c>d\"e']]&gt;f</a>");
    SetText(u"]]");
    root_->AppendChild(CreateXmlText(u">"));
    EXPECT_EQ(Written(), "<a>]]&gt;</a>");
    SetText(u"1\r2\u0001\uFFFE");
    EXPECT_EQ(Written(), "<a>1&#13;2&#1;&#65534;</a>");
}

TEST_F(WritingXml, AnAttributeKeepsItsBlanksAndQuotationMarks) {
    root_->SetAttribute(u"b", u"\t\n\r <&>\"'");
    EXPECT_EQ(Written(), "<a b=\"&#9;&#10;&#13; &lt;&amp;>&quot;'\"/>");
}

TEST_F(WritingXml, ADeclarationNamesNoEncoding) {
    for (const std::string declared : {"version=\"1.0\" encoding=\"utf-16\"",
                                       "version=\"1.0\" encoding = 'x' standalone='yes' "}) {
        const XmlReading read = Read("\xEF\xBB\xBF<?xml " + declared + "?>\n<a/>");
        ASSERT_TRUE(read);
        const std::string written = *PlainXml().Write(*read.Document);
        EXPECT_EQ(written, declared.ends_with(' ') ? "<?xml version=\"1.0\" standalone='yes'?><a/>"
                                                   : "<?xml version=\"1.0\"?><a/>");
    }
    for (const std::string declared : {"encoding='utf-8'", "encoding='x'encoding='y'"}) {
        const XmlReading read = Read("\xEF\xBB\xBF<?xml " + declared + "?><a/>");
        EXPECT_EQ(*PlainXml().Write(*read.Document), "<a/>");
    }
}

TEST_F(WritingXml, WhatNoReaderCouldTakeBackFails) {
    for (const std::u16string& text :
         {std::u16string(1, u'\0'), std::u16string(1, 0xD83D), std::u16string(u"x\xDC00y")}) {
        SetText(text);
        EXPECT_EQ(Written(), "<A text holds a character that XML cannot carry>");
    }
    SetNode(XmlKind::CData, u"", u"]]>");
    EXPECT_EQ(Written(), "<A section holds its own end>");
    SetNode(XmlKind::CData, u"", u"\r");
    EXPECT_EQ(Written(), "<A carriage return stands where it cannot be written>");
    SetNode(XmlKind::Comment, u"", u"-->");
    EXPECT_EQ(Written(), "<A section holds its own end>");
    SetNode(XmlKind::Instruction, u"xml", u"");
    EXPECT_EQ(Written(), "<A declaration stands where none may>");
    SetNode(XmlKind::Element, u"a b", u"");
    EXPECT_EQ(Written(), "<A name holds a character that no name can>");
    document_->AppendChild(CreateXmlElement(u"b"));
    EXPECT_EQ(Written(), "<A document has one element, and this one does not>");
}

TEST_F(WritingXml, ATreeTooDeepToBeReadIsNotWritten) {
    XmlNodePtr inner = root_;
    for (std::size_t depth = 1; depth < XmlService::MaxDepth; ++depth) {
        XmlNodePtr next = CreateXmlElement(u"a");
        inner->AppendChild(next);
        inner = next;
    }
    EXPECT_TRUE(Read(Written()));
    inner->AppendChild(CreateXmlElement(u"a"));
    EXPECT_EQ(Written(), "<The elements are nested too deeply>");
}

TEST_F(WritingXml, WhatIsOverALimitIsNotWritten) {
    root_->SetAttribute(u"b", u"1");
    root_->AppendChild(CreateXmlText(u"text"));
    root_->AppendChild(CreateXmlElement(u"c"));
    root_->AppendChild(CreateXmlText(u""));
    const std::string whole = "<a b=\"1\">text<c/></a>";
    const auto written = [&](const XmlLimits& limits) {
        auto bytes = WriteXml(*document_, limits);
        return bytes ? *bytes : "<" + bytes.Failure().Reason + ">";
    };
    // Elements, attributes and texts count.
    EXPECT_EQ(written({whole.size(), 2, 4}), whole);
    EXPECT_EQ(written({whole.size() - 1, 2, 4}), "<The document is too large>");
    EXPECT_EQ(written({whole.size(), 1, 4}), "<The elements are nested too deeply>");
    EXPECT_EQ(written({whole.size(), 2, 3}), "<The document has too many nodes>");
}

// A journal with so many corrections was saved, and could not be read any more.
TEST_F(WritingXml, AsManyNodesAreWrittenAsCanBeReadAgain) {
    std::vector<XmlAttribute> attributes;
    attributes.reserve(XmlService::MaxNodes);
    for (std::size_t i = 1; i < XmlService::MaxNodes; ++i) {
        attributes.push_back({std::u16string(1, static_cast<char16_t>(u'a' + i % 26)), u""});
    }
    root_->SetAttributes(std::move(attributes));
    EXPECT_TRUE(PlainXml().Write(*document_));
    root_->AppendChild(CreateXmlText(u"x"));
    EXPECT_EQ(Written(), "<The document has too many nodes>");
}

TEST_F(WritingXml, WhateverIsReadCanBeWrittenAndComesBack) {
    int documents = 0;
    for (const XmlCase& each : XmlCases()) {
        const XmlReading read = Read(each.Bytes);
        if (!read) continue;
        ++documents;
        auto written = PlainXml().Write(*read.Document);
        ASSERT_TRUE(written) << each.Bytes << written.Failure().Reason;
        EXPECT_EQ(Notation(Read(*written)), Notation(read)) << *written;
    }
    EXPECT_GT(documents, 20);
}

TEST(FailingXml, FailsAsItIsTold) {
    PlainXml real;
    FailingXml failing(real);
    EXPECT_TRUE(failing.Read("<a/>", {}));
    EXPECT_TRUE(failing.Write(*failing.Read("<a/>", {}).Document));
    const XmlDocumentPtr document = failing.Read("<a/>", {}).Document;
    failing.FailRead = true;
    EXPECT_FALSE(failing.Read("<a/>", {}));
    EXPECT_FALSE(failing.Read("<a/>", {}).ParseError.CannotBeRead);
    failing.RefuseToRead = true;
    EXPECT_TRUE(failing.Read("<a/>", {}).ParseError.CannotBeRead);
    failing.FailWrite = true;
    EXPECT_FALSE(failing.Write(*document));
}

}  // namespace
}  // namespace quorvale
