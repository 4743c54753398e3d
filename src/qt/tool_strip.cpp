#include "qt/tool_strip.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

#include "base/errors.h"
#include "platform/variant.h"
#include "qt/conversions.h"
#include "qt/qt_picture.h"

namespace quorvale {

namespace {

constexpr int separatorWidth = 9;
constexpr int pictureSize = 16;
constexpr int boxMargin = 1;

/// What a button is called where its picture is not seen: a host's button may have no tip.
QString nameOf(const ToolbarButton& button) {
    return toQString(button.ToolTip.empty() ? button.Tag : button.ToolTip);
}

void setName(QWidget& widget, const QString& name) {
    if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

PicturePtr pictureOf(const Surface& surface, const ToolbarButton& button) {
    if (button.Shown != nullptr || button.PictureKey.empty()) return button.Shown;
    try {
        return surface.ilMore.Find(button.PictureKey);
    } catch (const ControlError&) {
        return nullptr;
    }
}

}  // namespace

ToolStrip::ToolStrip(ControlLinkPtr link, QWidget* parent)
    : QWidget(parent),
      link_(std::move(link)),
      searchBox_(new TextBoxMirror(&Surface::txtSearch, link_, this)),
      lineBox_(new TextBoxMirror(&Surface::txtLn, link_, this)) {
    // Buttons are written as everywhere in the program, however large the rows are.
    QFont plain = QApplication::font();
    plain.setResolveMask(QFont::AllPropertiesResolved);
    setFont(plain);
    searchBox_->setObjectName("txtSearch");
    lineBox_->setObjectName("txtLn");
    searchBox_->hide();
    lineBox_->hide();
}

void ToolStrip::mirror(const Surface& surface, QPoint controlOrigin) {
    const auto& buttons = surface.tbMore.Buttons();
    while (entries_.size() < buttons.size()) {
        entries_.push_back(makeEntry(buttons[entries_.size()], entries_.size()));
    }
    QString name;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const Entry& entry = entries_[i];
        if (entry.Button != nullptr) {
            showButton(*entry.Button, surface, buttons[i]);
            name = entry.Button->accessibleName();
        } else if (entry.Held != nullptr) {
            // A box belongs to the button before it.
            setName(*entry.Held, name);
        }
    }
    setGeometry(pixelRect(surface.tbMore).toRect().translated(controlOrigin));
    placeEntries();
    searchBox_->mirror(surface);
    lineBox_->mirror(surface);
    setVisible(surface.tbMore.Visible());
}

ToolStrip::Entry ToolStrip::makeEntry(const ToolbarButton& shown, std::size_t place) {
    Entry entry;
    switch (shown.Kind) {
        case ButtonKind::Separator:
            entry.Separator = true;
            entry.Width = separatorWidth;
            break;
        case ButtonKind::Placeholder:
            entry.Held = nextBox();
            entry.Width = static_cast<int>(toPixels(shown.Width));
            break;
        default:
            entry.Button = makeButton(shown);
            entry.Held = entry.Button;
            connect(entry.Button, &QToolButton::clicked, this, [this, place] {
                link_->run([&](Surface& surface) {
                    const std::u16string key = surface.tbMore.Buttons()[place].Key;
                    surface.tbMore.UserClick(key);
                });
            });
    }
    if (entry.Held == nullptr) return entry;
    entry.Held->setVisible(true);
    // Tab follows what is seen, whichever of them was made first.
    const auto before = std::find_if(entries_.rbegin(), entries_.rend(),
                                     [](const Entry& one) { return one.Held != nullptr; });
    if (before != entries_.rend()) setTabOrder(before->Held, entry.Held);
    return entry;
}

TextBoxMirror* ToolStrip::nextBox() {
    ++boxesPlaced_;
    if (boxesPlaced_ == 1) return searchBox_;
    return boxesPlaced_ == 2 ? lineBox_ : nullptr;
}

QToolButton* ToolStrip::makeButton(const ToolbarButton& shown) {
    auto* button = new QToolButton(this);
    button->setObjectName(toQString(shown.Key));
    button->setAutoRaise(true);
    // Reached by Tab, but a click leaves the keys where they are.
    button->setFocusPolicy(Qt::TabFocus);
    button->setIconSize(QSize(pictureSize, pictureSize));
    button->setCheckable(shown.Kind == ButtonKind::Check);
    if (shown.Kind == ButtonKind::DropDown) {
        button->setMenu(new QMenu(button));
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    return button;
}

void ToolStrip::showButton(QToolButton& button, const Surface& surface,
                           const ToolbarButton& shown) {
    if (button.icon().isNull() && button.text().isEmpty()) {
        const PicturePtr picture = pictureOf(surface, shown);
        button.setIcon(toIcon(picture));
        // A button without a picture is known by its key.
        if (picture == nullptr) button.setText(toQString(shown.Key));
        if (picture == nullptr) button.setToolButtonStyle(Qt::ToolButtonTextOnly);
    }
    button.setEnabled(shown.Enabled && surface.tbMore.Enabled());
    button.setToolTip(toQString(shown.ToolTip));
    setName(button, nameOf(shown));
    if (button.isCheckable() && button.isChecked() != shown.Pressed) {
        button.setChecked(shown.Pressed);
    }
    if (button.menu() != nullptr) showMenu(button, shown);
}

void ToolStrip::showMenu(QToolButton& button, const ToolbarButton& shown) {
    QMenu& menu = *button.menu();
    for (std::size_t i = 0; i < shown.Menu.size(); ++i) {
        const MenuItem& item = shown.Menu[i];
        if (i >= static_cast<std::size_t>(menu.actions().size())) {
            QAction* added = menu.addAction(QString());
            const std::u16string key = shown.Key;
            connect(added, &QAction::triggered, this, [this, key, i] {
                link_->run([&](Surface& surface) { surface.tbMore.UserMenuClick(key, i); });
            });
        }
        QAction* action = menu.actions().at(static_cast<qsizetype>(i));
        action->setSeparator(item.IsSeparator());
        // The text of a separator would be drawn beside its line.
        if (!item.IsSeparator()) action->setText(toQString(item.Caption));
        action->setEnabled(item.Enabled);
    }
}

void ToolStrip::placeEntries() {
    int left = 0;
    for (Entry& entry : entries_) {
        if (entry.Button != nullptr) entry.Width = entry.Button->sizeHint().width();
        const int margin = entry.Button != nullptr || entry.Held == nullptr ? 0 : boxMargin;
        if (entry.Held != nullptr) {
            entry.Held->setGeometry(left, margin, entry.Width, height() - 2 * margin);
        }
        left += entry.Width;
    }
}

// From a button the keys go back to the text. What Escape does in a box is the box's affair.
void ToolStrip::keyPressEvent(QKeyEvent* event) {
    const bool isTyping = qobject_cast<QLineEdit*>(focusWidget()) != nullptr;
    if (event->key() != Qt::Key_Escape || isTyping || parentWidget() == nullptr) {
        return QWidget::keyPressEvent(event);
    }
    parentWidget()->setFocus(Qt::OtherFocusReason);
}

void ToolStrip::resizeEvent(QResizeEvent*) { placeEntries(); }

void ToolStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    int left = 0;
    for (const Entry& entry : entries_) {
        if (entry.Separator) {
            QStyleOption option;
            option.initFrom(this);
            option.state |= QStyle::State_Horizontal;
            option.rect = QRect(left, 0, entry.Width, height());
            style()->drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, &option, &painter, this);
        }
        left += entry.Width;
    }
}

}  // namespace quorvale
