#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/export.h"
#include "platform/files.h"
#include "platform/xml_document.h"

namespace quorvale {

/// How a document is to be read.
struct XmlReadOptions {
    /// A document that breaks a rule of XML is refused, not mended.
    bool ValidateOnParse = true;
    /// Text that is white space only is kept as a node.
    bool PreserveWhiteSpace = false;
    /// Reading may go on after the call; nothing here ever asks for that.
    bool Async = false;
};

/// Where and why reading stopped.
struct XmlParseError {
    /// 0-based byte.
    std::size_t Position = 0;
    std::string Reason;  ///< for people
    /// Nothing says that the document is malformed: it is over a limit, or in an encoding that is
    /// not read here. Whoever would throw a malformed file away keeps such a one.
    bool CannotBeRead = false;
};

/// A document, or why there is none.
struct XmlReading {
    XmlDocumentPtr Document;   ///< null when it could not be read
    XmlParseError ParseError;  ///< of no meaning when it could

    /// Whether there is a document.
    explicit operator bool() const { return Document != nullptr; }
};

/// Reads and writes XML. What is read may come from an enemy: a document type declaration is
/// refused as malformed, and nothing is ever fetched or expanded; what is over a limit cannot be
/// read. Attributes count as nodes, and so does every stretch of text.
class QUORVALE_CORE_EXPORT XmlService {
public:
    /// The largest document that is read.
    static constexpr std::size_t MaxBytes = std::size_t{1} << 30;
    /// The deepest nesting of elements that is read.
    static constexpr std::size_t MaxDepth = 256;
    /// The greatest number of nodes that is read.
    static constexpr std::size_t MaxNodes = 5'000'000;

    virtual ~XmlService() = default;

    /// The encoding is told by a byte order mark, else by the declaration, else it is UTF-8; bytes
    /// that are not valid in it make the document malformed. There must be exactly one document
    /// element, no text beside it, and no attribute twice; line ends become line feeds. Small sins
    /// are let pass: a lone "&" stands for itself, names may hold any character beyond ASCII, and
    /// control characters are taken as they are, but for NUL.
    virtual XmlReading Read(std::string_view bytes, const XmlReadOptions& options) = 0;

    /// UTF-8 without a byte order mark, nothing indented, line feeds alone, no declaration that
    /// names another encoding. Whatever `Read` can deliver can be written, unless it grows over a
    /// limit on the way, and comes back the same: characters that XML does not allow become numeric
    /// references, which `Read` takes though other tools do not. Fails for NUL, for lone
    /// surrogates, for a tree that is no document, and for one that could not be read again because
    /// of a limit.
    virtual FileResult<std::string> Write(const XmlDocument& document) = 0;
};

}  // namespace quorvale
