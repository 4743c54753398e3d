#include "qt/control_widget.h"

#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "control/host_extras.h"
#include "qt/accessible_rows.h"
#include "qt/control_link.h"
#include "qt/conversions.h"
#include "qt/event_relay.h"
#include "qt/live_surface.h"
#include "qt/widget_services.h"

namespace quorvale {

ControlWidget::ControlWidget(QWidget* parent, const WidgetPorts& ports)
    : QWidget(parent),
      designed_(std::make_shared<bool>(false)),
      faces_(std::make_shared<FontFaces>()),
      link_(std::make_shared<ControlLink>()),
      events_(std::make_unique<EventRelay>(*this)) {
    // Qt remembers what it finds at the first question.
    offerAccessibility();
    link_->attach(std::make_shared<QuorvaleBox>(widgetServices(
        *this, faces_, link_, designed_, ports,
        [this, link = link_](const QString& name) {
            if (link->box() != nullptr) emit propertyReported(name);
        },
        [this, link = link_](const FileNotice& notice) {
            if (link->box() == nullptr) return;
            emit fileNotice(notice.What, toQString(notice.Name), toQString(notice.KeptAs));
        })));
    surface_ = std::make_unique<LiveSurface>(link_, faces_, *this);
    connect(surface_.get(), &LiveSurface::changesShown, this, &ControlWidget::shown);
    // Text and bars run from the left on every desktop.
    setLayoutDirection(Qt::LeftToRight);
    setFocusProxy(&surface_->rows());
    fitToolbar();
    box().SetEvents(events_.get());
    box().InitProperties();
    surface_->watchAll();
    surface_->resize(rect());
    connect(this, &QObject::objectNameChanged, this,
            [this] { link_->box()->AmbientChanged(u"DisplayName"); });
}

ControlWidget::~ControlWidget() {
    const bool inAnEvent = link_->isHandling();
    box().SetEvents(nullptr);
    box().SetEventSink(nullptr);
    box().Elements().Watch(nullptr);
    link_->detach();
    if (inAnEvent) letWidgetsOutliveThis();
}

// The event that is being handled may have come through one of them.
void ControlWidget::letWidgetsOutliveThis() {
    setFocusProxy(nullptr);
    for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        child->hide();
        child->setParent(nullptr);
        link_->deleteLater(*child);
    }
}

void ControlWidget::setInterfaceLanguage(QLocale::Language language) {
    setLanguageOfNewWidgets(language);
}

QLocale::Language ControlWidget::interfaceLanguage() { return languageOfNewWidgets(); }

void ControlWidget::speakAnew() {
    const ControlLinkPtr link = link_;
    call([this](QuorvaleBox& held) { held.Extras().Speak(languageFor(*this)); });
    if (link->box() != nullptr) surface_->nameParts();
}

bool ControlWidget::isSearching() const { return link_->isClosed(); }

QuorvaleBox& ControlWidget::box() { return *link_->box(); }
const QuorvaleBox& ControlWidget::box() const { return *link_->box(); }

void ControlWidget::setOptions(const HostOptions& options) {
    box().SetOptions(options);
    surface_->watchAll();
}

void ControlWidget::setDesigned(bool designed) {
    *designed_ = designed;
    call([](QuorvaleBox& held) { held.AmbientChanged(u"DisplayName"); });
}

HostOptions ControlWidget::options() const { return box().Options(); }

void ControlWidget::call(const std::function<void(QuorvaleBox&)>& member) {
    const ControlLinkPtr link = link_;
    const std::shared_ptr<QuorvaleBox> held = link->box();
    if (held == nullptr) return;
    try {
        member(*held);
    } catch (const ControlError&) {
    }
    if (link->box() != nullptr) noteChanges();
}

std::shared_ptr<QuorvaleBox> ControlWidget::heldBox() const { return link_->box(); }

void ControlWidget::act(const std::function<void(Surface&)>& action) {
    if (link_->run(action)) noteChanges();
}

QSize ControlWidget::sizeHint() const { return {800, 600}; }

// Large fonts need a higher toolbar than the designed one.
void ControlWidget::fitToolbar() {
    Surface& elements = box().Elements();
    const int needed = surface_->tools().searchBox()->sizeHint().height() + 2;
    const Twips height = std::max(elements.tbMore.Height(), toTwips(needed));
    elements.tbMore.SetHeight(height);
    elements.cmdMore.SetHeight(height);
}

void ControlWidget::resizeEvent(QResizeEvent*) { surface_->resize(rect()); }

void ControlWidget::showEvent(QShowEvent* event) {
    if (event->spontaneous()) return;
    const std::shared_ptr<QuorvaleBox> shown = link_->box();
    link_->follow([&](Surface&) { shown->Show(); });
}

void ControlWidget::hideEvent(QHideEvent* event) {
    if (event->spontaneous()) return;
    const std::shared_ptr<QuorvaleBox> hidden = link_->box();
    link_->follow([&](Surface&) { hidden->Hide(); });
}

void ControlWidget::paintEvent(QPaintEvent*) {
    if (box().BorderStyle() == 0) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ControlWidget::wheelEvent(QWheelEvent* event) {
    surface_->rows().scrollBy(*event);
    event->accept();
}

}  // namespace quorvale
