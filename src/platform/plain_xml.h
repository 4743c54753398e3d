#pragma once

#include <string>
#include <string_view>

#include "platform/xml_service.h"

namespace quorvale {

/// XML without any library, for tests and for hosts that have none: UTF-8 only; a document in
/// another encoding cannot be read.
class PlainXml final : public XmlService {
public:
    XmlReading Read(std::string_view bytes, const XmlReadOptions& options) override;
    FileResult<std::string> Write(const XmlDocument& document) override;
};

/// Wraps another service and lets chosen calls fail.
class FailingXml final : public XmlService {
public:
    explicit FailingXml(XmlService& real) : real_(real) {}

    bool FailRead = false;
    /// Reading fails as for a document over a limit, not as for a malformed one.
    bool RefuseToRead = false;
    bool FailWrite = false;

    XmlReading Read(std::string_view bytes, const XmlReadOptions& options) override;
    FileResult<std::string> Write(const XmlDocument& document) override;

private:
    XmlService& real_;
};

}  // namespace quorvale
