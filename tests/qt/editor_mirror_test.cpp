#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QTest>
#include <QTextDocument>
#include <random>

#include "qt/editor_text.h"
#include "shown_box.h"
#include "support/documents.h"

using namespace quorvale;
using quorvale::test::ShownBox;

/// The editor that lies over the rows: texts pass through it unchanged, its keys reach the control
/// first, and a composition keeps its keys to itself.
class EditorMirrorTest : public QObject {
    Q_OBJECT

private slots:
    void textsComeBackAsTheyWere_data();
    void textsComeBackAsTheyWere();
    void aSignThatIsTypedIsOnlyASign();
    void whatIsTypedReachesTheElement();
    void enterWithShiftBeginsALineToo();
    void typingBesideAnOddCharacterLeavesItAlone();
    void theEditorFollowsItsElement();
    void openingIsNoStepThatCanBeUndone();
    void anEqualTextInOtherLinesHasNoHistory();
    void theControlsKeysAreNotTyped();
    void otherKeysAreTyped();
    void aKeyOfACompositionDoesNotReachTheControl();
    void whatIsBeingComposedBecomesTextWhenTheEditorIsRecorded();
    void theTextIsFollowedThroughEveryChange();
    void copiedAndPastedTextKeepsItsCharacters();
    void moreLinesMakeItHigher();
    void theFocusCanBeRequestedAtOnce();
    void zoomKeysAndWheelLeaveTheFontAlone();

private:
    /// Opens the editor as the control does.
    EditorMirror& open(ShownBox& shown, std::u16string text);
};

namespace {

std::u16string throughADocument(std::u16string_view text) {
    QTextDocument document;
    QTextCursor cursor(&document);
    insertText(cursor, text);
    return textOf(document);
}

}  // namespace

EditorMirror& EditorMirrorTest::open(ShownBox& shown, std::u16string text) {
    TextBox& box = shown.elements().rtbEdit;
    box.Move(600, 600, 6000, 300);
    box.SetText(std::move(text));
    box.SetVisible(true);
    shown.elements().Focus.Request(FocusChild::Editor);
    shown.settle();
    return shown.live().editor();
}

void EditorMirrorTest::textsComeBackAsTheyWere_data() {
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, std::u16string_view text) {
        QTest::newRow(name) << toQString(text);
    };
    using namespace std::string_view_literals;
    row("nothing", u""sv);
    row("one line", u"plain"sv);
    row("lines", u"a\r\nb\r\n\r\nc"sv);
    row("only line ends", u"\r\n\r\n"sv);
    row("a no-break space", u"a\u00A0b"sv);
    row("a lone CR", u"a\rb"sv);
    row("a lone LF", u"a\nb"sv);
    row("CR before a line end", u"a\r\r\nb"sv);
    row("NUL", u"a\0b\0\0c"sv);
    row("separators", u"a\u2028b\u2029c"sv);
    row("tab", u"a\tb"sv);
    row("all control characters",
        u"\x01\x02\x03\x04\x05\x06\x07\x08\x0b\x0c\x0e\x0f\x10\x11\x12\x13\x14\x15\x16\x17\x18"
        u"\x19\x1a\x1b\x1c\x1d\x1e\x1f\x7f\u0080\u0085\u009f"sv);
    row("their pictures", u"\u2400\u240d\u2421"sv);
    row("pictures beside what they show", u"\u2400\0\u2400\0"sv);
    row("lone surrogates", u"a\xD83D b\xDE00 c\xDC80"sv);
    row("pairs of surrogates", u"\U0001F600\U0001F601"sv);
    row("noncharacters", u"\uFDD0\uFDD1\uFFFC\uFFFE\uFFFF\uFEFF"sv);
    row("Japanese", u"\u65e5\u672c\r\n\ud55c\uad6d"sv);
}

void EditorMirrorTest::textsComeBackAsTheyWere() {
    QFETCH(QString, text);
    QCOMPARE(toQString(throughADocument(toUtf16(text))), text);
    ShownBox shown;
    EditorMirror& editor = open(shown, toUtf16(text));
    QTest::keyClicks(&editor, "x");
    QCOMPARE(toQString(shown.elements().rtbEdit.Text()), "x" + text);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    QCOMPARE(toQString(shown.elements().rtbEdit.Text()), text);
}

void EditorMirrorTest::aSignThatIsTypedIsOnlyASign() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"\r");
    QInputMethodEvent event;
    event.setCommitString(QString(QChar(u'\u240d')));
    QCoreApplication::sendEvent(&editor, &event);
    QTest::keyClicks(&editor, "a");
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"\u240da\r"));
}

void EditorMirrorTest::whatIsTypedReachesTheElement() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"one");
    QTest::keyClick(&editor, Qt::Key_End);
    QTest::keyClick(&editor, Qt::Key_Return);
    QTest::keyClicks(&editor, "two");
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"one\r\ntwo"));
}

// It used to type a separator that no file has.
void EditorMirrorTest::enterWithShiftBeginsALineToo() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"onetwo");
    for (int i = 0; i < 3; ++i) QTest::keyClick(&editor, Qt::Key_Right);
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"one\r\ntwo"));
}

void EditorMirrorTest::typingBesideAnOddCharacterLeavesItAlone() {
    ShownBox shown;
    EditorMirror& editor = open(shown, std::u16string(u"a\0b", 3));
    QTest::keyClick(&editor, Qt::Key_Right);
    QTest::keyClick(&editor, Qt::Key_Right);
    QTest::keyClicks(&editor, "xy");
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"a\0xyb", 5));
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"a\0b", 3));
}

void EditorMirrorTest::theEditorFollowsItsElement() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"text");
    QVERIFY(editor.isVisible());
    QCOMPARE(editor.geometry().topLeft(), QPoint(40, 40));
    QCOMPARE(editor.width(), 400);
    shown.elements().rtbEdit.SetLeft(900);
    shown.elements().rtbEdit.SetText(u"other");
    shown.settle();
    QCOMPARE(editor.x(), 60);
    QCOMPARE(editor.toPlainText(), QString("other"));
    shown.elements().rtbEdit.SetVisible(false);
    shown.settle();
    QVERIFY(!editor.isVisible());
}

void EditorMirrorTest::openingIsNoStepThatCanBeUndone() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"text");
    editor.undo();
    QCOMPARE(editor.toPlainText(), QString("text"));
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"text"));
}

// Symptom: after a line was recorded, Ctrl+Z in another line of the same text took back what had
// been typed into the first one.
void EditorMirrorTest::anEqualTextInOtherLinesHasNoHistory() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"text");
    QTest::keyClicks(&editor, "more ");
    const std::u16string typed = shown.elements().rtbEdit.Text();
    shown.elements().rtbEdit.SetVisible(false);
    shown.settle();
    open(shown, typed);
    QCOMPARE(editor.textCursor().position(), 0);
    QVERIFY(!editor.document()->isUndoAvailable());
    QVERIFY(!editor.document()->isModified());
    editor.undo();
    QCOMPARE(shown.elements().rtbEdit.Text(), typed);
}

void EditorMirrorTest::theControlsKeysAreNotTyped() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"text");
    QStringList heard;
    shown.elements().rtbEdit.OnKeyDown = [&](std::int16_t& code, std::int16_t shift) {
        constexpr int controlKey = 17;
        if (code != controlKey) heard << QString("%1 %2").arg(code).arg(shift);
        if (code == key_code::Return && (shift & shift_mask::Ctrl) != 0) code = 0;
    };
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(editor.toPlainText(), QString("text"));
    QTest::keyClick(&editor, Qt::Key_Return);
    QCOMPARE(editor.toPlainText(), QString("\ntext"));
    QTest::keyClick(&editor, Qt::Key_Escape);
    QCOMPARE(heard, QStringList({"13 2", "13 2", "13 0", "27 0"}));
}

void EditorMirrorTest::otherKeysAreTyped() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"");
    QTest::keyClicks(&editor, "Ab 1");
    QTest::keyClick(&editor, Qt::Key_Tab);
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"Ab 1\t"));
}

void EditorMirrorTest::aKeyOfACompositionDoesNotReachTheControl() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"text");
    int heard = 0;
    shown.elements().rtbEdit.OnKeyDown = [&](std::int16_t&, std::int16_t) { ++heard; };
    QInputMethodEvent composing("\u304b", {});
    QCoreApplication::sendEvent(&editor, &composing);
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_Escape);
    QCOMPARE(heard, 0);
    QVERIFY(editor.isVisible());
    QInputMethodEvent committed;
    committed.setCommitString("\u6f22");
    QCoreApplication::sendEvent(&editor, &committed);
    QVERIFY(shown.elements().rtbEdit.Text().find(u"\u6f22") != std::u16string::npos);
    QTest::keyClick(&editor, Qt::Key_Escape);
    QCOMPARE(heard, 1);
}

// A menu pick closed the editor without a word to the input method: what it showed was lost.
void EditorMirrorTest::whatIsBeingComposedBecomesTextWhenTheEditorIsRecorded() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"text");
    QInputMethodEvent composing("\ud55c", {});
    QCoreApplication::sendEvent(&editor, &composing);
    QCOMPARE(editor.composed(), QString("\ud55c"));
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"text"));
    shown.elements().rtbEdit.FinishTyping();
    QCOMPARE(editor.composed(), QString());
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"\ud55ctext"));
    shown.elements().rtbEdit.FinishTyping();
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"\ud55ctext"));
}

void EditorMirrorTest::theTextIsFollowedThroughEveryChange() {
    ShownBox shown;
    std::mt19937 random(7);
    EditorMirror& editor = open(shown, RandomText(random, 200) + u"\u2028\uFFFC\xD83D");
    const TextBox& box = shown.elements().rtbEdit;
    for (int step = 0; step < 600; ++step) {
        const auto places = static_cast<unsigned>(editor.document()->characterCount());
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(static_cast<int>(random() % places));
        if (random() % 2 == 0) {
            cursor.setPosition(static_cast<int>(random() % places), QTextCursor::KeepAnchor);
        }
        switch (random() % 8) {
            case 0:
                editor.undo();
                break;
            case 1:
                editor.redo();
                break;
            case 2:
                cursor.removeSelectedText();
                break;
            case 3:
                cursor.insertBlock();
                break;
            case 4:
                cursor.deletePreviousChar();
                break;
            case 5:
                cursor.insertText("x");
                break;
            default:
                insertText(cursor, RandomText(random, 5));
        }
        QCOMPARE(toQString(box.Text()), toQString(textOf(*editor.document())));
    }
}

void EditorMirrorTest::copiedAndPastedTextKeepsItsCharacters() {
    ShownBox shown;
    const std::u16string text(u"a\u00A0b\rc\0\r\nd", 9);
    EditorMirror& editor = open(shown, text);
    editor.selectAll();
    editor.copy();
    editor.paste();
    QCOMPARE(shown.elements().rtbEdit.Text(), text);
    QGuiApplication::clipboard()->setText("one\ntwo");
    editor.selectAll();
    editor.paste();
    QCOMPARE(shown.elements().rtbEdit.Text(), std::u16string(u"one\r\ntwo"));
}

void EditorMirrorTest::moreLinesMakeItHigher() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"text");
    const int before = editor.height();
    for (int i = 0; i < 4; ++i) QTest::keyClick(&editor, Qt::Key_Return);
    shown.settle();
    const double row = toPixels(shown.elements().RowHeight());
    QVERIFY(editor.height() >= before + qRound(3 * row));
    for (int i = 0; i < 200; ++i) QTest::keyClick(&editor, Qt::Key_Return);
    shown.settle();
    QVERIFY(editor.geometry().bottom() < shown.widget().height());
}

void EditorMirrorTest::theFocusCanBeRequestedAtOnce() {
    ShownBox shown;
    TextBox& box = shown.elements().rtbEdit;
    box.Move(600, 600, 6000, 300);
    box.SetVisible(true);
    QVERIFY(shown.elements().Focus.Request(FocusChild::Editor));
    QCOMPARE(static_cast<int>(shown.elements().Focus.Active()),
             static_cast<int>(FocusChild::Editor));
}

void EditorMirrorTest::zoomKeysAndWheelLeaveTheFontAlone() {
    ShownBox shown;
    EditorMirror& editor = open(shown, u"text");
    const QFont before = editor.font();
    // Looked at at once: whatever the control shows next would put the font right again.
    for (const int turn : {120, 120, -120}) {
        QWheelEvent wheel(QPointF(5, 5), editor.mapToGlobal(QPointF(5, 5)), {}, {0, turn},
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(editor.viewport(), &wheel);
        QCOMPARE(editor.font(), before);
    }
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Equal, Qt::Key_0}) {
        QTest::keyClick(&editor, key, Qt::ControlModifier);
        QCOMPARE(editor.font(), before);
    }
}

QTEST_MAIN(EditorMirrorTest)
#include "editor_mirror_test.moc"
