#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/xml_service.h"

namespace quorvale {

/// Makes UTF-8 with line feeds of a document's bytes, whatever their encoding: told by a byte order
/// mark, else by the declaration (UTF-8, UTF-16, US-ASCII, ISO-8859-1, Windows-1252), else UTF-8.
/// Gives back why that is impossible; NUL is no character.
std::optional<XmlParseError> DecodeXml(std::string_view bytes, std::string& text);

}  // namespace quorvale
