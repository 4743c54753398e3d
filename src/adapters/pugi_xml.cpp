#include "adapters/pugi_xml.h"

#include <cstddef>
#include <pugixml.hpp>
#include <utility>
#include <vector>

#include "adapters/xml_decoding.h"
#include "adapters/xml_scan.h"
#include "base/text.h"
#include "platform/xml_text.h"
#include "platform/xml_tree_builder.h"
#include "platform/xml_writer.h"

namespace quorvale {

namespace {

// As a fragment, because text beside the document's element would else be dropped without a word.
constexpr unsigned parsing = pugi::parse_fragment | pugi::parse_cdata | pugi::parse_comments |
                             pugi::parse_pi | pugi::parse_escapes | pugi::parse_eol |
                             pugi::parse_wconv_attribute;

/// Hands a parsed tree over, node by node.
class PugiWalk final : public pugi::xml_tree_walker {
public:
    explicit PugiWalk(XmlTreeBuilder& tree) : tree_(tree) {}

    /// False when an attribute stands there twice.
    bool Pass(pugi::xml_node document) {
        const bool passed = document.traverse(*this);
        CloseTo(0);
        return passed;
    }

    bool for_each(pugi::xml_node& node) override {
        CloseTo(static_cast<std::size_t>(depth()));
        switch (node.type()) {
            case pugi::node_element:
                return tree_.Open(node.name(), AttributesOf(node));
            case pugi::node_pcdata:
                tree_.AddText(node.value());
                return true;
            case pugi::node_cdata:
                tree_.Add(XmlKind::CData, {}, node.value());
                return true;
            case pugi::node_comment:
                tree_.Add(XmlKind::Comment, {}, node.value());
                return true;
            case pugi::node_pi:
                tree_.Add(XmlKind::Instruction, node.name(), node.value());
                return true;
            default:
                return true;
        }
    }

private:
    void CloseTo(std::size_t depth) {
        while (tree_.Depth() > depth) tree_.Close();
    }

    static std::vector<XmlAttribute> AttributesOf(pugi::xml_node node) {
        std::vector<XmlAttribute> attributes;
        for (const pugi::xml_attribute attribute : node.attributes()) {
            attributes.push_back({FromUtf8(attribute.name()), FromUtf8(attribute.value())});
        }
        return attributes;
    }

    XmlTreeBuilder& tree_;
};

XmlReading Refused(XmlParseError error) { return {nullptr, std::move(error)}; }

}  // namespace

XmlReading PugiXml::Read(std::string_view bytes, const XmlReadOptions& options) {
    std::string text;
    if (auto fault = DecodeXml(bytes, text)) return Refused(std::move(*fault));
    if (auto fault = ScanXml(text)) return Refused(std::move(*fault));
    // The parser's last character is its own: give it one that nobody misses.
    text += '\n';

    XmlTreeBuilder tree;
    // The parser leaves a declaration out; the one at the start is kept.
    if (const auto declaration = FindXmlDeclaration(text)) {
        tree.Add(XmlKind::Instruction, "xml", *declaration);
    }
    const unsigned flags = options.PreserveWhiteSpace ? parsing | pugi::parse_ws_pcdata : parsing;
    pugi::xml_document parsed;
    const pugi::xml_parse_result result =
        parsed.load_buffer_inplace(text.data(), text.size(), flags, pugi::encoding_utf8);
    if (!result) {
        const bool memory = result.status == pugi::status_out_of_memory;
        return Refused({static_cast<std::size_t>(result.offset), result.description(), memory});
    }
    if (!PugiWalk(tree).Pass(parsed)) return Refused({0, "An attribute stands there twice", false});
    std::string reason;
    XmlDocumentPtr document = tree.Finish(reason);
    if (document == nullptr) return Refused({0, std::move(reason), false});
    return {std::move(document), {}};
}

FileResult<std::string> PugiXml::Write(const XmlDocument& document) { return WriteXml(document); }

}  // namespace quorvale
