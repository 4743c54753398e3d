#pragma once

#include <optional>
#include <string_view>

#include "platform/xml_service.h"

namespace quorvale {

/// Looks a document over before it is given to a lenient parser, and refuses what that parser would
/// let pass and must not: a document type declaration, a reference to NUL or to no character at
/// all, and whatever is over a limit. The text is UTF-8 without NUL. Other faults are left to the
/// parser.
std::optional<XmlParseError> ScanXml(std::string_view text);

}  // namespace quorvale
