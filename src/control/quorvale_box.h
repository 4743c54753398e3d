#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/export.h"
#include "base/units.h"
#include "control/hosted_control.h"

namespace quorvale {

/// A read-mostly viewer of one text file. Everything runs on one thread, the one that created the
/// control. Lines and caret columns are 1-based 32-bit numbers, sizes and places are twips, texts
/// are UTF-16. A member that fails throws ControlError and leaves the control usable; a bad line
/// number is no failure: getters answer "", the control's colour or 0, setters do nothing.
class QUORVALE_CORE_EXPORT QuorvaleBox : public HostedControl {
public:
    /// Creates the control and sets all its texts. The services must all be given.
    explicit QuorvaleBox(HostServices services, HostOptions options = {});
    /// Terminates the control, whether or not the corrections can be saved.
    ~QuorvaleBox() = default;

    // The document.

    /// Reads the whole file and shows it from line 1; the options say in which encoding. What was
    /// shown goes, its corrections saved first (docs/host-guide.md, rule 1). A file that cannot be
    /// read, or is too large, shows one empty line: nothing is thrown, nobody is told.
    void LoadFile(const std::u16string& FileName);
    /// The whole text as it is stored: with the CR LF that the control appends. Copies all of it.
    std::u16string text() const;
    /// Shows a text of no file, which cannot be corrected. Throws, with it in place, when the
    /// corrections of the file before it cannot be saved.
    void text(std::u16string_view newText);
    /// How many lines there are, an empty one behind a final line break included; -1 before any
    /// document is set.
    std::int32_t LineCount() const;
    /// The line's text without its line break: a line on screen as it is displayed, any other one
    /// with its tabs expanded to multiples of eight columns. HostExtras::RawLineText gives the
    /// characters of the file.
    std::u16string LineText(std::int32_t i) const;
    /// The colour of the line's text; the control's own for a bad number.
    Colour LineForeColor(std::int32_t i) const;
    /// Colours the line's text, at once if the line is on screen. The next document forgets it.
    void LineForeColor(std::int32_t i, Colour colour);
    /// The colour behind the line's text; the control's own for a bad number.
    Colour LineBackColor(std::int32_t i) const;
    /// Colours the ground of the line, also over the highlight of a selected row until it is
    /// painted again. The next document forgets it.
    void LineBackColor(std::int32_t i, Colour colour);
    /// Key or 1-based number of the line's picture in `ImageList`; 0 for none.
    Variant LineImage(std::int32_t i) const;
    /// Gives the line a picture: its key (a String) or its number, 0 for none. What the list does
    /// not have is kept and shows nothing.
    void LineImage(std::int32_t i, Variant image);
    /// What was assigned last; null at first.
    std::shared_ptr<Object> ImageList() const;
    /// Where `LineImage` finds its pictures: a quorvale::ImageList. Any other object is kept and
    /// given back, and has no pictures. Nothing is painted anew.
    void ImageList(std::shared_ptr<Object> list);

    // The view.

    /// The first line on screen.
    std::int32_t TopLine() const;
    /// Scrolls so that the line is the first one, or as near to it as there are lines to fill the
    /// view. Raises `Scrolled` unless the line is the first one already.
    void TopLine(std::int32_t line);
    /// Top of the line's row in twips from the top of the control; negative when the line is not on
    /// screen.
    float RowTop(std::int32_t r) const;
    /// Opens the folds around a line and scrolls it into view, up and down and sideways to the
    /// caret's column; the caret stays.
    void EnsureVisible(std::int32_t l);
    /// False suspends layout and painting, true ends one suspension; they count. The end of the
    /// last one lays the view out and paints it.
    void AutoRedraw(bool redraw);

    // The caret and the selected rows.

    /// The caret's line.
    std::int32_t row() const;
    /// Moves the caret to a line, scrolled into view, at the place along the line where it last
    /// was by the user's wish. Numbers outside the document mean its first or last line.
    void row(std::int32_t r);
    /// The caret's column on the displayed line, tabs expanded: 1 is in front of the first
    /// character.
    std::int32_t col() const;
    /// Moves the caret along its line; columns behind its end mean the end.
    void col(std::int32_t c);
    /// Moves the caret to line `r` and column `c` and scrolls there; both are clamped as above.
    /// Ends the selection and raises `SelChanged` if the caret moved.
    void MoveTo(std::int32_t r, std::int32_t c);
    /// Positive: rows from the caret down; negative: rows up to the caret; 0: none.
    std::int32_t SelectedRowsCount() const;
    /// Selects that many rows from the caret on and raises `SelChanged`. Overflow when the last of
    /// them would have no 32-bit number.
    void SelectedRowsCount(std::int32_t count);
    /// How many characters of `text` stand up to and including the caret's own; 0 in front of
    /// line 1 alone.
    std::int32_t Offset() const;
    /// Moves the caret to an offset: below 1 means 1, at or past the end of `text` its last line.
    void Offset(std::int32_t offset);
    /// Line and column of an offset, written to `r` and `c`; `c` may be null. Below 1 it becomes 1,
    /// for the caller too; at or past the end the caret goes to the end, and `r` and `c` are not
    /// written.
    void OffsetToRowCol(std::int32_t& o, std::int32_t& r, std::int32_t* c = nullptr);

    // Folds.

    /// Registers a range that may be folded: `FromRow` stays visible and gets the glyph, the lines
    /// behind it up to `ToRow` are folded. Nothing is folded yet. A range without a line below its
    /// head, or whose head is folded already, is not taken. The result is always false.
    bool CollapseLines(std::int32_t FromRow, std::int32_t ToRow);
    /// Folds every registered range; the caret goes to the nearest line that is still shown. Index
    /// error for a range that reaches past the document, with those before it folded.
    void CollapseAll();
    /// Unfolds every range; all of them stay registered.
    void ExpandAll();

    // Search and toolbar.

    /// What stands in the search box.
    std::u16string SearchText() const;
    /// Puts a text into the search box. Where the box has had the keyboard already, this goes to
    /// the first match from there, as typing does.
    void SearchText(const std::u16string& text);
    /// Full names of the files that Find All searches, separated by CR; "*" for the document in
    /// memory, "" for the shown file alone.
    void SearchFiles(const std::u16string& files);
    /// Adds a button to the end of the toolbar; its clicks raise `ButtonClick` with that name.
    /// False when the name is taken, in any case of letters, or there is no picture.
    bool AddButton(const std::u16string& ButtonName, PicturePtr picture,
                   const std::u16string& ToolTipText = {});
    /// Whether the boundary lines are drawn.
    bool ShowGrid() const;
    /// Draws the boundary lines or not (HostOptions::BoundaryColumns says where), and raises
    /// `ButtonClick("Grid")`, also when nothing changes.
    void ShowGrid(bool show);

    // Appearance: each of these is stored with a form, and its setter tells the container.

    /// The ground of the text.
    Colour BackColor() const;
    /// Colours the surface and every row on screen.
    void BackColor(Colour colour);
    /// The colour of the text.
    Colour ForeColor() const;
    /// Colours the text of every row on screen.
    void ForeColor(Colour colour);
    /// The colour of the strip left of the text.
    Colour BorderColor() const;
    /// Colours the strip left of the text.
    void BorderColor(Colour colour);
    /// Width of the strip left of the text in twips.
    float LeftBorderWidth() const;
    /// Lays the view out anew for another width; a negative one becomes 0, for the caller too.
    void LeftBorderWidth(float& width);
    /// Kept for the host; nothing in the control depends on it.
    bool Enabled() const;
    /// Keeps it; the control goes on answering its user.
    void Enabled(bool enabled);
    /// The font of rows, boxes, editor and results.
    quorvale::Font Font() const;
    /// Takes name, size and character set of a font, not bold and italic, and lays the view out
    /// anew.
    void Font(const quorvale::Font& font);
    /// The frame around the control: 0 none, 1 a single line.
    std::int16_t BorderStyle() const;
    /// Sets the frame; values other than 0 and 1 are ignored.
    void BorderStyle(std::int16_t style);
    /// The caret's picture; null for the control's own.
    void Icon(PicturePtr picture);
};

}  // namespace quorvale
