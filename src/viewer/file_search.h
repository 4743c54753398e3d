#pragma once

#include <QObject>
#include <QPointer>
#include <cstddef>

#include "viewer/in_files_dialog.h"

namespace quorvale {

class ViewerWindow;

/// Search in files: asks what to search for and where, and lists what is found in the window's own
/// results. After that a search for all matches is one in the shown document again.
class FileSearch final : public QObject {
    Q_OBJECT

public:
    /// Belongs to the window.
    explicit FileSearch(ViewerWindow& window);

public slots:
    void ask();

    /// Searches these files.
    void list(const quorvale::InFilesSearch& search);

public:
    /// An open dialog goes on in the language of now.
    void speakAnew();

private:
    void keep(const InFilesFields& fields);
    QString shownFolder() const;
    InFilesFields suggested() const;
    void tellOutcome(const FoundFiles& files, std::size_t searched);

    ViewerWindow& window_;
    QPointer<InFilesDialog> dialog_;
};

}  // namespace quorvale
