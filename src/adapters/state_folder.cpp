#include "adapters/state_folder.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "adapters/posix_names.h"
#include "adapters/system_error.h"

namespace quorvale {

namespace {

constexpr const char* operation = "open the folder for records";

std::string AbsoluteVariable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : std::string();
}

}  // namespace

bool IsOursAlone(const Folder& folder) {
    const FileStatus status = folder.Handle().Status();
    return status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

std::string DefaultStateFolder() {
    std::string state = AbsoluteVariable("XDG_STATE_HOME");
    if (state.empty()) {
        state = AbsoluteVariable("HOME");
        if (state.empty()) return {};
        state += "/.local/state";
    }
    return state + "/quorvale";
}

Folder CreateStateFolder(PosixContext& context) {
    const std::string& path = context.StateFolder;
    if (path.empty()) throw SystemError(operation, "There is no place for it");
    for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
        const std::string part = path.substr(0, end);
        const int made =
            Uninterrupted([&] { return context.Calls.MakeFolder(part.c_str(), 0700); });
        // A record is no use in a folder that a power cut takes away.
        if (made == 0) Folder::Open(context, Split(part).Folder).Sync();
        // Whatever stands against an upper folder shows in the last one.
        if (end != path.npos) continue;
        if (made != 0 && errno != EEXIST) throw SystemError(operation, errno);
        break;
    }
    Folder folder = Folder::Open(context, path);
    if (!IsOursAlone(folder)) throw SystemError(operation, "It belongs to somebody else", EPERM);
    return folder;
}

std::optional<Folder> FindStateFolder(PosixContext& context) {
    if (context.StateFolder.empty()) return std::nullopt;
    try {
        Folder folder = Folder::Open(context, context.StateFolder);
        if (IsOursAlone(folder)) return folder;
    } catch (const SystemError& error) {
        // Where we have no way in, we have left nothing either.
        if (error.Code() != ENOENT && error.Code() != ENOTDIR && error.Code() != EACCES) throw;
    }
    return std::nullopt;
}

}  // namespace quorvale
