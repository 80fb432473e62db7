#pragma once

#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace quellpad::test {

// Makes a FIFO at the path; whether it could.
bool MakeFifo(const QString& path);

// Runs `work` on a thread of its own and waits up to timeoutMs; whether it finished in
// time. A call still blocked opening the FIFO at `fifo` (or writing to it) is then let go
// by opening its other end and closing it, so that a failing test still ends.
bool FinishesWithin(const std::function<void()>& work, const QString& fifo, int timeoutMs = 2000);

// A place whose files can hold only a few kilobytes, as a disk that fills up: a small
// file system of its own where the tests may mount one (as root), else a limit on the
// size of the files this process writes. The limit is lifted when it goes.
class SmallDisk {
public:
    enum class Kind { FullFileSystem, FileSizeLimit };

    SmallDisk(Kind kind, qint64 bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    // Empty when it is ready; else why it cannot be had here.
    const QString& Unavailable() const { return unavailable_; }
    QString FilePath(const QString& name) const;
    // The system's words for the failure a write meets there.
    QString Reason() const;

private:
    Kind kind_;
    QTemporaryDir dir_;
    bool mounted_ = false;
    bool limited_ = false;
    QString unavailable_;
};

} // namespace quellpad::test
