#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "document/largest_file.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "search/line_filter.h"
#include "search/line_query.h"
#include "search/result_store.h"

namespace quorvale {

/// Searches files for matching lines, one after the other, through one buffer. A file is read in
/// large pieces up to the size it had when it was opened; a line feed ends a line, one CR before it
/// is dropped, and a final line break adds no line.
class FileScan {
public:
    /// Small enough for what was read to be in the processor's cache when it is searched.
    static constexpr std::size_t UsualCapacity = std::size_t{1} << 18;
    /// All of them must outlive this object. A line longer than the buffer gets a larger one; one
    /// longer than `longestLine`, which no document could hold, ends the search of its file: it is
    /// in the image of a disk or the like, and must not take all memory.
    FileScan(FileSystem& files, Encoding encoding, const LineQuery& query, ResultStore& store,
             SearchKernel kernel = BestSearchKernel(), std::size_t capacity = UsualCapacity,
             std::size_t longestLine = mostFileBytes);

    /// Told how many bytes of the file are done, and how many it has; false ends the search.
    using GoOn = std::function<bool(std::uint64_t done, std::uint64_t size)>;

    /// Puts the matching lines of the file into the store. A file that cannot be opened has none,
    /// one that cannot be read to its end those in front of the failure. False when `goOn` ended
    /// it: what was found stays.
    /// Overflow for a number of lines beyond 32 bits; InvalidValue for an invalid pattern.
    bool Search(const std::u16string& name, const GoOn& goOn);

private:
    enum class End { Done, NotUtf8, Stopped };

    End SearchStream(ReadStream& stream, const GoOn& goOn);
    bool MakeRoom();
    std::size_t WholeLines(std::size_t filled) const;
    void TakeForSingleBytes();
    bool Judge(std::span<const std::uint8_t> lines);
    const LineFilter& FilterFor(std::span<const std::uint8_t> lines);
    const LineFilter& FilterFor(LineForm form, bool tabs);
    bool HaveTabs(std::span<const std::uint8_t> lines);
    bool HaveUnitPerByte(std::span<const std::uint8_t> lines) const;
    std::size_t FirstThatMayMatch(std::span<const std::uint8_t> lines);
    std::span<const std::uint8_t> SearchLines(std::span<const std::uint8_t> lines,
                                              std::size_t from);
    bool IsPlain(std::span<const std::uint8_t> line, std::span<const std::uint8_t> lines);
    std::int32_t PositionIn(std::span<const std::uint8_t> line,
                            std::span<const std::uint8_t> lines);
    std::int32_t PositionBehind(std::span<const std::uint8_t> front,
                                std::span<const std::uint8_t> lines);
    void CountLines(std::span<const std::uint8_t> lines);

    FileSystem& files_;
    Encoding encoding_;
    const LineQuery& query_;
    ResultStore& store_;
    SearchKernel kernel_;
    bool asksForBlanks_ = false;

    std::unique_ptr<std::uint8_t[]> buffer_;
    std::size_t capacity_ = 0;
    /// No piece is larger, whatever the line.
    std::size_t firstCapacity_;
    std::size_t longestLine_;
    /// The beginning of a line whose end is not read yet.
    std::size_t kept_ = 0;

    /// For each form, without tabs and with them.
    std::optional<LineFilter> filters_[3][2];

    // The file at hand.
    std::uint32_t source_ = 0;
    LineForm form_ = LineForm::SingleByte;
    bool judging_ = false;
    /// Some line that was searched had a byte of 0x80 or more.
    bool beyondAscii_ = false;
    /// Of the lines in the buffer: what was found out about them so far.
    bool linesAreAscii_ = false;
    std::optional<bool> linesHaveTabs_;
    std::optional<bool> linesArePlain_;
    Line line_{1};
};

}  // namespace quorvale
