#include "control/event_forwarding.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "control/member_table.h"

namespace quorvale {
namespace {

/// Keeps what arrives; `Answer` may write into the arguments.
class RecordingSink final : public EventSink {
public:
    void OnEvent(std::int32_t id, std::span<Variant> arguments) override {
        Events.emplace_back(id, std::vector<Variant>(arguments.begin(), arguments.end()));
        if (Answer) Answer(arguments);
    }

    std::vector<std::pair<std::int32_t, std::vector<Variant>>> Events;
    std::function<void(std::span<Variant>)> Answer;
};

bool IsOfType(const Variant& value, ValueType type) {
    switch (type) {
        case ValueType::Long:
            return std::holds_alternative<std::int32_t>(value);
        case ValueType::Integer:
            return std::holds_alternative<std::int16_t>(value);
        case ValueType::Single:
            return std::holds_alternative<float>(value);
        case ValueType::Boolean:
            return std::holds_alternative<bool>(value);
        case ValueType::String:
            return std::holds_alternative<std::u16string>(value);
        default:
            return false;
    }
}

struct Raised {
    std::string Name;
    std::int32_t Id;
    std::function<void(QuorvaleBoxEvents&)> Raise;
    std::vector<Variant> Arguments;
};

std::vector<Raised> AllEvents() {
    using Events = QuorvaleBoxEvents;
    const std::int16_t one = 1;
    const std::int16_t four = 4;
    bool changed = false;
    return {
        {"MouseDown", 1, [](Events& e) { e.MouseDown(1, 4, 1.5F, -2); }, {one, four, 1.5F, -2.0F}},
        {"MouseUp", 8, [](Events& e) { e.MouseUp(4, 1, 0, 7); }, {four, one, 0.0F, 7.0F}},
        {"SelChanged", 6, [](Events& e) { e.SelChanged(); }, {}},
        {"DblClick", 2, [](Events& e) { e.DblClick(); }, {}},
        {"ImageClick", 3, [](Events& e) { e.ImageClick(70000); }, {std::int32_t{70000}}},
        {"KeyDown", 4, [](Events& e) { e.KeyDown(1, 4); }, {one, four}},
        {"KeyUp", 7, [](Events& e) { e.KeyUp(4, 1); }, {four, one}},
        {"Scrolled", 5, [](Events& e) { e.Scrolled(); }, {}},
        {"ButtonClick", 9, [](Events& e) { e.ButtonClick(u"Mine"); }, {std::u16string(u"Mine")}},
        {"BeforeFileChange",
         10,
         [changed](Events& e) mutable { e.BeforeFileChange(u"/a/b.txt", changed); },
         {std::u16string(u"/a/b.txt"), false}},
    };
}

TEST(EventForwarding, EveryEventArrivesUnderItsIdWithItsArguments) {
    ASSERT_EQ(AllEvents().size(), DescribeEvents().size());
    for (const auto& event : AllEvents()) {
        SCOPED_TRACE(event.Name);
        RecordingSink sink;
        EventForwarding forwarding(sink);
        event.Raise(forwarding);
        ASSERT_EQ(sink.Events.size(), 1U);
        EXPECT_EQ(sink.Events[0].first, event.Id);
        EXPECT_EQ(sink.Events[0].second, event.Arguments);
    }
}

TEST(EventForwarding, ArgumentsHaveTheTypesOfTheDescription) {
    const auto all = AllEvents();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto& description = DescribeEvents()[i];
        SCOPED_TRACE(description.Name);
        ASSERT_EQ(description.Name, all[i].Name);
        EXPECT_EQ(description.Id, all[i].Id);
        RecordingSink sink;
        EventForwarding forwarding(sink);
        all[i].Raise(forwarding);
        const auto& arguments = sink.Events.at(0).second;
        ASSERT_EQ(arguments.size(), description.Parameters.size());
        for (std::size_t k = 0; k < arguments.size(); ++k) {
            EXPECT_TRUE(IsOfType(arguments[k], description.Parameters[k].Type)) << k;
        }
    }
}

TEST(EventForwarding, TheAnswerToAFileChangeIsReadBack) {
    const std::vector<std::pair<Variant, bool>> answers{
        {true, true},
        {false, false},
        {std::int16_t{-1}, true},
        {std::int32_t{0}, false},
        {std::u16string(u"True"), true},
        {std::monostate{}, false},
    };
    for (const auto& [answer, expected] : answers) {
        RecordingSink sink;
        sink.Answer = [&](std::span<Variant> arguments) { arguments[1] = answer; };
        EventForwarding forwarding(sink);
        bool changed = false;
        forwarding.BeforeFileChange(u"x", changed);
        EXPECT_EQ(changed, expected) << answer.index();
    }
}

TEST(EventForwarding, AFileChangeLeftAloneStaysAsItWas) {
    RecordingSink sink;
    EventForwarding forwarding(sink);
    bool changed = true;
    forwarding.BeforeFileChange(u"x", changed);
    EXPECT_TRUE(changed);
    EXPECT_EQ(sink.Events.at(0).second.at(1), Variant(true));
}

TEST(EventForwarding, AnUnreadableAnswerIsATypeMismatch) {
    RecordingSink sink;
    sink.Answer = [](std::span<Variant> arguments) { arguments[1] = std::u16string(u"perhaps"); };
    EventForwarding forwarding(sink);
    bool changed = false;
    try {
        forwarding.BeforeFileChange(u"x", changed);
        ADD_FAILURE() << "nothing failed";
    } catch (const ControlError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::TypeMismatch);
    }
}

TEST(EventForwarding, WhatAHandlerWritesIntoOtherArgumentsGoesNowhere) {
    RecordingSink sink;
    sink.Answer = [](std::span<Variant> arguments) {
        for (auto& argument : arguments) argument = std::u16string(u"gone");
    };
    EventForwarding forwarding(sink);
    const std::u16string name = u"Mine";
    forwarding.ButtonClick(name);
    forwarding.KeyDown(65, 0);
    EXPECT_EQ(name, u"Mine");
    EXPECT_EQ(sink.Events.size(), 2U);
}

TEST(EventForwarding, ASinkMayDestroyItFromWithinAnEvent) {
    RecordingSink sink;
    auto forwarding = std::make_unique<EventForwarding>(sink);
    sink.Answer = [&](std::span<Variant>) { forwarding.reset(); };
    bool changed = false;
    forwarding->BeforeFileChange(u"x", changed);
    EXPECT_EQ(forwarding, nullptr);
}

}  // namespace
}  // namespace quorvale
