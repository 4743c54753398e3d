#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QWidget>

namespace quorvale {

/// Keeps what the user does away from a window while a search works in it: keys, shortcuts, mouse,
/// wheel, touch, drops and input methods are dropped, not put off. Escape is taken as the wish to
/// end the search. So is closing the window and quitting the application; these two are done when
/// the search is over, since what is on the stack then belongs to the window.
///
/// Showing, moving and resizing the window, its focus, and everything in other windows goes its
/// way. The rest of a key or a button that went down meanwhile is dropped too, however late it
/// comes: an Escape that is held does not close the list that the search has filled.
class InputBlock final : public QObject {
    Q_OBJECT

public:
    explicit InputBlock(QWidget& control);

    void begin();
    void end();

    /// True once after Escape; always after a wish to leave.
    bool takeWishToEnd();
    /// The application ends without asking its windows.
    void leave() { leaving_ = true; }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool isOfWindow(QObject* receiver) const;
    bool takesLeave(QObject* receiver, QEvent& event);
    bool takesInput(QEvent& event);
    bool takesRest(QEvent& event);
    void carryOutWishes();

    QPointer<QWidget> control_;
    QPointer<QWidget> window_;
    /// Went down while the window was blocked, and have not come up yet.
    QSet<int> keys_;
    Qt::MouseButtons buttons_;
    bool blocking_ = false;
    bool escape_ = false;
    bool leaving_ = false;
    bool closes_ = false;
    bool quits_ = false;
};

}  // namespace quorvale
