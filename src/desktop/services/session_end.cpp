#include "desktop/services/session_end.h"

#include <QGuiApplication>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace desktop {

namespace {

// A signal handler may call hardly any function: it writes a byte into this pipe, which wakes the event loop.
std::array<int, 2> wakingPipe{-1, -1};

extern "C" void wake(int) {
    const char byte = 0;
    // If the pipe is full, the loop has already been woken.
    [[maybe_unused]] const auto written = ::write(wakingPipe[1], &byte, 1);
}

constexpr std::array endingSignals{SIGTERM, SIGHUP, SIGINT};

} // namespace

SessionEnd* SessionEnd::current_ = nullptr;

SessionEnd::SessionEnd(std::function<void()> end, std::function<void()> keep) : end_(std::move(end)) {
    current_ = this;
    if (::pipe2(wakingPipe.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
        auto* const notifier = new QSocketNotifier(wakingPipe[0], QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
            notifier->setEnabled(false);
            signalCame();
        });
        struct sigaction action {};
        action.sa_handler = wake;
        for (const int signal : endingSignals)
            ::sigaction(signal, &action, nullptr);
    }
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [keep = std::move(keep)] { keep(); },
        Qt::DirectConnection);
    // When its display connection breaks, Qt ends the process itself by calling exit().
    std::atexit(displayGone);
}

SessionEnd::~SessionEnd() {
    current_ = nullptr;
    for (const int signal : endingSignals)
        std::signal(signal, SIG_DFL);
}

void SessionEnd::signalCame() {
    if (const auto end = std::exchange(end_, nullptr))
        end();
}

void SessionEnd::displayGone() {
    if (!current_)
        return;
    current_->signalCame();
    // Qt objects cannot be destroyed without the display.
    std::_Exit(0);
}

} // namespace desktop
