#pragma once

#include <QJsonArray>
#include <QJsonObject>

namespace quorvale {

class QuorvaleBoxWidget;

/// What a running viewer shows beside its rows, as JSON. Places are in pixels of the control, and
/// of the screen for menus.

/// The rows of the results list that are seen; empty while it is hidden.
QJsonArray seenResults(QuorvaleBoxWidget& control);

/// Where the Find button and the arrow of its menu are.
QJsonObject findButton(QuorvaleBoxWidget& control);

/// The entries of the menu that is open; empty for none.
QJsonArray openMenu();

/// The title, the text, and the fields of the dialog that is open; empty for none.
QJsonObject openDialog();

/// Every window of the viewer, with its title, place and caret.
QJsonArray openWindows();

}  // namespace quorvale
