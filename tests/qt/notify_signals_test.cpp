#include <QHash>
#include <QMetaProperty>
#include <QPointer>
#include <QSet>
#include <QSettings>
#include <QTest>
#include <functional>
#include <utility>
#include <vector>

#include "control/member_ids.h"
#include "platform/property_bag.h"
#include "shown_box.h"

using namespace quorvale;
using quorvale::test::ShownBox;

/// A view that is bound to every property of the widget that tells of its changes: it reads them
/// when it is told and at no other time.
class BoundView : public QObject {
    Q_OBJECT

public:
    explicit BoundView(QuorvaleBoxWidget& widget) : widget_(widget) {
        const QMetaMethod hears = staticMetaObject.method(staticMetaObject.indexOfSlot("hear()"));
        QList<int> heard;
        for (const QMetaProperty& property : properties()) {
            shown_.insert(property.name(), property.read(&widget));
            if (heard.contains(property.notifySignalIndex())) continue;
            heard << property.notifySignalIndex();
            connect(&widget, property.notifySignal(), this, hears);
        }
    }

    static QList<QMetaProperty> properties() {
        const QMetaObject& described = QuorvaleBoxWidget::staticMetaObject;
        QList<QMetaProperty> found;
        for (int i = DocumentWidget::staticMetaObject.propertyOffset();
             i < described.propertyCount(); ++i) {
            if (described.property(i).hasNotifySignal()) found << described.property(i);
        }
        return found;
    }

    /// What reads otherwise than it is shown.
    QStringList stale() const {
        QStringList names;
        for (const QMetaProperty& property : properties()) {
            if (property.read(&widget_) != shown_[property.name()]) names << property.name();
        }
        return names;
    }

    QSet<QString> Changed;
    /// Signals by which nothing read otherwise than before.
    QStringList NeedlesslyTold;

private slots:
    void hear() {
        bool changed = false;
        for (const QMetaProperty& property : properties()) {
            if (property.notifySignalIndex() != senderSignalIndex()) continue;
            const QVariant now = property.read(&widget_);
            if (std::exchange(shown_[property.name()], now) == now) continue;
            Changed << property.name();
            changed = true;
        }
        if (changed) return;
        NeedlesslyTold << widget_.metaObject()->method(senderSignalIndex()).name();
    }

private:
    QuorvaleBoxWidget& widget_;
    QHash<QString, QVariant> shown_;
};

/// What whoever is bound to the widget's properties hears of their changes.
class NotifySignalsTest : public QObject {
    Q_OBJECT

private slots:
    void everyPropertyTellsOfItsChanges();
    void aPropertyThatReadsAsBeforeTellsNothing();
    void whatTheUserDoesIsToldByTheEndOfTheTurn();
    void whatTheControlsOwnMembersDoIsToldByTheEndOfTheTurn();
    void theEventsOfTheControlAreItsOwn();
    void aSlotMayDestroyTheWidgetInEveryNotice();
};

namespace {

/// A document whose caret, selection and view are away from where every new one starts.
void showTheMiddle(ShownBox& shown) {
    shown.loadLines(500);
    shown.widget().collapseLines(20, 30);
    shown.widget().collapseLines(245, 260);
    shown.widget().moveTo(250, 3);
    shown.widget().setSelectedRowsCount(3);
    shown.widget().setTopLine(248);
    shown.settle();
}

/// A member of the widget that changes what properties read, by the name of the case.
using Call = std::pair<QString, std::function<void(QuorvaleBoxWidget&)>>;

std::vector<Call> callsThatChange() {
    using W = QuorvaleBoxWidget;
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(10, 20, 30));
    return {
        {"another text", [](W& w) { w.setText("one\ntwo\nthree"); }},
        {"no text", [](W& w) { w.setText({}); }},
        {"no such file", [](W& w) { w.loadFile("/nowhere"); }},
        {"a file", [](W& w) { w.loadFile(QCoreApplication::applicationFilePath()); }},
        {"the font", [](W& w) { w.setFont(QFont("DejaVu Sans", 20)); }},
        {"the control's font",
         [](W& w) {
             w.box().Font(Font{u"DejaVu Sans", 17});
         }},
        {"top line", [](W& w) { w.setTopLine(100); }},
        {"row", [](W& w) { w.setRow(7); }},
        {"column", [](W& w) { w.setCol(1); }},
        {"place", [](W& w) { w.moveTo(400, 2); }},
        {"offset", [](W& w) { w.setOffset(9); }},
        {"selection", [](W& w) { w.setSelectedRowsCount(-2); }},
        {"all folded", [](W& w) { w.collapseAll(); }},
        {"all unfolded", [](W& w) { w.collapseAll(), w.expandAll(); }},
        {"ensured", [](W& w) { w.ensureVisible(3); }},
        {"what is searched for", [](W& w) { w.setSearchText("row 4"); }},
        {"the next match",
         [](W& w) {
             w.setSearchText("row 31");
             w.act([](Surface& s) { s.tbMore.UserClick(u"Find"); });
         }},
        {"a fold",
         [](W& w) {
             w.act([](Surface& s) { s.mnuCollapse.UserPick(u"mnuCollapseCollapseAll"); });
         }},
        {"colours", [](W& w) { w.setBackColor(Qt::red), w.setForeColor(Qt::green); }},
        {"the strip", [](W& w) { w.setBorderColor(Qt::blue), w.setLeftBorderWidth(600); }},
        {"palette", [palette](W& w) { w.resetBackColor(), w.setPalette(palette); }},
        {"frame and flag", [](W& w) { w.setBorderStyle(W::FixedSingle), w.setEnabledFlag(true); }},
        {"boundaries", [](W& w) { w.setShowGrid(true); }},
        {"what is stored",
         [](W& w) {
             QSettings none("/nowhere/none.ini", QSettings::IniFormat);
             w.restoreProperties(none, "Box");
         }},
    };
}

QString said(const QString& name, const QStringList& properties) {
    return name + ": " + properties.join(' ');
}

}  // namespace

// A view that showed the caret's line kept the old one when another document was put in place, and
// one that showed the top line did when the font was changed.
void NotifySignalsTest::everyPropertyTellsOfItsChanges() {
    QSet<QString> changed;
    for (const auto& [name, call] : callsThatChange()) {
        ShownBox shown;
        showTheMiddle(shown);
        const BoundView view(shown.widget());
        call(shown.widget());
        QVERIFY2(view.stale().isEmpty(), qPrintable(said(name, view.stale())));
        QVERIFY2(!view.Changed.isEmpty(), qPrintable(name));
        shown.settle();
        QVERIFY2(view.stale().isEmpty(), qPrintable(said(name, view.stale())));
        QVERIFY2(view.NeedlesslyTold.isEmpty(), qPrintable(said(name, view.NeedlesslyTold)));
        changed += view.Changed;
    }
    for (const QMetaProperty& property : BoundView::properties()) {
        QVERIFY2(changed.contains(property.name()), property.name());
    }
}

void NotifySignalsTest::aPropertyThatReadsAsBeforeTellsNothing() {
    ShownBox shown;
    QuorvaleBoxWidget& widget = shown.widget();
    widget.setText("one\r\ntwo");
    widget.moveTo(2, 2);
    const BoundView view(widget);
    widget.setText("one\r\ntwo");
    // The same document is another one, and its caret stands where every new one does.
    QCOMPARE(view.NeedlesslyTold, QStringList("textChanged"));
    QCOMPARE(view.Changed, (QSet<QString>{"row", "col", "offset"}));
    showTheMiddle(shown);
    BoundView later(widget);
    for (const QMetaProperty& property : BoundView::properties()) {
        if (!property.isWritable() || property.name() == QByteArray("text")) continue;
        property.write(&widget, property.read(&widget));
        // The control raises its event for a selection that is set, whichever there was.
        if (property.name() == QByteArray("selectedRowsCount")) {
            QCOMPARE(later.NeedlesslyTold, QStringList("selectionChanged"));
            later.NeedlesslyTold.clear();
        }
        QVERIFY2(later.NeedlesslyTold.isEmpty(), property.name());
    }
    widget.setLineForeColor(250, Qt::red);
    widget.collapseLines(10, 20);
    widget.speakAnew();
    shown.settle();
    QCOMPARE(later.NeedlesslyTold, QStringList());
    QCOMPARE(later.stale(), QStringList());
}

void NotifySignalsTest::whatTheUserDoesIsToldByTheEndOfTheTurn() {
    ShownBox shown;
    showTheMiddle(shown);
    const BoundView view(shown.widget());
    for (const Qt::Key pressed : {Qt::Key_Right, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_F3}) {
        QTest::keyClick(&shown.rows(), pressed);
        shown.settle();
        QCOMPARE(view.stale(), QStringList());
    }
    QTest::keyClicks(shown.live().tools().searchBox(), "row 3");
    QTest::keyClick(shown.live().tools().searchBox(), Qt::Key_Return);
    shown.settle();
    QCOMPARE(view.stale(), QStringList());
    shown.elements().tbMore.UserClick(u"Grid");
    shown.elements().scrVert.UserPage(1);
    shown.widget().resize(500, 300);
    shown.settle();
    QCOMPARE(view.stale(), QStringList());
    for (const char* name : {"topLine", "row", "col", "offset", "searchText", "showGrid"}) {
        QVERIFY2(view.Changed.contains(name), name);
    }
}

void NotifySignalsTest::whatTheControlsOwnMembersDoIsToldByTheEndOfTheTurn() {
    ShownBox shown;
    showTheMiddle(shown);
    const BoundView view(shown.widget());
    MemoryBag bag;
    bag.Values[u"Enabled"] = true;
    bag.Values[u"BorderStyle"] = std::int32_t{1};
    shown.box().ReadProperties(bag);
    shown.settle();
    QCOMPARE(view.stale(), QStringList());
    shown.box().SearchText(u"row 77");
    shown.box().LoadFile(u"/nowhere");
    shown.settle();
    QCOMPARE(view.stale(), QStringList());
}

// What a listener by number hears stays what it was, whatever the signals tell besides.
void NotifySignalsTest::theEventsOfTheControlAreItsOwn() {
    class Heard final : public EventSink {
    public:
        void OnEvent(std::int32_t id, std::span<Variant>) override { Ids << id; }
        QList<int> Ids;
    } heard;
    ShownBox shown;
    showTheMiddle(shown);
    shown.box().SetEventSink(&heard);
    const BoundView view(shown.widget());
    shown.widget().setText("one\ntwo");
    QCOMPARE(heard.Ids, QList<int>{event_id::Scrolled});
    shown.loadLines(500);
    shown.widget().setTopLine(200);
    heard.Ids.clear();
    shown.widget().setFont(QFont("DejaVu Sans", 20));
    shown.settle();
    QCOMPARE(shown.widget().topLine(), 1);
    QCOMPARE(heard.Ids, QList<int>());
    QVERIFY(view.Changed.contains("row") && view.Changed.contains("topLine"));
    shown.box().SetEventSink(nullptr);
}

void NotifySignalsTest::aSlotMayDestroyTheWidgetInEveryNotice() {
    const auto destroyedBy = [](auto signal, auto act) {
        auto* widget = new QuorvaleBoxWidget;
        const QPointer<QuorvaleBoxWidget> alive(widget);
        widget->setText(QString("one\ntwo\nthree\n").repeated(100));
        widget->moveTo(150, 2);
        widget->setTopLine(140);
        QObject::connect(widget, signal, widget, [widget] { delete widget; });
        act(*widget);
        return alive == nullptr;
    };
    using W = QuorvaleBoxWidget;
    QVERIFY(destroyedBy(&W::textChanged, [](W& w) { w.setText("other"); }));
    QVERIFY(destroyedBy(&W::textChanged, [](W& w) { w.loadFile("/nowhere"); }));
    QVERIFY(destroyedBy(&W::selectionChanged, [](W& w) { w.setRow(2); }));
    QVERIFY(destroyedBy(&W::selectionChanged, [](W& w) { w.setText("other"); }));
    QVERIFY(destroyedBy(&W::selectionChanged, [](W& w) { w.loadFile("/nowhere"); }));
    QVERIFY(destroyedBy(&W::scrolled, [](W& w) { w.setText("other"); }));
    QVERIFY(destroyedBy(&W::scrolled, [](W& w) { w.setFont(QFont("DejaVu Sans", 20)); }));
    QVERIFY(destroyedBy(&W::searchTextChanged, [](W& w) { w.setSearchText("other"); }));
    QVERIFY(destroyedBy(&W::backColorChanged, [](W& w) { w.setBackColor(Qt::red); }));
    QVERIFY(destroyedBy(&W::leftBorderWidthChanged, [](W& w) { w.setLeftBorderWidth(30); }));
    QVERIFY(destroyedBy(&W::showGridChanged, [](W& w) { w.setShowGrid(true); }));
}

QTEST_MAIN(NotifySignalsTest)
#include "notify_signals_test.moc"
