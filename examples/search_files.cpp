// A search over several files. A control keeps the corrections of one document, so the file of a
// picked result is opened in a control of its own. Usage: search_files TEXT FILE OTHER...
#include <QApplication>
#include <cstdio>
#include <map>

#include "control/host_extras.h"
#include "control/search_extras.h"
#include "qt/quorvale_box_widget.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    std::map<QString, quorvale::QuorvaleBoxWidget> views;
    const auto open = [&views](const QString& file) {
        const auto [place, isNew] = views.try_emplace(file);
        if (isNew) place->second.loadFile(file);
        place->second.show();
        return &place->second;
    };
    auto* first = open(app.arguments().value(2));
    auto& search = first->box().Extras().Search();
    const auto onPick = [&](const QString& file, bool* changed) {
        *changed = true;  // Otherwise the control would load it in place of its own.
        const auto there = search.Picked().value();
        // The control is in the middle of the pick, which ends first.
        const auto openThere = [=] { open(file)->moveTo(there.Line, there.Column); };
        QMetaObject::invokeMethod(&app, openThere, Qt::QueuedConnection);
    };
    QObject::connect(first, &quorvale::QuorvaleBoxWidget::beforeFileChange, onPick);
    first->setSearchText(app.arguments().value(1));
    first->setSearchFiles(app.arguments().mid(3));
    std::printf("%zu matches\n", search.FindAll());
    // So that a test can run this as well: the first match is picked, and its file is opened.
    search.PickSelected();
    QApplication::processEvents();
    for (auto& [file, view] : views)
        if (&view != first) return view.lineText(view.row()).contains(first->searchText()) ? 0 : 1;
    return 1;
}
