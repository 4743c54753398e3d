#include "resources/message_format.h"

#include "base/text.h"

namespace quorvale {

std::u16string FormatMessage(std::u16string_view pattern, std::u16string_view value) {
    return ReplaceAll(pattern, u"%1", value);
}

}  // namespace quorvale
