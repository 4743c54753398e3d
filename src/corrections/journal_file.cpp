#include "corrections/journal_file.h"

#include <exception>
#include <new>
#include <utility>

#include "document/text_loading.h"

namespace quorvale {

namespace {

FileResult<std::string> ReadAll(ReadStream& stream, const std::u16string& name) {
    if (stream.Size() > XmlService::MaxBytes) {
        return FileFailure{"read", name, "It is larger than 1 GiB"};
    }
    std::string bytes(static_cast<std::size_t>(stream.Size()), '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        auto got =
            stream.Read(reinterpret_cast<std::byte*>(bytes.data()) + length, bytes.size() - length);
        if (!got) return got.Failure();
        if (*got == 0) break;
        length += *got;
    }
    bytes.resize(length);
    return bytes;
}

}  // namespace

void JournalFile::OpenJournal() {
    const std::u16string& documentPath = path_.OfLastOpened();
    const std::u16string name = JournalName(documentPath);
    Found found;
    try {
        found = Find(name);
    } catch (const std::bad_alloc&) {
        found = {nullptr, FileFailure{"read", name, "Not enough memory"}};
    }
    journal_.Open(std::move(found.Document));
    corrections_.Unreadable = std::move(found.Unreadable);
    corrections_.DocumentPath = documentPath;
    marks_.RefreshCorrectionMarks();
}

JournalFile::Found JournalFile::Find(const std::u16string& name) const {
    auto standing = path_.Standing();
    // Whether its corrections are in the file already is not known.
    if (!standing) return {nullptr, standing.Failure()};
    if (*standing == JournalStanding::Spent) return {};
    auto stream = files_.OpenJournalForReading(name);
    if (!stream) return {nullptr, stream.Failure()};
    if (*stream == nullptr) return {};
    return Read(**stream, name);
}

JournalFile::Found JournalFile::Read(ReadStream& stream, const std::u16string& name) const {
    auto bytes = ReadAll(stream, name);
    if (!bytes) return {nullptr, bytes.Failure()};
    XmlReadOptions options;
    options.ValidateOnParse = true;
    options.PreserveWhiteSpace = true;
    options.Async = false;
    XmlReading reading = xml_.Read(*bytes, options);
    if (!reading && reading.ParseError.CannotBeRead) {
        return {nullptr, FileFailure{"read", name, reading.ParseError.Reason}};
    }
    return {std::move(reading.Document), std::nullopt};
}

void JournalFile::CloseJournal() {
    std::exception_ptr notRecorded;
    try {
        recording_.RecordEdit(true);
    } catch (...) {
        notRecorded = std::current_exception();
    }
    const CorrectionsState closed = corrections_;
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

void JournalFile::Store(const CorrectionsState& journal, const std::u16string& documentPath) {
    const std::u16string name = JournalName(documentPath);
    const bool mustStay = journal.Unreadable && !documentPath.empty();
    if (!journal.JournalRoot->HasChildNodes()) {
        // One that is left over is not worth a word.
        if (!mustStay) files_.DeleteJournal(name, true);
        return;
    }
    if (mustStay) {
        RaiseFileFailure(
            {"save", name,
             "The corrections that are in it could not be read: " + journal.Unreadable->Reason});
    }
    auto bytes = xml_.Write(*journal.JournalDocument);
    if (!bytes) RaiseFileFailure(bytes.Failure());
    auto saved = files_.SaveJournal(name, documentPath, *bytes);
    if (!saved) RaiseFileFailure(saved.Failure());
}

}  // namespace quorvale
