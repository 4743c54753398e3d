#include "simulated_disk.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <set>
#include <sstream>
#include <utility>

namespace quorvale {

namespace {

constexpr std::size_t blockSize = 512;

int Failure(int error) {
    errno = error;
    return -1;
}

std::size_t Ways(const SimulatedDisk::Effect& effect) {
    return effect.What == SimulatedDisk::Effect::Kind::Bytes ? 4 : 2;
}

/// The effect as it reached the disk: 0 not at all, 1 whole, 2 and 3 every other block.
std::vector<SimulatedDisk::Effect> Reached(const SimulatedDisk::Effect& effect, std::size_t way) {
    if (way == 0) return {};
    if (way == 1) return {effect};
    std::vector<SimulatedDisk::Effect> blocks;
    for (std::size_t at = 0; at < effect.Bytes.size(); at += blockSize) {
        if ((at / blockSize) % 2 != way - 2) continue;
        SimulatedDisk::Effect block = effect;
        block.At = effect.At + at;
        block.Bytes = effect.Bytes.substr(at, blockSize);
        blocks.push_back(std::move(block));
    }
    return blocks;
}

}  // namespace

SimulatedDisk::SimulatedDisk() : SimulatedDisk(Nodes{Node{true, {}, {}, 0}}) {}

SimulatedDisk::SimulatedDisk(Nodes nodes) : live_(nodes), onDisk_(std::move(nodes)) {}

SimulatedDisk::SimulatedDisk(const Moment& moment) : SimulatedDisk(moment.OnDisk) {
    for (const Effect& effect : moment.Pending) Do(effect);
}

void SimulatedDisk::Apply(Nodes& nodes, const Effect& effect) {
    Node& node = nodes[static_cast<std::size_t>(effect.Node)];
    switch (effect.What) {
        case Effect::Kind::Names:
            for (const auto& [name, target] : effect.Names) {
                if (target) {
                    node.Entries[name] = *target;
                } else {
                    node.Entries.erase(name);
                }
            }
            break;
        case Effect::Kind::Bytes:
            if (node.Data.size() < effect.At + effect.Bytes.size()) {
                node.Data.resize(effect.At + effect.Bytes.size(), '\0');
            }
            node.Data.replace(effect.At, effect.Bytes.size(), effect.Bytes);
            break;
        case Effect::Kind::Size:
            node.Data.resize(effect.At, '\0');
            break;
    }
}

void SimulatedDisk::Do(Effect effect) {
    Apply(live_, effect);
    live_[static_cast<std::size_t>(effect.Node)].Changed = ++clock_;
    pending_.push_back(std::move(effect));
}

void SimulatedDisk::Note(std::string what) {
    moments_.push_back({onDisk_, pending_, std::move(what)});
}

std::vector<SimulatedDisk::Moment> SimulatedDisk::TakeMoments() {
    Note("the end");
    return std::exchange(moments_, {});
}

std::vector<SimulatedDisk::Nodes> SimulatedDisk::AfterPowerCut(const Moment& moment,
                                                               std::size_t most,
                                                               std::mt19937& random) {
    std::size_t possible = 1;
    for (const Effect& effect : moment.Pending) {
        possible = std::min(possible * Ways(effect), most + 1);
    }
    std::vector<Nodes> found;
    for (std::size_t choice = 0; choice < std::min(possible, most); ++choice) {
        Nodes nodes = moment.OnDisk;
        std::size_t rest = choice;
        for (const Effect& effect : moment.Pending) {
            const std::size_t ways = Ways(effect);
            const std::size_t way = possible > most ? random() % ways : rest % ways;
            rest /= ways;
            for (const Effect& part : Reached(effect, way)) Apply(nodes, part);
        }
        found.push_back(std::move(nodes));
    }
    return found;
}

std::optional<SimulatedDisk::Place> SimulatedDisk::Find(int folder, const std::string& path) const {
    const bool absolute = path.starts_with('/');
    Place place;
    place.Folder = absolute ? 0 : open_[static_cast<std::size_t>(folder)].Node;
    place.Path = absolute ? "" : open_[static_cast<std::size_t>(folder)].Path;
    std::istringstream parts(path);
    std::string part;
    while (std::getline(parts, part, '/')) {
        if (part.empty() || part == ".") continue;
        if (!place.Name.empty()) {
            const Node& above = live_[static_cast<std::size_t>(place.Folder)];
            const auto next = above.Entries.find(place.Name);
            if (next == above.Entries.end()) return std::nullopt;
            place.Folder = next->second;
            place.Path += "/" + place.Name;
        }
        place.Name = part;
    }
    return place;
}

int SimulatedDisk::NodeAt(int folder, const std::string& path) const {
    const auto place = Find(folder, path);
    if (!place) return -1;
    if (place->Name.empty()) return place->Folder;
    const Node& above = live_[static_cast<std::size_t>(place->Folder)];
    const auto entry = above.Entries.find(place->Name);
    return entry == above.Entries.end() ? -1 : entry->second;
}

void SimulatedDisk::Put(const std::string& path, const std::string& bytes) {
    std::size_t slash = 0;
    while ((slash = path.find('/', slash + 1)) != path.npos) {
        MakeFolder(path.substr(0, slash).c_str(), 0700);
    }
    const int file = Open(AT_FDCWD, path.c_str(), O_RDWR | O_CREAT, 0600);
    Truncate(file, 0);
    Write(file, bytes.data(), bytes.size(), 0);
    Close(file);
    onDisk_ = live_;
    pending_.clear();
    moments_.clear();
}

void SimulatedDisk::Link(const std::string& path, const std::string& name) {
    const auto place = Find(AT_FDCWD, name);
    const int node = NodeAt(AT_FDCWD, path);
    live_[static_cast<std::size_t>(place->Folder)].Entries[place->Name] = node;
    onDisk_ = live_;
}

std::optional<std::string> SimulatedDisk::Bytes(const std::string& path) const {
    const int node = NodeAt(AT_FDCWD, path);
    if (node < 0) return std::nullopt;
    return live_[static_cast<std::size_t>(node)].Data;
}

std::vector<std::string> SimulatedDisk::Names(const std::string& folder) const {
    const int node = NodeAt(AT_FDCWD, folder);
    std::vector<std::string> names;
    if (node < 0) return names;
    for (const auto& entry : live_[static_cast<std::size_t>(node)].Entries) {
        names.push_back(entry.first);
    }
    return names;
}

int SimulatedDisk::Open(int folder, const char* name, int flags, mode_t) {
    const auto place = Find(folder, name);
    if (!place) return Failure(ENOENT);
    int node = NodeAt(folder, name);
    if (node >= 0 && (flags & O_EXCL) != 0) return Failure(EEXIST);
    if (node < 0 && (flags & O_CREAT) == 0) return Failure(ENOENT);
    if (node < 0) {
        node = static_cast<int>(live_.size());
        live_.emplace_back();
        // What a file is, as opposed to its name, is there from the start: it is empty.
        onDisk_.emplace_back();
        Effect effect;
        effect.Node = place->Folder;
        effect.Names[place->Name] = node;
        Do(std::move(effect));
        Note("create " + place->Name);
    }
    if ((flags & O_DIRECTORY) != 0 && !live_[static_cast<std::size_t>(node)].IsFolder) {
        return Failure(ENOTDIR);
    }
    open_.push_back({node, place->Name.empty() ? place->Path : place->Path + "/" + place->Name});
    return static_cast<int>(open_.size()) - 1;
}

int SimulatedDisk::Close(int file) {
    open_[static_cast<std::size_t>(file)].Node = -1;
    return 0;
}

ssize_t SimulatedDisk::Read(int file, void* into, std::size_t count, off_t from) {
    const int node = open_[static_cast<std::size_t>(file)].Node;
    const std::string& data = live_[static_cast<std::size_t>(node)].Data;
    const auto at = std::min(static_cast<std::size_t>(from), data.size());
    const std::size_t got = std::min(count, data.size() - at);
    std::memcpy(into, data.data() + at, got);
    return static_cast<ssize_t>(got);
}

ssize_t SimulatedDisk::Write(int file, const void* bytes, std::size_t count, off_t to) {
    Effect effect;
    effect.What = Effect::Kind::Bytes;
    effect.Node = open_[static_cast<std::size_t>(file)].Node;
    effect.At = static_cast<std::uint64_t>(to);
    effect.Bytes.assign(static_cast<const char*>(bytes), count);
    Do(std::move(effect));
    Note("write");
    return static_cast<ssize_t>(count);
}

int SimulatedDisk::Truncate(int file, off_t size) {
    Effect effect;
    effect.What = Effect::Kind::Size;
    effect.Node = open_[static_cast<std::size_t>(file)].Node;
    effect.At = static_cast<std::uint64_t>(size);
    Do(std::move(effect));
    Note("truncate");
    return 0;
}

int SimulatedDisk::Sync(int file) {
    const int node = open_[static_cast<std::size_t>(file)].Node;
    const auto isOther = [node](const Effect& effect) { return effect.Node != node; };
    const auto others = std::stable_partition(pending_.begin(), pending_.end(), isOther);
    for (auto effect = others; effect != pending_.end(); ++effect) Apply(onDisk_, *effect);
    pending_.erase(others, pending_.end());
    Note("sync");
    return 0;
}

int SimulatedDisk::LinksTo(int node) const {
    int links = 0;
    for (const Node& folder : live_) {
        for (const auto& entry : folder.Entries) links += entry.second == node ? 1 : 0;
    }
    return links;
}

void SimulatedDisk::Describe(int node, struct stat& status) const {
    const Node& found = live_[static_cast<std::size_t>(node)];
    status = {};
    status.st_dev = 1;
    status.st_ino = static_cast<ino_t>(node) + 1;
    status.st_mode = found.IsFolder ? S_IFDIR | 0700 : S_IFREG | 0600;
    status.st_nlink = static_cast<nlink_t>(LinksTo(node));
    status.st_uid = geteuid();
    status.st_gid = getegid();
    status.st_size = static_cast<off_t>(found.Data.size());
    status.st_mtim.tv_sec = found.Changed;
}

int SimulatedDisk::Status(int file, struct stat& status) {
    Describe(open_[static_cast<std::size_t>(file)].Node, status);
    return 0;
}

int SimulatedDisk::StatusAt(int folder, const char* name, struct stat& status, int) {
    const int node = NodeAt(folder, name);
    if (node < 0) return Failure(ENOENT);
    Describe(node, status);
    return 0;
}

int SimulatedDisk::Rename(int, const char* from, int folder, const char* to, unsigned flags) {
    if (OnlyPlainRenames && flags != 0) return Failure(EINVAL);
    const int moved = NodeAt(folder, from);
    const int replaced = NodeAt(folder, to);
    if (moved < 0) return Failure(ENOENT);
    if (flags == RENAME_EXCHANGE && replaced < 0) return Failure(ENOENT);
    if (flags == RENAME_NOREPLACE && replaced >= 0) return Failure(EEXIST);
    Effect effect;
    effect.Node = open_[static_cast<std::size_t>(folder)].Node;
    effect.Names[to] = moved;
    effect.Names[from] = flags == RENAME_EXCHANGE ? std::optional(replaced) : std::nullopt;
    Do(std::move(effect));
    Note(std::string("rename to ") + to);
    return 0;
}

int SimulatedDisk::Unlink(int folder, const char* name) {
    if (NodeAt(folder, name) < 0) return Failure(ENOENT);
    Effect effect;
    effect.Node = open_[static_cast<std::size_t>(folder)].Node;
    effect.Names[name] = std::nullopt;
    Do(std::move(effect));
    Note(std::string("unlink ") + name);
    return 0;
}

int SimulatedDisk::MakeFolder(const char* name, mode_t) {
    if (NodeAt(AT_FDCWD, name) >= 0) return Failure(EEXIST);
    const auto place = Find(AT_FDCWD, name);
    if (!place) return Failure(ENOENT);
    const int node = static_cast<int>(live_.size());
    live_.push_back({true, {}, {}, 0});
    onDisk_.push_back({true, {}, {}, 0});
    Effect effect;
    effect.Node = place->Folder;
    effect.Names[place->Name] = node;
    Do(std::move(effect));
    Note(std::string("mkdir ") + name);
    return 0;
}

ssize_t SimulatedDisk::ReadLink(int, const char* name, char* into, std::size_t size) {
    const std::string text(name);
    const std::string start = "/proc/self/fd/";
    if (!text.starts_with(start)) return Failure(EINVAL);
    const std::string& path =
        open_[static_cast<std::size_t>(std::stoi(text.substr(start.size())))].Path;
    const std::size_t length = std::min(size, path.size());
    std::memcpy(into, path.data(), length);
    return static_cast<ssize_t>(length);
}

int SimulatedDisk::List(int folder, std::size_t, std::vector<std::string>& names) {
    const Node& node =
        live_[static_cast<std::size_t>(open_[static_cast<std::size_t>(folder)].Node)];
    for (const auto& entry : node.Entries) names.push_back(entry.first);
    return 0;
}

int SimulatedDisk::Duplicate(int file) {
    open_.push_back(open_[static_cast<std::size_t>(file)]);
    return static_cast<int>(open_.size()) - 1;
}

ssize_t SimulatedDisk::ListAttributes(int, char*, std::size_t) { return Failure(ENOTSUP); }
ssize_t SimulatedDisk::GetAttribute(int, const char*, void*, std::size_t) {
    return Failure(ENOTSUP);
}
int SimulatedDisk::SetAttribute(int, const char*, const void*, std::size_t) {
    return Failure(ENOTSUP);
}
int SimulatedDisk::RemoveAttribute(int, const char*) { return Failure(ENOTSUP); }

ssize_t SimulatedDisk::Random(void* into, std::size_t size) {
    std::memset(into, static_cast<int>(++random_), size);
    return static_cast<ssize_t>(size);
}

int SimulatedDisk::CurrentFolder(char*, std::size_t) { return Failure(ENOENT); }

}  // namespace quorvale
