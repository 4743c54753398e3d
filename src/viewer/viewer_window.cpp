#include "viewer/viewer_window.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>

#include "control/host_corrections.h"
#include "control/host_extras.h"
#include "qt/font_faces.h"
#include "qt/qt_picture.h"
#include "qt/row_copying.h"
#include "resources/pictures.h"
#include "viewer/busy_cursor.h"
#include "viewer/document_guard.h"
#include "viewer/document_lock.h"
#include "viewer/edit_menu.h"
#include "viewer/open_check.h"
#include "viewer/search_menu.h"
#include "viewer/view_menu.h"

namespace quorvale {

namespace {

constexpr Colour documentGround = 0x80000005;
constexpr Colour documentText = 0x80000008;
constexpr QSize startSize(1000, 700);
/// How long a message stands in the status bar, in milliseconds.
constexpr int briefly = 5000;
/// How often the number of corrections is looked at, in milliseconds.
constexpr int lookEvery = 100;

QString inWords(Encoding encoding) {
    switch (encoding) {
        case Encoding::Utf8:
            return ViewerWindow::tr("UTF-8");
        case Encoding::Windows1252:
            return ViewerWindow::tr("Windows-1252");
        default:
            return ViewerWindow::tr("one byte per character");
    }
}

/// The local file that is being dragged; empty where it is none, or several.
QString draggedFile(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

QIcon viewerIcon() {
    const PictureData& data = WindowIcon();
    return toIcon(std::make_shared<SvgPicture>("window", std::string(data.Svg), data.Width * 15,
                                               data.Height * 15));
}

}  // namespace

ViewerWindow::ViewerWindow() {
    makeMenus();
    makeStatusBar();
    renewControl();
    setAcceptDrops(true);
    setWindowTitle("QuorvaleBox");
    setWindowIcon(viewerIcon());
    resize(startSize);
    pendingTimer_.setInterval(lookEvery);
    connect(&pendingTimer_, &QTimer::timeout, this, &ViewerWindow::showPending);
    pendingTimer_.start();
}

ViewerWindow::~ViewerWindow() = default;

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
    connect(guard_, &DocumentGuard::reloadWanted, this, &ViewerWindow::reload);
    connect(control_, &ControlWidget::fileNotice, this, &ViewerWindow::tellNotice,
            Qt::QueuedConnection);
    connect(control_, &DocumentWidget::textChanged, this, &ViewerWindow::showDocument);
    setCentralWidget(control_);
    control_->setFocus();
    edit_->applyTo(*control_, *copying_);
    search_->setControl(*control_);
    view_->setControl(*control_);
}

void ViewerWindow::setUp(QuorvaleBoxWidget& control) {
    HostOptions options;
    options.WideScrollBars = true;
    options.TallView = true;
    options.Encoding = Encoding::Automatic;
    options.OfferEditing = true;
    options.KeepLineFormat = true;
    control.setOptions(options);
    control.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QuorvaleBox& box = control.box();
    // The window has a frame already.
    box.BorderStyle(0);
    box.BackColor(documentGround);
    box.ForeColor(documentText);
    // The glyphs stand on the document's ground; only the strip for line images is set off.
    box.Elements().picExpand.SetBackColor(documentGround);
    // An empty document rather than a row with the control's name.
    box.text(u"");
}

void ViewerWindow::makeMenus() {
    makeFileMenu();
    edit_ = new EditMenu(*menuBar()->addMenu(tr("&Edit")));
    search_ = new SearchMenu(*menuBar()->addMenu(tr("&Search")));
    connect(search_, &SearchMenu::told, this, &ViewerWindow::tellBriefly);
    view_ = new ViewMenu(*menuBar()->addMenu(tr("&View")));
    connect(view_, &ViewMenu::told, this, &ViewerWindow::tellBriefly);
}

void ViewerWindow::makeFileMenu() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* open = file->addAction(tr("&Open..."), this, &ViewerWindow::chooseFile);
    open->setShortcut(QKeySequence::Open);
    file->addSeparator();
    QAction* quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
}

void ViewerWindow::makeStatusBar() {
    for (QLabel** label : {&pending_, &lines_, &size_, &encoding_}) {
        *label = new QLabel(this);
        statusBar()->addPermanentWidget(*label);
    }
}

QString ViewerWindow::openFile(const QString& fileName) {
    const QString reason = whyNotOpenable(fileName);
    if (!reason.isEmpty()) return reason;
    const QFileInfo file(fileName);
    if (!guard_->mayClose()) return {};
    const BusyCursor busy;
    lock_.reset();
    renewControl();
    lock_ = std::make_unique<DocumentLock>(fileName);
    fileName_ = file.absoluteFilePath();
    control_->loadFile(fileName_);
    if (!showsAFile()) return tr("%1 could not be read to its end.").arg(fileName);
    tellWhyNotToCorrect();
    return {};
}

// The control offers "Edit" exactly while it shows a file.
bool ViewerWindow::showsAFile() const {
    return control_->box().Elements().tbMore.Button(u"Edit").Enabled;
}

void ViewerWindow::tellWhyNotToCorrect() {
    if (!lock_->isOurs()) {
        withholdEditing();
        tellBriefly(tr("Another viewer shows this file: it can be corrected there"));
    }
    const auto unreadable = control_->box().Corrections().Unreadable();
    if (!unreadable) return;
    withholdEditing();
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

void ViewerWindow::withholdEditing() {
    HostOptions options = control_->options();
    options.OfferEditing = false;
    control_->setOptions(options);
}

void ViewerWindow::tellNotice(FileNotice::Kind what, const QString& name, const QString& keptAs) {
    switch (what) {
        case FileNotice::Kind::DocumentKept:
            return tell(tr("Another program had written %1. Its version was kept as %2.")
                            .arg(name, keptAs));
        case FileNotice::Kind::JournalKept:
            return tell(tr("Corrections that do not belong to %1 as it is now were kept as %2.")
                            .arg(name, keptAs));
        case FileNotice::Kind::RecordKept:
            return tell(tr("%1 was being written when a program ended, and has been changed since. "
                           "What was to be written is in %2.")
                            .arg(name, keptAs));
        case FileNotice::Kind::WriteEnded:
            return tellBriefly(tr("An interrupted commit was brought to its end"));
        case FileNotice::Kind::DurabilityUnknown:
            return;
    }
}

// Also after a commit, which loads the file again: its lines have no colours and folds then.
void ViewerWindow::showDocument() {
    if (!showsAFile()) fileName_.clear();
    setWindowTitle(fileName_.isEmpty()
                       ? QString("QuorvaleBox")
                       : tr("%1 \u2014 QuorvaleBox").arg(QFileInfo(fileName_).fileName()));
    showStatus();
    changesShown_ = 0;
    showPending();
    view_->applyToDocument();
}

void ViewerWindow::openOrTell(const QString& fileName) {
    const QString reason = openFile(fileName);
    if (!reason.isEmpty()) tell(reason);
}

// The message waits for nobody: what brought the file here may be in the middle of an event.
void ViewerWindow::tell(const QString& message) {
    auto* box =
        new QMessageBox(QMessageBox::Warning, "QuorvaleBox", message, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->open();
}

void ViewerWindow::tellBriefly(const QString& message) {
    statusBar()->showMessage(message, briefly);
}

void ViewerWindow::showStatus() {
    const bool shown = !fileName_.isEmpty();
    const QLocale locale;
    const int lines = control_->box().LineCount();
    lines_->setText(shown ? tr("%1 lines").arg(locale.toString(lines)) : QString());
    size_->setText(shown ? locale.formattedDataSize(QFileInfo(fileName_).size()) : QString());
    encoding_->setText(shown ? inWords(control_->box().Extras().FileEncoding()) : QString());
}

// Corrections come and go with keys, menus and marks: looking now and then is enough.
void ViewerWindow::showPending() {
    const HostCorrections& corrections = control_->box().Corrections();
    if (corrections.Changes() == changesShown_) return;
    changesShown_ = corrections.Changes();
    const int pending = corrections.Pending();
    pending_->setText(pending == 0 ? QString()
                      : pending == 1
                          ? tr("1 correction not committed")
                          : tr("%1 corrections not committed").arg(QLocale().toString(pending)));
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

void ViewerWindow::closeEvent(QCloseEvent* event) { event->setAccepted(guard_->mayClose()); }

QString ViewerWindow::statusText() const {
    QStringList parts;
    for (const QLabel* label : {pending_, lines_, size_, encoding_}) {
        if (!label->text().isEmpty()) parts << label->text();
    }
    return parts.join(", ");
}

void ViewerWindow::goToLine(int line) { control_->box().MoveTo(line, 1); }

void ViewerWindow::chooseFile() {
    const QString folder = QFileInfo(fileName_).absolutePath();
    const QString chosen = QFileDialog::getOpenFileName(this, tr("Open a file"),
                                                        fileName_.isEmpty() ? QString() : folder);
    if (!chosen.isEmpty()) openOrTell(chosen);
}

void ViewerWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
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
