#pragma once

#include <QColor>
#include <QPoint>
#include <QVariant>

#include "qt/control_widget.h"
#include "qt/icon_list.h"

namespace quorvale {

/// The members of the control that work on its document, as properties and slots. Lines and columns
/// are counted from 1. A bad line number is no failure: getters answer an empty or the plain value,
/// setters do nothing. A slot throws nothing: where the control's member fails it has done what it
/// could; who wants to hear of failures calls the member of `box()`.
class DocumentWidget : public ControlWidget {
    Q_OBJECT
    Q_PROPERTY(
        QString text READ text WRITE setText NOTIFY textChanged DESIGNABLE false STORED false)
    Q_PROPERTY(int lineCount READ lineCount NOTIFY textChanged DESIGNABLE false STORED false)
    Q_PROPERTY(
        int topLine READ topLine WRITE setTopLine NOTIFY scrolled DESIGNABLE false STORED false)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY selectionChanged DESIGNABLE false STORED false)
    Q_PROPERTY(int col READ col WRITE setCol NOTIFY selectionChanged DESIGNABLE false STORED false)
    Q_PROPERTY(int offset READ offset WRITE setOffset NOTIFY selectionChanged
                   DESIGNABLE false STORED false)
    Q_PROPERTY(int selectedRowsCount READ selectedRowsCount WRITE setSelectedRowsCount NOTIFY
                   selectionChanged DESIGNABLE false STORED false)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText DESIGNABLE false STORED false)

public:
    /// The whole text, with the line break that the control appends.
    QString text() const;
    /// -1 before any document is set.
    int lineCount() const;
    int topLine() const;
    int row() const;
    int col() const;
    /// 0-based offset of the caret in `text`.
    int offset() const;
    /// Positive: rows from the caret down; negative: rows up to the caret; 0: none.
    int selectedRowsCount() const;
    QString searchText() const;

    /// A line on screen as it is displayed, any other one with its tabs expanded.
    QString lineText(int line) const;
    QColor lineForeColor(int line) const;
    QColor lineBackColor(int line) const;
    /// Name or number of the line's icon; 0 for none.
    QVariant lineImage(int line) const;
    /// Top of the line's row in twips (15 are a pixel); negative when it is not on screen.
    double rowTop(int line) const;
    /// Line (y) and column (x) of a 0-based offset, the first of which counts as the second; null
    /// outside the text.
    QPoint placeOfOffset(int offset) const;

public slots:
    /// Shows the file; one that cannot be read shows one empty line.
    void loadFile(const QString& fileName);
    /// Shows a text of no file.
    void setText(const QString& text);
    void setTopLine(int line);
    void setRow(int row);
    void setCol(int col);
    void moveTo(int row, int col);
    void setOffset(int offset);
    void setSelectedRowsCount(int count);
    void setSearchText(const QString& text);
    /// Full names of the files to search.
    void setSearchFiles(const QStringList& fileNames);

    void setLineForeColor(int line, const QColor& colour);
    void setLineBackColor(int line, const QColor& colour);
    void setLineImage(int line, const QVariant& nameOrNumber);
    void setImageList(const quorvale::IconList& icons);

    /// Opens the folds around a line and scrolls it into view; the caret stays.
    void ensureVisible(int line);
    /// False suspends layout and painting, true ends one suspension; they count.
    void setAutoRedraw(bool redraw);
    /// Registers a range that may be folded; the first line stays visible.
    void collapseLines(int fromRow, int toRow);
    void collapseAll();
    void expandAll();

signals:
    /// Another document was put in place.
    void textChanged();

protected:
    explicit DocumentWidget(QWidget* parent);

private:
    void noteDocument();

    std::uint64_t documentNoted_ = 0;
};

}  // namespace quorvale
