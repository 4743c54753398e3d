#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "control/member_table.h"
#include "found_rows.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// One way in which a user makes an event happen.
struct UsersCause {
    const char* Event;
    const char* What;
    std::function<void(HeadlessBox&)> Act;
};

constexpr std::int16_t left = 1;
constexpr std::int16_t f12 = 0x7B;

const std::vector<UsersCause>& UsersCauses() {
    static const std::vector<UsersCause> causes{
        {"MouseDown", "a press",
         [](auto& box) {
             box.MousePress(3, {left, 0, 130, 10});
         }},
        {"MouseDown", "a press on the marker",
         [](auto& box) {
             box.Elements().OnMarkerMouseDown({left, 0, 5, 5});
         }},
        {"MouseUp", "a release",
         [](auto& box) {
             box.MousePress(3, {left, 0, 130, 10});
             box.MouseRelease(3, {left, 0, 130, 10});
         }},
        {"SelChanged", "a press",
         [](auto& box) {
             box.MousePress(3, {left, 0, 130, 10});
         }},
        {"SelChanged", "a key", [](auto& box) { box.Press(key_code::Down); }},
        {"DblClick", "a double click",
         [](auto& box) {
             box.DoubleClick(3, {left, 0, 130, 10});
         }},
        {"ImageClick", "a picture's click",
         [](auto& box) {
             const auto click = box.Elements().OnLineImageClick;
             click(3);
         }},
        {"KeyDown", "a host's key", [](auto& box) { box.Press(f12); }},
        {"KeyUp", "a host's key", [](auto& box) { box.Press(f12); }},
        {"KeyUp", "one of the control's", [](auto& box) { box.Press(key_code::Down); }},
        {"Scrolled", "dragging", [](auto& box) { box.DragThumb({50}); }},
        {"Scrolled", "a key", [](auto& box) { box.Press(key_code::PageDown); }},
        {"Scrolled", "the line box",
         [](auto& box) {
             box.Elements().txtLn.SetText(u"180");
             box.FocusOn(FocusChild::LineBox);
             box.Press(key_code::Return);
         }},
        {"Scrolled", "a search",
         [](auto& box) {
             box->SearchText(u"L150");
             box.Elements().tbMore.UserClick(u"Find");
         }},
        {"ButtonClick", "Grid", [](auto& box) { box.Elements().tbMore.UserClick(u"Grid"); }},
        {"ButtonClick", "a host's", [](auto& box) { box.Elements().tbMore.UserClick(u".Mine"); }},
        {"BeforeFileChange", "a result",
         [](auto& box) {
             box->SearchFiles(u"/doc.txt\r/other");
             FindAll(box, u"o7");
             box.Elements().lvFound.UserDoubleClick(1);
         }},
    };
    return causes;
}

TEST(DestroyedInEvents, EveryEventHasACause) {
    std::set<std::string> caused;
    for (const UsersCause& cause : UsersCauses()) caused.insert(cause.Event);
    for (const EventDescription& event : DescribeEvents()) {
        EXPECT_EQ(caused.count(std::string(event.Name)), 1U) << event.Name;
    }
}

TEST(DestroyedInEvents, AControlThatItsHostDestroysInAUsersActionSaysNothingMore) {
    for (const UsersCause& cause : UsersCauses()) {
        SCOPED_TRACE(std::string(cause.What) + " raises " + cause.Event);
        HeadlessBox box;
        box.Files().Put(u"/other", DocFile(80, 'o'));
        box.Load(DocFile(200));
        box->AddButton(u"Mine", std::make_shared<Picture>("mine", 240, 240));
        box->CollapseLines(20, 60);
        box.EnterText();
        box.Log().OnEvent = [&](const std::string& event) {
            const std::string name = event.substr(0, event.find('('));
            if (name == cause.Event) box.Destroy();
        };
        EXPECT_NO_THROW(cause.Act(box));
        ASSERT_TRUE(box.Destroyed()) << "the event was never raised";
        const std::string& last = box.Log().Entries().back();
        EXPECT_EQ(last.substr(0, last.find('(')), cause.Event);
    }
}

}  // namespace
}  // namespace quorvale
