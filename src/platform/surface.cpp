#include "platform/surface.h"

namespace quorvale {

namespace {

// The designed measures of the elements, in twips.
constexpr Twips editMarkWidth = 75;
constexpr Twips glyphSize = 180;
constexpr Twips barBreadth = 255;
constexpr Twips toolbarHeight = 360;
constexpr Twips borderWidth = 240;
constexpr Twips designedRowHeight = 240;
constexpr int blinkInterval = 1000;

Label RowModel() {
    Label label("lblLine");
    label.SetHeight(designedRowHeight);
    label.SetTag(u"-1");
    return label;
}

Image StretchedModel(const char* name, Twips width, Twips height) {
    Image image(name);
    image.SetStretch(true);
    image.SetWidth(width);
    image.SetHeight(height);
    return image;
}

template <class E>
void WatchAll(ElementArray<E>& array, ElementWatcher* watcher) {
    for (E& element : array) element.Watch(watcher);
}

}  // namespace

Surface::Surface(const TextMetrics& metrics)
    : lblLine(ElementArray<Label>::WithModel(RowModel())),
      imgLine(ElementArray<Image>::WithModel(
          StretchedModel("imgLine", borderWidth - 15, designedRowHeight - 15))),
      imgExpand(ElementArray<Image>::WithModel(StretchedModel("imgExpand", glyphSize, glyphSize))),
      imgEdit(ElementArray<Image>::WithModel(
          StretchedModel("imgEdit", editMarkWidth, designedRowHeight - 15))),
      lnExpand(ElementArray<LineShape>::WithModel(LineShape("lnExpand"))),
      lnExpandTo(ElementArray<LineShape>::WithModel(LineShape("lnExpandTo"))),
      lnGrid("lnGrid", 1) {
    UserControl.SetBorderStyle(1);
    picBorder.SetWidth(borderWidth);
    scrVert.SetWidth(barBreadth);
    scrHorz.SetHeight(barBreadth);
    picCorner.SetWidth(barBreadth);
    picCorner.SetHeight(barBreadth);
    cmdMore.SetWidth(barBreadth);
    cmdMore.SetHeight(toolbarHeight);
    tbMore.SetHeight(toolbarHeight);
    tmrImage.SetInterval(blinkInterval);
    lblScrollTip.SetAutoSize(&metrics);
    lblScrollTip.SetHeight(designedRowHeight);
    imgDefaultCursor.SetVisible(false);
    lnExpand[0].SetVisible(false);
    lnExpandTo[0].SetVisible(false);
    imgExpand[0].SetVisible(false);
    imgEdit[0].SetVisible(false);
    for (Element* hidden : {static_cast<Element*>(&lblScrollTip), static_cast<Element*>(&rtbEdit),
                            static_cast<Element*>(&lvFound), static_cast<Element*>(&scrVert),
                            static_cast<Element*>(&scrHorz), static_cast<Element*>(&picCorner)}) {
        hidden->SetVisible(false);
    }
}

void Surface::Watch(ElementWatcher* watcher) {
    WatchAll(lblLine, watcher);
    WatchAll(imgLine, watcher);
    WatchAll(imgExpand, watcher);
    WatchAll(imgEdit, watcher);
    WatchAll(lnExpand, watcher);
    WatchAll(lnExpandTo, watcher);
    WatchAll(lnGrid, watcher);
    const std::initializer_list<Element*> others = {
        &UserControl,      &picBorder, &picExpand, &picCorner,    &picFocus,
        &lnBorderLeft,     &scrVert,   &scrHorz,   &lblScrollTip, &imgMarker,
        &imgDefaultCursor, &tbMore,    &cmdMore,   &txtSearch,    &txtLn,
        &rtbEdit,          &lvFound,   &mnuPopup,  &mnuCollapse,  &tmrImage};
    for (Element* element : others) element->Watch(watcher);
}

void Surface::Resize(Twips width, Twips height) {
    UserControl.SetWidth(width);
    UserControl.SetHeight(height);
    if (OnResize) OnResize();
}

}  // namespace quorvale
