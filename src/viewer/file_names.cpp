#include "viewer/file_names.h"

#include <unistd.h>

#include <QByteArray>
#include <QDir>
#include <QSysInfo>
#include <system_error>

#include "adapters/posix_names.h"
#include "qt/conversions.h"

namespace quorvale {

namespace {

/// Whether a URL with this host means a file of this machine.
bool isHere(const QString& host) {
    return host.isEmpty() || host == "localhost" || host == QSysInfo::machineHostName();
}

}  // namespace

std::filesystem::path pathOf(const QString& name) {
    // The system would take what stands before it for the name.
    if (name.contains(QChar(u'\0'))) return {};
    return PathOf(toUtf16(name));
}

QString nameOf(const std::filesystem::path& path) { return toQString(NameOf(path.native())); }

QString nameOf(const QUrl& url) {
    if (!url.isLocalFile() || !isHere(url.host())) return {};
    // Its own way, toLocalFile, takes the bytes for UTF-8.
    const QByteArray path =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return toQString(NameOf(path.toStdString()));
}

QString currentFolder() {
    std::error_code failure;
    return nameOf(std::filesystem::current_path(failure));
}

bool isAbsolute(const QString& name) { return name.startsWith('/'); }

QString absoluteName(const QString& name) {
    QString absolute = name;
    if (!isAbsolute(name)) {
        const QString folder = currentFolder();
        // Somebody removed it: what lies beside it is still found from there.
        if (folder.isEmpty()) return name;
        absolute = folder + '/' + name;
    }
    return absolute.contains("..") ? absolute : QDir::cleanPath(absolute);
}

QString folderOf(const QString& name) { return nameOf(pathOf(name).parent_path()); }

QString canonicalName(const QString& name) {
    std::error_code failure;
    return nameOf(std::filesystem::canonical(pathOf(name), failure));
}

bool isThere(const QString& name) {
    std::error_code failure;
    return std::filesystem::exists(pathOf(name), failure);
}

qint64 sizeOf(const QString& name) {
    std::error_code failure;
    const auto size = std::filesystem::file_size(pathOf(name), failure);
    return failure ? 0 : static_cast<qint64>(size);
}

bool mayRead(const QString& name) { return ::access(pathOf(name).c_str(), R_OK) == 0; }

bool mayLookInto(const QString& name) { return ::access(pathOf(name).c_str(), R_OK | X_OK) == 0; }

}  // namespace quorvale
