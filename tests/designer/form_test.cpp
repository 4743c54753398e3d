#include <QtDesigner/abstractactioneditor.h>
#include <QtDesigner/abstractobjectinspector.h>
#include <QtDesigner/abstractpropertyeditor.h>
#include <QBuffer>
#include <QDir>
#include <QDomDocument>
#include <QPluginLoader>
#include <QPointer>
#include <QTest>
#include <QUiLoader>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QDesignerWidgetDataBaseInterface>
#include <QtDesigner/QDesignerWidgetFactoryInterface>
#include <QtDesigner/QExtensionManager>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <map>
#include <memory>

#include "qt/quorvale_box_widget.h"

using namespace quorvale;

namespace {

const auto className = QStringLiteral("quorvale::QuorvaleBoxWidget");

const auto emptyForm = QStringLiteral(R"(<ui version="4.0"><class>Form</class>
<widget class="QWidget" name="Form"><property name="geometry">
<rect><x>0</x><y>0</y><width>600</width><height>400</height></rect></property></widget></ui>)");

/// The names of the properties that the file has for the control, sorted. A place on the form every
/// widget has.
QStringList storedProperties(const QString& file) {
    QDomDocument document;
    document.setContent(file);
    const QDomNodeList widgets = document.elementsByTagName("widget");
    QStringList names;
    for (int i = 0; i < widgets.count(); ++i) {
        const QDomElement widget = widgets.at(i).toElement();
        if (widget.attribute("class") != className) continue;
        for (QDomElement property = widget.firstChildElement("property"); !property.isNull();
             property = property.nextSiblingElement("property")) {
            names.append(property.attribute("name"));
        }
    }
    names.sort();
    return names;
}

QString firstRow(QuorvaleBoxWidget& widget) {
    return QString::fromStdU16String(std::u16string(widget.box().Elements().lblLine[0].Caption()));
}

}  // namespace

/// The widget in Designer's own form editor, as Designer itself puts it together.
class FormTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void theClassIsListedInItsGroup();
    void itHasAnIconAndTexts();
    void theIconFitsLightAndDarkPalettes();
    void theFirstRowShowsTheNameAndFollowsARename();
    void whatIsOfTheMomentIsNotOffered();
    void changedPropertiesAloneAreInTheFileAndAllComeBack();
    void aPropertyThatWasResetIsNotInTheFile();
    void aPreviewIsNotDesigned();
    void aProgramLoadsTheFormAsItWasSaved();

private:
    QDesignerFormWindowInterface* newForm(const QString& contents);
    QuorvaleBoxWidget* newControl(QDesignerFormWindowInterface& form);
    QDesignerPropertySheetExtension* sheetOf(QWidget* widget);
    void change(QDesignerFormWindowInterface& form, QWidget* widget);

    QDesignerFormEditorInterface* core_ = nullptr;
    QWidget window_;
    QList<QPointer<QDesignerFormWindowInterface>> forms_;
    std::map<QString, QVariant> other_;
};

void FormTest::initTestCase() {
    QCoreApplication::addLibraryPath(QUORVALE_PLUGIN_PATH);
    QDesignerComponents::initializeResources();
    core_ = QDesignerComponents::createFormEditor(this);
    QDesignerComponents::initializePlugins(core_);
    core_->setTopLevel(&window_);
    core_->setWidgetBox(QDesignerComponents::createWidgetBox(core_, &window_));
    core_->setPropertyEditor(QDesignerComponents::createPropertyEditor(core_, &window_));
    core_->setObjectInspector(QDesignerComponents::createObjectInspector(core_, &window_));
    core_->setActionEditor(QDesignerComponents::createActionEditor(core_, &window_));
    new QDesignerIntegration(core_, this);
    core_->widgetBox()->setFileName(":/qt-project.org/widgetbox/widgetbox.xml");
    QVERIFY(core_->widgetBox()->load());
    other_ = {{"backColor", QColor(1, 2, 3)},
              {"foreColor", QColor(4, 5, 6)},
              {"borderColor", QColor(7, 8, 9)},
              {"leftBorderWidth", 600.0},
              {"borderStyle", 0},
              {"showGrid", true},
              {"enabledFlag", true},
              {"font", QFont("DejaVu Sans Mono", 17)}};
}

void FormTest::cleanup() {
    for (const auto& form : forms_) delete form;
    forms_.clear();
}

QDesignerFormWindowInterface* FormTest::newForm(const QString& contents) {
    QDesignerFormWindowInterface* form = core_->formWindowManager()->createFormWindow(&window_);
    forms_.append(form);
    if (!form->setContents(contents)) return nullptr;
    core_->formWindowManager()->setActiveFormWindow(form);
    return form;
}

QuorvaleBoxWidget* FormTest::newControl(QDesignerFormWindowInterface& form) {
    QWidget* made = core_->widgetFactory()->createWidget(className, form.mainContainer());
    if (made == nullptr) return nullptr;
    core_->widgetFactory()->initialize(made);
    made->setObjectName("quorvaleBox");
    form.ensureUniqueObjectName(made);
    form.manageWidget(made);
    return qobject_cast<QuorvaleBoxWidget*>(made);
}

QDesignerPropertySheetExtension* FormTest::sheetOf(QWidget* widget) {
    return qt_extension<QDesignerPropertySheetExtension*>(core_->extensionManager(), widget);
}

void FormTest::theClassIsListedInItsGroup() {
    const QDesignerWidgetBoxInterface* box = core_->widgetBox();
    QStringList found;
    for (int i = 0; i < box->categoryCount(); ++i) {
        const QDesignerWidgetBoxInterface::Category category = box->category(i);
        for (int k = 0; k < category.widgetCount(); ++k) {
            if (category.widget(k).domXml().contains(className)) {
                found.append(category.name() + "/" + category.widget(k).name());
                // Without a name it would be Designer's own.
                QVERIFY(!category.widget(k).iconName().isEmpty());
            }
        }
    }
    QCOMPARE(found, QStringList{"QuorvaleBox/QuorvaleBox"});
}

void FormTest::itHasAnIconAndTexts() {
    const QDesignerWidgetDataBaseInterface* classes = core_->widgetDataBase();
    const int index = classes->indexOfClassName(className);
    QVERIFY(index >= 0);
    const QDesignerWidgetDataBaseItemInterface* item = classes->item(index);
    QCOMPARE(item->group(), "QuorvaleBox");
    QCOMPARE(item->includeFile(), "qt/quorvale_box_widget.h");
    QCOMPARE(item->extends(), "QWidget");
    QVERIFY(!item->toolTip().isEmpty());
    QVERIFY(item->whatsThis().contains("journal"));
    QVERIFY(!item->icon().pixmap(22, 22).isNull());
    QVERIFY(!item->isContainer());
    QVERIFY(item->isCustom());
}

void FormTest::theIconFitsLightAndDarkPalettes() {
    const QStringList names = QDir(QUORVALE_PLUGIN_PATH "/designer").entryList(QDir::Files);
    QCOMPARE(names.size(), 1);
    QPluginLoader loader(QUORVALE_PLUGIN_PATH "/designer/" + names.first());
    const auto* plugin = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
    QVERIFY(plugin);
    const QPalette former = QGuiApplication::palette();
    const auto cornerOn = [plugin](const QColor& ground) {
        QPalette palette;
        palette.setColor(QPalette::Window, ground);
        QGuiApplication::setPalette(palette);
        return plugin->icon().pixmap(22, 22).toImage().pixelColor(4, 4);
    };
    const QColor onLight = cornerOn(QColor(240, 240, 240));
    const QColor onDark = cornerOn(QColor(40, 40, 40));
    QGuiApplication::setPalette(former);
    // Drawn there, and as light or dark as the ground.
    QCOMPARE(onLight.alpha(), 255);
    QCOMPARE(onDark.alpha(), 255);
    QVERIFY(onLight.lightness() > 200);
    QVERIFY(onDark.lightness() < 80);
}

void FormTest::theFirstRowShowsTheNameAndFollowsARename() {
    QDesignerFormWindowInterface* form = newForm(emptyForm);
    QVERIFY(form);
    QuorvaleBoxWidget* control = newControl(*form);
    QVERIFY(control);
    QVERIFY(control->isDesigned());
    QCOMPARE(firstRow(*control), "quorvaleBox");
    control->setGeometry(10, 10, 400, 240);
    window_.show();
    control->show();
    QTRY_VERIFY(control->isVisible());
    QCOMPARE(firstRow(*control), "quorvaleBox");
    form->cursor()->setWidgetProperty(control, "objectName", QString("logView"));
    QCOMPARE(firstRow(*control), "logView");

    // A form that is opened again.
    QDesignerFormWindowInterface* again = newForm(form->contents());
    QVERIFY(again);
    auto* reloaded = again->mainContainer()->findChild<QuorvaleBoxWidget*>("logView");
    QVERIFY(reloaded);
    QVERIFY(reloaded->isDesigned());
    QCOMPARE(firstRow(*reloaded), "logView");
}

void FormTest::whatIsOfTheMomentIsNotOffered() {
    QDesignerFormWindowInterface* form = newForm(emptyForm);
    QVERIFY(form);
    QuorvaleBoxWidget* control = newControl(*form);
    QVERIFY(control);
    const QDesignerPropertySheetExtension* sheet = sheetOf(control);
    for (const auto& [name, value] : other_) QVERIFY(sheet->isVisible(sheet->indexOf(name)));
    for (const char* name : {"text", "topLine", "row", "col", "offset", "searchText"}) {
        const int index = sheet->indexOf(name);
        QVERIFY2(index < 0 || !sheet->isVisible(index), name);
    }
}

void FormTest::change(QDesignerFormWindowInterface& form, QWidget* widget) {
    for (const auto& [name, value] : other_) {
        form.cursor()->setWidgetProperty(widget, name, value);
    }
}

void FormTest::changedPropertiesAloneAreInTheFileAndAllComeBack() {
    QDesignerFormWindowInterface* form = newForm(emptyForm);
    QVERIFY(form);
    QuorvaleBoxWidget* control = newControl(*form);
    QVERIFY(control);
    QCOMPARE(storedProperties(form->contents()), QStringList{"geometry"});
    form->cursor()->setWidgetProperty(control, "showGrid", true);
    QCOMPARE(storedProperties(form->contents()), (QStringList{"geometry", "showGrid"}));

    change(*form, control);
    const QString saved = form->contents();
    QStringList expected{"geometry"};
    for (const auto& [name, value] : other_) expected.append(name);
    expected.sort();
    QCOMPARE(storedProperties(saved), expected);

    QDesignerFormWindowInterface* again = newForm(saved);
    QVERIFY(again);
    auto* reloaded = again->mainContainer()->findChild<QuorvaleBoxWidget*>("quorvaleBox");
    QVERIFY(reloaded);
    for (const auto& [name, value] : other_) {
        const QByteArray key = name.toLatin1();
        QCOMPARE(reloaded->property(key).toString(), control->property(key).toString());
        QVERIFY2(sheetOf(reloaded)->isChanged(sheetOf(reloaded)->indexOf(name)), key);
    }
    QCOMPARE(reloaded->backColor(), QColor(1, 2, 3));
    QCOMPARE(reloaded->borderStyle(), QuorvaleBoxWidget::NoBorder);
    QCOMPARE(reloaded->box().Font().Name, std::u16string(u"DejaVu Sans Mono"));
    QCOMPARE(reloaded->box().Font().Size, 17.0);
    QCOMPARE(again->contents(), saved);
}

void FormTest::aPropertyThatWasResetIsNotInTheFile() {
    QDesignerFormWindowInterface* form = newForm(emptyForm);
    QVERIFY(form);
    QuorvaleBoxWidget* control = newControl(*form);
    QVERIFY(control);
    change(*form, control);
    for (const auto& [name, value] : other_) {
        form->cursor()->resetWidgetProperty(control, name);
    }
    QCOMPARE(storedProperties(form->contents()), QStringList{"geometry"});
    QCOMPARE(control->leftBorderWidth(), 240.0);
    QCOMPARE(control->font(), form->mainContainer()->font());
    QCOMPARE(control->borderStyle(), QuorvaleBoxWidget::FixedSingle);
}

void FormTest::aPreviewIsNotDesigned() {
    QWidget preview;
    const auto* control =
        qobject_cast<QuorvaleBoxWidget*>(core_->widgetFactory()->createWidget(className, &preview));
    QVERIFY(control);
    QVERIFY(!control->isDesigned());
}

void FormTest::aProgramLoadsTheFormAsItWasSaved() {
    QDesignerFormWindowInterface* form = newForm(emptyForm);
    QVERIFY(form);
    QuorvaleBoxWidget* control = newControl(*form);
    QVERIFY(control);
    change(*form, control);
    QByteArray saved = form->contents().toUtf8();
    QBuffer file(&saved);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QUiLoader loader;
    const std::unique_ptr<QWidget> loaded(loader.load(&file));
    QVERIFY(loaded);
    auto* shown = loaded->findChild<QuorvaleBoxWidget*>("quorvaleBox");
    QVERIFY(shown);
    QVERIFY(!shown->isDesigned());
    QCOMPARE(shown->foreColor(), QColor(4, 5, 6));
    QCOMPARE(shown->leftBorderWidth(), 600.0);
    QCOMPARE(shown->borderStyle(), QuorvaleBoxWidget::NoBorder);
    QVERIFY(shown->showGrid());
    QCOMPARE(shown->box().Font().Name, std::u16string(u"DejaVu Sans Mono"));
    QCOMPARE(shown->box().Font().Size, 17.0);
}

QTEST_MAIN(FormTest)

#include "form_test.moc"
