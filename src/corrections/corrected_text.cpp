#include "corrections/corrected_text.h"

#include <cstring>
#include <iterator>
#include <span>
#include <string_view>

#include "base/text.h"
#include "corrections/kept_format.h"
#include "document/display_text.h"
#include "document/line_extent.h"
#include "document/text_writing.h"

namespace quorvale {

namespace {

using Bytes = std::span<const std::uint8_t>;
using Units = std::span<const char16_t>;

constexpr std::uint8_t lineBreak[] = {'\r', '\n'};
constexpr std::uint8_t blanks[] = {' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};
static_assert(sizeof blanks == tabWidth);

std::size_t IndexOfTab(Bytes units) {
    const void* hit = units.empty() ? nullptr : std::memchr(units.data(), '\t', units.size());
    if (hit == nullptr) return units.size();
    return static_cast<std::size_t>(static_cast<const std::uint8_t*>(hit) - units.data());
}

std::size_t IndexOfTab(Units units) {
    const std::size_t hit = std::u16string_view(units.data(), units.size()).find(u'\t');
    return hit == std::u16string_view::npos ? units.size() : hit;
}

/// Puts a piece of a line with blanks for its tabs. `column` is the number of units put so far.
template <class Span, class Put>
void PutExpanded(Span units, std::size_t& column, const Put& put) {
    while (!units.empty()) {
        const std::size_t tab = IndexOfTab(units);
        if (tab > 0) put(units.first(tab));
        column += tab;
        if (tab == units.size()) return;
        const std::size_t wide = tabWidth - column % tabWidth;
        put(Bytes(blanks).first(wide));
        column += wide;
        units = units.subspan(tab + 1);
    }
}

constexpr std::size_t lineBreakSize = std::size(lineBreak);

}  // namespace

template <class Put>
void CorrectedText::VisitLine(Line line, const Put& put) const {
    const LineExtent extent = ExtentOf(document_, line);
    std::size_t column = 0;
    document_.Text.VisitSpans(extent.Start, extent.Length,
                              [&](auto units) { PutExpanded(units, column, put); });
    put(Bytes(lineBreak));
}

template <class Put>
void CorrectedText::VisitPieces(const EditScript& script, const Put& put) const {
    for (const ScriptStep& step : script) {
        if (step.Insert != nullptr) {
            const std::u16string text = ReplaceAll(UpdateText(*step.Insert->Node), u"\n", u"\r\n");
            put(Units(text));
            continue;
        }
        for (std::int32_t line = step.From; line <= step.To; ++line) VisitLine(Line{line}, put);
    }
}

std::u16string CorrectedText::BuildCorrectedText(std::int32_t first, std::int32_t count) const {
    if (corrections_.JournalDocument == nullptr) return {};
    std::u16string text;
    VisitPieces(MakeEditScript(first, count, index_.Updates()),
                [&](auto units) { text.append(units.begin(), units.end()); });
    if (text.ends_with(u"\r\n")) text.resize(text.size() - lineBreakSize);
    return text;
}

std::vector<std::u16string> CorrectedText::CorrectedLines(std::int32_t first,
                                                          std::int32_t count) const {
    std::vector<std::u16string> lines;
    for (const ScriptStep& step : MakeEditScript(first, count, index_.Updates())) {
        if (step.Insert != nullptr) {
            for (auto& line : LinesOfUpdate(UpdateText(*step.Insert->Node))) {
                lines.push_back(std::move(line));
            }
            continue;
        }
        for (std::int32_t line = step.From; line <= step.To; ++line) {
            const LineExtent extent = ExtentOf(document_, Line{line});
            lines.push_back(document_.Text.Mid(extent.Start, extent.Length));
        }
    }
    return lines;
}

ByteRope CorrectedText::FileBytes(bool keepFormat) const {
    const EditScript script = MakeEditScript(1, document_.LineSlots, index_.Updates());
    if (keepFormat) return BytesKeepingFormat(document_, script, memory_);
    RequireWritable(script, document_.ReadAs);
    ByteRope bytes(memory_);
    TextWriter writer(document_.ReadAs, bytes);
    VisitPieces(script, [&](auto units) { writer.Put(units); });
    writer.Finish();
    if (bytes.EndsWith("\r\n")) bytes.DropLast(lineBreakSize);
    return bytes;
}

}  // namespace quorvale
