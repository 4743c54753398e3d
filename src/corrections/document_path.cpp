#include "corrections/document_path.h"

namespace quorvale {

std::u16string JournalName(const std::u16string& document) { return document + u"!.xml"; }

FileResult<std::unique_ptr<ReadStream>> DocumentPath::OpenForReading(std::u16string_view name) {
    std::u16string path = std::exchange(next_, {});
    if (path.empty()) path = files_.AbsoluteName(name);
    auto standing = files_.Recover(path, JournalName(path));
    auto stream = files_.OpenForReading(path);
    // Whoever heard of a recovery may have loaded another file meanwhile.
    path_ = std::move(path);
    standing_ = std::move(standing);
    return stream;
}

}  // namespace quorvale
