#include "viewer/appearance.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOption>

#include "viewer/viewer_settings.h"

namespace quorvale {

namespace {

/// The colours of one look, by what they are for.
struct Shades {
    QRgb Window;
    QRgb Text;
    QRgb Base;
    QRgb Alternate;
    QRgb Button;
    QRgb Selection;
    QRgb SelectedText;
    QRgb Link;
    QRgb VisitedLink;
    QRgb Tip;
    QRgb Faint;
    QRgb Disabled;
    QRgb Light;
    QRgb Midlight;
    QRgb Mid;
    QRgb Dark;
    QRgb Alarm;
};

constexpr Shades light{0xFFEFEFEF, 0xFF141414, 0xFFFFFFFF, 0xFFF6F6F6, 0xFFEFEFEF, 0xFF2664A8,
                       0xFFFFFFFF, 0xFF0B5CAD, 0xFF7A3E9D, 0xFFFFFFDC, 0xFF6A6A6A, 0xFF8C8C8C,
                       0xFFFFFFFF, 0xFFF7F7F7, 0xFFB4B4B4, 0xFF9A9A9A, 0xFFB00020};
constexpr Shades dark{0xFF2B2C30, 0xFFE8E8E8, 0xFF1D1E21, 0xFF25262A, 0xFF36373C, 0xFF2F66A8,
                      0xFFFFFFFF, 0xFF7DBBFF, 0xFFCBA2FF, 0xFF3E3F45, 0xFFA2A4AA, 0xFF7E8087,
                      0xFF5A5B62, 0xFF46474D, 0xFF55565C, 0xFF17181A, 0xFFFF8080};

QPalette paletteOf(const Shades& shades) {
    QPalette palette;
    const auto set = [&](QPalette::ColorRole role, QRgb shade) {
        palette.setColor(QPalette::All, role, QColor(shade));
    };
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        set(role, shades.Text);
    }
    set(QPalette::Window, shades.Window);
    set(QPalette::Base, shades.Base);
    set(QPalette::AlternateBase, shades.Alternate);
    set(QPalette::Button, shades.Button);
    set(QPalette::Highlight, shades.Selection);
    set(QPalette::HighlightedText, shades.SelectedText);
    set(QPalette::Link, shades.Link);
    set(QPalette::LinkVisited, shades.VisitedLink);
    set(QPalette::ToolTipBase, shades.Tip);
    set(QPalette::PlaceholderText, shades.Faint);
    set(QPalette::Light, shades.Light);
    set(QPalette::Midlight, shades.Midlight);
    set(QPalette::Mid, shades.Mid);
    set(QPalette::Dark, shades.Dark);
    set(QPalette::Shadow, 0xFF000000);
    set(QPalette::BrightText, shades.Alarm);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(shades.Disabled));
    }
    return palette;
}

/// The one style that takes all its colours from the palette. It derives the outlines of fields and
/// boxes from the window's colour, too near to it to be seen in the dark: they are drawn anew.
class OutlinedStyle final : public QProxyStyle {
public:
    OutlinedStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool isField = element == PE_FrameLineEdit;
        const bool isRound = element == PE_IndicatorRadioButton;
        if (!isField && !isRound && element != PE_IndicatorCheckBox) return;
        const bool hasKeys = isField && option->state.testFlag(State_HasFocus);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing, isField || isRound);
        if (isField || isRound) painter->translate(0.5, 0.5);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(
            option->palette.color(hasKeys ? QPalette::Link : QPalette::PlaceholderText));
        const QRect outline = option->rect.adjusted(0, 0, -1, -1);
        if (isField) painter->drawRoundedRect(outline, 2, 2);
        if (isRound) painter->drawEllipse(outline);
        if (!isField && !isRound) painter->drawRect(outline);
        painter->restore();
    }
};

/// A desktop without colours of its own gets the style's, whose selected text is hard to read.
bool desktopNamesColours() {
    const QPalette palette = QApplication::palette();
    const QPalette unnamed = QApplication::style()->standardPalette();
    return palette.color(QPalette::Highlight) != unnamed.color(QPalette::Highlight) ||
           palette.color(QPalette::Window) != unnamed.color(QPalette::Window);
}

void wearOwn(const QPalette& colours) {
    QApplication::setStyle(new OutlinedStyle);
    QApplication::setPalette(colours);
}

}  // namespace

QStringList viewerAppearances() { return {"system", "light", "dark"}; }

QPalette lightColours() { return paletteOf(light); }
QPalette darkColours() { return paletteOf(dark); }

void wear(const QString& appearance) {
    static const QString stylesName = QApplication::style()->name();
    if (appearance == "light") return wearOwn(lightColours());
    if (appearance == "dark") return wearOwn(darkColours());
    QApplication::setStyle(stylesName);
    QApplication::setPalette(QPalette());
    if (!desktopNamesColours()) QApplication::setPalette(lightColours());
}

void wearAsChosen() { wear(ViewerSettings().choice(setting::appearance, viewerAppearances())); }

}  // namespace quorvale
