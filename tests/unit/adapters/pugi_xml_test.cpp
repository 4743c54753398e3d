#include "adapters/pugi_xml.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "platform/plain_xml.h"
#include "support/xml_cases.h"
#include "support/xml_notation.h"

namespace quorvale {
namespace {

using namespace std::string_literals;

XmlReading Read(const std::string& bytes, bool preserveWhiteSpace = true) {
    XmlReadOptions options;
    options.PreserveWhiteSpace = preserveWhiteSpace;
    return PugiXml().Read(bytes, options);
}

std::string Sixteen(const std::string& ascii, bool little) {
    std::string bytes;
    for (const char c : ascii) {
        bytes += little ? c : '\0';
        bytes += little ? '\0' : c;
    }
    return bytes;
}

std::string Repeated(const std::string& what, std::size_t count) {
    std::string all;
    all.reserve(what.size() * count);
    for (std::size_t i = 0; i < count; ++i) all += what;
    return all;
}

TEST(PugiXml, MakesOfEveryDocumentWhatItShould) {
    for (const XmlCase& each : XmlCases()) {
        const std::string found = Notation(Read(each.Bytes));
        if (each.Expected == "<>") {
            EXPECT_EQ(found.substr(0, 1), "<") << each.Bytes;
        } else {
            EXPECT_EQ(found, each.Expected) << each.Bytes;
        }
    }
}

TEST(PugiXml, WhiteSpaceIsDroppedUnlessItIsToBeKept) {
    EXPECT_EQ(Notation(Read("<a> <b>\n</b> c </a>", false)), "E(a)[E(b)[]T\" c \"]");
}

TEST(PugiXml, TheEncodingIsToldByTheMark) {
    EXPECT_EQ(Notation(Read("\xFF\xFE" + Sixteen("<a>x\r\ny</a>", true))), "E(a)[T\"x\ny\"]");
    EXPECT_EQ(Notation(Read("\xFE\xFF" + Sixteen("<a>x</a>", false))), "E(a)[T\"x\"]");
    EXPECT_EQ(Notation(Read("\xEF\xBB\xBF<?xml encoding='utf-16'?><a>\xC3\xA9</a>")),
              "?xml\"encoding='utf-16'\"E(a)[T\"\xC3\xA9\"]");
    const std::string declared = "<?xml version='1.0' encoding='utf-16'?><a/>";
    EXPECT_TRUE(Read("\xFF\xFE" + Sixteen(declared, true)));
    EXPECT_TRUE(Read(Sixteen(declared, true)));
    EXPECT_TRUE(Read(Sixteen(declared, false)));
    // U+1F600 as a pair, then its halves alone.
    const std::string open = "\xFF\xFE" + Sixteen("<a>", true);
    const std::string close = Sixteen("</a>", true);
    EXPECT_EQ(Notation(Read(open + "\x3D\xD8\x00\xDE"s + close)), "E(a)[T\"\xF0\x9F\x98\x80\"]");
    EXPECT_FALSE(Read(open + "\x3D\xD8" + close));
    EXPECT_FALSE(Read(open + "\x00\xDE"s + close));
    EXPECT_FALSE(Read(open + close + "x"));
}

TEST(PugiXml, TheEncodingIsToldByTheDeclaration) {
    const auto read = [](const std::string& encoding, const std::string& text) {
        const XmlReading reading =
            Read("<?xml version=\"1.0\" encoding = '" + encoding + "'?><a>" + text + "</a>");
        return reading ? Notation(*reading.Document->ChildNodes()[1]) : Notation(reading);
    };
    EXPECT_EQ(read("utf-8", "\xC3\xA9"), "E(a)[T\"\xC3\xA9\"]");
    EXPECT_EQ(read("ISO-8859-1", "\xE9\x80"), "E(a)[T\"\xC3\xA9\xC2\x80\"]");
    EXPECT_EQ(read("Windows-1252", "\xE9\x80\x81"), "E(a)[T\"\xC3\xA9\xE2\x82\xAC\xC2\x81\"]");
    EXPECT_EQ(read("us-ascii", "x"), "E(a)[T\"x\"]");
    EXPECT_EQ(read("us-ascii", "\xE9").substr(0, 1), "<");
    EXPECT_EQ(read("utf-8", "\xE9").substr(0, 1), "<");
}

TEST(PugiXml, AnEncodingThatIsNotKnownIsNoFaultOfTheDocument) {
    for (const std::string encoding : {"shift_jis", "utf-16"}) {
        const XmlReading reading = Read("<?xml version='1.0' encoding='" + encoding + "'?><a/>");
        EXPECT_FALSE(reading);
        EXPECT_TRUE(reading.ParseError.CannotBeRead) << encoding;
    }
    EXPECT_FALSE(Read("<a>\xFF</a>").ParseError.CannotBeRead);
}

TEST(PugiXml, WhatWasReadInAnyEncodingIsWrittenAsUtf8) {
    for (const std::string& bytes :
         {"<?xml version='1.0' encoding='windows-1252'?><a>\x80</a>"s,
          "<?xml version='1.0' encoding='utf-8'?><a>\xE2\x82\xAC</a>"s}) {
        const XmlReading reading = Read(bytes);
        ASSERT_TRUE(reading);
        EXPECT_EQ(*PugiXml().Write(*reading.Document), "<?xml version='1.0'?><a>\xE2\x82\xAC</a>");
    }
    const XmlReading wide = Read("\xFF\xFE" + Sixteen("<?xml encoding='utf-16'?><a>x</a>", true));
    EXPECT_EQ(*PugiXml().Write(*wide.Document), "<a>x</a>");
}

TEST(PugiXml, WhatIsOverALimitIsNotMalformed) {
    const auto nested = [](std::size_t depth) {
        return Repeated("<a>", depth) + Repeated("</a>", depth);
    };
    EXPECT_TRUE(Read(nested(256)));
    EXPECT_TRUE(Read(nested(257)).ParseError.CannotBeRead);
    EXPECT_TRUE(Read(Repeated("<a>", 1'000'000)).ParseError.CannotBeRead);
    EXPECT_TRUE(Read("<r>" + Repeated("<a/>", 5'000'000) + "</r>").ParseError.CannotBeRead);
    EXPECT_TRUE(Read("<r>" + Repeated("<a/>", 1000) + "</r>"));
    EXPECT_TRUE(Read(Repeated("<a/>", 1000)).ParseError.Reason.size() > 0);
    EXPECT_FALSE(Read("<a").ParseError.CannotBeRead);
}

TEST(PugiXml, ManyAttributesTakeNoLongTime) {
    std::string bytes = "<a";
    for (int i = 0; i < 100'000; ++i) bytes += " a" + std::to_string(i) + "=''";
    EXPECT_TRUE(Read(bytes + "/>"));
    EXPECT_FALSE(Read(bytes + " a7=''/>"));
}

TEST(PugiXml, AnEntityBombIsNotTouched) {
    std::string bomb = "<!DOCTYPE a [<!ENTITY b0 'x'>";
    for (int i = 1; i < 30; ++i) {
        const std::string inner = "&b" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY b" + std::to_string(i) + " '" + inner + inner + "'>";
    }
    const XmlReading reading = Read(bomb + "]><a>&b29;</a>");
    EXPECT_FALSE(reading);
    EXPECT_FALSE(reading.ParseError.CannotBeRead);
    EXPECT_FALSE(Read("<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>"));
    EXPECT_TRUE(Read("<a b='<!DOCTYPE a>'><!--<!DOCTYPE a>--><![CDATA[<!DOCTYPE a>]]></a>"));
}

/// Both must take or refuse a document, and make the same of it; what they write must come back.
void Compare(const std::string& bytes) {
    for (const bool preserve : {true, false}) {
        XmlReadOptions options;
        options.PreserveWhiteSpace = preserve;
        const XmlReading real = PugiXml().Read(bytes, options);
        const XmlReading plain = PlainXml().Read(bytes, options);
        ASSERT_EQ(bool(real), bool(plain)) << bytes << "\npugixml: " << real.ParseError.Reason
                                           << "\nplain: " << plain.ParseError.Reason;
        if (!real) continue;
        ASSERT_EQ(Notation(real), Notation(plain)) << bytes;
        auto written = PugiXml().Write(*real.Document);
        ASSERT_TRUE(written) << bytes;
        ASSERT_EQ(*written, *PlainXml().Write(*plain.Document)) << bytes;
        const XmlReading again = PugiXml().Read(*written, options);
        ASSERT_TRUE(again) << bytes << "\nwritten: " << *written;
        auto twice = PugiXml().Write(*again.Document);
        ASSERT_EQ(*twice, *written);
    }
}

TEST(PugiXml, AgreesWithTheReaderWithoutALibrary) {
    const std::vector<std::string> pieces = {
        "<a>",
        "</a>",
        "<b>",
        "</b>",
        "<a/>",
        "<",
        ">",
        "/",
        "a",
        "b",
        "=",
        "'",
        "\"",
        " ",
        "\n",
        "\r",
        "\t",
        "&",
        "&amp;",
        "&#65;",
        "&#x41;",
        "&#",
        ";",
        "#",
        "x",
        "!",
        "<!--",
        "-->",
        "-",
        "--",
        "<![CDATA[",
        "]]>",
        "]",
        "<?",
        "?>",
        "?",
        "<?xml ",
        "xml",
        "<a b='1'>",
        "<a b=\"",
        " c='2'",
        "\xC3\xA9",
        "\xE2\x82\xAC",
        "1",
        ".",
        ":",
        "<!DOCTYPE",
        "&lt;",
        "</",
        "\x01",
        "\xEF\xBB\xBF",
    };
    std::mt19937 random(11);
    int accepted = 0;
    for (int round = 0; round < 60'000; ++round) {
        std::string bytes = round % 3 == 0 ? "" : "<a>";
        const auto length = random() % 12;
        for (unsigned i = 0; i < length; ++i) bytes += pieces[random() % pieces.size()];
        if (round % 3 != 0) bytes += "</a>";
        Compare(bytes);
        if (HasFatalFailure()) return;
        if (PlainXml().Read(bytes, {})) ++accepted;
    }
    EXPECT_GT(accepted, 3000);
}

TEST(PugiXml, AgreesOnDocumentsWithOneByteChanged) {
    std::mt19937 random(12);
    for (const XmlCase& each : XmlCases()) {
        Compare(each.Bytes);
        for (int round = 0; round < 100 && !each.Bytes.empty(); ++round) {
            std::string bytes = each.Bytes;
            const auto at = random() % bytes.size();
            switch (random() % 3) {
                case 0:
                    bytes[at] = "<>/='\"& ;!?-[]ax"[random() % 16];
                    break;
                case 1:
                    bytes.erase(at, 1);
                    break;
                default:
                    bytes.insert(at, 1, bytes[random() % bytes.size()]);
            }
            Compare(bytes);
            if (HasFatalFailure()) return;
        }
    }
}

}  // namespace
}  // namespace quorvale
