#include "corrections/kept_format.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/errors.h"
#include "base/numbers_in_text.h"
#include "base/text.h"
#include "document/encodings.h"
#include "document/line_extent.h"
#include "document/text_writing.h"

namespace quorvale {

namespace {

constexpr char16_t byteOrderMark = 0xFEFF;

/// Puts lines behind one another. Nobody sees a byte order mark: it stays at the front of the file,
/// whatever becomes of the line that it stands in. A line's end is written when the next line
/// comes, so that the last one has none.
class LineJoiner {
public:
    LineJoiner(const DocumentState& document, ByteRope& out)
        : document_(document), writer_(document.ReadAs, out), fallback_(FirstLineEnd()) {
        if (!HasMark()) return;
        writer_.PutFrom(document_.Text, 1, 1);
        markEnd_ = 1;
    }

    /// Lines of the document, in one stretch with their own ends.
    void PutRun(Line from, Line to) {
        from = std::max(from, Line{1});
        to = std::min(to, document_.LastLine());
        if (from > to) return;
        const std::int32_t start = std::max(document_.Table.Starts[from.Number()], 1 + markEnd_);
        const LineExtent last = ExtentOf(document_, to);
        PutEnd();
        writer_.PutFrom(document_.Text, start, last.Start + last.Length - start);
        end_ = EndOf(to);
    }

    void PutCorrection(const Update& update) {
        Line replaced{update.Range.Start};
        for (const std::u16string& line : LinesOfUpdate(UpdateText(*update.Node))) {
            std::u16string_view shown = line;
            // A host that shows the mark gives it back.
            if (!any_ && markEnd_ > 0 && shown.starts_with(byteOrderMark)) shown.remove_prefix(1);
            PutEnd();
            writer_.Put(shown);
            end_ = update.Range.Count == 0 ? fallback_ : EndOf(replaced);
            if (replaced.Number() < update.Range.End() - 1) ++replaced;
        }
    }

    void Finish() { writer_.Finish(); }

private:
    bool HasMark() const {
        return document_.ReadAs == Encoding::Utf8 && document_.Text.Length() > 0 &&
               document_.Text.At(1) == byteOrderMark;
    }

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
    /// The last place in the document that belongs to the mark; 0 without one.
    std::int32_t markEnd_ = 0;
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

ByteRope BytesKeepingFormat(const DocumentState& document, const EditScript& script,
                            BlockMemory& memory) {
    RequireWritable(script, document.ReadAs);
    ByteRope out(memory);
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
