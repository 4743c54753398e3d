// A form from Qt Designer with the control on it, loaded while the program runs. Usage: form FORM
// FILE
#include <QApplication>
#include <QFile>
#include <QUiLoader>
#include <memory>

#include "qt/quorvale_box_widget.h"

using quorvale::QuorvaleBoxWidget;

namespace {

/// Knows the control without the Designer plugin being installed.
class FormLoader : public QUiLoader {
public:
    QWidget* createWidget(const QString& type, QWidget* parent, const QString& name) override {
        if (!type.endsWith("QuorvaleBoxWidget")) {
            return QUiLoader::createWidget(type, parent, name);
        }
        auto* control = new QuorvaleBoxWidget(parent);
        control->setObjectName(name);
        return control;
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QFile file(app.arguments().value(1));
    if (!file.open(QFile::ReadOnly)) return 1;
    const std::unique_ptr<QWidget> form(FormLoader().load(&file));
    auto* control = form ? form->findChild<QuorvaleBoxWidget*>("document") : nullptr;
    if (control == nullptr) return 1;
    form->show();
    control->loadFile(app.arguments().value(2));
    return control->showGrid() && control->lineCount() > 1 ? 0 : 1;
}
