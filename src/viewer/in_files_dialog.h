#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>

#include "viewer/file_walk.h"

class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quorvale {

/// What to search for, and the files to search.
struct InFilesSearch {
    QString Text;
    bool IsPattern = false;
    FoundFiles Files;
};

/// What the fields of the dialog hold.
struct InFilesFields {
    QString Text;
    bool IsPattern = false;
    QString Folder;
    QString Names = "*";
    bool Subfolders = true;
    bool Hidden = false;
};

/// Asks what to search for in which files, and finds these; the window stays alive meanwhile, and
/// Escape stops it. What cannot be searched is told in the dialog, which stays open.
class InFilesDialog final : public QDialog {
    Q_OBJECT

public:
    InFilesDialog(QWidget* parent, const InFilesFields& fields);

    InFilesFields fields() const;

    /// In the language of now, with what the fields hold. It stays the window that it is: another
    /// one, opened in its place, would take the keys from wherever the user is.
    void speakAnew();

    void reject() override;

signals:
    /// The dialog has found files and is closed.
    void wanted(const quorvale::InFilesSearch& search);

private:
    void build(const InFilesFields& fields);
    QLineEdit* addLine(QFormLayout& form, const QString& label, const char* name,
                       const QString& text);
    QCheckBox* addCheck(const QString& label, const char* name, bool checked);
    void addFolder(QFormLayout& form, const QString& text);
    void addButtons();
    void browse();
    void start();
    void goOn();
    void finish(const FoundFiles& found);
    void stop(const QString& message);
    void tell(const QString& message, QLineEdit* where);
    void showState();

    QWidget* content_ = nullptr;
    QLineEdit* text_ = nullptr;
    QCheckBox* pattern_ = nullptr;
    QLineEdit* folder_ = nullptr;
    QPushButton* browse_ = nullptr;
    QLineEdit* names_ = nullptr;
    QCheckBox* subfolders_ = nullptr;
    QCheckBox* hidden_ = nullptr;
    QLabel* message_ = nullptr;
    QPushButton* find_ = nullptr;
    QPushButton* cancel_ = nullptr;
    std::unique_ptr<FileWalk> walk_;
    QTimer timer_;
};

}  // namespace quorvale
