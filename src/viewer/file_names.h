#pragma once

#include <QString>
#include <QUrl>
#include <filesystem>

namespace quorvale {

// A name of the system is bytes, which need be no UTF-8. Like the control, the viewer has a lone
// surrogate U+DC80 to U+DCFF stand for such a byte. Qt's classes for files know nothing of it: the
// system is asked about files through these.

/// The path that the name stands for; an empty one, which is nobody's, for a name with a NUL.
std::filesystem::path pathOf(const QString& name);

/// The name that stands for the path; `pathOf` gives back the very bytes.
QString nameOf(const std::filesystem::path& path);

/// The name of a local file; empty for all else.
QString nameOf(const QUrl& url);

/// The folder that relative names begin in; empty when it is gone.
QString currentFolder();

/// The name under which a file is looked at, locked and read alike, whatever becomes of the current
/// folder. "a/.." is left to the system: where `a` is a link it means another folder.
QString absoluteName(const QString& name);

/// Unlike Qt's, this knows no resources: ":a" is a file of the current folder.
bool isAbsolute(const QString& name);

/// What stands before the last part of the name: of an absolute name its folder.
QString folderOf(const QString& name);

/// The absolute name, without links, of what is there; empty when there is nothing.
QString canonicalName(const QString& name);

bool isThere(const QString& name);

/// In bytes; 0 when there is no such file.
qint64 sizeOf(const QString& name);

/// Whether the user may read a file, or look into a folder.
bool mayRead(const QString& name);
bool mayLookInto(const QString& name);

}  // namespace quorvale
