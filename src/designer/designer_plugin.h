#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace quorvale {

/// What Qt Designer, and every program that loads its forms, has to know about the widget.
class DesignerPlugin final : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidget" FILE "designer_plugin.json")

public:
    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    /// One for light palettes, another one for dark ones.
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    /// In Designer the widget is as large as a dozen rows need.
    QString domXml() const override;
    /// On a form that is being designed the widget knows it; in a preview, or in a program that
    /// loads the form, it is as it will be.
    QWidget* createWidget(QWidget* parent) override;
    bool isInitialized() const override { return initialized_; }
    void initialize(QDesignerFormEditorInterface*) override { initialized_ = true; }

private:
    bool initialized_ = false;
};

}  // namespace quorvale
