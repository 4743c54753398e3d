#include "search/file_scan.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/integers.h"
#include "base/utf8.h"

namespace quorvale {

FileScan::FileScan(FileSystem& files, Encoding encoding, const LineQuery& query, ResultStore& store,
                   SearchKernel kernel, std::size_t capacity, std::size_t longestLine)
    : files_(files),
      encoding_(encoding),
      query_(query),
      store_(store),
      kernel_(kernel),
      firstCapacity_(capacity),
      longestLine_(longestLine) {
    const auto literals = query.Literals();
    asksForBlanks_ = std::any_of(literals.begin(), literals.end(), [](const std::u16string& run) {
        return run.find(u' ') != run.npos;
    });
}

bool FileScan::Search(const std::u16string& name, const GoOn& goOn) {
    const std::size_t before = store_.Count();
    judging_ = encoding_ == Encoding::Automatic;
    form_ = judging_ ? LineForm::Utf8 : FormOf(encoding_);
    auto stream = files_.OpenForReading(name);
    if (!stream) return true;
    source_ = store_.AddSource(name, form_);
    End end = SearchStream(**stream, goOn);
    if (end == End::NotUtf8) {
        // Lines were taken for UTF-8 that are not: once more, from the start.
        stream = files_.OpenForReading(name);
        if (!stream) return true;
        store_.Truncate(before);
        TakeForSingleBytes();
        end = SearchStream(**stream, goOn);
    }
    return end != End::Stopped;
}

FileScan::End FileScan::SearchStream(ReadStream& stream, const GoOn& goOn) {
    kept_ = 0;
    beyondAscii_ = false;
    line_ = Line{1};
    const std::uint64_t size = stream.Size();
    for (std::uint64_t done = 0; done < size;) {
        if (!MakeRoom()) return End::Done;
        const std::size_t room = std::min(capacity_ - kept_, firstCapacity_);
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(room, size - done));
        auto got = stream.Read(reinterpret_cast<std::byte*>(buffer_.get() + kept_), wanted);
        if (!got || *got > wanted) return End::Done;
        const bool isFirst = done == 0;
        // A file that has become shorter ends here.
        done = *got < wanted ? size : done + wanted;
        const std::size_t filled = kept_ + *got;
        const std::size_t whole = done == size ? filled : WholeLines(filled);
        const std::span<const std::uint8_t> lines(buffer_.get(), whole);
        const std::size_t from = isFirst && done == size ? FirstThatMayMatch(lines) : 0;
        if (from < lines.size()) {
            if (!Judge(lines)) return End::NotUtf8;
            const auto behind = SearchLines(lines, from);
            if (done < size) CountLines(behind);
        }
        kept_ = filled - whole;
        if (whole > 0) std::memmove(buffer_.get(), buffer_.get() + whole, kept_);
        if (!goOn(done, size)) return End::Stopped;
    }
    return End::Done;
}

/// A line that does not fit gets a larger buffer. False when it is too long for any.
bool FileScan::MakeRoom() {
    if (kept_ < capacity_) return true;
    if (capacity_ >= longestLine_) return false;
    const std::size_t capacity = std::min(std::max(firstCapacity_, 2 * capacity_), longestLine_);
    auto larger = std::make_unique_for_overwrite<std::uint8_t[]>(capacity);
    std::copy_n(buffer_.get(), kept_, larger.get());
    buffer_ = std::move(larger);
    capacity_ = capacity;
    return true;
}

/// How much of what the buffer holds ends with a line. What was kept holds no line feed.
std::size_t FileScan::WholeLines(std::size_t filled) const {
    const std::size_t behind = BehindLastLineFeed({buffer_.get() + kept_, filled - kept_});
    return behind == 0 ? 0 : kept_ + behind;
}

void FileScan::TakeForSingleBytes() {
    judging_ = false;
    form_ = LineForm::SingleByte;
    store_.SetForm(source_, form_);
}

/// False when the file is not what lines in front of these were taken for.
bool FileScan::Judge(std::span<const std::uint8_t> lines) {
    linesHaveTabs_.reset();
    linesArePlain_.reset();
    linesAreAscii_ = form_ != LineForm::Utf8 || IsAscii(lines);
    if (linesAreAscii_ || !judging_) return true;
    if (ValidUtf8Prefix(lines).Valid == lines.size()) {
        beyondAscii_ = true;
    } else if (beyondAscii_) {
        return false;
    } else {
        TakeForSingleBytes();
    }
    return true;
}

const LineFilter& FileScan::FilterFor(std::span<const std::uint8_t> lines) {
    // A letter beyond ASCII may count as the same as one within: not where there is none.
    const LineForm form = linesAreAscii_ && form_ == LineForm::Utf8 ? LineForm::SingleByte : form_;
    return FilterFor(form, asksForBlanks_ && HaveTabs(lines));
}

const LineFilter& FileScan::FilterFor(LineForm form, bool tabs) {
    auto& filter = filters_[static_cast<std::size_t>(form)][tabs ? 1 : 0];
    if (!filter) filter.emplace(query_, form, tabs, kernel_);
    return *filter;
}

/// Where the first line begins that may match, of a file that is in the buffer from its first byte
/// to its last, as most files are: what has no such line need not be looked at more closely.
std::size_t FileScan::FirstThatMayMatch(std::span<const std::uint8_t> lines) {
    const LineFilter& filter = FilterFor(form_, asksForBlanks_);
    if (judging_ && !filter.CoversSingleBytes()) return 0;
    const LineFilter::Hit hit = filter.Next(lines, 0);
    if (hit.Place == LineFilter::Nowhere) return lines.size();
    return BehindLastLineFeed(lines.first(hit.Place));
}

/// Searches from a place where a line begins. Returns the bytes whose lines are not counted yet:
/// those from the last match on.
std::span<const std::uint8_t> FileScan::SearchLines(std::span<const std::uint8_t> lines,
                                                    std::size_t from) {
    const LineFilter& filter = FilterFor(lines);
    std::size_t counted = 0;
    while (true) {
        const LineFilter::Hit hit = filter.Next(lines, from);
        if (hit.Place == LineFilter::Nowhere) break;
        const std::size_t first = from + BehindLastLineFeed(lines.subspan(from, hit.Place - from));
        const std::size_t lineFeed = FindByte(lines, '\n', hit.Place);
        const bool dropsReturn =
            lineFeed < lines.size() && lineFeed > first && lines[lineFeed - 1] == '\r';
        const auto line = lines.subspan(first, lineFeed - first - (dropsReturn ? 1 : 0));
        const std::size_t front = hit.Place - first;
        const std::int32_t position =
            hit.IsMatch ? PositionBehind(line.first(front), lines) : PositionIn(line, lines);
        if (position != 0) {
            CountLines(lines.subspan(counted, first - counted));
            counted = first;
            store_.Add(source_, line_, position, line);
        }
        from = lineFeed + 1;
    }
    return lines.subspan(counted);
}

bool FileScan::HaveTabs(std::span<const std::uint8_t> lines) {
    if (!linesHaveTabs_) linesHaveTabs_ = FindByte(lines, '\t') != lines.size();
    return *linesHaveTabs_;
}

bool FileScan::HaveUnitPerByte(std::span<const std::uint8_t> lines) const {
    if (form_ == LineForm::Utf8) return linesAreAscii_;
    return form_ == LineForm::SingleByte || IsAscii(lines);
}

/// Whether each byte of these is the unit of its number in the text. Most files have no line of
/// another kind, and that is found out for many lines at once.
bool FileScan::IsPlain(std::span<const std::uint8_t> line, std::span<const std::uint8_t> lines) {
    if (!linesArePlain_) linesArePlain_ = !HaveTabs(lines) && HaveUnitPerByte(lines);
    return *linesArePlain_ || IsPlainLine(line, form_);
}

std::int32_t FileScan::PositionIn(std::span<const std::uint8_t> line,
                                  std::span<const std::uint8_t> lines) {
    if (IsPlain(line, lines)) return query_.PositionIn(line);
    return query_.PositionIn(std::span<const char16_t>(TextOfLine(line, form_)));
}

/// The position of a match that has this in front of it in its line.
std::int32_t FileScan::PositionBehind(std::span<const std::uint8_t> front,
                                      std::span<const std::uint8_t> lines) {
    if (!query_.IsPlain()) return 1;
    const std::size_t units =
        IsPlain(front, lines) ? front.size() : TextOfLine(front, form_).size();
    return CheckedCast<std::int32_t>(units + 1);
}

void FileScan::CountLines(std::span<const std::uint8_t> lines) {
    line_ = line_ + CheckedCast<std::int32_t>(CountLineFeeds(lines, kernel_));
}

}  // namespace quorvale
