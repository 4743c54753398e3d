#pragma once

#include <QString>

class QMenu;

namespace quorvale {

/// Fills the View menu's submenus for what the whole program takes on at once: how it looks and
/// what language it speaks. The choice is kept for the next run.
void addAppearances(QMenu& menu);
void addLanguages(QMenu& menu);

}  // namespace quorvale
