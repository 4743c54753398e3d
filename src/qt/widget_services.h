#pragma once

#include <QLocale>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/file_notice.h"
#include "platform/host_services.h"
#include "qt/control_link.h"
#include "qt/font_faces.h"
#include "qt/widget_ports.h"
#include "resources/string_table.h"

namespace quorvale {

/// The number of the interface language that the control's texts are in where the user has asked
/// for these, in the user's order: that of the first one. 1033, English, for one without a table.
int languageIdOf(const QStringList& uiLanguages);

/// What new widgets speak from now on; `QLocale::AnyLanguage` for what the user's desktop speaks.
void setLanguageOfNewWidgets(QLocale::Language language);
QLocale::Language languageOfNewWidgets();

/// The language of a new widget in the place of this one.
Language languageFor(const QWidget& widget);

/// The outside world of a control in a Qt window: real files, real message boxes, the widget as the
/// container, and the language of new widgets or else of the widget's locale, which is the
/// desktop's unless the host chose another one; `ports` go first. `designed` tells whether the
/// widget lies on a form that is being designed. `report` hears of every property that the control
/// says it has set, `notice` of what its files did besides.
HostServices widgetServices(QWidget& control, std::shared_ptr<FontFaces> faces,
                            const ControlLinkPtr& link, std::shared_ptr<const bool> designed,
                            const WidgetPorts& ports,
                            std::function<void(const QString& property)> report,
                            std::function<void(const FileNotice&)> notice);

}  // namespace quorvale
