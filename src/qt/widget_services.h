#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/file_notice.h"
#include "platform/host_services.h"
#include "qt/font_faces.h"

namespace quorvale {

/// The outside world of a control in a Qt window: real files, real message boxes, the widget as the
/// container, and the language of the user's desktop. `report` hears of every property that the
/// control says it has set, `notice` of what its files did besides.
HostServices widgetServices(QWidget& control, std::shared_ptr<FontFaces> faces,
                            std::function<void(const QString& property)> report,
                            std::function<void(const FileNotice&)> notice);

}  // namespace quorvale
