// A search over several files, where the host opens the file of a picked result in a control of its
// own: a control keeps the corrections of one document. Usage: search_files TEXT FILE...
#include <QApplication>
#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

#include "control/host_extras.h"
#include "control/search_extras.h"
#include "qt/quorvale_box_widget.h"

using quorvale::QuorvaleBoxWidget;

namespace {

/// A host of as many documents as the user comes to.
class Documents : public QObject {
public:
    QuorvaleBoxWidget& open(const QString& fileName) {
        auto& view = *views_.emplace_back(std::make_unique<QuorvaleBoxWidget>());
        view.resize(800, 500);
        view.setWindowTitle(fileName);
        view.show();
        view.loadFile(fileName);
        connect(&view, &QuorvaleBoxWidget::beforeFileChange, this,
                [this, &view](const QString& name, bool* changed) {
                    // Otherwise the control would load it in place of its own.
                    *changed = true;
                    const auto place = view.box().Extras().Search().Picked();
                    // The control is in the middle of the pick: it is let go first.
                    QMetaObject::invokeMethod(
                        this, [this, name, place] { openAt(name, place); }, Qt::QueuedConnection);
                });
        return view;
    }

    /// The one that was opened last.
    QuorvaleBoxWidget& latest() { return *views_.back(); }
    std::size_t count() const { return views_.size(); }

private:
    void openAt(const QString& name, const std::optional<quorvale::PickedPlace>& place) {
        QuorvaleBoxWidget& view = open(name);
        if (place) view.moveTo(place->Line, place->Column);
    }

    std::vector<std::unique_ptr<QuorvaleBoxWidget>> views_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Documents documents;
    QuorvaleBoxWidget& first = documents.open(app.arguments().value(2));
    const QString before = first.text();

    quorvale::SearchExtras& search = first.box().Extras().Search();
    first.setSearchText(app.arguments().value(1));
    first.setSearchFiles(app.arguments().mid(3));
    const std::size_t matches = search.FindAll();
    std::printf("%zu matches in %zu files\n", matches, search.FilesSearched());
    if (matches == 0 || !search.PickSelected()) return 1;
    // The other document comes with the next turn of the event loop.
    QApplication::processEvents();

    QuorvaleBoxWidget& picked = documents.latest();
    std::printf("%s, line %d\n", qUtf8Printable(picked.windowTitle()), picked.row());
    const bool opened = documents.count() == 2 && first.text() == before &&
                        picked.lineText(picked.row()).contains(app.arguments().value(1));
    return opened ? 0 : 1;
}
