#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/ordinals.h"
#include "corrections/corrected_text.h"
#include "corrections/journal.h"
#include "corrections/marks.h"
#include "corrections/recording.h"
#include "platform/file_digest.h"
#include "platform/files.h"
#include "platform/host_options.h"
#include "platform/message_box.h"
#include "resources/string_table.h"
#include "state/corrections_state.h"
#include "state/document_state.h"
#include "state/navigation_state.h"

namespace quorvale {

/// What writing the corrections into the file asks of the others.
class CommitPeers {
public:
    virtual ~CommitPeers() = default;
    /// Whether the host has nothing against it. It may do anything before it answers.
    virtual bool MayCommit() = 0;
    /// Loads the file with that absolute name, to be shown as the file `name`.
    virtual void LoadAgain(const std::u16string& name, const std::u16string& path) = 0;
    virtual void SetTopLine(Line line) = 0;
    virtual void MoveTo(Line row, std::int32_t col) = 0;
};

/// Writes the corrections into the file and shows it anew.
class Commit {
public:
    Commit(const DocumentState& document, const CorrectionsState& corrections,
           const NavigationState& navigation, Journal& journal, const CorrectedText& corrected,
           EditRecording& recording, CorrectionMarks& marks, FileSystem& files,
           const HostOptions& options, MessageBoxes& messages, Language texts, CommitPeers& peers)
        : document_(document),
          corrections_(corrections),
          navigation_(navigation),
          journal_(journal),
          corrected_(corrected),
          recording_(recording),
          marks_(marks),
          files_(files),
          options_(options),
          messages_(messages),
          texts_(texts),
          peers_(peers) {}

    /// Records an open editor, writes the file, removes its journal and loads it again, with the
    /// view and the caret where they were. Without corrections, and where the host wants them only
    /// shown, nothing happens. A failure is shown
    /// to the user: before the file is in place everything stays as it was, and trying again is
    /// safe; afterwards the corrections are in the file, and are not kept any more.
    void CommitUpdates();

    /// Of the bytes that the shown file had when it was loaded; worked out once for each document.
    const FileDigest& LoadedDigest() const;

    /// The language of the messages from now on.
    void Speak(Language texts) { texts_ = texts; }

private:
    /// Where to go when the file is loaded again, and what it is called.
    struct Remembered {
        std::u16string Name;
        std::u16string Path;
        Line Top;
        Line Row;
        std::int32_t Col = 0;
        std::uint64_t Generation = 0;
    };

    bool IsWanted();
    std::optional<std::u16string> Write(const std::u16string& path);
    std::optional<std::u16string> WriteBytes(const std::u16string& path);
    void ShowAgain(const Remembered& remembered);
    void ShowFailure(const std::u16string& reason);

    const DocumentState& document_;
    const CorrectionsState& corrections_;
    const NavigationState& navigation_;
    Journal& journal_;
    const CorrectedText& corrected_;
    EditRecording& recording_;
    CorrectionMarks& marks_;
    FileSystem& files_;
    const HostOptions& options_;
    MessageBoxes& messages_;
    Language texts_;
    CommitPeers& peers_;
    mutable FileDigest loaded_;
    /// The document that `loaded_` is of.
    mutable std::uint64_t loadedOf_ = 0;
};

}  // namespace quorvale
