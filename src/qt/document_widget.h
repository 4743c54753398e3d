#pragma once

#include <QColor>
#include <QPoint>
#include <QVariant>

#include "qt/control_widget.h"
#include "qt/export.h"
#include "qt/icon_list.h"

namespace quorvale {

/// The members of the control that work on its document, as properties and slots. Lines and columns
/// are counted from 1. A bad line number is no failure: getters answer an empty or the plain value,
/// setters do nothing. A slot throws nothing: where the control's member fails it has done what it
/// could; who wants to hear of failures calls the member of `box()`.
class QUORVALE_WIDGET_EXPORT DocumentWidget : public ControlWidget {
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
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged
                   DESIGNABLE false STORED false)
    Q_PROPERTY(quorvale::IconList imageList READ imageList WRITE setImageList
                   DESIGNABLE false STORED false)

public:
    /// The whole text, with the line break that the control appends.
    QString text() const;
    /// -1 before any document is set.
    int lineCount() const;
    /// The first line on screen.
    int topLine() const;
    /// The caret's line.
    int row() const;
    /// The caret's column on the displayed line, tabs expanded.
    int col() const;
    /// How many characters of `text` stand up to and including the caret's own: 1 at the first.
    int offset() const;
    /// Positive: rows from the caret down; negative: rows up to the caret; 0: none.
    int selectedRowsCount() const;
    /// What stands in the search box.
    QString searchText() const;
    /// The icons that were set, empty if there are none.
    IconList imageList() const;

    /// A line on screen as it is displayed, any other one with its tabs expanded.
    Q_INVOKABLE QString lineText(int line) const;
    /// The colour of the line's text.
    Q_INVOKABLE QColor lineForeColor(int line) const;
    /// The colour behind it.
    Q_INVOKABLE QColor lineBackColor(int line) const;
    /// Name or number of the line's icon; 0 for none.
    Q_INVOKABLE QVariant lineImage(int line) const;
    /// Top of the line's row in twips (15 are a pixel); negative when it is not on screen.
    Q_INVOKABLE double rowTop(int line) const;
    /// Line (y) and column (x) of a 0-based offset, the first of which counts as the second; null
    /// outside the text.
    Q_INVOKABLE QPoint placeOfOffset(int offset) const;

public slots:
    /// Shows the file; one that cannot be read shows one empty line.
    void loadFile(const QString& fileName);
    /// Shows a text of no file.
    void setText(const QString& text);
    /// Makes it the first line on screen, or as near to that as the end of the document allows.
    void setTopLine(int line);
    /// Moves the caret to the line, and scrolls there.
    void setRow(int row);
    /// Moves the caret along its line; columns behind its end mean the end.
    void setCol(int col);
    /// Both at once.
    void moveTo(int row, int col);
    /// Moves the caret to an offset: below 1 means 1, past the end the last line.
    void setOffset(int offset);
    /// Selects that many rows from the caret on, with the sign as above.
    void setSelectedRowsCount(int count);
    /// Puts a text into the search box; see QuorvaleBox::SearchText.
    void setSearchText(const QString& text);
    /// Full names of the files to search.
    void setSearchFiles(const QStringList& fileNames);

    /// Colours the line's text; a colour that is not valid takes the line's own colour away.
    void setLineForeColor(int line, const QColor& colour);
    /// Colours the ground behind it in the same way.
    void setLineBackColor(int line, const QColor& colour);
    /// Gives the line an icon of the list, by its name or its number from 1; 0 takes it away.
    void setLineImage(int line, const QVariant& nameOrNumber);
    /// Where the icons of lines are found; nothing is painted anew.
    void setImageList(const quorvale::IconList& icons);

    /// Opens the folds around a line and scrolls it into view; the caret stays.
    void ensureVisible(int line);
    /// False suspends layout and painting, true ends one suspension; they count.
    void setAutoRedraw(bool redraw);
    /// Registers a range that may be folded; the first line stays visible.
    void collapseLines(int fromRow, int toRow);
    /// Folds every registered range.
    void collapseAll();
    /// Unfolds every range; all stay registered.
    void expandAll();

signals:
    /// Another document was put in place.
    void textChanged();
    /// The user or the host put another text into the search box.
    void searchTextChanged();

protected:
    /// For derived classes.
    DocumentWidget(QWidget* parent, const WidgetPorts& ports);

    void noteChanges() override;

private:
    /// What is read of the caret, and the document that it stands in.
    struct Caret {
        std::uint64_t Document = 0;
        int Row = 0;
        int Col = 0;
        int Offset = 0;
        int SelectedRows = 0;
    };

    void noteDocument();
    void noteSearchText();
    void noteCaret();
    Caret caretNow() const;

    std::uint64_t documentNoted_ = 0;
    QString searchTextNoted_;
    int topLineTold_ = 0;
    Caret caretTold_;
};

}  // namespace quorvale
