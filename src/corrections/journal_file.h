#pragma once

#include <optional>
#include <string>

#include "corrections/document_path.h"
#include "corrections/journal.h"
#include "corrections/marks.h"
#include "corrections/recording.h"
#include "platform/files.h"
#include "platform/host_options.h"
#include "platform/xml_service.h"
#include "state/corrections_state.h"
#include "state/document_state.h"

namespace quorvale {

/// Brings the journal from its file beside the document, and back there unless the host wants it
/// only shown.
class JournalFile {
public:
    JournalFile(DocumentState& document, CorrectionsState& corrections, Journal& journal,
                EditRecording& recording, CorrectionMarks& marks, const DocumentPath& path,
                FileSystem& files, XmlService& xml, const HostOptions& options)
        : document_(document),
          corrections_(corrections),
          journal_(journal),
          recording_(recording),
          marks_(marks),
          path_(path),
          files_(files),
          xml_(xml),
          options_(options) {}

    /// Opens the journal of the file that was opened last. One that is missing, malformed or spent
    /// opens empty; so does one that cannot be read, which then stays as it is on disk.
    void OpenJournal();

    /// Records an open editor, saves the journal, or removes its file when it is empty, and drops
    /// it in every case; the document has no file name afterwards. File error when it cannot be
    /// saved. With the document's name already gone the file is "!.xml" in the current directory.
    void CloseJournal();

    /// The same as far as the files are concerned, and the journal stays open: for a host that has
    /// to know whether closing will succeed. File error when it cannot be saved.
    void SaveNow();

    /// Saves what is recorded, where that is not what lies beside the file; an open editor stays as
    /// it is. File error when it cannot be saved.
    void SaveRecorded();

private:
    /// What lies beside the file: null and no failure for nothing that can be used.
    struct Found {
        XmlDocumentPtr Document;
        std::optional<FileFailure> Unreadable;
        /// Of the file that is there, whatever it is good for; none when there is none.
        std::optional<FileDigest> Digest;
    };

    Found Find(const std::u16string& name) const;
    void Store(CorrectionsState& journal, const std::u16string& documentPath);
    void Save(CorrectionsState& journal, const JournalPlace& place, const std::string& bytes);

    DocumentState& document_;
    CorrectionsState& corrections_;
    Journal& journal_;
    EditRecording& recording_;
    CorrectionMarks& marks_;
    const DocumentPath& path_;
    FileSystem& files_;
    XmlService& xml_;
    const HostOptions& options_;
};

}  // namespace quorvale
