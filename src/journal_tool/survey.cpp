#include "journal_tool/survey.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "base/errors.h"
#include "corrections/document_path.h"
#include "corrections/journal.h"
#include "corrections/journal_reading.h"
#include "document/text_loading.h"
#include "document/text_writing.h"
#include "platform/byte_rope.h"
#include "platform/memory.h"

namespace quorvale {

namespace {

/// Looks at one file.
class Surveyor {
public:
    Surveyor(PosixFiles& files, XmlService& xml, Encoding encoding)
        : files_(files), xml_(xml), encoding_(encoding) {}

    Survey Run(const std::u16string& name) {
        survey_.Name = name;
        survey_.Path = files_.AbsoluteName(name);
        survey_.JournalPath = JournalName(survey_.Path);
        auto stream = files_.OpenForReading(survey_.Path);
        if (!stream) survey_.Unreadable = stream.Failure().Reason;
        LookForInterruption();
        LookAtJournal();
        if (stream && !FindPending(survey_.Corrections, nullptr).empty()) ReadDocument(**stream);
        survey_.Pending =
            FindPending(survey_.Corrections, survey_.Unreadable ? nullptr : &survey_.Document);
        if (survey_.IsUtf16) {
            for (PendingCorrection& pending : survey_.Pending) {
                pending.Problem = "the file is UTF-16 text, which cannot be corrected";
            }
        }
        return std::move(survey_);
    }

private:
    void LookForInterruption() {
        auto interrupted = files_.FindInterruption(survey_.Path);
        if (interrupted) {
            survey_.Interrupted = *interrupted;
        } else if (!survey_.Unreadable) {
            survey_.Unreadable = interrupted.Failure().Reason;
        }
    }

    void LookAtJournal() {
        auto found = files_.FindJournal(survey_.JournalPath);
        if (!found) return Judge(JournalKind::Unreadable, found.Failure().Reason);
        if (!*found) return;
        survey_.JournalIsRemovable = (*found)->IsRemovable;
        if (!(*found)->IsRegular) return Judge(JournalKind::NoJournal, "it is not a regular file");
        JournalReading reading = ReadJournal(files_, xml_, survey_.JournalPath);
        if (reading.Unreadable) return Judge(JournalKind::Unreadable, reading.Unreadable->Reason);
        if (reading.Malformed) return Judge(JournalKind::NoJournal, ReasonOf(*reading.Malformed));
        if (reading.Document == nullptr) return;
        if (reading.Document->SelectSingleNode(u"corrections") == nullptr) {
            return Judge(JournalKind::NoJournal, "it has no element corrections");
        }
        survey_.Journal = JournalKind::Good;
        Journal(survey_.Corrections).Open(std::move(reading.Document));
        if (reading.Digest) survey_.Corrections.OwnFiles = {*reading.Digest};
    }

    void Judge(JournalKind kind, std::string reason) {
        survey_.Journal = kind;
        survey_.JournalReason = std::move(reason);
    }

    static std::string ReasonOf(const XmlParseError& error) {
        return error.Reason + " (byte " + std::to_string(error.Position) + ")";
    }

    void ReadDocument(ReadStream& stream) {
        try {
            PlainMemory memory;
            LoadedText loaded = ReadText(stream, encoding_, memory);
            DocumentState& document = survey_.Document;
            document.LineSlots = loaded.Starts.Count();
            document.Text = std::move(loaded.Text);
            document.Table.Starts = std::move(loaded.Starts);
            document.ReadAs = loaded.Used;
            document.FileName = survey_.Path;
            const std::string mark = BytesOf(document, 2);
            survey_.IsUtf16 = mark == "\xFF\xFE" || mark == "\xFE\xFF";
        } catch (const ControlError& error) {
            survey_.Unreadable = error.what();
        }
    }

    PosixFiles& files_;
    XmlService& xml_;
    Encoding encoding_;
    Survey survey_;
};

}  // namespace

bool Survey::AllFit() const {
    return std::all_of(Pending.begin(), Pending.end(),
                       [](const PendingCorrection& pending) { return pending.Fits(); });
}

bool InForce(Interruption interrupted) {
    return interrupted == Interruption::None || interrupted == Interruption::NotBegun ||
           interrupted == Interruption::DocumentGone;
}

Survey LookAt(PosixFiles& files, XmlService& xml, const std::u16string& name, Encoding encoding) {
    return Surveyor(files, xml, encoding).Run(name);
}

std::string BytesOf(const DocumentState& document, std::int32_t most) {
    PlainMemory memory;
    ByteRope bytes(memory);
    TextWriter writer(document.ReadAs, bytes);
    // The CR LF at the end is the control's own.
    writer.PutFrom(document.Text, 1, std::clamp(document.Text.Length() - 2, 0, most));
    writer.Finish();
    return bytes.Spans().Gathered();
}

}  // namespace quorvale
