#pragma once

#include <QIcon>

#include "qt/document_widget.h"

namespace quorvale {

/// The control as a widget: shows one large text file as rows, with toolbar and scroll bars.
/// Colours follow the palette until they are set, and again after their reset; the font is the
/// widget's own. `enabledFlag` is kept for the host and consulted by nothing: to disable the widget
/// there is `setEnabled`.
class QuorvaleBoxWidget : public DocumentWidget {
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
    enum BorderStyle { NoBorder = 0, FixedSingle = 1 };
    Q_ENUM(BorderStyle)

    explicit QuorvaleBoxWidget(QWidget* parent = nullptr);

    QColor backColor() const;
    QColor foreColor() const;
    /// Of the strip left of the text.
    QColor borderColor() const;
    /// Of the same strip, in twips (15 are a pixel); 240 at first.
    double leftBorderWidth() const;
    BorderStyle borderStyle() const;
    bool showGrid() const;
    bool enabledFlag() const;

    /// Adds a button to the toolbar; it reports clicks with its name. False when the name is taken
    /// or there is no icon.
    bool addButton(const QString& name, const QIcon& icon, const QString& toolTip = {});

public slots:
    void setBackColor(const QColor& colour);
    void setForeColor(const QColor& colour);
    void setBorderColor(const QColor& colour);
    /// A negative width becomes 0.
    void setLeftBorderWidth(double twips);
    void setBorderStyle(quorvale::QuorvaleBoxWidget::BorderStyle style);
    /// Also raises `buttonClicked("Grid")`, as the button does.
    void setShowGrid(bool show);
    void setEnabledFlag(bool enabled);
    /// The caret's picture; a null icon brings back the control's own.
    void setIcon(const QIcon& icon);
    void resetBackColor();
    void resetForeColor();
    void resetBorderColor();
    void resetLeftBorderWidth();
    void resetBorderStyle();
    void resetShowGrid();
    void resetEnabledFlag();

signals:
    void backColorChanged();
    void foreColorChanged();
    void borderColorChanged();
    void leftBorderWidthChanged();
    void borderStyleChanged();
    void showGridChanged();
    void enabledFlagChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    void tellListeners(const QString& property);
    void followControlsFont();
};

}  // namespace quorvale
