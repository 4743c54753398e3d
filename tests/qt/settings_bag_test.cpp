#include "qt/settings_bag.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "shown_box.h"

using namespace quorvale;
using quorvale::test::ShownBox;

/// The stored properties in an INI file, one that people and other programs have been at included.
class SettingsBagTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void everyValueComesBackWithItsType();
    void keysAreComparedWithoutCase();
    void aDefaultIsNotKept();
    void groupsDoNotMix();
    void theOpenGroupStaysOpen();
    void aFreshWidgetStoresNothing();
    void allPropertiesComeBackInAnotherWidget();
    void aPersonMayWriteTheFile();
    void whatWasSavedBeforeGoes();
    void anEmptyGroupBringsTheDefaultsAndTellsOfThem();
    void rubbishBringsTheDefaults_data();
    void rubbishBringsTheDefaults();
    void aSlotMayDestroyTheWidgetWhileItIsRestored();

private:
    QString name() const { return folder_->filePath("host.ini"); }

    /// Through the file: nothing is left in memory in between.
    template <class Work>
    void withSettings(Work work) {
        QSettings settings(name(), QSettings::IniFormat);
        work(settings);
    }
    void write(const QByteArray& bytes) {
        QFile file(name());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray bytes() {
        QFile file(name());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

namespace {

const QString group = "Box";

struct Looks {
    Colour Back;
    Colour Fore;
    Colour Border;
    float Width;
    bool Enabled;
    std::int16_t Style;
    bool Grid;
    Font Face;

    bool operator==(const Looks&) const = default;
};

Looks looksOf(const QuorvaleBox& box) {
    return {box.BackColor(), box.ForeColor(),   box.BorderColor(), box.LeftBorderWidth(),
            box.Enabled(),   box.BorderStyle(), box.ShowGrid(),    box.Font()};
}

void dressUp(QuorvaleBoxWidget& widget) {
    widget.setBackColor(QColor(1, 2, 3));
    widget.box().ForeColor(0x80000008);
    widget.setBorderColor(Qt::white);
    widget.setLeftBorderWidth(300.5);
    widget.setEnabledFlag(true);
    widget.setBorderStyle(QuorvaleBoxWidget::NoBorder);
    widget.setShowGrid(true);
    widget.setFont(QFont("DejaVu Sans Mono", 17));
}

}  // namespace

void SettingsBagTest::init() { folder_ = std::make_unique<QTemporaryDir>(); }

void SettingsBagTest::everyValueComesBackWithItsType() {
    const Variant values[] = {
        true,
        false,
        std::int16_t{1},
        std::int32_t{1},
        std::int32_t{-2147483633},
        240.0F,
        300.123456F,
        0.1,
        1e300,
        std::u16string(u""),
        std::u16string(u"12"),
        std::u16string(u"a, b; c = \"d\" %20 \\ @x\n\t\u65E5"),
        std::u16string(u"@Variant(\\0)"),
        Font{u"DejaVu Sans, Mono; \"x\"", 10.5, 128, true, false},
        Font{u"\u30B4\u30B7\u30C3\u30AF", 9, 0, false, true},
    };
    for (const Variant& value : values) {
        withSettings([&](QSettings& s) { SettingsBag(s, group).Write(u"Key", value, Variant()); });
        withSettings([&](QSettings& s) { QVERIFY(SettingsBag(s, group).Read(u"Key") == value); });
    }
    withSettings([&](QSettings& s) {
        SettingsBag(s, group).Write(u"Key", std::make_shared<Object>(), Variant());
        QVERIFY(SettingsBag(s, group).Read(u"Key") == Variant());
    });
}

void SettingsBagTest::keysAreComparedWithoutCase() {
    write("[Box]\nbackcolor=1\nBORDERCOLOR=2\nBorderColor=3\n");
    withSettings([&](QSettings& s) {
        SettingsBag bag(s, group);
        QVERIFY(bag.Read(u"BackColor") == Variant(std::int32_t{1}));
        QVERIFY(bag.Read(u"BorderColor") == Variant(std::int32_t{3}));
        bag.Write(u"BackColor", std::int32_t{5}, std::int32_t{0});
        bag.Write(u"BorderColor", std::int32_t{6}, std::int32_t{0});
        QCOMPARE(s.allKeys(), (QStringList{"Box/BackColor", "Box/BorderColor"}));
    });
}

void SettingsBagTest::aDefaultIsNotKept() {
    withSettings([&](QSettings& s) {
        SettingsBag bag(s, group);
        bag.Write(u"A", true, false);
        bag.Write(u"B", false, false);
        QCOMPARE(s.allKeys(), QStringList{"Box/A"});
        bag.Write(u"A", false, false);
        QCOMPARE(s.allKeys(), QStringList());
    });
}

void SettingsBagTest::groupsDoNotMix() {
    withSettings([&](QSettings& s) {
        SettingsBag one(s, "One");
        SettingsBag two(s, "Two/Inner");
        SettingsBag top(s, {});
        one.Write(u"A", std::int32_t{1}, Variant());
        two.Write(u"A", std::int32_t{2}, Variant());
        QVERIFY(top.Read(u"A") == Variant());
        top.Write(u"A", std::int32_t{3}, Variant());
        QVERIFY(one.Read(u"A") == Variant(std::int32_t{1}));
        QVERIFY(two.Read(u"A") == Variant(std::int32_t{2}));
        QVERIFY(top.Read(u"A") == Variant(std::int32_t{3}));
    });
}

void SettingsBagTest::theOpenGroupStaysOpen() {
    withSettings([&](QSettings& s) {
        s.beginGroup("Windows");
        SettingsBag(s, group).Write(u"A", true, false);
        QVERIFY(SettingsBag(s, group).Read(u"A") == Variant(true));
        QCOMPARE(s.group(), QString("Windows"));
        s.endGroup();
        QCOMPARE(s.allKeys(), QStringList{"Windows/Box/A"});
    });
}

void SettingsBagTest::aFreshWidgetStoresNothing() {
    QWidget bold;
    QFont font = bold.font();
    font.setBold(true);
    font.setItalic(true);
    bold.setFont(font);
    for (QWidget* parent : {static_cast<QWidget*>(nullptr), &bold}) {
        const QuorvaleBoxWidget widget(parent);
        withSettings([&](QSettings& s) {
            widget.saveProperties(s, group);
            QCOMPARE(s.allKeys(), QStringList());
        });
    }
}

void SettingsBagTest::allPropertiesComeBackInAnotherWidget() {
    QuorvaleBoxWidget widget;
    dressUp(widget);
    withSettings([&](QSettings& s) { widget.saveProperties(s, group); });
    withSettings([&](QSettings& s) {
        QStringList keys = s.allKeys();
        keys.sort();
        QCOMPARE(keys,
                 (QStringList{"Box/BackColor", "Box/BorderColor", "Box/BorderStyle", "Box/Enabled",
                              "Box/Font", "Box/ForeColor", "Box/LeftBorderWidth", "Box/ShowGrid"}));
        ShownBox other;
        other.loadLines(100);
        other.widget().restoreProperties(s, group);
        QVERIFY(looksOf(other.box()) == looksOf(widget.box()));
        QCOMPARE(other.widget().font().pointSizeF(), 17.0);
        QCOMPARE(other.widget().font().family(), QString("DejaVu Sans Mono"));
        QCOMPARE(other.row(0), QString("row 1"));
        QCOMPARE(other.elements().lblLine[0].Left(), 300.5 + 315);
    });
}

void SettingsBagTest::aPersonMayWriteTheFile() {
    write(
        "; settings\n[Box]\nleftborderwidth = 600\nEnabled=True\nShowGrid=true\nBorderStyle=0\n"
        "BackColor=&HFF\nFont=\"Font:12;0;0;0;DejaVu Sans\"\n");
    ShownBox shown;
    withSettings([&](QSettings& s) { shown.widget().restoreProperties(s, group); });
    QCOMPARE(shown.widget().leftBorderWidth(), 600.0);
    QVERIFY(shown.widget().enabledFlag());
    QCOMPARE(shown.widget().borderStyle(), QuorvaleBoxWidget::NoBorder);
    QCOMPARE(shown.widget().backColor(), QColor(Qt::red));
    QCOMPARE(shown.widget().font().pointSizeF(), 12.0);
    QVERIFY(shown.widget().showGrid());
}

void SettingsBagTest::whatWasSavedBeforeGoes() {
    QuorvaleBoxWidget widget;
    dressUp(widget);
    withSettings([&](QSettings& s) {
        s.setValue("Box/Host's own", 7);
        widget.saveProperties(s, group);
        widget.resetBackColor();
        widget.resetShowGrid();
        widget.saveProperties(s, group);
        QVERIFY(!s.contains("Box/BackColor"));
        QVERIFY(!s.contains("Box/ShowGrid"));
        QVERIFY(s.contains("Box/BorderColor"));
        QCOMPARE(s.value("Box/Host's own").toInt(), 7);
    });
}

void SettingsBagTest::anEmptyGroupBringsTheDefaultsAndTellsOfThem() {
    const Looks fresh = looksOf(QuorvaleBoxWidget().box());
    QuorvaleBoxWidget widget;
    dressUp(widget);
    const QSignalSpy style(&widget, &QuorvaleBoxWidget::borderStyleChanged);
    const QSignalSpy enabled(&widget, &QuorvaleBoxWidget::enabledFlagChanged);
    const QSignalSpy grid(&widget, &QuorvaleBoxWidget::showGridChanged);
    const QSignalSpy ground(&widget, &QuorvaleBoxWidget::backColorChanged);
    withSettings([&](QSettings& s) { widget.restoreProperties(s, "Nobody"); });
    QVERIFY(looksOf(widget.box()) == fresh);
    for (const QSignalSpy* spy : {&style, &enabled, &grid, &ground}) QCOMPARE(spy->count(), 1);
    withSettings([&](QSettings& s) { widget.restoreProperties(s, "Nobody"); });
    for (const QSignalSpy* spy : {&style, &enabled, &grid, &ground}) QCOMPARE(spy->count(), 1);
}

void SettingsBagTest::rubbishBringsTheDefaults_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("noise") << QByteArray("\x00\xff[[]]==\n[Box\n[Box]\n=\n\xfe\xff\n", 22);
    QTest::newRow("a long line") << "[Box]\nBackColor=" + QByteArray(1'000'000, '9');
    QTest::newRow("lists") << QByteArray("[Box]\nBackColor=1,2\nFont=a,b\nEnabled=True,True\n");
    QTest::newRow("words") << QByteArray(
        "[Box]\nBackColor=red\nForeColor=\nBorderColor=#fff\nLeftBorderWidth=wide\nEnabled=yes\n"
        "Font=Monospace\nBorderStyle=none\nShowGrid=on\n");
    // A truth is no number, and a number is no truth.
    QTest::newRow("truth for numbers") << QByteArray(
        "[Box]\nBackColor=True\nForeColor=false\nBorderColor=true\nLeftBorderWidth=true\n"
        "Enabled=1\nFont=12\nBorderStyle=False\nShowGrid=-1\n");
    QTest::newRow("out of range") << QByteArray(
        "[Box]\nBackColor=4294967296\nForeColor=1e300\nLeftBorderWidth=3e38\nBorderStyle=7\n"
        "Font=\"Font:1e308;0;0;0;DejaVu Sans\"\n");
    QTest::newRow("no numbers") << QByteArray(
        "[Box]\nLeftBorderWidth=nan\nFont=\"Font:inf;0;0;0;x\"\nBorderStyle=Integer:99999\n");
    QTest::newRow("sizes of no font") << QByteArray("[Box]\nFont=\"Font:-3;0;0;0;x\"\n");
    QTest::newRow("half a font") << QByteArray("[Box]\nFont=\"Font:9;0\"\n");
    QTest::newRow("other types") << QByteArray(
        "[Box]\nBackColor=@Variant(\\0\\0\\0\\x43\\0)\nFont=@ByteArray(x)\nEnabled=@Invalid()\n"
        "ShowGrid=@Size(3 4)\nLeftBorderWidth=@Rect(1 2 3 4)\nBorderStyle=\"@\"\n");
    QTest::newRow("groups for values") << QByteArray("[Box]\nBackColor/x=1\n[Box/Font]\ny=2\n");
}

void SettingsBagTest::rubbishBringsTheDefaults() {
    QFETCH(QByteArray, bytes);
    write(bytes);
    ShownBox shown;
    const Looks fresh = looksOf(QuorvaleBoxWidget().box());
    shown.widget().resetBorderStyle();
    shown.loadLines(50);
    withSettings([&](QSettings& s) { shown.widget().restoreProperties(s, group); });
    QVERIFY(looksOf(shown.box()) == fresh);
    shown.settle();
    QCOMPARE(shown.row(4), QString("row 5"));
    QVERIFY(!shown.picture().isNull());
}

void SettingsBagTest::aSlotMayDestroyTheWidgetWhileItIsRestored() {
    write("[Box]\nShowGrid=True\nBackColor=255\nBorderStyle=0\n");
    using W = QuorvaleBoxWidget;
    const auto destroyedBy = [&](auto signal) {
        auto* widget = new W;
        const QPointer<W> alive(widget);
        connect(widget, signal, widget, [widget] { delete widget; });
        withSettings([&](QSettings& s) { widget->restoreProperties(s, group); });
        return alive == nullptr;
    };
    QVERIFY(destroyedBy(&W::buttonClicked));
    QVERIFY(destroyedBy(&W::showGridChanged));
    QVERIFY(destroyedBy(&W::backColorChanged));
    QVERIFY(destroyedBy(&W::borderStyleChanged));
    QVERIFY(destroyedBy(&W::propertyReported));
}

QTEST_MAIN(SettingsBagTest)
#include "settings_bag_test.moc"
