#include "pseudo_terminal.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>

namespace quellpad::test {

PseudoTerminal::PseudoTerminal() {
    char name[256] = {};
    if (openpty(&master_, &slave_, name, nullptr, nullptr) != 0) {
        throw std::runtime_error("openpty failed");
    }
    termios raw{};
    tcgetattr(slave_, &raw);
    cfmakeraw(&raw);
    tcsetattr(slave_, TCSANOW, &raw);
    fcntl(master_, F_SETFL, fcntl(master_, F_GETFL) | O_NONBLOCK);
    slavePath_ = QString::fromLocal8Bit(name);
}

PseudoTerminal::~PseudoTerminal() {
    if (master_ >= 0) {
        close(master_);
    }
    if (slave_ >= 0) {
        close(slave_);
    }
}

QByteArray PseudoTerminal::Read(int count, int timeoutMs) {
    QByteArray got;
    if (master_ < 0) {
        return got;
    }
    QElapsedTimer clock;
    clock.start();
    while (got.size() < count && clock.elapsed() < timeoutMs) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        pollfd waiting{master_, POLLIN, 0};
        if (poll(&waiting, 1, 2) > 0 && (waiting.revents & POLLIN)) {
            char buffer[256];
            const ssize_t n = read(master_, buffer, sizeof buffer);
            if (n > 0) {
                got.append(buffer, n);
            }
        }
    }
    return got;
}

QByteArray PseudoTerminal::Drain(int settleMs) {
    QElapsedTimer clock;
    clock.start();
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    } while (clock.elapsed() < settleMs);
    return Read(1 << 20, 0) + Read(1 << 20, 1);
}

void PseudoTerminal::Write(const QByteArray& bytes) {
    // The driver holds a few kilobytes; the rest goes as the program reads.
    qsizetype written = 0;
    QElapsedTimer clock;
    clock.start();
    while (written < bytes.size()) {
        const ssize_t n = write(master_, bytes.constData() + written,
                                static_cast<size_t>(bytes.size() - written));
        if (n > 0) {
            written += n;
        } else if (clock.elapsed() > 5000) {
            throw std::runtime_error("pty write failed");
        } else {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
    }
}

void PseudoTerminal::AllowSecondOpen() {
    ioctl(slave_, TIOCNXCL);
}

void PseudoTerminal::Hangup() {
    close(master_);
    master_ = -1;
}

} // namespace quellpad::test
