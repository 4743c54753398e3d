#include "qt/live_surface.h"

#include <QPointer>
#include <utility>

#include "control/host_extras.h"
#include "qt/conversions.h"
#include "qt/menu_popup.h"
#include "qt/qt_picture.h"
#include "resources/spoken_words.h"
#include "resources/text_ids.h"

namespace quorvale {

LiveSurface::LiveSurface(ControlLinkPtr link, std::shared_ptr<FontFaces> faces, QWidget& control)
    : link_(std::move(link)),
      rows_(new RowsArea(link_, std::move(faces), &control)),
      tools_(new ToolStrip(link_, &control)),
      vertical_(new BarMirror(Qt::Vertical, &Surface::scrVert, link_, *rows_, &control)),
      horizontal_(new BarMirror(Qt::Horizontal, &Surface::scrHorz, link_, *rows_, &control)),
      more_(new QToolButton(&control)),
      editor_(new EditorMirror(link_, &control)),
      results_(new ListMirror(link_, &control)),
      focus_(link_, control),
      announcer_(*rows_) {
    rows_->setObjectName("rows");
    vertical_->setObjectName("scrVert");
    horizontal_->setObjectName("scrHorz");
    makeMoreButton(control);
    nameParts();
    connect(&blinking_, &QTimer::timeout, this,
            [this] { link_->follow([](Surface& surface) { surface.tmrImage.Tick(); }); });
    wireElements(control);
    watchAll();
}

void LiveSurface::makeMoreButton(QWidget& control) {
    more_->setObjectName("cmdMore");
    more_->setFocusPolicy(Qt::NoFocus);
    more_->setIconSize(QSize(16, 16));
    more_->setAutoRaise(true);
    connect(more_, &QToolButton::clicked, &control,
            [link = link_] { link->run([](Surface& surface) { surface.cmdMore.UserClick(); }); });
}

void LiveSurface::nameParts() {
    const Language language = link_->box()->Extras().Language();
    rows_->setAccessibleName(toQString(LoadSpoken(SpokenWord::Rows, language)));
    editor_->setAccessibleName(toQString(LoadText(text_id::Edit, language)));
    results_->setAccessibleName(toQString(LoadSpoken(SpokenWord::Results, language)));
    nameMoreButton(link_->box()->Elements());
}

void LiveSurface::wireElements(QWidget& control) {
    focus_.add(FocusChild::TextArea, rows_);
    focus_.add(FocusChild::SearchBox, tools_->searchBox());
    focus_.add(FocusChild::LineBox, tools_->lineBox());
    focus_.add(FocusChild::Editor, editor_);
    focus_.add(FocusChild::FoundList, results_);
    const QPointer<LiveSurface> alive(this);
    link_->box()->Elements().Focus.OnRequest = [alive](FocusChild child) {
        return alive != nullptr && alive->moveFocus(child);
    };
    link_->box()->Elements().rtbEdit.OnFinishTyping = [alive] {
        if (alive != nullptr) alive->editor_->finishComposition();
    };
    wireMenu(&Surface::mnuPopup, control);
    wireMenu(&Surface::mnuCollapse, control);
}

// An editor or a list that has just been opened must be on the screen before it can have the focus.
bool LiveSurface::moveFocus(FocusChild child) {
    if (child == FocusChild::Editor && link_->box() != nullptr) {
        editor_->mirror(link_->box()->Elements(), inner_.topLeft());
    }
    if (child == FocusChild::FoundList && link_->box() != nullptr) {
        results_->mirror(link_->box()->Elements(), inner_.topLeft());
    }
    return focus_.request(child);
}

void LiveSurface::wireMenu(Menu Surface::*menu, QWidget& control) {
    const QPointer<LiveSurface> alive(this);
    const QPointer<QWidget> parent(&control);
    (link_->box()->Elements().*menu).OnPopUp = [alive, parent, menu](Twips x, Twips y) {
        if (alive == nullptr || parent == nullptr) return;
        const QPoint place = QPointF(toPixels(x), toPixels(y)).toPoint() + alive->inner_.topLeft();
        MenuPopup::open(menu, alive->link_, *parent, parent->mapToGlobal(place));
    };
}

void LiveSurface::watchAll() { link_->box()->Elements().Watch(this); }

unsigned LiveSurface::changeOf(const Element& element) const {
    const Surface& surface = link_->box()->Elements();
    if (&element == &surface.imgMarker) return Marker;
    if (&element == &surface.tmrImage) return Blinking;
    if (&element == &surface.rtbEdit) return Editor;
    if (&element == &surface.lvFound) return Results;
    for (const Element* ofFrame : {static_cast<const Element*>(&surface.scrVert),
                                   static_cast<const Element*>(&surface.scrHorz),
                                   static_cast<const Element*>(&surface.tbMore),
                                   static_cast<const Element*>(&surface.cmdMore),
                                   static_cast<const Element*>(&surface.txtSearch),
                                   static_cast<const Element*>(&surface.txtLn)}) {
        if (&element == ofFrame) return Frame;
    }
    return Rows;
}

void LiveSurface::Setting(const Element& element, std::string_view property) {
    if (link_->box() == nullptr) return;
    const unsigned change = changeOf(element);
    // Only a timer that stands still starts a full interval.
    if (change == Blinking && property == "Enabled" && !element.Enabled()) restartBlinking_ = true;
    if (changes_ == 0) {
        QMetaObject::invokeMethod(this, &LiveSurface::showChanges, Qt::QueuedConnection);
    }
    changes_ |= change;
}

void LiveSurface::resize(QRect outer) {
    outer_ = outer;
    takeInnerSize();
}

void LiveSurface::takeInnerSize() {
    inner_ = innerRect();
    const QSize size = inner_.size();
    const bool there = link_->follow(
        [&](Surface& surface) { surface.Resize(toTwips(size.width()), toTwips(size.height())); });
    if (!there) return;
    changes_ |= Rows | Frame;
    showChanges();
}

QRect LiveSurface::innerRect() const {
    const int frame = link_->box()->Elements().UserControl.BorderStyle() == 0 ? 0 : 1;
    return outer_.adjusted(frame, frame, -frame, -frame);
}

void LiveSurface::showChanges() {
    const unsigned changes = std::exchange(changes_, 0U);
    if (link_->box() == nullptr || changes == 0) return;
    if (innerRect() != inner_) {
        changes_ |= changes;
        takeInnerSize();
        return;
    }
    const Surface& surface = link_->box()->Elements();
    if (changes & Frame) showFrame(surface);
    if (changes & Blinking) showBlinking(surface);
    if (changes & Rows) rows_->update();
    if (changes & Marker) showMarker(surface);
    // The editor lies over the rows and ends above the bar.
    if (changes & (Editor | Frame)) editor_->mirror(surface, inner_.topLeft());
    if (changes & (Results | Frame)) results_->mirror(surface, inner_.topLeft());
    const QPointer<LiveSurface> alive(this);
    emit changesShown();
    // Whoever listens may destroy the control.
    if (alive != nullptr) announcer_.tell();
}

void LiveSurface::showFrame(const Surface& surface) {
    const QPoint origin = inner_.topLeft();
    vertical_->mirror(surface, origin);
    horizontal_->mirror(surface, origin);
    tools_->mirror(surface, origin);
    showMoreButton(surface);
    showRowsArea(surface);
}

void LiveSurface::showMoreButton(const Surface& surface) {
    more_->setGeometry(pixelRect(surface.cmdMore).toRect().translated(inner_.topLeft()));
    more_->setVisible(surface.cmdMore.Visible());
    if (moreShown_ == surface.cmdMore.Shown()) return;
    moreShown_ = surface.cmdMore.Shown();
    more_->setIcon(toIcon(moreShown_));
    nameMoreButton(surface);
}

void LiveSurface::nameMoreButton(const Surface& surface) {
    const SpokenWord does =
        surface.tbMore.Visible() ? SpokenWord::HideToolbar : SpokenWord::ShowToolbar;
    more_->setAccessibleName(toQString(LoadSpoken(does, link_->box()->Extras().Language())));
}

void LiveSurface::showRowsArea(const Surface& surface) {
    QRect area = inner_;
    area.setTop(area.top() + qRound(toPixels(surface.ToolbarHeight())));
    if (surface.scrVert.Visible()) area.setRight(vertical_->geometry().left() - 1);
    if (surface.scrHorz.Visible()) area.setBottom(horizontal_->geometry().top() - 1);
    rows_->setControlOrigin(inner_.topLeft());
    if (rows_->geometry() != area) rows_->setGeometry(area);
}

void LiveSurface::showMarker(const Surface& surface) {
    const QRectF place = pixelRect(surface.imgMarker);
    rows_->updatePlace(markerPlace_);
    rows_->updatePlace(place);
    markerPlace_ = place;
}

void LiveSurface::showBlinking(const Surface& surface) {
    const Timer& timer = surface.tmrImage;
    const bool restart = std::exchange(restartBlinking_, false);
    if (!timer.Enabled()) {
        blinking_.stop();
    } else if (restart || !blinking_.isActive() || blinking_.interval() != timer.Interval()) {
        blinking_.start(timer.Interval());
    }
}

}  // namespace quorvale
