#include "document/loading.h"

#include <cstdint>
#include <exception>
#include <utility>

#include "base/errors.h"
#include "base/integers.h"

namespace quorvale {

namespace {

/// A scroll bar of 16 bits has 32768 values from 0 on.
constexpr std::int32_t linesPerScrollScale = 32768;

/// Runs a step and keeps what it throws for later.
template <class Step>
std::exception_ptr Caught(Step step) {
    try {
        step();
        return nullptr;
    } catch (...) {
        return std::current_exception();
    }
}

}  // namespace

void DocumentLoading::LoadFile(const std::u16string& fileName) {
    // The caller's string may be one that the load itself replaces.
    const std::u16string name = fileName;
    std::uint64_t own = document_.Generation;
    const auto failed = Caught([&] {
        peers_.CloseEdit();
        LoadedText loaded = ReadWhole(name);
        own = document_.Generation + 1;
        Replace(std::move(loaded));
        if (document_.Generation != own) return;
        peers_.OpenJournal(name);
        document_.FileName = name;
        surface_.tbMore.SetButtonEnabled(u"Edit", true);
    });
    // A host that heard of the new view may have put another document in place: that one stays.
    if (failed && document_.Generation <= own) ShowNothing();
}

void DocumentLoading::SetText(std::u16string_view text) {
    LoadedText loaded = TextFromString(text);
    peers_.CloseEdit();
    Replace(std::move(loaded));
    peers_.ReportTextChanged();
}

LoadedText DocumentLoading::ReadWhole(const std::u16string& fileName) {
    auto stream = files_.OpenForReading(fileName);
    if (!stream) RaiseFileFailure(stream.Failure());
    if (*stream == nullptr) RaiseFileFailure({"open", fileName, "there is no stream"});
    // The old document goes first: two of a gigabyte side by side are too much. If reading fails
    // it would be replaced all the same.
    document_.Text = {};
    document_.Table = {};
    document_.LineSlots = 0;
    document_.FileName.clear();
    return ReadText(**stream, options_.Encoding, memory_);
}

// Even this may fail, when the journal cannot be saved: the document is in place by then.
void DocumentLoading::ShowNothing() {
    Caught([&] { Replace(TextFromString({})); });
}

void DocumentLoading::Replace(LoadedText loaded) {
    document_.FileName.clear();
    BuildTable(std::move(loaded));
    ResetDocument();
}

void DocumentLoading::BuildTable(LoadedText loaded) {
    const std::int32_t slots = loaded.Starts.Count();
    // What can fail comes first.
    const std::int16_t scale = options_.WideScrollBars
                                   ? std::int16_t{1}
                                   : CheckedCast<std::int16_t>(slots / linesPerScrollScale + 1);
    const Box& control = surface_.UserControl;
    document_.Text = std::move(loaded.Text);
    document_.Table.Starts = std::move(loaded.Starts);
    document_.Table.ForeColors.Reset(slots, control.ForeColor());
    document_.Table.BackColors.Reset(slots, control.BackColor());
    document_.Table.Images.Reset(slots, std::int16_t{0});
    document_.Table.HiddenDepth.Reset(slots, 0);
    document_.ReadAs = loaded.Used;
    document_.LineSlots = slots;
    document_.ScrollScale = scale;
    document_.WidestLineWidth = 0;
    ++document_.Generation;
}

// The file name is already empty here, so a journal that is closed now is named after no file:
// its corrections go to "!.xml" in the current directory. Hosts are told to commit before they
// replace a document.
void DocumentLoading::ResetDocument() {
    const auto journalFailed = Caught([&] { peers_.CloseJournal(); });
    peers_.ForgetPlaces();
    peers_.ShowFromStart();
    if (journalFailed) std::rethrow_exception(journalFailed);
}

}  // namespace quorvale
