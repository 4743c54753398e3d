#include "journal_tool/report.h"

#include <algorithm>

#include "adapters/posix_names.h"
#include "document/line_extent.h"
#include "journal_tool/printable.h"

namespace quorvale {

namespace {

std::string Count(std::size_t count, const char* thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string NameOfFile(const Survey& survey) { return Printable(survey.Name); }

const char* WordFor(Interruption interrupted) {
    switch (interrupted) {
        case Interruption::NotBegun:
            return "not-begun";
        case Interruption::HalfWritten:
            return "half-written";
        case Interruption::Finished:
            return "finished";
        case Interruption::Edited:
            return "edited-since";
        case Interruption::DocumentGone:
            return "document-gone";
        case Interruption::None:
            break;
    }
    return "none";
}

const char* WordFor(JournalKind kind) {
    switch (kind) {
        case JournalKind::Missing:
            return "missing";
        case JournalKind::Good:
            return "good";
        case JournalKind::NoJournal:
            return "no-journal";
        case JournalKind::Unreadable:
            break;
    }
    return "unreadable";
}

std::string PlaceOf(const PendingCorrection& pending) {
    if (!pending.Range) return "a correction without a place";
    const UpdateRange range = *pending.Range;
    const std::string start = std::to_string(range.Start);
    if (range.Count == 0) return "in front of line " + start;
    if (range.Count == 1) return "line " + start;
    return "lines " + start + " to " + std::to_string(range.End() - 1);
}

std::u16string LineOf(const Survey& survey, std::int32_t number) {
    const LineExtent extent = ExtentOf(survey.Document, Line{number});
    return survey.Document.Text.Mid(extent.Start, extent.Length);
}

/// The lines that a correction takes away; what does not fit takes away nobody knows what.
bool KnowsBefore(const Survey& survey, const PendingCorrection& pending) {
    return pending.Fits() && pending.Range && !survey.Unreadable;
}

void WriteOne(const Survey& survey, const PendingCorrection& pending, const Sink& put) {
    put(PlaceOf(pending));
    if (!pending.Fits()) put(": does not fit, " + pending.Problem);
    put("\n");
    if (KnowsBefore(survey, pending)) {
        for (std::int32_t line = pending.Range->Start; line < pending.Range->End(); ++line) {
            put("- " + Printable(LineOf(survey, line)) + "\n");
        }
    }
    for (const std::u16string& line : LinesOfUpdate(UpdateText(*pending.Node))) {
        put("+ " + Printable(line) + "\n");
    }
}

/// What is to be said before any correction.
void WriteHead(const Survey& survey, const Sink& put) {
    const std::string name = NameOfFile(survey) + ": ";
    if (survey.Interrupted != Interruption::None) put(name + SentenceOn(survey.Interrupted) + "\n");
    if (!InForce(survey.Interrupted)) return;
    if (survey.Journal == JournalKind::NoJournal) {
        return put(name + "what lies at the journal's name is none: " + survey.JournalReason +
                   "\n");
    }
    if (survey.Journal == JournalKind::Unreadable) {
        return put(name + "what lies at the journal's name cannot be read\n");
    }
    const std::size_t all = survey.Pending.size();
    if (survey.Unreadable) {
        return put(name + Count(all, "correction") + " pending, but the file cannot be read\n");
    }
    if (all == 0) return put(name + "no corrections are pending\n");
    const auto misfits =
        std::count_if(survey.Pending.begin(), survey.Pending.end(),
                      [](const PendingCorrection& pending) { return !pending.Fits(); });
    put(name + Count(all, "correction") + " pending, " +
        (misfits == 0 ? "all fit" : std::to_string(misfits) + " of them not fitting") + "\n");
}

std::string JsonLines(const std::vector<std::u16string>& lines) {
    std::string json = "[";
    for (const std::u16string& line : lines) {
        if (json.size() > 1) json += ",";
        json += JsonString(line);
    }
    return json + "]";
}

std::string JsonText(const std::string& text) {
    return text.empty() ? "null" : JsonString(NameOf(text));
}

void WriteJsonOne(const Survey& survey, const PendingCorrection& pending, const Sink& put) {
    const auto number = [&](std::int32_t UpdateRange::*field) {
        return pending.Range ? std::to_string(*pending.Range.*field) : std::string("null");
    };
    put("{\"start\":" + number(&UpdateRange::Start) + ",\"count\":" + number(&UpdateRange::Count));
    put(",\"problem\":" + JsonText(pending.Problem));
    put(",\"before\":");
    if (KnowsBefore(survey, pending)) {
        put("[");
        for (std::int32_t line = pending.Range->Start; line < pending.Range->End(); ++line) {
            if (line != pending.Range->Start) put(",");
            put(JsonString(LineOf(survey, line)));
        }
        put("]");
    } else {
        put("null");
    }
    put(",\"after\":" + JsonLines(LinesOfUpdate(UpdateText(*pending.Node))) + "}");
}

}  // namespace

const char* SentenceOn(Interruption interrupted) {
    switch (interrupted) {
        case Interruption::NotBegun:
            return "a commit was interrupted before it changed the file: the next load takes away "
                   "what it left";
        case Interruption::HalfWritten:
            return "a commit was interrupted while it wrote the file: the next load writes the "
                   "rest and removes the journal";
        case Interruption::Finished:
            return "a commit was interrupted when the file was written: the next load removes the "
                   "journal";
        case Interruption::Edited:
            return "a commit was interrupted, and the file was changed since: the next load moves "
                   "the journal aside";
        case Interruption::DocumentGone:
            return "a commit was interrupted, and the file was taken away since: everything stays "
                   "as it is";
        case Interruption::None:
            break;
    }
    return "";
}

ExitCode Judgement(const Survey& survey) {
    if (survey.Interrupted != Interruption::None) return ExitCode::Interrupted;
    if (survey.Unreadable || survey.Journal == JournalKind::Unreadable) return ExitCode::Failed;
    if (survey.Journal == JournalKind::NoJournal || !survey.AllFit()) return ExitCode::DoesNotFit;
    return survey.Pending.empty() ? ExitCode::Done : ExitCode::Pending;
}

void WriteList(const Survey& survey, const Sink& put) {
    WriteHead(survey, put);
    if (!InForce(survey.Interrupted)) return;
    for (const PendingCorrection& pending : survey.Pending) WriteOne(survey, pending, put);
}

void WriteCheck(const Survey& survey, const Sink& put) {
    WriteHead(survey, put);
    if (InForce(survey.Interrupted)) WriteProblems(survey, "", put);
}

void WriteProblems(const Survey& survey, const std::string& prefix, const Sink& put) {
    for (const PendingCorrection& pending : survey.Pending) {
        if (pending.Fits()) continue;
        put(prefix + NameOfFile(survey) + ": " + PlaceOf(pending) + ": " + pending.Problem + "\n");
    }
}

void WriteJson(const Survey& survey, const Sink& put) {
    put("{\"file\":" + JsonString(survey.Name));
    put(",\"exit\":" + std::to_string(static_cast<int>(Judgement(survey))));
    put(",\"unreadable\":" + JsonText(survey.Unreadable.value_or("")));
    put(std::string(",\"journal\":\"") + WordFor(survey.Journal) + "\"");
    put(",\"reason\":" + JsonText(survey.JournalReason));
    put(std::string(",\"interrupted\":\"") + WordFor(survey.Interrupted) + "\"");
    put(",\"corrections\":[");
    if (InForce(survey.Interrupted)) {
        bool first = true;
        for (const PendingCorrection& pending : survey.Pending) {
            if (!first) put(",");
            first = false;
            WriteJsonOne(survey, pending, put);
        }
    }
    put("]}\n");
}

}  // namespace quorvale
