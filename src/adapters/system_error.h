#pragma once

#include <exception>
#include <string>
#include <utility>

#include "platform/files.h"

namespace quorvale {

/// What the file layer throws inside itself when a system call fails, or when it refuses to go on.
/// It never leaves `PosixFiles`, which makes a result of it.
class SystemError : public std::exception {
public:
    /// `code` as errno has it.
    SystemError(std::string operation, int code);
    /// 0 for a code when no system call failed.
    SystemError(std::string operation, std::string reason, int code = 0)
        : operation_(std::move(operation)), reason_(std::move(reason)), code_(code) {}

    int Code() const { return code_; }
    const char* what() const noexcept override { return reason_.c_str(); }
    /// The name is that of the file the caller asked for: those of our helping files say nothing.
    FileFailure Failure(std::u16string name) const {
        return {operation_, std::move(name), reason_};
    }

private:
    std::string operation_;
    std::string reason_;
    int code_;
};

std::string ReasonOf(int error);

/// Does the error say that nothing is at a name, and nothing could be?
bool IsAbsence(int code);

}  // namespace quorvale
