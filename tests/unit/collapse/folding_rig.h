#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "collapse/folding.h"

namespace quorvale {

using Log = std::vector<std::string>;

/// Writes down what folding asks of the others, and lets the caret follow.
class RecordingPeers final : public FoldingPeers {
public:
    explicit RecordingPeers(NavigationState& navigation) : navigation_(navigation) {}

    Log Calls;

    void FillRows() override { Calls.emplace_back("FillRows"); }
    void LayoutView() override { Calls.emplace_back("LayoutView"); }
    void StoreRow(Line row) override { navigation_.CaretRow = row; }
    void SetRow(Line row) override {
        Calls.push_back("SetRow " + std::to_string(row.Number()));
        if (navigation_.CaretRow == row) return;
        navigation_.CaretRow = row;
        ++navigation_.CaretMoves;
    }
    void CaretMoved() override { Calls.emplace_back("CaretMoved"); }

private:
    NavigationState& navigation_;
};

/// A document of which only the depths matter, 100 lines unless told otherwise.
class FoldingTest : public testing::Test {
protected:
    FoldingTest() { SetLines(100); }

    void SetLines(std::int32_t lines) {
        document.LineSlots = lines + 1;
        document.Table.HiddenDepth.Reset(document.LineSlots, 0);
        navigation.CaretRow = Line{1};
    }

    void Register(std::int32_t from, std::int32_t to) { collapse.Ranges.push_back({from, to, 0}); }

    std::int16_t Depth(std::int32_t line) { return document.HiddenDepth(Line{line}); }

    void ExpectDepths(std::int32_t from, std::int32_t to, std::int16_t depth) {
        for (std::int32_t line = from; line <= to; ++line) EXPECT_EQ(Depth(line), depth) << line;
    }

    /// The depths as they follow from the list, line by line.
    std::vector<std::int16_t> Recount() {
        std::vector<std::int16_t> depths(static_cast<std::size_t>(document.LineSlots) + 1, 0);
        for (const CollapseRange& range : collapse.Ranges) {
            for (std::int32_t i = range.FromRow + 1; i <= range.ToRow; ++i) {
                if (i > document.LineSlots) return depths;
                ++depths[static_cast<std::size_t>(i)];
            }
        }
        return depths;
    }

    void ExpectRecounted() {
        const auto expected = Recount();
        for (std::int32_t line = 1; line <= document.LineSlots; ++line) {
            ASSERT_EQ(Depth(line), expected[static_cast<std::size_t>(line)]) << line;
        }
    }

    DocumentState document;
    NavigationState navigation;
    CollapseState collapse;
    ViewState view;
    RecordingPeers peers{navigation};
    Folding folding{document, navigation, collapse, view, peers};
};

}  // namespace quorvale
