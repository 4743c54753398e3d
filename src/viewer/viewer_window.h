#pragma once

#include <QMainWindow>
#include <QTimer>
#include <cstdint>
#include <memory>

#include "qt/quorvale_box_widget.h"

class QLabel;
class QMenu;

namespace quorvale {

class DocumentGuard;
class DocumentLock;
class EditMenu;
class RowCopying;
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

    /// Puts the caret on a line and shows it.
    void goToLine(int line);

    /// The control of the file that is shown: another one after the next file was opened.
    QuorvaleBoxWidget& control() { return *control_; }
    ViewMenu& view() { return *view_; }
    QString statusText() const;

public slots:
    /// Opens the file, or shows a message that says why not.
    void openOrTell(const QString& fileName);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void renewControl();
    void setUp(QuorvaleBoxWidget& control);
    void makeMenus();
    void makeFileMenu();
    void makeStatusBar();
    void chooseFile();
    bool showsAFile() const;
    void showDocument();
    void showStatus();
    void showPending();
    void tellNotice(FileNotice::Kind what, const QString& name, const QString& keptAs);
    void tellWhyNotToCorrect();
    void withholdEditing();
    void reload();
    void tell(const QString& message);
    void tellBriefly(const QString& message);

    QuorvaleBoxWidget* control_ = nullptr;
    RowCopying* copying_ = nullptr;
    DocumentGuard* guard_ = nullptr;
    std::unique_ptr<DocumentLock> lock_;
    EditMenu* edit_ = nullptr;
    SearchMenu* search_ = nullptr;
    ViewMenu* view_ = nullptr;
    QLabel* pending_ = nullptr;
    QTimer pendingTimer_;
    std::uint64_t changesShown_ = 0;
    QLabel* lines_ = nullptr;
    QLabel* size_ = nullptr;
    QLabel* encoding_ = nullptr;
    QString fileName_;
};

}  // namespace quorvale
