#include "viewer/choice_menu.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>
#include <QTimer>

#include "viewer/appearance.h"
#include "viewer/language.h"
#include "viewer/viewer_settings.h"

namespace quorvale {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("ChoiceMenu", text); }

/// Entries of which just one is chosen; `choose` takes effect after the menu has gone, for it may
/// take the menu along.
void addChoices(QMenu& menu, const char* name, const QStringList& choices,
                const QStringList& captions, void (*choose)(const QString&)) {
    auto* group = new QActionGroup(&menu);
    const QString now = ViewerSettings().choice(name, choices);
    for (qsizetype i = 0; i < choices.size(); ++i) {
        const QString choice = choices[i];
        QAction* entry = menu.addAction(captions[i]);
        entry->setCheckable(true);
        entry->setChecked(choice == now);
        group->addAction(entry);
        QObject::connect(entry, &QAction::triggered, &menu, [name, choice, choose] {
            ViewerSettings().setText(name, choice);
            QTimer::singleShot(0, QCoreApplication::instance(),
                               [choice, choose] { choose(choice); });
        });
    }
}

}  // namespace

void addAppearances(QMenu& menu) {
    addChoices(menu, setting::appearance, viewerAppearances(),
               {tr("As the &desktop"), tr("&Light"), tr("D&ark")}, &wear);
}

void addLanguages(QMenu& menu) {
    QStringList captions{tr("As the &desktop")};
    for (const QString& language : viewerLanguages().mid(1)) captions << ownNameOf(language);
    addChoices(menu, setting::language, viewerLanguages(), captions, &speak);
}

}  // namespace quorvale
