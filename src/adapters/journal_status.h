#pragma once

namespace quorvale {

/// What lies at the name of a journal.
struct JournalStatus {
    /// A journal is a regular file; a link is none.
    bool IsRegular = false;
    /// As far as permissions tell, it can be deleted without force.
    bool IsRemovable = false;
};

}  // namespace quorvale
