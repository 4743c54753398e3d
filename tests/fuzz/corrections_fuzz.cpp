#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "control/host_extras.h"
#include "support/control_inside.h"
#include "support/corrections_in_box.h"

namespace {

using namespace quorvale;

void Require(bool holds) {
    if (!holds) std::abort();
}

/// Takes small numbers and texts off the input; when it is used up everything is 0 and empty.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : bytes_(reinterpret_cast<const char*>(data), size) {}

    bool IsUsedUp() const { return bytes_.empty(); }

    int Number(int below) {
        if (bytes_.empty()) return 0;
        const auto byte = static_cast<std::uint8_t>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte % below;
    }

    std::string Bytes(std::size_t most) {
        const std::string taken(bytes_.substr(0, most));
        bytes_.remove_prefix(taken.size());
        return taken;
    }

private:
    std::string_view bytes_;
};

using Lines = std::vector<std::u16string>;

/// A stretch of the document as its user sees it: the lines that stand for so many of the file's.
struct Stretch {
    std::int32_t First;
    std::int32_t Count;
    Lines Shown;
};

/// The corrected document in the plainest way: stretches in their order.
class Expected {
public:
    explicit Expected(const QuorvaleBox& box) {
        for (std::int32_t line = 1; line <= box.LineCount(); ++line) {
            stretches_.push_back({line, 1, {box.Extras().RawLineText(line)}});
        }
    }

    /// What an editor over these lines shows: what stands for them, and what is inserted before
    /// them and right behind.
    Lines ShownOver(std::int32_t first, std::int32_t count) const {
        Lines lines;
        for (const Stretch& each : stretches_) {
            if (IsIn(each, first, count)) Append(lines, each.Shown);
        }
        return lines;
    }

    void Replace(std::int32_t first, std::int32_t count, Lines typed) {
        std::vector<Stretch> after;
        bool placed = false;
        for (Stretch& each : stretches_) {
            if (!IsIn(each, first, count)) {
                after.push_back(std::move(each));
            } else if (!std::exchange(placed, true)) {
                after.push_back({first, count, typed});
            }
        }
        Require(placed);
        stretches_ = std::move(after);
    }

    Lines All() const {
        Lines lines;
        for (const Stretch& each : stretches_) Append(lines, each.Shown);
        return lines;
    }

private:
    static bool IsIn(const Stretch& each, std::int32_t first, std::int32_t count) {
        const std::int32_t end = first + count;
        return each.Count == 0 ? each.First >= first && each.First <= end
                               : each.First < end && first < each.First + each.Count;
    }
    static void Append(Lines& lines, const Lines& more) {
        lines.insert(lines.end(), more.begin(), more.end());
    }

    std::vector<Stretch> stretches_;
};

Lines SplitAtLineEnds(const std::u16string& text) {
    Lines lines;
    std::size_t at = 0;
    for (std::size_t end = 0; (end = text.find(u"\r\n", at)) != text.npos; at = end + 2) {
        lines.push_back(text.substr(at, end - at));
    }
    lines.push_back(text.substr(at));
    return lines;
}

std::u16string Joined(const Lines& lines) {
    std::u16string text;
    for (std::size_t i = 0; i < lines.size(); ++i) text += (i > 0 ? u"\r\n" : u"") + lines[i];
    return text;
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

/// Opens an editor over some lines, types, and records.
void Edit(CorrectionsBox& box, Expected& expected, Input& input) {
    const std::int32_t lines = box->LineCount();
    box.OpenEditor(1 + input.Number(lines), input.Number(9) - 4);
    Require(box.EditorIsOpen());
    const EditingState& editing = Inside(box.Box()).Editing;
    const std::int32_t first = editing.EditStart.Number();
    const std::int32_t count = editing.EditCount;
    const Lines shown = expected.ShownOver(first, count);
    const std::u16string before = box.Elements().rtbEdit.Text();
    Require(before == Joined(shown));
    const std::u16string typed = AsTyped(input.Bytes(static_cast<std::size_t>(input.Number(12)))) +
                                 (input.Number(2) == 0 ? before : std::u16string());
    box.TypeInEditor(typed);
    box.PressInEditor(key_code::Return, shift_mask::Ctrl);
    if (typed != before) expected.Replace(first, count, SplitAtLineEnds(typed));
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
// the editors is what is in the file afterwards, line by line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    // One control for all inputs, and few rows: most of the time goes into the corrections.
    static CorrectionsBox box(SmallSetup());
    box.Load(WithoutLooseReturns(input.Bytes(static_cast<std::size_t>(input.Number(60)))));
    Expected expected(box.Box());
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
    Lines wanted = expected.All();
    // A file without any line shows an empty one.
    if (wanted.empty()) wanted.emplace_back();
    Require(LinesOfFile(box) == wanted);
    return 0;
}
