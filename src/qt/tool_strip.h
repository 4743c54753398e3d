#pragma once

#include <QToolButton>
#include <QWidget>
#include <vector>

#include "qt/control_link.h"
#include "qt/text_box_mirror.h"

namespace quorvale {

/// The control's toolbar as real buttons, with the two text boxes in its gaps. Buttons are only
/// ever added; each follows its element's state.
class ToolStrip final : public QWidget {
    Q_OBJECT

public:
    ToolStrip(ControlLinkPtr link, QWidget* parent);

    void mirror(const Surface& surface, QPoint controlOrigin);

    TextBoxMirror* searchBox() const { return searchBox_; }
    TextBoxMirror* lineBox() const { return lineBox_; }
    /// The button that shows an element; null for a gap or a separator.
    QToolButton* button(std::size_t place) const { return entries_[place].Button; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// One place of the toolbar: a button, a box, or room for a separator.
    struct Entry {
        QToolButton* Button = nullptr;
        QWidget* Held = nullptr;
        int Width = 0;
        bool Separator = false;
    };

    Entry makeEntry(const ToolbarButton& shown, std::size_t place);
    QToolButton* makeButton(const ToolbarButton& shown);
    void showButton(QToolButton& button, const Surface& surface, const ToolbarButton& shown);
    void showMenu(QToolButton& button, const ToolbarButton& shown);
    void placeEntries();
    TextBoxMirror* nextBox();

    ControlLinkPtr link_;
    TextBoxMirror* searchBox_;
    TextBoxMirror* lineBox_;
    std::vector<Entry> entries_;
    std::size_t boxesPlaced_ = 0;
};

}  // namespace quorvale
