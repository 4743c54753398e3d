#pragma once

#include <string>

#include "platform/files.h"
#include "platform/xml_document.h"

namespace quorvale {

/// What `XmlService::Write` promises, for every service: no library's own writer gives back a
/// carriage return in a text or a tab in an attribute.
FileResult<std::string> WriteXml(const XmlDocument& document);

}  // namespace quorvale
