#pragma once

#include <QRect>
#include <memory>

#include "qt/control_link.h"
#include "qt/spoken_row.h"

namespace quorvale {

class RowsArea;

/// The rows of a control for those who do not see them: the ones on screen by their place, counted
/// from 0 at the top, and any line of the document by its number. It looks at nothing but the
/// elements and the lines it is asked for; make one for a question and drop it. Once the control is
/// gone there are no rows.
class SeenRows {
public:
    explicit SeenRows(const RowsArea& area);

    /// How many rows are on screen, wholly or in part.
    int count() const { return count_; }
    /// The line that is shown there; 0 where there is no row.
    int lineAt(int place) const;
    /// Where a line is shown; -1 when it is not on screen.
    int placeOf(int line) const;
    bool has(int line) const;

    SpokenRow rowAt(int place) const;
    /// Of a line that is not on screen neither folds nor marks are known.
    SpokenRow row(int line) const;
    Language language() const;

    /// The caret's line, 0 before any document, and how many units of its text stand before it.
    int caretLine() const;
    int caretUnit() const;

    /// The row in the screen's coordinates, cut to what is seen of it; empty when it is not.
    QRect rectAt(int place) const;
    /// The row at a place of the screen; -1 where there is none.
    int placeUnder(QPoint onScreen) const;

private:
    bool isSelected(int line) const;

    const RowsArea& area_;
    std::shared_ptr<QuorvaleBox> box_;
    int count_ = 0;
};

}  // namespace quorvale
