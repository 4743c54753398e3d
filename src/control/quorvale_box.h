#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/units.h"
#include "control/hosted_control.h"

namespace quorvale {

/// A read-mostly viewer of one text file. Everything runs on one thread, the one that created the
/// control. Lines and caret columns are 1-based 32-bit numbers, sizes and places are twips, texts
/// are UTF-16. A member that fails throws ControlError and leaves the control usable; a bad line
/// number is no failure: getters answer "", the control's colour or 0, setters do nothing.
class QuorvaleBox : public HostedControl {
public:
    /// Creates the control and sets all its texts. The services must all be given.
    explicit QuorvaleBox(HostServices services, HostOptions options = {});
    /// Terminates the control, whether or not the corrections can be saved.
    ~QuorvaleBox() = default;

    // The document.

    /// Shows the whole file. A file that cannot be read shows one empty line; nothing is thrown.
    void LoadFile(const std::u16string& FileName);
    /// The whole text as stored: with the CR LF that the control appends.
    std::u16string text() const;
    /// Shows a text of no file. Throws, with it in place, when the old journal cannot be saved.
    void text(std::u16string_view newText);
    /// -1 before any document is set.
    std::int32_t LineCount() const;
    /// A line on screen as it is displayed, any other one with its tabs expanded.
    std::u16string LineText(std::int32_t i) const;
    Colour LineForeColor(std::int32_t i) const;
    void LineForeColor(std::int32_t i, Colour colour);
    Colour LineBackColor(std::int32_t i) const;
    void LineBackColor(std::int32_t i, Colour colour);
    /// Key or 1-based number of the line's picture in `ImageList`; 0 for none.
    Variant LineImage(std::int32_t i) const;
    void LineImage(std::int32_t i, Variant image);
    std::shared_ptr<Object> ImageList() const;
    void ImageList(std::shared_ptr<Object> list);

    // The view.
    std::int32_t TopLine() const;
    void TopLine(std::int32_t line);
    /// Top of the line's row in twips; negative when the line is not on screen.
    float RowTop(std::int32_t r) const;
    /// Opens the folds around a line and scrolls it into view; the caret stays.
    void EnsureVisible(std::int32_t l);
    /// False suspends layout and painting, true ends one suspension; they count.
    void AutoRedraw(bool redraw);

    // The caret and the selected rows.
    std::int32_t row() const;
    void row(std::int32_t r);
    std::int32_t col() const;
    void col(std::int32_t c);
    void MoveTo(std::int32_t r, std::int32_t c);
    /// Positive: rows from the caret down; negative: rows up to the caret; 0: none.
    std::int32_t SelectedRowsCount() const;
    void SelectedRowsCount(std::int32_t count);
    /// 0-based offset of the caret in `text`.
    std::int32_t Offset() const;
    void Offset(std::int32_t offset);
    /// Line and column of an offset. Below 1 it becomes 1; at or past the end the caret goes to the
    /// end and `r` and `c` are not written. `c` may be null.
    void OffsetToRowCol(std::int32_t& o, std::int32_t& r, std::int32_t* c = nullptr);

    // Folds.

    /// Registers a range that may be folded; `FromRow` stays visible. The result is always false.
    bool CollapseLines(std::int32_t FromRow, std::int32_t ToRow);
    void CollapseAll();
    void ExpandAll();

    // Search and toolbar.
    std::u16string SearchText() const;
    void SearchText(const std::u16string& text);
    /// Full names of the files to search, separated by CR.
    void SearchFiles(const std::u16string& files);
    /// Adds a button to the toolbar. False when the name is taken or there is no picture.
    bool AddButton(const std::u16string& ButtonName, PicturePtr picture,
                   const std::u16string& ToolTipText = {});
    bool ShowGrid() const;
    void ShowGrid(bool show);

    // Appearance.
    Colour BackColor() const;
    void BackColor(Colour colour);
    Colour ForeColor() const;
    void ForeColor(Colour colour);
    Colour BorderColor() const;
    void BorderColor(Colour colour);
    /// Width of the strip left of the text; a negative one becomes 0, for the caller too.
    float LeftBorderWidth() const;
    void LeftBorderWidth(float& width);
    /// Kept for the host; nothing in the control depends on it.
    bool Enabled() const;
    void Enabled(bool enabled);
    quorvale::Font Font() const;
    void Font(const quorvale::Font& font);
    /// 0 none, 1 a single line; other values are ignored.
    std::int16_t BorderStyle() const;
    void BorderStyle(std::int16_t style);
    /// The caret's picture; null for the control's own.
    void Icon(PicturePtr picture);
};

}  // namespace quorvale
