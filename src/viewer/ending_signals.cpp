#include "viewer/ending_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>

namespace quorvale {

namespace {

constexpr std::array<int, 3> endings = {SIGHUP, SIGINT, SIGTERM};

/// What the handler writes to; -1 while nobody listens.
volatile std::sig_atomic_t writeEnd = -1;

extern "C" void note(int) {
    const int before = errno;
    const char any = 0;
    // When the pipe is full there is enough in it.
    if (writeEnd >= 0 && ::write(static_cast<int>(writeEnd), &any, 1) < 0) errno = before;
    errno = before;
}

void handleWith(void (*handler)(int)) {
    for (const int ending : endings) {
        struct sigaction now = {};
        if (::sigaction(ending, nullptr, &now) != 0 || now.sa_handler == SIG_IGN) continue;
        now = {};
        now.sa_handler = handler;
        now.sa_flags = SA_RESTART;
        ::sigemptyset(&now.sa_mask);
        ::sigaction(ending, &now, nullptr);
    }
}

}  // namespace

EndingSignals::EndingSignals(QObject* parent) : QObject(parent) {
    std::array<int, 2> ends{};
    // Without a pipe the signals end the program as ever.
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    readEnd_ = ends[0];
    writeEnd = ends[1];
    auto* notifier = new QSocketNotifier(readEnd_, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndingSignals::take);
    handleWith(note);
}

EndingSignals::~EndingSignals() {
    if (readEnd_ < 0) return;
    handleWith(SIG_DFL);
    const int other = static_cast<int>(writeEnd);
    writeEnd = -1;
    ::close(other);
    ::close(readEnd_);
}

void EndingSignals::take() {
    std::array<char, 16> some{};
    while (::read(readEnd_, some.data(), some.size()) > 0) {
    }
    emit arrived();
}

}  // namespace quorvale
