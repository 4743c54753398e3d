#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/posix_calls.h"

namespace quorvale {

/// The real system calls, of which a chosen one fails, or ends the process. Calls are counted
/// from 1. Nothing is really synchronised: no test cuts the power.
class FaultyCalls final : public PosixCalls {
public:
    static constexpr int killed = 77;

    struct Fault {
        int At = 0;
        int Error = 0;
        bool Once = true;
        /// What is reported as a failure happens all the same, as networks do it.
        bool DoneAnyway = false;
    };

    Fault Failing;
    /// The process ends before this call, or after it.
    int KillBefore = 0;
    int KillAfter = 0;
    /// Reading and writing handle about half of what they are asked for.
    bool Short = false;
    /// Refuses calls for a reason of its own: the call's name, the file's name, the flags; 0 lets
    /// it pass.
    std::function<int(std::string_view, std::string_view, unsigned)> Refuse;
    /// Runs before a call is made.
    std::function<void(std::string_view, std::string_view)> Before;

    int Count() const { return count_; }
    const std::vector<std::string>& Log() const { return log_; }
    void StartAnew() {
        count_ = 0;
        log_.clear();
        Failing = {};
    }

    int Open(int folder, const char* name, int flags, mode_t mode) override {
        return Pass("open", name, static_cast<unsigned>(flags),
                    [&] { return real_.Open(folder, name, flags, mode); });
    }
    int Close(int file) override {
        // Closed it is in any case.
        const int result = real_.Close(file);
        return Pass("close", "", 0, [&] { return result; });
    }
    ssize_t Read(int file, void* into, std::size_t count, off_t from) override {
        return Pass("read", "", 0, [&] { return real_.Read(file, into, Part(count), from); });
    }
    ssize_t Write(int file, const void* bytes, std::size_t count, off_t to) override {
        return Pass("write", "", 0, [&] { return real_.Write(file, bytes, Part(count), to); });
    }
    int Truncate(int file, off_t size) override {
        return Pass("truncate", "", 0, [&] { return real_.Truncate(file, size); });
    }
    int Reserve(int file, off_t size) override {
        return Pass("reserve", "", 0, [&] { return real_.Reserve(file, size); });
    }
    int Sync(int) override {
        return Pass("sync", "", 0, [] { return 0; });
    }
    int StartWriting(int, off_t, off_t) override {
        return Pass("hint", "", 0, [] { return 0; });
    }
    int Status(int file, struct stat& status) override {
        return Pass("status", "", 0, [&] { return real_.Status(file, status); });
    }
    int StatusAt(int folder, const char* name, struct stat& status, int flags) override {
        return Pass("look", name, 0, [&] { return real_.StatusAt(folder, name, status, flags); });
    }
    int MayWrite(int folder, const char* name) override {
        return Pass("access", name, 0, [&] { return real_.MayWrite(folder, name); });
    }
    int Rename(int fromFolder, const char* from, int toFolder, const char* to,
               unsigned flags) override {
        return Pass("rename", to, flags,
                    [&] { return real_.Rename(fromFolder, from, toFolder, to, flags); });
    }
    int Unlink(int folder, const char* name) override {
        return Pass("unlink", name, 0, [&] { return real_.Unlink(folder, name); });
    }
    int MakeFolder(const char* name, mode_t mode) override {
        return Pass("mkdir", name, 0, [&] { return real_.MakeFolder(name, mode); });
    }
    ssize_t ReadLink(int folder, const char* name, char* into, std::size_t size) override {
        return Pass("readlink", name, 0, [&] { return real_.ReadLink(folder, name, into, size); });
    }
    int List(int folder, std::size_t most, std::vector<std::string>& names) override {
        return Pass("list", "", 0, [&] { return real_.List(folder, most, names); });
    }
    int Lock(int file) override {
        return Pass("lock", "", 0, [&] { return real_.Lock(file); });
    }
    int Duplicate(int file) override {
        return Pass("dup", "", 0, [&] { return real_.Duplicate(file); });
    }
    int ChangeOwner(int file, uid_t owner, gid_t group) override {
        return Pass("chown", "", 0, [&] { return real_.ChangeOwner(file, owner, group); });
    }
    int ChangeMode(int file, mode_t mode) override {
        return Pass("chmod", "", 0, [&] { return real_.ChangeMode(file, mode); });
    }
    ssize_t ListAttributes(int file, char* into, std::size_t size) override {
        return Pass("listxattr", "", 0, [&] { return real_.ListAttributes(file, into, size); });
    }
    ssize_t GetAttribute(int file, const char* name, void* into, std::size_t size) override {
        return Pass("getxattr", name, 0,
                    [&] { return real_.GetAttribute(file, name, into, size); });
    }
    int SetAttribute(int file, const char* name, const void* value, std::size_t size) override {
        return Pass("setxattr", name, 0,
                    [&] { return real_.SetAttribute(file, name, value, size); });
    }
    int RemoveAttribute(int file, const char* name) override {
        return Pass("removexattr", name, 0, [&] { return real_.RemoveAttribute(file, name); });
    }
    ssize_t Random(void* into, std::size_t size) override {
        return Pass("random", "", 0, [&] { return real_.Random(into, size); });
    }
    int CurrentFolder(char* into, std::size_t size) override {
        return Pass("getcwd", "", 0, [&] { return real_.CurrentFolder(into, size); });
    }

private:
    std::size_t Part(std::size_t count) const { return Short ? (count + 1) / 2 : count; }

    template <class Call>
    auto Pass(std::string_view call, std::string_view name, unsigned flags, Call real)
        -> decltype(real()) {
        ++count_;
        log_.push_back(std::string(call) + " " + std::string(name));
        if (Before) Before(call, name);
        if (count_ == KillBefore) _exit(killed);
        const bool fails =
            Failing.At != 0 && (Failing.Once ? count_ == Failing.At : count_ >= Failing.At);
        if (fails) {
            if (Failing.DoneAnyway) real();
            errno = Failing.Error;
            return -1;
        }
        const int refused = Refuse ? Refuse(call, name, flags) : 0;
        const auto result = refused != 0 ? -1 : real();
        if (count_ == KillAfter) _exit(killed);
        if (refused != 0) errno = refused;
        return result;
    }

    PosixCalls& real_ = SystemCalls();
    int count_ = 0;
    std::vector<std::string> log_;
};

}  // namespace quorvale
