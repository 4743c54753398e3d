#pragma once

#include <QRect>
#include <QString>
#include <string>
#include <string_view>

#include "base/units.h"
#include "platform/element.h"

namespace quorvale {

/// Twips of one logical pixel, whatever the screen's scale.
inline constexpr Twips twipsPerPixel = 15;

constexpr double toPixels(Twips twips) { return twips / twipsPerPixel; }
constexpr Twips toTwips(double pixels) { return pixels * twipsPerPixel; }

inline QString toQString(std::u16string_view text) {
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}

inline std::u16string toUtf16(const QString& text) { return text.toStdU16String(); }

/// Where an element lies, in pixels of whatever its place is relative to.
inline QRectF pixelRect(const Element& element) {
    return {toPixels(element.Left()), toPixels(element.Top()), toPixels(element.Width()),
            toPixels(element.Height())};
}

}  // namespace quorvale
