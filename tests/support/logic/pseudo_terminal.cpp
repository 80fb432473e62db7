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

QString PseudoTerminal::LineSettings() const {
    termios line{};
    tcgetattr(master_, &line); // on a pseudo-terminal this reads the device side's settings
    struct Speed {
        speed_t code;
        int baud;
    };
    static const Speed speeds[] = {{B1200, 1200},   {B2400, 2400},    {B4800, 4800},
                                   {B9600, 9600},   {B19200, 19200},  {B38400, 38400},
                                   {B57600, 57600}, {B115200, 115200}};
    int baud = 0;
    for (const Speed& speed : speeds) {
        if (cfgetospeed(&line) == speed.code) {
            baud = speed.baud;
        }
    }
    const char parity = (line.c_cflag & PARENB) == 0 ? 'n' : (line.c_cflag & PARODD) ? 'o' : 'e';
    const tcflag_t size = line.c_cflag & CSIZE;
    const int bits = size == CS5 ? 5 : size == CS6 ? 6 : size == CS7 ? 7 : 8;
    return QStringLiteral("%1,%2,%3,%4")
        .arg(baud)
        .arg(QChar::fromLatin1(parity))
        .arg(bits)
        .arg((line.c_cflag & CSTOPB) ? 2 : 1);
}

void PseudoTerminal::Hangup() {
    close(master_);
    master_ = -1;
}

void PseudoTerminal::Release() {
    Hangup();
    if (slave_ >= 0) {
        close(slave_);
        slave_ = -1;
    }
}

} // namespace quellpad::test
