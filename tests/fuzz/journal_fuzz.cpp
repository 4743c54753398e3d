#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "adapters/pugi_xml.h"
#include "platform/plain_xml.h"
#include "platform/xml_text.h"

namespace {

using namespace quorvale;

void Require(bool holds) {
    if (!holds) std::abort();
}

/// The reader without a library takes UTF-8 only.
bool IsForBoth(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xEF\xBB\xBF")) return true;
    for (const std::string_view wide : {"\xFF\xFE"sv, "\xFE\xFF"sv, "<\0?\0"sv, "\0<\0?"sv}) {
        if (bytes.starts_with(wide)) return false;
    }
    const auto declaration = FindXmlDeclaration(bytes);
    return !declaration || !FindDeclaredEncoding(*declaration);
}

}  // namespace

// Whatever bytes are found where a journal should be: both readers make the same of them, and what
// was read can be written and comes back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    for (const bool preserve : {true, false}) {
        XmlReadOptions options;
        options.PreserveWhiteSpace = preserve;
        const XmlReading real = PugiXml().Read(bytes, options);
        if (IsForBoth(bytes)) {
            const XmlReading plain = PlainXml().Read(bytes, options);
            Require(bool(real) == bool(plain));
            if (plain)
                Require(*PlainXml().Write(*plain.Document) == *PugiXml().Write(*real.Document));
        }
        if (!real) {
            Require(!real.ParseError.Reason.empty());
            continue;
        }
        // Without that, white space which stood there as a reference would not come back.
        if (!preserve) continue;
        const std::string written = *PugiXml().Write(*real.Document);
        const XmlReading again = PugiXml().Read(written, options);
        Require(bool(again));
        Require(*PugiXml().Write(*again.Document) == written);
        for (const XmlNodePtr& update : real.Document->SelectNodes(u"update")) {
            Require(update->ParentNode() != nullptr);
        }
    }
    return 0;
}
