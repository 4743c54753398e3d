#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "adapters/posix_files.h"
#include "corrections/fitting.h"
#include "platform/encoding.h"
#include "platform/xml_service.h"

namespace quorvale {

enum class JournalKind {
    Missing,
    Good,
    NoJournal,   ///< what lies at its name cannot be one: it counts as empty
    Unreadable,  ///< it may be good
};

/// The corrections of the journal are still to come, whatever became of an interrupted commit.
bool InForce(Interruption interrupted);

/// A file and the journal beside it as they lie on the disk.
struct Survey {
    /// As it was asked for, and the names that do not depend on the current directory.
    std::u16string Name;
    std::u16string Path;
    std::u16string JournalPath;
    JournalKind Journal = JournalKind::Missing;
    /// Why the journal is none, or cannot be read.
    std::string JournalReason;
    bool JournalIsRemovable = true;
    Interruption Interrupted = Interruption::None;
    /// Why the file cannot be read.
    std::optional<std::string> Unreadable;
    /// The file's text; empty when it cannot be read, or when nothing is pending.
    DocumentState Document;
    CorrectionsState Corrections;
    std::vector<PendingCorrection> Pending;

    /// It begins as UTF-16 text does, which is read byte by byte: nothing fits it.
    bool IsUtf16 = false;

    bool AllFit() const;
};

/// Looks at a file and its journal; nothing on the disk is changed.
Survey LookAt(PosixFiles& files, XmlService& xml, const std::u16string& name, Encoding encoding);

/// The bytes that the file had when it was read, those of its first `most` characters.
std::string BytesOf(const DocumentState& document,
                    std::int32_t most = std::numeric_limits<std::int32_t>::max());

}  // namespace quorvale
