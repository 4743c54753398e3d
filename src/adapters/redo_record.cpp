#include "adapters/redo_record.h"

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

#include "adapters/record_fields.h"
#include "adapters/system_error.h"

namespace quorvale {

namespace {

constexpr std::string_view title = "quorvale protected write 1";
constexpr std::size_t fieldCount = 8;
/// A disk writes so much or nothing.
constexpr std::uint64_t blockSize = 512;
/// More than the longest paths take.
constexpr std::size_t largestHeader = 65536;

std::string Encode(const RedoRecord& record) {
    return EncodeFields(title,
                        {record.Path, std::to_string(record.Device), std::to_string(record.Inode),
                         EncodeDigest(record.Old), EncodeDigest(record.New),
                         record.Journal.Digest ? EncodeDigest(*record.Journal.Digest) : "",
                         record.Journal.Name, record.Journal.Folder});
}

std::uint64_t NumberOf(std::string_view text) {
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

std::uint64_t WholeBlocks(std::uint64_t size) {
    return (size + blockSize - 1) / blockSize * blockSize;
}

FileDigest DigestOfPart(const PosixFile& file, std::uint64_t from, std::uint64_t size) {
    DigestBuilder builder;
    file.ReadPieces(from, size, [&builder](std::string_view piece) { builder.Add(piece); });
    return builder.Digest();
}

/// `size` bytes of a content from `from` on; what lies behind its end is zero.
std::vector<char> ZeroPadded(const PosixFile& file, std::uint64_t contentAt,
                             std::uint64_t contentSize, std::uint64_t from, std::size_t size) {
    std::vector<char> bytes(size, '\0');
    if (from < contentSize) {
        const auto count =
            static_cast<std::size_t>(std::min<std::uint64_t>(size, contentSize - from));
        file.Read(bytes.data(), count, contentAt + from);
    }
    return bytes;
}

/// A block is old or new, or writing stopped in its middle.
bool BeginsAsAndGoesOnAs(std::string_view block, std::string_view first, std::string_view then) {
    const auto differ = std::mismatch(block.begin(), block.end(), first.begin());
    const auto same = static_cast<std::size_t>(differ.first - block.begin());
    return block.substr(same) == then.substr(same);
}

}  // namespace

bool RedoRecord::IsOf(const LocatedFile& document) const {
    if (document.Status && document.Status->st_dev == Device && document.Status->st_ino == Inode) {
        return true;
    }
    // The numbers can change with a restart of the system.
    return !Path.empty() && Path == document.Path();
}

StoredRedo WriteRedo(TemporaryFile& file, RedoRecord record, const PosixFile& document,
                     std::uint64_t oldSize, const ByteSpans& newBytes) {
    // Digests take the same room whatever they are.
    const std::uint64_t oldAt = WholeBlocks(Encode(record).size());
    file.File().Reserve(oldAt + oldSize + newBytes.Size());
    DigestBuilder old;
    std::uint64_t at = oldAt;
    document.ReadPieces(0, oldSize, [&](std::string_view piece) {
        old.Add(piece);
        file.File().Write(piece, at);
        at += piece.size();
    });
    record.Old = old.Digest();
    if (record.Old.Size != oldSize) throw SystemError("read", "The file was changed just now");
    file.File().WriteSpans(newBytes, at);
    std::string header = Encode(record);
    header.resize(static_cast<std::size_t>(oldAt), '\0');
    file.File().Write(header, 0);
    file.Finish(at + newBytes.Size());
    return {std::move(record), oldAt};
}

std::optional<StoredRedo> ReadRedo(const PosixFile& file) {
    std::string bytes(largestHeader, '\0');
    bytes.resize(file.Read(bytes.data(), bytes.size(), 0));
    auto decoded = DecodeFields(title, bytes);
    if (!decoded || decoded->Fields.size() != fieldCount) return std::nullopt;
    auto& fields = decoded->Fields;
    const auto old = DecodeDigest(fields[3]);
    const auto fresh = DecodeDigest(fields[4]);
    if (!old || !fresh) return std::nullopt;
    RecordedJournal journal{DecodeDigest(fields[5]), std::move(fields[6]), std::move(fields[7])};
    return StoredRedo{{std::move(fields[0]), NumberOf(fields[1]), NumberOf(fields[2]), *old, *fresh,
                       std::move(journal)},
                      WholeBlocks(decoded->Size)};
}

bool IsIntact(const PosixFile& file, const StoredRedo& redo) {
    return DigestOfPart(file, redo.OldAt, redo.Record.Old.Size) == redo.Record.Old &&
           DigestOfPart(file, redo.NewAt(), redo.Record.New.Size) == redo.Record.New;
}

WriteProgress ProgressOf(const PosixFile& document, const PosixFile& file, const StoredRedo& redo) {
    const std::uint64_t oldSize = redo.Record.Old.Size;
    const std::uint64_t newSize = redo.Record.New.Size;
    const auto size = static_cast<std::uint64_t>(document.Status().st_size);
    bool allOld = size == oldSize;
    bool allNew = size == newSize;
    bool ours = size >= std::min(oldSize, newSize) && size <= std::max(oldSize, newSize);
    std::uint64_t from = 0;
    document.ReadPieces(0, size, [&](std::string_view piece) {
        if (!ours) return;
        const std::vector<char> old = ZeroPadded(file, redo.OldAt, oldSize, from, piece.size());
        std::vector<char> fresh = ZeroPadded(file, redo.NewAt(), newSize, from, piece.size());
        // Behind the new end the old bytes stay until the file is cut.
        const auto end =
            static_cast<std::size_t>(std::clamp(newSize, from, from + piece.size()) - from);
        std::copy(old.begin() + static_cast<std::ptrdiff_t>(end), old.end(),
                  fresh.begin() + static_cast<std::ptrdiff_t>(end));
        for (std::size_t at = 0; at < piece.size(); at += blockSize) {
            const std::string_view block = piece.substr(at, blockSize);
            const std::string_view before(&old[at], block.size());
            const std::string_view after(&fresh[at], block.size());
            allOld = allOld && block == before;
            allNew = allNew && block == after;
            ours = ours && (BeginsAsAndGoesOnAs(block, after, before) ||
                            BeginsAsAndGoesOnAs(block, before, after));
        }
        from += piece.size();
    });
    if (!ours) return WriteProgress::Foreign;
    if (allNew) return WriteProgress::Complete;
    return allOld ? WriteProgress::Untouched : WriteProgress::Partial;
}

}  // namespace quorvale
