#include "viewer/part_dump.h"

#include <QApplication>
#include <QDialog>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolButton>

namespace quorvale {

namespace {

QJsonArray inNumbers(const QRect& place) {
    return {place.x(), place.y(), place.width(), place.height()};
}

QJsonArray inNumbers(const QSize& size) { return {size.width(), size.height()}; }

QJsonObject partOf(const QWidget& widget, const QString& text, const QSize& needed) {
    QJsonObject part;
    part["name"] = widget.objectName();
    part["text"] = text;
    part["place"] = inNumbers(QRect(widget.mapTo(widget.window(), QPoint()), widget.size()));
    part["needs"] = inNumbers(needed);
    part["visible"] = widget.isVisible();
    part["enabled"] = widget.isEnabled();
    return part;
}

QJsonObject partOf(const QToolButton& button) {
    QJsonObject part = partOf(button, button.text(), button.sizeHint());
    part["checked"] = button.isChecked();
    part["tip"] = button.toolTip();
    return part;
}

QJsonObject partOf(const QLineEdit& box) {
    // The frame and the margins that a box keeps around its text.
    constexpr int around = 8;
    const QFontMetrics metrics = box.fontMetrics();
    const int width = metrics.horizontalAdvance(box.text()) + around;
    return partOf(box, box.text(), QSize(width, metrics.height()));
}

QJsonArray titlesOf(const QMenuBar& bar) {
    QJsonArray titles;
    for (QAction* action : bar.actions()) {
        const QString text = QString(action->text()).remove('&');
        const QSize needed(bar.fontMetrics().horizontalAdvance(text), bar.fontMetrics().height());
        QJsonObject title = partOf(bar, text, needed);
        const QRect place = bar.actionGeometry(action);
        title["name"] = "title";
        title["place"] = inNumbers(place.translated(bar.mapTo(bar.window(), QPoint())));
        titles.append(title);
    }
    return titles;
}

QString textOf(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions()) texts << action->text();
    return texts.join('\n');
}

QString textOf(const QWidget& dialog) {
    QStringList texts{dialog.windowTitle()};
    for (const QLabel* label : dialog.findChildren<QLabel*>()) texts << label->text();
    for (const QTextEdit* text : dialog.findChildren<QTextEdit*>()) texts << text->toPlainText();
    return texts.join('\n');
}

/// Where an open menu and its entries are, in pixels of the screen.
void dumpMenu(QMenu& menu, QJsonObject& dump) {
    QJsonArray entries;
    for (QAction* action : menu.actions()) {
        QJsonObject entry;
        entry["text"] = action->isEnabled() ? action->text() : QString();
        const QRect place = menu.actionGeometry(action);
        entry["place"] = inNumbers(QRect(menu.mapToGlobal(place.topLeft()), place.size()));
        entries.append(entry);
    }
    dump["popupPlace"] = inNumbers(menu.geometry());
    dump["popupNeeds"] = inNumbers(menu.sizeHint());
    dump["popupEntries"] = entries;
}

/// What lies open over the window.
QString popupText() {
    if (const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        return textOf(*menu);
    }
    const QWidget* dialog = QApplication::activeModalWidget();
    // It has the keys only once it is the active window.
    return dialog != nullptr && dialog->isActiveWindow() ? textOf(*dialog) : QString();
}

}  // namespace

void dumpParts(QMainWindow& window, QJsonObject& dump) {
    QJsonArray parts = titlesOf(*window.menuBar());
    for (const auto* button : window.findChildren<QToolButton*>()) {
        if (button->window() == &window && !button->objectName().isEmpty()) {
            parts.append(partOf(*button));
        }
    }
    for (const auto* box : window.centralWidget()->findChildren<QLineEdit*>()) {
        parts.append(partOf(*box));
    }
    for (const auto* label : window.statusBar()->findChildren<QLabel*>()) {
        if (!label->text().isEmpty()) {
            parts.append(partOf(*label, label->text(), label->sizeHint()));
        }
    }
    dump["parts"] = parts;
    const QWidget* keys = QApplication::focusWidget();
    dump["keysAt"] = keys == nullptr ? QString() : keys->objectName();
    const QString popup = popupText();
    if (!popup.isEmpty()) dump["popup"] = popup;
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) dumpMenu(*menu, dump);
    dump["dark"] = window.palette().color(QPalette::Base).lightness() < 128;
}

}  // namespace quorvale
