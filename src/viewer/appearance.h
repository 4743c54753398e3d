#pragma once

#include <QPalette>
#include <QStringList>

namespace quorvale {

/// How the viewer may look: "system" is the desktop's style and colours, "light" and "dark" are the
/// viewer's own, the same on every desktop.
QStringList viewerAppearances();

/// The viewer's own colours; every text in them has a contrast of 4.5 : 1 at least.
QPalette lightColours();
QPalette darkColours();

/// From now on all windows look like this.
void wear(const QString& appearance);

/// Looks as the user chose last.
void wearAsChosen();

}  // namespace quorvale
