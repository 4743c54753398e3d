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
    explicit Surface(const TextMetrics& metrics);

    /// The control's own ground: its size is the inner size in twips, its colours and font are the
    /// control's `BackColor`, `ForeColor` and `Font`.
    Box UserControl{"UserControl"};

    ElementArray<Label> lblLine;
    ElementArray<Image> imgLine;
    ElementArray<Image> imgExpand;
    ElementArray<Image> imgEdit;
    ElementArray<LineShape> lnExpand;
    ElementArray<LineShape> lnExpandTo;
    /// One element per boundary column, from 1; its tag holds the column.
    ElementArray<LineShape> lnGrid;

    Box picBorder{"picBorder"};
    Box picExpand{"picExpand"};
    Box picCorner{"picCorner"};
    Box picFocus{"picFocus"};
    LineShape lnBorderLeft{"lnBorderLeft"};
    ScrollBar scrVert{"scrVert"};
    ScrollBar scrHorz{"scrHorz"};
    Label lblScrollTip{"lblScrollTip"};
    Image imgMarker{"imgMarker"};
    Image imgDefaultCursor{"imgDefaultCursor"};

    Toolbar tbMore{"tbMore"};
    CommandButton cmdMore{"cmdMore"};
    TextBox txtSearch{"txtSearch"};
    TextBox txtLn{"txtLn"};
    TextBox rtbEdit{"rtbEdit"};
    ListView lvFound{"lvFound"};
    ImageList ilMore;
    ImageList ilExpand;
    Menu mnuPopup{"mnuPopup"};
    Menu mnuCollapse{"mnuCollapse"};
    Timer tmrImage{"tmrImage"};
    quorvale::Focus Focus;

    /// The inner size changed; also to be called once after creation.
    std::function<void()> OnResize;

    std::function<void(int slot, const MouseEvent&)> OnRowMouseDown;
    std::function<void(int slot, const MouseEvent&)> OnRowMouseMove;
    std::function<void(int slot, const MouseEvent&)> OnRowMouseUp;
    std::function<void(int slot)> OnRowDblClick;
    std::function<void(int slot)> OnLineImageClick;
    std::function<void(int slot)> OnGlyphClick;
    std::function<void(int slot, const MouseEvent&)> OnGlyphMouseDown;
    /// The mark of a corrected row is clicked.
    std::function<void(int slot)> OnEditMarkClick;
    std::function<void(const MouseEvent&)> OnMarkerMouseDown;
    std::function<void(const MouseEvent&)> OnMarkerMouseMove;
    std::function<void(const MouseEvent&)> OnMarkerMouseUp;
    /// A key goes down or up while any element of the control has the focus.
    std::function<void(std::int16_t keyCode, std::int16_t shift)> OnKeyDown;
    std::function<void(std::int16_t keyCode, std::int16_t shift)> OnKeyUp;
    std::function<void()> OnEnter;
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
