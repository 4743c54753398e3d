#include "adapters/document_lock.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "adapters/located_file.h"
#include "adapters/posix_names.h"
#include "adapters/state_folder.h"
#include "adapters/system_error.h"

namespace quorvale {

namespace {

constexpr const char* operation = "lock";

/// How often somebody else may remove the lock between our opening and locking it.
constexpr int mostAttempts = 100;

std::string AbsoluteVariable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : std::string();
}

/// The session's own folder, which nobody cleans up while it lasts; empty where there is none, or
/// where it belongs to somebody else.
std::string SessionFolder(PosixContext& context) {
    std::string path = AbsoluteVariable("XDG_RUNTIME_DIR");
    if (path.empty()) return path;
    try {
        return IsOursAlone(Folder::Open(context, path)) ? path : std::string();
    } catch (const SystemError&) {
        return {};
    }
}

/// A place that the user's programs share, in this session of the system.
std::string PlaceOfLocks(PosixContext& context) {
    const std::string session = SessionFolder(context);
    if (!session.empty()) return session + "/quorvale";
    const std::string temporary = AbsoluteVariable("TMPDIR");
    return (temporary.empty() ? "/tmp" : temporary) + "/quorvale-" + std::to_string(geteuid());
}

Folder OpenPlace(PosixContext& context) {
    const std::string path = PlaceOfLocks(context);
    Uninterrupted([&] { return context.Calls.MakeFolder(path.c_str(), 0700); });
    Folder folder = Folder::Open(context, path);
    if (!IsOursAlone(folder)) throw SystemError(operation, path + " belongs to somebody else");
    return folder;
}

std::string NameOfLock(const std::string& identity) {
    const FileDigest digest = DigestOf(identity);
    std::array<char, 40> name{};
    std::snprintf(name.data(), name.size(), "%016llx%016llx.lock",
                  static_cast<unsigned long long>(digest.High),
                  static_cast<unsigned long long>(digest.Low));
    return name.data();
}

}  // namespace

/// A lock that is held: its file, open and locked, and where it lies.
struct DocumentLock::Held {
    Folder Place;
    std::string Name;
    PosixFile File;
};

DocumentLock::DocumentLock(std::u16string_view fileName)
    : context_(new PosixContext{SystemCalls()}) {
    try {
        Take(fileName);
    } catch (const SystemError& error) {
        whyNot_ = error.what();
    }
}

// The name goes while the lock is still held, so nobody can be holding it by then.
DocumentLock::~DocumentLock() {
    if (!held_) return;
    try {
        held_->Place.Remove(held_->Name);
    } catch (const SystemError&) {
        // It lies there for whoever comes next.
    }
}

void DocumentLock::Take(std::u16string_view fileName) {
    std::string name = NameOfLock(Locate(*context_, PathOf(fileName)).Identity());
    Folder place = OpenPlace(*context_);
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        PosixFile file = place.OpenFile(name, O_RDWR | O_CREAT, 0600);
        taken_ = !file.Lock();
        if (taken_) {
            whyNot_ = "Another program works on it";
            return;
        }
        // Its last owner may have removed it meanwhile: then it keeps nobody out.
        const auto there = place.Find(name);
        if (!there || !SameFile(*there, file.Status())) continue;
        held_.reset(new Held{std::move(place), std::move(name), std::move(file)});
        return;
    }
    throw SystemError(operation, "The lock is removed over and over");
}

}  // namespace quorvale
