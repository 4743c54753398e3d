#include "control/creation.h"

#include <memory>
#include <string>

#include "base/numbers_in_text.h"
#include "base/text.h"
#include "resources/pictures.h"
#include "resources/text_ids.h"

namespace quorvale {

namespace {

constexpr Twips twipsPerPixel = 15;
constexpr Twips searchBoxRoom = 2000;
constexpr Twips lineBoxRoom = 1000;

PicturePtr MakePicture(std::string_view set, const PictureData& data) {
    return std::make_shared<const SvgPicture>(std::string(set) + "/" + std::string(data.Key),
                                              std::string(data.Svg), data.Width * twipsPerPixel,
                                              data.Height * twipsPerPixel);
}

void CreatePictures(Surface& surface) {
    for (const PictureData& data : ToolbarPictures()) {
        surface.ilMore.Add(FromUtf8(data.Key), MakePicture("toolbar", data));
    }
    for (const PictureData& data : GlyphPictures()) {
        surface.ilExpand.Add(FromUtf8(data.Key), MakePicture("glyph", data));
    }
    surface.imgDefaultCursor.SetPicture(MakePicture("marker", CaretMarkerPicture()));
    surface.imgMarker.SetPicture(surface.imgDefaultCursor.Shown());
    surface.imgEdit[0].SetPicture(MakePicture("glyph", CorrectionMarkPicture()));
    surface.imgMarker.SetLeft(-1000);
}

void AddButton(Surface& surface, const char16_t* key, ButtonKind kind = ButtonKind::Normal,
               bool enabled = true) {
    ToolbarButton button;
    button.Key = key;
    button.Kind = kind;
    button.Enabled = enabled;
    // The "Ln" button has no picture: it carries its name.
    if (button.Key != u"Ln") {
        button.PictureKey = key;
        button.Shown = surface.ilMore.Find(button.Key);
    }
    surface.tbMore.Add(std::move(button));
}

void AddGap(Surface& surface, ButtonKind kind, Twips width = 0) {
    ToolbarButton gap;
    gap.Kind = kind;
    gap.Width = width;
    surface.tbMore.Add(std::move(gap));
}

void CreateButtons(Surface& surface) {
    ToolbarButton find;
    find.Key = u"Find";
    find.Kind = ButtonKind::DropDown;
    find.PictureKey = u"Find";
    find.Shown = surface.ilMore.Find(find.Key);
    find.Menu = {{u"Next", {}}, {u"All", {}}, {u"WildAll", {}}, {{}, u"-"}, {u"Recent", {}}};
    surface.tbMore.Add(std::move(find));
    AddGap(surface, ButtonKind::Placeholder, searchBoxRoom);
    AddGap(surface, ButtonKind::Separator);
    AddButton(surface, u"Ln");
    AddGap(surface, ButtonKind::Placeholder, lineBoxRoom);
    AddGap(surface, ButtonKind::Separator);
    AddButton(surface, u"Collapsed", ButtonKind::Normal, false);
    AddButton(surface, u"Edit", ButtonKind::Normal, false);
    AddButton(surface, u"Grid", ButtonKind::Check);
    AddButton(surface, u"Print");
}

void CreateMenus(Surface& surface) {
    surface.mnuPopup.Items = {{u"mnuPopupEdit", {}}, {{}, u"-"}, {u"mnuPopupUndo", {}},
                              {u"mnuUndoAll", {}},   {{}, u"-"}, {u"mnuPopupPrev", {}},
                              {u"mnuPopupNext", {}}, {{}, u"-"}, {u"mnuPopupCommit", {}}};
    surface.mnuCollapse.Items = {{u"mnuCollapseCollapseAll", {}}, {u"mnuCollapseExpandAll", {}}};
}

/// The captions go to the entries that are no separators, in their order.
void SetCaptions(Menu& menu, Language language, int ownId) {
    const auto text = [&](int id) { return std::u16string(LoadText(id, language)); };
    menu.Caption = text(ownId);
    int id = ownId + 1;
    for (MenuItem& item : menu.Items) {
        if (!item.IsSeparator()) item.Caption = text(id++);
    }
}

void SetTexts(Surface& surface, Language language) {
    const auto text = [&](int id) { return std::u16string(LoadText(id, language)); };
    surface.lvFound.SetHeader(0, text(text_id::FileNameColumn));
    surface.lvFound.SetHeader(1, text(text_id::LineNumberColumn));
    surface.lvFound.SetHeader(2, text(text_id::SourceLineColumn));
    Toolbar& toolbar = surface.tbMore;
    toolbar.SetToolTip(1, text(text_id::Find));
    const int menuIds[] = {text_id::FindNext, text_id::FindAll, text_id::WildcardFindAll,
                           text_id::FindMenuSeparator, text_id::RecentSearchList};
    for (std::size_t i = 0; i < std::size(menuIds); ++i) {
        toolbar.SetMenuCaption(1, i, text(menuIds[i]));
    }
    toolbar.SetToolTip(4, text(text_id::GoToLine));
    toolbar.SetToolTip(7, text(text_id::CollapseLines));
    toolbar.SetToolTip(8, text(text_id::Edit));
    toolbar.SetToolTip(9, text(text_id::ShowBoundaries));
    toolbar.SetToolTip(10, u"Print");
    SetCaptions(surface.mnuPopup, language, text_id::CorrectionsMenu);
    SetCaptions(surface.mnuCollapse, language, text_id::CollapseMenu);
}

}  // namespace

void ChangeTexts(Surface& surface, Language from, Language to) {
    SetTexts(surface, to);
    const auto change = [&](TextBox& box, int id) {
        if (box.Text() == LoadText(id, from)) box.SetText(std::u16string(LoadText(id, to)));
    };
    change(surface.txtSearch, text_id::InitialSearchText);
    change(surface.txtLn, text_id::InitialLineText);
}

void CreateElements(Surface& surface, Language language, const HostOptions& options) {
    CreatePictures(surface);
    CreateButtons(surface);
    CreateMenus(surface);
    SetTexts(surface, language);
    const auto text = [&](int id) { return std::u16string(LoadText(id, language)); };
    surface.txtSearch.SetText(text(text_id::InitialSearchText));
    surface.txtLn.SetText(text(text_id::InitialLineText));
    surface.lblScrollTip.SetCaption(text(text_id::InitialScrollTip));
    CreateBoundaries(surface, options);
}

void CreateBoundaries(Surface& surface, const HostOptions& options) {
    surface.lnGrid.UnloadAbove(surface.lnGrid.LowerBound() - 1);
    const bool shown = surface.tbMore.Button(u"Grid").Pressed;
    for (const std::int32_t column : options.BoundaryColumns) {
        LineShape& boundary = surface.lnGrid.Load();
        boundary.SetTag(DecimalText(column));
        boundary.SetVisible(shown);
    }
}

}  // namespace quorvale
