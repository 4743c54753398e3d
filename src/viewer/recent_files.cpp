#include "viewer/recent_files.h"

#include <QDir>
#include <QFontMetrics>
#include <QMenu>

#include "viewer/file_names.h"
#include "viewer/viewer_settings.h"

namespace quorvale {

namespace {

/// Characters of average width that a menu may be wide.
constexpr int widestName = 60;

/// The name as a menu shows it: short, with its number as the key. "0" is the tenth.
QString captionOf(const QString& fileName, qsizetype place, const QMenu& menu) {
    QString shown = QDir::toNativeSeparators(fileName);
    const QString home = QDir::homePath();
    if (shown.startsWith(home + "/")) shown.replace(0, home.size(), "~");
    const QFontMetrics metrics = menu.fontMetrics();
    shown = metrics.elidedText(shown, Qt::ElideMiddle, widestName * metrics.averageCharWidth());
    // A name must not become a key or a line of its own.
    shown.replace('&', "&&").replace('\n', ' ').replace('\t', ' ');
    return QString("&%1  ").arg((place + 1) % 10) + shown;
}

}  // namespace

RecentFiles::RecentFiles(QMenu& menu) : QObject(&menu), menu_(menu) {
    menu.setToolTipsVisible(true);
    connect(&menu, &QMenu::aboutToShow, this, &RecentFiles::fill);
}

void RecentFiles::add(const QString& fileName) { ViewerSettings().addRecentFile(fileName); }

void RecentFiles::fill() {
    menu_.clear();
    const QStringList names = ViewerSettings().recentFiles();
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString& name = names[i];
        QAction* entry =
            menu_.addAction(captionOf(name, i, menu_), this, [this, name] { pick(name); });
        entry->setToolTip(name.toHtmlEscaped());
        entry->setStatusTip(name);
    }
    if (names.isEmpty()) menu_.addAction(tr("None yet"))->setEnabled(false);
    menu_.addSeparator();
    menu_.addAction(tr("&Clear the list"), this, [] { ViewerSettings().forgetRecentFiles(); })
        ->setEnabled(!names.isEmpty());
}

void RecentFiles::pick(const QString& fileName) {
    if (isThere(fileName)) {
        emit picked(fileName);
        return;
    }
    ViewerSettings().forgetRecentFile(fileName);
    emit missing(fileName);
}

}  // namespace quorvale
