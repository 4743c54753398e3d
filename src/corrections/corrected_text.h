#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "corrections/edit_script.h"
#include "corrections/journal_index.h"
#include "platform/byte_rope.h"
#include "platform/memory.h"
#include "state/corrections_state.h"
#include "state/document_state.h"

namespace quorvale {

/// The document as it is once its corrections are in it.
class CorrectedText {
public:
    /// `memory` is for bytes of files.
    CorrectedText(const DocumentState& document, const CorrectionsState& corrections,
                  const JournalIndex& index, BlockMemory& memory)
        : document_(document), corrections_(corrections), index_(index), memory_(memory) {}

    /// The corrected text of some lines, each followed by CR LF but the last. Lines that were not
    /// corrected have blanks for their tabs. "" without a journal.
    std::u16string BuildCorrectedText(std::int32_t first, std::int32_t count) const;

    /// The same as single lines that keep their tabs.
    std::vector<std::u16string> CorrectedLines(std::int32_t first, std::int32_t count) const;

    /// The whole corrected file in the encoding it was read in: with the line ends and blanks of
    /// `BuildCorrectedText`, where a file that ends with a line break gets one more, for the empty
    /// line behind it; or with the format kept as `BytesKeepingFormat` says. Fails as
    /// `RequireWritable` and as `TextWriter`, and with std::bad_alloc. Good as long as the
    /// document stays.
    ByteRope FileBytes(bool keepFormat) const;

private:
    /// Hands the pieces to `put`, as spans of bytes or of UTF-16 units, with CR LF behind the last
    /// line too.
    template <class Put>
    void VisitPieces(const EditScript& script, const Put& put) const;
    template <class Put>
    void VisitLine(Line line, const Put& put) const;

    const DocumentState& document_;
    const CorrectionsState& corrections_;
    const JournalIndex& index_;
    BlockMemory& memory_;
};

}  // namespace quorvale
