#include "adapters/file_size_signal.h"

#include <ctime>

namespace quorvale {

namespace {

sigset_t OnlyFileSize() {
    sigset_t set{};
    sigemptyset(&set);
    sigaddset(&set, SIGXFSZ);
    return set;
}

}  // namespace

FileSizeSignalBlocked::FileSizeSignalBlocked() {
    sigset_t pending{};
    sigpending(&pending);
    wasPending_ = sigismember(&pending, SIGXFSZ) == 1;
    const sigset_t set = OnlyFileSize();
    pthread_sigmask(SIG_BLOCK, &set, &before_);
}

FileSizeSignalBlocked::~FileSizeSignalBlocked() {
    // One that came meanwhile was ours, and would end the process once it is let in.
    const sigset_t set = OnlyFileSize();
    const timespec none{};
    if (!wasPending_) sigtimedwait(&set, nullptr, &none);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

}  // namespace quorvale
