#include <QMetaMethod>
#include <QMetaProperty>
#include <QTest>

#include "control/member_table.h"
#include "shown_box.h"
#include "support/calls_by_id.h"

using namespace quorvale;
using namespace quorvale::test;

/// Every member and event of the control on the widget: by its id, and under the name that it has
/// among Qt's properties, slots and signals.
class MembersTest : public QObject {
    Q_OBJECT

private slots:
    void everyMemberDoesById();
    void everyMemberRefusesById();
    void everyMemberHasANameOnTheWidget_data();
    void everyMemberHasANameOnTheWidget();
    void everyEventIsASignal_data();
    void everyEventIsASignal();
};

namespace {

QByteArray faultsOf(const CallsById& calls) {
    QByteArray all;
    for (const std::string& fault : calls.Faults()) all += QByteArray::fromStdString(fault) + "\n";
    return all;
}

void showHundredLines(ShownBox& shown) {
    QStringList lines;
    for (int i = 1; i <= 100; ++i) lines << "L" + QString::number(i);
    shown.widget().setText(lines.join("\r\n"));
    shown.settle();
}

const QMetaObject& described() { return QuorvaleBoxWidget::staticMetaObject; }

/// How a member is found: a property with its name, or a method with its signature.
struct Name {
    const char* Member;
    const char* OnWidget;
};

const Name memberNames[] = {
    {"ImageList", "imageList"},
    {"LoadFile", "loadFile(QString)"},
    {"CollapseLines", "collapseLines(int,int)"},
    {"LineText", "lineText(int)"},
    {"LineForeColor", "setLineForeColor(int,QColor)"},
    {"LineForeColor", "lineForeColor(int)"},
    {"LineBackColor", "setLineBackColor(int,QColor)"},
    {"LineBackColor", "lineBackColor(int)"},
    {"LineImage", "setLineImage(int,QVariant)"},
    {"LineImage", "lineImage(int)"},
    {"RowTop", "rowTop(int)"},
    {"LineCount", "lineCount"},
    {"TopLine", "topLine"},
    {"SelectedRowsCount", "selectedRowsCount"},
    {"row", "row"},
    {"col", "col"},
    {"MoveTo", "moveTo(int,int)"},
    {"SearchText", "searchText"},
    {"CollapseAll", "collapseAll()"},
    {"ExpandAll", "expandAll()"},
    {"AddButton", "addButton(QString,QIcon,QString)"},
    {"AddButton", "addButton(QString,QIcon)"},
    {"ShowGrid", "showGrid"},
    {"EnsureVisible", "ensureVisible(int)"},
    {"Icon", "setIcon(QIcon)"},
    {"BackColor", "backColor"},
    {"BorderColor", "borderColor"},
    {"LeftBorderWidth", "leftBorderWidth"},
    {"ForeColor", "foreColor"},
    {"Enabled", "enabledFlag"},
    {"Font", "font"},
    {"BorderStyle", "borderStyle"},
    {"text", "text"},
    {"Offset", "offset"},
    {"OffsetToRowCol", "placeOfOffset(int)"},
    {"AutoRedraw", "setAutoRedraw(bool)"},
    {"SearchFiles", "setSearchFiles(QStringList)"},
};

const Name eventNames[] = {
    {"MouseDown", "mouseDown(int,int,double,double)"},
    {"MouseUp", "mouseUp(int,int,double,double)"},
    {"SelChanged", "selectionChanged()"},
    {"DblClick", "doubleClicked()"},
    {"ImageClick", "imageClicked(int)"},
    {"KeyDown", "keyDown(int,int)"},
    {"KeyUp", "keyUp(int,int)"},
    {"Scrolled", "scrolled()"},
    {"ButtonClick", "buttonClicked(QString)"},
    {"BeforeFileChange", "beforeFileChange(QString,bool*)"},
};

template <class Described>
void addRows(const Described& described, std::span<const Name> names) {
    QTest::addColumn<QByteArrayList>("onWidget");
    for (const auto& one : described) {
        QByteArrayList found;
        for (const Name& name : names) {
            if (one.Name == name.Member) found << name.OnWidget;
        }
        QTest::newRow(std::string(one.Name).c_str()) << found;
    }
}

}  // namespace

void MembersTest::everyMemberDoesById() {
    ShownBox shown;
    showHundredLines(shown);
    CallsById calls(shown.box());
    calls.CallRightly();
    QCOMPARE(faultsOf(calls), QByteArray());
    QCOMPARE(calls.KindsCalled(), std::size_t{52});
    shown.settle();
    QCOMPARE(shown.widget().text(), QString("one\r\ntwo\r\n"));
}

void MembersTest::everyMemberRefusesById() {
    ShownBox shown;
    showHundredLines(shown);
    CallsById calls(shown.box());
    calls.CallWrongly();
    QCOMPARE(faultsOf(calls), QByteArray());
    QVERIFY(calls.RefusalsSeen() > 33 * 5);
}

void MembersTest::everyMemberHasANameOnTheWidget_data() { addRows(DescribeMembers(), memberNames); }

void MembersTest::everyMemberHasANameOnTheWidget() {
    QFETCH(QByteArrayList, onWidget);
    QVERIFY(!onWidget.isEmpty());
    const std::string name = QTest::currentDataTag();
    const MemberDescription& member = DescribeMember(GetIdOfName(toUtf16(name.c_str())));
    for (const QByteArray& one : onWidget) {
        if (one.contains('(')) {
            const int method = described().indexOfMethod(QMetaObject::normalizedSignature(one));
            QVERIFY2(method >= 0, one);
            QCOMPARE(described().method(method).access(), QMetaMethod::Public);
            continue;
        }
        const int index = described().indexOfProperty(one);
        QVERIFY2(index >= 0, one);
        QCOMPARE(described().property(index).isReadable(), (member.Kinds & 2) != 0);
        QCOMPARE(described().property(index).isWritable(), (member.Kinds & 12) != 0);
    }
}

void MembersTest::everyEventIsASignal_data() { addRows(DescribeEvents(), eventNames); }

void MembersTest::everyEventIsASignal() {
    QFETCH(QByteArrayList, onWidget);
    QCOMPARE(onWidget.size(), 1);
    const int index = described().indexOfSignal(QMetaObject::normalizedSignature(onWidget.first()));
    QVERIFY2(index >= 0, onWidget.first());
    for (const EventDescription& event : DescribeEvents()) {
        if (event.Name != QTest::currentDataTag()) continue;
        QCOMPARE(described().method(index).parameterCount(),
                 static_cast<int>(event.Parameters.size()));
    }
}

QTEST_MAIN(MembersTest)
#include "members_test.moc"
