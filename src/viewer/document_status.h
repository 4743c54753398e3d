#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <cstdint>

#include "qt/quorvale_box_widget.h"

class QLabel;
class QStatusBar;

namespace quorvale {

/// The right end of the status bar: corrections that wait, lines, size and encoding of the file.
class DocumentStatus final : public QObject {
    Q_OBJECT

public:
    explicit DocumentStatus(QStatusBar& bar);

    /// Another document is shown, or the same in another language; without a name there is none.
    void show(QuorvaleBoxWidget& control, const QString& fileName);

    /// All that is shown there, for those who read it out.
    QString text() const;

private:
    void showPending();

    QPointer<QuorvaleBoxWidget> control_;
    QTimer timer_;
    std::uint64_t changesShown_ = 0;
    QLabel* pending_;
    QLabel* lines_;
    QLabel* size_;
    QLabel* encoding_;
};

}  // namespace quorvale
