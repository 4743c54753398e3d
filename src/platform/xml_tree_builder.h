#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/xml_document.h"

namespace quorvale {

/// Puts a document together in the order in which it is read, from UTF-8 pieces. Texts that follow
/// one another become one node.
class XmlTreeBuilder {
public:
    XmlTreeBuilder() : document_(CreateXmlDocument()), open_{document_.get()} {}

    void AddText(std::string_view text) { text_ += text; }
    void Add(XmlKind kind, std::string_view name, std::string_view data);
    /// False when two attributes have one name.
    bool Open(std::string_view name, std::vector<XmlAttribute> attributes);
    void Close();

    /// 0 outside the document element.
    std::size_t Depth() const { return open_.size() - 1; }

    /// The finished document, or null and what is wrong with it as a whole.
    XmlDocumentPtr Finish(std::string& reason);

private:
    void EndText();

    XmlDocumentPtr document_;
    std::vector<XmlNode*> open_;
    std::string text_;
};

}  // namespace quorvale
