#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <cstdint>

namespace quellpad::site_app {

// The served site's lines on standard output, written without ever holding up serving:
// what the reader has not taken yet waits in a bounded backlog, and a line that finds the
// backlog full is dropped whole. How many were dropped is said on standard error once a
// second while it goes on, and again at the end, so that the output itself keeps only
// whole lines of its one format.
class StandardOutput final : public QObject {
    Q_OBJECT
public:
    // Text waiting for a reader that has fallen behind, beyond which lines are dropped.
    static constexpr qsizetype kBacklog = 256 * 1024;
    // What the closing lines may add beyond the backlog, so that they are not lost to a
    // flood's last lines.
    static constexpr qsizetype kClosingRoom = 16 * 1024;

    // Writes to `fd` and tells drops on `errorFd`; both are left as they were found.
    StandardOutput(int fd, int errorFd, QObject* parent = nullptr);
    ~StandardOutput() override;

    // One line, without its line end. A closing line may use the closing room.
    void Print(const QString& line, bool closing = false);
    // The backlog is full: a line told now would be dropped, and need not be written out.
    bool Full() const { return closed_ || backlog_.size() >= kBacklog; }
    // A line dropped without being written out, because the backlog is Full().
    void Skip() { Drop(1); }
    // Writes what waits for at most `ms` milliseconds, the closing lines before any others
    // that are still waiting halfway through, drops the rest, and says how many lines were
    // dropped in all.
    void Finish(int ms);
    std::uint64_t Dropped() const { return dropped_; }

private:
    void Flush();
    void Drop(std::uint64_t lines);
    void TellDropped(bool atEnd);

    int fd_;
    int errorFd_;
    int flags_;
    int errorFlags_;
    QByteArray backlog_;
    // The closing lines at the end of the backlog, which the end keeps over the others.
    qsizetype closingBytes_ = 0;
    // The backlog starts with the rest of a line partly written.
    bool partial_ = false;
    QSocketNotifier writable_;
    bool flushing_ = false;
    // The reader has gone: everything from now on is dropped.
    bool closed_ = false;
    std::uint64_t dropped_ = 0;
    std::uint64_t droppedUntold_ = 0;
    QTimer tell_;
};

} // namespace quellpad::site_app
