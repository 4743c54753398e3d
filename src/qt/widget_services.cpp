#include "qt/widget_services.h"

#include <QApplication>
#include <QMessageBox>
#include <utility>

#include "adapters/huge_pages.h"
#include "adapters/posix_files.h"
#include "qt/conversions.h"
#include "qt/qt_text_metrics.h"
#include "qt/search_watch.h"
#ifdef QUORVALE_WITH_PUGIXML
#include "adapters/pugi_xml.h"
#else
#include "platform/plain_xml.h"
#endif

namespace quorvale {

namespace {

#ifdef QUORVALE_WITH_PUGIXML
using JournalXml = PugiXml;
#else
using JournalXml = PlainXml;
#endif

constexpr int english = 1033;
constexpr int japanese = 1041;
constexpr int korean = 1042;

/// The widget as the form that the control lies on.
class WidgetContainer final : public Container {
public:
    WidgetContainer(QWidget& control, std::shared_ptr<const bool> designed,
                    std::function<void(const QString&)> report)
        : control_(&control), designed_(std::move(designed)), report_(std::move(report)) {}

    bool UserMode() const override { return !*designed_; }
    std::u16string DisplayName() const override {
        return control_ == nullptr ? std::u16string() : toUtf16(control_->objectName());
    }
    quorvale::Font Font() const override { return fromQFont(surroundingFont()); }
    void PropertyChanged(std::u16string_view name) override { report_(toQString(name)); }

private:
    /// What the widget has, or would have if it had been given none.
    QFont surroundingFont() const {
        if (control_ == nullptr) return QApplication::font();
        if (!control_->testAttribute(Qt::WA_SetFont)) return control_->font();
        const QWidget* around = control_->isWindow() ? nullptr : control_->parentWidget();
        return around != nullptr ? around->font() : QApplication::font(control_);
    }

    QPointer<QWidget> control_;
    std::shared_ptr<const bool> designed_;
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

int idOfLanguage(QLocale::Language language) {
    if (language == QLocale::Japanese) return japanese;
    return language == QLocale::Korean ? korean : english;
}

QLocale::Language& chosenLanguage() {
    static QLocale::Language chosen = QLocale::AnyLanguage;
    return chosen;
}

std::shared_ptr<FileSystem> realFiles(std::function<void(const FileNotice&)> notice) {
    auto files = std::make_shared<PosixFiles>();
    files->SetNoticeHandler(std::move(notice));
    return files;
}

}  // namespace

int languageIdOf(const QStringList& uiLanguages) {
    return uiLanguages.isEmpty() ? english : idOfLanguage(QLocale(uiLanguages.first()).language());
}

void setLanguageOfNewWidgets(QLocale::Language language) { chosenLanguage() = language; }
QLocale::Language languageOfNewWidgets() { return chosenLanguage(); }

Language languageFor(const QWidget& widget) {
    const QLocale::Language chosen = languageOfNewWidgets();
    return LanguageFromId(chosen != QLocale::AnyLanguage
                              ? idOfLanguage(chosen)
                              : languageIdOf(widget.locale().uiLanguages()));
}

HostServices widgetServices(QWidget& control, std::shared_ptr<FontFaces> faces,
                            const ControlLinkPtr& link, std::shared_ptr<const bool> designed,
                            const WidgetPorts& ports,
                            std::function<void(const QString& property)> report,
                            std::function<void(const FileNotice&)> notice) {
    HostServices services;
    services.Metrics = std::make_shared<QtTextMetrics>(std::move(faces));
    services.Files = ports.Files ? ports.Files : realFiles(std::move(notice));
    services.Memory = std::make_shared<HugePageMemory>();
    services.Site =
        std::make_shared<WidgetContainer>(control, std::move(designed), std::move(report));
    services.Xml = std::make_shared<JournalXml>();
    services.Messages = std::make_shared<WidgetMessages>(control);
    services.LanguageId = static_cast<int>(languageFor(control));
    services.Progress = std::make_shared<SearchWatch>(
        control, link, ports.Time ? ports.Time : std::make_shared<const SteadyClock>());
    return services;
}

}  // namespace quorvale
