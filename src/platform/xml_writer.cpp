#include "platform/xml_writer.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "base/utf8.h"
#include "platform/xml_text.h"

namespace quorvale {

namespace {

/// Why a tree cannot be written.
struct Unwritable {
    std::string Reason;
};

class XmlWriter {
public:
    explicit XmlWriter(const XmlLimits& limits) : limits_(limits) {}

    std::string Write(const XmlDocument& document) {
        const auto& nodes = document.ChildNodes();
        const auto elements = std::count_if(nodes.begin(), nodes.end(), [](const XmlNodePtr& node) {
            return node->Kind() == XmlKind::Element;
        });
        if (elements != 1) throw Unwritable{"A document has one element, and this one does not"};
        for (const XmlNodePtr& node : nodes) {
            if (node->Kind() == XmlKind::Text || node->Kind() == XmlKind::CData) {
                throw Unwritable{"There is text beside the document's element"};
            }
            const bool first = node == nodes.front();
            if (first && node->Kind() == XmlKind::Instruction && node->Name() == u"xml") {
                WriteDeclaration(*node);
            } else {
                WriteNode(*node, 1);
            }
        }
        CheckSize();
        return std::move(out_);
    }

private:
    enum class Place { Text, Attribute };

    void WriteDeclaration(const XmlNode& node) {
        std::string data = ToUtf8(node.Data());
        // The bytes are UTF-8, whatever they were when the document was read.
        while (const auto encoding = FindDeclaredEncoding(data)) {
            std::size_t end = encoding->From + encoding->Size;
            while (end < data.size() && IsXmlSpace(XmlUnit(data[end]))) ++end;
            data.erase(encoding->From, end - encoding->From);
        }
        while (!data.empty() && IsXmlSpace(XmlUnit(data.back()))) data.pop_back();
        if (data.find("?>") != data.npos) throw Unwritable{"An instruction holds its own end"};
        if (data.empty()) return;
        Count();
        out_.append("<?xml ").append(data).append("?>");
    }

    void Count() {
        if (++nodes_ > limits_.Nodes) throw Unwritable{"The document has too many nodes"};
        CheckSize();
    }

    void CheckSize() const {
        if (out_.size() > limits_.Bytes) throw Unwritable{"The document is too large"};
    }

    void WriteNode(const XmlNode& node, std::size_t depth) {
        // A text without characters is not written.
        if (node.Kind() != XmlKind::Text || !node.Data().empty()) Count();
        switch (node.Kind()) {
            case XmlKind::Element:
                return WriteElement(node, depth);
            case XmlKind::Text:
                return WriteEscaped(node.Data(), Place::Text);
            case XmlKind::CData:
                return WriteBetween("<![CDATA[", node.Data(), "]]>");
            case XmlKind::Comment:
                return WriteBetween("<!--", node.Data(), "-->");
            case XmlKind::Instruction:
                return WriteInstruction(node);
            case XmlKind::Document:
                throw Unwritable{"A document stands inside another"};
        }
    }

    void WriteElement(const XmlNode& node, std::size_t depth) {
        if (depth > limits_.Depth) throw Unwritable{"The elements are nested too deeply"};
        out_ += '<';
        WriteName(node.Name());
        for (const XmlAttribute& attribute : node.Attributes()) {
            Count();
            out_ += ' ';
            WriteName(attribute.Name);
            out_ += "=\"";
            WriteEscaped(attribute.Value, Place::Attribute);
            out_ += '"';
        }
        if (!node.HasChildNodes()) {
            out_ += "/>";
            return;
        }
        out_ += '>';
        for (const XmlNodePtr& child : node.ChildNodes()) WriteNode(*child, depth + 1);
        out_ += "</";
        WriteName(node.Name());
        out_ += '>';
    }

    void WriteInstruction(const XmlNode& node) {
        if (IsXmlDeclarationName(ToUtf8(node.Name()))) {
            throw Unwritable{"A declaration stands where none may"};
        }
        out_ += "<?";
        WriteName(node.Name());
        if (!node.Data().empty()) out_ += ' ';
        WriteBetween("", node.Data(), "?>");
    }

    void WriteName(std::u16string_view name) {
        if (name.empty() || !BeginsXmlName(name[0]) ||
            !std::all_of(name.begin(), name.end(), IsInXmlName)) {
            throw Unwritable{"A name holds a character that no name can"};
        }
        for (std::size_t i = 0; i < name.size(); ++i) WriteRaw(name, i);
    }

    /// Data that nothing can be escaped in.
    void WriteBetween(std::string_view opening, std::u16string_view data,
                      std::string_view closing) {
        const std::u16string end(closing.begin(), closing.end());
        // The end may begin with the data's own last characters.
        if ((std::u16string(data) + end).find(end) != data.size()) {
            throw Unwritable{"A section holds its own end"};
        }
        if (data.find(u'\r') != data.npos) {
            throw Unwritable{"A carriage return stands where it cannot be written"};
        }
        out_ += opening;
        for (std::size_t i = 0; i < data.size(); ++i) WriteRaw(data, i);
        out_ += closing;
    }

    void WriteEscaped(std::u16string_view text, Place place) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char16_t unit = text[i];
            if (unit == u'&') {
                out_ += "&amp;";
            } else if (unit == u'<') {
                out_ += "&lt;";
            } else if (unit == u'>' && out_.ends_with("]]")) {
                out_ += "&gt;";
            } else if (unit == u'"' && place == Place::Attribute) {
                out_ += "&quot;";
            } else if (NeedsReference(unit, place)) {
                out_.append("&#").append(std::to_string(unit)).append(";");
            } else {
                WriteRaw(text, i);
            }
        }
    }

    /// What would not come back as it is, and what XML does not allow.
    static bool NeedsReference(char16_t unit, Place place) {
        if (unit == u'\t' || unit == u'\n') return place == Place::Attribute;
        return (unit != 0 && unit < u' ') || unit >= 0xFFFE;
    }

    /// The character at `i`, where `i` may move over the second half of a pair.
    void WriteRaw(std::u16string_view text, std::size_t& i) {
        const char16_t unit = text[i];
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            return AppendUtf8(out_, FromSurrogates(unit, text[++i]));
        }
        if (unit == 0 || IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            throw Unwritable{"A text holds a character that XML cannot carry"};
        }
        AppendUtf8(out_, unit);
    }

    const XmlLimits& limits_;
    std::string out_;
    std::size_t nodes_ = 0;
};

}  // namespace

FileResult<std::string> WriteXml(const XmlDocument& document, const XmlLimits& limits) {
    try {
        return XmlWriter(limits).Write(document);
    } catch (const Unwritable& unwritable) {
        return FileFailure{"write XML", u"", unwritable.Reason};
    }
}

}  // namespace quorvale
