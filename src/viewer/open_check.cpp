#include "viewer/open_check.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include "document/largest_file.h"

namespace quorvale {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("OpenCheck", text); }

QString reasonOf(const QFileInfo& file) {
    // A dangling link is there, but what it names is not.
    if (!file.exists()) return tr("There is no such file.");
    if (file.isDir()) return tr("It is a directory.");
    if (!file.isFile()) return tr("It is a device or a pipe, not a file.");
    if (!file.isReadable()) return tr("You do not have permission to read it.");
    if (file.size() > qint64{mostFileBytes}) return tr("It is larger than 2 GiB.");
    return {};
}

}  // namespace

QString whyNotOpenable(const QString& fileName) {
    const QString reason = reasonOf(QFileInfo(fileName));
    if (reason.isEmpty()) return {};
    return tr("%1 cannot be opened. %2").arg(fileName, reason);
}

bool beginsAsUtf16(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return false;
    const QByteArray mark = file.read(2);
    return mark == "\xFF\xFE" || mark == "\xFE\xFF";
}

}  // namespace quorvale
