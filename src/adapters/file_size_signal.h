#pragma once

#include <signal.h>

namespace quorvale {

/// As long as it lives, a file that grows beyond the process's limit makes writing fail, and does
/// not end the process.
class FileSizeSignalBlocked {
public:
    FileSizeSignalBlocked();
    FileSizeSignalBlocked(const FileSizeSignalBlocked&) = delete;
    FileSizeSignalBlocked& operator=(const FileSizeSignalBlocked&) = delete;
    ~FileSizeSignalBlocked();

private:
    sigset_t before_{};
    bool wasPending_ = false;
};

}  // namespace quorvale
