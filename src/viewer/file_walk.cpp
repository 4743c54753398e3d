#include "viewer/file_walk.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QUtf8StringView>
#include <algorithm>
#include <system_error>

#include "document/largest_file.h"

namespace quorvale {

namespace {

/// More names than this are told to nobody.
constexpr int unreadableKept = 10;

QString tr(const char* text) { return QCoreApplication::translate("FileWalk", text); }

/// Whether a list that separates its names by CR can hold this one.
bool isNameable(const std::string& path) {
    return QUtf8StringView(path.data(), static_cast<qsizetype>(path.size())).isValidUtf8() &&
           path.find('\r') == path.npos;
}

}  // namespace

QString whyNotWalkable(const QString& folder) {
    const QFileInfo place(folder);
    if (folder.isEmpty() || !place.exists()) return tr("There is no such folder.");
    if (!place.isDir()) return tr("This is not a folder.");
    if (!place.isReadable() || !place.isExecutable()) {
        return tr("You do not have permission to read this folder.");
    }
    return {};
}

FileWalk::FileWalk(WantedFiles wanted) : wanted_(std::move(wanted)) {
    std::error_code failure;
    const Path folder = QFile::encodeName(wanted_.Folder).toStdString();
    const Path canonical = std::filesystem::canonical(folder, failure);
    if (failure) {
        noteUnreadable(folder);
    } else {
        pending_.push_back(canonical);
    }
}

bool FileWalk::goOn(int milliseconds) {
    // Asking for the time costs more than a name.
    constexpr int stepsBetween = 64;
    QElapsedTimer timer;
    timer.start();
    int steps = 0;
    while (inside_ || !pending_.empty()) {
        step();
        if (++steps % stepsBetween == 0 && timer.elapsed() >= milliseconds) return true;
    }
    if (sawLinks_) found_.Names.removeDuplicates();
    return false;
}

void FileWalk::step() {
    if (!inside_) {
        const Path next = std::move(pending_.back());
        pending_.pop_back();
        return enter(next);
    }
    if (at_ == std::filesystem::end(at_)) return listNext();
    take(*at_);
    std::error_code failure;
    at_.increment(failure);
    // What was seen of the folder by then counts.
    if (failure) noteUnreadable(folder_);
}

void FileWalk::enter(const Path& folder) {
    std::error_code failure;
    at_ = std::filesystem::directory_iterator(folder, failure);
    if (failure) return noteUnreadable(folder);
    folder_ = folder;
    inside_ = true;
}

void FileWalk::listNext() {
    if (listed_ == 0) std::sort(files_.begin(), files_.end());
    if (listed_ == files_.size()) return leave();
    list(files_[listed_].second);
    ++listed_;
}

void FileWalk::leave() {
    inside_ = false;
    std::sort(subfolders_.begin(), subfolders_.end());
    for (auto next = subfolders_.rbegin(); next != subfolders_.rend(); ++next) {
        pending_.push_back(folder_ / next->second);
    }
    files_.clear();
    listed_ = 0;
    subfolders_.clear();
}

void FileWalk::take(const Entry& entry) {
    const std::string native = entry.path().filename().native();
    if (!wanted_.Hidden && native.front() == '.') return;
    std::error_code failure;
    const QString name = QString::fromStdString(native);
    const bool isLink = entry.is_symlink(failure);
    if (entry.is_directory(failure)) {
        if (!isLink && wanted_.Subfolders) subfolders_.emplace_back(orderOf(name), native);
        return;
    }
    if (!wanted_.Names.admits(name) || !entry.is_regular_file(failure)) return;
    sawLinks_ = sawLinks_ || isLink;
    const Path file = isLink ? std::filesystem::canonical(entry.path(), failure) : entry.path();
    if (!failure) files_.emplace_back(orderOf(name), file.native());
}

void FileWalk::list(const Path& file) {
    if (!isNameable(file.native())) {
        ++found_.Unnameable;
        return;
    }
    const QString name = QString::fromStdString(file.native());
    const QFileInfo info(name);
    if (!info.isReadable()) return noteUnreadable(file);
    if (info.size() > qint64{mostFileBytes}) {
        ++found_.TooLarge;
        return;
    }
    found_.Names << name;
}

void FileWalk::noteUnreadable(const Path& path) {
    ++found_.UnreadableCount;
    if (found_.Unreadable.size() >= unreadableKept) return;
    found_.Unreadable << QString::fromStdString(path.native());
}

}  // namespace quorvale
