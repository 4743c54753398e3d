#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/export.h"
#include "platform/files.h"

namespace quorvale {

/// Files kept in memory: for tests and for hosts' tests. Every name is its own absolute name.
class QUORVALE_CORE_EXPORT MemoryFiles : public FileSystem {
public:
    /// A file of that name with these bytes, in place of the one before; it is no longer read-only.
    void Put(std::u16string name, std::string bytes);
    /// One that is not there is no failure.
    void Remove(std::u16string_view name);
    /// Null when there is no such file.
    const std::string* Bytes(std::u16string_view name) const;
    /// A read-only journal is removed with force only.
    void SetReadOnly(std::u16string name);
    /// What was moved aside, in that order.
    const std::vector<std::string>& Displaced() const { return displaced_; }

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override;
    FileResult<bool> Exists(std::u16string_view name) override;
    std::u16string AbsoluteName(std::u16string_view name) override;
    FileResult<Done> SaveJournal(const JournalPlace& journal, std::string_view bytes) override;
    FileResult<Done> DeleteJournal(const JournalPlace& journal, bool force) override;
    FileResult<Done> ReplaceDocument(const Replacement& replacement) override;
    FileResult<Done> RemoveSpentJournal(const Replacement& replacement) override;
    FileResult<JournalStanding> Recover(std::u16string_view document,
                                        std::u16string_view journal) override;

private:
    bool MayBeInDocument(const JournalPlace& journal) const;
    void SetForeignAside(const JournalPlace& journal);
    FileResult<Done> RemoveJournal(std::u16string_view name, bool force);

    std::vector<std::string> displaced_;
    std::map<std::u16string, std::shared_ptr<const std::string>, std::less<>> files_;
    std::set<std::u16string, std::less<>> readOnly_;
    /// Journals whose corrections are in their documents, by the documents' names.
    std::map<std::u16string, std::u16string, std::less<>> spent_;
};

/// Wraps another file system and lets chosen calls fail, each with a reason of its own.
class QUORVALE_CORE_EXPORT FailingFiles final : public FileSystem {
public:
    /// The real ones must outlive it.
    explicit FailingFiles(FileSystem& real) : real_(real) {}

    bool FailOpen = false;  ///< OpenForReading and OpenJournalForReading
    /// The number of the read call, from 1, that fails in every stream opened from now on; 0: none.
    int FailRead = 0;
    bool FailExists = false;       ///< Exists
    bool FailSave = false;         ///< SaveJournal
    bool FailDelete = false;       ///< DeleteJournal
    bool FailReplace = false;      ///< ReplaceDocument
    bool FailRemoveSpent = false;  ///< RemoveSpentJournal
    bool FailRecover = false;      ///< Recover

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override;
    FileResult<bool> Exists(std::u16string_view name) override;
    std::u16string AbsoluteName(std::u16string_view name) override;
    FileResult<std::unique_ptr<ReadStream>> OpenJournalForReading(
        std::u16string_view name) override;
    FileResult<Done> SaveJournal(const JournalPlace& journal, std::string_view bytes) override;
    FileResult<Done> DeleteJournal(const JournalPlace& journal, bool force) override;
    FileResult<Done> ReplaceDocument(const Replacement& replacement) override;
    FileResult<Done> RemoveSpentJournal(const Replacement& replacement) override;
    FileResult<JournalStanding> Recover(std::u16string_view document,
                                        std::u16string_view journal) override;

private:
    FileResult<std::unique_ptr<ReadStream>> Spoiled(FileResult<std::unique_ptr<ReadStream>> stream,
                                                    std::u16string_view name) const;

    FileSystem& real_;
};

}  // namespace quorvale
