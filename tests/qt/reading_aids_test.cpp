#include <QAction>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>

#include "control/host_extras.h"
#include "qt/conversions.h"
#include "viewer/line_folds.h"
#include "viewer/severity_colours.h"
#include "viewer/viewer_settings.h"
#include "viewer/viewer_window.h"

using namespace quorvale;

/// The viewer's View menu: what folds and what is coloured, and that both are off until asked for.
class ReadingAidsTest : public QObject {
    Q_OBJECT

private slots:
    // What one test switches on is not on in the next one's window.
    void initTestCase() { ViewerSettings::keepNothing(); }
    void indentationMakesNestedRanges();
    void aTabGoesToTheNextMultipleOfEight();
    void blankLinesEndNoBlock();
    void veryDeepBlocksAreNotFolded();
    void blankLinesPartParagraphs();
    void aFileOfOneKindOfLineHasNoFolds();
    void noMoreFoldsThanAReaderCanUse();
    void severityIsJudgedByWholeWords_data();
    void severityIsJudgedByWholeWords();
    void nothingFoldsUntilAskedFor();
    void foldingIsSwitchedOnAndOff();
    void switchingLeavesViewCaretAndSelectionAlone();
    void theRoomOfTheGlyphsIsGivenBack();
    void onlyOneWayOfFoldingAtATime();
    void theNextFileIsFoldedToo();
    void errorsAndWarningsAreColouredAndPlainAgain();
    void coloursCanBeReadOnLightAndDarkGround();
    void coloursFollowAChangedTheme();

private:
    QAction* action(ViewerWindow& window, const QString& text);
    void open(ViewerWindow& window, const QByteArray& bytes);
    bool hasGlyph(ViewerWindow& window, int slot);

    QTemporaryDir folder_;
};

namespace {

using Folds = std::vector<FoldRange>;

LineReader reading(const QStringList& lines) {
    return [lines](std::int32_t line) { return lines.at(line - 1).toStdU16String(); };
}

Folds byIndentation(const QStringList& lines) {
    return foldsByIndentation(reading(lines), static_cast<std::int32_t>(lines.size()));
}

Folds byBlankLines(const QStringList& lines) {
    return foldsByBlankLines(reading(lines), static_cast<std::int32_t>(lines.size()));
}

/// The brightness of a colour as an eye sees it, 0 to 1.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

bool isReadable(ViewerWindow& window, int line, const QColor& ground) {
    const Colour colour = window.control().box().LineForeColor(line);
    const QColor text(static_cast<int>(colour & 255), static_cast<int>(colour >> 8 & 255),
                      static_cast<int>(colour >> 16 & 255));
    return contrast(text, ground) >= 4.5;
}

}  // namespace

QAction* ReadingAidsTest::action(ViewerWindow& window, const QString& text) {
    for (QAction* menu : window.menuBar()->actions()) {
        for (QAction* entry : menu->menu()->actions()) {
            if (entry->text().remove('&') == text) return entry;
        }
    }
    return nullptr;
}

void ReadingAidsTest::open(ViewerWindow& window, const QByteArray& bytes) {
    QFile file(folder_.filePath("shown.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    QCOMPARE(window.openFile(file.fileName()), QString());
}

bool ReadingAidsTest::hasGlyph(ViewerWindow& window, int slot) {
    return window.control().box().Elements().imgExpand[slot].Visible();
}

void ReadingAidsTest::indentationMakesNestedRanges() {
    const Folds folds = byIndentation({"a", "  b", "    c", "    d", "  e", "f", "g", "  h"});
    QCOMPARE(folds, (Folds{{2, 4}, {1, 5}, {7, 8}}));
}

void ReadingAidsTest::aTabGoesToTheNextMultipleOfEight() {
    QCOMPARE(byIndentation({"       a", "\tb"}), (Folds{{1, 2}}));
    QCOMPARE(byIndentation({"        a", "    \tb"}), Folds{});
}

void ReadingAidsTest::blankLinesEndNoBlock() {
    QCOMPARE(byIndentation({"a", "  b", "", " \t ", "  c", "", "d"}), (Folds{{1, 5}}));
}

void ReadingAidsTest::veryDeepBlocksAreNotFolded() {
    QStringList lines;
    for (int depth = 0; depth < 50; ++depth) lines << QString(depth, ' ') + "x";
    const Folds folds = byIndentation(lines);
    QCOMPARE(folds.size(), deepestFold);
    QCOMPARE(folds.back(), (FoldRange{1, 50}));
}

void ReadingAidsTest::blankLinesPartParagraphs() {
    QCOMPARE(byBlankLines({"", "a", "b", "", "c", " ", "", "d", "e", "f"}),
             (Folds{{2, 3}, {8, 10}}));
}

void ReadingAidsTest::aFileOfOneKindOfLineHasNoFolds() {
    QCOMPARE(byIndentation({"a", "b", "c"}), Folds{});
    QCOMPARE(byIndentation({"", "", ""}), Folds{});
    QCOMPARE(byBlankLines({"", "", ""}), Folds{});
    QCOMPARE(byIndentation({}), Folds{});
    QCOMPARE(byBlankLines({}), Folds{});
}

void ReadingAidsTest::noMoreFoldsThanAReaderCanUse() {
    const auto pairs = [](std::int32_t line) {
        return std::u16string(line % 2 == 0 ? u" b" : u"a");
    };
    const auto count = static_cast<std::int32_t>(mostFolds) * 2 + 100;
    QCOMPARE(foldsByIndentation(pairs, count).size(), mostFolds);
    // A block around them all, whose end is not reached, is not folded at a wrong place.
    const auto inABlock = [&](std::int32_t line) {
        return line == 1 ? std::u16string(u"{") : u" " + pairs(line);
    };
    const Folds within = foldsByIndentation(inABlock, count);
    QCOMPARE(within.size(), mostFolds);
    QVERIFY(std::all_of(within.begin(), within.end(),
                        [](const FoldRange& fold) { return fold.First > 1; }));
    const auto triples = [](std::int32_t line) {
        return std::u16string(line % 3 == 0 ? u"" : u"a");
    };
    QCOMPARE(foldsByBlankLines(triples, static_cast<std::int32_t>(mostFolds) * 3 + 100).size(),
             mostFolds);
}

void ReadingAidsTest::severityIsJudgedByWholeWords_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("severity");
    const auto row = [](const char* line, Severity severity) {
        QTest::newRow(line) << QString(line) << static_cast<int>(severity);
    };
    row("12:00 ERROR disk", Severity::Error);
    row("[error]", Severity::Error);
    row("WARN then Error", Severity::Error);
    row("level=warning", Severity::Warning);
    row("Warn", Severity::Warning);
    row("terrors", Severity::Plain);
    row("0 errors", Severity::Plain);
    row("forewarned", Severity::Plain);
    row("", Severity::Plain);
}

void ReadingAidsTest::severityIsJudgedByWholeWords() {
    QFETCH(QString, line);
    QFETCH(int, severity);
    QCOMPARE(static_cast<int>(severityOf(line.toStdU16String())), severity);
}

void ReadingAidsTest::nothingFoldsUntilAskedFor() {
    ViewerWindow window;
    open(window, "a\n  b\n\nerror\n");
    QVERIFY(!hasGlyph(window, 0));
    for (const char* text :
         {"Fold by indentation", "Fold by blank lines", "Colour errors and warnings"}) {
        QVERIFY(action(window, text) != nullptr);
        QVERIFY(!action(window, text)->isChecked());
    }
}

void ReadingAidsTest::foldingIsSwitchedOnAndOff() {
    ViewerWindow window;
    window.show();
    open(window, "a\n  b\n  c\nd\n");
    action(window, "Fold by indentation")->trigger();
    QVERIFY(hasGlyph(window, 0));
    QVERIFY(!hasGlyph(window, 3));
    QuorvaleBox& box = window.control().box();
    box.CollapseAll();
    QCOMPARE(toQString(box.Elements().lblLine[1].Caption()), QString("d"));
    action(window, "Fold by indentation")->trigger();
    QVERIFY(!hasGlyph(window, 0));
    QCOMPARE(toQString(box.Elements().lblLine[1].Caption()), QString("  b"));
    QVERIFY(!box.Elements().tbMore.Button(u"Collapsed").Enabled);
    box.CollapseAll();
    QCOMPARE(toQString(box.Elements().lblLine[1].Caption()), QString("  b"));
}

// The view used to jump to the caret, and a selection up to the end of a line was gone.
void ReadingAidsTest::switchingLeavesViewCaretAndSelectionAlone() {
    ViewerWindow window;
    window.show();
    QByteArray bytes;
    for (int i = 0; i < 500; ++i) bytes += "a\n  b\n";
    open(window, bytes);
    QuorvaleBox& box = window.control().box();
    box.MoveTo(2, 4);
    box.SelectedRowsCount(2);
    box.TopLine(300);
    for (int times = 0; times < 2; ++times) {
        action(window, "Fold by indentation")->trigger();
        QCOMPARE(box.TopLine(), 300);
        QCOMPARE(box.row(), 2);
        QCOMPARE(box.col(), 4);
        QCOMPARE(box.SelectedRowsCount(), 2);
    }
}

void ReadingAidsTest::theRoomOfTheGlyphsIsGivenBack() {
    ViewerWindow window;
    window.show();
    open(window, "a\n b\n  c\n   d\n    e\n");
    const Label& row = window.control().box().Elements().lblLine[0];
    const Twips before = row.Left();
    action(window, "Fold by indentation")->trigger();
    QVERIFY(row.Left() > before);
    action(window, "Fold by indentation")->trigger();
    QCOMPARE(row.Left(), before);
}

void ReadingAidsTest::onlyOneWayOfFoldingAtATime() {
    ViewerWindow window;
    window.show();
    open(window, "a\n  b\n\nc\nd\n");
    action(window, "Fold by indentation")->trigger();
    action(window, "Fold by blank lines")->trigger();
    QVERIFY(!action(window, "Fold by indentation")->isChecked());
    QVERIFY(hasGlyph(window, 0));
    QVERIFY(hasGlyph(window, 3));
    action(window, "Fold by indentation")->trigger();
    QVERIFY(hasGlyph(window, 0));
    QVERIFY(!hasGlyph(window, 3));
}

void ReadingAidsTest::theNextFileIsFoldedToo() {
    ViewerWindow window;
    window.show();
    open(window, "a\nb\n");
    action(window, "Fold by indentation")->trigger();
    action(window, "Colour errors and warnings")->trigger();
    QVERIFY(!hasGlyph(window, 0));
    open(window, "x\nerror\n y\n");
    QVERIFY(hasGlyph(window, 1));
    QVERIFY(window.control().box().LineForeColor(2) != window.control().box().ForeColor());
}

void ReadingAidsTest::errorsAndWarningsAreColouredAndPlainAgain() {
    ViewerWindow window;
    window.show();
    open(window, "fine\nERROR one\nWARN two\n");
    QuorvaleBox& box = window.control().box();
    const Colour plain = box.ForeColor();
    action(window, "Colour errors and warnings")->trigger();
    QCOMPARE(box.LineForeColor(1), plain);
    QVERIFY(box.LineForeColor(2) != plain);
    QVERIFY(box.LineForeColor(3) != plain);
    QVERIFY(box.LineForeColor(2) != box.LineForeColor(3));
    QCOMPARE(box.Elements().lblLine[1].ForeColor(), box.LineForeColor(2));
    action(window, "Colour errors and warnings")->trigger();
    for (int line = 1; line <= 3; ++line) QCOMPARE(box.LineForeColor(line), plain);
}

void ReadingAidsTest::coloursCanBeReadOnLightAndDarkGround() {
    for (const QColor& ground : {QColor(Qt::white), QColor(30, 30, 30)}) {
        ViewerWindow window;
        QPalette palette = window.palette();
        palette.setColor(QPalette::Base, ground);
        window.setPalette(palette);
        open(window, "ERROR one\nWARN two\n");
        action(window, "Colour errors and warnings")->trigger();
        for (int line = 1; line <= 2; ++line) QVERIFY(isReadable(window, line, ground));
    }
}

void ReadingAidsTest::coloursFollowAChangedTheme() {
    ViewerWindow window;
    open(window, "ERROR one\n");
    action(window, "Colour errors and warnings")->trigger();
    const Colour before = window.control().box().LineForeColor(1);
    const QColor ground(30, 30, 30);
    QPalette palette = window.palette();
    palette.setColor(QPalette::Base, ground);
    window.setPalette(palette);
    QCoreApplication::processEvents();
    QVERIFY(window.control().box().LineForeColor(1) != before);
    QVERIFY(isReadable(window, 1, ground));
}

QTEST_MAIN(ReadingAidsTest)
#include "reading_aids_test.moc"
