#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/container.h"
#include "platform/message_box.h"

namespace quorvale {

/// A container without a form. It notes which properties were reported as changed.
class HeadlessContainer final : public Container {
public:
    bool IsUserMode = true;
    std::u16string Name = u"QuorvaleBox1";
    quorvale::Font AmbientFont{u"Fixed"};
    std::vector<std::u16string> Changed;

    bool UserMode() const override { return IsUserMode; }
    std::u16string DisplayName() const override { return Name; }
    quorvale::Font Font() const override { return AmbientFont; }
    void PropertyChanged(std::u16string_view name) override { Changed.emplace_back(name); }
};

/// Message boxes that answer themselves, with prepared answers in their order; with Cancel when
/// there is none.
class HeadlessMessages final : public MessageBoxes {
public:
    struct Shown {
        std::u16string Text;
        MessageStyle Style;
    };

    std::deque<MessageAnswer> Answers;
    std::vector<Shown> Log;

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
