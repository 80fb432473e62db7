#include "end_signals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace quellpad {

namespace {

constexpr std::array<int, 3> kEndSignals{SIGTERM, SIGHUP, SIGINT};

// Read end and write end of the pipe between the handler and the event loop.
int endPipe[2] = {-1, -1};
std::array<struct sigaction, kEndSignals.size()> previous{};

extern "C" void WriteSignal(int signal) {
    const int saved = errno; // the interrupted code may be reading errno
    const auto number = static_cast<unsigned char>(signal);
    [[maybe_unused]] const ssize_t written = write(endPipe[1], &number, 1);
    errno = saved;
}

} // namespace

EndSignals::EndSignals(std::function<void(int)> arrived, QObject* parent)
    : QObject(parent), arrived_(std::move(arrived)) {
    if (pipe2(endPipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals keep their default: the program ends at once
    }
    notifier_ = new QSocketNotifier(endPipe[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, &EndSignals::Read);
    struct sigaction action {};
    action.sa_handler = &WriteSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
        sigaction(kEndSignals[i], &action, &previous[i]);
    }
}

EndSignals::~EndSignals() {
    if (notifier_ == nullptr) {
        return;
    }
    for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
        sigaction(kEndSignals[i], &previous[i], nullptr);
    }
    delete notifier_;
    close(endPipe[0]);
    close(endPipe[1]);
    endPipe[0] = endPipe[1] = -1;
}

void EndSignals::Read() {
    unsigned char number = 0;
    while (read(endPipe[0], &number, 1) == 1) {
        arrived_(number);
    }
}

} // namespace quellpad
