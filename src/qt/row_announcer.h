#pragma once

#include <QObject>

#include "qt/row_news.h"

namespace quorvale {

class AccessibleRow;
class RowsArea;

/// Tells assistive technology what became of the rows: where the caret went, which rows are
/// selected, folded or marked now. While nobody listens it looks at nothing. A listener may destroy
/// the control.
class RowAnnouncer final : public QObject {
    Q_OBJECT

public:
    explicit RowAnnouncer(RowsArea& area);

    /// Tells what changed since the last time; to be called once per turn of the event loop.
    void tell();

    /// How often the rows were looked at so far.
    int looks() const { return looks_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ToldRows look();
    void announce(const RowNews& news);
    void announce(NewsKind kind, AccessibleRow& row);

    RowsArea& area_;
    ToldRows told_;
    int looks_ = 0;
};

}  // namespace quorvale
