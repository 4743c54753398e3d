#pragma once

#include <QString>

namespace quorvale {

/// What came of loading the plugin for Qt Designer.
struct DesignerCheck {
    bool Loads = false;
    /// For people: where it lies and what it offers, or why it would not load.
    QString Report;
};

/// Loads the plugin as Designer does: the one with this name, or, when the name is empty, the first
/// one in the places where Qt looks for plugins.
DesignerCheck checkDesignerPlugin(const QString& fileName, const QString& ownVersion);

}  // namespace quorvale
