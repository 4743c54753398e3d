#include <QTest>
#include <random>
#include <string>

#include "qt/qt_text_metrics.h"

using namespace quorvale;

/// Widths as they are measured: what is painted later stands on them.
class TextMetricsTest : public QObject {
    Q_OBJECT

private slots:
    void theEmptyTextHasNoWidth();
    void aWidthIsTheSumOfTheAdvances();
    void bothHalvesOfAPairCountOnce();
    void aByteThatIsNotValidIsAsWideAsTheReplacementCharacter();
    void noCharacterIsWithoutAWidthByAccident();
    void aCombiningMarkTakesNoRoom();
    void boldIsAsWideAsRegular();
    void firstWiderAgreesWithTheWidthsOfThePieces();
    void widthsOfVeryLongTextsAreExact();
    void aRowIsAsHighAsWholePixels();

private:
    std::shared_ptr<FontFaces> faces_ = std::make_shared<FontFaces>();
    QtTextMetrics metrics_{faces_};
    Font mono_{u"DejaVu Sans Mono", 9};
    Font sans_{u"DejaVu Sans", 11};
};

void TextMetricsTest::theEmptyTextHasNoWidth() { QCOMPARE(metrics_.Width(u"", mono_), 0.0); }

void TextMetricsTest::aWidthIsTheSumOfTheAdvances() {
    // "AV", "To" and "ffi" are kerned or joined by fonts that may do so.
    const std::u16string text = u"AVATo ffi \u00e9\u65e5\u672c\ud55c W";
    for (const Font& font : {mono_, sans_}) {
        Twips sum = 0;
        for (const char16_t unit : text) sum += metrics_.Width(std::u16string(1, unit), font);
        QCOMPARE(metrics_.Width(text, font), sum);
        QVERIFY(sum > 0);
    }
}

void TextMetricsTest::bothHalvesOfAPairCountOnce() {
    const std::u16string pair = u"\U0001D49C";
    const Twips one = metrics_.Width(pair, mono_);
    QVERIFY(one > 0);
    QCOMPARE(metrics_.Width(pair + pair, mono_), 2 * one);
    QCOMPARE(metrics_.Width(u"a" + pair + u"b", mono_), one + metrics_.Width(u"ab", mono_));
}

void TextMetricsTest::aByteThatIsNotValidIsAsWideAsTheReplacementCharacter() {
    const Twips replaced = metrics_.Width(u"\uFFFD", mono_);
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        const std::u16string kept(1, static_cast<char16_t>(0xDC00 + byte));
        QCOMPARE(metrics_.Width(kept, mono_), replaced);
        QCOMPARE(metrics_.Width(kept + kept, mono_), 2 * replaced);
    }
    QCOMPARE(metrics_.Width(std::u16string(1, char16_t{0xD800}), mono_), replaced);
}

void TextMetricsTest::noCharacterIsWithoutAWidthByAccident() {
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        const QChar::Category category = QChar::category(static_cast<char32_t>(unit));
        if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing) continue;
        const std::u16string text(1, static_cast<char16_t>(unit));
        if (metrics_.Width(text, mono_) <= 0) qWarning("U+%04X", static_cast<unsigned>(unit));
        QVERIFY(metrics_.Width(text, mono_) > 0);
    }
}

void TextMetricsTest::aCombiningMarkTakesNoRoom() {
    QCOMPARE(metrics_.Width(u"e\u0301", mono_), metrics_.Width(u"e", mono_));
}

void TextMetricsTest::boldIsAsWideAsRegular() {
    Font bold = sans_;
    bold.Bold = true;
    QCOMPARE(metrics_.Width(u"Collapsed head", bold), metrics_.Width(u"Collapsed head", sans_));
}

void TextMetricsTest::firstWiderAgreesWithTheWidthsOfThePieces() {
    std::mt19937 random(11);
    const std::u16string letters = u"iWm \t\u0001\u00e9\u65e5\u0301\ufffd";
    std::u16string text;
    for (int i = 0; i < 1500; ++i) text += letters[random() % letters.size()];
    const Twips whole = metrics_.Width(text, sans_);
    for (const Precision precision : {Precision::Single, Precision::Exact}) {
        for (Twips x = -10; x < whole + 100; x += whole / 97) {
            std::size_t expected = 0;
            for (std::size_t i = 1; i <= text.size() && expected == 0; ++i) {
                const Twips width = metrics_.Width(std::u16string_view(text).substr(0, i), sans_);
                if (Rounded(width, precision) > x) expected = i;
            }
            QCOMPARE(metrics_.FirstWider(text, sans_, x, precision), expected);
        }
    }
}

void TextMetricsTest::widthsOfVeryLongTextsAreExact() {
    const Twips one = metrics_.Width(u"x", mono_);
    const std::u16string million(1000003, u'x');
    QCOMPARE(metrics_.Width(million, mono_), 1000003 * one);
    QCOMPARE(metrics_.FirstWider(million, mono_, 700000 * one, Precision::Exact),
             std::size_t{700001});
}

void TextMetricsTest::aRowIsAsHighAsWholePixels() {
    const Twips height = metrics_.Height(mono_);
    QVERIFY(height >= 12 * 15);
    QCOMPARE(std::fmod(height, 15.0), 0.0);
}

QTEST_MAIN(TextMetricsTest)
#include "text_metrics_test.moc"
