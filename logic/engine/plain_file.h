#pragma once

#include <QByteArray>
#include <QString>

namespace quellpad {

// Whether something other than a plain file (or a link to one) is at the path: a FIFO,
// a device, a folder. Opening a FIFO waits for the other end for ever, and none of them
// is a place for a file of the program; every file it reads or writes is refused there.
bool IsNoPlainFile(const QString& path);

// "Bindings.ini at /home/op/.config/Quellpad/Bindings.ini is not a plain file"
QString NotPlainFileText(const QString& name, const QString& path);

// A plain file opened for writing from its start, created when missing, without ever
// waiting to open: what is at the path that is no plain file is refused. Each Append is
// handed to the system at once, and a failure keeps the system's own reason.
class PlainFileWriter {
public:
    PlainFileWriter() = default;
    ~PlainFileWriter();
    PlainFileWriter(const PlainFileWriter&) = delete;
    PlainFileWriter& operator=(const PlainFileWriter&) = delete;

    // What opening does to what the file holds already.
    enum class Keep { Nothing, Everything };
    // False, with Reason() set, when the file cannot be opened or is no plain file. What
    // it held is dropped, or kept and written after.
    bool Open(const QString& path, Keep keep = Keep::Nothing);
    // Writes all of the bytes after what is there; false, with Reason() set, when the
    // system took only part of them (Size() then says how much the file holds).
    bool Append(const QByteArray& bytes);
    // Cuts the file back to `size` bytes, dropping what was written after.
    void Truncate(qint64 size);
    qint64 Size() const { return size_; }
    const QString& Reason() const { return reason_; }

private:
    int fd_ = -1;
    qint64 size_ = 0;
    QString reason_;
};

} // namespace quellpad
