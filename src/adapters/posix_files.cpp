#include "adapters/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "base/utf8.h"

namespace quorvale {

namespace {

constexpr const char* openOperation = "open";
constexpr const char* readOperation = "read";

std::string ReasonOf(int error) { return std::generic_category().message(error); }

/// Runs a system call again for as long as a signal interrupts it.
template <class Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

/// The bytes of a name; what stands for no byte makes the name one that no file can have, and that
/// is for the system to say.
std::string PathOf(std::u16string_view name) {
    std::string path;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char16_t unit = name[i];
        if (IsHighSurrogate(unit) && i + 1 < name.size() && IsLowSurrogate(name[i + 1])) {
            AppendUtf8(path, FromSurrogates(unit, name[++i]));
        } else if (unit >= 0xDC80 && unit <= 0xDCFF) {
            path.push_back(static_cast<char>(unit - 0xDC00));
        } else {
            AppendUtf8(path, unit);
        }
    }
    return path;
}

/// Why this is not a file whose bytes can be read from the first to the last; empty if it is.
std::string ReasonAgainst(mode_t mode) {
    if (S_ISREG(mode)) return {};
    if (S_ISDIR(mode)) return "Is a directory";
    if (S_ISFIFO(mode)) return "Is a pipe, not a file";
    if (S_ISCHR(mode) || S_ISBLK(mode)) return "Is a device, not a file";
    return "Is not a regular file";
}

class PosixStream final : public ReadStream {
public:
    PosixStream(int descriptor, std::u16string name)
        : descriptor_(descriptor), name_(std::move(name)) {}
    PosixStream(const PosixStream&) = delete;
    PosixStream& operator=(const PosixStream&) = delete;
    ~PosixStream() override { close(descriptor_); }

    /// Empty when the file is open and regular, else what stands against it.
    std::string Examine() {
        struct stat status {};
        if (fstat(descriptor_, &status) != 0) return ReasonOf(errno);
        size_ = static_cast<std::uint64_t>(status.st_size);
        return ReasonAgainst(status.st_mode);
    }

    std::uint64_t Size() const override { return size_; }

    FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
        std::size_t done = 0;
        while (done < count) {
            const ssize_t got =
                Uninterrupted([&] { return read(descriptor_, into + done, count - done); });
            if (got < 0) return FileFailure{readOperation, name_, ReasonOf(errno)};
            if (got == 0) break;
            done += static_cast<std::size_t>(got);
        }
        return done;
    }

private:
    int descriptor_;
    std::u16string name_;
    std::uint64_t size_ = 0;
};

}  // namespace

FileResult<std::unique_ptr<ReadStream>> PosixFiles::OpenForReading(std::u16string_view name) {
    const auto failed = [&](std::string reason) {
        return FileFailure{openOperation, std::u16string(name), std::move(reason)};
    };
    if (name.find(u'\0') != name.npos) return failed("The name holds a NUL character");
    // Not blocking, because opening a pipe would wait for someone to write into it.
    const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const std::string path = PathOf(name);
    const int descriptor = Uninterrupted([&] { return open(path.c_str(), flags); });
    if (descriptor < 0) return failed(ReasonOf(errno));
    auto stream = std::make_unique<PosixStream>(descriptor, std::u16string(name));
    std::string reason = stream->Examine();
    if (!reason.empty()) return failed(std::move(reason));
    return std::unique_ptr<ReadStream>(std::move(stream));
}

}  // namespace quorvale
