#include "headless/headless_box.h"

#include <utility>

#include "base/numbers_in_text.h"
#include "base/text.h"

namespace quorvale {

HeadlessBox::HeadlessBox(HeadlessSetup setup) {
    site_->IsUserMode = setup.UserMode;
    HostServices services;
    services.Metrics = metrics_;
    services.Files = setup.Files ? setup.Files : files_;
    services.Xml = setup.Xml ? setup.Xml : std::make_shared<PlainXml>();
    services.Memory = setup.Memory ? setup.Memory : std::make_shared<PlainMemory>();
    services.Site = site_;
    services.Messages = messages_;
    services.Case = setup.Case;
    services.Progress = setup.Progress;
    services.LanguageId = setup.LanguageId;
    box_ = std::make_unique<QuorvaleBox>(std::move(services), std::move(setup.Options));
    box_->SetEvents(&log_);
    Elements().Focus.OnRequest = [this](FocusChild child) { return CanHaveFocus(child); };
    box_->InitProperties();
    Resize(setup.Width, setup.Height);
    box_->Show();
}

HeadlessBox::~HeadlessBox() = default;

void HeadlessBox::Load(const std::string& bytes, const std::u16string& name) {
    files_->Put(name, bytes);
    box_->LoadFile(name);
}

std::vector<std::int32_t> HeadlessBox::RowLines() {
    std::vector<std::int32_t> lines;
    for (const Label& label : Elements().lblLine) {
        const std::int32_t line = ToLong(std::u16string_view(label.Tag()));
        const bool shown = label.Top() < Elements().UserControl.Height();
        if (shown && line >= 1 && line <= box_->LineCount()) lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> HeadlessBox::Rows() {
    std::vector<std::string> rows;
    const std::size_t shown = RowLines().size();
    for (const Label& label : Elements().lblLine) {
        if (rows.size() == shown) break;
        rows.push_back(ToUtf8(label.Caption()));
    }
    return rows;
}

void HeadlessBox::Resize(Twips width, Twips height) { Elements().Resize(width, height); }

void HeadlessBox::DragThumb(std::initializer_list<std::int32_t> values) {
    for (const std::int32_t value : values) Elements().scrVert.UserDrag(value);
    Elements().scrVert.UserRelease();
}

void HeadlessBox::TurnWheel(int rows) { Elements().scrVert.UserStepBy(rows); }

// Every action may end with the control destroyed by its host: the handler is called through a
// copy.

void HeadlessBox::EnterText() {
    const auto enter = Elements().OnEnter;
    enter();
    if (!Destroyed()) Elements().Focus.UserMovesTo(FocusChild::TextArea);
}

void HeadlessBox::FocusOn(FocusChild child) {
    if (Elements().Focus.Active() == FocusChild::None) {
        const auto enter = Elements().OnEnter;
        enter();
    }
    if (!Destroyed()) Elements().Focus.UserMovesTo(child);
}

/// What is hidden cannot have the keyboard.
bool HeadlessBox::CanHaveFocus(FocusChild child) {
    if (Destroyed()) return false;
    const bool inToolbar = child == FocusChild::SearchBox || child == FocusChild::LineBox;
    if (inToolbar) return Elements().tbMore.Visible();
    return child != FocusChild::FoundList || Elements().lvFound.Visible();
}

TextBox* HeadlessBox::BoxWithFocus() {
    switch (Elements().Focus.Active()) {
        case FocusChild::SearchBox:
            return &Elements().txtSearch;
        case FocusChild::LineBox:
            return &Elements().txtLn;
        case FocusChild::Editor:
            return &Elements().rtbEdit;
        default:
            return nullptr;
    }
}

void HeadlessBox::Type(std::u16string_view text) {
    for (const char16_t unit : text) {
        TextBox* const box = Destroyed() ? nullptr : BoxWithFocus();
        if (box == nullptr) return;
        box->SetText(box->Text() + unit);
    }
}

void HeadlessBox::PressInChild(std::int16_t keyCode, std::int16_t shift) {
    if (Elements().Focus.Active() == FocusChild::FoundList) {
        Elements().lvFound.UserKey(keyCode, shift);
    } else if (TextBox* const box = BoxWithFocus()) {
        const auto down = box->OnKeyDown;
        if (down) down(keyCode, shift);
    }
}

void HeadlessBox::Press(std::int16_t keyCode, std::int16_t shift) {
    const auto down = Elements().OnKeyDown;
    down(keyCode, shift);
    if (!Destroyed()) PressInChild(keyCode, shift);
    if (Destroyed()) return;
    const auto up = Elements().OnKeyUp;
    up(keyCode, shift);
}

void HeadlessBox::ClickMark(int slot) {
    const auto click = Elements().OnEditMarkClick;
    click(slot);
}

void HeadlessBox::PickCorrections(std::u16string_view key) {
    // The host may destroy the control, and its menu, before it is done.
    Menu& menu = Elements().mnuPopup;
    const auto pick = menu.OnPick;
    menu.UserCancel();
    pick(std::u16string(key));
}

void HeadlessBox::TypeInEditor(std::u16string text) { Elements().rtbEdit.SetText(std::move(text)); }

std::int16_t HeadlessBox::PressInEditor(std::int16_t keyCode, std::int16_t shift) {
    const auto down = Elements().rtbEdit.OnKeyDown;
    down(keyCode, shift);
    if (Destroyed() || keyCode != key_code::Return) return keyCode;
    TextBox& editor = Elements().rtbEdit;
    std::u16string text = editor.Text();
    const std::size_t at = editor.SelStart();
    text.replace(at, editor.SelLength(), u"\r\n");
    editor.SetText(std::move(text));
    editor.Select(at + 2, 0);
    return keyCode;
}

void HeadlessBox::Leave() {
    Elements().Focus.UserMovesTo(FocusChild::None);
    const auto exit = Elements().OnExit;
    exit();
}

void HeadlessBox::MousePress(int slot, const MouseEvent& event) {
    const auto press = Elements().OnRowMouseDown;
    press(slot, event);
}

void HeadlessBox::MouseMove(int slot, const MouseEvent& event) {
    const auto move = Elements().OnRowMouseMove;
    move(slot, event);
}

void HeadlessBox::MouseRelease(int slot, const MouseEvent& event) {
    const auto release = Elements().OnRowMouseUp;
    release(slot, event);
}

void HeadlessBox::DoubleClick(int slot, const MouseEvent& event) {
    MousePress(slot, event);
    if (!Destroyed()) MouseRelease(slot, event);
    if (Destroyed()) return;
    const auto doubleClick = Elements().OnRowDblClick;
    doubleClick(slot);
    if (!Destroyed()) MouseRelease(slot, event);
}

}  // namespace quorvale
