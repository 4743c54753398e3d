#include "platform/xml_document.h"

#include <algorithm>
#include <utility>

namespace quorvale {

XmlNode::~XmlNode() { RemoveAllChildren(); }

const std::u16string* XmlNode::GetAttribute(std::u16string_view name) const {
    const auto found =
        std::find_if(attributes_.begin(), attributes_.end(),
                     [name](const XmlAttribute& attribute) { return attribute.Name == name; });
    return found == attributes_.end() ? nullptr : &found->Value;
}

void XmlNode::SetAttribute(std::u16string_view name, std::u16string value) {
    for (XmlAttribute& attribute : attributes_) {
        if (attribute.Name != name) continue;
        attribute.Value = std::move(value);
        return;
    }
    attributes_.push_back({std::u16string(name), std::move(value)});
}

void XmlNode::AppendChild(XmlNodePtr child) {
    if (child->parent_ != nullptr) child->parent_->RemoveChild(*child);
    children_.push_back(std::move(child));
    children_.back()->parent_ = this;
    children_.back()->place_ = children_.size() - 1;
}

bool XmlNode::RemoveChild(const XmlNode& child) {
    if (child.parent_ != this) return false;
    const XmlNodePtr taken = std::exchange(children_[child.place_], nullptr);
    taken->parent_ = nullptr;
    ++gaps_;
    return true;
}

void XmlNode::RemoveAllChildren() {
    for (const XmlNodePtr& child : ChildNodes()) child->parent_ = nullptr;
    children_.clear();
}

const std::vector<XmlNodePtr>& XmlNode::ChildNodes() const {
    if (gaps_ == 0) return children_;
    std::erase(children_, nullptr);
    gaps_ = 0;
    for (std::size_t place = 0; place < children_.size(); ++place) {
        children_[place]->place_ = place;
    }
    return children_;
}

namespace {

/// Visits the elements of that name below a node, which stand in no namespace, until `visit`
/// answers false. Documents are at most a few hundred levels deep, so it may call itself.
template <class Visit>
bool VisitElements(const XmlNode& below, std::u16string_view name, bool inNamespace,
                   const Visit& visit) {
    for (const XmlNodePtr& child : below.ChildNodes()) {
        if (child->Kind() != XmlKind::Element) continue;
        const std::u16string* declared = child->GetAttribute(u"xmlns");
        const bool foreign = declared != nullptr ? !declared->empty() : inNamespace;
        if (!foreign && child->Name() == name && !visit(child)) return false;
        if (!VisitElements(*child, name, foreign, visit)) return false;
    }
    return true;
}

}  // namespace

std::vector<XmlNodePtr> XmlNode::SelectNodes(std::u16string_view name) const {
    std::vector<XmlNodePtr> found;
    VisitElements(*this, name, false, [&found](const XmlNodePtr& node) {
        found.push_back(node);
        return true;
    });
    return found;
}

XmlNodePtr XmlNode::SelectSingleNode(std::u16string_view name) const {
    XmlNodePtr found;
    VisitElements(*this, name, false, [&found](const XmlNodePtr& node) {
        found = node;
        return false;
    });
    return found;
}

XmlDocumentPtr CreateXmlDocument() { return std::make_shared<XmlNode>(XmlKind::Document); }

XmlNodePtr CreateXmlElement(std::u16string name) {
    return std::make_shared<XmlNode>(XmlKind::Element, std::move(name));
}

XmlNodePtr CreateXmlText(std::u16string data) {
    return std::make_shared<XmlNode>(XmlKind::Text, std::u16string(), std::move(data));
}

}  // namespace quorvale
