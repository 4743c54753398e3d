#include "viewer/file_search.h"

#include <QLocale>
#include <QPointer>
#include <algorithm>

#include "control/host_extras.h"
#include "control/search_extras.h"
#include "qt/conversions.h"
#include "resources/string_table.h"
#include "resources/text_ids.h"
#include "viewer/file_names.h"
#include "viewer/viewer_settings.h"
#include "viewer/viewer_window.h"

namespace quorvale {

namespace {

/// What was searched for last, in whichever window it was.
struct LastSearch {
    QString Text;
    bool IsPattern = false;
};

LastSearch& lastSearch() {
    static LastSearch search;
    return search;
}

/// What the dialog held last; without a folder unless the user chose one.
InFilesFields lastFields() {
    const ViewerSettings settings;
    InFilesFields fields;
    fields.Text = lastSearch().Text;
    fields.IsPattern = lastSearch().IsPattern;
    fields.Folder = settings.text(setting::filesFolder);
    const QString names = settings.text(setting::filesNames);
    if (!names.isEmpty()) fields.Names = names;
    fields.Subfolders = settings.isOn(setting::filesSubfolders, fields.Subfolders);
    fields.Hidden = settings.isOn(setting::filesHidden, fields.Hidden);
    return fields;
}

QString counted(qsizetype count, const QString& one, const QString& several) {
    return count == 1 ? one : several.arg(QLocale().toString(count));
}

/// What had to be left out, for a message; empty for nothing.
QString leftOutInWords(const FoundFiles& files) {
    QStringList parts;
    if (files.UnreadableCount > 0) {
        parts << FileSearch::tr("You do not have permission to read:\n%1")
                     .arg(files.Unreadable.join('\n'));
        const qsizetype more = files.UnreadableCount - files.Unreadable.size();
        if (more > 0) parts << FileSearch::tr("and %1 more.").arg(QLocale().toString(more));
    }
    if (files.Unnameable > 0) {
        parts << counted(files.Unnameable,
                         FileSearch::tr("The name of one file holds a line break: it was "
                                        "left out."),
                         FileSearch::tr("The names of %1 files hold a line break: they were "
                                        "left out."));
    }
    if (files.TooLarge > 0) {
        parts << counted(files.TooLarge,
                         FileSearch::tr("One file is larger than 2 GiB: it was left out."),
                         FileSearch::tr("%1 files are larger than 2 GiB: they were left out."));
    }
    return parts.join("\n\n");
}

/// The control knows its own file by the name it was opened with.
QStringList asTheControlKnowsThem(QStringList names, const QString& shown) {
    const QString canonical = canonicalName(shown);
    if (!canonical.isEmpty() && canonical != shown) {
        std::replace(names.begin(), names.end(), canonical, shown);
    }
    return names;
}

}  // namespace

FileSearch::FileSearch(ViewerWindow& window) : QObject(&window), window_(window) {}

void FileSearch::ask() {
    auto* dialog = new InFilesDialog(&window_, suggested());
    dialog_ = dialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &InFilesDialog::wanted, this, [this, dialog](const InFilesSearch& search) {
        keep(dialog->fields());
        // The dialog is on its way out, and a search may take long.
        QMetaObject::invokeMethod(
            this, [this, search] { list(search); }, Qt::QueuedConnection);
    });
    dialog->open();
}

void FileSearch::speakAnew() {
    if (dialog_ != nullptr) dialog_->speakAnew();
}

QString FileSearch::shownFolder() const {
    const QString shown = window_.fileName();
    return shown.isEmpty() ? currentFolder() : folderOf(shown);
}

// Only a folder that the user chose is suggested elsewhere too.
void FileSearch::keep(const InFilesFields& fields) {
    lastSearch() = {fields.Text, fields.IsPattern};
    ViewerSettings settings;
    settings.setText(setting::filesFolder,
                     fields.Folder == shownFolder() ? QString() : fields.Folder);
    settings.setText(setting::filesNames, fields.Names);
    settings.setOn(setting::filesSubfolders, fields.Subfolders);
    settings.setOn(setting::filesHidden, fields.Hidden);
}

InFilesFields FileSearch::suggested() const {
    InFilesFields fields = lastFields();
    const QuorvaleBoxWidget& control = window_.control();
    const auto initial = LoadText(text_id::InitialSearchText, control.box().Extras().Language());
    const QString inBox = control.searchText();
    if (!inBox.isEmpty() && inBox != toQString(initial)) fields.Text = inBox;
    if (fields.Folder.isEmpty()) fields.Folder = shownFolder();
    return fields;
}

void FileSearch::list(const InFilesSearch& search) {
    const QPointer<FileSearch> alive(this);
    const QPointer<QuorvaleBoxWidget> control(&window_.control());
    control->box().Extras().Search().PutText(toUtf16(search.Text));
    control->setSearchFiles(asTheControlKnowsThem(search.Files.Names, window_.fileName()));
    control->act([&](Surface&) {
        SearchExtras& extras = control->box().Extras().Search();
        if (search.IsPattern) {
            extras.FindAllOfPattern();
        } else {
            extras.FindAll();
        }
    });
    // A search shows how far it is, and the user may close the window meanwhile.
    if (alive == nullptr || control == nullptr) return;
    control->setSearchFiles({});
    tellOutcome(search.Files, control->box().Extras().Search().FilesSearched());
}

void FileSearch::tellOutcome(const FoundFiles& files, std::size_t searched) {
    const auto wanted = files.Names.size();
    const auto done = static_cast<qsizetype>(searched);
    QString told = counted(wanted, tr("1 file searched"), tr("%1 files searched"));
    if (done < wanted) {
        told = tr("Stopped: %1 of %2 files searched")
                   .arg(QLocale().toString(done), QLocale().toString(wanted));
    }
    const int leftOut = files.LeftOut();
    if (leftOut > 0) told = tr("%1, %2 left out").arg(told, QLocale().toString(leftOut));
    window_.tellBriefly(told);
    if (leftOut > 0) window_.tell(leftOutInWords(files));
}

}  // namespace quorvale
