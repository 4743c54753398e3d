#include "qt/icon_list.h"

#include "platform/keyed_pictures.h"
#include "qt/conversions.h"
#include "qt/qt_picture.h"

namespace quorvale {

IconList::IconList() : icons_(std::make_shared<ImageList>()) {}

IconList::IconList(const std::shared_ptr<Object>& object)
    : icons_(std::dynamic_pointer_cast<ImageList>(object)) {
    if (icons_ == nullptr) icons_ = std::make_shared<ImageList>();
}

bool IconList::add(const QString& name, const QIcon& icon, QSize size) {
    if (icon.isNull()) return false;
    return icons_->Add(toUtf16(name), std::make_shared<QtPicture>(name.toStdString(), icon, size));
}

int IconList::count() const { return static_cast<int>(icons_->Count()); }

std::shared_ptr<Object> IconList::object() const { return icons_; }

}  // namespace quorvale
