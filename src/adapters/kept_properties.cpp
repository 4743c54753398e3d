#include "adapters/kept_properties.h"

#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string_view>

namespace quorvale {

namespace {

constexpr const char* accessList = "system.posix_acl_access";
constexpr const char* operation = "keep the file's properties";
constexpr std::size_t largestAttribute = 65536;
constexpr mode_t setIdBits = S_ISUID | S_ISGID;

/// What cannot be kept this way is kept by writing into the file itself.
[[noreturn]] void Fail(int code) {
    const SystemError error(operation, code);
    if (code == EIO) throw error;
    throw CannotBeReplaced(error);
}

/// Some file systems have no attributes at all.
bool HasNoAttributes(int code) { return code == ENOTSUP || code == ENOSYS; }

bool IsKept(std::string_view name) {
    return name.starts_with("user.") || name == "security.selinux" || name == accessList;
}

/// None when the file has no such attribute.
std::optional<std::string> AttributeOf(const PosixFile& file, const char* name) {
    std::string value(largestAttribute, '\0');
    const ssize_t size = Uninterrupted([&] {
        return file.Calls().GetAttribute(file.Descriptor(), name, value.data(), value.size());
    });
    if (size < 0 && (errno == ENODATA || HasNoAttributes(errno))) return std::nullopt;
    if (size < 0) Fail(errno);
    value.resize(static_cast<std::size_t>(size));
    return value;
}

std::vector<std::string> AttributeNames(const PosixFile& file) {
    std::string names(largestAttribute, '\0');
    const ssize_t size = Uninterrupted(
        [&] { return file.Calls().ListAttributes(file.Descriptor(), names.data(), names.size()); });
    if (size < 0 && HasNoAttributes(errno)) return {};
    if (size < 0) Fail(errno);
    names.resize(static_cast<std::size_t>(size));
    std::vector<std::string> kept;
    for (std::size_t at = 0; at < names.size();) {
        const std::string name(names.c_str() + at);
        if (IsKept(name)) kept.push_back(name);
        at += name.size() + 1;
    }
    return kept;
}

/// What a folder hands down to the files created in it would be more than the file had.
void RemoveAccessList(const PosixFile& file) {
    const int removed =
        Uninterrupted([&] { return file.Calls().RemoveAttribute(file.Descriptor(), accessList); });
    if (removed != 0 && errno != ENODATA && !HasNoAttributes(errno)) Fail(errno);
}

}  // namespace

bool IsRefusal(int code) {
    return code == EPERM || code == EACCES || code == EROFS || code == EXDEV || code == EBUSY;
}

KeptProperties::KeptProperties(const PosixFile& file) : status_(file.Status()) {
    for (const std::string& name : AttributeNames(file)) {
        if (auto value = AttributeOf(file, name.c_str())) {
            attributes_.push_back({name, std::move(*value)});
        }
    }
}

void KeptProperties::ApplyTo(const PosixFile& file) const {
    // The mode comes last: a new owner clears bits of it, and until then nobody else may read.
    ApplyOwner(file);
    ApplyAttributes(file);
    ApplyMode(file);
}

void KeptProperties::ApplyOwner(const PosixFile& file) const {
    const FileStatus now = file.Status();
    const uid_t owner = now.st_uid == status_.st_uid ? static_cast<uid_t>(-1) : status_.st_uid;
    const gid_t group = now.st_gid == status_.st_gid ? static_cast<gid_t>(-1) : status_.st_gid;
    if (now.st_uid == status_.st_uid && now.st_gid == status_.st_gid) return;
    const int changed =
        Uninterrupted([&] { return file.Calls().ChangeOwner(file.Descriptor(), owner, group); });
    if (changed != 0) Fail(errno);
}

void KeptProperties::ApplyAttributes(const PosixFile& file) const {
    const bool hasList =
        std::any_of(attributes_.begin(), attributes_.end(),
                    [](const Attribute& attribute) { return attribute.Name == accessList; });
    if (!hasList) RemoveAccessList(file);
    for (const Attribute& attribute : attributes_) {
        const char* const name = attribute.Name.c_str();
        if (AttributeOf(file, name) == attribute.Value) continue;
        const int set = Uninterrupted([&] {
            return file.Calls().SetAttribute(file.Descriptor(), name, attribute.Value.data(),
                                             attribute.Value.size());
        });
        if (set != 0) Fail(errno);
    }
}

void KeptProperties::ApplyMode(const PosixFile& file) const {
    mode_t mode = status_.st_mode & 07777;
    // Whoever writes a program must not lend it another's rights.
    if (status_.st_uid != geteuid() || status_.st_gid != getegid()) mode &= ~setIdBits;
    if ((file.Status().st_mode & 07777) == mode) return;
    if (Uninterrupted([&] { return file.Calls().ChangeMode(file.Descriptor(), mode); }) != 0) {
        Fail(errno);
    }
}

bool HasAccessList(const PosixFile& file) { return AttributeOf(file, accessList).has_value(); }

void ProtectLike(const FileStatus& document, bool documentHasList, const PosixFile& journal) {
    RemoveAccessList(journal);
    mode_t mode = document.st_mode & 0666;
    // With a list, the group's bits are the list's limit and not what the group may do.
    if (documentHasList) mode &= ~mode_t{S_IRWXG};
    bool sameGroup = journal.Status().st_gid == document.st_gid;
    if (!sameGroup) {
        sameGroup = Uninterrupted([&] {
                        return journal.Calls().ChangeOwner(journal.Descriptor(),
                                                           static_cast<uid_t>(-1), document.st_gid);
                    }) == 0;
    }
    // Another group may do no more than everybody.
    if (!sameGroup) mode &= ~mode_t{S_IRWXG} | (mode & S_IRWXO) << 3;
    mode |= S_IRUSR | S_IWUSR;
    if (Uninterrupted([&] { return journal.Calls().ChangeMode(journal.Descriptor(), mode); }) !=
        0) {
        throw SystemError("protect the journal", errno);
    }
}

}  // namespace quorvale
