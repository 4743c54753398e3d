#include "qt/accessible_row.h"

#include <QWindow>
#include <algorithm>

#include "qt/code_points.h"
#include "qt/conversions.h"
#include "qt/seen_rows.h"

namespace quorvale {

namespace {

int sizeOf(const QString& text) { return static_cast<int>(text.size()); }

/// Where the characters of a row stand, in pixels from its left edge on the screen.
class CharacterPlaces {
public:
    CharacterPlaces(const RowsArea& area, const Label& label, const QString& text)
        : glyphs_(area.faces().of(label.Font())),
          text_(toUtf16(text)),
          left_(toPixels(label.Left()) - area.onControl().x()) {}

    int leftOf(int offset) const {
        const std::u16string_view before(text_);
        const Twips width = glyphs_.width(before.substr(0, static_cast<std::size_t>(offset)));
        return qRound(left_ + toPixels(width));
    }

    /// The character that reaches past `x`; the end of the text behind the last one.
    int under(int x) const {
        double right = left_;
        std::size_t at = 0;
        while (at < text_.size()) {
            std::size_t units = 1;
            right += toPixels(glyphs_.advanceAt(text_, at, units));
            if (x < qRound(right)) break;
            at += units;
        }
        return static_cast<int>(at);
    }

    /// Behind the character at a place: the next one.
    int behind(int offset) const {
        const auto at = static_cast<std::size_t>(offset);
        if (at >= text_.size()) return offset;
        return offset + static_cast<int>(codePointAt(text_, at).Units);
    }

private:
    GlyphCache& glyphs_;
    std::u16string text_;
    double left_;
};

}  // namespace

bool AccessibleRow::isValid() const { return area_ != nullptr && SeenRows(*area_).has(line_); }

QWindow* AccessibleRow::window() const {
    return area_ == nullptr ? nullptr : area_->window()->windowHandle();
}

QAccessibleInterface* AccessibleRow::parent() const {
    return area_ == nullptr ? nullptr : QAccessible::queryAccessibleInterface(area_);
}

QString AccessibleRow::text(QAccessible::Text wanted) const {
    if (!isValid()) return {};
    const SeenRows rows(*area_);
    if (wanted == QAccessible::Name) return spokenName(rows.row(line_), rows.language());
    if (wanted == QAccessible::Description) {
        return spokenDescription(rows.row(line_), rows.language());
    }
    return {};
}

QRect AccessibleRow::rect() const {
    if (!isValid()) return {};
    const SeenRows rows(*area_);
    return rows.rectAt(rows.placeOf(line_));
}

// There is no state for a row that was corrected. Its mark is reported as a check mark, of a row
// that the user cannot check; the description says the word.
QAccessible::State AccessibleRow::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid) return state;
    const SeenRows rows(*area_);
    const SpokenRow row = rows.row(line_);
    const bool hasCaret = rows.caretLine() == line_;
    state.focusable = true;
    state.focused = hasCaret && area_->hasFocus();
    state.active = hasCaret;
    state.selectable = true;
    state.selected = row.Selected;
    state.expandable = row.CanFold;
    state.expanded = row.CanFold && !row.Folded;
    state.collapsed = row.Folded;
    state.checked = row.Corrected;
    state.offscreen = rows.placeOf(line_) < 0;
    state.invisible = !area_->isVisible();
    state.disabled = !area_->isEnabled();
    return state;
}

void* AccessibleRow::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

void AccessibleRow::selection(int, int* startOffset, int* endOffset) const {
    *startOffset = *endOffset = 0;
}

int AccessibleRow::cursorPosition() const {
    if (!isValid()) return -1;
    const SeenRows rows(*area_);
    return rows.caretLine() == line_ ? std::min(rows.caretUnit(), characterCount()) : -1;
}

void AccessibleRow::setCursorPosition(int position) {
    if (!isValid()) return;
    const ControlLinkPtr link = area_->link();
    const int column = std::clamp(position, 0, characterCount()) + 1;
    link->run([&, line = line_](Surface&) { link->box()->MoveTo(line, column); });
}

QString AccessibleRow::text(int startOffset, int endOffset) const {
    if (!isValid()) return {};
    const QString whole = spokenText(SeenRows(*area_).row(line_).Text.View());
    const int start = std::clamp(startOffset, 0, sizeOf(whole));
    return whole.mid(start, std::clamp(endOffset, start, sizeOf(whole)) - start);
}

int AccessibleRow::characterCount() const {
    if (!isValid()) return 0;
    return sizeOf(spokenText(SeenRows(*area_).row(line_).Text.View()));
}

QRect AccessibleRow::characterRect(int offset) const {
    const QRect row = rect();
    const QString text = this->text(0, characterCount());
    if (row.isEmpty() || offset < 0 || offset > sizeOf(text)) return {};
    const int slot = SeenRows(*area_).placeOf(line_);
    const CharacterPlaces places(*area_, area_->link()->box()->Elements().lblLine[slot], text);
    const int left = places.leftOf(offset);
    // Behind the last character there is room for the caret.
    const int width = std::max(1, places.leftOf(places.behind(offset)) - left);
    return {row.left() + left, row.top(), width, row.height()};
}

int AccessibleRow::offsetAtPoint(const QPoint& point) const {
    const QRect row = rect();
    if (!row.contains(point)) return -1;
    const int slot = SeenRows(*area_).placeOf(line_);
    const CharacterPlaces places(*area_, area_->link()->box()->Elements().lblLine[slot],
                                 text(0, characterCount()));
    return places.under(point.x() - row.left());
}

void AccessibleRow::scrollToSubstring(int, int) {
    if (!isValid()) return;
    const ControlLinkPtr link = area_->link();
    link->run([&, line = line_](Surface&) { link->box()->EnsureVisible(line); });
}

QString AccessibleRow::attributes(int, int* startOffset, int* endOffset) const {
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

QStringList AccessibleRow::actionNames() const {
    if (!isValid()) return {};
    QStringList names{setFocusAction()};
    if (SeenRows(*area_).row(line_).CanFold) names << toggleAction();
    return names;
}

void AccessibleRow::doAction(const QString& actionName) {
    if (!isValid() || area_->link()->isClosed()) return;
    if (actionName == setFocusAction()) {
        takeFocus();
    } else if (actionName == toggleAction()) {
        toggleFold();
    }
}

// Who hears of the focus, of the caret or of the fold may destroy the control, and this with it.
void AccessibleRow::takeFocus() {
    const ControlLinkPtr link = area_->link();
    const int line = line_;
    area_->setFocus(Qt::OtherFocusReason);
    link->run([&](Surface&) { link->box()->row(line); });
}

void AccessibleRow::toggleFold() {
    const SeenRows rows(*area_);
    const int slot = rows.placeOf(line_);
    if (!rows.rowAt(slot).CanFold) return;
    const ControlLinkPtr link = area_->link();
    link->run([&](Surface& surface) {
        if (surface.OnGlyphClick) surface.OnGlyphClick(slot);
    });
}

}  // namespace quorvale
