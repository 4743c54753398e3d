#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace quorvale {

/// The names under which the viewer keeps what its user has chosen.
namespace setting {
inline constexpr const char* windowPlace = "window/place";
inline constexpr const char* fontFamily = "text/family";
inline constexpr const char* fontSize = "text/size";
inline constexpr const char* zoom = "text/zoom";
inline constexpr const char* grid = "view/grid";
inline constexpr const char* toolbar = "view/toolbar";
inline constexpr const char* folds = "view/folds";
inline constexpr const char* severities = "view/severities";
inline constexpr const char* language = "language";
inline constexpr const char* appearance = "appearance";
inline constexpr const char* filesFolder = "files/folder";
inline constexpr const char* filesNames = "files/names";
inline constexpr const char* filesSubfolders = "files/subfolders";
inline constexpr const char* filesHidden = "files/hidden";
inline constexpr const char* recentFiles = "recent/files";
}  // namespace setting

/// What the viewer keeps between its runs: a file in the user's configuration folder that all
/// viewers share. Each writes just the value that its user changed, the others' stay. A file or a
/// value that makes no sense reads as the default; one that cannot be written is not kept.
class ViewerSettings {
public:
    /// From now on this program reads but keeps nothing, as fits one that only renders a picture.
    static void keepNothing();

    bool isOn(const char* name, bool otherwise) const;
    void setOn(const char* name, bool on);

    /// The number, or `otherwise` where it does not lie in `least` to `most`.
    int number(const char* name, int otherwise, int least, int most) const;
    void setNumber(const char* name, int value);

    /// The word if it is one of `allowed`, else the first of these.
    QString choice(const char* name, const QStringList& allowed) const;
    QString text(const char* name) const;
    void setText(const char* name, const QString& text);

    QByteArray bytes(const char* name) const;
    void setBytes(const char* name, const QByteArray& bytes);

    /// Absolute names of files, the last one opened first.
    QStringList recentFiles() const;
    void addRecentFile(const QString& fileName);
    void forgetRecentFile(const QString& fileName);
    void forgetRecentFiles();

    static constexpr qsizetype mostRecentFiles = 10;
};

}  // namespace quorvale
