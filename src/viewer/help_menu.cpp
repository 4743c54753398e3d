#include "viewer/help_menu.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <initializer_list>
#include <utility>

namespace quorvale {

namespace {

constexpr QSize sizeOfKeys(560, 600);

QString rowOf(const QString& text, const QString& keys) {
    return QString("<tr><td>%1</td><td>&nbsp;&nbsp;%2</td></tr>")
        .arg(text.toHtmlEscaped(), keys.toHtmlEscaped());
}

QString headOf(const QString& text) {
    return QString("<tr><th align=\"left\" colspan=\"2\"><br>%1</th></tr>")
        .arg(text.toHtmlEscaped());
}

/// A caption without its access key, which is either a letter of it or stands behind it in
/// brackets.
QString plain(QString caption) {
    const qsizetype bracket = caption.indexOf("(&");
    if (bracket >= 0) caption.remove(bracket, 4);
    return caption.remove('&').remove("...");
}

QString nameOf(const QKeySequence& keys) { return keys.toString(QKeySequence::NativeText); }

QString namesOf(std::initializer_list<QKeyCombination> keys) {
    QStringList names;
    for (const QKeyCombination key : keys) names << nameOf(key);
    return names.join(", ");
}

QString keysOf(const QAction& action) {
    // Keys that the control takes itself stand in the caption.
    const QString inCaption = action.text().section('\t', 1);
    if (!inCaption.isEmpty()) return nameOf(QKeySequence(inCaption, QKeySequence::PortableText));
    const QList<QKeySequence> keys = action.shortcuts();
    return keys.isEmpty() ? QString() : nameOf(keys.first());
}

QString rowsOf(const QMenu& menu) {
    QString rows;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator() || action->menu() != nullptr) continue;
        const QString keys = keysOf(*action);
        if (!keys.isEmpty()) rows += rowOf(plain(action->text().section('\t', 0, 0)), keys);
    }
    return rows;
}

}  // namespace

HelpMenu::HelpMenu(QMenu& menu, QMainWindow& window) : QObject(&menu), window_(window) {
    menu.addAction(tr("&Keys"), QKeySequence(Qt::Key_F1), this, &HelpMenu::showKeys);
    menu.addSeparator();
    menu.addAction(tr("&About QuorvaleBox"), this, &HelpMenu::showAbout);
}

HelpMenu::~HelpMenu() {
    for (const QPointer<QDialog>& dialog : std::as_const(shown_)) delete dialog;
}

void HelpMenu::showKeys() {
    QString rows = headOf(tr("In the text"));
    rows += rowOf(tr("Select rows"), namesOf({Qt::SHIFT | Qt::Key_Up, Qt::SHIFT | Qt::Key_Down}));
    rows += rowOf(tr("Select everything"), namesOf({Qt::CTRL | Qt::Key_A}));
    rows += rowOf(tr("First and last line"),
                  namesOf({Qt::CTRL | Qt::Key_Home, Qt::CTRL | Qt::Key_End}));
    rows += rowOf(tr("The menu of the rows"), namesOf({Qt::Key_Menu, Qt::SHIFT | Qt::Key_F10}));
    rows += rowOf(tr("To the boxes and buttons and back"),
                  namesOf({Qt::Key_Tab, Qt::SHIFT | Qt::Key_Tab}));
    rows += headOf(tr("While a line is corrected"));
    rows += rowOf(tr("Keep the correction"), namesOf({Qt::CTRL | Qt::Key_Enter}));
    rows += rowOf(tr("Drop what was typed"), namesOf({Qt::Key_Escape}));
    for (const QAction* action : window_.menuBar()->actions()) {
        if (action->menu() == nullptr) continue;
        const QString ofMenu = rowsOf(*action->menu());
        if (!ofMenu.isEmpty()) rows += headOf(plain(action->text())) + ofMenu;
    }
    auto* dialog = new QDialog(&window_);
    dialog->setWindowTitle(tr("Keys"));
    auto* text = new QTextBrowser;
    text->setHtml("<table>" + rows + "</table>");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    dialog->resize(sizeOfKeys);
    show(dialog);
}

void HelpMenu::showAbout() {
    const QString text =
        QString("<h3>QuorvaleBox %1</h3><p>%2</p><p>%3</p><p>%4</p>")
            .arg(QCoreApplication::applicationVersion().toHtmlEscaped(),
                 tr("Shows large text files as rows, and corrects single lines.").toHtmlEscaped(),
                 tr("With Qt %1.").arg(QString::fromLatin1(qVersion())).toHtmlEscaped(),
                 tr("Licence: MIT. Copyright (c) 2026 The QuorvaleBox authors").toHtmlEscaped());
    auto* box = new QMessageBox(QMessageBox::NoIcon, tr("About QuorvaleBox"), text,
                                QMessageBox::Close, &window_);
    box->setTextFormat(Qt::RichText);
    box->setIconPixmap(window_.windowIcon().pixmap(64, 64));
    show(box);
}

void HelpMenu::show(QDialog* dialog) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    shown_.removeAll(nullptr);
    shown_ << dialog;
    dialog->open();
}

}  // namespace quorvale
