#include "viewer/document_guard.h"

#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>

#include "adapters/posix_files.h"
#include "base/errors.h"
#include "control/host_corrections.h"
#include "platform/file_digest.h"
#include "platform/file_notice.h"
#include "qt/conversions.h"
#include "qt/quorvale_box_widget.h"
#include "viewer/busy_cursor.h"

namespace quorvale {

namespace {

/// How often it is looked whether there is something to save, in milliseconds.
constexpr int saveEvery = 500;

bool isStill(const std::u16string& fileName, const FileDigest& digest) {
    const BusyCursor busy;
    PosixFiles files;
    return Holds(files, fileName, digest);
}

/// Runs something that saves; what went wrong, or the empty text.
QString failureOf(const std::function<void()>& saving) {
    try {
        saving();
        return {};
    } catch (const ControlError& error) {
        return QString::fromUtf8(error.what());
    } catch (const std::bad_alloc&) {
        return DocumentGuard::tr("There is not enough memory.");
    } catch (const std::length_error&) {
        return DocumentGuard::tr("They are too large.");
    }
}

bool isGone(const std::u16string& fileName) {
    PosixFiles files;
    auto there = files.Exists(fileName);
    return there && !*there;
}

enum Answer { Cancelled, Reload, CommitAnyway, TryAgain, Leave };

/// A warning with answers of its own, and Cancel. It may be destroyed with its window while the
/// user thinks: that is Cancel too.
class Question {
public:
    Question(const QWidget& control, const QString& text, const QString& details)
        : box_(new QMessageBox(QMessageBox::Warning, control.window()->windowTitle(), text,
                               QMessageBox::Cancel, control.window())) {
        box_->setTextFormat(Qt::PlainText);
        box_->setInformativeText(details);
        box_->setDefaultButton(QMessageBox::Cancel);
    }
    ~Question() { delete box_; }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

    void offer(Answer answer, const QString& text, QMessageBox::ButtonRole role) {
        box_->addButton(text, role)->setProperty(answerProperty, answer);
    }

    int ask() {
        box_->exec();
        const QAbstractButton* clicked = box_ == nullptr ? nullptr : box_->clickedButton();
        return clicked == nullptr ? Cancelled : clicked->property(answerProperty).toInt();
    }

private:
    static constexpr const char* answerProperty = "answer";

    QPointer<QMessageBox> box_;
};

}  // namespace

DocumentGuard::DocumentGuard(QuorvaleBoxWidget& control) : QObject(&control), control_(control) {
    const QPointer<DocumentGuard> alive(this);
    control_.box().Corrections().BeforeCommit = [alive] {
        return alive != nullptr && alive->mayCommit();
    };
    control_.box().Corrections().TooMuchToEdit = [alive] {
        if (alive != nullptr) emit alive->told(tr("Too much text to edit: select fewer rows"));
    };
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &DocumentGuard::saveRecorded);
    timer->start(saveEvery);
}

bool DocumentGuard::mayCommit() {
    // From here on they are on the disk, whatever happens in the middle of the commit.
    saveFailure();
    return mayDropUnplaced() && mayReplace();
}

bool DocumentGuard::mayDropUnplaced() {
    const int lost = control_.box().Corrections().WithoutPlace();
    if (lost == 0) return true;
    Question question(
        control_,
        lost == 1 ? tr("1 correction does not fit this file.")
                  : tr("%1 corrections do not fit this file.").arg(QLocale().toString(lost)),
        tr("They reach behind its end, overlap others or cannot be read whole. Committing drops "
           "them, or part of them; a copy of all corrections is kept."));
    question.offer(CommitAnyway, tr("Commit &without them"), QMessageBox::AcceptRole);
    const QPointer<DocumentGuard> alive(this);
    const int answer = question.ask();
    return alive != nullptr && answer == CommitAnyway && keepJournal();
}

// What the user lets go of stays on the disk.
bool DocumentGuard::keepJournal() {
    PosixFiles files;
    QString keptAs;
    files.SetNoticeHandler([&](const FileNotice& notice) { keptAs = toQString(notice.KeptAs); });
    auto kept = files.CopyJournalAside(control_.box().Corrections().FilePath() + u"!.xml");
    if (kept) {
        emit told(tr("A copy of all corrections was kept as %1").arg(keptAs));
        return true;
    }
    emit told(tr("Nothing was committed: no copy of the corrections could be kept (%1)")
                  .arg(QString::fromStdString(kept.Failure().Reason)));
    return false;
}

bool DocumentGuard::mayWriteAnew(const QString& fileName) {
    Question question(control_, tr("%1 is not there any more.").arg(fileName),
                      tr("Committing writes it anew, as it is shown, with your corrections."));
    question.offer(CommitAnyway, tr("Commit &anyway"), QMessageBox::AcceptRole);
    const QPointer<DocumentGuard> alive(this);
    const int answer = question.ask();
    return alive != nullptr && answer == CommitAnyway;
}

bool DocumentGuard::mayReplace() {
    const HostCorrections& corrections = control_.box().Corrections();
    const std::u16string fileName = corrections.FilePath();
    if (isStill(fileName, corrections.LoadedDigest())) return true;
    if (isGone(fileName)) return mayWriteAnew(toQString(fileName));
    Question question(
        control_, tr("%1 has changed on the disk since it was opened.").arg(toQString(fileName)),
        tr("Your corrections were made to the lines as they were then. Reloading keeps them and "
           "shows them over the file as it is now; committing replaces that file."));
    question.offer(Reload, tr("&Reload"), QMessageBox::ActionRole);
    question.offer(CommitAnyway, tr("Commit &anyway"), QMessageBox::AcceptRole);
    const QPointer<DocumentGuard> alive(this);
    const int answer = question.ask();
    if (alive == nullptr) return false;
    // The control is in the middle of its commit: it is let go before its file is opened again.
    if (answer == Reload) {
        QMetaObject::invokeMethod(this, &DocumentGuard::reloadWanted, Qt::QueuedConnection);
    }
    return answer == CommitAnyway;
}

QString DocumentGuard::saveFailure() {
    return failureOf([this] { control_.box().Corrections().Save(); });
}

// A program may be killed, and a session ends: what was recorded is on the disk by then.
void DocumentGuard::saveRecorded() {
    HostCorrections& corrections = control_.box().Corrections();
    const std::uint64_t changes = corrections.Changes();
    if (toldFailure_ && failedAt_ == changes) return;
    const QString failure = failureOf([&] { corrections.SaveRecorded(); });
    if (!failure.isEmpty() && !toldFailure_) {
        emit told(tr("Your corrections could not be saved.") + " " + failure);
    }
    toldFailure_ = !failure.isEmpty();
    failedAt_ = changes;
}

bool DocumentGuard::mayClose() {
    const QPointer<DocumentGuard> alive(this);
    for (;;) {
        const QString failure = saveFailure();
        if (failure.isEmpty()) return true;
        Question question(control_, tr("Your corrections could not be saved."), failure);
        question.offer(TryAgain, tr("&Try again"), QMessageBox::AcceptRole);
        question.offer(Leave, tr("Close &without them"), QMessageBox::DestructiveRole);
        const int answer = question.ask();
        if (alive == nullptr || answer == Leave) return true;
        if (answer != TryAgain) return false;
    }
}

}  // namespace quorvale
