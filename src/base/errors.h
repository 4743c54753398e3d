#pragma once

#include <exception>
#include <string>
#include <utility>

#include "base/export.h"

namespace quorvale {

/// What went wrong, in the terms a host can act on.
enum class ErrorKind {
    Overflow,        ///< a result does not fit its 16- or 32-bit type
    TypeMismatch,    ///< a value cannot be read as the type that is needed
    DivideByZero,    ///< an integer division by zero
    Index,           ///< no such element, line or entry
    InvalidValue,    ///< an element refuses the value
    WriteOnly,       ///< a property that has no Get was read
    ReadOnly,        ///< a property that has no Let or Set was written
    MemberNotFound,  ///< no member has that id, or not of that kind
    ArgumentCount,   ///< too few or too many arguments
    File,            ///< the outside world failed: file, folder, permission
    OutOfMemory,     ///< the document does not fit into memory
};

/// The control's one error type. Members let it out to the host; handlers of user actions trap it.
class QUORVALE_CORE_EXPORT ControlError : public std::exception {
public:
    /// The description is for people, in English.
    ControlError(ErrorKind kind, std::string description)
        : kind_(kind), description_(std::move(description)) {}

    /// What a program decides by.
    ErrorKind Kind() const noexcept { return kind_; }
    /// What a person reads.
    const char* what() const noexcept override { return description_.c_str(); }

private:
    ErrorKind kind_;
    std::string description_;
};

}  // namespace quorvale
