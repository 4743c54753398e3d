#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvale {

enum class XmlKind { Document, Element, Text, CData, Comment, Instruction };

struct XmlAttribute {
    std::u16string Name;
    std::u16string Value;
};

class XmlNode;
using XmlNodePtr = std::shared_ptr<XmlNode>;

/// One node of an XML document. Nodes are shared: one that was taken out of its document, or whose
/// document is gone, stays readable for whoever holds it and simply has no parent. The order of
/// children and attributes is that of the file.
class XmlNode {
public:
    explicit XmlNode(XmlKind kind, std::u16string name = {}, std::u16string data = {})
        : kind_(kind), name_(std::move(name)), data_(std::move(data)) {}
    ~XmlNode();
    XmlNode(const XmlNode&) = delete;
    XmlNode& operator=(const XmlNode&) = delete;

    XmlKind Kind() const { return kind_; }
    /// Of an element its name as written, with its prefix; of an instruction its target.
    const std::u16string& Name() const { return name_; }
    /// The characters of a text, CDATA section, comment or instruction.
    const std::u16string& Data() const { return data_; }

    /// Null for a document, and for a node that was taken out.
    XmlNode* ParentNode() const { return parent_; }
    const std::vector<XmlNodePtr>& ChildNodes() const { return children_; }
    bool HasChildNodes() const { return !children_.empty(); }
    /// Null when there is none.
    XmlNodePtr FirstChild() const { return children_.empty() ? nullptr : children_.front(); }

    const std::vector<XmlAttribute>& Attributes() const { return attributes_; }
    /// Null when the element has no such attribute.
    const std::u16string* GetAttribute(std::u16string_view name) const;
    void SetAttribute(std::u16string_view name, std::u16string value);
    /// All of them at once; their names differ.
    void SetAttributes(std::vector<XmlAttribute> attributes) {
        attributes_ = std::move(attributes);
    }

    /// Makes a node the last child; it leaves the parent that it had.
    void AppendChild(XmlNodePtr child);
    /// False, and nothing changes, when the node is no child of this one.
    bool RemoveChild(const XmlNode& child);
    void RemoveAllChildren();

    /// Every element of that name below this node, in document order; those of a namespace of their
    /// own do not count. What is returned does not change with the document.
    std::vector<XmlNodePtr> SelectNodes(std::u16string_view name) const;
    /// The first of them; null when there is none.
    XmlNodePtr SelectSingleNode(std::u16string_view name) const;

private:
    XmlKind kind_;
    std::u16string name_;
    std::u16string data_;
    std::vector<XmlAttribute> attributes_;
    std::vector<XmlNodePtr> children_;
    XmlNode* parent_ = nullptr;
};

/// A whole document: its nodes outside and including the one document element.
using XmlDocument = XmlNode;
using XmlDocumentPtr = std::shared_ptr<XmlDocument>;

XmlDocumentPtr CreateXmlDocument();
XmlNodePtr CreateXmlElement(std::u16string name);
XmlNodePtr CreateXmlText(std::u16string data);

}  // namespace quorvale
