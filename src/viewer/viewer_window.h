#pragma once

#include <QMainWindow>
#include <memory>

#include "qt/quorvale_box_widget.h"

class QMenu;

namespace quorvale {

class DocumentGuard;
class DocumentLock;
class DocumentStatus;
class EditMenu;
class FileSearch;
class LookMenu;
class ResultWindows;
class RowCopying;
class RowMenu;
class SearchMenu;
class ViewMenu;

/// The viewer's window: one file in a control of its own, menus and a status bar. Files can be
/// dropped on it.
class ViewerWindow final : public QMainWindow {
    Q_OBJECT

public:
    ViewerWindow();
    ~ViewerWindow() override;

    /// Shows the file in a new control and returns the empty text; or says why not. What was shown
    /// stays unless the file turns out unreadable on the way.
    QString openFile(const QString& fileName);

    /// Gives the window the place on the screen that it had when it was closed last.
    void restorePlace();

    /// Puts the caret on a line and shows it.
    void goToLine(int line);

    /// The control of the file that is shown: another one after the next file was opened.
    QuorvaleBoxWidget& control() { return *control_; }
    ViewMenu& view() { return *view_; }
    ResultWindows& results() { return *results_; }
    /// The file that is shown, as it was opened; empty for none.
    QString fileName() const { return fileName_; }
    QString statusText() const;

    /// Saves the corrections and the window's place, for a program that is told to end: what goes
    /// wrong is written to standard error.
    void saveQuietly();

public slots:
    /// Opens the file, or shows a message that says why not.
    void openOrTell(const QString& fileName);

    /// Shows a warning that waits for nobody.
    void tell(const QString& message);
    /// Shows a message in the status bar for a while.
    void tellBriefly(const QString& message);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void renewControl();
    void setUp(QuorvaleBoxWidget& control);
    void makeMenus();
    void makeFileMenu(QMenu& file);
    void attachMenus();
    void changeLanguage();
    void chooseFile();
    bool showsAFile() const;
    void showDocument();
    void tellNotice(FileNotice::Kind what, const QString& name, const QString& keptAs);
    QString whyOnlyShown() const;
    void tellUnreadable();
    void allowCorrections(bool allowed);
    bool tellsBeforeClosing();
    void reload();

    QuorvaleBoxWidget* control_ = nullptr;
    RowCopying* copying_ = nullptr;
    DocumentGuard* guard_ = nullptr;
    std::unique_ptr<DocumentLock> lock_;
    EditMenu* edit_ = nullptr;
    SearchMenu* search_ = nullptr;
    ResultWindows* results_;
    FileSearch* files_;
    DocumentStatus* status_;
    ViewMenu* view_ = nullptr;
    LookMenu* look_ = nullptr;
    RowMenu* onRows_ = nullptr;
    /// The language of the menus.
    QString language_;
    QString fileName_;
    bool closed_ = false;
};

}  // namespace quorvale
