#include "log_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace quorvale::bench {
namespace {

constexpr std::uint64_t ShortestLine = 8;
constexpr std::size_t BlockSize = 1 << 20;

constexpr std::array<std::string_view, 4> Levels = {"INFO ", "DEBUG", "WARN ", "ERROR"};
constexpr std::array<std::string_view, 32> Words = {
    "request",  "accepted", "from",   "cache",    "thread",  "marker", "session",  "opened",
    "closed",   "after",    "retry",  "timeout",  "waiting", "for",    "lock",     "on",
    "table",    "index",    "page",   "written",  "to",      "disk",   "checksum", "matches",
    "snapshot", "queue",    "length", "exceeded", "worker",  "idle",   "reply",    "sent"};

/// A small generator whose sequence is ours: the standard distributions differ between libraries.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31);
    }

private:
    std::uint64_t state_;
};

/// One line of a given length, put together piece by piece; what does not fit is cut off.
class LineWriter {
public:
    LineWriter(char* begin, std::uint64_t length) : at_(begin), end_(begin + length) {}

    void Put(std::string_view piece) {
        const std::size_t count = std::min(piece.size(), static_cast<std::size_t>(end_ - at_));
        std::memcpy(at_, piece.data(), count);
        at_ += count;
    }

    void PutNumber(std::uint64_t number, std::size_t digits = 0) {
        std::array<char, 20> text;
        char* end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
        const auto count = static_cast<std::size_t>(end - text.data());
        for (std::size_t i = count; i < digits; ++i) Put("0");
        Put({text.data(), count});
    }

    bool IsFull() const { return at_ == end_; }

private:
    char* at_;
    char* end_;
};

void FillLine(char* begin, std::uint64_t length, std::uint64_t number, Random& random) {
    LineWriter line(begin, length - 1);
    const std::uint64_t bits = random.Next();
    const std::uint64_t second = number / 100;
    line.PutNumber(second / 3600 % 24, 2);
    line.Put(":");
    line.PutNumber(second / 60 % 60, 2);
    line.Put(":");
    line.PutNumber(second % 60, 2);
    line.Put(" #");
    line.PutNumber(number);
    line.Put(" ");
    line.Put(Levels[(bits & 15) < 12 ? 0 : bits & 3]);
    line.Put(" [worker-");
    line.PutNumber(bits >> 4 & 31, 2);
    line.Put("]");
    for (std::uint64_t left = 0; !line.IsFull(); left >>= 5) {
        if (left == 0) left = random.Next() | 1;
        line.Put(" ");
        line.Put(Words[left & 31]);
    }
    begin[length - 1] = '\n';
}

/// Where line `number` ends: near its share of the file, a quarter of a line to and fro.
std::uint64_t EndOfLine(const LogShape& shape, std::uint64_t number, Random& random) {
    if (number == shape.Lines) return shape.Bytes;
    const std::uint64_t mean = shape.Bytes / shape.Lines;
    const std::uint64_t rest = shape.Bytes % shape.Lines;
    // rest < Lines, and no file has 2^32 lines: the product fits.
    const std::uint64_t share = mean * number + rest * number / shape.Lines;
    const std::uint64_t sway = mean / 2;
    return share - sway / 2 + random.Next() % (sway + 1);
}

}  // namespace

void WriteLog(const std::string& path, const LogShape& shape) {
    if (shape.Lines == 0 || shape.Lines >> 32 != 0 || shape.Bytes / shape.Lines < ShortestLine) {
        throw std::invalid_argument("a log line takes 8 bytes or more");
    }
    std::ofstream file(path, std::ios::binary);
    std::string block;
    Random random(shape.Seed);
    std::uint64_t end = 0;
    for (std::uint64_t number = 1; number <= shape.Lines; ++number) {
        const std::uint64_t start = end;
        end = EndOfLine(shape, number, random);
        const std::size_t used = block.size();
        block.resize(used + static_cast<std::size_t>(end - start));
        FillLine(block.data() + used, end - start, number, random);
        if (block.size() >= BlockSize || number == shape.Lines) {
            file.write(block.data(), static_cast<std::streamsize>(block.size()));
            block.clear();
        }
    }
    if (!shape.LastLine.empty()) file << shape.LastLine << '\n';
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
}

}  // namespace quorvale::bench
