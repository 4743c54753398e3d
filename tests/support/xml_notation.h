#pragma once

#include <string>

#include "base/text.h"
#include "platform/xml_service.h"

namespace quorvale {

/// A tree in a notation that shows every node: E(name a=v ...)[...], T"text", C"cdata", #"comment",
/// ?target"instruction".
inline std::string Notation(const XmlNode& node) {
    switch (node.Kind()) {
        case XmlKind::Text:
            return "T\"" + ToUtf8(node.Data()) + "\"";
        case XmlKind::CData:
            return "C\"" + ToUtf8(node.Data()) + "\"";
        case XmlKind::Comment:
            return "#\"" + ToUtf8(node.Data()) + "\"";
        case XmlKind::Instruction:
            return "?" + ToUtf8(node.Name()) + "\"" + ToUtf8(node.Data()) + "\"";
        case XmlKind::Document:
        case XmlKind::Element:
            break;
    }
    std::string text = ToUtf8(node.Name());
    for (const XmlAttribute& attribute : node.Attributes()) {
        text += " " + ToUtf8(attribute.Name) + "=" + ToUtf8(attribute.Value);
    }
    std::string children;
    for (const XmlNodePtr& child : node.ChildNodes()) children += Notation(*child);
    if (node.Kind() == XmlKind::Document) return children;
    return "E(" + text + ")[" + children + "]";
}

/// The same of what was read; the reason in angle brackets when nothing was.
inline std::string Notation(const XmlReading& reading) {
    if (reading) return Notation(*reading.Document);
    return "<" + reading.ParseError.Reason + ">";
}

}  // namespace quorvale
