#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "control/host_extras.h"
#include "fuzz_input.h"
#include "support/control_inside.h"
#include "support/corrections_in_box.h"

namespace {

using namespace quorvale;

using Lines = std::vector<std::u16string>;

Lines SplitAtLineEnds(const std::u16string& text) {
    Lines lines;
    std::size_t at = 0;
    for (std::size_t end = 0; (end = text.find(u"\r\n", at)) != text.npos; at = end + 2) {
        lines.push_back(text.substr(at, end - at));
    }
    lines.push_back(text.substr(at));
    return lines;
}

/// A carriage return at the end of a line cannot be told from a part of its line end once the line
/// stands somewhere else: files keep theirs inside of lines here.
std::string WithoutLooseReturns(const std::string& bytes) {
    std::string kept;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char next = i + 1 < bytes.size() ? bytes[i + 1] : '\r';
        if (bytes[i] != '\r' || next != '\r') kept += bytes[i];
    }
    return kept;
}

/// A text as a user could have typed it: no line feed but in line ends, and no key types a carriage
/// return.
std::u16string AsTyped(const std::string& bytes) {
    std::u16string text;
    for (const char byte : bytes) {
        if (byte == '\r') continue;
        const auto unit = static_cast<char16_t>(static_cast<std::uint8_t>(byte));
        text += unit == u'\n' ? std::u16string(u"\r\n") : std::u16string(1, unit);
    }
    return text;
}

/// Opens an editor over some lines, types, and records. `expected` is the corrected document as its
/// user has seen it so far.
void Edit(CorrectionsBox& box, Lines& expected, FuzzInput& input) {
    const int row = 1 + input.Number(box->LineCount());
    box.OpenEditor(row, input.Number(9) - 4);
    Require(box.EditorIsOpen());
    const ControlParts& parts = Inside(box.Box());
    const std::int32_t first = parts.Editing.EditStart.Number();
    const std::size_t above = parts.CorrectedText.CorrectedLines(1, first - 1).size();
    const std::u16string before = box.Elements().rtbEdit.Text();
    // Nothing at all and one empty line look the same.
    Lines shown = SplitAtLineEnds(before);
    const Lines own = parts.CorrectedText.CorrectedLines(first, parts.Editing.EditCount);
    if (before.empty() && own.empty()) shown.clear();
    const auto from = expected.begin() + static_cast<std::ptrdiff_t>(above);
    const auto to = from + static_cast<std::ptrdiff_t>(shown.size());
    Require(above + shown.size() <= expected.size());
    Require(std::equal(from, to, shown.begin(), shown.end()));
    std::u16string typed = AsTyped(input.Bytes(input.Number(12)));
    if (input.Number(2) == 0) typed += before;
    box.TypeInEditor(typed);
    box.PressInEditor(key_code::Return, shift_mask::Ctrl);
    if (typed == before) return;
    const Lines lines = SplitAtLineEnds(typed);
    expected.insert(expected.erase(from, to), lines.begin(), lines.end());
}

/// The lines of the file, whatever ends them.
Lines LinesOfFile(CorrectionsBox& box) {
    Lines lines;
    for (std::int32_t line = 1; line <= box->LineCount(); ++line) {
        lines.push_back(box->Extras().RawLineText(line));
    }
    return lines;
}

HeadlessSetup SmallSetup() {
    HeadlessSetup setup;
    setup.Options.KeepLineFormat = true;
    setup.Options.Encoding = Encoding::SingleByte;
    setup.Width = 3000;
    setup.Height = 1600;
    return setup;
}

}  // namespace

// Any file, edited anywhere in any way, closed, opened again and committed: what the user saw in
// the editors is what is in the file afterwards, line by line. Slower than `corrections_fuzz`: here
// the keys, the menu and the files go through the whole control.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    // One control for all inputs, and few rows: most of the time goes into the corrections.
    static CorrectionsBox box(SmallSetup());
    box.Load(WithoutLooseReturns(input.Bytes(input.Number(60))));
    Lines expected = LinesOfFile(box);
    const std::string original = box.FileBytes();
    while (!input.IsUsedUp()) Edit(box, expected, input);
    Require(box.FileBytes() == original);
    // The next day.
    box->Terminate();
    box->LoadFile(u"/doc.txt");
    const bool pending = box->Corrections().Pending() > 0;
    box.PickCorrections(u"mnuPopupCommit");
    Require(box->Corrections().Pending() == 0);
    if (!pending) Require(box.FileBytes() == original);
    Lines wanted = expected;
    // A file without any line shows an empty one.
    if (wanted.empty()) wanted.emplace_back();
    Require(LinesOfFile(box) == wanted);
    return 0;
}
