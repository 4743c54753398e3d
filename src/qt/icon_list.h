#pragma once

#include <QIcon>
#include <QSize>
#include <QString>
#include <memory>

#include "qt/export.h"

namespace quorvale {

class ImageList;
class Object;

/// Icons for the lines of a control, found by name or by their number in the list, from 1. Copies
/// share their icons.
class QUORVALE_WIDGET_EXPORT IconList {
public:
    IconList();
    /// The icons behind such an object; an empty list for any other object. For this library.
    explicit IconList(const std::shared_ptr<Object>& object);

    /// False, and nothing happens, for a null icon or a name that is taken, in any case of letters.
    /// `size` in logical pixels.
    bool add(const QString& name, const QIcon& icon, QSize size = QSize(12, 12));

    /// The greatest number that finds an icon.
    int count() const;

    /// What the control is given; for this library.
    std::shared_ptr<Object> object() const;

private:
    std::shared_ptr<ImageList> icons_;
};

}  // namespace quorvale
