#include "viewer/viewer_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QStatusBar>
#include <QTimer>

#include "adapters/document_lock.h"
#include "control/host_corrections.h"
#include "control/host_extras.h"
#include "qt/conversions.h"
#include "qt/font_faces.h"
#include "qt/qt_picture.h"
#include "qt/row_copying.h"
#include "resources/pictures.h"
#include "viewer/busy_cursor.h"
#include "viewer/choice_menu.h"
#include "viewer/document_guard.h"
#include "viewer/document_status.h"
#include "viewer/edit_menu.h"
#include "viewer/file_names.h"
#include "viewer/file_search.h"
#include "viewer/help_menu.h"
#include "viewer/language.h"
#include "viewer/look_menu.h"
#include "viewer/notice_words.h"
#include "viewer/open_check.h"
#include "viewer/recent_files.h"
#include "viewer/result_windows.h"
#include "viewer/row_menu.h"
#include "viewer/search_menu.h"
#include "viewer/view_menu.h"
#include "viewer/viewer_settings.h"

namespace quorvale {

namespace {

constexpr Colour documentGround = 0x80000005;
constexpr Colour documentText = 0x80000008;
constexpr QSize startSize(1000, 700);
/// Menus, toolbar and a few rows.
constexpr QSize leastSize(320, 200);
/// How long a change of the language waits for the search that is running, in milliseconds.
constexpr int untilSearchIsOver = 100;
/// How long a message stands in the status bar, in milliseconds.
constexpr int briefly = 5000;

/// The local file that is being dragged; empty where it is none, or several.
QString draggedFile(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? nameOf(urls.first()) : QString();
}

QIcon viewerIcon() {
    const PictureData& data = WindowIcon();
    return toIcon(std::make_shared<SvgPicture>("window", std::string(data.Svg), data.Width * 15,
                                               data.Height * 15));
}

}  // namespace

ViewerWindow::ViewerWindow()
    : results_(new ResultWindows(*this)),
      files_(new FileSearch(*this)),
      status_(new DocumentStatus(*statusBar())) {
    speakAsChosen();
    // Made before, the window has the desktop's; the control asks it.
    setLocale(QLocale());
    makeMenus();
    renewControl();
    setAcceptDrops(true);
    setWindowTitle("QuorvaleBox");
    setWindowIcon(viewerIcon());
    setMinimumSize(leastSize);
    resize(startSize);
}

// The control writes its journal when it goes, and has its lock until then.
ViewerWindow::~ViewerWindow() {
    control_->disconnect(this);
    delete control_;
}

// Every document gets a control of its own: the old one closes its journal under its own name. It
// goes first, two documents of a gigabyte side by side are too much.
void ViewerWindow::renewControl() {
    delete control_;
    control_ = new QuorvaleBoxWidget(this);
    setUp(*control_);
    copying_ = new RowCopying(*control_);
    connect(copying_, &RowCopying::copied, this, [this](int rows) {
        tellBriefly(rows == 1 ? tr("1 row copied")
                              : tr("%1 rows copied").arg(QLocale().toString(rows)));
    });
    connect(copying_, &RowCopying::tooMuch, this,
            [this] { tellBriefly(tr("Too much text to copy: select fewer rows")); });
    guard_ = new DocumentGuard(*control_);
    connect(guard_, &DocumentGuard::told, this, &ViewerWindow::tellBriefly);
    connect(guard_, &DocumentGuard::reloadWanted, this, &ViewerWindow::reload);
    connect(control_, &ControlWidget::fileNotice, this, &ViewerWindow::tellNotice,
            Qt::QueuedConnection);
    connect(control_, &DocumentWidget::textChanged, this, &ViewerWindow::showDocument);
    results_->setControl(*control_);
    setCentralWidget(control_);
    // A window remembers no hidden widget as the one that gets the keys when it is active again.
    control_->show();
    control_->setFocus();
    attachMenus();
}

void ViewerWindow::attachMenus() {
    edit_->applyTo(*control_, *copying_);
    search_->setControl(*control_);
    view_->setControl(*control_);
    look_->setControl(*control_);
    onRows_->setControl(*control_);
}

void ViewerWindow::setUp(QuorvaleBoxWidget& control) {
    HostOptions options;
    options.WideScrollBars = true;
    options.TallView = true;
    options.Encoding = Encoding::Automatic;
    options.OfferEditing = true;
    options.KeepLineFormat = true;
    options.MostEditedLines = 10'000;
    options.MostEditedCharacters = 4 << 20;
    control.setOptions(options);
    QuorvaleBox& box = control.box();
    // The window has a frame already.
    box.BorderStyle(0);
    box.BackColor(documentGround);
    box.ForeColor(documentText);
    // The glyphs stand on the document's ground; only the strip for line images is set off.
    box.Elements().picExpand.SetBackColor(documentGround);
    // The viewer prints nothing.
    box.Elements().tbMore.SetButtonEnabled(u"Print", false);
    // An empty document rather than a row with the control's name.
    box.text(u"");
}

void ViewerWindow::makeMenus() {
    language_ = spokenLanguage();
    makeFileMenu(*menuBar()->addMenu(tr("&File")));
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    edit_ = new EditMenu(*edit);
    connect(edit_, &EditMenu::told, this, &ViewerWindow::tellBriefly);
    onRows_ = new RowMenu(*edit);
    search_ = new SearchMenu(*menuBar()->addMenu(tr("&Search")));
    connect(search_, &SearchMenu::told, this, &ViewerWindow::tellBriefly);
    connect(search_, &SearchMenu::neighbourWanted, results_, &ResultWindows::pickNeighbour);
    connect(search_, &SearchMenu::lastListWanted, results_, &ResultWindows::showLastList);
    connect(search_, &SearchMenu::filesWanted, files_, &FileSearch::ask);
    QMenu* view = menuBar()->addMenu(tr("&View"));
    view_ = new ViewMenu(*view);
    connect(view_, &ViewMenu::told, this, &ViewerWindow::tellBriefly);
    view->addSeparator();
    look_ = new LookMenu(*view);
    connect(look_, &LookMenu::told, this, &ViewerWindow::tellBriefly);
    view->addSeparator();
    addAppearances(*view->addMenu(tr("A&ppearance")));
    addLanguages(*view->addMenu(tr("Lan&guage")));
    new HelpMenu(*menuBar()->addMenu(tr("&Help")), *this);
}

void ViewerWindow::makeFileMenu(QMenu& file) {
    file.addAction(tr("&Open..."), QKeySequence::Open, this, &ViewerWindow::chooseFile);
    auto* recent = new RecentFiles(*file.addMenu(tr("&Recent files")));
    connect(recent, &RecentFiles::picked, this, &ViewerWindow::openOrTell, Qt::QueuedConnection);
    connect(recent, &RecentFiles::missing, this, [this](const QString& name) {
        tell(tr("%1 is not there any more. It was taken off the list.").arg(name));
    });
    file.addSeparator();
    file.addAction(tr("&Quit"), QKeySequence::Quit, qApp, &QApplication::closeAllWindows);
}

// The menus are made anew in the language that is spoken now, the control is told to speak it: what
// it shows, what was found in it and where its user is stay as they are.
void ViewerWindow::changeLanguage() {
    // A change comes in several steps, each of which is told.
    if (language_ == spokenLanguage()) return;
    // An entry of these menus may have set off the search that is running around this.
    if (control_->isSearching()) {
        QTimer::singleShot(untilSearchIsOver, this, &ViewerWindow::changeLanguage);
        return;
    }
    setLocale(QLocale());
    const auto former = menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    const LookMenu& look = *look_;
    menuBar()->clear();
    makeMenus();
    look_->takeOver(look);
    qDeleteAll(former);
    control_->speakAnew();
    attachMenus();
    files_->speakAnew();
    status_->show(*control_, fileName_);
}

QString ViewerWindow::openFile(const QString& fileName) {
    const QString reason = whyNotOpenable(fileName);
    if (!reason.isEmpty()) return reason;
    const QString opened = absoluteName(fileName);
    const QPointer<ViewerWindow> alive(this);
    if (!guard_->mayClose() || alive == nullptr) return {};
    const BusyCursor busy;
    // A control without a file has nothing to lose but its results. The other one writes its
    // journal when it goes, and has its lock until then.
    if (showsAFile()) renewControl();
    lock_.reset();
    lock_ = std::make_unique<DocumentLock>(toUtf16(opened));
    fileName_ = opened;
    const QString onlyShown = whyOnlyShown();
    allowCorrections(onlyShown.isEmpty());
    control_->loadFile(fileName_);
    if (!showsAFile()) return tr("%1 could not be read to its end.").arg(opened);
    RecentFiles::add(fileName_);
    if (!onlyShown.isEmpty()) tellBriefly(onlyShown);
    tellUnreadable();
    return {};
}

// The control offers "Edit" exactly while it shows a file.
bool ViewerWindow::showsAFile() const {
    return control_->box().Elements().tbMore.Button(u"Edit").Enabled;
}

QString ViewerWindow::whyOnlyShown() const {
    if (beginsAsUtf16(fileName_)) {
        return tr("This file is only shown: it is UTF-16 text, which cannot be corrected");
    }
    if (lock_->IsOurs()) return {};
    if (lock_->IsTaken()) {
        return tr("Another program has this file open for corrections: here it is only shown");
    }
    return tr("This file is only shown: it cannot be locked for corrections (%1)")
        .arg(QString::fromStdString(lock_->WhyNot()));
}

void ViewerWindow::tellUnreadable() {
    const auto unreadable = control_->box().Corrections().Unreadable();
    if (!unreadable) return;
    allowCorrections(false);
    const QString reason = QString::fromStdString(unreadable->Reason);
    QMetaObject::invokeMethod(
        this,
        [this, reason] {
            tell(tr("The corrections that lie beside this file cannot be read: %1. They stay as "
                    "they are, and the file cannot be corrected until they can.")
                     .arg(reason));
        },
        Qt::QueuedConnection);
}

// What is only shown is neither edited nor committed, and its journal is somebody else's.
void ViewerWindow::allowCorrections(bool allowed) {
    HostOptions options = control_->options();
    options.OfferEditing = allowed;
    options.ReadOnly = !allowed;
    control_->setOptions(options);
    edit_->followOptions();
}

void ViewerWindow::tellNotice(FileNotice::Kind what, const QString& name, const QString& keptAs) {
    const QString words = wordsForNotice(what, name, keptAs);
    if (words.isEmpty()) return;
    // Nothing was set aside that anybody would have to look after.
    if (keptAs.isEmpty()) return tellBriefly(words);
    tell(words);
}

// Also after a commit, which loads the file again: its lines have no colours and folds then.
void ViewerWindow::showDocument() {
    if (!showsAFile()) fileName_.clear();
    setWindowTitle(fileName_.isEmpty()
                       ? QString("QuorvaleBox")
                       : QString("%1 \u2014 QuorvaleBox").arg(QFileInfo(fileName_).fileName()));
    status_->show(*control_, fileName_);
    view_->applyToDocument();
}

void ViewerWindow::openOrTell(const QString& fileName) {
    const QString reason = openFile(fileName);
    if (!reason.isEmpty()) tell(reason);
}

// The message waits for nobody: what brought the file here may be in the middle of an event.
void ViewerWindow::tell(const QString& message) {
    // A box without a window behind it would keep the program alive, unseen.
    if (closed_ && !isVisible()) return qWarning("%s", qUtf8Printable(message));
    auto* box =
        new QMessageBox(QMessageBox::Warning, "QuorvaleBox", message, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->open();
}

void ViewerWindow::tellBriefly(const QString& message) {
    statusBar()->showMessage(message, briefly);
}

void ViewerWindow::reload() {
    const int row = control_->box().row();
    const QString failure = openFile(fileName_);
    if (failure.isEmpty()) {
        goToLine(row);
    } else {
        tell(failure);
    }
}

// What was kept may be rubbish: a window of that size could not be used.
void ViewerWindow::restorePlace() {
    restoreGeometry(ViewerSettings().bytes(setting::windowPlace));
    const bool usable = width() > leastSize.width() && height() > leastSize.height();
    if (!usable && !isMaximized() && !isFullScreen()) resize(startSize);
}

void ViewerWindow::closeEvent(QCloseEvent* event) {
    const QPointer<ViewerWindow> alive(this);
    const bool mayClose = guard_->mayClose();
    if (alive == nullptr) return;
    closed_ = mayClose && !tellsBeforeClosing();
    event->setAccepted(closed_);
    if (closed_) ViewerSettings().setBytes(setting::windowPlace, saveGeometry());
}

// What saving has to tell is told while there is a window; it closes when the user has read it.
bool ViewerWindow::tellsBeforeClosing() {
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    for (const QMessageBox* box : findChildren<QMessageBox*>()) {
        if (!box->isVisible()) continue;
        connect(box, &QDialog::finished, this, &QWidget::close,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection));
        return true;
    }
    return false;
}

void ViewerWindow::saveQuietly() {
    const QString failure = guard_->saveFailure();
    if (!failure.isEmpty()) {
        qWarning("%s", qUtf8Printable(tr("Your corrections could not be saved.") + " " + failure));
    }
    ViewerSettings().setBytes(setting::windowPlace, saveGeometry());
}

QString ViewerWindow::statusText() const { return status_->text(); }

void ViewerWindow::goToLine(int line) { control_->box().MoveTo(line, 1); }

void ViewerWindow::chooseFile() {
    const QString chosen =
        QFileDialog::getOpenFileName(this, tr("Open a file"), folderOf(fileName_));
    if (!chosen.isEmpty()) openOrTell(chosen);
}

void ViewerWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        QMetaObject::invokeMethod(this, &ViewerWindow::changeLanguage, Qt::QueuedConnection);
    }
    if (event->type() != QEvent::PaletteChange || view_ == nullptr) return;
    // The control hears of its new palette after its window.
    QMetaObject::invokeMethod(view_, &ViewMenu::recolour, Qt::QueuedConnection);
}

// Always a copy: whoever offers a file to be moved would delete it afterwards.
void ViewerWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (draggedFile(event->mimeData()).isEmpty()) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void ViewerWindow::dropEvent(QDropEvent* event) {
    const QString file = draggedFile(event->mimeData());
    if (file.isEmpty()) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    activateWindow();
    openOrTell(file);
}

}  // namespace quorvale
