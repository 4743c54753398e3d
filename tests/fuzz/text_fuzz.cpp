#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/text.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

// Any bytes can be read as UTF-8 for a message, and what was read is written and read back the
// same; UTF-16 with lone surrogates is written as valid UTF-8.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const std::u16string read = quorvale::FromUtf8(bytes);
    Require(quorvale::FromUtf8(quorvale::ToUtf8(read)) == read);

    std::u16string units;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        units.push_back(static_cast<char16_t>(data[i] << 8 | data[i + 1]));
    }
    const std::string written = quorvale::ToUtf8(units);
    Require(quorvale::ToUtf8(quorvale::FromUtf8(written)) == written);
    return 0;
}
