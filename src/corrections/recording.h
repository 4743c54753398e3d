#pragma once

#include <string_view>
#include <vector>

#include "corrections/edit_lines.h"
#include "corrections/journal.h"
#include "corrections/journal_index.h"
#include "corrections/marks.h"
#include "document/line_access.h"
#include "platform/surface.h"
#include "state/editing_state.h"

namespace quorvale {

/// Closes the editor and records in the journal what was typed in it.
class EditRecording {
public:
    EditRecording(const EditingState& editing, Surface& surface, LineAccess& lines,
                  Journal& journal, const JournalIndex& index, CorrectionMarks& marks)
        : editing_(editing),
          surface_(surface),
          lines_(lines),
          journal_(journal),
          index_(index),
          marks_(marks) {}

    /// Hides an open editor and gives the keyboard back to the text. With `apply`, what is being
    /// composed is typed to its end, and a changed text replaces every correction that meets the
    /// edited lines; when it is what the file holds, no new one comes. Without a journal, or with
    /// the editor closed, nothing happens. When it fails the editor stays open with its text, and
    /// the journal is as it was.
    void RecordEdit(bool apply);

private:
    struct Work {
        /// Null when the text is what the file holds.
        XmlNodePtr Added;
        std::vector<XmlNodePtr> Removed;
    };

    Work WorkOut() const;
    bool IsUnchanged(std::int32_t line, std::u16string_view edited) const;
    void GiveFocusBack();

    const EditingState& editing_;
    Surface& surface_;
    LineAccess& lines_;
    Journal& journal_;
    const JournalIndex& index_;
    CorrectionMarks& marks_;
};

}  // namespace quorvale
