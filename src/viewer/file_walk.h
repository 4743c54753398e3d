#pragma once

#include <QStringList>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "viewer/name_filter.h"

namespace quorvale {

/// Which files are to be found.
struct WantedFiles {
    QString Folder;
    NameFilter Names;
    bool Subfolders = true;
    /// Also names that begin with a dot.
    bool Hidden = false;
};

/// What a walk has found, and what it had to leave out.
struct FoundFiles {
    /// Absolute and canonical; each file once.
    QStringList Names;
    /// Folders and files that may not be read: the first of them, and how many.
    QStringList Unreadable;
    int UnreadableCount = 0;
    /// Files whose names a list of names cannot hold: those with a carriage return.
    int Unnameable = 0;
    /// Files of more than 2 GiB, which could not be opened: images of disks and the like.
    int TooLarge = 0;

    int LeftOut() const { return UnreadableCount + Unnameable + TooLarge; }
};

/// Why this folder cannot be walked, as a sentence for the user; empty when it can.
QString whyNotWalkable(const QString& folder);

/// Looks for files in a folder and those below it, a little at a time, so that a window stays
/// alive. Names come in the order people expect, a folder's files before its subfolders. Links to
/// files are followed, links to folders are not: no walk goes in a circle. What is no regular file
/// is none.
class FileWalk {
public:
    explicit FileWalk(WantedFiles wanted);

    /// Goes on for about so long; false when everything has been seen.
    bool goOn(int milliseconds);

    const FoundFiles& found() const { return found_; }

    /// How many files it has come across so far.
    qsizetype seen() const {
        return found_.Names.size() + static_cast<qsizetype>(files_.size() - listed_);
    }

private:
    using Path = std::filesystem::path;
    using Entry = std::filesystem::directory_entry;
    /// What a name is ordered by, and the name.
    using Named = std::pair<QString, std::string>;

    void step();
    void enter(const Path& folder);
    void listNext();
    void leave();
    void take(const Entry& entry);
    void list(const Path& file);
    void noteUnreadable(const Path& path);

    WantedFiles wanted_;
    FoundFiles found_;
    /// Folders to come; the next one stands last.
    std::vector<Path> pending_;
    bool inside_ = false;
    Path folder_;
    std::filesystem::directory_iterator at_;
    std::vector<Named> files_;
    std::size_t listed_ = 0;
    std::vector<Named> subfolders_;
    bool sawLinks_ = false;
};

}  // namespace quorvale
