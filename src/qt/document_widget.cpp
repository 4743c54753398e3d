#include "qt/document_widget.h"

#include <QPointer>
#include <tuple>
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
    documentNoted_ = box().Extras().DocumentNumber();
    searchTextNoted_ = searchText();
    topLineTold_ = topLine();
    caretTold_ = caretNow();
    // Two notify signals are events as well. What they tell is known before any other slot runs.
    connect(this, &ControlWidget::scrolled, this, [this] { topLineTold_ = topLine(); });
    connect(this, &ControlWidget::selectionChanged, this, [this] { caretTold_ = caretNow(); });
    connect(this, &ControlWidget::propertyReported, this, &DocumentWidget::noteChanges);
    connect(this, &ControlWidget::shown, this, &DocumentWidget::noteChanges);
}

void DocumentWidget::noteChanges() {
    const QPointer<DocumentWidget> alive(this);
    noteDocument();
    if (alive != nullptr) noteSearchText();
    if (alive != nullptr && topLine() != topLineTold_) emit scrolled();
    if (alive != nullptr) noteCaret();
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

void DocumentWidget::noteCaret() {
    const Caret now = caretNow();
    const auto read = [](const Caret& caret) {
        return std::tie(caret.Row, caret.Col, caret.Offset, caret.SelectedRows);
    };
    if (read(now) != read(caretTold_)) {
        emit selectionChanged();
    } else {
        caretTold_.Document = now.Document;
    }
}

// The offset is counted along the line, which may be long: only where it may have changed.
DocumentWidget::Caret DocumentWidget::caretNow() const {
    Caret now{box().Extras().DocumentNumber(), row(), col(), caretTold_.Offset,
              selectedRowsCount()};
    const auto place = [](const Caret& caret) {
        return std::tie(caret.Document, caret.Row, caret.Col);
    };
    if (place(now) != place(caretTold_)) now.Offset = offset();
    return now;
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
    call([&](QuorvaleBox& held) { held.LoadFile(toUtf16(fileName)); });
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
    call([&](QuorvaleBox& held) { held.SearchText(toUtf16(text)); });
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
