#include "adapters/system_error.h"

#include <system_error>

namespace quorvale {

SystemError::SystemError(std::string operation, int code)
    : SystemError(std::move(operation), ReasonOf(code), code) {}

std::string ReasonOf(int error) { return std::generic_category().message(error); }

}  // namespace quorvale
