#include "platform/files.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quorvale {

namespace {

/// Reads what the file held when it was opened; a later `Put` or `Remove` does not touch it.
class MemoryStream final : public ReadStream {
public:
    explicit MemoryStream(std::shared_ptr<const std::string> bytes) : bytes_(std::move(bytes)) {}

    std::uint64_t Size() const override { return bytes_->size(); }

    FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
        const std::size_t size = std::min(count, bytes_->size() - at_);
        if (size > 0) std::memcpy(into, bytes_->data() + at_, size);
        at_ += size;
        return size;
    }

private:
    std::shared_ptr<const std::string> bytes_;
    std::size_t at_ = 0;
};

class FailingStream final : public ReadStream {
public:
    FailingStream(std::unique_ptr<ReadStream> real, std::u16string name, int failAt)
        : real_(std::move(real)), name_(std::move(name)), failAt_(failAt) {}

    std::uint64_t Size() const override { return real_->Size(); }

    FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
        ++calls_;
        if (calls_ == failAt_) return FileFailure{"read", name_, "Reading was made to fail"};
        return real_->Read(into, count);
    }

private:
    std::unique_ptr<ReadStream> real_;
    std::u16string name_;
    int failAt_;
    int calls_ = 0;
};

}  // namespace

void MemoryFiles::Put(std::u16string name, std::string bytes) {
    files_[std::move(name)] = std::make_shared<const std::string>(std::move(bytes));
}

void MemoryFiles::Remove(std::u16string_view name) {
    const auto file = files_.find(name);
    if (file != files_.end()) files_.erase(file);
}

FileResult<std::unique_ptr<ReadStream>> MemoryFiles::OpenForReading(std::u16string_view name) {
    const auto file = files_.find(name);
    if (file == files_.end()) {
        return FileFailure{"open", std::u16string(name), "No such file or directory"};
    }
    return std::unique_ptr<ReadStream>(std::make_unique<MemoryStream>(file->second));
}

FileResult<std::unique_ptr<ReadStream>> FailingFiles::OpenForReading(std::u16string_view name) {
    if (FailOpen) return FileFailure{"open", std::u16string(name), "Opening was made to fail"};
    auto stream = real_.OpenForReading(name);
    if (!stream || FailRead == 0) return stream;
    return std::unique_ptr<ReadStream>(
        std::make_unique<FailingStream>(std::move(*stream), std::u16string(name), FailRead));
}

}  // namespace quorvale
