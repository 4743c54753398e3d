#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/posix_calls.h"
#include "platform/file_digest.h"
#include "platform/file_notice.h"

namespace quorvale {

/// What all parts of the file layer work with.
struct PosixContext {
    PosixCalls& Calls;
    /// Where the records of protected writes lie; empty when there is no such place.
    std::string StateFolder = {};
    /// What is to be told when the current call ends.
    std::vector<FileNotice> Notices = {};
    /// Contents that were put in place by a replacement that then failed, by the files' identities:
    /// the corrections are in those files, though nobody was told so.
    std::map<std::string, FileDigest> Unconfirmed = {};
    /// What could not be saved because it is in the document already and was put aside, by the
    /// same: the last name of the copy.
    std::map<std::string, std::string> KeptAside = {};
    /// The journals that replaced documents have made void and that are still to be removed, by the
    /// same: known here too, should somebody remove the record.
    std::map<std::string, FileDigest> Spent = {};

    void Note(FileNotice::Kind what, std::string_view name, std::string_view keptAs = {});
};

/// The random part of a name.
std::string RandomName(PosixContext& context);

}  // namespace quorvale
