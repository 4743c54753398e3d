#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "base/text.h"
#include "document/loading.h"
#include "document_fixture.h"
#include "platform/memory_files.h"

namespace quorvale {

using Log = std::vector<std::string>;

/// Writes down what loading does with a file, and can be told to fail.
class LoggedFiles final : public ReadableFiles {
public:
    explicit LoggedFiles(Log& log) : log_(log) {}

    MemoryFiles Real;
    std::function<void()> OnRead;
    bool FailOpen = false;
    bool FailRead = false;

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override {
        log_.push_back("open " + ToUtf8(name));
        if (FailOpen) return FileFailure{"open", std::u16string(name), "as the test wants it"};
        auto stream = Real.OpenForReading(name);
        if (!stream) return stream.Failure();
        std::unique_ptr<ReadStream> logged = std::make_unique<Stream>(*this, std::move(*stream));
        return logged;
    }

private:
    class Stream final : public ReadStream {
    public:
        Stream(LoggedFiles& files, std::unique_ptr<ReadStream> real)
            : files_(files), real_(std::move(real)) {}
        ~Stream() override { files_.log_.push_back("close"); }

        std::uint64_t Size() const override {
            files_.Once("size");
            return real_->Size();
        }
        FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
            files_.Once("read");
            if (files_.OnRead) files_.OnRead();
            if (files_.FailRead) return FileFailure{"read", u"", "as the test wants it"};
            return real_->Read(into, count);
        }

    private:
        LoggedFiles& files_;
        std::unique_ptr<ReadStream> real_;
    };

    void Once(const std::string& entry) {
        if (log_.back() != entry) log_.push_back(entry);
    }

    Log& log_;
};

/// Loading with peers that write down what is asked of them and do what the test says.
class DocumentLoadingTest : public testing::Test, public LoadingPeers {
protected:
    DocumentLoadingTest() {
        ToolbarButton edit;
        edit.Key = u"Edit";
        edit.Enabled = false;
        surface_.tbMore.Add(edit);
        files_.Real.Put(u"/three", "A\r\nB\r\nC");
        files_.Real.Put(u"/two", "X\nY");
    }

    void CloseEdit() override { Step("close edit"); }
    void CloseJournal() override { Step("close journal"); }
    void OpenJournal(const std::u16string& name) override { Step("open journal " + ToUtf8(name)); }
    void ForgetPlaces() override { Step("forget places"); }
    void ShowFromStart() override { Step("show from start"); }
    void ReportTextChanged() override { Step("report"); }

    void Step(const std::string& step) {
        log_.push_back(step);
        const auto action = std::exchange(actions_[step], nullptr);
        if (action) action();
    }

    /// The next time this step is reached the test does something in it.
    void In(const std::string& step, std::function<void()> action) {
        actions_[step] = std::move(action);
    }
    void Fail(const std::string& step, ErrorKind kind = ErrorKind::File) {
        In(step, [kind] { throw ControlError(kind, "as the test wants it"); });
    }

    std::u16string Text() const { return document_.Text.Mid(1, document_.Text.Length()); }
    bool EditEnabled() const { return surface_.tbMore.Button(u"Edit").Enabled; }

    std::vector<std::int32_t> Starts() const {
        std::vector<std::int32_t> starts;
        const LineStarts& table = document_.Table.Starts;
        for (std::int32_t k = 1; k <= table.Count(); ++k) starts.push_back(table[k]);
        return starts;
    }

    void ExpectConsistent() const {
        const LineTable& table = document_.Table;
        const std::u16string text = Text();
        ASSERT_EQ(table.Starts.Count(), document_.LineSlots);
        EXPECT_EQ(table.ForeColors.Count(), document_.LineSlots);
        EXPECT_EQ(table.BackColors.Count(), document_.LineSlots);
        EXPECT_EQ(table.Images.Count(), document_.LineSlots);
        EXPECT_EQ(table.HiddenDepth.Count(), document_.LineSlots);
        std::vector<std::int32_t> expected{1};
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == u'\n') expected.push_back(static_cast<std::int32_t>(i) + 2);
        }
        EXPECT_EQ(Starts(), expected);
        EXPECT_EQ(document_.ScrollScale, document_.LineSlots / 32768 + 1);
    }

    void ExpectOneEmptyLineOfNoFile() const {
        EXPECT_EQ(Text(), u"\r\n");
        EXPECT_EQ(document_.LineSlots, 2);
        EXPECT_EQ(document_.FileName, u"");
        EXPECT_FALSE(EditEnabled());
        ExpectConsistent();
    }

    Log log_;
    std::map<std::string, std::function<void()>> actions_;
    EvenMetrics metrics_;
    Surface surface_{metrics_};
    HostOptions options_;
    PlainMemory memory_;
    LoggedFiles files_{log_};
    DocumentState document_;
    DocumentLoading loading_{document_, surface_, files_, memory_, options_, *this};
};

}  // namespace quorvale
