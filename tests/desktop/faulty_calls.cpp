// Preloaded into a program: counts the calls that change files in one folder, and lets one of them
// fail or ends the program there. FAULT_FOLDER is the folder, FAULT_LOG a file outside it that gets
// the name of every such call, FAULT_AT the number of the call, from 1 (0: none). FAULT_HOW is
// "before" or "after" (the program is killed there), or an error number; FAULT_ON=1 lets every call
// from that one on fail.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

struct Plan {
    std::string Folder;
    std::string Log;
    long At = 0;
    std::string How;
    bool On = false;
};

const Plan& ThePlan() {
    static const Plan plan = [] {
        const auto of = [](const char* name) {
            const char* value = std::getenv(name);
            return std::string(value == nullptr ? "" : value);
        };
        return Plan{of("FAULT_FOLDER"), of("FAULT_LOG"), std::atol(of("FAULT_AT").c_str()),
                    of("FAULT_HOW"), of("FAULT_ON") == "1"};
    }();
    return plan;
}

std::string PathOf(int file) {
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    char path[4096];
    const ssize_t size = readlink(link, path, sizeof path);
    return size <= 0 ? std::string() : std::string(path, static_cast<std::size_t>(size));
}

bool IsInFolder(int folder, const char* name) {
    const std::string& wanted = ThePlan().Folder;
    if (wanted.empty()) return false;
    if (name == nullptr) return PathOf(folder).starts_with(wanted + "/");
    if (name[0] == '/') return std::string(name).starts_with(wanted + "/");
    char current[4096];
    const std::string base = folder != AT_FDCWD                ? PathOf(folder)
                             : getcwd(current, sizeof current) ? std::string(current)
                                                               : std::string();
    return base == wanted;
}

template <class Function>
Function Next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void Note(const char* call) {
    static const int log = Next<int (*)(const char*, int, ...)>("open")(
        ThePlan().Log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const std::string line = std::string(call) + "\n";
    static const auto put = Next<ssize_t (*)(int, const void*, std::size_t)>("write");
    if (put(log, line.data(), line.size()) < 0) std::abort();
}

long calls = 0;

/// Counts a call, runs it as the plan says, and answers for it.
template <class Call>
auto Planned(const char* name, bool counts, Call call) -> decltype(call()) {
    if (!counts) return call();
    const long number = ++calls;
    Note(name);
    const Plan& plan = ThePlan();
    const bool now = plan.At > 0 && (number == plan.At || (plan.On && number > plan.At));
    if (!now) return call();
    if (plan.How == "before") std::raise(SIGKILL);
    if (plan.How == "after") {
        const auto answer = call();
        std::raise(SIGKILL);
        return answer;
    }
    errno = std::atoi(plan.How.c_str());
    return -1;
}

}  // namespace

extern "C" {

int openat(int folder, const char* name, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    static const auto real = Next<int (*)(int, const char*, int, ...)>("openat");
    const bool writes = (flags & (O_CREAT | O_WRONLY | O_RDWR)) != 0;
    return Planned("open", writes && IsInFolder(folder, name),
                   [&] { return real(folder, name, flags, mode); });
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t to) {
    static const auto real = Next<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite");
    return Planned("write", IsInFolder(file, nullptr),
                   [&] { return real(file, bytes, count, to); });
}

int ftruncate(int file, off_t size) {
    static const auto real = Next<int (*)(int, off_t)>("ftruncate");
    return Planned("truncate", IsInFolder(file, nullptr), [&] { return real(file, size); });
}

int fsync(int file) {
    static const auto real = Next<int (*)(int)>("fsync");
    const std::string& folder = ThePlan().Folder;
    const bool counts = IsInFolder(file, nullptr) || (!folder.empty() && PathOf(file) == folder);
    return Planned("sync", counts, [&] { return real(file); });
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
    static const auto real = Next<int (*)(int, const char*, int, const char*)>("renameat");
    return Planned("rename", IsInFolder(toFolder, to),
                   [&] { return real(fromFolder, from, toFolder, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    static const auto real =
        Next<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
    return Planned("exchange", IsInFolder(toFolder, to),
                   [&] { return real(fromFolder, from, toFolder, to, flags); });
}

int unlinkat(int folder, const char* name, int flags) {
    static const auto real = Next<int (*)(int, const char*, int)>("unlinkat");
    return Planned("unlink", IsInFolder(folder, name), [&] { return real(folder, name, flags); });
}

int fchown(int file, uid_t owner, gid_t group) {
    static const auto real = Next<int (*)(int, uid_t, gid_t)>("fchown");
    return Planned("chown", IsInFolder(file, nullptr), [&] { return real(file, owner, group); });
}

int fchmod(int file, mode_t mode) {
    static const auto real = Next<int (*)(int, mode_t)>("fchmod");
    return Planned("chmod", IsInFolder(file, nullptr), [&] { return real(file, mode); });
}

int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) {
    static const auto real = Next<int (*)(int, const char*, const void*, size_t, int)>("fsetxattr");
    return Planned("setxattr", IsInFolder(file, nullptr),
                   [&] { return real(file, name, value, size, flags); });
}
}
