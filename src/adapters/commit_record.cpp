#include "adapters/commit_record.h"

#include <unistd.h>

#include <utility>

#include "adapters/helping_names.h"
#include "adapters/record_fields.h"
#include "adapters/system_error.h"

namespace quorvale {

namespace {

constexpr std::string_view title = "quorvale replacement 1";
constexpr std::size_t fieldCount = 8;
/// More than the longest names take.
constexpr std::size_t largestRecord = 65536;

/// The name of a file in the same folder, and no way out of it.
bool IsPlainName(std::string_view name) {
    return !name.empty() && name.find('/') == name.npos && name.find('\0') == name.npos;
}

bool IsJournalName(std::string_view name) {
    return IsPlainName(name) && name.ends_with(journalEnding);
}

}  // namespace

std::string EncodeCommitRecord(const CommitRecord& record, const std::string& base) {
    return EncodeFields(title, {base, EncodeDigest(record.Old), EncodeDigest(record.New),
                                record.OldIsMissing ? "missing" : "there", record.Temporary,
                                record.Journal.Digest ? EncodeDigest(*record.Journal.Digest) : "",
                                record.Journal.Name, record.Journal.Folder});
}

std::optional<CommitRecord> DecodeCommitRecord(std::string_view bytes, const std::string& base) {
    auto decoded = DecodeFields(title, bytes);
    if (!decoded || decoded->Size != bytes.size() || decoded->Fields.size() != fieldCount) {
        return std::nullopt;
    }
    auto& fields = decoded->Fields;
    const auto before = DecodeDigest(fields[1]);
    const auto after = DecodeDigest(fields[2]);
    const auto journal = DecodeDigest(fields[5]);
    const bool named = IsTemporaryName(fields[4], NameTag(base)) &&
                       (fields[6].empty() || IsJournalName(fields[6]));
    if (fields[0] != base || !before || !after || !named || (!journal && !fields[5].empty())) {
        return std::nullopt;
    }
    return CommitRecord{*before,
                        *after,
                        fields[3] == "missing",
                        std::move(fields[4]),
                        {journal, std::move(fields[6]), std::move(fields[7])}};
}

std::optional<FoundRecord> FindCommitRecord(const LocatedFile& document) {
    auto file = document.Folder.OpenRegular(CommitRecordName(NameTag(document.Base)));
    if (!file) return std::nullopt;
    const FileStatus status = file->Status();
    const bool trusted = status.st_uid == geteuid() || status.st_uid == 0 ||
                         (document.Status && status.st_uid == document.Status->st_uid);
    if (!trusted) return std::nullopt;
    if (!file->Lock()) {
        throw SystemError("recover", "Another program is just writing the file", EBUSY);
    }
    std::string bytes(largestRecord, '\0');
    bytes.resize(file->Read(bytes.data(), bytes.size(), 0));
    return FoundRecord{DecodeCommitRecord(bytes, document.Base), std::move(*file)};
}

}  // namespace quorvale
