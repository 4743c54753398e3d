#include "platform/plain_xml.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "base/text.h"
#include "base/utf8.h"
#include "platform/xml_text.h"
#include "platform/xml_tree_builder.h"
#include "platform/xml_writer.h"

namespace quorvale {

namespace {

/// Why and where reading ends.
struct Unreadable {
    XmlParseError Error;
};

bool SameLetters(std::string_view a, std::string_view lowerCase) {
    return std::equal(a.begin(), a.end(), lowerCase.begin(), lowerCase.end(),
                      [](char x, char y) { return (x >= 'A' && x <= 'Z' ? x + 32 : x) == y; });
}

/// One reading, from left to right, of UTF-8 text with line feeds only.
class PlainXmlReader {
public:
    PlainXmlReader(std::string_view text, const XmlReadOptions& options)
        : text_(text), options_(options) {}

    XmlDocumentPtr Read() {
        if (const auto declaration = FindXmlDeclaration(text_)) {
            tree_.Add(XmlKind::Instruction, "xml", *declaration);
            at_ = text_.find("?>") + 2;
        }
        while (at_ < text_.size()) ReadPiece();
        if (!open_.empty()) Fail("An element is not closed");
        std::string reason;
        XmlDocumentPtr document = tree_.Finish(reason);
        if (document == nullptr) Fail(std::move(reason));
        return document;
    }

private:
    [[noreturn]] void Fail(std::string reason) const {
        throw Unreadable{{at_, std::move(reason), false}};
    }

    void CountNode() {
        if (++nodes_ > XmlService::MaxNodes) {
            throw Unreadable{{at_, "The document has too many nodes", true}};
        }
    }

    /// NUL behind the end; the text holds none.
    char Here() const { return at_ < text_.size() ? text_[at_] : '\0'; }

    bool Take(std::string_view expected) {
        if (!text_.substr(at_).starts_with(expected)) return false;
        at_ += expected.size();
        return true;
    }

    void SkipSpace() {
        while (at_ < text_.size() && IsXmlSpace(XmlUnit(text_[at_]))) ++at_;
    }

    std::string_view TakeName() {
        const std::size_t from = at_;
        while (at_ < text_.size() && IsInXmlName(XmlUnit(text_[at_]))) ++at_;
        return text_.substr(from, at_ - from);
    }

    std::string_view TakeUntil(std::string_view end) {
        const std::size_t found = text_.find(end, at_);
        if (found == text_.npos) Fail("A section is not closed");
        const std::string_view taken = text_.substr(at_, found - at_);
        at_ = found + end.size();
        return taken;
    }

    void ReadPiece() {
        if (Take("</")) return ReadEnd();
        CountNode();
        if (Here() != '<') return ReadText();
        ++at_;
        if (BeginsXmlName(XmlUnit(Here()))) return ReadElement();
        if (Take("?")) return ReadInstruction();
        if (Take("!--")) return tree_.Add(XmlKind::Comment, {}, TakeUntil("-->"));
        if (Take("![CDATA[")) return tree_.Add(XmlKind::CData, {}, TakeUntil("]]>"));
        Fail("An unknown tag begins");
    }

    void ReadText() {
        const std::size_t end = std::min(text_.find('<', at_), text_.size());
        const std::string_view raw = text_.substr(at_, end - at_);
        const bool blank =
            std::all_of(raw.begin(), raw.end(), [](char c) { return IsXmlSpace(XmlUnit(c)); });
        if (!blank || options_.PreserveWhiteSpace) tree_.AddText(Resolved(raw));
        at_ = end;
    }

    void ReadElement() {
        if (open_.size() == XmlService::MaxDepth) {
            throw Unreadable{{at_, "The elements are nested too deeply", true}};
        }
        const std::string_view name = TakeName();
        std::vector<XmlAttribute> attributes;
        bool separated = IsXmlSpace(XmlUnit(Here()));
        SkipSpace();
        while (separated && BeginsXmlName(XmlUnit(Here()))) {
            CountNode();
            attributes.push_back(ReadAttribute());
            separated = !BeginsXmlName(XmlUnit(Here()));
            SkipSpace();
        }
        const bool empty = Take("/");
        if (!Take(">")) Fail("A tag does not end where it should");
        if (!tree_.Open(name, std::move(attributes))) Fail("An attribute stands there twice");
        if (empty) return tree_.Close();
        open_.push_back(name);
    }

    XmlAttribute ReadAttribute() {
        const std::string_view name = TakeName();
        SkipSpace();
        if (!Take("=")) Fail("An attribute has no value");
        SkipSpace();
        const char quote = Here();
        if (quote != '"' && quote != '\'') Fail("A value does not stand in quotation marks");
        ++at_;
        std::string value(TakeUntil({&quote, 1}));
        std::replace_if(
            value.begin(), value.end(), [](char c) { return c == '\t' || c == '\n'; }, ' ');
        return {FromUtf8(name), FromUtf8(Resolved(value))};
    }

    void ReadEnd() {
        const std::string_view name = TakeName();
        if (open_.empty() || open_.back() != name) Fail("An end tag does not fit");
        SkipSpace();
        if (!Take(">")) Fail("A tag does not end where it should");
        open_.pop_back();
        tree_.Close();
    }

    void ReadInstruction() {
        if (!BeginsXmlName(XmlUnit(Here()))) Fail("An instruction has no name");
        const std::string_view name = TakeName();
        // A declaration that does not stand at the start says nothing.
        if (IsXmlDeclarationName(name)) {
            TakeUntil("?>");
            return;
        }
        const bool separated = IsXmlSpace(XmlUnit(Here()));
        SkipSpace();
        const std::string_view data = TakeUntil("?>");
        if (!separated && !data.empty()) Fail("An instruction's name does not end");
        tree_.Add(XmlKind::Instruction, name, data);
    }

    /// The text with its references replaced. What only looks like one stands for itself.
    std::string Resolved(std::string_view text) const {
        std::string out;
        std::size_t from = 0;
        for (std::size_t hit = text.find('&'); hit != text.npos; hit = text.find('&', from)) {
            out += text.substr(from, hit - from);
            from = hit + ResolveOne(text.substr(hit), out);
        }
        return out += text.substr(from);
    }

    /// How many characters the reference at the front takes.
    std::size_t ResolveOne(std::string_view text, std::string& out) const {
        static constexpr std::pair<std::string_view, char> named[] = {
            {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};
        for (const auto& [reference, character] : named) {
            if (!text.starts_with(reference)) continue;
            out += character;
            return reference.size();
        }
        const XmlReference number =
            text.starts_with("&#") ? ReadXmlReference(text) : XmlReference{};
        if (number.Length == 0) {
            out += '&';
            return 1;
        }
        if (number.Code == 0) Fail("A reference names no character");
        AppendUtf8(out, number.Code);
        return number.Length;
    }

    std::string_view text_;
    const XmlReadOptions& options_;
    std::size_t at_ = 0;
    std::size_t nodes_ = 0;
    std::vector<std::string_view> open_;
    XmlTreeBuilder tree_;
};

/// Nothing when the bytes are UTF-8 text without NUL.
std::optional<XmlParseError> FaultOf(std::string_view bytes) {
    if (bytes.size() > XmlService::MaxBytes) {
        return XmlParseError{0, "The document is too large", true};
    }
    const std::span<const std::uint8_t> all(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                            bytes.size());
    const std::size_t valid = std::min(ValidUtf8Prefix(all).Valid, bytes.find('\0'));
    if (valid < bytes.size()) return XmlParseError{valid, "A byte is not valid", false};
    return std::nullopt;
}

}  // namespace

XmlReading PlainXml::Read(std::string_view bytes, const XmlReadOptions& options) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (bytes.starts_with(mark)) {
        bytes.remove_prefix(mark.size());
    } else if (const auto declaration = FindXmlDeclaration(bytes)) {
        const auto encoding = FindDeclaredEncoding(*declaration);
        if (encoding && !SameLetters(encoding->Name, "utf-8")) {
            return {nullptr, {0, "The encoding cannot be read", true}};
        }
    }
    if (auto fault = FaultOf(bytes)) return {nullptr, std::move(*fault)};
    std::string text(bytes);
    NormaliseXmlLines(text);
    try {
        return {PlainXmlReader(text, options).Read(), {}};
    } catch (const Unreadable& unreadable) {
        return {nullptr, unreadable.Error};
    }
}

FileResult<std::string> PlainXml::Write(const XmlDocument& document) { return WriteXml(document); }

XmlReading FailingXml::Read(std::string_view bytes, const XmlReadOptions& options) {
    if (FailRead || RefuseToRead) return {nullptr, {0, "Reading was made to fail", RefuseToRead}};
    return real_.Read(bytes, options);
}

FileResult<std::string> FailingXml::Write(const XmlDocument& document) {
    if (FailWrite) return FileFailure{"write XML", u"", "Writing was made to fail"};
    return real_.Write(document);
}

}  // namespace quorvale
