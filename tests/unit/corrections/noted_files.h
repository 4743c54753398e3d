#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/memory_files.h"
#include "platform/xml_service.h"

namespace quorvale {

/// Files in memory that write down what is done with them, and fail where the test says so.
class NotedFiles final : public MemoryFiles {
public:
    std::vector<std::string> Log;
    std::u16string Folder;
    /// The calls that fail, by the word in the log.
    std::map<std::string, bool> Fails;
    /// A save is done, and then reported as a failure.
    bool FailsAfterSaving = false;
    /// A host that hears of a replacement, before the call is over.
    std::function<void()> OnReplaced;
    JournalStanding Standing = JournalStanding::InForce;
    Replacement Last;
    std::string LastBytes;

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override {
        if (Failing("open", name)) return Failed("open", name);
        return MemoryFiles::OpenForReading(name);
    }
    std::u16string AbsoluteName(std::u16string_view name) override {
        return name.starts_with(u'/') ? std::u16string(name) : Folder + std::u16string(name);
    }
    FileResult<std::unique_ptr<ReadStream>> OpenJournalForReading(
        std::u16string_view name) override {
        if (Failing("open journal", name)) return Failed("open journal", name);
        if (Bytes(name) == nullptr) return std::unique_ptr<ReadStream>();
        return MemoryFiles::OpenForReading(name);
    }
    FileResult<Done> SaveJournal(const JournalPlace& journal, std::string_view bytes) override {
        if (Failing("save", journal.Name)) return Failed("save", journal.Name);
        Log.back() += " beside '" + ToUtf8(journal.Document) + "'";
        auto saved = MemoryFiles::SaveJournal(journal, bytes);
        return FailsAfterSaving ? Failed("save", journal.Name) : saved;
    }
    FileResult<Done> DeleteJournal(const JournalPlace& journal, bool force) override {
        if (Failing(force ? "delete with force" : "delete", journal.Name)) {
            return Failed("delete", journal.Name);
        }
        return MemoryFiles::DeleteJournal(journal, force);
    }
    FileResult<Done> ReplaceDocument(const Replacement& replacement) override {
        if (Failing("replace", replacement.Document)) {
            return Failed("replace", replacement.Document);
        }
        Last = replacement;
        // Later the document is another one.
        Last.Loaded = static_cast<const FileDigest&>(replacement.Loaded);
        LastBytes = replacement.NewBytes.Gathered();
        auto replaced = MemoryFiles::ReplaceDocument(replacement);
        if (OnReplaced) OnReplaced();
        return replaced;
    }
    FileResult<Done> RemoveSpentJournal(const Replacement& replacement) override {
        if (Failing("remove spent", replacement.Journal)) {
            return Failed("delete", replacement.Journal);
        }
        Remove(replacement.Journal);
        return Done{};
    }
    FileResult<JournalStanding> Recover(std::u16string_view document,
                                        std::u16string_view) override {
        if (Failing("recover", document)) return Failed("recover", document);
        return Standing;
    }

private:
    bool Failing(const std::string& word, std::u16string_view name) {
        Log.push_back(word + " " + ToUtf8(name));
        return Fails[word];
    }
    static FileFailure Failed(const char* operation, std::u16string_view name) {
        return {operation, std::u16string(name), "as the test wants it"};
    }
};

/// Reads and writes no XML at all: it keeps the documents it has written under numbers, and gives
/// them back for these. Everything else is malformed.
class KeptDocuments final : public XmlService {
public:
    std::vector<XmlReadOptions> Options;
    XmlParseError Error;
    bool WriteFails = false;

    /// What stands in a file that reads as this document.
    std::string Keep(XmlDocumentPtr document) {
        kept_.push_back(std::move(document));
        return "document " + std::to_string(kept_.size());
    }

    XmlReading Read(std::string_view bytes, const XmlReadOptions& options) override {
        Options.push_back(options);
        for (std::size_t i = 0; i < kept_.size(); ++i) {
            if (bytes == "document " + std::to_string(i + 1)) return {Copy(*kept_[i]), {}};
        }
        return {nullptr, Error};
    }

    FileResult<std::string> Write(const XmlDocument& document) override {
        if (WriteFails) return FileFailure{"write", u"", "as the test wants it"};
        return Keep(Copy(document));
    }

private:
    static XmlNodePtr Copy(const XmlNode& node) {
        auto copy = std::make_shared<XmlNode>(node.Kind(), node.Name(), node.Data());
        for (const XmlAttribute& each : node.Attributes())
            copy->SetAttribute(each.Name, each.Value);
        for (const XmlNodePtr& child : node.ChildNodes()) copy->AppendChild(Copy(*child));
        return copy;
    }

    std::vector<XmlDocumentPtr> kept_;
};

}  // namespace quorvale
