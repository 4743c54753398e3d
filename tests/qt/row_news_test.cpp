#include "qt/row_news.h"

#include <QTest>

#include "qt/conversions.h"

using namespace quorvale;

/// What there is to tell when the rows change, and the words for it.
class RowNewsTest : public QObject {
    Q_OBJECT

private slots:
    void nothingChangedIsNoNews();
    void theFirstLookTellsWhereTheCaretIs();
    void theCaretIsFollowedFromRowToRow();
    void theCaretIsFollowedAlongItsRow();
    void theCaretIsFollowedWhileTheKeyboardIsElsewhere();
    void theKeyboardComesAndGoes();
    void scrollingIsToldOnceAndNoRowOfItsOwn();
    void rowsThatChangedAreToldOneByOne();
    void aRowThatScrolledInIsNotCompared();
    void theWordsFollowTheLanguage();
    void whatNoBusCarriesIsReplaced();
    void aLongTextIsCutBetweenCharacters();
};

namespace {

/// Lines `first` to `last` on screen, the caret at the start of a line, the keyboard in the rows.
ToldRows rowsFrom(int first, int last, int caret) {
    ToldRows rows;
    for (int line = first; line <= last; ++line) {
        SpokenRow row;
        row.Line = line;
        row.Text = SharedText(u"some text");
        rows.Rows.push_back(row);
    }
    rows.CaretLine = caret;
    rows.HasKeyboard = true;
    return rows;
}

using News = std::vector<RowNews>;

}  // namespace

void RowNewsTest::nothingChangedIsNoNews() {
    QVERIFY(newsBetween(rowsFrom(1, 5, 2), rowsFrom(1, 5, 2)).empty());
    QVERIFY(newsBetween({}, {}).empty());
}

void RowNewsTest::theFirstLookTellsWhereTheCaretIs() {
    const News news = newsBetween({}, rowsFrom(1, 5, 2));
    QCOMPARE(news, (News{{NewsKind::Scrolled}, {NewsKind::Focus, 2}}));
}

void RowNewsTest::theCaretIsFollowedFromRowToRow() {
    ToldRows now = rowsFrom(1, 5, 3);
    now.CaretUnit = 4;
    QCOMPARE(newsBetween(rowsFrom(1, 5, 2), now), (News{{NewsKind::Focus, 3}}));
}

void RowNewsTest::theCaretIsFollowedAlongItsRow() {
    ToldRows now = rowsFrom(1, 5, 2);
    now.CaretUnit = 1;
    QCOMPARE(newsBetween(rowsFrom(1, 5, 2), now), (News{{NewsKind::Caret, 2}}));
}

void RowNewsTest::theCaretIsFollowedWhileTheKeyboardIsElsewhere() {
    ToldRows before = rowsFrom(1, 5, 2);
    ToldRows now = rowsFrom(1, 5, 4);
    before.HasKeyboard = now.HasKeyboard = false;
    QCOMPARE(newsBetween(before, now), (News{{NewsKind::Caret, 4}}));
}

void RowNewsTest::theKeyboardComesAndGoes() {
    ToldRows away = rowsFrom(1, 5, 2);
    away.HasKeyboard = false;
    QCOMPARE(newsBetween(away, rowsFrom(1, 5, 2)), (News{{NewsKind::Focus, 2}}));
    QVERIFY(newsBetween(rowsFrom(1, 5, 2), away).empty());
    ToldRows empty;
    empty.HasKeyboard = true;
    QCOMPARE(newsBetween({}, empty), (News{{NewsKind::Focus, 0}}));
}

void RowNewsTest::scrollingIsToldOnceAndNoRowOfItsOwn() {
    QCOMPARE(newsBetween(rowsFrom(1, 5, 2), rowsFrom(4, 8, 2)), (News{{NewsKind::Scrolled}}));
    QCOMPARE(newsBetween(rowsFrom(1, 5, 2), rowsFrom(1, 4, 2)), (News{{NewsKind::Scrolled}}));
}

void RowNewsTest::rowsThatChangedAreToldOneByOne() {
    ToldRows now = rowsFrom(1, 6, 2);
    now.Rows[0].Text = SharedText(u"other text");
    now.Rows[1].Selected = true;
    now.Rows[2].Corrected = true;
    now.Rows[3].CanFold = true;
    now.Rows[4].CanFold = true;
    now.Rows[4].Folded = true;
    const News turnedOn = {{NewsKind::Text, 1},        {NewsKind::Selection, 2},
                           {NewsKind::Description, 3}, {NewsKind::Mark, 3},
                           {NewsKind::Fold, 4},        {NewsKind::Description, 5},
                           {NewsKind::Fold, 5}};
    QCOMPARE(newsBetween(rowsFrom(1, 6, 2), now), turnedOn);
    QCOMPARE(newsBetween(now, rowsFrom(1, 6, 2)), turnedOn);
}

void RowNewsTest::aRowThatScrolledInIsNotCompared() {
    ToldRows now = rowsFrom(2, 6, 2);
    now.Rows[0].Selected = true;
    now.Rows[4].Selected = true;
    QCOMPARE(newsBetween(rowsFrom(1, 5, 2), now),
             (News{{NewsKind::Scrolled}, {NewsKind::Selection, 2}}));
}

void RowNewsTest::theWordsFollowTheLanguage() {
    SpokenRow row;
    row.Line = 12;
    row.Folded = true;
    row.Corrected = true;
    QCOMPARE(spokenName(row, Language::English), QString("blank"));
    QCOMPARE(spokenName(row, Language::Japanese), QString("空行"));
    QCOMPARE(spokenName(row, Language::Korean), QString("빈 행"));
    QCOMPARE(spokenDescription(row, Language::English), QString("line 12, folded, corrected"));
    QCOMPARE(spokenDescription(row, Language::Japanese), QString("行 12, 折りたたみ, 修正済み"));
    QCOMPARE(spokenDescription(row, Language::Korean), QString("행 12, 접힘, 정정됨"));
    row.Text = SharedText(u"\t\u3000 ");
    QCOMPARE(spokenName(row, Language::English), QString("blank"));
}

void RowNewsTest::whatNoBusCarriesIsReplaced() {
    const std::u16string text{u'a', 0, 0xDC80, 0xD83D, 0xDE00, 0xD83D};
    const std::u16string expected{u'a', 0xFFFD, 0xFFFD, 0xD83D, 0xDE00, 0xFFFD};
    QCOMPARE(spokenText(text), toQString(expected));
}

void RowNewsTest::aLongTextIsCutBetweenCharacters() {
    std::u16string text(mostSpoken - 1, u'x');
    QCOMPARE(std::size_t(spokenText(text).size()), mostSpoken - 1);
    text += u"\U0001F600";
    QCOMPARE(std::size_t(spokenText(text).size()), mostSpoken - 1);
    text.insert(text.begin(), u'x');
    QCOMPARE(std::size_t(spokenText(text).size()), mostSpoken);
}

QTEST_APPLESS_MAIN(RowNewsTest)
#include "row_news_test.moc"
