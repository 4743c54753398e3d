#include "qt/quorvale_box_widget.h"

#include <QEvent>
#include <QMetaProperty>
#include <QPointer>
#include <QSettings>
#include <algorithm>
#include <utility>

#include "qt/conversions.h"
#include "qt/font_faces.h"
#include "qt/qt_picture.h"
#include "qt/settings_bag.h"
#include "qt/system_colours.h"

namespace quorvale {

namespace {

constexpr Colour groundOfNewOnes = system_colour::ButtonFace;
constexpr Colour textOfNewOnes = system_colour::ButtonText;
constexpr float widthOfNewOnes = 240;
constexpr double widestBorder = 1'000'000;
constexpr QSize buttonIcon(16, 16);

/// The parts of a font that the control and Qt have in common.
bool sameFace(const Font& a, const Font& b) { return a.Name == b.Name && a.Size == b.Size; }

/// The properties of this class alone, by their place among them.
QMetaProperty propertyAt(qsizetype place) {
    const QMetaObject& described = QuorvaleBoxWidget::staticMetaObject;
    return described.property(described.propertyOffset() + static_cast<int>(place));
}

}  // namespace

QuorvaleBoxWidget::QuorvaleBoxWidget(QWidget* parent, const WidgetPorts& ports)
    : DocumentWidget(parent, ports) {
    const int properties = staticMetaObject.propertyCount() - staticMetaObject.propertyOffset();
    for (int i = 0; i < properties; ++i) told_ << propertyAt(i).read(this);
    connect(this, &ControlWidget::propertyReported, this, &QuorvaleBoxWidget::listen);
    connect(this, &ControlWidget::buttonClicked, this, &QuorvaleBoxWidget::tellChanges);
    // A container that brings stored properties back reports some of them to nobody.
    connect(this, &ControlWidget::shown, this, &QuorvaleBoxWidget::tellChanges);
}

void QuorvaleBoxWidget::listen(const QString& property) {
    if (property == QLatin1String("Font")) followControlsFont();
    tellChanges();
}

void QuorvaleBoxWidget::tellChanges() {
    const QPointer<QuorvaleBoxWidget> alive(this);
    const qsizetype properties = told_.size();
    for (qsizetype i = 0; i < properties && alive != nullptr; ++i) {
        const QMetaProperty property = propertyAt(i);
        const QVariant now = property.read(this);
        if (std::exchange(told_[i], now) == now) continue;
        property.notifySignal().invoke(this, Qt::DirectConnection);
    }
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
    // A widget that is disabled has other colours.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange) {
        tellChanges();
        return;
    }
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

void QuorvaleBoxWidget::saveProperties(QSettings& settings, const QString& group) const {
    SettingsBag bag(settings, group);
    box().WriteProperties(bag);
}

void QuorvaleBoxWidget::restoreProperties(QSettings& settings, const QString& group) {
    const QPointer<QuorvaleBoxWidget> alive(this);
    SettingsBag bag(settings, group);
    call([&](QuorvaleBox& held) { held.ReadProperties(bag); });
    // The control reports two of them to nobody.
    if (alive != nullptr) tellChanges();
}

void QuorvaleBoxWidget::setBackColor(const QColor& colour) {
    const Colour taken = colour.isValid() ? toColour(colour) : groundOfNewOnes;
    call([&](QuorvaleBox& held) { held.BackColor(taken); });
}

void QuorvaleBoxWidget::setForeColor(const QColor& colour) {
    const Colour taken = colour.isValid() ? toColour(colour) : textOfNewOnes;
    call([&](QuorvaleBox& held) { held.ForeColor(taken); });
}

void QuorvaleBoxWidget::setBorderColor(const QColor& colour) {
    const Colour taken = colour.isValid() ? toColour(colour) : groundOfNewOnes;
    call([&](QuorvaleBox& held) { held.BorderColor(taken); });
}

void QuorvaleBoxWidget::setLeftBorderWidth(double twips) {
    auto width = static_cast<float>(std::min(twips, widestBorder));
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

void QuorvaleBoxWidget::resetBackColor() { setBackColor({}); }
void QuorvaleBoxWidget::resetForeColor() { setForeColor({}); }
void QuorvaleBoxWidget::resetBorderColor() { setBorderColor({}); }

void QuorvaleBoxWidget::resetLeftBorderWidth() {
    setLeftBorderWidth(static_cast<double>(widthOfNewOnes));
}

void QuorvaleBoxWidget::resetBorderStyle() { setBorderStyle(FixedSingle); }
void QuorvaleBoxWidget::resetShowGrid() { setShowGrid(false); }
void QuorvaleBoxWidget::resetEnabledFlag() { setEnabledFlag(false); }

}  // namespace quorvale
