#pragma once

#include <functional>

#include "base/export.h"
#include "platform/element_array.h"
#include "platform/focus.h"
#include "platform/keyed_pictures.h"
#include "platform/keys.h"
#include "platform/list_view.h"
#include "platform/menu.h"
#include "platform/scroll_bar.h"
#include "platform/simple_elements.h"
#include "platform/text_box.h"
#include "platform/toolbar.h"

namespace quorvale {

/// Everything that one control shows, as data, and the ways in which its rows answer the mouse.
/// The core fills the elements and runs the handlers; a surface draws the elements and calls the
/// handlers. Boxes hold other elements, whose places are relative to the box: `picBorder` holds
/// `imgLine` and `lnBorderLeft`; `picExpand` holds `imgEdit`, `imgExpand`, `lnExpand`,
/// `lnExpandTo`. From back to front: the ground, `lblLine`, `lnGrid`, `imgMarker`, the boxes,
/// `rtbEdit`, the bars and `picCorner`, the toolbar, `cmdMore`, `lblScrollTip`, `lvFound`.
class QUORVALE_CORE_EXPORT Surface {
public:
    /// All elements as a control starts with them. The metrics must outlive them.
    explicit Surface(const TextMetrics& metrics);

    /// The control's own ground: its size is the inner size in twips, its colours and font are the
    /// control's `BackColor`, `ForeColor` and `Font`.
    Box UserControl{"UserControl"};

    /// The rows, by their slots; the tag is the number of the line that the row shows.
    ElementArray<Label> lblLine;
    /// The pictures of lines, by their slots.
    ElementArray<Image> imgLine;
    /// The glyphs that fold and unfold, by their slots.
    ElementArray<Image> imgExpand;
    /// The marks of corrected rows, by their slots.
    ElementArray<Image> imgEdit;
    /// The brackets of ranges that may be folded: one stroke for each range.
    ElementArray<LineShape> lnExpand;
    /// Their feet, at the last line of each range.
    ElementArray<LineShape> lnExpandTo;
    /// One element per boundary column, from 1; its tag holds the column.
    ElementArray<LineShape> lnGrid;

    /// The strip left of the text, with the pictures of lines.
    Box picBorder{"picBorder"};
    /// The strip beside it, with glyphs, brackets and marks.
    Box picExpand{"picExpand"};
    /// The corner between two scroll bars.
    Box picCorner{"picCorner"};
    /// Has the keyboard while the text has it.
    Box picFocus{"picFocus"};
    /// The rule at the edge of the strip.
    LineShape lnBorderLeft{"lnBorderLeft"};
    /// Scrolls through the lines.
    ScrollBar scrVert{"scrVert"};
    /// Scrolls along the lines.
    ScrollBar scrHorz{"scrHorz"};
    /// Names the line while the thumb is dragged.
    Label lblScrollTip{"lblScrollTip"};
    /// The caret.
    Image imgMarker{"imgMarker"};
    /// Never seen: its picture is the caret's own.
    Image imgDefaultCursor{"imgDefaultCursor"};

    /// The toolbar, hidden or shown.
    Toolbar tbMore{"tbMore"};
    /// Shows and hides the toolbar.
    CommandButton cmdMore{"cmdMore"};
    /// The box for the text to find.
    TextBox txtSearch{"txtSearch"};
    /// The box for the number of the caret's line, and the line to go to.
    TextBox txtLn{"txtLn"};
    /// The editor over the rows that are being corrected.
    TextBox rtbEdit{"rtbEdit"};
    /// The results of a search.
    ListView lvFound{"lvFound"};
    /// The pictures of the toolbar's buttons.
    ImageList ilMore;
    /// The pictures of glyphs.
    ImageList ilExpand;
    /// The menu for corrections.
    Menu mnuPopup{"mnuPopup"};
    /// The menu for folds.
    Menu mnuCollapse{"mnuCollapse"};
    /// Lets the caret blink.
    Timer tmrImage{"tmrImage"};
    /// Who has the keyboard.
    quorvale::Focus Focus;

    /// The inner size changed; also to be called once after creation.
    std::function<void()> OnResize;

    /// A button goes down over a row, the place being relative to it.
    std::function<void(int slot, const MouseEvent&)> OnRowMouseDown;
    /// The mouse moves over the row, or anywhere while a button that went down there is held.
    std::function<void(int slot, const MouseEvent&)> OnRowMouseMove;
    /// The button goes up again, wherever the mouse is.
    std::function<void(int slot, const MouseEvent&)> OnRowMouseUp;
    /// A row is clicked twice.
    std::function<void(int slot)> OnRowDblClick;
    /// The picture of a line, or its empty place, is clicked.
    std::function<void(int slot)> OnLineImageClick;
    /// A glyph is clicked.
    std::function<void(int slot)> OnGlyphClick;
    /// A button goes down over a glyph; the right one asks for the menu.
    std::function<void(int slot, const MouseEvent&)> OnGlyphMouseDown;
    /// The mark of a corrected row is clicked.
    std::function<void(int slot)> OnEditMarkClick;
    /// A button goes down over the caret, which lies over its row.
    std::function<void(const MouseEvent&)> OnMarkerMouseDown;
    /// The mouse moves over the caret, or anywhere while a button that went down there is held.
    std::function<void(const MouseEvent&)> OnMarkerMouseMove;
    /// The button goes up again, wherever the mouse is.
    std::function<void(const MouseEvent&)> OnMarkerMouseUp;
    /// A key goes down or up while any element of the control has the focus.
    std::function<void(std::int16_t keyCode, std::int16_t shift)> OnKeyDown;
    /// A key goes up.
    std::function<void(std::int16_t keyCode, std::int16_t shift)> OnKeyUp;
    /// The keyboard comes to the control from outside.
    std::function<void()> OnEnter;
    /// The keyboard leaves the control.
    std::function<void()> OnExit;

    /// Height of the toolbar in the layout: 0 while it is hidden.
    Twips ToolbarHeight() const { return tbMore.Visible() ? tbMore.Height() : 0; }

    /// The height of a row, read afresh: it is the first label's.
    Twips RowHeight() const { return lblLine[0].Height(); }

    /// Lets one watcher hear of every element's changes; null for none.
    void Watch(ElementWatcher* watcher);

    /// The user or the host gives the control another inner size, in twips.
    void Resize(Twips width, Twips height);
};

}  // namespace quorvale
