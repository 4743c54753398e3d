#include "adapters/displacing.h"

#include <algorithm>
#include <cerrno>

#include "adapters/helping_names.h"
#include "adapters/state_folder.h"
#include "adapters/system_error.h"
#include "adapters/temporary_file.h"

namespace quorvale {

namespace {

std::string PathIn(const Folder& folder, const std::string& name) {
    const std::string path = folder.Path();
    return path.empty() ? name : path + "/" + name;
}

void CopyInto(const Folder& folder, const PosixFile& source, const std::string& about) {
    TemporaryFile copy(folder, DisplacedName(folder.Context()), 0600);
    const auto size = static_cast<std::uint64_t>(source.Status().st_size);
    copy.File().Reserve(size);
    std::uint64_t at = 0;
    source.ReadPieces(0, size, [&](std::string_view piece) {
        copy.File().Write(piece, at);
        at += piece.size();
    });
    copy.Finish(at);
    folder.Sync();
    copy.Keep();
    folder.Context().Note(FileNotice::Kind::DocumentKept, about, PathIn(folder, copy.Name()));
}

}  // namespace

bool MoveAside(const Folder& folder, const std::string& name, FileNotice::Kind what,
               const std::string& about) {
    if (!folder.Find(name)) return false;
    for (int attempt = 0; attempt < 3; ++attempt) {
        const std::string aside = DisplacedName(folder.Context());
        if (!folder.RenameToFree(name, aside)) continue;
        folder.Context().Note(what, about, PathIn(folder, aside));
        return true;
    }
    throw SystemError("rename", EEXIST);
}

void CopyAside(const Folder& folder, const PosixFile& source, const std::string& about) {
    try {
        return CopyInto(folder, source, about);
    } catch (const SystemError& error) {
        if (error.Code() != EACCES && error.Code() != EPERM && error.Code() != EROFS) throw;
    }
    CopyInto(CreateStateFolder(folder.Context()), source, about);
}

std::string SaveAside(const Folder& folder, std::string_view bytes, FileNotice::Kind what,
                      const std::string& about) {
    TemporaryFile copy(folder, DisplacedName(folder.Context()), 0600);
    copy.Fill(bytes);
    copy.Finish(bytes.size());
    folder.Sync();
    copy.Keep();
    folder.Context().Note(what, about, PathIn(folder, copy.Name()));
    return copy.Name();
}

bool LiesAside(const Folder& folder, const FileDigest& digest, FileNotice::Kind what,
               const std::string& about) {
    for (const std::string& name : folder.List()) {
        if (!IsDisplacedName(name)) continue;
        const auto file = folder.OpenRegular(name);
        if (!file || file->Digest() != digest) continue;
        folder.Context().Note(what, about, PathIn(folder, name));
        return true;
    }
    return false;
}

void Drop(const Folder& folder, const std::string& name, const std::vector<FileDigest>& ours,
          const std::string& about) {
    const auto file = folder.OpenRegular(name);
    if (file && std::find(ours.begin(), ours.end(), file->Digest()) != ours.end()) {
        return folder.Remove(name);
    }
    MoveAside(folder, name, FileNotice::Kind::DocumentKept, about);
}

}  // namespace quorvale
