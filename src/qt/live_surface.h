#pragma once

#include <QObject>
#include <QTimer>
#include <QToolButton>
#include <memory>
#include <string_view>

#include "platform/element.h"
#include "qt/bar_mirror.h"
#include "qt/control_link.h"
#include "qt/editor_mirror.h"
#include "qt/focus_bridge.h"
#include "qt/list_mirror.h"
#include "qt/row_announcer.h"
#include "qt/rows_area.h"
#include "qt/tool_strip.h"

namespace quorvale {

/// The real widgets of one control. It hears of every element that moves and shows them all again
/// once per turn of the event loop; what is true stays in the elements.
class LiveSurface final : public QObject, private ElementWatcher {
    Q_OBJECT

public:
    LiveSurface(ControlLinkPtr link, std::shared_ptr<FontFaces> faces, QWidget& control);

    /// The widget got another size: the model follows at once, and so does what is seen.
    void resize(QRect outer);

    /// Rows and boundary lines may have been added: hear of them too.
    void watchAll();

    /// Shows now what moved.
    void showChanges();

    /// Says what the parts are for those who do not see it, in the control's language.
    void nameParts();

    RowsArea& rows() { return *rows_; }
    ToolStrip& tools() { return *tools_; }
    BarMirror& verticalBar() { return *vertical_; }
    BarMirror& horizontalBar() { return *horizontal_; }
    QToolButton& moreButton() { return *more_; }
    EditorMirror& editor() { return *editor_; }
    ListMirror& results() { return *results_; }
    const RowAnnouncer& announcer() const { return announcer_; }

signals:
    void changesShown();

private:
    /// What is to be shown again.
    enum Change : unsigned {
        Rows = 1,
        Frame = 2,
        Marker = 4,
        Blinking = 8,
        Editor = 16,
        Results = 32
    };

    void Setting(const Element& element, std::string_view property) override;
    unsigned changeOf(const Element& element) const;
    void takeInnerSize();
    QRect innerRect() const;
    void makeMoreButton(QWidget& control);
    void nameMoreButton(const Surface& surface);
    void showMoreButton(const Surface& surface);
    bool moveFocus(FocusChild child);
    void wireElements(QWidget& control);
    void wireMenu(Menu Surface::*menu, QWidget& control);
    void showFrame(const Surface& surface);
    void showRowsArea(const Surface& surface);
    void showMarker(const Surface& surface);
    void showBlinking(const Surface& surface);

    ControlLinkPtr link_;
    RowsArea* rows_;
    ToolStrip* tools_;
    BarMirror* vertical_;
    BarMirror* horizontal_;
    QToolButton* more_;
    EditorMirror* editor_;
    ListMirror* results_;
    FocusBridge focus_;
    RowAnnouncer announcer_;
    QTimer blinking_;
    QRect outer_;
    /// What the frame leaves of it.
    QRect inner_;
    QRectF markerPlace_;
    PicturePtr moreShown_;
    unsigned changes_ = 0;
    /// The timer was switched on since it was shown last: it starts a full interval.
    bool restartBlinking_ = false;
};

}  // namespace quorvale
