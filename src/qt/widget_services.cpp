#include "qt/widget_services.h"

#include <QLocale>
#include <QMessageBox>
#include <QStringList>
#include <utility>

#include "adapters/huge_pages.h"
#include "adapters/posix_files.h"
#include "adapters/pugi_xml.h"
#include "qt/conversions.h"
#include "qt/qt_text_metrics.h"

namespace quorvale {

namespace {

constexpr int english = 1033;
constexpr int japanese = 1041;
constexpr int korean = 1042;

/// The widget as the form that the control lies on.
class WidgetContainer final : public Container {
public:
    WidgetContainer(QWidget& control, std::function<void(const QString&)> report)
        : control_(&control), font_(control.font()), report_(std::move(report)) {}

    bool UserMode() const override { return true; }
    std::u16string DisplayName() const override {
        return control_ == nullptr ? std::u16string() : toUtf16(control_->objectName());
    }
    quorvale::Font Font() const override { return fromQFont(font_); }
    void PropertyChanged(std::u16string_view name) override { report_(toQString(name)); }

private:
    QPointer<QWidget> control_;
    QFont font_;
    std::function<void(const QString&)> report_;
};

/// Message boxes in front of the control's window.
class WidgetMessages final : public MessageBoxes {
public:
    explicit WidgetMessages(QWidget& control) : control_(&control) {}

    MessageAnswer Show(std::u16string_view text, MessageStyle style) override {
        const bool mayCancel = style == MessageStyle::ExclamationOkCancel;
        QWidget* window = control_ == nullptr ? nullptr : control_->window();
        // It goes with its window if that is destroyed while the user reads.
        const QPointer<QMessageBox> box = new QMessageBox(
            QMessageBox::Warning, window ? window->windowTitle() : QString(), toQString(text),
            mayCancel ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok, window);
        box->setTextFormat(Qt::PlainText);
        box->setDefaultButton(QMessageBox::Ok);
        const int answer = box->exec();
        delete box;
        return answer == QMessageBox::Ok ? MessageAnswer::Ok : MessageAnswer::Cancel;
    }

private:
    QPointer<QWidget> control_;
};

int languageOfDesktop() {
    const QStringList languages = QLocale::system().uiLanguages();
    const QString first = languages.isEmpty() ? QString() : languages.first();
    if (first.startsWith("ja")) return japanese;
    return first.startsWith("ko") ? korean : english;
}

}  // namespace

HostServices widgetServices(QWidget& control, std::shared_ptr<FontFaces> faces,
                            std::function<void(const QString& property)> report,
                            std::function<void(const FileNotice&)> notice) {
    HostServices services;
    services.Metrics = std::make_shared<QtTextMetrics>(std::move(faces));
    auto files = std::make_shared<PosixFiles>();
    files->SetNoticeHandler(std::move(notice));
    services.Files = std::move(files);
    services.Memory = std::make_shared<HugePageMemory>();
    services.Site = std::make_shared<WidgetContainer>(control, std::move(report));
    services.Xml = std::make_shared<PugiXml>();
    services.Messages = std::make_shared<WidgetMessages>(control);
    services.LanguageId = languageOfDesktop();
    return services;
}

}  // namespace quorvale
