#include "qt/row_news.h"

#include <algorithm>

namespace quorvale {

namespace {

bool isSameLine(const SpokenRow& a, const SpokenRow& b) { return a.Line == b.Line; }

void addChanges(const SpokenRow& before, const SpokenRow& now, std::vector<RowNews>& news) {
    if (before.Text != now.Text) news.push_back({NewsKind::Text, now.Line});
    if (before.Corrected != now.Corrected || before.Folded != now.Folded) {
        news.push_back({NewsKind::Description, now.Line});
    }
    if (before.Corrected != now.Corrected) news.push_back({NewsKind::Mark, now.Line});
    if (before.CanFold != now.CanFold || before.Folded != now.Folded) {
        news.push_back({NewsKind::Fold, now.Line});
    }
    if (before.Selected != now.Selected) news.push_back({NewsKind::Selection, now.Line});
}

/// Both are in the order of their lines.
void addRows(const std::vector<SpokenRow>& before, const std::vector<SpokenRow>& now,
             std::vector<RowNews>& news) {
    auto old = before.begin();
    for (const SpokenRow& row : now) {
        while (old != before.end() && old->Line < row.Line) ++old;
        if (old != before.end() && old->Line == row.Line) addChanges(*old, row, news);
    }
}

}  // namespace

std::vector<RowNews> newsBetween(const ToldRows& before, const ToldRows& now) {
    std::vector<RowNews> news;
    const bool sameLines = std::equal(before.Rows.begin(), before.Rows.end(), now.Rows.begin(),
                                      now.Rows.end(), isSameLine);
    if (!sameLines) news.push_back({NewsKind::Scrolled});
    addRows(before.Rows, now.Rows, news);
    const bool otherLine = before.CaretLine != now.CaretLine;
    const bool moved = otherLine || before.CaretUnit != now.CaretUnit;
    if (now.HasKeyboard && (otherLine || !before.HasKeyboard)) {
        news.push_back({NewsKind::Focus, now.CaretLine});
    } else if (moved && now.CaretLine > 0) {
        news.push_back({NewsKind::Caret, now.CaretLine});
    }
    return news;
}

}  // namespace quorvale
