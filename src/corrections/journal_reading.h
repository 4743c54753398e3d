#pragma once

#include <optional>
#include <string>

#include "platform/file_digest.h"
#include "platform/files.h"
#include "platform/xml_service.h"

namespace quorvale {

/// A journal as it lies on the disk. All of it is empty when there is none.
struct JournalReading {
    XmlDocumentPtr Document;
    /// Why it cannot be read: it may be good.
    std::optional<FileFailure> Unreadable;
    /// Why it is no XML: it counts as empty.
    std::optional<XmlParseError> Malformed;
    /// Of its bytes, whatever they are good for; none where they could not be read.
    std::optional<FileDigest> Digest;
};

/// Reads the journal with that name. Nothing is changed.
JournalReading ReadJournal(FileSystem& files, XmlService& xml, const std::u16string& name);

}  // namespace quorvale
