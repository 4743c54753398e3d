#include "viewer/file_walk.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <system_error>

#include "document/largest_file.h"
#include "viewer/file_names.h"

namespace quorvale {

namespace {

/// More names than this are told to nobody.
constexpr int unreadableKept = 10;

QString tr(const char* text) { return QCoreApplication::translate("FileWalk", text); }

}  // namespace

QString whyNotWalkable(const QString& folder) {
    if (!isThere(folder)) return tr("There is no such folder.");
    std::error_code failure;
    if (!std::filesystem::is_directory(pathOf(folder), failure)) return tr("This is not a folder.");
    if (!mayLookInto(folder)) return tr("You do not have permission to read this folder.");
    return {};
}

FileWalk::FileWalk(WantedFiles wanted) : wanted_(std::move(wanted)) {
    std::error_code failure;
    const Path folder = pathOf(wanted_.Folder);
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
    const QString name = nameOf(Path(native));
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
    const QString name = nameOf(file);
    // It ends a name in the list of those to be searched.
    if (name.contains(u'\r')) {
        ++found_.Unnameable;
        return;
    }
    if (!mayRead(name)) return noteUnreadable(file);
    if (sizeOf(name) > qint64{mostFileBytes}) {
        ++found_.TooLarge;
        return;
    }
    found_.Names << name;
}

void FileWalk::noteUnreadable(const Path& path) {
    ++found_.UnreadableCount;
    if (found_.Unreadable.size() >= unreadableKept) return;
    found_.Unreadable << nameOf(path);
}

}  // namespace quorvale
