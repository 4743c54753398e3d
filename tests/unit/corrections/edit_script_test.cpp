#include "corrections/edit_script.h"

#include <gtest/gtest.h>

#include <random>

#include "base/numbers_in_text.h"
#include "base/text.h"
#include "corrections/tokens.h"
#include "corrections_rig.h"

namespace quorvale {
namespace {

/// The script for `count` lines from `first` on, its steps separated by blanks.
std::string Script(std::initializer_list<UpdateRange> ranges, std::int32_t first = 1,
                   std::int32_t count = 4) {
    std::vector<Update> updates;
    for (const UpdateRange& range : ranges) updates.push_back({nullptr, range, updates.size()});
    const std::u16string text = ScriptText(MakeEditScript(first, count, updates));
    return ToUtf8(ReplaceAll(text, u"\r", u" "));
}

TEST(EditScript, WithoutCorrectionsAllLinesAreCopied) {
    EXPECT_EQ(Script({}), "o1:4 ");
    EXPECT_EQ(Script({}, 2, 1), "o2:2 ");
}

TEST(EditScript, EveryStepEndsWithACarriageReturn) {
    std::vector<Update> updates{{nullptr, {2, 1}, 0}};
    EXPECT_EQ(ScriptText(MakeEditScript(1, 4, updates)), u"o1:1\rm0\ro3:4\r");
}

TEST(EditScript, AnInsertionSplitsTheLines) { EXPECT_EQ(Script({{2, 0}}), "o1:1 m0 o2:4 "); }

TEST(EditScript, NoEmptyRunIsLeftAtTheEdges) {
    EXPECT_EQ(Script({{1, 1}}), "m0 o2:4 ");
    EXPECT_EQ(Script({{3, 2}}), "o1:2 m0 ");
    EXPECT_EQ(Script({{1, 4}}), "m0 ");
    EXPECT_EQ(Script({{1, 3}}), "m0 o4:4 ");
}

TEST(EditScript, ACorrectionPastTheEndLeavesARunThatCopiesNothing) {
    EXPECT_EQ(Script({{3, 5}}), "o1:2 m0 o8:4 ");
}

TEST(EditScript, CorrectionsAreAppliedInTheirOrderAndKeepTheirNumber) {
    EXPECT_EQ(Script({{3, 1}, {1, 1}}), "m1 o2:2 m0 o4:4 ");
}

TEST(EditScript, CorrectionsOutsideTheLinesAreLeftOut) {
    EXPECT_EQ(Script({{0, 1}, {5, 1}}), "o1:4 ");
    EXPECT_EQ(Script({{4, 0}}), "o1:3 m0 o4:4 ");
    EXPECT_EQ(Script({{1, 1}, {3, 1}}, 2, 1), "o2:2 ");
}

TEST(EditScript, OfTwoThatOverlapTheLaterIsLeftOut) {
    EXPECT_EQ(Script({{2, 3}, {3, 1}}), "o1:1 m0 ");
    EXPECT_EQ(Script({{3, 1}, {2, 3}}), "o1:1 m1 o5:2 m0 o4:4 ");
}

TEST(EditScript, AnInsertionSurvivesBesideAReplacementThatFollowsIt) {
    EXPECT_EQ(Script({{3, 0}, {3, 1}}), "o1:2 m0 m1 o4:4 ");
    EXPECT_EQ(Script({{3, 1}, {3, 0}}), "o1:2 m0 o4:4 ");
    EXPECT_EQ(Script({{3, 0}, {3, 0}}), "o1:2 m0 m1 o3:4 ");
}

TEST(EditScript, ARunThatCopiesNothingHidesNoOther) {
    EXPECT_EQ(Script({{3, 2}, {2, 6}, {8, 1}}, 1, 9), "o1:1 m1 o8:2 m0 o5:7 m2 o9:9 ");
}

/// A number taken off the front of a text.
std::int32_t TakeNumber(std::u16string& text, char16_t separator) {
    return ToLong(std::u16string_view(TakeFirstToken(text, separator)));
}

/// The script made by taking a text apart and putting it together again for each correction.
std::u16string SlowScript(std::int32_t first, std::int32_t count,
                          const std::vector<Update>& updates) {
    std::u16string script =
        u'o' + DecimalText(first) + u':' + DecimalText(first + count - 1) + u'\r';
    for (const Update& update : updates) {
        const std::int32_t s = update.Range.Start;
        if (s >= first + count || s < first) continue;
        std::u16string made;
        while (!script.empty()) {
            const std::u16string step = TakeFirstToken(script, u'\r');
            std::u16string numbers = step.substr(1);
            const std::int32_t a = TakeNumber(numbers, u':');
            const std::int32_t b = step[0] == u'o' ? TakeNumber(numbers, u':') : 0;
            if (step[0] == u'm' || s < a || s > b) {
                made += step + u'\r';
                continue;
            }
            if (a != s) made += u'o' + DecimalText(a) + u':' + DecimalText(s - 1) + u'\r';
            made += u'm' + DecimalText(static_cast<std::int64_t>(update.Number)) + u'\r';
            const std::int32_t behind = update.Range.End();
            if (b != behind - 1) made += u'o' + DecimalText(behind) + u':' + DecimalText(b) + u'\r';
            break;
        }
        script = made + script;
    }
    return script;
}

TEST(EditScript, IsTheOneThatIsMadeOfTexts) {
    std::mt19937 random(17);
    for (int round = 0; round < 20000; ++round) {
        std::vector<Update> updates;
        for (auto left = random() % 9; left > 0; --left) {
            const auto start = static_cast<std::int32_t>(random() % 14) - 1;
            updates.push_back(
                {nullptr, {start, static_cast<std::int32_t>(random() % 5)}, updates.size()});
        }
        const auto first = static_cast<std::int32_t>(1 + random() % 4);
        const auto count = static_cast<std::int32_t>(1 + random() % 10);
        ASSERT_EQ(ScriptText(MakeEditScript(first, count, updates)),
                  SlowScript(first, count, updates))
            << round;
    }
}

TEST(EditScript, ManyCorrectionsTakeNoTimeToSpeakOf) {
    std::vector<Update> updates;
    for (std::int32_t i = 0; i < 200000; ++i) updates.push_back({nullptr, {i * 2 + 1, 1}, 0});
    EXPECT_EQ(MakeEditScript(1, 400000, updates).size(), 400000U);
}

}  // namespace
}  // namespace quorvale
