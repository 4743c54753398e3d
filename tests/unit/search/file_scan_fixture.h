#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/memory_files.h"
#include "search/file_scan.h"

namespace quorvale {

/// A result as it is written in a test.
struct FoundLine {
    std::int32_t Line;
    std::int32_t Column;
    std::string Text;

    bool operator==(const FoundLine&) const = default;
};

inline void PrintTo(const FoundLine& found, std::ostream* out) {
    *out << found.Line << ':' << found.Column << " \"" << found.Text << '"';
}

/// Searches files in memory.
struct FileScanRig {
    MemoryFiles Files;
    ResultStore Store;
    SearchKernel Kernel = BestSearchKernel();
    std::size_t Capacity = FileScan::UsualCapacity;

    bool Search(FileSystem& files, const std::u16string& name, std::u16string_view typed,
                LineQuery::Kind kind, Encoding encoding, const FileScan::GoOn& goOn) {
        const LineQuery query(typed, kind, CaseTableOf(nullptr), Kernel);
        return FileScan(files, encoding, query, Store, Kernel, Capacity).Search(name, goOn);
    }

    std::vector<FoundLine> Find(const std::string& bytes, std::u16string_view typed,
                                LineQuery::Kind kind = LineQuery::Kind::Plain,
                                Encoding encoding = Encoding::SingleByte) {
        Files.Put(u"/f", bytes);
        Store = {};
        Search(Files, u"/f", typed, kind, encoding, [](auto, auto) { return true; });
        return Found();
    }

    std::vector<FoundLine> Found() const {
        std::vector<FoundLine> found;
        for (std::size_t i = 0; i < Store.Count(); ++i) {
            const auto result = Store[i];
            found.push_back({result.Line.Number(), result.Column,
                             ToUtf8(TextOfLine(result.Text, result.Form))});
        }
        return found;
    }
};

}  // namespace quorvale
