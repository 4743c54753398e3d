#include "qt/search_panel.h"

#include <QEvent>
#include <QLocale>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/conversions.h"
#include "resources/spoken_words.h"
#include "search/file_list.h"

namespace quorvale {

namespace {

constexpr int steps = 1000;

double partOf(double done, double size) { return size > 0 ? std::clamp(done / size, 0.0, 1.0) : 0; }

/// Every file of a list counts the same, whatever its size.
int stepOf(const SearchPlace& place) {
    const double inFile = partOf(static_cast<double>(place.Done), static_cast<double>(place.Size));
    const double files = static_cast<double>(place.FilesDone) + inFile;
    return static_cast<int>(partOf(files, static_cast<double>(place.Files)) * steps);
}

}  // namespace

SearchPanel::SearchPanel(QWidget& control)
    : QFrame(&control),
      control_(control),
      file_(new ElidedLabel(this)),
      bar_(new QProgressBar(this)),
      hint_(new ElidedLabel(this)) {
    setObjectName("searchPanel");
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    bar_->setObjectName("searchProgress");
    bar_->setRange(0, steps);
    speak(language_);
    file_->setObjectName("searchedFile");
    hint_->setObjectName("searchHint");
    auto* rows = new QVBoxLayout(this);
    for (QWidget* row : {static_cast<QWidget*>(file_), static_cast<QWidget*>(bar_),
                         static_cast<QWidget*>(hint_)}) {
        rows->addWidget(row);
    }
    control.installEventFilter(this);
}

void SearchPanel::speak(Language language) {
    language_ = language;
    bar_->setAccessibleName(toQString(LoadSpoken(SpokenWord::SearchProgress, language)));
}

void SearchPanel::showPlace(const SearchPlace& place) {
    file_->setWholeText(place.File == InMemory
                            ? toQString(LoadSpoken(SpokenWord::ShownText, language_))
                            : toQString(place.File));
    bar_->setValue(stepOf(place));
    QString hint = toQString(LoadSpoken(SpokenWord::EscapeEndsSearch, language_));
    if (place.Found > 0) {
        const QString count = QLocale().toString(static_cast<qulonglong>(place.Found));
        hint = toQString(LoadSpoken(SpokenWord::MatchesSoFar, language_)).arg(count) + " - " + hint;
    }
    hint_->setWholeText(hint);
    if (!isHidden()) return;
    fitIn();
    raise();
    show();
    // A turn may be over before the window system asks for it.
    repaint();
}

bool SearchPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &control_ && event->type() == QEvent::Resize) fitIn();
    return QFrame::eventFilter(watched, event);
}

void SearchPanel::fitIn() {
    const int height = sizeHint().height();
    setGeometry(0, control_.height() - height, control_.width(), height);
}

}  // namespace quorvale
