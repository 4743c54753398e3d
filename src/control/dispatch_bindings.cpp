#include "control/dispatch_bindings.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <string>
#include <type_traits>

#include "base/errors.h"
#include "base/integers.h"
#include "control/dispatch_call.h"
#include "control/member_ids.h"
#include "control/quorvale_box.h"

namespace quorvale {

namespace {

using namespace member_kind;

using Call = DispatchCall;

struct Binding {
    std::int32_t Id;
    unsigned Kind;
    DispatchBinding Run;

    /// The body is a lambda without captures; one that returns nothing gives an empty result.
    template <class Body>
    constexpr Binding(std::int32_t id, unsigned kind, Body)
        : Id(id), Kind(kind), Run([](Call& call) -> Variant {
              if constexpr (std::is_void_v<std::invoke_result_t<Body, Call&>>) {
                  Body{}(call);
                  return {};
              } else {
                  return Body{}(call);
              }
          }) {}
};

Variant AsLong(Colour colour) { return std::bit_cast<std::int32_t>(colour); }

// Arguments are read into variables first, in their order, so that nothing has happened yet when
// one of them is refused.

void SetLeftBorderWidth(Call& call) {
    const float given = call.Single(0);
    float width = given;
    call.Box.LeftBorderWidth(width);
    if (width != given) call.WriteBack(0, width);
}

void EnsureVisible(Call& call) {
    const auto given = call.Long(0);
    // Asked before the call: a handler of `Scrolled` may load another document, or destroy the
    // control.
    const auto lineCount = call.Box.LineCount();
    call.Box.EnsureVisible(given);
    if (lineCount < 0) return;  // no document, so nothing to clamp to
    const auto line = std::clamp(given, 1, CheckedAdd(lineCount, 1));
    if (line != given) call.WriteBack(0, line);
}

void OffsetToRowCol(Call& call) {
    const auto givenOffset = call.Long(0);
    call.Long(1);
    const bool wantsColumn = call.Has(2);
    if (wantsColumn) call.Long(2);
    auto offset = givenOffset;
    // No line and no column is 0, so a 0 says that the member did not write it.
    std::int32_t row = 0;
    std::int32_t column = 0;
    call.Box.OffsetToRowCol(offset, row, wantsColumn ? &column : nullptr);
    if (offset != givenOffset) call.WriteBack(0, offset);
    if (row != 0) call.WriteBack(1, row);
    if (column != 0) call.WriteBack(2, column);
}

bool AddButton(Call& call) {
    const auto name = call.String(0);
    const auto picture = call.Picture(1);
    const auto toolTip = call.Has(2) ? call.String(2) : std::u16string();
    return call.Box.AddButton(name, picture, toolTip);
}

bool CollapseLines(Call& call) {
    const auto fromRow = call.Long(0);
    const auto toRow = call.Long(1);
    return call.Box.CollapseLines(fromRow, toRow);
}

void MoveTo(Call& call) {
    const auto line = call.Long(0);
    const auto column = call.Long(1);
    call.Box.MoveTo(line, column);
}

void SetLineForeColor(Call& call) {
    const auto line = call.Long(0);
    const auto colour = call.Colour(1);
    call.Box.LineForeColor(line, colour);
}

void SetLineBackColor(Call& call) {
    const auto line = call.Long(0);
    const auto colour = call.Colour(1);
    call.Box.LineBackColor(line, colour);
}

constexpr Binding bindings[] = {
    {member_id::ImageList, Get, [](Call& call) { return call.Box.ImageList(); }},
    {member_id::ImageList, Set, [](Call& call) { call.Box.ImageList(call.ObjectReference(0)); }},
    {member_id::LoadFile, Method, [](Call& call) { call.Box.LoadFile(call.String(0)); }},
    {member_id::CollapseLines, Method, [](Call& call) { return CollapseLines(call); }},
    {member_id::LineText, Get, [](Call& call) { return call.Box.LineText(call.Long(0)); }},
    {member_id::LineForeColor, Get,
     [](Call& call) { return AsLong(call.Box.LineForeColor(call.Long(0))); }},
    {member_id::LineForeColor, Let, [](Call& call) { SetLineForeColor(call); }},
    {member_id::LineBackColor, Get,
     [](Call& call) { return AsLong(call.Box.LineBackColor(call.Long(0))); }},
    {member_id::LineBackColor, Let, [](Call& call) { SetLineBackColor(call); }},
    {member_id::LineImage, Get, [](Call& call) { return call.Box.LineImage(call.Long(0)); }},
    {member_id::LineImage, Let, [](Call& call) { call.Box.LineImage(call.Long(0), call.Any(1)); }},
    {member_id::RowTop, Method, [](Call& call) { return call.Box.RowTop(call.Long(0)); }},
    {member_id::LineCount, Get, [](Call& call) { return call.Box.LineCount(); }},
    {member_id::TopLine, Get, [](Call& call) { return call.Box.TopLine(); }},
    {member_id::TopLine, Let, [](Call& call) { call.Box.TopLine(call.Long(0)); }},
    {member_id::SelectedRowsCount, Get, [](Call& call) { return call.Box.SelectedRowsCount(); }},
    {member_id::SelectedRowsCount, Let,
     [](Call& call) { call.Box.SelectedRowsCount(call.Long(0)); }},
    {member_id::row, Get, [](Call& call) { return call.Box.row(); }},
    {member_id::row, Let, [](Call& call) { call.Box.row(call.Long(0)); }},
    {member_id::col, Get, [](Call& call) { return call.Box.col(); }},
    {member_id::col, Let, [](Call& call) { call.Box.col(call.Long(0)); }},
    {member_id::MoveTo, Method, [](Call& call) { MoveTo(call); }},
    {member_id::SearchText, Get, [](Call& call) { return call.Box.SearchText(); }},
    {member_id::SearchText, Let, [](Call& call) { call.Box.SearchText(call.String(0)); }},
    {member_id::CollapseAll, Method, [](Call& call) { call.Box.CollapseAll(); }},
    {member_id::ExpandAll, Method, [](Call& call) { call.Box.ExpandAll(); }},
    {member_id::AddButton, Method, [](Call& call) { return AddButton(call); }},
    {member_id::ShowGrid, Get, [](Call& call) { return call.Box.ShowGrid(); }},
    {member_id::ShowGrid, Let, [](Call& call) { call.Box.ShowGrid(call.Boolean(0)); }},
    {member_id::EnsureVisible, Method, [](Call& call) { EnsureVisible(call); }},
    {member_id::Icon, Set, [](Call& call) { call.Box.Icon(call.Picture(0)); }},
    {member_id::BackColor, Get, [](Call& call) { return AsLong(call.Box.BackColor()); }},
    {member_id::BackColor, Let, [](Call& call) { call.Box.BackColor(call.Colour(0)); }},
    {member_id::BorderColor, Get, [](Call& call) { return AsLong(call.Box.BorderColor()); }},
    {member_id::BorderColor, Let, [](Call& call) { call.Box.BorderColor(call.Colour(0)); }},
    {member_id::LeftBorderWidth, Get, [](Call& call) { return call.Box.LeftBorderWidth(); }},
    {member_id::LeftBorderWidth, Let, [](Call& call) { SetLeftBorderWidth(call); }},
    {member_id::ForeColor, Get, [](Call& call) { return AsLong(call.Box.ForeColor()); }},
    {member_id::ForeColor, Let, [](Call& call) { call.Box.ForeColor(call.Colour(0)); }},
    {member_id::Enabled, Get, [](Call& call) { return call.Box.Enabled(); }},
    {member_id::Enabled, Let, [](Call& call) { call.Box.Enabled(call.Boolean(0)); }},
    {member_id::Font, Get, [](Call& call) { return call.Box.Font(); }},
    {member_id::Font, Set, [](Call& call) { call.Box.Font(call.Font(0)); }},
    {member_id::BorderStyle, Get, [](Call& call) { return call.Box.BorderStyle(); }},
    {member_id::BorderStyle, Let, [](Call& call) { call.Box.BorderStyle(call.Integer(0)); }},
    {member_id::text, Get, [](Call& call) { return call.Box.text(); }},
    {member_id::text, Let, [](Call& call) { call.Box.text(call.String(0)); }},
    {member_id::Offset, Get, [](Call& call) { return call.Box.Offset(); }},
    {member_id::Offset, Let, [](Call& call) { call.Box.Offset(call.Long(0)); }},
    {member_id::OffsetToRowCol, Method, [](Call& call) { OffsetToRowCol(call); }},
    {member_id::AutoRedraw, Let, [](Call& call) { call.Box.AutoRedraw(call.Boolean(0)); }},
    {member_id::SearchFiles, Let, [](Call& call) { call.Box.SearchFiles(call.String(0)); }},
};

}  // namespace

DispatchBinding BindingOf(std::int32_t id, unsigned kind) {
    const auto found = std::find_if(
        std::begin(bindings), std::end(bindings),
        [&](const Binding& binding) { return binding.Id == id && binding.Kind == kind; });
    if (found == std::end(bindings)) {
        throw ControlError(ErrorKind::MemberNotFound,
                           "There is no member with the id " + std::to_string(id));
    }
    return found->Run;
}

}  // namespace quorvale
