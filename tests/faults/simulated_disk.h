#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "adapters/posix_calls.h"

namespace quorvale {

/// A disk in memory whose power can be cut. Whatever was not synchronised may then be missing, each
/// effect for itself, and of writing any blocks.
class SimulatedDisk final : public PosixCalls {
public:
    struct Node {
        bool IsFolder = false;
        std::map<std::string, int> Entries;
        std::string Data;
        std::int64_t Changed = 0;
    };
    using Nodes = std::vector<Node>;

    /// Something that was done and is not on the disk yet: names of one folder, changed together,
    /// or bytes, or a size.
    struct Effect {
        enum class Kind { Names, Bytes, Size };
        Kind What = Kind::Names;
        int Node = 0;
        std::map<std::string, std::optional<int>> Names;
        std::uint64_t At = 0;
        std::string Bytes;
    };

    /// The disk at one moment.
    struct Moment {
        Nodes OnDisk;
        std::vector<Effect> Pending;
        std::string After;
    };

    /// Not every file system can exchange two files, or refuse to overwrite one.
    bool OnlyPlainRenames = false;

    SimulatedDisk();
    /// A disk as it is found after the power was cut.
    explicit SimulatedDisk(Nodes nodes);
    /// A disk as it is when the process ends at that moment, and the power stays.
    explicit SimulatedDisk(const Moment& moment);

    /// Puts a file there, safely.
    void Put(const std::string& path, const std::string& bytes);
    /// None when there is no such file.
    std::optional<std::string> Bytes(const std::string& path) const;
    std::vector<std::string> Names(const std::string& folder) const;
    /// Another name for a file, safely.
    void Link(const std::string& path, const std::string& name);

    /// Every moment since the last call of this, the present one last.
    std::vector<Moment> TakeMoments();

    /// What may be found on the disk when the power is cut at that moment: all possibilities when
    /// they are few, `most` of them otherwise.
    static std::vector<Nodes> AfterPowerCut(const Moment& moment, std::size_t most,
                                            std::mt19937& random);

    int Open(int folder, const char* name, int flags, mode_t mode) override;
    int Close(int file) override;
    ssize_t Read(int file, void* into, std::size_t count, off_t from) override;
    ssize_t Write(int file, const void* bytes, std::size_t count, off_t to) override;
    int Truncate(int file, off_t size) override;
    int Reserve(int, off_t) override { return 0; }
    int Sync(int file) override;
    int StartWriting(int, off_t, off_t) override { return 0; }
    int Status(int file, struct stat& status) override;
    int StatusAt(int folder, const char* name, struct stat& status, int flags) override;
    int MayWrite(int, const char*) override { return 0; }
    int Rename(int fromFolder, const char* from, int toFolder, const char* to,
               unsigned flags) override;
    int Unlink(int folder, const char* name) override;
    int MakeFolder(const char* name, mode_t mode) override;
    ssize_t ReadLink(int folder, const char* name, char* into, std::size_t size) override;
    int List(int folder, std::size_t most, std::vector<std::string>& names) override;
    int Lock(int) override { return 0; }
    int Duplicate(int file) override;
    int ChangeOwner(int, uid_t, gid_t) override { return 0; }
    int ChangeMode(int, mode_t) override { return 0; }
    ssize_t ListAttributes(int, char*, std::size_t) override;
    ssize_t GetAttribute(int, const char*, void*, std::size_t) override;
    int SetAttribute(int, const char*, const void*, std::size_t) override;
    int RemoveAttribute(int, const char*) override;
    ssize_t Random(void* into, std::size_t size) override;
    int CurrentFolder(char*, std::size_t) override;

private:
    struct OpenNode {
        int Node = -1;
        std::string Path;
    };

    /// A name with the folder that it is in.
    struct Place {
        int Folder = -1;
        std::string Name;
        std::string Path;
    };

    static void Apply(Nodes& nodes, const Effect& effect);

    std::optional<Place> Find(int folder, const std::string& path) const;
    /// -1 when nothing is there.
    int NodeAt(int folder, const std::string& path) const;
    void Do(Effect effect);
    void Note(std::string what);
    void Describe(int node, struct stat& status) const;
    int LinksTo(int node) const;

    Nodes live_;
    Nodes onDisk_;
    std::vector<Effect> pending_;
    std::vector<Moment> moments_;
    std::vector<OpenNode> open_;
    std::int64_t clock_ = 1;
    unsigned random_ = 0;
};

}  // namespace quorvale
