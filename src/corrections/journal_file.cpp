#include "corrections/journal_file.h"

#include <exception>
#include <new>
#include <utility>

#include "corrections/journal_reading.h"
#include "corrections/loaded_digest.h"
#include "document/text_loading.h"

namespace quorvale {

void JournalFile::OpenJournal() {
    const std::u16string& documentPath = path_.OfLastOpened();
    const std::u16string name = JournalName(documentPath);
    Found found;
    try {
        found = Find(name);
    } catch (const std::bad_alloc&) {
        found = {nullptr, FileFailure{"read", name, "Not enough memory"}, std::nullopt};
    }
    journal_.Open(std::move(found.Document));
    corrections_.OwnFiles.clear();
    if (found.Digest) corrections_.OwnFiles.push_back(*found.Digest);
    corrections_.Unreadable = std::move(found.Unreadable);
    corrections_.DocumentPath = documentPath;
    corrections_.SavedAt = corrections_.Changes;
    marks_.RefreshCorrectionMarks();
}

JournalFile::Found JournalFile::Find(const std::u16string& name) const {
    auto standing = path_.Standing();
    // Whether its corrections are in the file already is not known.
    if (!standing) return {nullptr, standing.Failure(), std::nullopt};
    JournalReading reading = ReadJournal(files_, xml_, name);
    // Nobody wants to know what is in a spent one, only whether another lies there later.
    if (*standing == JournalStanding::Spent) return {nullptr, std::nullopt, reading.Digest};
    return {std::move(reading.Document), std::move(reading.Unreadable), reading.Digest};
}

void JournalFile::CloseJournal() {
    std::exception_ptr notRecorded;
    try {
        recording_.RecordEdit(true);
    } catch (...) {
        notRecorded = std::current_exception();
    }
    CorrectionsState closed = corrections_;
    const std::u16string path = document_.FileName.empty() ? u"" : closed.DocumentPath;
    // Whatever becomes of the file, nobody may try a second time with a document that is gone.
    journal_.Drop();
    document_.FileName.clear();
    if (closed.JournalRoot != nullptr) Store(closed, path);
    if (notRecorded) std::rethrow_exception(notRecorded);
}

void JournalFile::SaveNow() {
    recording_.RecordEdit(true);
    if (journal_.IsOpen()) Store(corrections_, corrections_.DocumentPath);
}

void JournalFile::SaveRecorded() {
    if (!journal_.IsOpen() || corrections_.Changes == corrections_.SavedAt) return;
    Store(corrections_, corrections_.DocumentPath);
}

void JournalFile::Store(CorrectionsState& journal, const std::u16string& documentPath) {
    if (options_.ReadOnly) return;
    const std::u16string name = JournalName(documentPath);
    const JournalPlace place{name, documentPath, journal.OwnFiles,
                             LateDigest([this] { return LoadedDigest(document_); })};
    const bool mustStay = journal.Unreadable && !documentPath.empty();
    if (!journal.JournalRoot->HasChildNodes()) {
        // One that is left over is not worth a word.
        if (!mustStay) {
            const std::uint64_t meant = journal.Changes;
            const XmlNodePtr root = journal.JournalRoot;
            const auto deleted = files_.DeleteJournal(place, true);
            if (deleted && journal.JournalRoot == root) journal.SavedAt = meant;
        }
        return;
    }
    if (mustStay) {
        RaiseFileFailure(
            {"save", name,
             "The corrections that are in it could not be read: " + journal.Unreadable->Reason});
    }
    auto bytes = xml_.Write(*journal.JournalDocument);
    if (!bytes) RaiseFileFailure({"save", name, bytes.Failure().Reason});
    Save(journal, place, *bytes);
}

void JournalFile::Save(CorrectionsState& journal, const JournalPlace& place,
                       const std::string& bytes) {
    const FileDigest digest = DigestOf(bytes);
    // A save that is reported to have failed may have put it there.
    journal.OwnFiles.push_back(digest);
    const XmlNodePtr meant = journal.JournalRoot;
    const std::uint64_t changes = journal.Changes;
    auto saved = files_.SaveJournal(place, bytes);
    if (!saved) RaiseFileFailure(saved.Failure());
    // The host hears of what was moved aside, and may have opened another file.
    if (journal.JournalRoot != meant) return;
    journal.OwnFiles = {digest};
    journal.SavedAt = changes;
}

}  // namespace quorvale
