#include "qt/quorvale_box_widget.h"

#include <QEvent>

#include "qt/conversions.h"
#include "qt/font_faces.h"
#include "qt/qt_picture.h"
#include "qt/system_colours.h"

namespace quorvale {

namespace {

constexpr Colour groundOfNewOnes = system_colour::ButtonFace;
constexpr Colour textOfNewOnes = system_colour::ButtonText;
constexpr float widthOfNewOnes = 240;
constexpr QSize buttonIcon(16, 16);

/// The parts of a font that the control and Qt have in common.
bool sameFace(const Font& a, const Font& b) { return a.Name == b.Name && a.Size == b.Size; }

}  // namespace

QuorvaleBoxWidget::QuorvaleBoxWidget(QWidget* parent) : DocumentWidget(parent) {
    connect(this, &ControlWidget::propertyReported, this, &QuorvaleBoxWidget::tellListeners);
    connect(this, &ControlWidget::buttonClicked, this, [this](const QString& name) {
        if (name == QLatin1String("Grid")) emit showGridChanged();
    });
}

void QuorvaleBoxWidget::tellListeners(const QString& property) {
    if (property == QLatin1String("BackColor")) emit backColorChanged();
    if (property == QLatin1String("ForeColor")) emit foreColorChanged();
    if (property == QLatin1String("BorderColor")) emit borderColorChanged();
    if (property == QLatin1String("LeftBorderWidth")) emit leftBorderWidthChanged();
    if (property == QLatin1String("BorderStyle")) emit borderStyleChanged();
    if (property == QLatin1String("Enabled")) emit enabledFlagChanged();
    if (property == QLatin1String("Font")) followControlsFont();
}

// A host may have set the font through the control.
void QuorvaleBoxWidget::followControlsFont() {
    const Font wanted = box().Font();
    if (sameFace(wanted, fromQFont(font()))) return;
    QFont shown = font();
    const QFont face = toQFont(wanted);
    shown.setFamilies({face.family()});
    shown.setPointSizeF(face.pointSizeF());
    setFont(shown);
}

void QuorvaleBoxWidget::changeEvent(QEvent* event) {
    DocumentWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    const Font wanted = fromQFont(font());
    call([&](QuorvaleBox& held) {
        if (!sameFace(wanted, held.Font())) held.Font(wanted);
    });
}

QColor QuorvaleBoxWidget::backColor() const { return resolvedColour(box().BackColor(), palette()); }

QColor QuorvaleBoxWidget::foreColor() const { return resolvedColour(box().ForeColor(), palette()); }

QColor QuorvaleBoxWidget::borderColor() const {
    return resolvedColour(box().BorderColor(), palette());
}

double QuorvaleBoxWidget::leftBorderWidth() const {
    return static_cast<double>(box().LeftBorderWidth());
}

QuorvaleBoxWidget::BorderStyle QuorvaleBoxWidget::borderStyle() const {
    return static_cast<BorderStyle>(box().BorderStyle());
}

bool QuorvaleBoxWidget::showGrid() const { return box().ShowGrid(); }
bool QuorvaleBoxWidget::enabledFlag() const { return box().Enabled(); }

bool QuorvaleBoxWidget::addButton(const QString& name, const QIcon& icon, const QString& toolTip) {
    PicturePtr picture;
    if (!icon.isNull()) {
        picture = std::make_shared<QtPicture>(name.toStdString(), icon, buttonIcon);
    }
    return heldBox()->AddButton(toUtf16(name), picture, toUtf16(toolTip));
}

void QuorvaleBoxWidget::setBackColor(const QColor& colour) {
    call([&](QuorvaleBox& held) { held.BackColor(toColour(colour)); });
}

void QuorvaleBoxWidget::setForeColor(const QColor& colour) {
    call([&](QuorvaleBox& held) { held.ForeColor(toColour(colour)); });
}

void QuorvaleBoxWidget::setBorderColor(const QColor& colour) {
    call([&](QuorvaleBox& held) { held.BorderColor(toColour(colour)); });
}

void QuorvaleBoxWidget::setLeftBorderWidth(double twips) {
    auto width = static_cast<float>(twips);
    call([&](QuorvaleBox& held) { held.LeftBorderWidth(width); });
}

void QuorvaleBoxWidget::setBorderStyle(BorderStyle style) {
    call([&](QuorvaleBox& held) { held.BorderStyle(static_cast<std::int16_t>(style)); });
}

void QuorvaleBoxWidget::setShowGrid(bool show) {
    call([&](QuorvaleBox& held) { held.ShowGrid(show); });
}
void QuorvaleBoxWidget::setEnabledFlag(bool enabled) {
    call([&](QuorvaleBox& held) { held.Enabled(enabled); });
}

void QuorvaleBoxWidget::setIcon(const QIcon& icon) {
    const Image& marker = box().Elements().imgMarker;
    const QSizeF size(toPixels(marker.Width()), toPixels(marker.Height()));
    PicturePtr picture;
    if (!icon.isNull()) picture = std::make_shared<QtPicture>("Icon", icon, size.toSize());
    call([&](QuorvaleBox& held) { held.Icon(picture); });
}

void QuorvaleBoxWidget::resetBackColor() {
    call([&](QuorvaleBox& held) { held.BackColor(groundOfNewOnes); });
}
void QuorvaleBoxWidget::resetForeColor() {
    call([&](QuorvaleBox& held) { held.ForeColor(textOfNewOnes); });
}
void QuorvaleBoxWidget::resetBorderColor() {
    call([&](QuorvaleBox& held) { held.BorderColor(groundOfNewOnes); });
}

void QuorvaleBoxWidget::resetLeftBorderWidth() {
    setLeftBorderWidth(static_cast<double>(widthOfNewOnes));
}

void QuorvaleBoxWidget::resetBorderStyle() { setBorderStyle(FixedSingle); }
void QuorvaleBoxWidget::resetShowGrid() { setShowGrid(false); }
void QuorvaleBoxWidget::resetEnabledFlag() { setEnabledFlag(false); }

}  // namespace quorvale
