// Measures a page down, from the click until it is painted, at ten thousand and at ten million
// lines, beside a plain text edit at ten thousand lines and a page of nothing, in one process.
// Usage: qt_paging_bench [DIRECTORY]; the logs are written once and stay in DIRECTORY.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QPaintEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <vector>

#include "log_file.h"
#include "qt/font_faces.h"
#include "qt/live_surface.h"
#include "qt/quorvale_box_widget.h"

namespace {

using namespace quorvale;

constexpr QSize pageSize(1280, 800);
constexpr int pages = 150;
constexpr std::uint64_t fewLines = 10'000;
constexpr std::uint64_t manyLines = 10'000'000;
constexpr std::uint64_t bytesPerLine = 107;

/// Milliseconds of processor time of this thread: what other programs do does not count.
double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double median(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// Something that is paged through. The pages of all of them are taken in turns, so that whatever
/// else the machine does falls on each alike.
class Candidate : public QObject {
public:
    explicit Candidate(const char* name) : name_(name) {}

    void page() {
        const int before = painted_;
        const double start = processorTime();
        step();
        const double stepped = processorTime();
        while (painted_ == before) QApplication::processEvents();
        steps_.push_back(stepped - start);
        pages_.push_back(processorTime() - start);
    }

    const char* name() const { return name_; }
    double time() const { return median(pages_); }
    double stepTime() const { return median(steps_); }

protected:
    /// To be called once the window is ready; `painted` is the widget that shows the page.
    void show(QWidget& window, QWidget& painted) {
        window.resize(pageSize);
        window.show();
        QApplication::processEvents();
        painted.installEventFilter(this);
    }

    virtual void step() = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++painted_;
        return false;
    }

private:
    const char* name_;
    int painted_ = 0;
    std::vector<double> steps_;
    std::vector<double> pages_;
};

class EmptyPage final : public Candidate {
public:
    EmptyPage() : Candidate("an empty page") { show(page_, page_); }

private:
    /// Paints its ground and nothing else.
    class Page final : public QWidget {
        void paintEvent(QPaintEvent* event) override {
            QPainter(this).fillRect(event->rect(), palette().base());
        }
    };

    void step() override { page_.update(); }

    Page page_;
};

QFont pageFont() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }

class PlainTextEdit final : public Candidate {
public:
    explicit PlainTextEdit(const QString& name) : Candidate("a text edit, 10 thousand lines") {
        edit_.setFont(pageFont());
        edit_.setLineWrapMode(QPlainTextEdit::NoWrap);
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("the log cannot be read");
        edit_.setPlainText(QString::fromUtf8(file.readAll()));
        show(edit_, *edit_.viewport());
        edit_.verticalScrollBar()->setValue(static_cast<int>(fewLines / 10));
    }

private:
    void step() override {
        edit_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    }

    QPlainTextEdit edit_;
};

class Control final : public Candidate {
public:
    Control(const char* what, const QString& name, std::uint64_t lines) : Candidate(what) {
        HostOptions options;
        options.WideScrollBars = true;
        options.TallView = true;
        options.Encoding = Encoding::Automatic;
        widget_.setOptions(options);
        widget_.box().Font(fromQFont(pageFont()));
        widget_.box().BackColor(0x80000005);
        widget_.box().ForeColor(0x80000008);
        widget_.loadFile(name);
        if (widget_.box().LineCount() < static_cast<std::int32_t>(lines)) {
            throw std::runtime_error("the log was not loaded");
        }
        show(widget_, widget_.liveSurface().rows());
        widget_.box().TopLine(static_cast<std::int32_t>(lines / 10));
    }

private:
    void step() override { widget_.box().Elements().scrVert.UserPage(1); }

    QuorvaleBoxWidget widget_;
};

QString logOf(const QDir& folder, std::uint64_t lines) {
    const QString name = folder.filePath(QString("paging-%1.txt").arg(lines));
    const std::uint64_t bytes = lines * bytesPerLine;
    if (static_cast<std::uint64_t>(QFile(name).size()) != bytes) {
        bench::WriteLog(name.toStdString(), {bytes, lines, 1, {}});
    }
    return name;
}

int measure(const QDir& folder) {
    EmptyPage empty;
    PlainTextEdit edit(logOf(folder, fewLines));
    Control few("this control, 10 thousand lines", logOf(folder, fewLines), fewLines);
    Control many("this control, 10 million lines", logOf(folder, manyLines), manyLines);
    const std::array<Candidate*, 4> all{&empty, &edit, &few, &many};
    for (int i = 0; i < pages; ++i) {
        for (Candidate* candidate : all) candidate->page();
    }
    std::printf("Pages of %d x %d pixels, processor time, medians of %d\n", pageSize.width(),
                pageSize.height(), pages);
    for (const Candidate* candidate : all) {
        std::printf(
            "%-34s %7.3f ms (%.3f until it is known what to paint), %6.2f x an empty page, "
            "%5.2f x the text edit\n",
            candidate->name(), candidate->time(), candidate->stepTime(),
            candidate->time() / empty.time(), candidate->time() / edit.time());
    }
    std::printf("10 million lines against 10 thousand: %.2f x\n", many.time() / few.time());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    try {
        const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
        folder.mkpath(".");
        return measure(folder);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
