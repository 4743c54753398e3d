#include "viewer/in_files_dialog.h"

#include <QCheckBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>
#include <initializer_list>
#include <utility>

namespace quorvale {

namespace {

/// How long the walk may keep the window waiting, in milliseconds.
constexpr int slice = 20;
/// Room for a path of usual length, in characters of average width.
constexpr int lineWidth = 72;

/// The folder with the user's home in place of "~".
QString expanded(const QString& folder) {
    const QString typed = folder.trimmed();
    return typed == "~" || typed.startsWith("~/") ? QDir::homePath() + typed.mid(1) : typed;
}

QString inWords(const FoundFiles& found) {
    if (found.LeftOut() == 0) return InFilesDialog::tr("No file in this folder has such a name.");
    if (found.TooLarge > 0) return InFilesDialog::tr("What was found is larger than 2 GiB.");
    if (found.UnreadableCount == 0) {
        return InFilesDialog::tr(
            "The files found cannot be searched: their names hold a line break.");
    }
    return InFilesDialog::tr("You do not have permission to read what was found: %1")
        .arg(found.Unreadable.first());
}

}  // namespace

InFilesDialog::InFilesDialog(QWidget* parent, const InFilesFields& fields) : QDialog(parent) {
    auto* around = new QVBoxLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    connect(&timer_, &QTimer::timeout, this, &InFilesDialog::goOn);
    build(fields);
    text_->selectAll();
    text_->setFocus();
}

void InFilesDialog::speakAnew() {
    // One that is looking for files is answered already.
    if (walk_ != nullptr) return;
    const InFilesFields held = fields();
    const QString hadTheKeys = focusWidget() == nullptr ? QString() : focusWidget()->objectName();
    delete content_;
    build(held);
    auto* field = hadTheKeys.isEmpty() ? text_ : findChild<QWidget*>(hadTheKeys);
    if (field != nullptr) field->setFocus();
}

void InFilesDialog::build(const InFilesFields& fields) {
    setWindowTitle(tr("Search in files"));
    content_ = new QWidget(this);
    layout()->addWidget(content_);
    // A window remembers no hidden widget as the one with the keys.
    content_->show();
    auto* form = new QFormLayout(content_);
    text_ = addLine(*form, tr("Te&xt:"), "text", fields.Text);
    pattern_ = addCheck(tr("&Wildcard pattern: * ? # [list]"), "pattern", fields.IsPattern);
    form->addRow(QString(), pattern_);
    addFolder(*form, fields.Folder);
    names_ = addLine(*form, tr("&Names:"), "names", fields.Names);
    names_->setPlaceholderText(tr("*.log;*.txt"));
    subfolders_ = addCheck(tr("&Subfolders"), "subfolders", fields.Subfolders);
    hidden_ = addCheck(tr("&Hidden files and folders"), "hidden", fields.Hidden);
    auto* row = new QHBoxLayout;
    row->addWidget(subfolders_);
    row->addWidget(hidden_);
    row->addStretch();
    form->addRow(QString(), row);
    message_ = new QLabel(this);
    message_->setObjectName("message");
    message_->setTextFormat(Qt::PlainText);
    message_->setWordWrap(true);
    message_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // The dialog must not jump when there is something to say.
    message_->setMinimumHeight(2 * fontMetrics().lineSpacing());
    form->addRow(message_);
    addButtons();
    form->addRow(find_->parentWidget());
    for (QLineEdit* line : {text_, folder_, names_}) {
        connect(line, &QLineEdit::textChanged, this, [this] {
            message_->clear();
            showState();
        });
    }
    showState();
}

QLineEdit* InFilesDialog::addLine(QFormLayout& form, const QString& label, const char* name,
                                  const QString& text) {
    auto* line = new QLineEdit(text, this);
    line->setObjectName(name);
    line->setMinimumWidth(lineWidth * line->fontMetrics().averageCharWidth());
    form.addRow(label, line);
    return line;
}

QCheckBox* InFilesDialog::addCheck(const QString& label, const char* name, bool checked) {
    auto* box = new QCheckBox(label, this);
    box->setObjectName(name);
    box->setChecked(checked);
    return box;
}

void InFilesDialog::addFolder(QFormLayout& form, const QString& text) {
    auto* row = new QHBoxLayout;
    folder_ = new QLineEdit(text, this);
    folder_->setObjectName("folder");
    auto* folders = new QFileSystemModel(folder_);
    folders->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    folders->setRootPath(QString());
    auto* completer = new QCompleter(folders, folder_);
    folder_->setCompleter(completer);
    browse_ = new QPushButton(tr("&Browse..."), this);
    browse_->setAutoDefault(false);
    connect(browse_, &QPushButton::clicked, this, &InFilesDialog::browse);
    row->addWidget(folder_);
    row->addWidget(browse_);
    auto* label = new QLabel(tr("F&older:"), this);
    label->setBuddy(folder_);
    form.addRow(label, row);
}

void InFilesDialog::addButtons() {
    auto* buttons = new QDialogButtonBox(this);
    find_ = buttons->addButton(tr("&Find all"), QDialogButtonBox::ActionRole);
    find_->setDefault(true);
    cancel_ = buttons->addButton(QDialogButtonBox::Cancel);
    connect(find_, &QPushButton::clicked, this, &InFilesDialog::start);
    connect(cancel_, &QPushButton::clicked, this, &InFilesDialog::reject);
}

InFilesFields InFilesDialog::fields() const {
    return {text_->text(),  pattern_->isChecked(),    folder_->text(),
            names_->text(), subfolders_->isChecked(), hidden_->isChecked()};
}

void InFilesDialog::browse() {
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Folder to search"), expanded(folder_->text()));
    if (!chosen.isEmpty()) folder_->setText(QDir::toNativeSeparators(chosen));
    folder_->setFocus();
}

void InFilesDialog::start() {
    const QString folder = expanded(folder_->text());
    const QString reason = whyNotWalkable(folder);
    if (!reason.isEmpty()) return tell(reason, folder_);
    NameFilter names(names_->text());
    if (!names.isValid()) return tell(tr("A [ among the names has no ]."), names_);
    walk_ = std::make_unique<FileWalk>(
        WantedFiles{folder, std::move(names), subfolders_->isChecked(), hidden_->isChecked()});
    timer_.start(0);
    showState();
}

void InFilesDialog::goOn() {
    const bool more = walk_->goOn(slice);
    const qsizetype count = walk_->seen();
    if (!more) return finish(walk_->found());
    message_->setText(tr("Looking for files: %1 so far").arg(QLocale().toString(count)));
}

void InFilesDialog::finish(const FoundFiles& found) {
    InFilesSearch search{text_->text(), pattern_->isChecked(), found};
    stop(QString());
    if (search.Files.Names.isEmpty()) return tell(inWords(search.Files), names_);
    accept();
    emit wanted(search);
}

void InFilesDialog::stop(const QString& message) {
    timer_.stop();
    walk_.reset();
    message_->setText(message);
    showState();
}

void InFilesDialog::reject() {
    if (walk_ == nullptr) return QDialog::reject();
    stop(tr("Stopped."));
    text_->setFocus();
}

void InFilesDialog::tell(const QString& message, QLineEdit* where) {
    message_->setText(message);
    where->setFocus();
    where->selectAll();
}

void InFilesDialog::showState() {
    const bool walking = walk_ != nullptr;
    for (QWidget* field : std::initializer_list<QWidget*>{text_, pattern_, folder_, browse_, names_,
                                                          subfolders_, hidden_}) {
        field->setEnabled(!walking);
    }
    // Nothing would list every line of every file.
    find_->setEnabled(!walking && !text_->text().isEmpty());
    cancel_->setText(walking ? tr("&Stop") : tr("Cancel"));
}

}  // namespace quorvale
