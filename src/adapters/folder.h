#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/posix_context.h"
#include "adapters/posix_file.h"

namespace quorvale {

/// An open folder. All names are taken relative to it, so that nothing that happens to the way that
/// led there can turn what is done into something else. Functions throw SystemError.
class Folder {
public:
    static Folder Open(PosixContext& context, const std::string& path);

    /// A path as seen from this folder.
    Folder OpenFrom(const std::string& path) const;

    PosixContext& Context() const { return *context_; }
    const PosixFile& Handle() const { return handle_; }

    /// Links are not followed, and opening never waits.
    PosixFile OpenFile(const std::string& name, int flags, mode_t mode = 0) const;
    /// For reading; none when there is no such name or it is no regular file.
    std::optional<PosixFile> OpenRegular(const std::string& name) const;
    /// None when there is no such name. A link is described itself.
    std::optional<FileStatus> Find(const std::string& name) const;
    std::string ReadLink(const std::string& name) const;
    /// A name that is not there counts as removed.
    void Remove(const std::string& name) const;
    /// False when `to` exists. Where the system cannot promise that, it is looked for before.
    bool RenameToFree(const std::string& from, const std::string& to) const;
    std::vector<std::string> List() const;

    /// What was done to the names is on the disk afterwards. A system that cannot say so of folders
    /// is believed, and the host is told.
    void Sync() const;
    /// The folder can be used, but neither listed nor synchronised.
    bool IsPathOnly() const { return pathOnly_; }

    bool SameAs(const Folder& other) const;
    /// Where it is; empty when the system does not say.
    std::string Path() const;

private:
    Folder(PosixContext& context, PosixFile handle, bool pathOnly)
        : context_(&context), handle_(std::move(handle)), pathOnly_(pathOnly) {}

    static Folder OpenAt(PosixContext& context, int from, const std::string& path);

    PosixContext* context_;
    PosixFile handle_;
    bool pathOnly_;
};

}  // namespace quorvale
