#pragma once

#include <cstdint>
#include <string>

namespace quorvale::bench {

/// What a generated log looks like. The same shape gives the same bytes on every machine.
struct LogShape {
    std::uint64_t Bytes = 100'000'000;  ///< of the whole file, line breaks included
    std::uint64_t Lines = 1'000'000;    ///< all end with a line feed; a line takes 8 bytes or more
    std::uint64_t Seed = 1;
    std::string LastLine;  ///< UTF-8 added at the end as one more line, if not empty
};

/// Writes ASCII log text. Each line that is long enough names its own number ("#5000000"), so that
/// what is shown can be checked. Throws std::runtime_error if the file cannot be written, and
/// std::invalid_argument for lines that are too short.
void WriteLog(const std::string& path, const LogShape& shape);

}  // namespace quorvale::bench
