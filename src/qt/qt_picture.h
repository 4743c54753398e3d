#pragma once

#include <QIcon>
#include <QImage>
#include <QSize>

#include "platform/picture.h"

namespace quorvale {

/// A picture that a Qt host hands to the control: a line's image, the caret's, a button's.
class QtPicture final : public Picture {
public:
    /// `size` in logical pixels.
    QtPicture(std::string name, const QIcon& icon, QSize size);

    const QIcon& icon() const { return icon_; }

private:
    QIcon icon_;
};

/// The picture drawn over so many of the screen's pixels; a null image for a picture that no
/// surface can draw.
QImage drawnPicture(const Picture& picture, QSize screenPixels);

/// The picture as an icon that is drawn anew at every size and scale; a null one for no picture.
QIcon toIcon(const PicturePtr& picture);

}  // namespace quorvale
