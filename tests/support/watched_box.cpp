#include "support/watched_box.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <utility>
#include <vector>

#include "base/text.h"
#include "support/control_inside.h"

namespace quorvale {

namespace {

constexpr std::size_t actionsKept = 12;
/// More open ranges than this cannot be drawn: whatever fills the rows then fails.
constexpr std::size_t rangesDrawn = 64;

std::vector<ExpectedFolds::Range> InOrder(const std::vector<CollapseRange>& ranges) {
    std::vector<ExpectedFolds::Range> all;
    for (const CollapseRange& range : ranges) all.emplace_back(range.FromRow, range.ToRow);
    return all;
}

}  // namespace

WatchedBox::WatchedBox(HeadlessSetup setup, bool told) : box_(std::move(setup)), told_(told) {
    folds_.Start(0);
    box_.Log().OnEvent = [this](const std::string& event) { HearOf(event); };
}

void WatchedBox::HearOf(const std::string& event) {
    if (event == "SelChanged" || event == "Scrolled") coloursAreBehind_ = false;
    if (event == "Scrolled") markerIsBehind_ = false;
    const std::string done = InsideEvents ? InsideEvents() : "";
    if (done.empty()) return;
    FoldsAreUnknown();
    lastActions_.back() += " [in " + event + ": " + done + "]";
    if (told_) std::cout << "  in " << event << ": " << done << '\n';
}

void WatchedBox::TextIsNow(std::u16string text) {
    text_.Set(std::move(text));
    folds_.Start(text_.Entries());
    colours_.clear();
    standardColour_ = box_->ForeColor();
    coloursAreBehind_ = markerIsBehind_ = false;
    for (auto line = static_cast<std::int32_t>(tags_.size()); line <= Entries(); ++line) {
        tags_.push_back(FromUtf8(std::to_string(line)));
    }
}

void WatchedBox::LineColourIsNow(std::int32_t line, Colour colour) {
    if (line >= 1 && line < Entries()) colours_[line] = colour;
}

// When painting is taken up again everything is painted.
void WatchedBox::SuspendedIsNow(int count) {
    if (suspended_ > 0 && count == 0) coloursAreBehind_ = markerIsBehind_ = false;
    suspended_ = count;
}

void WatchedBox::CaretGoesTo(std::int32_t line) {
    if (Entries() == 0) return;
    if (Extends()) return FoldsAreUnknown();
    folds_.Reveal(line);
}

// A blank row stands for the last line, which is uncovered then.
void WatchedBox::RowPointedAt(bool extends) {
    if (extends || (Entries() > 1 && folds_.Depth(Entries() - 1) != 0)) FoldsAreUnknown();
}

void WatchedBox::CollapseAllComes() {
    if (Extends()) FoldsAreUnknown();
    folds_.CollapseAll(InOrder(Inside(box_.Box()).Collapse.Ranges));
}

void WatchedBox::GlyphClickComes(int slot) {
    const Image& glyph = Elements().imgExpand[slot];
    if (!glyph.Visible()) return;
    if (Extends()) FoldsAreUnknown();
    const std::int32_t head = std::stoi(ToUtf8(Elements().lblLine[slot].Tag()));
    if (head >= 1 && folds_.Depth(head + 1) != 0) return folds_.ExpandAt(head);
    const auto& ranges = Inside(box_.Box()).Collapse.Ranges;
    const std::size_t number = std::stoul(ToUtf8(glyph.Tag()));
    // A row that was not painted since the last document: its range is gone.
    if (number > ranges.size()) return;
    folds_.CollapseRange(ranges[number - 1].FromRow, ranges[number - 1].ToRow);
}

void WatchedBox::MarkerStaysBehind() {
    ColoursStayBehind();
    markerIsBehind_ = true;
    movesBefore_ = Inside(box_.Box()).Navigation.CaretMoves;
}

bool WatchedBox::Extends() { return Inside(box_.Box()).Navigation.ExtendSelection; }

bool WatchedBox::MembersMayFail() const { return folds_.Ranges().size() > rangesDrawn; }

void WatchedBox::Do(bool mayFail, std::string description, const std::function<void()>& action) {
    if (told_) std::cout << description << '\n';
    lastActions_.push_back(std::move(description));
    if (lastActions_.size() > actionsKept) lastActions_.pop_front();
    box_.Log().Clear();
    try {
        action();
    } catch (const ControlError& error) {
        if (!mayFail) ADD_FAILURE() << "failed: " << error.what();
    } catch (const std::exception& error) {
        ADD_FAILURE() << "failed with an error that is not the control's: " << error.what();
    }
}

std::string WatchedBox::Standing() {
    std::string text = "    row " + std::to_string(box_->row()) + ", column " +
                       std::to_string(box_->col()) + ", top " + std::to_string(box_->TopLine()) +
                       ", selected " + std::to_string(box_->SelectedRowsCount()) + ", hidden";
    for (std::int32_t line = 1; line <= Entries(); ++line) {
        if (folds_.Depth(line) == 0) continue;
        const std::int32_t first = line;
        while (line < Entries() && folds_.Depth(line + 1) != 0) ++line;
        text += ' ' + std::to_string(first) + '-' + std::to_string(line);
    }
    return text;
}

void WatchedBox::Check(Chance& chance) {
    const ControlParts& parts = Inside(box_.Box());
    ASSERT_FALSE(parts.View.LayoutInProgress);
    ASSERT_EQ(parts.Depth, 0) << "a member or handler is still at work";
    ASSERT_EQ(parts.View.RedrawSuspendCount, suspended_);
    ASSERT_EQ(box_->LineCount(), Entries() - 1);
    if (Entries() == 0) return;
    CheckStarts();
    CheckFolds();
    if (told_) std::cout << Standing() << '\n';
    CheckCaret();
    CheckOneLine(chance.Number(1, box_->LineCount()));
    if (suspended_ == 0) CheckView();
}

void WatchedBox::CheckStarts() {
    const LineStarts& starts = Inside(box_.Box()).Document.Table.Starts;
    for (std::int32_t entry = 1; entry <= Entries(); ++entry) {
        if (starts[entry] != text_.Start(entry)) FAIL() << "line " << entry << " starts elsewhere";
        if (entry > 1 && starts[entry] <= starts[entry - 1]) FAIL() << "line " << entry;
    }
}

// What cannot be told in advance is taken over, so that the next actions can be.
void WatchedBox::CheckFolds() {
    const ControlParts& parts = Inside(box_.Box());
    for (std::int32_t line = 1; line <= Entries(); ++line) {
        const int depth = parts.Document.HiddenDepth(Line{line});
        if (depth < 0) FAIL() << "line " << line << " has the depth " << depth;
        if (foldsKnown_ && depth != folds_.Depth(line)) {
            FAIL() << "line " << line << " has the depth " << depth << ", not "
                   << folds_.Depth(line);
        }
        folds_.Depth(line) = depth;
    }
    foldsKnown_ = true;
    ASSERT_EQ(parts.Collapse.Ranges.size(), folds_.Ranges().size());
}

void WatchedBox::CheckCaret() {
    const std::int32_t row = box_->row();
    ASSERT_GE(row, 1);
    ASSERT_LE(row, box_->LineCount());
    ASSERT_GE(box_->col(), 0);
    ASSERT_LE(box_->col(), static_cast<std::int32_t>(text_.Display(row).size()) + 1);
}

void WatchedBox::CheckOneLine(std::int32_t line) {
    const auto colour = colours_.find(line);
    ASSERT_EQ(box_->LineForeColor(line),
              colour == colours_.end() ? standardColour_ : colour->second);
    std::int32_t o = text_.Start(line);
    std::int32_t r = 0;
    std::int32_t c = 0;
    box_->OffsetToRowCol(o, r, &c);
    ASSERT_EQ(r, line);
    ASSERT_EQ(c, text_.At(text_.Start(line)) == u'\t' ? 8 : 1);
}

std::int32_t WatchedBox::RowsThatFit() {
    const Surface& surface = box_.Elements();
    const Twips bar = surface.scrHorz.Visible() ? surface.scrHorz.Height() : 0;
    const Twips room = surface.UserControl.Height() - surface.ToolbarHeight() - bar;
    const std::int32_t slots = surface.lblLine.UpperBound();
    return std::clamp(static_cast<int>(room) / static_cast<int>(surface.RowHeight()), 0, slots - 1);
}

void WatchedBox::CheckView() {
    const std::int32_t row = box_->row();
    ASSERT_EQ(folds_.Depth(row), 0) << "the caret stands on the hidden line " << row;
    const std::int32_t fit = RowsThatFit();
    ASSERT_GE(box_->TopLine(), 1);
    ASSERT_LE(box_->TopLine(), std::max(1, Entries() - fit));
    CheckRows(fit);
    const bool moved = Inside(box_.Box()).Navigation.CaretMoves != movesBefore_;
    if (moved || !markerIsBehind_) CheckMarker(fit);
    if (!coloursAreBehind_) CheckColours(fit);
}

void WatchedBox::CheckRows(std::int32_t rowsThatFit) {
    const Surface& surface = box_.Elements();
    std::int32_t line = box_->TopLine();
    for (int slot = 0; slot < surface.lblLine.UpperBound(); ++slot, ++line) {
        line = folds_.ShownFrom(line);
        const Label& label = surface.lblLine[slot];
        ASSERT_EQ(label.Tag(), TagOf(line)) << "in slot " << slot;
        if (slot > rowsThatFit) continue;
        ASSERT_TRUE(label.Caption() == text_.Display(line)) << "in slot " << slot;
    }
}

void WatchedBox::CheckMarker(std::int32_t rowsThatFit) {
    const Surface& surface = box_.Elements();
    const std::u16string& tag = TagOf(box_->row());
    for (int slot = 0; slot <= rowsThatFit; ++slot) {
        if (surface.lblLine[slot].Tag() != tag) continue;
        ASSERT_EQ(surface.imgMarker.Top(), surface.lblLine[slot].Top());
        return;
    }
    ASSERT_EQ(surface.imgMarker.Left(), -1000) << "the caret's row is out of view";
}

bool WatchedBox::IsSelected(std::int32_t line) {
    const std::int64_t count = box_->SelectedRowsCount();
    const std::int64_t fromCaret = std::int64_t{line} - box_->row();
    if (line >= Entries()) return false;
    return count > 0 ? fromCaret >= 0 && fromCaret < count : fromCaret <= 0 && fromCaret > count;
}

void WatchedBox::CheckColours(std::int32_t rowsThatFit) {
    const Surface& surface = box_.Elements();
    std::int32_t line = box_->TopLine();
    for (int slot = 0; slot <= rowsThatFit; ++slot, ++line) {
        line = folds_.ShownFrom(line);
        const bool highlighted = surface.lblLine[slot].BackColor() == system_colour::Highlight;
        ASSERT_EQ(highlighted, IsSelected(line)) << "in slot " << slot;
    }
}

}  // namespace quorvale
