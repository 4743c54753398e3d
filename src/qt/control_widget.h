#pragma once

#include <QLocale>
#include <QWidget>
#include <functional>
#include <memory>

#include "control/quorvale_box.h"
#include "platform/file_notice.h"
#include "qt/export.h"
#include "qt/widget_ports.h"

namespace quorvale {

class ControlLink;
class EventRelay;
class FontFaces;
class LiveSurface;

/// The widget around a control: it owns the control and everything the control needs, shows its
/// elements with toolbar, rows and scroll bars, and hands its events on as signals. A slot of any
/// signal may destroy it; while the widget is being resized or shown, Qt asks for `deleteLater()`.
class QUORVALE_WIDGET_EXPORT ControlWidget : public QWidget {
    Q_OBJECT

public:
    ~ControlWidget() override;

    /// The language of the texts of widgets that are created from now on: English, Japanese or
    /// Korean; any other one shows English. `QLocale::AnyLanguage`, as at first, is the language
    /// of the user's desktop. A widget keeps the language that it was created with until
    /// it is told to speak another one.
    static void setInterfaceLanguage(QLocale::Language language);
    /// What was set last; `QLocale::AnyLanguage` at first.
    static QLocale::Language interfaceLanguage();

    /// From now on the widget's texts are in the language that a new widget in its place would
    /// have; everything else stays as it is.
    void speakAnew();

    /// Whether a long search of this widget is running, around whoever asks: it takes no input.
    bool isSearching() const;

    /// The control, with all its members. It lives as long as the widget.
    QuorvaleBox& box();
    /// The same for who only asks.
    const QuorvaleBox& box() const;

    /// What the control does beyond its members' promises; to be set before a document is.
    void setOptions(const HostOptions& options);
    /// What is switched on.
    HostOptions options() const;

    /// Whether the widget lies on a form that is being designed, as a form editor says. Its first
    /// row then shows its name; nobody types into it.
    bool isDesigned() const { return *designed_; }
    /// Called by the plugin of a form editor, once, before the widget is shown.
    void setDesigned(bool designed);

    /// The real widgets and what they show, for those who look into the control.
    LiveSurface& liveSurface() { return *surface_; }

    /// Runs what a user does to the elements, beside the widgets: a failure of the control ends
    /// here, and the control may end the widget. Nothing happens from within a long search, which
    /// takes no input.
    void act(const std::function<void(Surface&)>& action);

    /// 800 by 600.
    QSize sizeHint() const override;

signals:
    /// A mouse button goes down on a row. `button`: 1 left, 2 right, 4 middle; `shift`: the sum of
    /// 1 Shift, 2 Ctrl, 4 Alt; the place in twips on the control.
    void mouseDown(int button, int shift, double x, double y);
    /// A mouse button comes up on a row.
    void mouseUp(int button, int shift, double x, double y);
    /// The caret or the row selection changed, or what is read of them: another document may be
    /// shown.
    void selectionChanged();
    /// A row is double-clicked.
    void doubleClicked();
    /// The picture place of a row is clicked.
    void imageClicked(int row);
    /// A key that the control does not use itself goes down in the text.
    void keyDown(int keyCode, int shift);
    /// A key comes up in the text.
    void keyUp(int keyCode, int shift);
    /// The top line was set, by the host or by scrolling, or is another one for any other reason.
    void scrolled();
    /// A button that the host added is clicked, or the one for the boundary lines.
    void buttonClicked(const QString& name);
    /// The user picked a result in another file. Set `*changed` when the host shows that file
    /// itself; otherwise the control loads it.
    void beforeFileChange(const QString& fileName, bool* changed);
    /// The control has set one of its properties, by this name.
    void propertyReported(const QString& name);
    /// The files did something besides what was asked: they moved another program's bytes aside, or
    /// ended a write that had been interrupted. `name` is the file, `keptAs` where its bytes are.
    void fileNotice(quorvale::FileNotice::Kind what, const QString& name, const QString& keptAs);
    /// What had changed on the control is on the screen: at most once per turn of the event loop.
    void shown();

protected:
    /// For derived classes.
    ControlWidget(QWidget* parent, const WidgetPorts& ports);

    /// Runs a member of the control, held alive, then `noteChanges`; a failure of the control ends
    /// here. A slot may have destroyed the widget when this returns.
    void call(const std::function<void(QuorvaleBox&)>& member);

    /// The control, held alive while one of its members runs: a slot may destroy the widget.
    std::shared_ptr<QuorvaleBox> heldBox() const;

    /// Tells of the properties that read otherwise than their listeners know: a member has run, or
    /// what a user does.
    virtual void noteChanges() {}

    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void fitToolbar();
    void letWidgetsOutliveThis();

    std::shared_ptr<bool> designed_;
    std::shared_ptr<FontFaces> faces_;
    std::shared_ptr<ControlLink> link_;
    std::unique_ptr<EventRelay> events_;
    std::unique_ptr<LiveSurface> surface_;
};

}  // namespace quorvale
