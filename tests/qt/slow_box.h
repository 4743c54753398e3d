#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "platform/memory_files.h"
#include "qt/search_panel.h"
#include "shown_box.h"
#include "support/slow_files.h"

namespace quorvale::test {

/// A control in a window whose files are read slowly by a clock of the test, and what happens while
/// it searches them: a host's timer looks on.
class SlowBox {
public:
    static constexpr int Files = 20'000;

    /// 20,000 files in memory, every tenth with a match.
    SlowBox() : SlowBox(std::make_shared<MemoryFiles>()) {
        std::u16string names;
        auto& memory = static_cast<MemoryFiles&>(*real_);
        for (int file = 0; file < Files; ++file) {
            const std::u16string name = toUtf16("/many/" + QString::number(file));
            memory.Put(name, file % 10 == 0 ? "a match\n" : "nothing\n");
            names += name + u"\r";
        }
        memory.Put(u"/doc", "one\ntwo\nthree\n");
        memory.Put(u"/other", "another\n");
        shown.box().LoadFile(u"/doc");
        shown.box().SearchFiles(names);
        shown.box().SearchText(u"match");
        shown.settle();
    }

    /// Other files, with nothing named or shown.
    explicit SlowBox(std::shared_ptr<FileSystem> real)
        : real_(std::move(real)), files(std::make_shared<SlowFiles>(real_, clock)) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            ++ticks;
            // It may put another one in its place.
            const auto tick = onTick;
            if (tick) tick();
        });
        timer_.start(0);
    }

    /// Null when there is none, or no control.
    SearchPanel* panel() {
        const auto& control = shown.owner();
        return control == nullptr ? nullptr : control->findChild<SearchPanel*>();
    }
    ListMirror& list() { return shown.live().results(); }

    void findAll() {
        // As a user does: with what a handler of the window's widgets holds on to.
        shown.widget().act([](Surface& surface) {
            constexpr std::size_t all = 1;
            surface.tbMore.UserMenuClick(u"Find", all);
        });
    }

    /// No more time passes from now on: the rest of a search has no more turns.
    void hurry() { files->Takes = {}; }

    /// Runs it once, in a turn of the search.
    void onceInside(std::function<void()> act) {
        onTick = [this, act = std::move(act)] {
            if (panel() == nullptr) return;
            onTick = nullptr;
            act();
        };
    }

private:
    std::shared_ptr<FileSystem> real_;

public:
    std::shared_ptr<HandClock> clock = std::make_shared<HandClock>();
    std::shared_ptr<SlowFiles> files;
    ShownBox shown{QSize(800, 600), {}, {files, clock}};
    std::function<void()> onTick;
    int ticks = 0;

private:
    QTimer timer_;
};

}  // namespace quorvale::test
