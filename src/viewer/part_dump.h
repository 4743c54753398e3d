#pragma once

#include <QJsonObject>

class QMainWindow;

namespace quorvale {

/// Adds what a window's buttons, boxes, labels and menu titles show to a dump: "parts" with their
/// places in pixels of the window, the size that their text needs, and their states; "keysAt", the
/// part that has the keys; "popup", what an open menu or dialog says, and where a menu's entries
/// are; and whether the window is "dark".
void dumpParts(QMainWindow& window, QJsonObject& dump);

}  // namespace quorvale
