#include "viewer/document_lock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <unistd.h>

namespace quorvale {

namespace {

/// A place that the user's viewers share, in this session of the system.
QString placeOfLocks() {
    const QString name = QString("quorvale-%1").arg(::getuid());
    const QDir folder(QDir::tempPath());
    folder.mkdir(name, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    return folder.filePath(name);
}

QString nameOfLock(const QString& fileName) {
    const QFileInfo file(fileName);
    const QString path = file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
    return QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex() + ".lock";
}

}  // namespace

DocumentLock::DocumentLock(const QString& fileName)
    : lock_(std::make_unique<QLockFile>(placeOfLocks() + "/" + nameOfLock(fileName))) {
    // However long somebody looks at a file, it is theirs.
    lock_->setStaleLockTime(0);
    lock_->tryLock(0);
}

}  // namespace quorvale
