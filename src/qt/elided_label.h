#pragma once

#include <QLabel>

namespace quorvale {

/// A line of text that leaves out what it has no room for, in the middle, where file names differ
/// least. It asks for no width of its own.
class ElidedLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent);

    void setWholeText(const QString& text);
    const QString& wholeText() const { return whole_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void elide();

    QString whole_;
};

}  // namespace quorvale
