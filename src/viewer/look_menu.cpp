#include "viewer/look_menu.h"

#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>
#include <QMenu>
#include <algorithm>

#include "viewer/viewer_settings.h"

namespace quorvale {

namespace {

constexpr int smallest = 4;
constexpr int largest = 72;
constexpr int furthestZoom = largest - smallest;

/// The font of the last run, or the desktop's for text in columns.
QFont chosenFont() {
    const ViewerSettings settings;
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const QString family = settings.text(setting::fontFamily);
    if (QFontDatabase::hasFamily(family)) font.setFamilies({family});
    const int own = std::clamp(QFontInfo(font).pointSize(), smallest, largest);
    font.setPointSize(settings.number(setting::fontSize, own, smallest, largest));
    return font;
}

}  // namespace

LookMenu::LookMenu(QMenu& menu) : QObject(&menu), font_(chosenFont()) {
    zoom_ = ViewerSettings().number(setting::zoom, 0, -furthestZoom, furthestZoom);
    addParts(menu);
    menu.addSeparator();
    addText(menu);
}

void LookMenu::addParts(QMenu& menu) {
    const ViewerSettings settings;
    grid_ = menu.addAction(tr("Show bou&ndaries"));
    grid_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B));
    grid_->setCheckable(true);
    grid_->setChecked(settings.isOn(setting::grid, false));
    connect(grid_, &QAction::triggered, this, [this](bool on) {
        if (control_ != nullptr) control_->setShowGrid(on);
    });
    toolbar_ = menu.addAction(tr("Show &toolbar"));
    toolbar_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T));
    toolbar_->setCheckable(true);
    toolbar_->setChecked(settings.isOn(setting::toolbar, true));
    connect(toolbar_, &QAction::triggered, this, &LookMenu::showToolbar);
}

void LookMenu::addText(QMenu& menu) {
    menu.addAction(tr("&Font..."), this, &LookMenu::chooseFont);
    QAction* larger = menu.addAction(tr("&Larger"), this, [this] { zoomBy(1); });
    // The plus sign needs Shift on many keyboards.
    larger->setShortcuts({QKeySequence(QKeySequence::ZoomIn),
                          QKeySequence(Qt::CTRL | Qt::Key_Equal),
                          QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Plus)});
    menu.addAction(tr("&Smaller"), QKeySequence(QKeySequence::ZoomOut), this,
                   [this] { zoomBy(-1); });
    menu.addAction(tr("No&rmal size"), QKeySequence(Qt::CTRL | Qt::Key_0), this,
                   [this] { zoomTo(0); });
}

void LookMenu::setControl(QuorvaleBoxWidget& control) {
    control_ = &control;
    showFont();
    if (grid_->isChecked()) control.setShowGrid(true);
    showToolbar(toolbar_->isChecked());
    toolbarShown_ = toolbar_->isChecked();
    connect(&control, &QuorvaleBoxWidget::showGridChanged, this, [this, &control] {
        grid_->setChecked(control.showGrid());
        ViewerSettings().setOn(setting::grid, control.showGrid());
    });
    connect(&control, &ControlWidget::shown, this, &LookMenu::followToolbar);
}

void LookMenu::takeOver(const LookMenu& former) {
    grid_->setChecked(former.grid_->isChecked());
    toolbar_->setChecked(former.toolbar_->isChecked());
    font_ = former.font_;
    zoom_ = former.zoom_;
}

void LookMenu::showToolbar(bool show) {
    if (control_ == nullptr) return;
    control_->act([show](Surface& surface) {
        if (surface.tbMore.Visible() == show) return;
        surface.cmdMore.UserClick();
        // The button takes the keys along; who is correcting a line goes on typing.
        if (surface.rtbEdit.Visible()) surface.Focus.Request(FocusChild::Editor);
    });
}

// The control's own button shows and hides it too.
void LookMenu::followToolbar() {
    if (control_ == nullptr) return;
    const bool shown = control_->box().Elements().tbMore.Visible();
    if (shown == toolbarShown_) return;
    toolbarShown_ = shown;
    toolbar_->setChecked(shown);
    ViewerSettings().setOn(setting::toolbar, shown);
}

QFont LookMenu::shownFont() const {
    QFont font = font_;
    font.setPointSize(std::clamp(font_.pointSize() + zoom_, smallest, largest));
    return font;
}

void LookMenu::showFont() {
    if (control_ != nullptr) control_->setFont(shownFont());
}

// The dialog may be open while its window goes.
void LookMenu::chooseFont() {
    if (control_ == nullptr) return;
    const QPointer<LookMenu> alive(this);
    bool chosen = false;
    const QFont font =
        QFontDialog::getFont(&chosen, shownFont(), control_->window(), tr("Font of the text"));
    if (alive == nullptr || !chosen) return;
    font_ = font;
    font_.setPointSize(std::clamp(font.pointSize(), smallest, largest));
    zoom_ = 0;
    ViewerSettings settings;
    settings.setText(setting::fontFamily, font_.family());
    settings.setNumber(setting::fontSize, font_.pointSize());
    settings.setNumber(setting::zoom, zoom_);
    showFont();
}

void LookMenu::zoomBy(int points) { zoomTo(shownFont().pointSize() + points - font_.pointSize()); }

void LookMenu::zoomTo(int points) {
    zoom_ = std::clamp(points, smallest - font_.pointSize(), largest - font_.pointSize());
    ViewerSettings().setNumber(setting::zoom, zoom_);
    showFont();
    emit told(tr("Text size %1").arg(shownFont().pointSize()));
}

}  // namespace quorvale
