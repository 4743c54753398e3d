#pragma once

#include <functional>
#include <string>
#include <vector>

#include "control/quorvale_box_events.h"
#include "headless/export.h"

namespace quorvale {

/// Writes down every event in the order in which it was raised, as its name with the arguments in
/// parentheses: "Scrolled", "ImageClick(4)", "KeyDown(66, 0)".
class QUORVALE_HEADLESS_EXPORT EventLog final : public QuorvaleBoxEvents {
public:
    /// What a host does inside an event: called with the entry just written.
    std::function<void(const std::string& event)> OnEvent;
    /// The answer to `BeforeFileChange`.
    bool HostChangesFile = false;

    /// All events since the last `Clear`, the oldest first.
    const std::vector<std::string>& Entries() const { return entries_; }
    /// How often exactly this entry is among them.
    std::size_t Count(const std::string& event) const;
    /// Forgets all of them.
    void Clear() { entries_.clear(); }

    void MouseDown(std::int16_t button, std::int16_t shift, float x, float y) override;
    void MouseUp(std::int16_t button, std::int16_t shift, float x, float y) override;
    void SelChanged() override;
    void DblClick() override;
    void ImageClick(std::int32_t row) override;
    void KeyDown(std::int16_t keyCode, std::int16_t shift) override;
    void KeyUp(std::int16_t keyCode, std::int16_t shift) override;
    void Scrolled() override;
    void ButtonClick(const std::u16string& buttonName) override;
    void BeforeFileChange(const std::u16string& fileName, bool& changed) override;

private:
    void Write(std::string event);

    std::vector<std::string> entries_;
};

}  // namespace quorvale
