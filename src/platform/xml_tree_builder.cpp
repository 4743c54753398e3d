#include "platform/xml_tree_builder.h"

#include <algorithm>

#include "base/text.h"
#include "platform/xml_text.h"

namespace quorvale {

namespace {

bool HasNameTwice(const std::vector<XmlAttribute>& attributes) {
    std::vector<std::u16string_view> names;
    names.reserve(attributes.size());
    for (const XmlAttribute& attribute : attributes) names.emplace_back(attribute.Name);
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) != names.end();
}

bool IsBlank(std::u16string_view text) { return std::all_of(text.begin(), text.end(), IsXmlSpace); }

}  // namespace

void XmlTreeBuilder::EndText() {
    if (text_.empty()) return;
    std::u16string text = FromUtf8(text_);
    text_.clear();
    // Blanks around the document element are no nodes of the document.
    if (Depth() == 0 && IsBlank(text)) return;
    open_.back()->AppendChild(CreateXmlText(std::move(text)));
}

void XmlTreeBuilder::Add(XmlKind kind, std::string_view name, std::string_view data) {
    EndText();
    open_.back()->AppendChild(std::make_shared<XmlNode>(kind, FromUtf8(name), FromUtf8(data)));
}

bool XmlTreeBuilder::Open(std::string_view name, std::vector<XmlAttribute> attributes) {
    EndText();
    if (HasNameTwice(attributes)) return false;
    XmlNodePtr element = CreateXmlElement(FromUtf8(name));
    element->SetAttributes(std::move(attributes));
    XmlNode* const opened = element.get();
    open_.back()->AppendChild(std::move(element));
    open_.push_back(opened);
    return true;
}

void XmlTreeBuilder::Close() {
    EndText();
    open_.pop_back();
}

XmlDocumentPtr XmlTreeBuilder::Finish(std::string& reason) {
    EndText();
    int elements = 0;
    for (const XmlNodePtr& node : document_->ChildNodes()) {
        if (node->Kind() == XmlKind::Element) ++elements;
        if (node->Kind() == XmlKind::Text || node->Kind() == XmlKind::CData) {
            reason = "There is text beside the document's element";
            return nullptr;
        }
    }
    if (elements == 1) return document_;
    reason = elements == 0 ? "There is no element" : "There is more than one document element";
    return nullptr;
}

}  // namespace quorvale
