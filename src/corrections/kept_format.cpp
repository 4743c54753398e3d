#include "corrections/kept_format.h"

#include <algorithm>
#include <string_view>

#include "base/errors.h"
#include "base/numbers_in_text.h"
#include "base/text.h"
#include "document/encodings.h"
#include "document/line_extent.h"
#include "document/text_writing.h"

namespace quorvale {

namespace {

/// Puts lines behind one another. A line's end is written when the next line comes, so that the
/// last one has none.
class LineJoiner {
public:
    LineJoiner(const DocumentState& document, std::string& out)
        : document_(document), writer_(document.ReadAs, out), fallback_(FirstLineEnd()) {}

    /// Lines of the document, in one stretch with their own ends.
    void PutRun(Line from, Line to) {
        from = std::max(from, Line{1});
        to = std::min(to, document_.LastLine());
        if (from > to) return;
        const std::int32_t start = document_.Table.Starts[from.Number()];
        const LineExtent last = ExtentOf(document_, to);
        PutEnd();
        writer_.PutFrom(document_.Text, start, last.Start + last.Length - start);
        end_ = EndOf(to);
    }

    void PutCorrection(const Update& update) {
        Line replaced{update.Range.Start};
        for (const std::u16string& line : LinesOfUpdate(UpdateText(*update.Node))) {
            PutEnd();
            writer_.Put(std::u16string_view(line));
            end_ = update.Range.Count == 0 ? fallback_ : EndOf(replaced);
            if (replaced.Number() < update.Range.End() - 1) ++replaced;
        }
    }

    void Finish() { writer_.Finish(); }

private:
    // The document's last CR LF is the control's own.
    std::u16string_view EndOf(Line line) const {
        if (line >= document_.LastLine()) return {};
        return ExtentOf(document_, line).Break == 2 ? u"\r\n" : u"\n";
    }

    std::u16string_view FirstLineEnd() const {
        const std::u16string_view first = EndOf(Line{1});
        return first.empty() ? u"\n" : first;
    }

    void PutEnd() {
        if (any_) writer_.Put(end_.empty() ? fallback_ : end_);
        any_ = true;
    }

    const DocumentState& document_;
    TextWriter writer_;
    std::u16string_view fallback_;
    /// The end of the line that was put last, not yet written.
    std::u16string_view end_;
    bool any_ = false;
};

}  // namespace

void RequireWritable(const EditScript& script, Encoding encoding) {
    for (const ScriptStep& step : script) {
        if (step.Insert == nullptr) continue;
        const std::u16string text = UpdateText(*step.Insert->Node);
        const EncodedText encoded = EncodeText(text, encoding);
        if (encoded) continue;
        throw ControlError(ErrorKind::InvalidValue,
                           "The character U+" + ToUtf8(HexText(text[encoded.BadPosition - 1])) +
                               " in the correction of line " +
                               std::to_string(step.Insert->Range.Start) +
                               " does not exist in the file's encoding");
    }
}

std::size_t ExpectedSize(const DocumentState& document, const EditScript& script) {
    std::size_t size = static_cast<std::size_t>(document.Text.Length()) +
                       static_cast<std::size_t>(document.LineSlots);
    for (const ScriptStep& step : script) {
        if (step.Insert != nullptr) size += UpdateText(*step.Insert->Node).size();
    }
    return std::min(size, mostFileBytes);
}

std::string BytesKeepingFormat(const DocumentState& document, const EditScript& script) {
    RequireWritable(script, document.ReadAs);
    std::string out;
    out.reserve(ExpectedSize(document, script));
    LineJoiner lines(document, out);
    for (const ScriptStep& step : script) {
        if (step.Insert != nullptr) {
            lines.PutCorrection(*step.Insert);
        } else {
            lines.PutRun(Line{step.From}, Line{step.To});
        }
    }
    lines.Finish();
    return out;
}

}  // namespace quorvale
