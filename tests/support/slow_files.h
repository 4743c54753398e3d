#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>

#include "headless/hand_clock.h"
#include "platform/files.h"

namespace quorvale {

/// Other files, read slowly: every opening and every piece that is read takes its time on a clock.
/// Counts what was done with them since somebody looked.
class SlowFiles final : public FileSystem {
public:
    SlowFiles(std::shared_ptr<FileSystem> real, std::shared_ptr<HandClock> clock)
        : real_(std::move(real)), work_(std::make_shared<Work>()) {
        work_->Clock = std::move(clock);
    }

    /// What an opening and a piece take.
    std::chrono::nanoseconds Takes = std::chrono::milliseconds(1);

    std::uint64_t Opened() const { return work_->Opened; }
    std::uint64_t BytesRead() const { return work_->Bytes; }

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override {
        work_->Clock->Pass(Takes);
        ++work_->Opened;
        auto stream = real_->OpenForReading(name);
        if (!stream) return stream;
        return std::unique_ptr<ReadStream>(
            std::make_unique<SlowStream>(std::move(*stream), work_, Takes));
    }
    FileResult<bool> Exists(std::u16string_view name) override { return real_->Exists(name); }
    std::u16string AbsoluteName(std::u16string_view name) override {
        return real_->AbsoluteName(name);
    }
    FileResult<std::unique_ptr<ReadStream>> OpenJournalForReading(
        std::u16string_view name) override {
        return real_->OpenJournalForReading(name);
    }
    FileResult<Done> SaveJournal(const JournalPlace& journal, std::string_view bytes) override {
        return real_->SaveJournal(journal, bytes);
    }
    FileResult<Done> DeleteJournal(const JournalPlace& journal, bool force) override {
        return real_->DeleteJournal(journal, force);
    }
    FileResult<Done> ReplaceDocument(const Replacement& replacement) override {
        return real_->ReplaceDocument(replacement);
    }
    FileResult<Done> RemoveSpentJournal(const Replacement& replacement) override {
        return real_->RemoveSpentJournal(replacement);
    }
    FileResult<JournalStanding> Recover(std::u16string_view document,
                                        std::u16string_view journal) override {
        return real_->Recover(document, journal);
    }

private:
    struct Work {
        std::shared_ptr<HandClock> Clock;
        std::uint64_t Opened = 0;
        std::uint64_t Bytes = 0;
    };

    class SlowStream final : public ReadStream {
    public:
        SlowStream(std::unique_ptr<ReadStream> real, std::shared_ptr<Work> work,
                   std::chrono::nanoseconds takes)
            : real_(std::move(real)), work_(std::move(work)), takes_(takes) {}

        std::uint64_t Size() const override { return real_->Size(); }
        FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
            work_->Clock->Pass(takes_);
            work_->Bytes += count;
            return real_->Read(into, count);
        }

    private:
        std::unique_ptr<ReadStream> real_;
        std::shared_ptr<Work> work_;
        std::chrono::nanoseconds takes_;
    };

    std::shared_ptr<FileSystem> real_;
    std::shared_ptr<Work> work_;
};

}  // namespace quorvale
