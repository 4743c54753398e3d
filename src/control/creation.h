#pragma once

#include "platform/host_options.h"
#include "platform/surface.h"
#include "resources/string_table.h"

namespace quorvale {

/// Gives a new surface its pictures, buttons, menus and texts, as they are before any property is
/// read: "Edit" and "Collapsed" are disabled until there is something to edit or fold.
void CreateElements(Surface& surface, Language language, const HostOptions& options);

/// Puts the texts into another language. A box that holds something else than its first text keeps
/// it.
void ChangeTexts(Surface& surface, Language from, Language to);

/// One boundary line for each column of the options; further ones go. New lines are shown where
/// the "Grid" button is pressed.
void CreateBoundaries(Surface& surface, const HostOptions& options);

}  // namespace quorvale
