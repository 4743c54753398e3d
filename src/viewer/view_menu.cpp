#include "viewer/view_menu.h"

#include <QLocale>
#include <QMenu>
#include <QPalette>

#include "base/errors.h"
#include "control/host_extras.h"
#include "qt/quorvale_box_widget.h"
#include "viewer/busy_cursor.h"
#include "viewer/row_menu.h"
#include "viewer/severity_colours.h"
#include "viewer/viewer_settings.h"

namespace quorvale {

namespace {

/// Keeps the view still and shows that something takes its time.
class BusyView {
public:
    explicit BusyView(QuorvaleBox& box) : box_(box) { box_.AutoRedraw(false); }
    ~BusyView() {
        try {
            box_.AutoRedraw(true);
        } catch (const ControlError&) {
            // What cannot be drawn now is drawn with the next step.
        }
    }
    BusyView(const BusyView&) = delete;
    BusyView& operator=(const BusyView&) = delete;

private:
    BusyCursor cursor_;
    QuorvaleBox& box_;
};

/// Characters of a line that say where it folds and what it is.
constexpr std::int32_t mostLookedAt = 4096;

/// The kept words for the ways to fold.
constexpr const char* noFolds = "none";
constexpr const char* indentation = "indentation";
constexpr const char* blankLines = "blank lines";

constexpr Colour rgb(int red, int green, int blue) {
    return static_cast<Colour>(red | green << 8 | blue << 16);
}

/// Text colours with enough contrast to the desktop's ground, light or dark.
struct SeverityColours {
    Colour Error;
    Colour Warning;
};

SeverityColours coloursFor(const QPalette& palette) {
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    return dark ? SeverityColours{rgb(255, 128, 128), rgb(255, 200, 87)}
                : SeverityColours{rgb(176, 0, 32), rgb(138, 86, 0)};
}

}  // namespace

ViewMenu::ViewMenu(QMenu& menu) : QObject(&menu), folds_(this) {
    folds_.setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    byIndentation_ = addToggle(menu, tr("Fold by &indentation"));
    byBlankLines_ = addToggle(menu, tr("Fold by &blank lines"));
    folds_.addAction(byIndentation_);
    folds_.addAction(byBlankLines_);
    addFolding(menu);
    menu.addSeparator();
    bySeverity_ = addToggle(menu, tr("&Colour errors and warnings"));
    const ViewerSettings settings;
    const QString kept = settings.choice(setting::folds, {noFolds, indentation, blankLines});
    byIndentation_->setChecked(kept == indentation);
    byBlankLines_->setChecked(kept == blankLines);
    bySeverity_->setChecked(settings.isOn(setting::severities, false));
    connect(&folds_, &QActionGroup::triggered, this, &ViewMenu::keepFolds);
    connect(&folds_, &QActionGroup::triggered, this, &ViewMenu::fold);
    connect(bySeverity_, &QAction::triggered, this, [this](bool on) {
        ViewerSettings().setOn(setting::severities, on);
        colour();
    });
}

void ViewMenu::keepFolds() {
    ViewerSettings().setText(setting::folds, byIndentation_->isChecked()  ? indentation
                                             : byBlankLines_->isChecked() ? blankLines
                                                                          : noFolds);
}

void ViewMenu::addFolding(QMenu& menu) {
    menu.addAction(tr("F&old or unfold here"), QKeySequence(Qt::CTRL | Qt::Key_M), this,
                   &ViewMenu::toggleAtCaret);
    menu.addAction(tr("Fold &all"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_M), this,
                   [this] { pickOfFolds(u"mnuCollapseCollapseAll"); });
    menu.addAction(tr("&Unfold all"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_M), this,
                   [this] { pickOfFolds(u"mnuCollapseExpandAll"); });
}

void ViewMenu::pickOfFolds(const char16_t* key) {
    if (control_ == nullptr) return;
    control_->act([key](Surface& surface) { surface.mnuCollapse.UserPick(key); });
}

// What a click on the glyph of the caret's row does.
void ViewMenu::toggleAtCaret() {
    if (control_ == nullptr) return;
    control_->ensureVisible(control_->row());
    const int slot = slotOfCaret(control_->box());
    if (slot < 0 || !control_->box().Elements().imgExpand[slot].Visible()) {
        emit told(tr("No range begins in this line"));
        return;
    }
    control_->act([slot](Surface& surface) { surface.OnGlyphClick(slot); });
}

QAction* ViewMenu::addToggle(QMenu& menu, const QString& text) {
    QAction* action = menu.addAction(text);
    action->setCheckable(true);
    return action;
}

void ViewMenu::setControl(QuorvaleBoxWidget& control) { control_ = &control; }

void ViewMenu::applyToDocument() {
    if (folds_.checkedAction() != nullptr) fold();
    recolour();
}

void ViewMenu::recolour() {
    if (bySeverity_->isChecked()) colour();
}

void ViewMenu::fold() {
    if (control_ == nullptr) return;
    const BusyView busy(control_->box());
    control_->box().Extras().ForgetFolds();
    if (byIndentation_->isChecked()) addFolds(&foldsByIndentation);
    if (byBlankLines_->isChecked()) addFolds(&foldsByBlankLines);
}

void ViewMenu::addFolds(FoldFinder find) {
    QuorvaleBox& box = control_->box();
    const auto lines = [&box](std::int32_t line) {
        return box.Extras().RawLineStart(line, mostLookedAt);
    };
    const std::vector<FoldRange> folds = find(lines, box.LineCount());
    for (const FoldRange& range : folds) box.CollapseLines(range.First, range.Last);
    const QString count = QLocale().toString(static_cast<qlonglong>(folds.size()));
    emit told(folds.size() >= mostFolds ? tr("Only the first %1 ranges can be folded").arg(count)
              : folds.size() == 1       ? tr("1 range can be folded")
                                        : tr("%1 ranges can be folded").arg(count));
}

void ViewMenu::colour() {
    if (control_ == nullptr) return;
    QuorvaleBox& box = control_->box();
    const BusyView busy(box);
    const SeverityColours colours = coloursFor(control_->palette());
    const Colour plain = box.ForeColor();
    const bool on = bySeverity_->isChecked();
    for (std::int32_t line = 1; line <= box.LineCount(); ++line) {
        const Severity severity =
            on ? severityOf(box.Extras().RawLineStart(line, mostLookedAt)) : Severity::Plain;
        const Colour wanted = severity == Severity::Error     ? colours.Error
                              : severity == Severity::Warning ? colours.Warning
                                                              : plain;
        if (box.LineForeColor(line) != wanted) box.LineForeColor(line, wanted);
    }
}

}  // namespace quorvale
