#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/export.h"

namespace quorvale {

enum class XmlKind { Document, Element, Text, CData, Comment, Instruction };

/// A name with its value.
struct XmlAttribute {
    std::u16string Name;   ///< as written, with its prefix
    std::u16string Value;  ///< with references resolved
};

class XmlNode;
using XmlNodePtr = std::shared_ptr<XmlNode>;

/// One node of an XML document. Nodes are shared: one that was taken out of its document, or whose
/// document is gone, stays readable for whoever holds it and simply has no parent. The order of
/// children and attributes is that of the file.
class QUORVALE_CORE_EXPORT XmlNode {
public:
    /// A node without a parent; which of name and data it has depends on its kind.
    explicit XmlNode(XmlKind kind, std::u16string name = {}, std::u16string data = {})
        : kind_(kind), name_(std::move(name)), data_(std::move(data)) {}
    ~XmlNode();
    XmlNode(const XmlNode&) = delete;
    XmlNode& operator=(const XmlNode&) = delete;

    /// It never changes.
    XmlKind Kind() const { return kind_; }
    /// Of an element its name as written, with its prefix; of an instruction its target.
    const std::u16string& Name() const { return name_; }
    /// The characters of a text, CDATA section, comment or instruction.
    const std::u16string& Data() const { return data_; }

    /// Null for a document, and for a node that was taken out.
    XmlNode* ParentNode() const { return parent_; }
    /// In the order of the file.
    const std::vector<XmlNodePtr>& ChildNodes() const;
    /// Whether there is any, white space kept as a node included.
    bool HasChildNodes() const { return children_.size() > gaps_; }
    /// Null when there is none.
    XmlNodePtr FirstChild() const { return HasChildNodes() ? ChildNodes().front() : nullptr; }

    /// In the order of the file; empty for what is no element.
    const std::vector<XmlAttribute>& Attributes() const { return attributes_; }
    /// Null when the element has no such attribute.
    const std::u16string* GetAttribute(std::u16string_view name) const;
    /// Changes the attribute, or adds it behind the others.
    void SetAttribute(std::u16string_view name, std::u16string value);
    /// All of them at once; their names differ.
    void SetAttributes(std::vector<XmlAttribute> attributes) {
        attributes_ = std::move(attributes);
    }

    /// Makes a node the last child; it leaves the parent that it had.
    void AppendChild(XmlNodePtr child);
    /// False, and nothing changes, when the node is no child of this one. Taking many out one after
    /// the other costs no more than looking at them.
    bool RemoveChild(const XmlNode& child);
    /// Whoever holds one of them keeps it.
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
    /// Where children were taken out there are gaps, until somebody looks.
    mutable std::vector<XmlNodePtr> children_;
    mutable std::size_t gaps_ = 0;
    XmlNode* parent_ = nullptr;
    /// Where it stands among the children of its parent.
    std::size_t place_ = 0;
};

/// A whole document: its nodes outside and including the one document element.
using XmlDocument = XmlNode;
using XmlDocumentPtr = std::shared_ptr<XmlDocument>;

QUORVALE_CORE_EXPORT XmlDocumentPtr CreateXmlDocument();
QUORVALE_CORE_EXPORT XmlNodePtr CreateXmlElement(std::u16string name);
QUORVALE_CORE_EXPORT XmlNodePtr CreateXmlText(std::u16string data);

}  // namespace quorvale
