#include "viewer/viewer_settings.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QVariant>

#include "viewer/file_names.h"

namespace quorvale {

namespace {

/// How long another viewer may take to write its list, in milliseconds.
constexpr int patience = 500;
constexpr qsizetype longestName = 4096;

bool keeps = true;

QSettings opened() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, "quorvale", "viewer");
}

QVariant valueOf(const char* name) { return opened().value(name); }

void keep(const char* name, const QVariant& value) {
    if (!keeps) return;
    QSettings file = opened();
    // What is there already is not written again: another viewer may be about to change it.
    if (file.value(name) != value) file.setValue(name, value);
}

/// The settings are text: a name with bytes that are none would come back as another one.
bool isUsable(const QString& name) {
    return name.size() <= longestName && isAbsolute(name) && !name.contains(QChar(u'\0')) &&
           name.isValidUtf16();
}

QStringList namesIn(const QSettings& file) {
    QStringList names;
    const QStringList kept = file.value(setting::recentFiles).toStringList();
    for (const QString& name : kept) {
        if (!isUsable(name) || names.contains(name)) continue;
        names << name;
        if (names.size() == ViewerSettings::mostRecentFiles) break;
    }
    return names;
}

/// Changes the list as it is now: another viewer may have changed it a moment ago.
template <class Change>
void changeRecentFiles(Change change) {
    if (!keeps) return;
    QSettings file = opened();
    QDir().mkpath(QFileInfo(file.fileName()).absolutePath());
    QLockFile lock(file.fileName() + ".recent.lock");
    lock.tryLock(patience);
    file.sync();
    QStringList names = namesIn(file);
    change(names);
    file.setValue(setting::recentFiles, names.mid(0, ViewerSettings::mostRecentFiles));
    file.sync();
}

}  // namespace

void ViewerSettings::keepNothing() { keeps = false; }

bool ViewerSettings::isOn(const char* name, bool otherwise) const {
    const QString word = valueOf(name).toString();
    if (word == "true") return true;
    return word == "false" ? false : otherwise;
}

void ViewerSettings::setOn(const char* name, bool on) { keep(name, on ? "true" : "false"); }

int ViewerSettings::number(const char* name, int otherwise, int least, int most) const {
    bool isNumber = false;
    const int value = valueOf(name).toString().toInt(&isNumber);
    return isNumber && value >= least && value <= most ? value : otherwise;
}

void ViewerSettings::setNumber(const char* name, int value) { keep(name, QString::number(value)); }

QString ViewerSettings::choice(const char* name, const QStringList& allowed) const {
    const QString word = valueOf(name).toString();
    return allowed.contains(word) ? word : allowed.first();
}

QString ViewerSettings::text(const char* name) const { return valueOf(name).toString(); }
void ViewerSettings::setText(const char* name, const QString& text) {
    if (text.isValidUtf16()) keep(name, text);
}

QByteArray ViewerSettings::bytes(const char* name) const {
    return QByteArray::fromBase64(valueOf(name).toString().toLatin1());
}

void ViewerSettings::setBytes(const char* name, const QByteArray& bytes) {
    keep(name, QString::fromLatin1(bytes.toBase64()));
}

QStringList ViewerSettings::recentFiles() const { return namesIn(opened()); }

void ViewerSettings::addRecentFile(const QString& fileName) {
    if (!isUsable(fileName)) return;
    changeRecentFiles([&](QStringList& names) {
        names.removeAll(fileName);
        names.prepend(fileName);
    });
}

void ViewerSettings::forgetRecentFile(const QString& fileName) {
    changeRecentFiles([&](QStringList& names) { names.removeAll(fileName); });
}

void ViewerSettings::forgetRecentFiles() {
    changeRecentFiles([](QStringList& names) { names.clear(); });
}

}  // namespace quorvale
