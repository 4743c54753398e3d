#include "viewer/shown_around.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QToolButton>
#include <algorithm>

#include "qt/live_surface.h"
#include "viewer/viewer_window.h"

namespace quorvale {

namespace {

QJsonArray toJson(QPoint place) { return {place.x(), place.y()}; }

QJsonObject resultOf(const QAbstractItemModel& model, int row) {
    QJsonObject result;
    const char* const columns[] = {"file", "line", "text"};
    for (int column = 0; column < model.columnCount(); ++column) {
        const QString text = model.index(row, column).data().toString();
        result[columns[column]] = column == 1 ? text.trimmed() : text;
    }
    result["row"] = row;
    result["bold"] = model.index(row, 0).data(Qt::FontRole).value<QFont>().bold();
    return result;
}

QJsonValue valueOf(const QWidget& field) {
    if (const auto* line = qobject_cast<const QLineEdit*>(&field)) return line->text();
    if (const auto* box = qobject_cast<const QCheckBox*>(&field)) return box->isChecked();
    if (const auto* label = qobject_cast<const QLabel*>(&field)) return label->text();
    return {};
}

}  // namespace

QJsonArray seenResults(QuorvaleBoxWidget& control) {
    QJsonArray results;
    ListMirror& list = control.liveSurface().results();
    const QAbstractItemModel* model = list.model();
    if (!list.isVisible() || model == nullptr) return results;
    const QWidget& area = *list.viewport();
    for (int row = std::max(list.indexAt(QPoint(1, 1)).row(), 0); row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        const QRect place = list.visualRect(index);
        if (place.top() >= area.height()) break;
        QJsonObject result = resultOf(*model, row);
        result["selected"] = list.currentIndex().row() == row;
        result["at"] = toJson(area.mapTo(&control, place.center()));
        results.append(result);
    }
    return results;
}

QJsonObject findButton(QuorvaleBoxWidget& control) {
    constexpr int halfAnArrow = 6;
    const ToolStrip& tools = control.liveSurface().tools();
    const auto* button = tools.findChild<QToolButton*>("Find");
    if (button == nullptr || !button->isVisible()) return {};
    const QPoint corner = button->mapTo(&control, QPoint());
    const QPoint middle(0, button->height() / 2);
    return {{"at", toJson(corner + middle + QPoint(button->height() / 2, 0))},
            {"menuAt", toJson(corner + middle + QPoint(button->width() - halfAnArrow, 0))},
            {"enabled", button->isEnabled()}};
}

QJsonArray openMenu() {
    QJsonArray entries;
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return entries;
    for (QAction* action : menu->actions()) {
        if (action->isSeparator()) continue;
        const QPoint place = menu->mapToGlobal(menu->actionGeometry(action).center());
        entries.append(QJsonObject{{"text", action->text()},
                                   {"keys", action->shortcut().toString()},
                                   {"at", toJson(place)}});
    }
    return entries;
}

QJsonObject openDialog() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) return {};
    QJsonObject shown{{"title", dialog->windowTitle()}};
    if (const auto* box = qobject_cast<const QMessageBox*>(dialog)) {
        shown["text"] = box->text();
        return shown;
    }
    for (const QWidget* field : dialog->findChildren<QWidget*>()) {
        const QJsonValue value = valueOf(*field);
        if (!field->objectName().isEmpty() && !value.isNull()) shown[field->objectName()] = value;
    }
    const QWidget* focus = dialog->focusWidget();
    shown["focus"] = focus == nullptr ? QString() : focus->objectName();
    shown["completing"] = QApplication::activePopupWidget() != nullptr;
    return shown;
}

QJsonArray openWindows() {
    QJsonArray windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<ViewerWindow*>(widget);
        if (window == nullptr || !window->isVisible()) continue;
        windows.append(QJsonObject{{"title", window->windowTitle()},
                                   {"file", window->fileName()},
                                   {"active", window->isActiveWindow()},
                                   {"top", window->control().topLine()},
                                   {"row", window->control().row()},
                                   {"column", window->control().col()}});
    }
    return windows;
}

}  // namespace quorvale
