#pragma once

#include <string_view>

namespace quorvale {

/// How serious a line of a log looks.
enum class Severity { Plain, Warning, Error };

/// Judged by whole words in any case: "error", "fatal", "critical", "severe", "exception", "fail",
/// "failed" and "failure" make an error, "warn" and "warning" a warning. Only the start of a very
/// long line is looked at.
Severity severityOf(std::u16string_view line);

}  // namespace quorvale
