#include "viewer/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <memory>

#include "viewer/viewer_settings.h"
#include "viewer/viewer_translator.h"

namespace quorvale {

namespace {

/// Belongs to the application, and goes with it.
class Spoken final : public QObject {
public:
    explicit Spoken(QCoreApplication* application) : QObject(application) {}

    void change(const QString& choice) {
        if (choice == choice_) return;
        choice_ = choice;
        QLocale::setDefault(choice == "system" ? QLocale::system() : QLocale(choice));
        own_.reset();
        qts_.reset();
        const QString language = spokenLanguage();
        if (language == "ja") translate(ViewerTranslator::Japanese, "qtbase_ja");
        if (language == "ko") translate(ViewerTranslator::Korean, "qtbase_ko");
    }

private:
    // Where Qt's own texts are not installed, the viewer's table has the words of most buttons.
    void translate(ViewerTranslator::Into language, const QString& textsOfQt) {
        own_ = std::make_unique<ViewerTranslator>(language);
        QCoreApplication::installTranslator(own_.get());
        qts_ = std::make_unique<QTranslator>();
        if (qts_->load(textsOfQt, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            QCoreApplication::installTranslator(qts_.get());
        }
    }

    QString choice_;
    std::unique_ptr<ViewerTranslator> own_;
    std::unique_ptr<QTranslator> qts_;
};

Spoken& spoken(bool* isNew = nullptr) {
    static Spoken* here = nullptr;
    static QCoreApplication* application = nullptr;
    const bool fresh = application != QCoreApplication::instance();
    if (fresh) {
        application = QCoreApplication::instance();
        here = new Spoken(application);
    }
    if (isNew != nullptr) *isNew = fresh;
    return *here;
}

}  // namespace

QStringList viewerLanguages() { return {"system", "en", "ja", "ko"}; }

QString ownNameOf(const QString& language) {
    if (language == "en") return "English";
    if (language == "ja") return QString::fromUtf8("日本語");
    return language == "ko" ? QString::fromUtf8("한국어") : QString();
}

QString spokenLanguage() {
    const QString first = QLocale().uiLanguages().value(0);
    if (first.startsWith("ja")) return "ja";
    return first.startsWith("ko") ? "ko" : "en";
}

void speak(const QString& language) { spoken().change(language); }

void speakAsChosen() {
    bool isNew = false;
    Spoken& now = spoken(&isNew);
    if (isNew) now.change(ViewerSettings().choice(setting::language, viewerLanguages()));
}

}  // namespace quorvale
