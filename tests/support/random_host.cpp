#include "support/random_host.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/keyed_pictures.h"
#include "support/documents.h"

namespace quorvale {

namespace {

constexpr std::int32_t greatest = 2147483647;
constexpr std::int32_t least = -greatest - 1;
constexpr std::size_t mostRanges = 60;

}  // namespace

void RandomHost::Act() {
    const int choice = chance_.Number(0, 99);
    if (choice < 32) {
        MoveAbout();
    } else if (choice < 58) {
        Fold();
    } else if (choice < 66) {
        Decorate();
    } else if (choice < 72) {
        Select();
    } else if (choice < 76) {
        Read();
    } else if (choice < 88) {
        Suspend();
    } else if (choice < 95) {
        ChangeLooks();
    } else if (choice < 98 || !chance_.OneIn(2)) {
        UseBoxes();
    } else {
        ShowAnotherText();
    }
}

// Events come again out of what is done in them: at some depth it must end.
std::string RandomHost::ActInside() {
    if (box_.Entries() == 0 || inside_ > 2 || !chance_.OneIn(12)) return {};
    ++inside_;
    std::string done;
    try {
        done = ActAnyhow();
    } catch (const ControlError& error) {
        done = error.what();
    }
    --inside_;
    return done;
}

/// Any member that leaves the document in place.
const char* RandomHost::ActAnyhow() {
    const std::int32_t line = AnyLine();
    const std::int32_t col = AnyColumn();
    const std::pair<const char*, std::function<void()>> members[] = {
        {"MoveTo", [&] { box_->MoveTo(line, col); }},
        {"row", [&] { box_->row(line); }},
        {"col", [&] { box_->col(col); }},
        {"TopLine", [&] { box_->TopLine(line); }},
        {"CollapseAll", [&] { box_->CollapseAll(); }},
        {"ExpandAll", [&] { box_->ExpandAll(); }},
        {"EnsureVisible", [&] { box_->EnsureVisible(line); }},
        {"SelectedRowsCount", [&] { box_->SelectedRowsCount(col); }},
        {"resize", [&] { box_.Box().Resize(12000, chance_.Number(0, 9000)); }},
        {"LeftBorderWidth",
         [&] {
             auto width = static_cast<float>(chance_.Number(0, 900));
             box_->LeftBorderWidth(width);
         }},
        {"MoveTo without redraw",
         [&] {
             box_->AutoRedraw(false);
             box_->MoveTo(line, col);
             box_->AutoRedraw(true);
         }},
    };
    const auto& [name, member] = chance_.OneOf(members);
    member();
    return name;
}

/// Mostly a line of the document, sometimes one just beside it or far away.
std::int32_t RandomHost::AnyLine() {
    static constexpr std::int32_t odd[] = {0, -1, least, greatest};
    return chance_.OneIn(20) ? chance_.OneOf(odd) : chance_.Number(0, box_.Entries() + 1);
}

std::int32_t RandomHost::AnyColumn() {
    static constexpr std::int32_t odd[] = {0, -7, least, greatest, 20000};
    return chance_.OneIn(10) ? chance_.OneOf(odd) : chance_.Number(1, 60);
}

void RandomHost::MoveAbout() {
    const std::int32_t line = AnyLine();
    const std::int32_t col = AnyColumn();
    switch (chance_.Number(0, 5)) {
        case 0:
            box_.CaretGoesTo(line);
            return box_.Host(
                "MoveTo", [&](auto r, auto c) { box_->MoveTo(r, c); }, line, col);
        case 1:
            box_.CaretGoesTo(line);
            return box_.Host(
                "row", [&](auto r) { box_->row(r); }, line);
        case 2:
            box_.CaretGoesTo(box_->row());
            return box_.Host(
                "col", [&](auto c) { box_->col(c); }, col);
        case 3:
            return box_.Host(
                "TopLine", [&](auto l) { box_->TopLine(l); }, line);
        case 4:
            // The caret stays: nothing is extended.
            if (box_.Entries() > 0) box_.Folds().Reveal(line);
            return box_.Host(
                "EnsureVisible", [&](auto l) { box_->EnsureVisible(l); }, line);
        default:
            return JumpToOffset();
    }
}

void RandomHost::JumpToOffset() {
    const std::int32_t length = box_.Text().Length();
    const std::int32_t offset = chance_.Number(-2, length + 2);
    if (box_.Entries() > 0) {
        const bool toTheEnd = offset >= length;
        box_.CaretGoesTo(toTheEnd ? box_.Entries() + 1 : box_.Text().LineAt(std::max(offset, 1)));
    }
    box_.Host(
        "Offset", [&](auto o) { box_->Offset(o); }, offset);
}

void RandomHost::Fold() {
    const int choice = chance_.Number(0, 9);
    if (choice == 0) {
        if (box_.Extends()) box_.FoldsAreUnknown();
        box_.Folds().ExpandAll();
        box_.Host("ExpandAll", [&] { box_->ExpandAll(); });
    } else if (choice < 4) {
        box_.CollapseAllComes();
        const auto collapse = [&] { box_->CollapseAll(); };
        if (documents_.PastTheEnd) return box_.HostThatMayFail("CollapseAll", collapse);
        box_.Host("CollapseAll", collapse);
    } else {
        Register();
    }
}

void RandomHost::Register() {
    const std::int32_t entries = box_.Entries();
    if (box_.Folds().Ranges().size() >= mostRanges) return Select();
    const std::int32_t from = chance_.Number(0, entries);
    const std::int32_t to = from + chance_.Number(0, chance_.OneIn(4) ? entries : 20);
    const bool pastTheEnd = documents_.PastTheEnd && chance_.OneIn(9);
    Register(from, pastTheEnd ? to : std::min(to, entries));
}

void RandomHost::Register(std::int32_t from, std::int32_t to) {
    if (box_.Entries() > 0) box_.Folds().Register(from, to);
    box_.Host(
        "CollapseLines", [&](auto f, auto t) { box_->CollapseLines(f, t); }, from, to);
}

void RandomHost::Decorate() {
    const std::int32_t line = AnyLine();
    const int colour = chance_.Number(0, 0xFFFFFF);
    const auto number = static_cast<std::int16_t>(chance_.Number(0, 3));
    switch (chance_.Number(0, 3)) {
        case 0:
            box_.LineColourIsNow(line, static_cast<Colour>(colour));
            box_.ColoursStayBehind();
            return box_.Host(
                "LineForeColor",
                [&](auto l, auto c) { box_->LineForeColor(l, static_cast<Colour>(c)); }, line,
                colour);
        case 1:
            box_.ColoursStayBehind();
            return box_.Host(
                "LineBackColor",
                [&](auto l, auto c) { box_->LineBackColor(l, static_cast<Colour>(c)); }, line,
                colour);
        case 2:
            return box_.Host(
                "LineImage", [&](auto l, auto n) { box_->LineImage(l, n); }, line, number);
        default:
            return box_.Host("ImageList", [&] {
                auto list = std::make_shared<ImageList>();
                list->Add(u"picture", std::make_shared<const Picture>("picture", 240, 240));
                box_->ImageList(list);
            });
    }
}

void RandomHost::Select() {
    static constexpr int endless[] = {greatest, least, greatest - 40};
    const int rows = chance_.OneIn(9) ? chance_.OneOf(endless) : chance_.Number(-50, 50);
    box_.HostThatMayFail(
        "SelectedRowsCount", [&](auto count) { box_->SelectedRowsCount(count); }, rows);
}

void RandomHost::Read() {
    box_.Host(
        "the getters of a line",
        [&](auto line) {
            static_cast<void>(box_->LineText(line));
            static_cast<void>(box_->LineForeColor(line));
            static_cast<void>(box_->LineBackColor(line));
            static_cast<void>(box_->LineImage(line));
            static_cast<void>(box_->RowTop(line));
            static_cast<void>(box_->Offset());
            std::int32_t row = 0;
            std::int32_t offset = std::max(1, std::min(line, box_.Text().Length() - 1));
            if (box_.Entries() > 0) box_->OffsetToRowCol(offset, row);
        },
        AnyLine());
}

void RandomHost::Suspend() {
    const bool redraw = box_.Suspended() > 0 ? !chance_.OneIn(6) : !chance_.OneIn(4);
    const int left = box_.Suspended() + (redraw ? -1 : 1);
    // The caret leaves a hidden line, which may extend a selection.
    if (left == 0 && box_.Extends()) box_.FoldsAreUnknown();
    box_.SuspendedIsNow(std::max(left, 0));
    const bool byShowing = chance_.OneIn(6);
    box_.Host(
        byShowing ? "Show or Hide" : "AutoRedraw",
        [&](int on) {
            if (!byShowing) return box_->AutoRedraw(on != 0);
            if (on != 0) return box_->Show();
            box_->Hide();
        },
        redraw ? 1 : 0);
}

void RandomHost::ChangeLooks() {
    const auto colour = static_cast<Colour>(chance_.Number(0, 0xFFFFFF));
    switch (chance_.Number(0, 7)) {
        case 0:
            return ChangeFont();
        case 1:
            return box_.Host(
                "LeftBorderWidth",
                [&](int width) {
                    auto twips = static_cast<float>(width);
                    box_->LeftBorderWidth(twips);
                },
                chance_.Number(-20, 900));
        case 2:
            box_.ColoursStayBehind();
            return box_.Host("BackColor", [&] { box_->BackColor(colour); });
        case 3:
            box_.ColoursStayBehind();
            return box_.Host("ForeColor", [&] { box_->ForeColor(colour); });
        case 4:
            return box_.Host("BorderColor", [&] { box_->BorderColor(colour); });
        case 5:
            return box_.Host("BorderStyle",
                             [&] { box_->BorderStyle(static_cast<std::int16_t>(colour % 3)); });
        case 6:
            return box_.Host("Icon", [&] {
                box_->Icon(colour % 2 == 0 ? nullptr
                                           : std::make_shared<const Picture>("caret", 300, 120));
            });
        default:
            return box_.Host("Enabled and DisplayName", [&] {
                box_->Enabled(colour % 2 == 0);
                box_->AmbientChanged(u"DisplayName");
            });
    }
}

void RandomHost::ChangeFont() {
    FixedMetrics& metrics = box_.Box().Metrics();
    metrics.RowHeight = chance_.Number(100, 400);
    metrics.UnitWidth = chance_.OneIn(3) ? 123.4567891 : chance_.Number(1, 300);
    box_.Host(
        "Font",
        [&](int size) { box_->Font({.Name = u"Other", .Size = static_cast<double>(size)}); },
        chance_.Number(6, 30));
}

void RandomHost::UseBoxes() {
    switch (chance_.Number(0, 3)) {
        case 0:
            // What is in the box is looked for at once.
            box_.FoldsAreUnknown();
            return box_.Host("SearchText", [&] { box_->SearchText(u"needle"); });
        case 1:
            return box_.Host("SearchFiles", [&] { box_->SearchFiles(u"/a\r/b"); });
        case 2:
            return box_.Host(
                "ShowGrid", [&](int show) { box_->ShowGrid(show != 0); }, chance_.Number(0, 1));
        default:
            return box_.Host("AddButton", [&] {
                box_->AddButton(u"Mine", std::make_shared<Picture>("mine", 240, 240));
            });
    }
}

void RandomHost::ShowAnotherText() {
    const int longest = chance_.OneIn(5) ? documents_.LongestLine : 30;
    std::u16string text =
        RandomText(chance_.Engine(),
                   chance_.OneIn(4) ? chance_.Number(0, 8) : chance_.Number(30, 400), longest);
    for (int line = 0; line < documents_.Lines; ++line) text += u"some\r\n";
    box_.TextIsNow(text);
    if (chance_.OneIn(4)) {
        std::string bytes;
        for (const char16_t unit : text) bytes += static_cast<char>(unit);
        box_.Host("LoadFile", [&] { box_.Box().Load(bytes); });
    } else {
        box_.Host("text", [&] { box_->text(text); });
    }
    for (std::int32_t k = 1; k <= documents_.Nested; ++k) Register(k, box_.Entries() - k);
}

}  // namespace quorvale
