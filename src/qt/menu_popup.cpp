#include "qt/menu_popup.h"

#include <QMenu>
#include <QTimer>

#include "qt/conversions.h"

namespace quorvale {

namespace {

void addItem(QMenu& menu, const MenuItem& item) {
    if (item.IsSeparator()) {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(toQString(item.Caption));
    action->setEnabled(item.Enabled);
    action->setData(toQString(item.Key));
}

}  // namespace

void MenuPopup::open(ElementOf element, const ControlLinkPtr& link, QWidget& control,
                     QPoint place) {
    if (link->box() == nullptr) return;
    auto* menu = new QMenu(&control);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const Menu& shown = link->box()->Elements().*element;
    menu->setObjectName(QString::fromStdString(shown.Name()));
    for (const MenuItem& item : shown.Items) addItem(*menu, item);
    QObject::connect(menu, &QMenu::triggered, menu, [link, element](QAction* action) {
        const std::u16string key = toUtf16(action->data().toString());
        link->run([&](Surface& surface) { (surface.*element).UserPick(key); });
    });
    // The menu closes before it says what was picked; a pick has by then taken the menu's place.
    QObject::connect(menu, &QMenu::aboutToHide, &control, [link, element] {
        QTimer::singleShot(0, [link, element] {
            link->run([&](Surface& surface) { (surface.*element).UserCancel(); });
        });
    });
    menu->popup(place);
}

}  // namespace quorvale
