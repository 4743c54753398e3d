#include "viewer/document_guard.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <cstddef>
#include <new>
#include <stdexcept>
#include <string>

#include "adapters/posix_files.h"
#include "base/errors.h"
#include "control/host_corrections.h"
#include "platform/file_digest.h"
#include "qt/conversions.h"
#include "qt/quorvale_box_widget.h"
#include "viewer/busy_cursor.h"

namespace quorvale {

namespace {

constexpr std::size_t pieceSize = 1 << 20;

/// Whether the file holds just these bytes. One that cannot be read, or is no file any more, is
/// another one.
bool isStill(const std::u16string& fileName, const FileDigest& digest) {
    const BusyCursor busy;
    auto stream = PosixFiles().OpenForReading(fileName);
    if (!stream || (*stream)->Size() != digest.Size) return false;
    DigestBuilder builder;
    std::string piece(pieceSize, '\0');
    for (;;) {
        auto size = (*stream)->Read(reinterpret_cast<std::byte*>(piece.data()), pieceSize);
        if (!size) return false;
        if (*size == 0) return builder.Digest() == digest;
        builder.Add({piece.data(), *size});
    }
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
        control_, tr("%n correction(s) do not fit this file.", nullptr, lost),
        tr("They begin behind its end, overlap others or cannot be read. Committing drops them."));
    question.offer(CommitAnyway, tr("Commit &without them"), QMessageBox::AcceptRole);
    const QPointer<DocumentGuard> alive(this);
    const int answer = question.ask();
    return alive != nullptr && answer == CommitAnyway;
}

bool DocumentGuard::mayReplace() {
    const HostCorrections& corrections = control_.box().Corrections();
    const std::u16string fileName = corrections.FilePath();
    if (isStill(fileName, corrections.LoadedDigest())) return true;
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
    try {
        control_.box().Corrections().Save();
        return {};
    } catch (const ControlError& error) {
        return QString::fromUtf8(error.what());
    } catch (const std::bad_alloc&) {
        return tr("There is not enough memory.");
    } catch (const std::length_error&) {
        return tr("They are too large.");
    }
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
