#include <charconv>
#include <cstdint>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "log_file.h"

namespace {

constexpr const char* Usage =
    "make-log FILE [--size BYTES] [--lines COUNT] [--seed N] [--last-line TEXT]\n"
    "Writes a log file for measuring; the same options give the same file.\n"
    "A size may end in K, M or G (1024, 1024^2, 1024^3 bytes).\n";

std::uint64_t ReadNumber(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const std::string_view unit = text.substr(static_cast<std::size_t>(end - text.data()));
    unsigned shift = 0;
    if (unit == "K") shift = 10;
    if (unit == "M") shift = 20;
    if (unit == "G") shift = 30;
    if (error != std::errc{} || (!unit.empty() && shift == 0)) {
        throw std::invalid_argument("not a number: " + std::string(text));
    }
    return number << shift;
}

}  // namespace

int main(int argc, char** argv) {
    std::string path;
    quorvale::bench::LogShape shape;
    try {
        for (int i = 1; i < argc; ++i) {
            const std::string_view option = argv[i];
            const bool takesValue = option.starts_with("--");
            if (takesValue && i + 1 == argc) throw std::invalid_argument("a value is missing");
            if (!takesValue) {
                path = option;
            } else if (option == "--size") {
                shape.Bytes = ReadNumber(argv[++i]);
            } else if (option == "--lines") {
                shape.Lines = ReadNumber(argv[++i]);
            } else if (option == "--seed") {
                shape.Seed = ReadNumber(argv[++i]);
            } else if (option == "--last-line") {
                shape.LastLine = argv[++i];
            } else {
                throw std::invalid_argument("unknown option " + std::string(option));
            }
        }
        if (path.empty()) throw std::invalid_argument("no file is named");
        quorvale::bench::WriteLog(path, shape);
    } catch (const std::exception& error) {
        std::cerr << "make-log: " << error.what() << "\n" << Usage;
        return 1;
    }
    return 0;
}
