#include "corrections/update.h"

#include <limits>
#include <utility>

#include "base/errors.h"
#include "base/numbers_in_text.h"
#include "corrections/escaped_text.h"

namespace quorvale {

namespace {

// What journals hold; a journal of others may have anything that is a number.
std::optional<std::int32_t> PlainNumber(std::u16string_view text) {
    if (text.empty() || text.size() > 9) return std::nullopt;
    std::int32_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') return std::nullopt;
        number = number * 10 + (unit - u'0');
    }
    return number;
}

std::optional<std::int32_t> Number(const XmlNode& update, std::u16string_view name) {
    const std::u16string* text = update.GetAttribute(name);
    if (text == nullptr) return std::nullopt;
    if (const auto number = PlainNumber(*text)) return number;
    try {
        return ToLong(std::u16string_view(*text));
    } catch (const ControlError&) {
        return std::nullopt;
    }
}

}  // namespace

XmlNodePtr CreateUpdate(UpdateRange range, std::u16string_view text) {
    XmlNodePtr update = CreateXmlElement(u"update");
    update->SetAttribute(u"start", DecimalText(range.Start));
    update->SetAttribute(u"loc", DecimalText(range.Count));
    if (NeedsEscaping(text)) {
        update->SetAttribute(u"escaped", u"1");
        update->AppendChild(CreateXmlText(Escaped(text)));
    } else {
        update->AppendChild(CreateXmlText(std::u16string(text)));
    }
    return update;
}

std::optional<UpdateRange> RangeOf(const XmlNode& update) {
    const auto start = Number(update, u"start");
    const auto count = Number(update, u"loc");
    if (!start || !count || *count < 0) return std::nullopt;
    if (std::int64_t{*start} + *count > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return UpdateRange{*start, *count};
}

bool HoldsOneText(const XmlNode& update) {
    if (!update.HasChildNodes()) return true;
    const std::vector<XmlNodePtr>& children = update.ChildNodes();
    if (children.size() > 1) return false;
    const XmlKind kind = children.front()->Kind();
    return kind == XmlKind::Text || kind == XmlKind::CData;
}

std::u16string UpdateText(const XmlNode& update) {
    const XmlNodePtr first = update.FirstChild();
    if (first == nullptr) return {};
    if (first->Kind() != XmlKind::Text && first->Kind() != XmlKind::CData) return {};
    const std::u16string* escaped = update.GetAttribute(u"escaped");
    return escaped != nullptr && *escaped == u"1" ? Unescaped(first->Data()) : first->Data();
}

std::vector<std::u16string> LinesOfUpdate(std::u16string_view text) {
    std::vector<std::u16string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(u'\n');
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return lines;
}

}  // namespace quorvale
