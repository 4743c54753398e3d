#include "corrections/journal_index.h"

#include <gtest/gtest.h>

#include <random>

#include "base/errors.h"
#include "corrections/journal.h"
#include "corrections_rig.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

class JournalIndexTest : public testing::Test {
protected:
    JournalIndexTest() { rig.Journal.Open(nullptr); }

    /// The text of the correction found; nothing when there is none.
    std::optional<std::u16string> Found(std::int32_t line) {
        const Update* update = rig.Index.FindCorrection(Line{line});
        if (update == nullptr) return std::nullopt;
        return UpdateText(*update->Node);
    }

    UpdateRange Expanded(std::int32_t start, std::int32_t count) {
        rig.Index.ExpandToCorrections(start, count);
        return {start, count};
    }

    CorrectionsRig rig;
};

TEST_F(JournalIndexTest, ACorrectionCoversItsLinesAndNoOther) {
    rig.Put({{2, 3, u"X\n"}});
    EXPECT_EQ(Found(1), std::nullopt);
    for (const int line : {2, 3, 4}) EXPECT_EQ(Found(line), u"X\n") << line;
    EXPECT_EQ(Found(5), std::nullopt);
}

TEST_F(JournalIndexTest, AnInsertionCoversNoLine) {
    rig.Put({{2, 0, u"X\n"}});
    for (const int line : {1, 2, 3}) EXPECT_EQ(Found(line), std::nullopt) << line;
    EXPECT_EQ(rig.Index.Updates().size(), 1U);
}

TEST_F(JournalIndexTest, OfTwoThatCoverALineTheFirstInTheDocumentIsFound) {
    rig.Put({{3, 2, u"first\n"}, {1, 9, u"second\n"}});
    EXPECT_EQ(Found(2), u"second\n");
    EXPECT_EQ(Found(3), u"first\n");
    EXPECT_EQ(Found(4), u"first\n");
    EXPECT_EQ(Found(5), u"second\n");
}

TEST_F(JournalIndexTest, AnyNumberIsLookedUp) {
    rig.Put({{2, 1, u"X\n"}});
    for (const int line : {0, -1, 9, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(Found(line), std::nullopt) << line;
    }
    rig.Put({{-3, 4, u"below\n"}, {2147483640, 7, u"above\n"}});
    EXPECT_EQ(Found(0), u"below\n");
    EXPECT_EQ(Found(2147483646), u"above\n");
    EXPECT_EQ(Found(2147483647), std::nullopt);
}

TEST_F(JournalIndexTest, WithoutAJournalNothingIsFound) {
    rig.Put({{2, 1, u"X\n"}});
    ASSERT_NE(Found(2), std::nullopt);
    rig.Journal.Drop();
    EXPECT_EQ(Found(2), std::nullopt);
    EXPECT_TRUE(rig.Index.Updates().empty());
}

TEST_F(JournalIndexTest, EveryChangeIsSeen) {
    EXPECT_EQ(Found(2), std::nullopt);
    rig.Put({{2, 1, u"X\n"}});
    EXPECT_EQ(Found(2), u"X\n");
    rig.Journal.Remove(*rig.Corrections.JournalRoot->FirstChild());
    EXPECT_EQ(Found(2), std::nullopt);
    rig.Put({{2, 1, u"Y\n"}});
    EXPECT_EQ(Found(2), u"Y\n");
    rig.Journal.RemoveAll();
    EXPECT_EQ(Found(2), std::nullopt);
}

TEST_F(JournalIndexTest, UselessOnesAreSkippedAndKeepTheirNumber) {
    rig.PutUpdate({{u"start", u"abc"}, {u"loc", u"1"}});
    rig.Put({{2, 1, u"X\n"}});
    rig.PutUpdate({{u"start", u"2"}});
    rig.PutUpdate({{u"start", u"2"}, {u"loc", u"-2"}});
    rig.Put({{3, 1, u"Y\n"}});
    EXPECT_EQ(rig.Index.CountOfAll(), 5U);
    ASSERT_EQ(rig.Index.Updates().size(), 2U);
    EXPECT_EQ(rig.Index.Updates()[0].Number, 1U);
    EXPECT_EQ(rig.Index.Updates()[1].Number, 4U);
    EXPECT_EQ(Found(2), u"X\n");
}

TEST_F(JournalIndexTest, NestedOnesCountTheOuterFirst) {
    const XmlNodePtr outer = CreateUpdate({2, 1}, u"outer\n");
    outer->AppendChild(CreateUpdate({2, 2}, u"inner\n"));
    rig.Journal.Append(outer);
    EXPECT_EQ(Found(2), u"outer\n");
    EXPECT_EQ(Found(3), u"inner\n");
}

TEST_F(JournalIndexTest, ARangeIsWidenedToWhatItMeets) {
    rig.Put({{3, 3, u""}});
    EXPECT_EQ(Expanded(5, 1), (UpdateRange{3, 3}));
    EXPECT_EQ(Expanded(6, 1), (UpdateRange{6, 1}));
    EXPECT_EQ(Expanded(2, 1), (UpdateRange{2, 1}));
    rig.Journal.RemoveAll();
    rig.Put({{6, 4, u""}});
    EXPECT_EQ(Expanded(5, 2), (UpdateRange{5, 5}));
    EXPECT_EQ(Expanded(4, 2), (UpdateRange{4, 2}));
}

TEST_F(JournalIndexTest, AnInsertionWidensNothing) {
    rig.Put({{5, 0, u"X\n"}});
    EXPECT_EQ(Expanded(5, 1), (UpdateRange{5, 1}));
    EXPECT_EQ(Expanded(4, 1), (UpdateRange{4, 1}));
    rig.Journal.RemoveAll();
    rig.Put({{6, 0, u"X\n"}});
    EXPECT_EQ(Expanded(5, 1), (UpdateRange{5, 1}));
}

TEST_F(JournalIndexTest, ACorrectionIsLookedAtOnce) {
    rig.Put({{2, 3, u""}, {4, 2, u""}});
    EXPECT_EQ(Expanded(5, 1), (UpdateRange{4, 2}));
    rig.Journal.RemoveAll();
    rig.Put({{4, 2, u""}, {2, 3, u""}});
    EXPECT_EQ(Expanded(5, 1), (UpdateRange{2, 4}));
}

TEST_F(JournalIndexTest, ARangePastAllNumbersIsRefused) {
    rig.Put({{-2147483647, 2147483647, u""}, {-1, 2147483647, u""}});
    EXPECT_EQ(ErrorOf([&] { Expanded(-5, 9); }), ErrorKind::Overflow);
}

TEST_F(JournalIndexTest, FindsTheSameAsALookAtEveryCorrection) {
    std::mt19937 random(11);
    for (int round = 0; round < 500; ++round) {
        rig.Journal.RemoveAll();
        for (auto left = random() % 12; left > 0; --left) {
            const auto start = static_cast<std::int32_t>(random() % 20);
            rig.Put({{start, static_cast<std::int32_t>(random() % 8), u""}});
        }
        for (std::int32_t line = -1; line < 30; ++line) {
            const Update* expected = nullptr;
            for (const Update& update : rig.Index.Updates()) {
                if (line < update.Range.Start || line >= update.Range.End()) continue;
                expected = &update;
                break;
            }
            ASSERT_EQ(rig.Index.FindCorrection(Line{line}), expected) << round << ' ' << line;
        }
    }
}

}  // namespace
}  // namespace quorvale
