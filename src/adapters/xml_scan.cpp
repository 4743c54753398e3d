#include "adapters/xml_scan.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "platform/xml_text.h"

namespace quorvale {

namespace {

/// Goes over the text tag by tag. Where the text is malformed it may see other tags than the parser
/// does, but only behind the place at which the parser stops.
class XmlScan {
public:
    explicit XmlScan(std::string_view text) : text_(text) {}

    std::optional<XmlParseError> Run() {
        // The parser would skip a second byte order mark.
        if (text_.starts_with("\xEF\xBB\xBF")) Refuse("There is text beside the element", false);
        while (!fault_ && at_ < text_.size()) {
            if (text_[at_] == '<') {
                PassTag();
            } else {
                const std::size_t end = std::min(text_.find('<', at_), text_.size());
                CountNode();
                CheckReferences(end);
                at_ = end;
            }
        }
        return std::move(fault_);
    }

private:
    void Refuse(std::string reason, bool overLimit) {
        if (!fault_) fault_ = XmlParseError{at_, std::move(reason), overLimit};
    }

    void CountNode() {
        if (++nodes_ > XmlService::MaxNodes) Refuse("The document has too many nodes", true);
    }

    void PassTag() {
        const std::string_view rest = text_.substr(at_);
        // The parser lets one pass that stands behind white space.
        if (rest.size() == 1) return Refuse("A tag begins at the very end", false);
        if (rest.starts_with("</")) {
            if (depth_ > 0) --depth_;
            return PassUntil(">");
        }
        CountNode();
        if (rest.starts_with("<!--")) {
            at_ += 4;
            PassUntil("-->");
        } else if (rest.starts_with("<![CDATA[")) {
            PassUntil("]]>");
        } else if (rest.starts_with("<!")) {
            Refuse("A document type declaration is not taken", false);
        } else if (rest.starts_with("<?")) {
            PassUntil("?>");
        } else {
            PassStart();
        }
    }

    void PassUntil(std::string_view end) {
        const std::size_t found = text_.find(end, at_);
        at_ = found == text_.npos ? text_.size() : found + end.size();
    }

    void PassStart() {
        if (++depth_ > XmlService::MaxDepth) Refuse("The elements are nested too deeply", true);
        while (true) {
            at_ = text_.find_first_of("\"'>", at_);
            if (at_ == text_.npos) {
                at_ = text_.size();
                return;
            }
            if (text_[at_] == '>') break;
            const std::size_t end = std::min(text_.find(text_[at_], at_ + 1), text_.size() - 1);
            CountNode();
            CheckReferences(end);
            at_ = end + 1;
        }
        if (text_[at_ - 1] == '/') --depth_;
        ++at_;
    }

    /// From here to `end`.
    void CheckReferences(std::size_t end) {
        const std::string_view piece = text_.substr(at_, end - at_);
        for (std::size_t hit = piece.find("&#"); hit != piece.npos;
             hit = piece.find("&#", hit + 2)) {
            const XmlReference reference = ReadXmlReference(piece.substr(hit));
            if (reference.Length == 0 || reference.Code != 0) continue;
            at_ += hit;
            return Refuse("A reference names no character", false);
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t depth_ = 0;
    std::size_t nodes_ = 0;
    std::optional<XmlParseError> fault_;
};

}  // namespace

std::optional<XmlParseError> ScanXml(std::string_view text) { return XmlScan(text).Run(); }

}  // namespace quorvale
