#include "corrections/document_path.h"

namespace quorvale {

std::u16string JournalName(const std::u16string& document) { return document + u"!.xml"; }

FileResult<std::unique_ptr<ReadStream>> DocumentPath::OpenForReading(std::u16string_view name) {
    path_ = std::exchange(next_, {});
    if (path_.empty()) path_ = files_.AbsoluteName(name);
    standing_ = files_.Recover(path_, JournalName(path_));
    return files_.OpenForReading(path_);
}

}  // namespace quorvale
