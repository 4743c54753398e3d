#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "control/quorvale_box.h"
#include "headless/event_log.h"
#include "headless/export.h"
#include "headless/fixed_metrics.h"
#include "headless/headless_host.h"
#include "platform/memory_files.h"
#include "platform/plain_xml.h"

namespace quorvale {

/// What a headless control starts with.
struct HeadlessSetup {
    HostOptions Options;                       ///< what is switched on
    Twips Width = 12000;                       ///< of the control
    Twips Height = 7560;                       ///< of the control, its toolbar included
    int LanguageId = 1033;                     ///< as in HostServices
    bool UserMode = true;                      ///< false while the form is designed
    std::shared_ptr<FileSystem> Files;         ///< null for files in memory
    std::shared_ptr<XmlService> Xml;           ///< null for PlainXml
    std::shared_ptr<BlockMemory> Memory;       ///< null for the allocator's
    std::shared_ptr<CaseRules> Case;           ///< null for Unicode's
    std::shared_ptr<SearchProgress> Progress;  ///< null for nobody
};

/// A whole control without a window, for tests: fixed text measures, files in memory, a clock that
/// is ticked by hand, and the actions of a user. With the standard setup a row is 240 twips high, a
/// character 120 wide, and 30 rows fit. The control is created, sized and shown.
class QUORVALE_HEADLESS_EXPORT HeadlessBox {
public:
    /// Creates, sizes and shows the control.
    explicit HeadlessBox(HeadlessSetup setup = {});
    ~HeadlessBox();

    /// The control; not to be asked for once it is destroyed.
    QuorvaleBox& Box() { return *box_; }
    /// Its members, as in `view->LineText(2)`.
    QuorvaleBox* operator->() { return box_.get(); }
    /// What a surface would show.
    Surface& Elements() { return box_->Elements(); }

    /// The measures of text, which may be changed or let fail.
    FixedMetrics& Metrics() { return *metrics_; }
    /// The files in memory; unused when the setup brought its own.
    MemoryFiles& Files() { return *files_; }
    /// The form around the control.
    HeadlessContainer& Site() { return *site_; }
    /// The messages shown, and the answers to the next ones.
    HeadlessMessages& Messages() { return *messages_; }
    /// The events raised.
    EventLog& Log() { return log_; }

    /// Puts the bytes into a file in memory and loads it.
    void Load(const std::string& bytes, const std::u16string& name = u"/doc.txt");

    /// Destroys the control, also from within one of its events.
    void Destroy() { box_.reset(); }
    /// Whether `Destroy` was called.
    bool Destroyed() const { return box_ == nullptr; }

    // What is seen.

    /// The rows that show a line, from the top, as UTF-8.
    std::vector<std::string> Rows();
    /// The lines they show.
    std::vector<std::int32_t> RowLines();

    // What a user does.

    /// The control gets another size.
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
    /// A button goes down on a row, counted from 0 at the top, at a place relative to its label.
    void MousePress(int slot, const MouseEvent& event);
    /// The mouse moves; after a press the pressed row hears of it, wherever the mouse is.
    void MouseMove(int slot, const MouseEvent& event);
    /// The button comes up again; the pressed row hears of it.
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
