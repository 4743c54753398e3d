#include "viewer/notice_words.h"

#include "viewer/viewer_window.h"

namespace quorvale {

QString wordsForNotice(FileNotice::Kind what, const QString& name, const QString& keptAs) {
    const auto tr = [](const char* text) { return ViewerWindow::tr(text); };
    switch (what) {
        case FileNotice::Kind::DocumentKept:
            return tr("Another program had written %1. Its version was kept as %2.")
                .arg(name, keptAs);
        case FileNotice::Kind::JournalKept:
            return tr("Corrections that do not belong to %1 as it is now were kept as %2.")
                .arg(name, keptAs);
        case FileNotice::Kind::RecordKept:
            return tr("%1 was being written when a program ended, and has been changed since. "
                      "What was to be written is in %2.")
                .arg(name, keptAs);
        case FileNotice::Kind::WriteEnded:
            return tr("An interrupted commit was brought to its end");
        case FileNotice::Kind::DurabilityUnknown:
            return {};
    }
    return {};
}

}  // namespace quorvale
