#pragma once

#include <string>
#include <string_view>

#include "base/export.h"
#include "platform/xml_service.h"

namespace quorvale {

/// XML without any library, for tests and for hosts that have none: UTF-8 only; a document in
/// another encoding cannot be read.
class QUORVALE_CORE_EXPORT PlainXml final : public XmlService {
public:
    XmlReading Read(std::string_view bytes, const XmlReadOptions& options) override;
    FileResult<std::string> Write(const XmlDocument& document) override;
};

/// Wraps another service and lets chosen calls fail.
class QUORVALE_CORE_EXPORT FailingXml final : public XmlService {
public:
    /// The real one must outlive it.
    explicit FailingXml(XmlService& real) : real_(real) {}

    bool FailRead = false;  ///< every document is malformed
    /// Reading fails as for a document over a limit, not as for a malformed one.
    bool RefuseToRead = false;
    bool FailWrite = false;  ///< nothing can be written

    XmlReading Read(std::string_view bytes, const XmlReadOptions& options) override;
    FileResult<std::string> Write(const XmlDocument& document) override;

private:
    XmlService& real_;
};

}  // namespace quorvale
