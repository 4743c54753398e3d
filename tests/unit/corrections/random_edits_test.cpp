#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "base/text.h"
#include "corrections_rig.h"
#include "slow_editing.h"
#include "slow_model.h"

namespace quorvale {
namespace {

using Lines = SlowModel::Lines;

std::u16string Joined(const Lines& lines) {
    std::u16string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) text += u"\r\n";
        text += lines[i];
    }
    return text;
}

/// One random document and some edits of it, as a user makes them; after each edit the corrected
/// document must be the one that was shown with the user's lines in the place of those in the
/// editor.
class RandomEdits {
public:
    explicit RandomEdits(unsigned seed) : random_(seed) {}

    void Run(CorrectionsRig& rig) {
        const int lines = Number(1, 7);
        Lines document = SomeLines(lines, lines);
        Lines ends;
        std::u16string text;
        for (int line = 0; line < lines; ++line) {
            text += document[static_cast<std::size_t>(line)];
            if (line + 1 == lines) break;
            ends.push_back(Number(0, 1) == 0 ? u"\n" : u"\r\n");
            text += ends.back();
        }
        rig.SetText(text);
        rig.Journal.RemoveAll();
        // On screen lines are compared with what the rows show.
        if (Number(0, 1) == 0) {
            rig.ShowRows();
        } else {
            for (Label& label : rig.Elements.lblLine) label.SetTag(u"-1");
        }
        SlowModel model(std::move(document), std::move(ends));
        for (int edits = Number(1, 6); edits > 0 && !testing::Test::HasFailure(); --edits) {
            Edit(rig, model);
        }
    }

private:
    int Number(int low, int high) {
        return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
    }

    /// Few different lines, so that many are equal.
    Lines SomeLines(int least, int most) {
        static constexpr std::u16string_view common[] = {u"A", u"B", u"C", u"", u"a\tb", u"x\ry"};
        Lines lines;
        for (int left = Number(least, most); left > 0; --left) {
            lines.emplace_back(common[Number(0, Number(0, 3) == 0 ? 5 : 3)]);
        }
        return lines;
    }

    /// What the user makes of the lines in the editor: some stay, some change, some come and go.
    Lines Typed(const Lines& shown) {
        if (Number(0, 3) == 0) return SomeLines(1, 4);
        Lines typed;
        for (const std::u16string& line : shown) {
            const int what = Number(0, 9);
            if (what == 0) continue;
            if (what == 1) typed.push_back(u"new");
            typed.push_back(what == 2 ? u"changed" : line);
            if (what == 3) typed.push_back(u"B");
        }
        // Without any line the editor would still hold an empty one.
        if (typed.empty()) typed.emplace_back();
        return typed;
    }

    void Edit(CorrectionsRig& rig, SlowModel& model) {
        rig.Navigation.CaretRow = Line{Number(1, model.LineCount())};
        rig.Navigation.SelectedRowsCount = Number(-8, 8);
        rig.Editor.Open();
        ASSERT_TRUE(rig.Elements.rtbEdit.Visible());
        const int start = rig.Editing.EditStart.Number();
        const int count = rig.Editing.EditCount;
        ASSERT_EQ(SlowEditing(model.LineCount())
                      .Opened(rig.Navigation.CaretRow.Number(), rig.Navigation.SelectedRowsCount,
                              model.Corrections),
                  (UpdateRange{start, count}));
        Lines shown = model.Corrected(start, count);
        for (auto& line : model.InsertedAt(start + count)) shown.push_back(line);
        ASSERT_EQ(rig.Elements.rtbEdit.Text(), Joined(shown));

        Lines expected = model.All();
        const auto before = static_cast<std::ptrdiff_t>(model.Corrected(1, start - 1).size());
        const auto from = expected.begin() + before;
        const auto to = from + static_cast<std::ptrdiff_t>(shown.size());
        ASSERT_TRUE(std::equal(from, to, shown.begin(), shown.end()));
        const Lines typed = Typed(shown);
        const bool changed = Joined(typed) != Joined(shown);
        if (changed) {
            const auto place = expected.erase(from, to);
            expected.insert(place, typed.begin(), typed.end());
        }
        if (changed) {
            model.Corrections =
                SlowEditing::Recorded(model.Corrections, {start, count}, Joined(typed),
                                      [&rig](int line, const std::u16string& text) {
                                          return rig.Lines.RawLineText(Line{line}) == text &&
                                                 rig.Lines.LineText(Line{line}) == text;
                                      });
        }
        rig.Elements.rtbEdit.SetText(Joined(typed));
        rig.Recording.RecordEdit(true);
        ASSERT_EQ(rig.All(), model.Corrections);
        ASSERT_EQ(model.All(), expected);
        Check(rig, model);
    }

    static void Check(CorrectionsRig& rig, const SlowModel& model) {
        const int slots = rig.Document.LineSlots;
        ASSERT_EQ(rig.Corrected.BuildCorrectedText(1, slots), model.Text());
        ASSERT_EQ(rig.Corrected.FileBytes(false), ToUtf8(model.Text()));
        ASSERT_EQ(rig.Corrected.FileBytes(true), ToUtf8(model.KeptText()));
        ASSERT_EQ(rig.Corrected.CorrectedLines(1, slots - 1), model.Corrected(1, slots - 1));
        for (const Correction& each : model.Corrections) {
            ASSERT_GE(each.Start, 1);
            ASSERT_LE(each.Start, slots);
            ASSERT_LE(each.Start + each.Count, slots);
            ASSERT_TRUE(each.Count > 0 || !each.Text.empty()) << "a correction of nothing";
            for (const Correction& other : model.Corrections) {
                const bool overlap = each.Start < other.Start + other.Count &&
                                     other.Start < each.Start + each.Count && &each != &other;
                ASSERT_FALSE(overlap);
            }
        }
    }

    std::mt19937 random_;
};

constexpr unsigned sequences = 100000;
constexpr unsigned parts = 10;

/// One part of the sequences: the parts run beside one another.
class RandomEditsTest : public testing::TestWithParam<unsigned> {};

INSTANTIATE_TEST_SUITE_P(Parts, RandomEditsTest, testing::Range(0U, parts));

TEST_P(RandomEditsTest, WhatWasShownAndTypedIsWhatIsCommitted) {
    CorrectionsRig rig;
    const unsigned first = GetParam() * (sequences / parts);
    for (unsigned i = 0; i < sequences / parts && !HasFailure(); ++i) {
        RandomEdits(first + i).Run(rig);
        if (HasFailure()) ADD_FAILURE() << "with the seed " << first + i;
    }
}

}  // namespace
}  // namespace quorvale
