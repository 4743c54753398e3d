#include "viewer/document_status.h"

#include <QLabel>
#include <QLocale>
#include <QStatusBar>
#include <QStringList>

#include "control/host_corrections.h"
#include "control/host_extras.h"
#include "viewer/file_names.h"

namespace quorvale {

namespace {

/// How often the number of corrections is looked at, in milliseconds.
constexpr int lookEvery = 100;

QLabel* newLabel(QStatusBar& bar) {
    auto* label = new QLabel(&bar);
    bar.addPermanentWidget(label);
    return label;
}

QString inWords(Encoding encoding) {
    switch (encoding) {
        case Encoding::Utf8:
            return DocumentStatus::tr("UTF-8");
        case Encoding::Windows1252:
            return DocumentStatus::tr("Windows-1252");
        default:
            return DocumentStatus::tr("one byte per character");
    }
}

QString inWords(int lines) {
    return lines == 1 ? DocumentStatus::tr("1 line")
                      : DocumentStatus::tr("%1 lines").arg(QLocale().toString(lines));
}

}  // namespace

DocumentStatus::DocumentStatus(QStatusBar& bar)
    : QObject(&bar),
      pending_(newLabel(bar)),
      lines_(newLabel(bar)),
      size_(newLabel(bar)),
      encoding_(newLabel(bar)) {
    timer_.setInterval(lookEvery);
    connect(&timer_, &QTimer::timeout, this, &DocumentStatus::showPending);
}

void DocumentStatus::show(QuorvaleBoxWidget& control, const QString& fileName) {
    control_ = &control;
    const bool shown = !fileName.isEmpty();
    lines_->setText(shown ? inWords(control.box().LineCount()) : QString());
    size_->setText(shown ? QLocale().formattedDataSize(sizeOf(fileName)) : QString());
    encoding_->setText(shown ? inWords(control.box().Extras().FileEncoding()) : QString());
    changesShown_ = 0;
    showPending();
    timer_.start();
}

// Corrections come and go with keys, menus and marks: looking now and then is enough.
void DocumentStatus::showPending() {
    if (control_ == nullptr) return;
    const HostCorrections& corrections = control_->box().Corrections();
    if (corrections.Changes() == changesShown_) return;
    changesShown_ = corrections.Changes();
    const int pending = corrections.Pending();
    pending_->setText(pending == 0 ? QString()
                      : pending == 1
                          ? tr("1 correction not committed")
                          : tr("%1 corrections not committed").arg(QLocale().toString(pending)));
}

QString DocumentStatus::text() const {
    QStringList parts;
    for (const QLabel* label : {pending_, lines_, size_, encoding_}) {
        if (!label->text().isEmpty()) parts << label->text();
    }
    return parts.join(", ");
}

}  // namespace quorvale
