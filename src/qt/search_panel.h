#pragma once

#include <QFrame>
#include <QProgressBar>

#include "platform/search_progress.h"
#include "qt/elided_label.h"
#include "resources/string_table.h"

namespace quorvale {

/// What a long search shows along the lower edge of its control: the file that is being read, how
/// far the search is, what it has found and how to end it.
class SearchPanel final : public QFrame {
    Q_OBJECT

public:
    explicit SearchPanel(QWidget& control);

    /// The language of what is shown from now on; English at first.
    void speak(Language language);

    void showPlace(const SearchPlace& place);

    /// The whole name, also where it is shown with its middle left out.
    QString fileName() const { return file_->wholeText(); }
    /// How far the search is, in percent.
    int percent() const { return bar_->value() * 100 / bar_->maximum(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fitIn();

    Language language_ = Language::English;
    QWidget& control_;
    ElidedLabel* file_;
    QProgressBar* bar_;
    ElidedLabel* hint_;
};

}  // namespace quorvale
