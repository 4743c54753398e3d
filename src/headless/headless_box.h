#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "control/quorvale_box.h"
#include "headless/event_log.h"
#include "headless/fixed_metrics.h"
#include "headless/headless_host.h"
#include "platform/memory_files.h"
#include "platform/plain_xml.h"

namespace quorvale {

/// What a headless control starts with.
struct HeadlessSetup {
    HostOptions Options;
    Twips Width = 12000;
    Twips Height = 7560;
    int LanguageId = 1033;
    bool UserMode = true;
    /// Files, XML and memory other than the ones of this library; null for those.
    std::shared_ptr<FileSystem> Files;
    std::shared_ptr<XmlService> Xml;
    std::shared_ptr<BlockMemory> Memory;
    /// Null for Unicode's rules of case, and for nobody who hears of long searches.
    std::shared_ptr<CaseRules> Case;
    std::shared_ptr<SearchProgress> Progress;
};

/// A whole control without a window, for tests: fixed text measures, files in memory, a clock that
/// is ticked by hand, and the actions of a user. With the standard setup a row is 240 twips high, a
/// character 120 wide, and 30 rows fit. The control is created, sized and shown.
class HeadlessBox {
public:
    explicit HeadlessBox(HeadlessSetup setup = {});
    ~HeadlessBox();

    QuorvaleBox& Box() { return *box_; }
    QuorvaleBox* operator->() { return box_.get(); }
    Surface& Elements() { return box_->Elements(); }

    FixedMetrics& Metrics() { return *metrics_; }
    /// The files in memory; unused when the setup brought its own.
    MemoryFiles& Files() { return *files_; }
    HeadlessContainer& Site() { return *site_; }
    HeadlessMessages& Messages() { return *messages_; }
    EventLog& Log() { return log_; }

    /// Puts the bytes into a file in memory and loads it.
    void Load(const std::string& bytes, const std::u16string& name = u"/doc.txt");

    /// Destroys the control, also from within one of its events.
    void Destroy() { box_.reset(); }
    bool Destroyed() const { return box_ == nullptr; }

    // What is seen.

    /// The rows that show a line, from the top, as UTF-8.
    std::vector<std::string> Rows();
    /// The lines they show.
    std::vector<std::int32_t> RowLines();

    // What a user does.

    void Resize(Twips width, Twips height);
    /// Drags the vertical thumb over these values and lets it go at the last.
    void DragThumb(std::initializer_list<std::int32_t> values);
    /// Turns the wheel by whole rows; down is positive.
    void TurnWheel(int rows);
    /// The keyboard comes to the control's text.
    void EnterText();
    /// The keyboard comes to another element of the control.
    void FocusOn(FocusChild child);
    /// Puts characters behind what stands in the box that has the keyboard, one after the other.
    void Type(std::u16string_view text);
    /// A key goes down and up again, wherever the keyboard is in the control.
    void Press(std::int16_t keyCode, std::int16_t shift = 0);
    /// The mouse on a row, with places relative to the row's label. After a press the pressed row
    /// gets the moves and the release, wherever the mouse is.
    void MousePress(int slot, const MouseEvent& event);
    void MouseMove(int slot, const MouseEvent& event);
    void MouseRelease(int slot, const MouseEvent& event);
    /// Press, release, double click and second release, as a window delivers them.
    void DoubleClick(int slot, const MouseEvent& event);
    /// The mark of a corrected row is clicked.
    void ClickMark(int slot);
    /// An entry of the corrections menu is picked.
    void PickCorrections(std::u16string_view key);
    /// The text in the editor is replaced by another one.
    void TypeInEditor(std::u16string text);
    /// A key goes down in the editor. Enter types a line break unless the control swallows it.
    /// Returns the key's code as the control left it.
    std::int16_t PressInEditor(std::int16_t keyCode, std::int16_t shift = 0);
    /// The keyboard leaves the control.
    void Leave();
    /// The timer's interval passes.
    void TickTimer() { Elements().tmrImage.Tick(); }

private:
    TextBox* BoxWithFocus();
    bool CanHaveFocus(FocusChild child);
    void PressInChild(std::int16_t keyCode, std::int16_t shift);

    std::shared_ptr<FixedMetrics> metrics_ = std::make_shared<FixedMetrics>();
    std::shared_ptr<MemoryFiles> files_ = std::make_shared<MemoryFiles>();
    std::shared_ptr<HeadlessContainer> site_ = std::make_shared<HeadlessContainer>();
    std::shared_ptr<HeadlessMessages> messages_ = std::make_shared<HeadlessMessages>();
    EventLog log_;
    std::unique_ptr<QuorvaleBox> box_;
};

}  // namespace quorvale
