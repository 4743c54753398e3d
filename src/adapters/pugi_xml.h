#pragma once

#include <string>
#include <string_view>

#include "base/export.h"
#include "platform/xml_service.h"

namespace quorvale {

/// XML read with pugixml, in every encoding that `XmlService` knows of.
class QUORVALE_CORE_EXPORT PugiXml final : public XmlService {
public:
    XmlReading Read(std::string_view bytes, const XmlReadOptions& options) override;
    FileResult<std::string> Write(const XmlDocument& document) override;
};

}  // namespace quorvale
