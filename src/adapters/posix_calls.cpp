#include "adapters/posix_calls.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace quorvale {

namespace {

class RealCalls final : public PosixCalls {
public:
    int Open(int folder, const char* name, int flags, mode_t mode) override {
        return openat(folder, name, flags, mode);
    }
    int Close(int file) override { return close(file); }
    ssize_t Read(int file, void* into, std::size_t count, off_t from) override {
        return pread(file, into, count, from);
    }
    ssize_t Write(int file, const void* bytes, std::size_t count, off_t to) override {
        return pwrite(file, bytes, count, to);
    }
    int Truncate(int file, off_t size) override { return ftruncate(file, size); }
    // Not posix_fallocate: where the system cannot, that one writes into every block.
    int Reserve(int file, off_t size) override {
        return fallocate(file, FALLOC_FL_KEEP_SIZE, 0, size);
    }
    int Sync(int file) override { return fsync(file); }
    int StartWriting(int file, off_t from, off_t size) override {
        return sync_file_range(file, from, size, SYNC_FILE_RANGE_WRITE);
    }
    int Status(int file, struct stat& status) override { return fstat(file, &status); }
    int StatusAt(int folder, const char* name, struct stat& status, int flags) override {
        return fstatat(folder, name, &status, flags);
    }
    int MayWrite(int folder, const char* name) override {
        return faccessat(folder, name, W_OK, AT_EACCESS);
    }
    int Rename(int fromFolder, const char* from, int toFolder, const char* to,
               unsigned flags) override {
        // Without flags the older call, which every system has.
        return flags == 0 ? renameat(fromFolder, from, toFolder, to)
                          : renameat2(fromFolder, from, toFolder, to, flags);
    }
    int Unlink(int folder, const char* name) override { return unlinkat(folder, name, 0); }
    int MakeFolder(const char* name, mode_t mode) override { return mkdir(name, mode); }
    ssize_t ReadLink(int folder, const char* name, char* into, std::size_t size) override {
        return readlinkat(folder, name, into, size);
    }
    int List(int folder, std::size_t most, std::vector<std::string>& names) override;
    int Lock(int file) override { return flock(file, LOCK_EX | LOCK_NB); }
    int Duplicate(int file) override { return fcntl(file, F_DUPFD_CLOEXEC, 0); }
    int ChangeOwner(int file, uid_t owner, gid_t group) override {
        return fchown(file, owner, group);
    }
    int ChangeMode(int file, mode_t mode) override { return fchmod(file, mode); }
    ssize_t ListAttributes(int file, char* into, std::size_t size) override {
        return flistxattr(file, into, size);
    }
    ssize_t GetAttribute(int file, const char* name, void* into, std::size_t size) override {
        return fgetxattr(file, name, into, size);
    }
    int SetAttribute(int file, const char* name, const void* value, std::size_t size) override {
        return fsetxattr(file, name, value, size, 0);
    }
    int RemoveAttribute(int file, const char* name) override { return fremovexattr(file, name); }
    ssize_t Random(void* into, std::size_t size) override { return getrandom(into, size, 0); }
    int CurrentFolder(char* into, std::size_t size) override {
        return getcwd(into, size) == nullptr ? -1 : 0;
    }
};

int RealCalls::List(int folder, std::size_t most, std::vector<std::string>& names) {
    // A descriptor of its own: the place in the listing belongs to the open file.
    const int listed = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (listed < 0) return -1;
    DIR* const entries = fdopendir(listed);
    if (entries == nullptr) {
        const int error = errno;
        close(listed);
        errno = error;
        return -1;
    }
    errno = 0;
    while (names.size() < most) {
        const dirent* const entry = readdir(entries);
        if (entry == nullptr) break;
        names.emplace_back(entry->d_name);
    }
    const int error = errno;
    closedir(entries);
    errno = error;
    return error == 0 ? 0 : -1;
}

}  // namespace

PosixCalls& SystemCalls() {
    static RealCalls calls;
    return calls;
}

}  // namespace quorvale
