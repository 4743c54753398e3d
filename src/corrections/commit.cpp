#include "corrections/commit.h"

#include <new>
#include <stdexcept>

#include "base/errors.h"
#include "base/text.h"
#include "corrections/document_path.h"
#include "corrections/loaded_digest.h"
#include "resources/message_format.h"
#include "resources/text_ids.h"

namespace quorvale {

namespace {

std::u16string ReasonOf(const FileFailure& failure) {
    return FromUtf8(failure.Operation) + u" '" + failure.Name + u"': " + FromUtf8(failure.Reason);
}

constexpr const char16_t* outOfMemory = u"Not enough memory";

}  // namespace

void Commit::CommitUpdates() {
    if (options_.ReadOnly) return;
    recording_.RecordEdit(true);
    if (!IsWanted()) return;
    const Remembered remembered{document_.FileName,   corrections_.DocumentPath,
                                navigation_.TopLine,  navigation_.CaretRow,
                                navigation_.CaretCol, document_.Generation};
    if (const auto reason = Write(remembered.Path)) return ShowFailure(*reason);
    // Whoever heard of what was kept aside may have put another document in place.
    if (document_.Generation == remembered.Generation) ShowAgain(remembered);
}

/// Asked before anything is done; the host may put another document in place before it answers.
bool Commit::IsWanted() {
    if (!journal_.HasCorrections()) return false;
    const XmlNodePtr asked = corrections_.JournalRoot;
    if (!peers_.MayCommit() || corrections_.JournalRoot != asked) return false;
    // The host may have let its user edit on.
    recording_.RecordEdit(true);
    return journal_.HasCorrections();
}

/// Why it could not be done; nothing when it was.
std::optional<std::u16string> Commit::Write(const std::u16string& path) {
    if (corrections_.Unreadable) return ReasonOf(*corrections_.Unreadable);
    try {
        return WriteBytes(path);
    } catch (const ControlError& error) {
        return FromUtf8(error.what());
    } catch (const std::bad_alloc&) {
        return outOfMemory;
    } catch (const std::length_error&) {
        return outOfMemory;
    }
}

// All bytes are there before the outside world is touched.
std::optional<std::u16string> Commit::WriteBytes(const std::u16string& path) {
    const XmlNodePtr written = corrections_.JournalRoot;
    const ByteRope bytes = corrected_.FileBytes(options_.KeepLineFormat);
    const Replacement replacement{path, JournalName(path),
                                  LateDigest([this] { return LoadedDigest(); }), bytes.Spans(),
                                  corrections_.OwnFiles};
    auto replaced = files_.ReplaceDocument(replacement);
    if (!replaced) return ReasonOf(replaced.Failure());
    // The corrections are in the file: nobody may write them once more, nor save them.
    if (corrections_.JournalRoot == written) journal_.Drop();
    auto removed = files_.RemoveSpentJournal(replacement);
    if (removed) return std::nullopt;
    marks_.RefreshCorrectionMarks();
    return ReasonOf(removed.Failure());
}

const FileDigest& Commit::LoadedDigest() const {
    if (loadedOf_ != document_.Generation) {
        loaded_ = quorvale::LoadedDigest(document_);
        loadedOf_ = document_.Generation;
    }
    return loaded_;
}

void Commit::ShowAgain(const Remembered& remembered) {
    peers_.LoadAgain(remembered.Name, remembered.Path);
    if (document_.FileName != remembered.Name) {
        // A host that has put another file in place meanwhile knows what it does.
        if (document_.FileName.empty()) {
            ShowFailure(u"'" + remembered.Name + u"' could not be loaded again");
        }
        return;
    }
    const std::uint64_t meant = document_.Generation;
    peers_.SetTopLine(remembered.Top);
    if (document_.Generation == meant) peers_.MoveTo(remembered.Row, remembered.Col);
}

void Commit::ShowFailure(const std::u16string& reason) {
    messages_.Show(FormatMessage(LoadText(text_id::SaveFailed, texts_), u"\r\n" + reason),
                   MessageStyle::Exclamation);
}

}  // namespace quorvale
