#pragma once

#include <string>
#include <vector>

namespace quorvale {

/// A document and what every reader makes of it, as support/xml_notation.h writes it; a reason in
/// angle brackets when it is refused, where "<>" stands for any.
struct XmlCase {
    std::string Bytes;
    std::string Expected;
};

inline std::vector<XmlCase> XmlCases() {
    using namespace std::string_literals;
    return {
        {"<a/>", "E(a)[]"},
        {"<a></a>", "E(a)[]"},
        {"<a >\n</a >", "E(a)[T\"\n\"]"},
        {"<corrections><update start=\"2\" loc=\"1\">x\n</update></corrections>",
         "E(corrections)[E(update start=2 loc=1)[T\"x\n\"]]"},
        {"<a>  <b> \t</b>\n</a>", "E(a)[T\"  \"E(b)[T\" \t\"]T\"\n\"]"},
        {"<a><![CDATA[x & <y>]]]]></a>", "E(a)[C\"x & <y>]]\"]"},
        {"<a>one<![CDATA[]]>two</a>", "E(a)[T\"one\"C\"\"T\"two\"]"},
        {"<a><!--b--c--></a>", "E(a)[#\"b--c\"]"},
        {"<!-- first --><a/><?tool do  it ?>\n", "#\" first \"E(a)[]?tool\"do  it \""},
        {"<?xml version=\"1.0\"?>\n<a/>", "?xml\"version=\"1.0\"\"E(a)[]"},
        {"\xEF\xBB\xBF<a>\xE6\x97\xA5</a>", "E(a)[T\"\xE6\x97\xA5\"]"},
        {"<a>&lt;&gt;&amp;&quot;&apos;&#65;&#x42;&#x1F600;</a>",
         "E(a)[T\"<>&\"'AB\xF0\x9F\x98\x80\"]"},
        // Line ends are line feeds; a reference to a carriage return is one.
        {"<a>1\r\n2\r3\n4&#13;\n5</a>", "E(a)[T\"1\n2\n3\n4\r\n5\"]"},
        {"<a><!--1\r\n2--><![CDATA[3\r4]]><?p 5\r\n6?></a>", "E(a)[#\"1\n2\"C\"3\n4\"?p\"5\n6\"]"},
        {"<a b=' x\t\r\n y\n&#10;&#9;'/>", "E(a b= x   y \n\t)[]"},
        {"<a b='\"' c=\"'\"/>", "E(a b=\" c=')[]"},
        {"<a b = '1'\nc\t=\t'2' />", "E(a b=1 c=2)[]"},
        {"<a b='<c>&d;'/>", "E(a b=<c>&d;)[]"},
        // One text, however it is written.
        {"<a>x&amp;y&#122;</a>", "E(a)[T\"x&yz\"]"},
        {"<a>x<?xml nothing?>y</a>", "E(a)[T\"xy\"]"},
        // What only looks like a reference.
        {"<a>& &; &# &#; &#x; &#xg; &#12 &foo; &amp &am&lt;</a>",
         "E(a)[T\"& &; &# &#; &#x; &#xg; &#12 &foo; &amp &am<\"]"},
        {"<a>&#X41;</a>", "E(a)[T\"&#X41;\"]"},
        // Small sins.
        {"<a>\x01&#2;</a>", "E(a)[T\"\x01\x02\"]"},
        {"<a>]]></a>", "E(a)[T\"]]>\"]"},
        {"<\xC3\xA9 \xC3\xA8='1'/>", "E(\xC3\xA9 \xC3\xA8=1)[]"},
        {"<a:b:c :d='1'/>", "E(a:b:c :d=1)[]"},
        {" <?xml version='1.0'?><a/><?XML?>", "E(a)[]"},
        // Refused.
        {"", "<There is no element>"},
        {" \n", "<There is no element>"},
        {"<!-- -->", "<There is no element>"},
        {"text", "<There is text beside the document's element>"},
        {"<a/>x", "<There is text beside the document's element>"},
        {"x<a/>", "<There is text beside the document's element>"},
        {"<a/><![CDATA[ ]]>", "<There is text beside the document's element>"},
        {"<a/>\n<b/>", "<There is more than one document element>"},
        {"<a b='1' b='2'/>", "<An attribute stands there twice>"},
        {"<a b='1' c='' d='' e='' f='' g='' h='' i='' b=''/>", "<An attribute stands there twice>"},
        {"<a/> <", "<>"},
        {"<!DOCTYPE a><a/>", "<>"},
        {"<!DOCTYPE a [<!ENTITY x 'y'>]><a>&x;</a>", "<>"},
        {"<!doctype a><a/>", "<>"},
        {"<a><!ELEMENT b></a>", "<>"},
        {"<a>&#0;</a>", "<>"},
        {"<a b='&#x0;'/>", "<>"},
        {"<a>&#xD800;</a>", "<>"},
        {"<a>&#x110000;</a>", "<>"},
        {"<a>&#4294967361;</a>", "<>"},
        {"<a>\0</a>"s, "<>"},
        {"<a/>\0"s, "<>"},
        {"<a>\xFF</a>", "<>"},
        {"<a>\xC3</a>", "<>"},
        {"<a>\xED\xA0\x80</a>", "<>"},
        {"<", "<>"},
        {"<a", "<>"},
        {"<a>", "<>"},
        {"<a/", "<>"},
        {"<a/ >", "<>"},
        {"<a></b>", "<>"},
        {"<a></ab>", "<>"},
        {"<ab></a>", "<>"},
        {"<a></a", "<>"},
        {"</a>", "<>"},
        {"<a><b></a></b>", "<>"},
        {"<a b/>", "<>"},
        {"<a b=/>", "<>"},
        {"<a b=1/>", "<>"},
        {"<a b='1/>", "<>"},
        {"<a b='1'c='2'/>", "<>"},
        {"<a'b'/>", "<>"},
        {"<1/>", "<>"},
        {"<a>< b/></a>", "<>"},
        {"<a><!-></a>", "<>"},
        {"<a><!--></a>", "<>"},
        {"<a><!-- -- ></a>", "<>"},
        {"<a><![CDATA[x</a>", "<>"},
        {"<a><![cdata[x]]></a>", "<>"},
        {"<a><?></a>", "<>"},
        {"<a><?p x></a>", "<>"},
        {"<a><?p!?></a>", "<>"},
        {"<corrections><update", "<>"},
    };
}

}  // namespace quorvale
