#include "standard_output.h"

#include <QCoreApplication>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace quellpad::site_app {

namespace {

// Drops are told at most this often while they go on.
constexpr int kTellEveryMs = 1000;

// A pipe, socket or file is written without blocking; a terminal is left as it is, since
// the shell reads from the same terminal once the program has ended, and a terminal takes
// what it is given.
int MakeNonBlocking(int fd) {
    const int flags = ::fcntl(fd, F_GETFL);
    if (flags >= 0 && ::isatty(fd) == 0) {
        ::fcntl(fd, F_SETFL, flags | O_NONBLOCK);
    }
    return flags;
}

} // namespace

StandardOutput::StandardOutput(int fd, int errorFd, QObject* parent)
    : QObject(parent), fd_(fd), errorFd_(errorFd), flags_(MakeNonBlocking(fd)),
      errorFlags_(MakeNonBlocking(errorFd)), writable_(fd, QSocketNotifier::Write) {
    writable_.setEnabled(false);
    connect(&writable_, &QSocketNotifier::activated, this, &StandardOutput::Flush);
    tell_.setInterval(kTellEveryMs);
    connect(&tell_, &QTimer::timeout, this, [this] { TellDropped(false); });
}

StandardOutput::~StandardOutput() {
    if (flags_ >= 0) {
        ::fcntl(fd_, F_SETFL, flags_);
    }
    if (errorFlags_ >= 0) {
        ::fcntl(errorFd_, F_SETFL, errorFlags_);
    }
}

void StandardOutput::Print(const QString& line, bool closing) {
    const QByteArray bytes = line.toUtf8() + '\n';
    if (closed_ ||
        backlog_.size() + bytes.size() > kBacklog + (closing ? kClosingRoom : qsizetype{0})) {
        Drop(1);
        return;
    }
    backlog_ += bytes;
    closingBytes_ += closing ? bytes.size() : 0;
    // What a burst of events tells leaves in one write once the burst is dealt with, yet
    // without delay for a reader waiting on a line.
    if (!flushing_ && !writable_.isEnabled()) {
        flushing_ = true;
        QTimer::singleShot(0, this, [this] {
            flushing_ = false;
            Flush();
        });
    }
}

void StandardOutput::Flush() {
    while (!backlog_.isEmpty()) {
        // Whole lines of at most PIPE_BUF bytes together, which a pipe takes whole or not
        // at all: its reader never sees half a line, whenever the program stops.
        qsizetype size = backlog_.size();
        if (size > PIPE_BUF) {
            size = backlog_.lastIndexOf('\n', PIPE_BUF - 1) + 1;
            if (size == 0) {
                size = backlog_.indexOf('\n') + 1; // a line longer than that on its own
            }
        }
        const ssize_t put = ::write(fd_, backlog_.constData(), static_cast<std::size_t>(size));
        if (put > 0) {
            partial_ = backlog_.at(static_cast<qsizetype>(put) - 1) != '\n';
            backlog_.remove(0, put);
            closingBytes_ = std::min(closingBytes_, backlog_.size());
            continue;
        }
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            writable_.setEnabled(true);
            return;
        }
        // The reader has gone (or the disk is full): nothing more can be written.
        closed_ = true;
        Drop(static_cast<std::uint64_t>(std::max<qsizetype>(1, backlog_.count('\n'))));
        backlog_.clear();
    }
    writable_.setEnabled(false);
}

void StandardOutput::Drop(std::uint64_t lines) {
    dropped_ += lines;
    droppedUntold_ += lines;
    if (!tell_.isActive()) {
        TellDropped(false);
        tell_.start();
    }
}

void StandardOutput::TellDropped(bool atEnd) {
    if (!atEnd && droppedUntold_ == 0) {
        tell_.stop();
        return;
    }
    const QString text =
        atEnd ? QCoreApplication::translate("ServedSite",
                                            "output lines dropped because standard output was "
                                            "read too slowly: %1 in all")
                    .arg(dropped_)
              : QCoreApplication::translate("ServedSite",
                                            "output lines dropped because standard output is "
                                            "read too slowly: %1 since last told, %2 in all")
                    .arg(droppedUntold_)
                    .arg(dropped_);
    droppedUntold_ = 0;
    const QByteArray bytes = QByteArrayLiteral("quellpad-site: ") + text.toUtf8() + '\n';
    // Said if standard error takes it now; never waited for.
    [[maybe_unused]] const ssize_t put =
        ::write(errorFd_, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void StandardOutput::Finish(int ms) {
    QElapsedTimer clock;
    clock.start();
    writable_.setEnabled(false);
    const auto writeUntil = [&](qint64 until) {
        while (!backlog_.isEmpty() && !closed_ && clock.elapsed() < until) {
            pollfd look{fd_, POLLOUT, 0};
            if (::poll(&look, 1, static_cast<int>(until - clock.elapsed())) > 0) {
                Flush();
                writable_.setEnabled(false);
            }
        }
    };
    writeUntil(ms / 2);
    if (backlog_.size() > closingBytes_) {
        // The reader is too slow for all of it: the closing lines go first, what came before
        // them is dropped, bar the rest of a line already begun.
        const qsizetype begun = partial_ ? backlog_.indexOf('\n') + 1 : 0;
        const qsizetype from = std::max(begun, backlog_.size() - closingBytes_);
        dropped_ += static_cast<std::uint64_t>(backlog_.mid(begun, from - begun).count('\n'));
        backlog_.remove(begun, from - begun);
    }
    writeUntil(ms);
    tell_.stop();
    dropped_ += static_cast<std::uint64_t>(backlog_.count('\n'));
    backlog_.clear();
    if (dropped_ > 0) {
        TellDropped(true);
    }
}

} // namespace quellpad::site_app
