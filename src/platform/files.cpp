#include "platform/files.h"

namespace quorvale {

FileResult<std::unique_ptr<ReadStream>> FileSystem::OpenJournalForReading(
    std::u16string_view name) {
    auto exists = Exists(name);
    if (!exists) return exists.Failure();
    if (!*exists) return std::unique_ptr<ReadStream>();
    return OpenForReading(name);
}

}  // namespace quorvale
