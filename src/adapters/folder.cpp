#include "adapters/folder.h"

#include <fcntl.h>

#include <array>
#include <cstdio>
#include <utility>

#include "adapters/system_error.h"

namespace quorvale {

namespace {

constexpr int openingFlags = O_CLOEXEC | O_NOCTTY | O_NOFOLLOW | O_NONBLOCK;

/// A folder of more names is looked through as far as this.
constexpr std::size_t mostNames = 65536;

std::string LinkAt(PosixCalls& calls, int folder, const char* name) {
    std::array<char, 4096> target{};
    const ssize_t size =
        Uninterrupted([&] { return calls.ReadLink(folder, name, target.data(), target.size()); });
    if (size < 0) throw SystemError("read a link", errno);
    return {target.data(), static_cast<std::size_t>(size)};
}

}  // namespace

Folder Folder::OpenAt(PosixContext& context, int from, const std::string& path) {
    const auto open = [&](int flags) {
        return Uninterrupted([&] {
            return context.Calls.Open(from, path.c_str(), flags | O_DIRECTORY | O_CLOEXEC, 0);
        });
    };
    int descriptor = open(O_RDONLY);
    const bool pathOnly = descriptor < 0 && errno == EACCES;
    if (pathOnly) descriptor = open(O_PATH);
    if (descriptor < 0) throw SystemError("open the folder", errno);
    return {context, PosixFile(context.Calls, descriptor), pathOnly};
}

Folder Folder::Open(PosixContext& context, const std::string& path) {
    return OpenAt(context, AT_FDCWD, path);
}

Folder Folder::OpenFrom(const std::string& path) const {
    return OpenAt(*context_, handle_.Descriptor(), path);
}

PosixFile Folder::OpenFile(const std::string& name, int flags, mode_t mode) const {
    const int descriptor = Uninterrupted([&] {
        return context_->Calls.Open(handle_.Descriptor(), name.c_str(), flags | openingFlags, mode);
    });
    if (descriptor < 0) throw SystemError("open", errno);
    return {context_->Calls, descriptor};
}

std::optional<PosixFile> Folder::OpenRegular(const std::string& name) const {
    // Looked at first: opening a device may do something.
    const auto found = Find(name);
    if (!found || !S_ISREG(found->st_mode)) return std::nullopt;
    try {
        PosixFile file = OpenFile(name, O_RDONLY);
        if (S_ISREG(file.Status().st_mode)) return file;
    } catch (const SystemError& error) {
        if (error.Code() != ENOENT && error.Code() != ELOOP) throw;
    }
    return std::nullopt;
}

std::optional<FileStatus> Folder::Find(const std::string& name) const {
    FileStatus status{};
    const int found = Uninterrupted([&] {
        return context_->Calls.StatusAt(handle_.Descriptor(), name.c_str(), status,
                                        AT_SYMLINK_NOFOLLOW);
    });
    if (found == 0) return status;
    // A name that is too long is one that no file has.
    if (errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG) return std::nullopt;
    throw SystemError("look for", errno);
}

std::string Folder::ReadLink(const std::string& name) const {
    return LinkAt(context_->Calls, handle_.Descriptor(), name.c_str());
}

void Folder::Remove(const std::string& name) const {
    const int removed =
        Uninterrupted([&] { return context_->Calls.Unlink(handle_.Descriptor(), name.c_str()); });
    if (removed != 0 && errno != ENOENT) throw SystemError("delete", errno);
}

bool Folder::RenameToFree(const std::string& from, const std::string& to) const {
    const int folder = handle_.Descriptor();
    const auto rename = [&](unsigned flags) {
        return Uninterrupted([&] {
            return context_->Calls.Rename(folder, from.c_str(), folder, to.c_str(), flags);
        });
    };
    if (rename(RENAME_NOREPLACE) == 0) return true;
    if (errno == EEXIST) return false;
    if (errno != EINVAL && errno != ENOSYS) throw SystemError("rename", errno);
    if (Find(to)) return false;
    if (rename(0) != 0) throw SystemError("rename", errno);
    return true;
}

std::vector<std::string> Folder::List() const {
    std::vector<std::string> names;
    const int listed = Uninterrupted([&] {
        names.clear();
        return context_->Calls.List(handle_.Descriptor(), mostNames, names);
    });
    if (listed != 0) throw SystemError("list the folder", errno);
    return names;
}

void Folder::Sync() const {
    if (pathOnly_) return context_->Note(FileNotice::Kind::DurabilityUnknown, Path());
    try {
        handle_.Sync();
    } catch (const SystemError& error) {
        if (error.Code() != EINVAL && error.Code() != ENOTSUP) throw;
        context_->Note(FileNotice::Kind::DurabilityUnknown, Path());
    }
}

bool Folder::SameAs(const Folder& other) const {
    return SameFile(handle_.Status(), other.handle_.Status());
}

std::string Folder::Path() const {
    try {
        const std::string name = "/proc/self/fd/" + std::to_string(handle_.Descriptor());
        const std::string path = LinkAt(context_->Calls, AT_FDCWD, name.c_str());
        return path.starts_with('/') ? path : std::string();
    } catch (const SystemError&) {
        return {};
    }
}

}  // namespace quorvale
