#include "corrections/journal_reading.h"

#include <utility>

namespace quorvale {

namespace {

FileResult<std::string> ReadAll(ReadStream& stream, const std::u16string& name) {
    if (stream.Size() > XmlService::MaxBytes) {
        return FileFailure{"read", name, "It is larger than 1 GiB"};
    }
    std::string bytes(static_cast<std::size_t>(stream.Size()), '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        auto got =
            stream.Read(reinterpret_cast<std::byte*>(bytes.data()) + length, bytes.size() - length);
        if (!got) return got.Failure();
        if (*got == 0) break;
        length += *got;
    }
    bytes.resize(length);
    return bytes;
}

}  // namespace

JournalReading ReadJournal(FileSystem& files, XmlService& xml, const std::u16string& name) {
    auto stream = files.OpenJournalForReading(name);
    if (!stream) return {nullptr, stream.Failure(), std::nullopt, std::nullopt};
    if (*stream == nullptr) return {};
    auto bytes = ReadAll(**stream, name);
    if (!bytes) return {nullptr, bytes.Failure(), std::nullopt, std::nullopt};
    XmlReadOptions options;
    options.ValidateOnParse = true;
    options.PreserveWhiteSpace = true;
    options.Async = false;
    XmlReading xmlReading = xml.Read(*bytes, options);
    JournalReading reading;
    reading.Digest = DigestOf(*bytes);
    if (xmlReading) {
        reading.Document = std::move(xmlReading.Document);
    } else if (xmlReading.ParseError.CannotBeRead) {
        reading.Unreadable = FileFailure{"read", name, xmlReading.ParseError.Reason};
    } else {
        reading.Malformed = xmlReading.ParseError;
    }
    return reading;
}

}  // namespace quorvale
