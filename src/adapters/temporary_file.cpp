#include "adapters/temporary_file.h"

#include <fcntl.h>

#include <cerrno>
#include <utility>

#include "adapters/system_error.h"

namespace quorvale {

TemporaryFile::TemporaryFile(const Folder& folder, std::string name, mode_t mode)
    : folder_(folder),
      name_(std::move(name)),
      file_(folder.OpenFile(name_, O_RDWR | O_CREAT | O_EXCL, mode)) {
    // Somebody who tidies up was quicker, and is about to remove the file.
    if (!file_.Lock()) throw SystemError("lock", EBUSY);
}

TemporaryFile::~TemporaryFile() {
    if (keep_) return;
    try {
        folder_.Remove(name_);
    } catch (const SystemError&) {
        // It lies there until somebody tidies up.
    }
}

void TemporaryFile::Fill(const ByteSpans& bytes) const {
    file_.Reserve(bytes.Size());
    file_.WriteSpans(bytes, 0);
}

void TemporaryFile::Finish(std::uint64_t size) {
    file_.Sync();
    if (static_cast<std::uint64_t>(file_.Status().st_size) != size) {
        throw SystemError("write", "The file has another size than was written");
    }
    lock_ = file_.Duplicate();
    file_.Close();
}

}  // namespace quorvale
