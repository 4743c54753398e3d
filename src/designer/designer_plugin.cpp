#include "designer/designer_plugin.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPalette>

#include "qt/quorvale_box_widget.h"

namespace quorvale {

namespace {

/// Whether a form that is being designed is among the ancestors. Asked by name, so that programs
/// that only load forms need nothing of Designer's own library.
bool liesOnDesignedForm(const QObject* object) {
    for (; object != nullptr; object = object->parent()) {
        if (object->inherits("QDesignerFormWindowInterface")) return true;
    }
    return false;
}

}  // namespace

QString DesignerPlugin::name() const { return QStringLiteral("quorvale::QuorvaleBoxWidget"); }

// Of its own: Designer's groups have other names in every language.
QString DesignerPlugin::group() const { return QStringLiteral("QuorvaleBox"); }

QString DesignerPlugin::toolTip() const { return tr("Shows one large text file as rows"); }

QString DesignerPlugin::whatsThis() const {
    return tr(
        "<p><b>QuorvaleBox</b> shows one text file of any usual size as rows, with a toolbar for "
        "finding, folding and going to a line. Single lines have colours and pictures, ranges of "
        "lines fold.</p><p>Its user may correct lines: the corrections wait in a journal beside "
        "the file until they are committed.</p>");
}

QString DesignerPlugin::includeFile() const { return QStringLiteral("qt/quorvale_box_widget.h"); }

// The widget box takes no icon that does not say which sizes it has, as drawings do not.
QIcon DesignerPlugin::icon() const {
    const QColor ground = QGuiApplication::palette().color(QPalette::Window);
    const QIcon drawing(ground.lightness() < 128
                            ? QStringLiteral(":/quorvalebox/designer/on_dark.svg")
                            : QStringLiteral(":/quorvalebox/designer/on_light.svg"));
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 44, 48}) {
        icon.addPixmap(drawing.pixmap(QSize(size, size), 1));
    }
    return icon;
}

QString DesignerPlugin::domXml() const {
    return QStringLiteral(R"(<ui language="c++" displayname="QuorvaleBox">
 <widget class="quorvale::QuorvaleBoxWidget" name="quorvaleBox">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>400</width><height>240</height></rect>
  </property>
 </widget>
</ui>)");
}

QWidget* DesignerPlugin::createWidget(QWidget* parent) {
    auto* widget = new QuorvaleBoxWidget(parent);
    widget->setDesigned(liesOnDesignedForm(parent));
    return widget;
}

}  // namespace quorvale
