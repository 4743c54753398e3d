#pragma once

#include <cstdint>
#include <string>

#include "base/export.h"
#include "platform/encoding.h"
#include "resources/string_table.h"

namespace quorvale {

class ControlParts;
class SearchExtras;

/// What a host may ask and do beyond the control's members. Lines are 1-based. It lives as long as
/// its control.
class QUORVALE_CORE_EXPORT HostExtras {
public:
    /// For the control itself, which makes its own.
    explicit HostExtras(ControlParts& parts) : parts_(parts) {}

    /// What the control's own texts are written in.
    quorvale::Language Language() const;

    /// From now on the control's own texts are written in this language; everything else stays:
    /// what is searched for, the results, the place in the document.
    void Speak(quorvale::Language language);

    /// How the bytes of the shown file became characters; never `Automatic`.
    Encoding FileEncoding() const;

    /// The line as it stands in the file, without its line break; "" for a bad number. Measures
    /// nothing, so that a host can walk over all lines of a large document.
    std::u16string RawLineText(std::int32_t i) const;

    /// The lines `first` to `last` as they stand in the file, with the line breaks between them.
    /// Numbers outside the document are clamped to it.
    std::u16string RawText(std::int32_t first, std::int32_t last) const;

    /// No more than the first `most` characters of it: looking at a line of a gigabyte is cheap.
    std::u16string RawLineStart(std::int32_t i, std::int32_t most) const;

    /// How many characters `RawText` would give, or a few more: their line breaks count in full.
    std::int64_t RawTextLength(std::int32_t first, std::int32_t last) const;

    /// The length of `text`.
    std::int32_t TextLength() const;

    /// Another number for every document that is put in place.
    std::uint64_t DocumentNumber() const;

    /// Lines from the first to the last one, both counted from 1; `First` is 0 for none.
    struct LineRange {
        std::int32_t First = 0;  ///< the upper one
        std::int32_t Last = 0;   ///< the lower one, included
    };
    /// The lines of the row selection, or the caret's when nothing is selected; none before any
    /// document.
    LineRange SelectedLines() const;

    /// Unfolds everything and forgets the registered ranges, as a new document does.
    void ForgetFolds();

    /// What there is beyond the members for searching.
    SearchExtras& Search() const;

private:
    /// Characters of the text from a position on.
    struct Stretch {
        std::int32_t Start = 1;
        std::int32_t Length = 0;
    };

    Stretch StretchOf(std::int32_t first, std::int32_t last) const;

    ControlParts& parts_;
};

}  // namespace quorvale
