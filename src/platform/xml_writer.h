#pragma once

#include <cstddef>
#include <string>

#include "platform/files.h"
#include "platform/xml_document.h"
#include "platform/xml_service.h"

namespace quorvale {

/// How much may be written: no more than can be read again.
struct XmlLimits {
    std::size_t Bytes = XmlService::MaxBytes;
    std::size_t Depth = XmlService::MaxDepth;
    std::size_t Nodes = XmlService::MaxNodes;
};

/// What `XmlService::Write` promises, for every service: no library's own writer gives back a
/// carriage return in a text or a tab in an attribute.
FileResult<std::string> WriteXml(const XmlDocument& document, const XmlLimits& limits = {});

}  // namespace quorvale
