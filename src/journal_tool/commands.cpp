#include "journal_tool/commands.h"

#include "adapters/document_lock.h"
#include "adapters/posix_names.h"
#include "base/errors.h"
#include "corrections/corrected_text.h"
#include "corrections/document_path.h"
#include "corrections/loaded_digest.h"
#include "journal_tool/printable.h"
#include "journal_tool/report.h"

namespace quorvale {

namespace {

constexpr const char* programName = "quorvale-journal: ";

}  // namespace

Commands::Commands(const Request& request, PosixFiles& files, XmlService& xml, const Voices& voices)
    : request_(request), files_(files), xml_(xml), voices_(voices) {
    files_.SetNoticeHandler([this](const FileNotice& notice) { TellNotice(notice); });
}

ExitCode Commands::Run(const std::string& file) {
    const std::u16string name = NameOf(file);
    if (const std::u16string document = DocumentOf(name); !document.empty()) {
        Tell(name, "is the journal of '" + Printable(document) + "': name that file");
        return ExitCode::Usage;
    }
    switch (request_.What) {
        case Command::Apply:
            return Apply(name);
        case Command::Drop:
            return Drop(name);
        default:
            return Look(name);
    }
}

std::u16string Commands::DocumentOf(const std::u16string& name) {
    const std::u16string ending = JournalName(u"");
    if (name.size() <= ending.size() || !name.ends_with(ending)) return {};
    const std::u16string document = name.substr(0, name.size() - ending.size());
    const auto exists = [this](const std::u16string& file) {
        auto answer = files_.Exists(file);
        return answer && *answer;
    };
    // It may be a document with a journal of its own.
    return exists(document) && !exists(JournalName(name)) ? document : std::u16string();
}

ExitCode Commands::Look(const std::u16string& name) {
    const Survey survey = LookAt(files_, xml_, name, request_.Encoding);
    if (request_.Json) {
        WriteJson(survey, voices_.Output);
    } else if (request_.What == Command::List) {
        WriteList(survey, voices_.Output);
    } else {
        WriteCheck(survey, voices_.Output);
    }
    if (survey.Unreadable) Tell(name, *survey.Unreadable);
    if (survey.Journal == JournalKind::Unreadable) {
        Tell(survey.Name + u"!.xml", survey.JournalReason);
    }
    return Judgement(survey);
}

ExitCode Commands::Apply(const std::u16string& name) {
    if (request_.DryRun) return DryRun(LookAt(files_, xml_, name, request_.Encoding));
    const DocumentLock lock(files_.AbsoluteName(name));
    if (!lock.IsOurs()) {
        Tell(name, lock.WhyNot());
        return lock.IsTaken() ? ExitCode::InUse : ExitCode::Failed;
    }
    return ApplyLocked(name);
}

ExitCode Commands::ApplyLocked(const std::u16string& name) {
    if (!Recover(name)) return ExitCode::Failed;
    const Survey survey = LookAt(files_, xml_, name, request_.Encoding);
    const ExitCode wrong = TellWhatIsWrong(survey);
    if (wrong != ExitCode::Done) return wrong;
    return survey.Pending.empty() ? ExitCode::Done : Write(survey);
}

/// What stands against writing; `Done` when nothing does.
ExitCode Commands::TellWhatIsWrong(const Survey& survey) {
    const ExitCode judgement = Judgement(survey);
    if (judgement == ExitCode::Interrupted) {
        WriteCheck(survey, [&](std::string_view text) { voices_.Errors(text); });
        return judgement;
    }
    if (survey.Unreadable) Tell(survey.Name, *survey.Unreadable);
    if (survey.Journal == JournalKind::Unreadable || survey.Journal == JournalKind::NoJournal) {
        Tell(survey.Name + u"!.xml", survey.JournalReason);
    }
    if (judgement == ExitCode::Failed || survey.Journal == JournalKind::NoJournal) return judgement;
    if (survey.AllFit() || (request_.Force && !survey.IsUtf16)) return ExitCode::Done;
    WriteProblems(survey, programName, voices_.Errors);
    return ExitCode::DoesNotFit;
}

std::string Commands::CorrectedBytes(const Survey& survey) const {
    const JournalIndex index(survey.Corrections);
    PlainMemory memory;
    return CorrectedText(survey.Document, survey.Corrections, index, memory)
        .FileBytes(request_.KeepLineFormat)
        .Spans()
        .Gathered();
}

ExitCode Commands::Write(const Survey& survey) {
    // The corrections would be in the file and in the journal.
    if (!survey.JournalIsRemovable) {
        Tell(survey.Name + u"!.xml", "it is read-only, or lies in a folder that is");
        return ExitCode::Failed;
    }
    std::string bytes;
    try {
        bytes = CorrectedBytes(survey);
    } catch (const ControlError& error) {
        Tell(survey.Name, error.what());
        return error.Kind() == ErrorKind::InvalidValue ? ExitCode::DoesNotFit : ExitCode::Failed;
    }
    if (!survey.AllFit()) {
        auto kept = files_.CopyJournalAside(survey.JournalPath);
        if (!kept) {
            Tell(kept.Failure().Name, kept.Failure().Reason);
            return ExitCode::Failed;
        }
    }
    return Replace(survey, bytes);
}

ExitCode Commands::Replace(const Survey& survey, const std::string& bytes) {
    const Replacement replacement{survey.Path, survey.JournalPath, LoadedDigest(survey.Document),
                                  bytes, survey.Corrections.OwnFiles};
    auto replaced = files_.ReplaceDocument(replacement);
    if (!replaced) {
        Tell(survey.Name, replaced.Failure().Reason);
        return ExitCode::Failed;
    }
    auto removed = files_.RemoveSpentJournal(replacement);
    if (removed) return ExitCode::Done;
    Tell(survey.Name, "the corrections are in the file, but the journal could not be removed: " +
                          removed.Failure().Reason);
    return ExitCode::Failed;
}

ExitCode Commands::DryRun(const Survey& survey) {
    const ExitCode wrong = TellWhatIsWrong(survey);
    if (wrong != ExitCode::Done) return wrong;
    if (survey.Pending.empty()) return ExitCode::Done;
    try {
        WriteDiff(survey, CorrectedBytes(survey));
    } catch (const ControlError& error) {
        Tell(survey.Name, error.what());
        return error.Kind() == ErrorKind::InvalidValue ? ExitCode::DoesNotFit : ExitCode::Failed;
    }
    return ExitCode::Pending;
}

void Commands::WriteDiff(const Survey& survey, const std::string& bytes) {
    const std::string before = BytesOf(survey.Document);
    if (before == bytes) return;
    const JournalIndex index(survey.Corrections);
    const EditScript script = MakeEditScript(1, survey.Document.LineSlots, index.Updates());
    const auto show = [this](std::string_view line) {
        return voices_.ToPeople ? Printable(NameOf(line)) : std::string(line);
    };
    const std::string name = Printable(survey.Name);
    voices_.Output("--- " + name + "\n+++ " + name + "\n");
    WriteLineDiff(before, bytes, script, show, voices_.Output);
}

ExitCode Commands::Drop(const std::u16string& name) {
    const DocumentLock lock(files_.AbsoluteName(name));
    if (!lock.IsOurs()) {
        Tell(name, lock.WhyNot());
        return lock.IsTaken() ? ExitCode::InUse : ExitCode::Failed;
    }
    return DropLocked(name);
}

/// Corrections that are in the file already, or half in it, cannot be given up any more: bringing
/// their commit to its end is what somebody who drops them did not ask for.
ExitCode Commands::TellWhatCannotBeDropped(const std::u16string& name) {
    auto interrupted = files_.FindInterruption(files_.AbsoluteName(name));
    if (!interrupted) {
        Tell(name, interrupted.Failure().Reason);
        return ExitCode::Failed;
    }
    if (InForce(*interrupted)) return ExitCode::Done;
    Tell(name, std::string(SentenceOn(*interrupted)) + "; 'apply' does that too");
    return ExitCode::Interrupted;
}

// The file itself may be gone, and the journal may be in whatever state: it is not read.
ExitCode Commands::DropLocked(const std::u16string& name) {
    const ExitCode wrong = TellWhatCannotBeDropped(name);
    if (wrong != ExitCode::Done) return wrong;
    if (!Recover(name)) return ExitCode::Failed;
    const std::u16string journal = JournalName(files_.AbsoluteName(name));
    auto found = files_.FindJournal(journal);
    if (found && !*found) return ExitCode::Done;
    if (found && !(*found)->IsRegular) {
        Tell(name + u"!.xml", "it is not a regular file");
        return ExitCode::DoesNotFit;
    }
    auto dropped = !found            ? FileResult<Done>(found.Failure())
                   : request_.Delete ? files_.DeleteJournal({journal, {}, {}}, false)
                                     : files_.MoveJournalAside(journal);
    if (dropped) return ExitCode::Done;
    Tell(name + u"!.xml", dropped.Failure().Reason);
    return ExitCode::Failed;
}

/// As a load does: what an interrupted commit has left is brought to its end.
bool Commands::Recover(const std::u16string& name) {
    const std::u16string path = files_.AbsoluteName(name);
    auto standing = files_.Recover(path, JournalName(path));
    if (standing && *standing == JournalStanding::InForce) return true;
    Tell(name, standing ? "the corrections are in the file already, but the journal cannot be "
                          "removed"
                        : standing.Failure().Reason);
    return false;
}

void Commands::Tell(const std::u16string& name, const std::string& what) {
    voices_.Errors(programName + Printable(name) + ": " + Printable(NameOf(what)) + "\n");
}

void Commands::TellNotice(const FileNotice& notice) {
    const std::string kept = Printable(notice.KeptAs);
    switch (notice.What) {
        case FileNotice::Kind::DocumentKept:
            return Tell(notice.Name, "another program's version was kept as " + kept);
        case FileNotice::Kind::JournalKept:
            return Tell(notice.Name, "kept as " + kept);
        case FileNotice::Kind::RecordKept:
            return Tell(notice.Name, "the record of an interrupted commit was kept as " + kept);
        case FileNotice::Kind::WriteEnded:
            return Tell(notice.Name, "an interrupted commit was brought to its end");
        case FileNotice::Kind::DurabilityUnknown:
            return;
    }
}

}  // namespace quorvale
