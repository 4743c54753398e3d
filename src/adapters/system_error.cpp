#include "adapters/system_error.h"

#include <cerrno>
#include <system_error>

namespace quorvale {

SystemError::SystemError(std::string operation, int code)
    : SystemError(std::move(operation), ReasonOf(code), code) {}

std::string ReasonOf(int error) { return std::generic_category().message(error); }

bool IsAbsence(int code) {
    return code == ENOENT || code == ENOTDIR || code == ELOOP || code == ENAMETOOLONG ||
           code == EISDIR;
}

}  // namespace quorvale
