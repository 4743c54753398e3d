#include "platform/memory_files.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quorvale {

namespace {

/// Reads what the file held when it was opened; a later `Put` or `Remove` does not touch it.
class MemoryStream final : public ReadStream {
public:
    explicit MemoryStream(std::shared_ptr<const std::string> bytes) : bytes_(std::move(bytes)) {}

    std::uint64_t Size() const override { return bytes_->size(); }

    FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
        const std::size_t size = std::min(count, bytes_->size() - at_);
        if (size > 0) std::memcpy(into, bytes_->data() + at_, size);
        at_ += size;
        return size;
    }

private:
    std::shared_ptr<const std::string> bytes_;
    std::size_t at_ = 0;
};

class FailingStream final : public ReadStream {
public:
    FailingStream(std::unique_ptr<ReadStream> real, std::u16string name, int failAt)
        : real_(std::move(real)), name_(std::move(name)), failAt_(failAt) {}

    std::uint64_t Size() const override { return real_->Size(); }

    FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
        ++calls_;
        if (calls_ == failAt_) return FileFailure{"read", name_, "Reading was made to fail"};
        return real_->Read(into, count);
    }

private:
    std::unique_ptr<ReadStream> real_;
    std::u16string name_;
    int failAt_;
    int calls_ = 0;
};

FileFailure MadeToFail(const char* operation, std::u16string_view name) {
    return {operation, std::u16string(name), "The call was made to fail"};
}

}  // namespace

void MemoryFiles::Put(std::u16string name, std::string bytes) {
    files_[std::move(name)] = std::make_shared<const std::string>(std::move(bytes));
}

void MemoryFiles::Remove(std::u16string_view name) {
    const auto file = files_.find(name);
    if (file != files_.end()) files_.erase(file);
}

const std::string* MemoryFiles::Bytes(std::u16string_view name) const {
    const auto file = files_.find(name);
    return file == files_.end() ? nullptr : file->second.get();
}

void MemoryFiles::SetReadOnly(std::u16string name) { readOnly_.insert(std::move(name)); }

FileResult<std::unique_ptr<ReadStream>> MemoryFiles::OpenForReading(std::u16string_view name) {
    const auto file = files_.find(name);
    if (file == files_.end()) {
        return FileFailure{"open", std::u16string(name), "No such file or directory"};
    }
    return std::unique_ptr<ReadStream>(std::make_unique<MemoryStream>(file->second));
}

FileResult<bool> MemoryFiles::Exists(std::u16string_view name) { return files_.contains(name); }

std::u16string MemoryFiles::AbsoluteName(std::u16string_view name) { return std::u16string(name); }

FileResult<Done> MemoryFiles::SaveJournal(const JournalPlace& journal, std::string_view bytes) {
    if (MayBeInDocument(journal)) {
        displaced_.emplace_back(bytes);
        return FileFailure{"save", journal.Name, "The corrections may be in the file already"};
    }
    const auto spent = spent_.find(journal.Document);
    if (spent == spent_.end()) {
        SetForeignAside(journal);
    } else {
        spent_.erase(spent);
    }
    Put(journal.Name, std::string(bytes));
    return Done{};
}

FileResult<Done> MemoryFiles::DeleteJournal(const JournalPlace& journal, bool force) {
    SetForeignAside(journal);
    return RemoveJournal(journal.Name, force);
}

bool MemoryFiles::MayBeInDocument(const JournalPlace& journal) const {
    if (journal.Document.empty() || !journal.Loaded || journal.Known.empty()) return false;
    const std::string* const document = Bytes(journal.Document);
    return Bytes(journal.Name) == nullptr && document != nullptr &&
           DigestOf(*document) != *journal.Loaded;
}

void MemoryFiles::SetForeignAside(const JournalPlace& journal) {
    const std::string* const bytes = Bytes(journal.Name);
    if (bytes == nullptr || journal.Document.empty()) return;
    const auto& known = journal.Known;
    if (std::find(known.begin(), known.end(), DigestOf(*bytes)) != known.end()) return;
    displaced_.push_back(*bytes);
    Remove(journal.Name);
}

FileResult<Done> MemoryFiles::RemoveJournal(std::u16string_view name, bool force) {
    if (!force && readOnly_.contains(name) && Bytes(name) != nullptr) {
        return FileFailure{"delete", std::u16string(name), "Permission denied"};
    }
    Remove(name);
    return Done{};
}

FileResult<Done> MemoryFiles::ReplaceDocument(const Replacement& replacement) {
    Put(replacement.Document, replacement.NewBytes.Gathered());
    spent_[replacement.Document] = replacement.Journal;
    return Done{};
}

FileResult<Done> MemoryFiles::RemoveSpentJournal(const Replacement& replacement) {
    auto removed = DeleteJournal(
        {replacement.Journal, replacement.Document, replacement.KnownJournals}, false);
    if (removed) spent_.erase(replacement.Document);
    return removed;
}

FileResult<JournalStanding> MemoryFiles::Recover(std::u16string_view document,
                                                 std::u16string_view journal) {
    const auto spent = spent_.find(document);
    if (spent == spent_.end() || spent->second != journal) return JournalStanding::InForce;
    if (!RemoveJournal(journal, false)) return JournalStanding::Spent;
    spent_.erase(spent);
    return JournalStanding::InForce;
}

FileResult<std::unique_ptr<ReadStream>> FailingFiles::OpenForReading(std::u16string_view name) {
    if (FailOpen) return FileFailure{"open", std::u16string(name), "Opening was made to fail"};
    return Spoiled(real_.OpenForReading(name), name);
}

FileResult<std::unique_ptr<ReadStream>> FailingFiles::Spoiled(
    FileResult<std::unique_ptr<ReadStream>> stream, std::u16string_view name) const {
    if (!stream || *stream == nullptr || FailRead == 0) return stream;
    return std::unique_ptr<ReadStream>(
        std::make_unique<FailingStream>(std::move(*stream), std::u16string(name), FailRead));
}

FileResult<bool> FailingFiles::Exists(std::u16string_view name) {
    if (FailExists) return MadeToFail("look for", name);
    return real_.Exists(name);
}

std::u16string FailingFiles::AbsoluteName(std::u16string_view name) {
    return real_.AbsoluteName(name);
}

FileResult<std::unique_ptr<ReadStream>> FailingFiles::OpenJournalForReading(
    std::u16string_view name) {
    if (FailOpen) return FileFailure{"open", std::u16string(name), "Opening was made to fail"};
    return Spoiled(real_.OpenJournalForReading(name), name);
}

FileResult<Done> FailingFiles::SaveJournal(const JournalPlace& journal, std::string_view bytes) {
    if (FailSave) return MadeToFail("save", journal.Name);
    return real_.SaveJournal(journal, bytes);
}

FileResult<Done> FailingFiles::DeleteJournal(const JournalPlace& journal, bool force) {
    if (FailDelete) return MadeToFail("delete", journal.Name);
    return real_.DeleteJournal(journal, force);
}

FileResult<Done> FailingFiles::ReplaceDocument(const Replacement& replacement) {
    if (FailReplace) return MadeToFail("replace", replacement.Document);
    return real_.ReplaceDocument(replacement);
}

FileResult<Done> FailingFiles::RemoveSpentJournal(const Replacement& replacement) {
    if (FailRemoveSpent) return MadeToFail("delete", replacement.Journal);
    return real_.RemoveSpentJournal(replacement);
}

FileResult<JournalStanding> FailingFiles::Recover(std::u16string_view document,
                                                  std::u16string_view journal) {
    if (FailRecover) return MadeToFail("recover", document);
    return real_.Recover(document, journal);
}

}  // namespace quorvale
