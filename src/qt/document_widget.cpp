#include "qt/document_widget.h"

#include <QPointer>

#include "base/errors.h"
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

DocumentWidget::DocumentWidget(QWidget* parent) : ControlWidget(parent) {
    connect(this, &ControlWidget::propertyReported, this, [this](const QString& name) {
        if (name == QLatin1String("Text")) emit textChanged();
    });
}

QString DocumentWidget::text() const { return toQString(box().text()); }
int DocumentWidget::lineCount() const { return box().LineCount(); }
int DocumentWidget::topLine() const { return box().TopLine(); }
int DocumentWidget::row() const { return box().row(); }
int DocumentWidget::col() const { return box().col(); }
int DocumentWidget::offset() const { return box().Offset(); }
int DocumentWidget::selectedRowsCount() const { return box().SelectedRowsCount(); }
QString DocumentWidget::searchText() const { return toQString(box().SearchText()); }

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
    std::int32_t place = offset;
    std::int32_t line = 0;
    std::int32_t column = 0;
    heldBox()->OffsetToRowCol(place, line, &column);
    return {column, line};
}

void DocumentWidget::loadFile(const QString& fileName) {
    const QPointer<DocumentWidget> alive(this);
    heldBox()->LoadFile(toUtf16(fileName));
    if (alive != nullptr) emit textChanged();
}

void DocumentWidget::setText(const QString& text) { heldBox()->text(toUtf16(text)); }
void DocumentWidget::setTopLine(int line) { heldBox()->TopLine(line); }
void DocumentWidget::setRow(int row) { heldBox()->row(row); }
void DocumentWidget::setCol(int col) { heldBox()->col(col); }
void DocumentWidget::moveTo(int row, int col) { heldBox()->MoveTo(row, col); }
void DocumentWidget::setOffset(int offset) { heldBox()->Offset(offset); }

void DocumentWidget::setSelectedRowsCount(int count) { heldBox()->SelectedRowsCount(count); }

void DocumentWidget::setSearchText(const QString& text) { heldBox()->SearchText(toUtf16(text)); }

void DocumentWidget::setSearchFiles(const QStringList& fileNames) {
    heldBox()->SearchFiles(toUtf16(fileNames.join(u'\r')));
}

void DocumentWidget::setLineForeColor(int line, const QColor& colour) {
    heldBox()->LineForeColor(line, toColour(colour));
}

void DocumentWidget::setLineBackColor(int line, const QColor& colour) {
    heldBox()->LineBackColor(line, toColour(colour));
}

void DocumentWidget::setLineImage(int line, const QVariant& nameOrNumber) {
    heldBox()->LineImage(line, toVariant(nameOrNumber));
}

void DocumentWidget::setImageList(const IconList& icons) { heldBox()->ImageList(icons.object()); }

void DocumentWidget::ensureVisible(int line) { heldBox()->EnsureVisible(line); }
void DocumentWidget::setAutoRedraw(bool redraw) { heldBox()->AutoRedraw(redraw); }

void DocumentWidget::collapseLines(int fromRow, int toRow) {
    heldBox()->CollapseLines(fromRow, toRow);
}

void DocumentWidget::collapseAll() { heldBox()->CollapseAll(); }
void DocumentWidget::expandAll() { heldBox()->ExpandAll(); }

}  // namespace quorvale
