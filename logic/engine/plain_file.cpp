#include "plain_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quellpad {

namespace {

QString SystemReason(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

} // namespace

bool IsNoPlainFile(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}

QString NotPlainFileText(const QString& name, const QString& path) {
    return QCoreApplication::translate("PlainFile", "%1 at %2 is not a plain file")
        .arg(name, QDir::toNativeSeparators(path));
}

PlainFileWriter::~PlainFileWriter() {
    if (fd_ >= 0) {
        ::close(fd_);
    }
}

bool PlainFileWriter::Open(const QString& path, Keep keep) {
    const QByteArray name = QFile::encodeName(path);
    // Not waiting: a FIFO with nobody at its other end fails at once (ENXIO) rather than
    // hanging the window, and one with a reader is refused just below.
    fd_ = ::open(name.constData(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666);
    if (fd_ < 0) {
        reason_ = SystemReason(errno);
        return false;
    }
    struct stat info {};
    if (::fstat(fd_, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd_);
        fd_ = -1;
        reason_ = QCoreApplication::translate("PlainFile", "it is not a plain file");
        return false;
    }
    // Only now that it is known to be a plain file is what it held dropped, and its
    // writes may wait for the disk as any file's do.
    ::fcntl(fd_, F_SETFL, ::fcntl(fd_, F_GETFL) & ~O_NONBLOCK);
    if (keep == Keep::Everything) {
        size_ = ::lseek(fd_, 0, SEEK_END);
        if (size_ < 0) {
            reason_ = SystemReason(errno);
            return false;
        }
        return true;
    }
    if (::ftruncate(fd_, 0) != 0) {
        reason_ = SystemReason(errno);
        return false;
    }
    size_ = 0;
    return true;
}

bool PlainFileWriter::Append(const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const auto wrote =
            ::write(fd_, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (wrote < 0) {
            if (errno == EINTR) {
                continue;
            }
            reason_ = SystemReason(errno);
            size_ += done;
            return false;
        }
        done += wrote;
    }
    size_ += done;
    return true;
}

void PlainFileWriter::Truncate(qint64 size) {
    if (fd_ >= 0 && size < size_ && ::ftruncate(fd_, size) == 0) {
        ::lseek(fd_, size, SEEK_SET);
        size_ = size;
    }
}

} // namespace quellpad
