#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string>
#include <vector>

namespace quorvale {

/// Every system call that the file layer makes, and no other, so that tests can let each of them
/// fail. They answer as the system does: -1 and errno when they fail. A folder is a descriptor or
/// AT_FDCWD, a name is relative to it.
class PosixCalls {
public:
    virtual ~PosixCalls() = default;

    virtual int Open(int folder, const char* name, int flags, mode_t mode) = 0;
    virtual int Close(int file) = 0;
    virtual ssize_t Read(int file, void* into, std::size_t count, off_t from) = 0;
    virtual ssize_t Write(int file, const void* bytes, std::size_t count, off_t to) = 0;
    virtual int Truncate(int file, off_t size) = 0;
    /// Sees to it that writing up to `size` finds room; the file stays as long as it is.
    virtual int Reserve(int file, off_t size) = 0;
    virtual int Sync(int file) = 0;
    /// A hint: what was written there may go to the disk while the process does something else.
    virtual int StartWriting(int file, off_t from, off_t size) = 0;
    virtual int Status(int file, struct stat& status) = 0;
    /// A link is not followed when `flags` is AT_SYMLINK_NOFOLLOW.
    virtual int StatusAt(int folder, const char* name, struct stat& status, int flags) = 0;
    virtual int MayWrite(int folder, const char* name) = 0;
    /// `flags` are those of renameat2.
    virtual int Rename(int fromFolder, const char* from, int toFolder, const char* to,
                       unsigned flags) = 0;
    virtual int Unlink(int folder, const char* name) = 0;
    virtual int MakeFolder(const char* name, mode_t mode) = 0;
    virtual ssize_t ReadLink(int folder, const char* name, char* into, std::size_t size) = 0;
    /// The names in a folder, `most` of them at most.
    virtual int List(int folder, std::size_t most, std::vector<std::string>& names) = 0;
    /// Takes the one lock of an open file, or fails with EWOULDBLOCK at once.
    virtual int Lock(int file) = 0;
    virtual int Duplicate(int file) = 0;
    virtual int ChangeOwner(int file, uid_t owner, gid_t group) = 0;
    virtual int ChangeMode(int file, mode_t mode) = 0;
    virtual ssize_t ListAttributes(int file, char* into, std::size_t size) = 0;
    virtual ssize_t GetAttribute(int file, const char* name, void* into, std::size_t size) = 0;
    virtual int SetAttribute(int file, const char* name, const void* value, std::size_t size) = 0;
    virtual int RemoveAttribute(int file, const char* name) = 0;
    virtual ssize_t Random(void* into, std::size_t size) = 0;
    virtual int CurrentFolder(char* into, std::size_t size) = 0;
};

/// The system itself.
PosixCalls& SystemCalls();

}  // namespace quorvale
