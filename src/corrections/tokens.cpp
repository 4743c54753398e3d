#include "corrections/tokens.h"

#include <utility>

namespace quorvale {

std::u16string TakeFirstToken(std::u16string& text, char16_t separator) {
    const std::size_t at = text.find(separator);
    if (at == text.npos) return std::exchange(text, {});
    std::u16string token = text.substr(0, at);
    text.erase(0, at + 1);
    return token;
}

std::u16string TakeLastToken(std::u16string& text, char16_t separator) {
    const std::size_t at = text.rfind(separator);
    if (at == text.npos) return std::exchange(text, {});
    std::u16string token = text.substr(at + 1);
    text.erase(at);
    return token;
}

}  // namespace quorvale
