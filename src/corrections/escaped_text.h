#pragma once

#include <string>
#include <string_view>

namespace quorvale {

/// Whether XML would not give the text back as it is: control characters but tab and LF, lone
/// surrogates, U+FFFE and U+FFFF.
bool NeedsEscaping(std::u16string_view text);

/// The text with `\u` and four hexadecimal digits for every unit that XML cannot carry and `\\` for
/// every backslash.
std::u16string Escaped(std::u16string_view text);

/// The text that was escaped. A backslash that begins neither form stands for itself.
std::u16string Unescaped(std::u16string_view escaped);

}  // namespace quorvale
