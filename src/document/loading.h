#pragma once

#include <string>
#include <string_view>

#include "document/text_loading.h"
#include "platform/files.h"
#include "platform/host_options.h"
#include "platform/memory.h"
#include "platform/surface.h"
#include "state/document_state.h"

namespace quorvale {

/// What replacing the document asks of the others.
class LoadingPeers {
public:
    virtual ~LoadingPeers() = default;
    /// Records what stands in an open editor, against the lines it was opened over.
    virtual void CloseEdit() = 0;
    /// Saves or removes the journal and drops it in every case; may fail.
    virtual void CloseJournal() = 0;
    /// Opens the journal of the file.
    virtual void OpenJournal(const std::u16string& fileName) = 0;
    /// Caret, selection, drag and folds of the old document are forgotten; nothing is painted.
    virtual void ForgetPlaces() = 0;
    /// The view shows the new document from its start.
    virtual void ShowFromStart() = 0;
    virtual void ReportTextChanged() = 0;
};

/// Replaces the one document, by a file's content or by a text, and rebuilds the line table. The
/// text and its table are put in place together, so that whatever fails on the way nobody ever
/// reads one with the other's numbers.
class DocumentLoading {
public:
    DocumentLoading(DocumentState& document, Surface& surface, ReadableFiles& files,
                    BlockMemory& memory, const HostOptions& options, LoadingPeers& peers)
        : document_(document),
          surface_(surface),
          files_(files),
          memory_(memory),
          options_(options),
          peers_(peers) {}

    /// Shows the whole file. Whatever fails: one empty line, no file name, and no error. A document
    /// that the host puts in place on the way, inside an event, stays.
    void LoadFile(const std::u16string& fileName);

    /// Shows a text of no file. When the old journal could not be saved the new text is in place
    /// and the failure is let out.
    void SetText(std::u16string_view text);

private:
    LoadedText ReadWhole(const std::u16string& fileName);
    void ShowNothing();
    void Replace(LoadedText loaded);
    void ResetDocument();
    void BuildTable(LoadedText loaded);

    DocumentState& document_;
    Surface& surface_;
    ReadableFiles& files_;
    BlockMemory& memory_;
    const HostOptions& options_;
    LoadingPeers& peers_;
};

}  // namespace quorvale
