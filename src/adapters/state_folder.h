#pragma once

#include <optional>
#include <string>

#include "adapters/folder.h"

namespace quorvale {

/// Where the environment says that programs keep their state: $XDG_STATE_HOME/quorvale, or
/// ~/.local/state/quorvale. Empty when it says nothing.
std::string DefaultStateFolder();

/// Nobody else can put anything into the folder.
bool IsOursAlone(const Folder& folder);

/// The folder for records, made when it is not there. Throws SystemError when there can be none
/// that belongs to us alone: what is read from there is written into files.
Folder CreateStateFolder(PosixContext& context);

/// None when there is no such folder, or when it cannot hold anything of ours.
std::optional<Folder> FindStateFolder(PosixContext& context);

}  // namespace quorvale
