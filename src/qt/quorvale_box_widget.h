#pragma once

#include <QIcon>
#include <QVariantList>

#include "qt/document_widget.h"
#include "qt/export.h"

class QSettings;

namespace quorvale {

/// The control as a widget: shows one large text file as rows, with toolbar and scroll bars.
/// Colours follow the palette until they are set, and again after their reset; the font is the
/// widget's own. `enabledFlag` is kept for the host and consulted by nothing: to disable the widget
/// there is `setEnabled`. A notify signal comes once for every change of what its property reads,
/// whatever member or user caused it and a change of the palette included, and never when an equal
/// value is set. `scrolled` and `selectionChanged` are events of the control as well, and come with
/// each of these too.
class QUORVALE_WIDGET_EXPORT QuorvaleBoxWidget : public DocumentWidget {
    Q_OBJECT
    Q_PROPERTY(QColor backColor READ backColor WRITE setBackColor RESET resetBackColor NOTIFY
                   backColorChanged)
    Q_PROPERTY(QColor foreColor READ foreColor WRITE setForeColor RESET resetForeColor NOTIFY
                   foreColorChanged)
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor RESET resetBorderColor
                   NOTIFY borderColorChanged)
    Q_PROPERTY(double leftBorderWidth READ leftBorderWidth WRITE setLeftBorderWidth RESET
                   resetLeftBorderWidth NOTIFY leftBorderWidthChanged)
    Q_PROPERTY(BorderStyle borderStyle READ borderStyle WRITE setBorderStyle RESET resetBorderStyle
                   NOTIFY borderStyleChanged)
    Q_PROPERTY(
        bool showGrid READ showGrid WRITE setShowGrid RESET resetShowGrid NOTIFY showGridChanged)
    Q_PROPERTY(bool enabledFlag READ enabledFlag WRITE setEnabledFlag RESET resetEnabledFlag NOTIFY
                   enabledFlagChanged)

public:
    /// The frame around the control.
    enum BorderStyle { NoBorder = 0, FixedSingle = 1 };
    Q_ENUM(BorderStyle)

    /// Shows an empty control in the language of the moment; the options are all off.
    explicit QuorvaleBoxWidget(QWidget* parent = nullptr, const WidgetPorts& ports = {});

    /// Of the text's ground; the palette's until it is set.
    QColor backColor() const;
    /// Of the text; the palette's until it is set.
    QColor foreColor() const;
    /// Of the strip left of the text.
    QColor borderColor() const;
    /// Of the same strip, in twips (15 are a pixel); 240 at first.
    double leftBorderWidth() const;
    /// `FixedSingle` at first.
    BorderStyle borderStyle() const;
    /// Whether the boundary lines are drawn; off at first.
    bool showGrid() const;
    /// What the host keeps there; off at first.
    bool enabledFlag() const;

    /// Keeps the stored properties that differ from their defaults, the font among them, in a group
    /// of the settings; what the group held of them before goes.
    void saveProperties(QSettings& settings, const QString& group) const;
    /// Sets all stored properties as the group has them; what it does not hold, or holds as
    /// something else, gets its default. Raises `buttonClicked("Grid")`, as `setShowGrid` does.
    void restoreProperties(QSettings& settings, const QString& group);

public slots:
    /// Adds a button to the toolbar; it reports clicks with its name. False when the name is taken,
    /// in any case of letters, or there is no icon.
    bool addButton(const QString& name, const QIcon& icon, const QString& toolTip = {});
    /// The ground of the text. Transparency does not count; a colour that is not valid is a reset.
    void setBackColor(const QColor& colour);
    /// The colour of the text, with the same rules.
    void setForeColor(const QColor& colour);
    /// The strip left of the text, with the same rules.
    void setBorderColor(const QColor& colour);
    /// A negative width becomes 0, one beyond 1000000 becomes that.
    void setLeftBorderWidth(double twips);
    /// Other values than the two are ignored.
    void setBorderStyle(quorvale::QuorvaleBoxWidget::BorderStyle style);
    /// Also raises `buttonClicked("Grid")`, as the button does.
    void setShowGrid(bool show);
    /// Keeps the value and does nothing else.
    void setEnabledFlag(bool enabled);
    /// The caret's picture; a null icon brings back the control's own.
    void setIcon(const QIcon& icon);
    /// The ground follows the palette again.
    void resetBackColor();
    /// The text follows the palette again.
    void resetForeColor();
    /// The strip follows the palette again.
    void resetBorderColor();
    /// Back to 240 twips.
    void resetLeftBorderWidth();
    /// Back to `FixedSingle`.
    void resetBorderStyle();
    /// Boundary lines off; raises what `setShowGrid` raises.
    void resetShowGrid();
    /// Back to false.
    void resetEnabledFlag();

signals:
    /// `backColor` is another one, set or by the palette.
    void backColorChanged();
    /// `foreColor` is another one, set or by the palette.
    void foreColorChanged();
    /// `borderColor` is another one, set or by the palette.
    void borderColorChanged();
    /// `leftBorderWidth` is another one.
    void leftBorderWidthChanged();
    /// `borderStyle` is another one.
    void borderStyleChanged();
    /// The boundary lines came or went, also by the user's click.
    void showGridChanged();
    /// `enabledFlag` is another one.
    void enabledFlagChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    void listen(const QString& property);
    void tellChanges();
    void followControlsFont();

    /// What the listeners know of each of this class's properties, in their order.
    QVariantList told_;
};

}  // namespace quorvale
