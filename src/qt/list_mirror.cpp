#include "qt/list_mirror.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "platform/keys.h"
#include "qt/box_keys.h"
#include "qt/conversions.h"
#include "qt/font_faces.h"
#include "qt/input_codes.h"

namespace quorvale {

namespace {

/// The columns of file names and line numbers, in characters of average width.
constexpr int nameCharacters = 32;
constexpr int numberCharacters = 10;

/// How much of a line stands in front of its match where not all of it is seen, in characters.
constexpr int leadCharacters = 16;

/// Shows a line that is too long for its column from shortly before its match, and of a file name
/// its beginning and its end.
class ResultCell final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.column() != 2) return;
        option->textElideMode = Qt::ElideRight;
        const int match = index.data(ListModel::MatchRole).toInt();
        if (match <= leadCharacters || match >= option->text.size()) return;
        const QString led = option->text.left(match + leadCharacters);
        if (option->fontMetrics.horizontalAdvance(led) <= option->rect.width()) return;
        option->text = QChar(0x2026) + option->text.mid(match - leadCharacters);
    }
};

bool movesByPage(int key) { return key == Qt::Key_PageUp || key == Qt::Key_PageDown; }

}  // namespace

ListMirror::ListMirror(ControlLinkPtr link, QWidget* parent)
    : QTreeView(parent), link_(std::move(link)) {
    setObjectName("lvFound");
    setModel(&model_);
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setItemDelegate(new ResultCell(this));
    setAutoScroll(false);
    header()->setStretchLastSection(true);
    header()->setSectionsMovable(false);
    hide();
}

void ListMirror::showEvent(QShowEvent* event) {
    QTreeView::showEvent(event);
    const int width = fontMetrics().averageCharWidth();
    setColumnWidth(0, width * nameCharacters);
    setColumnWidth(1, width * numberCharacters);
}

void ListMirror::mirror(const Surface& surface, QPoint controlOrigin) {
    const ListView& list = surface.lvFound;
    if (!list.Visible()) {
        // Nothing is kept for a list that nobody sees.
        ensuredShown_.reset();
        hide();
        return;
    }
    showing_ = true;
    const QFont wanted = toQFont(list.Font());
    if (font() != wanted) setFont(wanted);
    setEnabled(list.Enabled());
    model_.mirror(surface);
    const QRect area = pixelRect(list).toRect().translated(controlOrigin);
    if (geometry() != area) setGeometry(area);
    if (isHidden()) {
        raise();
        show();
    }
    showSelection(list);
    showing_ = false;
}

void ListMirror::showSelection(const ListView& list) {
    const int row = list.Selected() ? static_cast<int>(*list.Selected()) : -1;
    if (currentIndex().row() != row) {
        const QModelIndex index = row < 0 ? QModelIndex() : model_.index(row, 0);
        selectionModel()->setCurrentIndex(
            index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        if (row >= 0) scrollTo(index);
    }
    if (list.EnsuredRow() != ensuredShown_) {
        ensuredShown_ = list.EnsuredRow();
        if (ensuredShown_) scrollTo(model_.index(static_cast<int>(*ensuredShown_), 0));
    }
}

/// Keys by which Qt moves along whole pages: the element follows.
void ListMirror::takeCurrent() {
    const int row = currentIndex().row();
    if (row < 0) return;
    link_->run(
        [row](Surface& surface) { surface.lvFound.UserClick(static_cast<std::size_t>(row)); });
}

void ListMirror::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (movesByPage(event->key())) {
        QTreeView::keyPressEvent(event);
        return takeCurrent();
    }
    const std::int16_t code = keyCodeOf(*event);
    if (code == 0) return;
    const std::int16_t shift = shiftMaskOf(event->modifiers());
    link_->run([&](Surface& surface) {
        if (surface.OnKeyDown) surface.OnKeyDown(code, shift);
        surface.lvFound.UserKey(code, shift);
    });
}

void ListMirror::keyReleaseEvent(QKeyEvent* event) {
    event->accept();
    (void)mayRelease(link_, *event);
}

int ListMirror::rowAt(QPoint place) const { return indexAt(place).row(); }

void ListMirror::mousePressEvent(QMouseEvent* event) {
    event->accept();
    const int row = rowAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || row < 0) return;
    setFocus(Qt::MouseFocusReason);
    link_->run(
        [row](Surface& surface) { surface.lvFound.UserClick(static_cast<std::size_t>(row)); });
}

void ListMirror::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    const int row = rowAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton) return;
    link_->run([row](Surface& surface) {
        if (row < 0) {
            surface.lvFound.UserDoubleClickBeside();
        } else {
            surface.lvFound.UserDoubleClick(static_cast<std::size_t>(row));
        }
    });
}

}  // namespace quorvale
