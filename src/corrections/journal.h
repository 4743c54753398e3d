#pragma once

#include "corrections/update.h"
#include "state/corrections_state.h"

namespace quorvale {

/// The open journal as a tree: corrections come behind the ones that are there, and go. Files are
/// none of its business.
class Journal {
public:
    explicit Journal(CorrectionsState& state) : state_(state) {}

    bool IsOpen() const { return state_.JournalRoot != nullptr; }
    /// Any child node counts, also one that is no correction.
    bool HasCorrections() const { return IsOpen() && state_.JournalRoot->HasChildNodes(); }

    /// Takes a document over; without an element `corrections` in it, or without a document, the
    /// journal is a new and empty one.
    void Open(XmlDocumentPtr document);
    /// No journal is open any more. What was picked stays picked.
    void Drop();

    /// Puts a correction behind the last child of the root.
    void AppendCorrection(UpdateRange range, std::u16string_view text);
    void Append(XmlNodePtr update);
    /// Takes a node out from under its own parent. One that is not part of this journal, because it
    /// was removed before or belongs to another one, is left alone.
    void Remove(const XmlNode& node);
    /// Every child of the root goes.
    void RemoveAll();

private:
    bool IsPart(const XmlNode& node) const;

    CorrectionsState& state_;
};

}  // namespace quorvale
