#include "qt/document_widget.h"

#include <QPointer>
#include <utility>

#include "base/errors.h"
#include "control/host_extras.h"
#include "platform/variant.h"
#include "qt/conversions.h"
#include "qt/system_colours.h"

namespace quorvale {

namespace {

Variant toVariant(const QVariant& nameOrNumber) {
    bool isNumber = false;
    if (nameOrNumber.userType() != QMetaType::QString) {
        const int number = nameOrNumber.toInt(&isNumber);
        if (isNumber) return static_cast<std::int32_t>(number);
    }
    return toUtf16(nameOrNumber.toString());
}

QVariant toQVariant(const Variant& value) {
    if (const auto* name = std::get_if<std::u16string>(&value)) return toQString(*name);
    try {
        return ToLong(value);
    } catch (const ControlError&) {
        return {};
    }
}

}  // namespace

DocumentWidget::DocumentWidget(QWidget* parent, const WidgetPorts& ports)
    : ControlWidget(parent, ports) {
    connect(this, &ControlWidget::propertyReported, this, &DocumentWidget::noteDocument);
    connect(this, &ControlWidget::shown, this, &DocumentWidget::noteDocument);
    searchTextNoted_ = searchText();
    connect(this, &ControlWidget::shown, this, &DocumentWidget::noteSearchText);
}

// The control reports a text that was set, but not a file that was loaded.
void DocumentWidget::noteDocument() {
    const std::uint64_t now = box().Extras().DocumentNumber();
    if (std::exchange(documentNoted_, now) != now) emit textChanged();
}

void DocumentWidget::noteSearchText() {
    const QString now = searchText();
    if (std::exchange(searchTextNoted_, now) != now) emit searchTextChanged();
}

QString DocumentWidget::text() const { return toQString(box().text()); }
int DocumentWidget::lineCount() const { return box().LineCount(); }
int DocumentWidget::topLine() const { return box().TopLine(); }
int DocumentWidget::row() const { return box().row(); }
int DocumentWidget::col() const { return box().col(); }
int DocumentWidget::offset() const { return box().Offset(); }
int DocumentWidget::selectedRowsCount() const { return box().SelectedRowsCount(); }
QString DocumentWidget::searchText() const { return toQString(box().SearchText()); }
IconList DocumentWidget::imageList() const { return IconList(box().ImageList()); }

QString DocumentWidget::lineText(int line) const { return toQString(box().LineText(line)); }

QColor DocumentWidget::lineForeColor(int line) const {
    return resolvedColour(box().LineForeColor(line), palette());
}

QColor DocumentWidget::lineBackColor(int line) const {
    return resolvedColour(box().LineBackColor(line), palette());
}

QVariant DocumentWidget::lineImage(int line) const { return toQVariant(box().LineImage(line)); }

double DocumentWidget::rowTop(int line) const { return static_cast<double>(box().RowTop(line)); }

QPoint DocumentWidget::placeOfOffset(int offset) const {
    // The member would take the caret along to the end.
    if (offset < 0 || offset >= box().Extras().TextLength()) return {};
    std::int32_t place = offset;
    std::int32_t line = 0;
    std::int32_t column = 0;
    heldBox()->OffsetToRowCol(place, line, &column);
    return {column, line};
}

void DocumentWidget::loadFile(const QString& fileName) {
    const QPointer<DocumentWidget> alive(this);
    call([&](QuorvaleBox& held) { held.LoadFile(toUtf16(fileName)); });
    if (alive != nullptr) noteDocument();
}

void DocumentWidget::setText(const QString& text) {
    call([&](QuorvaleBox& held) { held.text(toUtf16(text)); });
}
void DocumentWidget::setTopLine(int line) {
    call([&](QuorvaleBox& held) { held.TopLine(line); });
}
void DocumentWidget::setRow(int row) {
    call([&](QuorvaleBox& held) { held.row(row); });
}
void DocumentWidget::setCol(int col) {
    call([&](QuorvaleBox& held) { held.col(col); });
}
void DocumentWidget::moveTo(int row, int col) {
    call([&](QuorvaleBox& held) { held.MoveTo(row, col); });
}
void DocumentWidget::setOffset(int offset) {
    call([&](QuorvaleBox& held) { held.Offset(offset); });
}

void DocumentWidget::setSelectedRowsCount(int count) {
    call([&](QuorvaleBox& held) { held.SelectedRowsCount(count); });
}

void DocumentWidget::setSearchText(const QString& text) {
    const QPointer<DocumentWidget> alive(this);
    call([&](QuorvaleBox& held) { held.SearchText(toUtf16(text)); });
    if (alive != nullptr) noteSearchText();
}

void DocumentWidget::setSearchFiles(const QStringList& fileNames) {
    call([&](QuorvaleBox& held) { held.SearchFiles(toUtf16(fileNames.join(u'\r'))); });
}

void DocumentWidget::setLineForeColor(int line, const QColor& colour) {
    call([&](QuorvaleBox& held) {
        held.LineForeColor(line, colour.isValid() ? toColour(colour) : held.ForeColor());
    });
}

void DocumentWidget::setLineBackColor(int line, const QColor& colour) {
    call([&](QuorvaleBox& held) {
        held.LineBackColor(line, colour.isValid() ? toColour(colour) : held.BackColor());
    });
}

void DocumentWidget::setLineImage(int line, const QVariant& nameOrNumber) {
    call([&](QuorvaleBox& held) { held.LineImage(line, toVariant(nameOrNumber)); });
}

void DocumentWidget::setImageList(const IconList& icons) {
    call([&](QuorvaleBox& held) { held.ImageList(icons.object()); });
}

void DocumentWidget::ensureVisible(int line) {
    call([&](QuorvaleBox& held) { held.EnsureVisible(line); });
}
void DocumentWidget::setAutoRedraw(bool redraw) {
    call([&](QuorvaleBox& held) { held.AutoRedraw(redraw); });
}

void DocumentWidget::collapseLines(int fromRow, int toRow) {
    call([&](QuorvaleBox& held) { held.CollapseLines(fromRow, toRow); });
}

void DocumentWidget::collapseAll() {
    call([&](QuorvaleBox& held) { held.CollapseAll(); });
}
void DocumentWidget::expandAll() {
    call([&](QuorvaleBox& held) { held.ExpandAll(); });
}

}  // namespace quorvale
