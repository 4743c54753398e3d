#pragma once

#include <deque>
#include <string>
#include <vector>

#include "headless/export.h"
#include "platform/container.h"
#include "platform/message_box.h"

namespace quorvale {

/// A container without a form. It notes which properties were reported as changed.
class QUORVALE_HEADLESS_EXPORT HeadlessContainer final : public Container {
public:
    bool IsUserMode = true;                 ///< false while the form is designed
    std::u16string Name = u"QuorvaleBox1";  ///< of the control on its form
    quorvale::Font AmbientFont{u"Fixed"};   ///< what a new control starts with
    std::vector<std::u16string> Changed;    ///< the properties reported, in their order

    bool UserMode() const override { return IsUserMode; }
    std::u16string DisplayName() const override { return Name; }
    quorvale::Font Font() const override { return AmbientFont; }
    void PropertyChanged(std::u16string_view name) override { Changed.emplace_back(name); }
};

/// Message boxes that answer themselves, with prepared answers in their order; with Cancel when
/// there is none.
class QUORVALE_HEADLESS_EXPORT HeadlessMessages final : public MessageBoxes {
public:
    /// A message that was shown.
    struct Shown {
        std::u16string Text;  ///< in the language of the control
        MessageStyle Style;   ///< the buttons it had
    };

    std::deque<MessageAnswer> Answers;  ///< taken from the front
    std::vector<Shown> Log;             ///< all messages, the oldest first

    MessageAnswer Show(std::u16string_view text, MessageStyle style) override;
};

inline MessageAnswer HeadlessMessages::Show(std::u16string_view text, MessageStyle style) {
    Log.push_back({std::u16string(text), style});
    if (Answers.empty()) return MessageAnswer::Cancel;
    const MessageAnswer answer = Answers.front();
    Answers.pop_front();
    return answer;
}

}  // namespace quorvale
