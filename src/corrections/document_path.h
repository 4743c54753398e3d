#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace quorvale {

/// The name of the journal beside a document file.
std::u16string JournalName(const std::u16string& document);

/// Opens the files that are to be shown, and keeps what their journals are opened with. The
/// absolute name is taken here: later the current directory may be another one, and a commit must
/// write the file that was read. What an earlier commit has left unfinished is ended first.
class DocumentPath final : public ReadableFiles {
public:
    explicit DocumentPath(FileSystem& files) : files_(files) {}

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override;

    /// The absolute name of the file that was opened last, and how its journal stands.
    const std::u16string& OfLastOpened() const { return path_; }
    FileResult<JournalStanding> Standing() const { return standing_; }

    /// The next file that is opened is the one with this absolute name, whatever name it is asked
    /// for by.
    void OpenNext(std::u16string path) { next_ = std::move(path); }

private:
    FileSystem& files_;
    std::u16string path_;
    std::u16string next_;
    FileResult<JournalStanding> standing_ = JournalStanding::InForce;
};

}  // namespace quorvale
