#pragma once

#include <string>
#include <vector>

#include "adapters/posix_file.h"
#include "adapters/system_error.h"

namespace quorvale {

/// The file can be given a new content, but not by putting another file in its place.
class CannotBeReplaced : public SystemError {
public:
    explicit CannotBeReplaced(const SystemError& why) : SystemError(why) {}
};

/// Does the system refuse to create or to move a file, rather than fail in it?
bool IsRefusal(int code);

/// What a file has beside its bytes, and keeps when others are put in its place: owner, group,
/// mode, access control list, the user's attributes, the security label.
class KeptProperties {
public:
    /// Throws SystemError; CannotBeReplaced when the properties may not be read.
    explicit KeptProperties(const PosixFile& file);

    /// Throws CannotBeReplaced when the file may not be given them.
    void ApplyTo(const PosixFile& file) const;

private:
    struct Attribute {
        std::string Name;
        std::string Value;
    };

    void ApplyOwner(const PosixFile& file) const;
    void ApplyAttributes(const PosixFile& file) const;
    void ApplyMode(const PosixFile& file) const;

    FileStatus status_;
    std::vector<Attribute> attributes_;
};

/// Makes a journal no more readable than its document: the mode and group of `document`, as far as
/// that is possible, and what a folder hands down to new files taken away.
void ProtectLike(const FileStatus& document, bool documentHasList, const PosixFile& journal);

/// Does an access control list say more about the file than its mode?
bool HasAccessList(const PosixFile& file);

}  // namespace quorvale
