#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "corrections/edit_script.h"

namespace quorvale {

/// Takes pieces of an output, one after the other.
using Sink = std::function<void(std::string_view)>;

/// Puts what is between two versions of a file as the hunks of a unified diff, with three lines of
/// context. The script is what made the new version and tells which lines belong together; the diff
/// is right for any script, but short for the right one only. `show` makes of a line, without its
/// line feed, what is put.
void WriteLineDiff(std::string_view before, std::string_view after, const EditScript& script,
                   const std::function<std::string(std::string_view)>& show, const Sink& put);

}  // namespace quorvale
