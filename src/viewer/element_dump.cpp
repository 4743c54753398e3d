#include "viewer/element_dump.h"

#include <QAction>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QMenuBar>
#include <QSaveFile>
#include <QStatusBar>
#include <QToolTip>

#include "control/host_corrections.h"
#include "qt/conversions.h"
#include "qt/editor_mirror.h"
#include "qt/search_panel.h"
#include "viewer/part_dump.h"
#include "viewer/shown_around.h"
#include "viewer/viewer_window.h"

namespace quorvale {

namespace {

constexpr int milliseconds = 20;

QString nameOf(FocusChild child) {
    switch (child) {
        case FocusChild::TextArea:
            return "text";
        case FocusChild::SearchBox:
            return "search";
        case FocusChild::LineBox:
            return "line";
        case FocusChild::Editor:
            return "editor";
        case FocusChild::FoundList:
            return "found";
        case FocusChild::None:
            break;
    }
    return "none";
}

QJsonArray centreOf(const Element& element, const Element* within = nullptr) {
    QRectF place = pixelRect(element);
    if (within != nullptr) place.translate(pixelRect(*within).topLeft());
    return {qRound(place.center().x()), qRound(place.center().y())};
}

QJsonObject rowOf(const Surface& elements, int slot) {
    const Label& label = elements.lblLine[slot];
    const Image& glyph = elements.imgExpand[slot];
    QJsonObject row;
    row["line"] = toQString(label.Tag()).toInt();
    row["text"] = toQString(label.Caption());
    row["bold"] = label.Bold();
    row["highlighted"] = label.BackColor() == system_colour::Highlight;
    row["corrected"] = elements.imgEdit[slot].Visible();
    row["markAt"] = centreOf(elements.imgEdit[slot], &elements.picExpand);
    row["top"] = qRound(toPixels(label.Top()));
    row["left"] = qRound(toPixels(label.Left()));
    if (glyph.Visible() && glyph.Shown() != nullptr) {
        row["glyph"] = QString::fromStdString(glyph.Shown()->Name());
        row["glyphAt"] = centreOf(glyph, &elements.picExpand);
    }
    return row;
}

QJsonArray rowsOf(const Surface& elements) {
    QJsonArray rows;
    const Twips end =
        elements.scrHorz.Visible() ? elements.scrHorz.Top() : elements.UserControl.Height();
    for (int slot = 0; elements.lblLine.Has(slot); ++slot) {
        const Label& label = elements.lblLine[slot];
        if (label.Visible() && label.Top() < end) rows.append(rowOf(elements, slot));
    }
    return rows;
}

/// The panel of a long search.
QJsonObject progressOf(const QWidget& control) {
    const auto* panel = control.findChild<SearchPanel*>();
    QJsonObject progress;
    progress["visible"] = panel != nullptr && panel->isVisible();
    progress["text"] = panel == nullptr ? QString() : panel->fileName();
    progress["value"] = panel == nullptr ? 0 : panel->percent();
    return progress;
}

/// Where the entries of an open menu are on the screen, or those of the menu bar.
template <class Bar>
QJsonObject entriesOf(const Bar& menu) {
    QJsonObject entries;
    for (QAction* action : menu.actions()) {
        const QPoint at = menu.mapToGlobal(menu.actionGeometry(action).center());
        if (!action->text().isEmpty()) entries[action->text()] = QJsonArray{at.x(), at.y()};
    }
    return entries;
}

QJsonObject entriesOfMenus(const ViewerWindow& window) {
    const auto* open = qobject_cast<const QMenu*>(QApplication::activePopupWidget());
    return open != nullptr ? entriesOf(*open) : entriesOf(*window.menuBar());
}

}  // namespace

QByteArray dumpElements(ViewerWindow& window) {
    QuorvaleBoxWidget& control = window.control();
    QuorvaleBox& box = control.box();
    const Surface& elements = box.Elements();
    QJsonObject dump;
    dump["lines"] = box.LineCount();
    dump["top"] = box.TopLine();
    dump["row"] = box.row();
    dump["column"] = box.col();
    dump["selected"] = box.SelectedRowsCount();
    dump["focus"] = nameOf(elements.Focus.Active());
    dump["pending"] = box.Corrections().Pending();
    if (elements.rtbEdit.Visible()) {
        dump["editor"] = toQString(elements.rtbEdit.Text());
        const auto* editor = control.findChild<EditorMirror*>();
        if (editor != nullptr) dump["composed"] = editor->composed();
    }
    dump["rowHeight"] = qRound(toPixels(elements.lblLine[0].Height()));
    dump["height"] = qRound(toPixels(elements.UserControl.Height()));
    // How far the control lies below the top of the window.
    dump["above"] = control.mapTo(control.window(), QPoint()).y();
    dump["status"] = window.statusText();
    dump["message"] = window.statusBar()->currentMessage();
    if (elements.lvFound.Visible()) {
        dump["results"] = static_cast<int>(elements.lvFound.RowCount());
        dump["seenResults"] = seenResults(control);
    }
    dump["search"] = toQString(elements.txtSearch.Text());
    dump["find"] = findButton(control);
    dump["menu"] = openMenu();
    dump["dialog"] = openDialog();
    dump["title"] = window.windowTitle();
    dump["windows"] = openWindows();
    dump["progress"] = progressOf(control);
    if (QToolTip::isVisible()) dump["tip"] = QToolTip::text();
    dump["menuEntries"] = entriesOfMenus(window);
    dump["rows"] = rowsOf(elements);
    dumpParts(window, dump);
    return QJsonDocument(dump).toJson();
}

ElementDump::ElementDump(ViewerWindow& window, QString fileName)
    : QObject(qApp), window_(&window), fileName_(std::move(fileName)) {
    timer_.setInterval(milliseconds);
    connect(&timer_, &QTimer::timeout, this, &ElementDump::write);
    timer_.start();
}

void ElementDump::followTheUser() {
    for (QWidget* widget = QApplication::activeWindow(); widget != nullptr;
         widget = widget->parentWidget()) {
        if (auto* window = qobject_cast<ViewerWindow*>(widget)) window_ = window;
    }
}

void ElementDump::write() {
    followTheUser();
    if (window_ == nullptr) return;
    const QByteArray dump = dumpElements(*window_);
    if (dump == written_) return;
    QSaveFile file(fileName_);
    if (!file.open(QIODevice::WriteOnly) || file.write(dump) != dump.size()) return;
    if (file.commit()) written_ = dump;
}

}  // namespace quorvale
