#include "hostile_files.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <future>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace quellpad::test {

namespace {

rlimit savedLimit{};

} // namespace

bool MakeFifo(const QString& path) {
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

bool FinishesWithin(const std::function<void()>& work, const QString& fifo, int timeoutMs) {
    // A writer let go by a closed reader must not end the whole test run.
    std::signal(SIGPIPE, SIG_IGN);
    std::packaged_task<void()> task(work);
    std::future<void> done = task.get_future();
    std::thread runner(std::move(task));
    const bool inTime =
        done.wait_for(std::chrono::milliseconds(timeoutMs)) == std::future_status::ready;
    while (done.wait_for(std::chrono::milliseconds(50)) != std::future_status::ready) {
        // Both ends at once: a blocked reader finds a writer, a blocked writer a reader.
        const int end = ::open(QFile::encodeName(fifo).constData(), O_RDWR | O_NONBLOCK);
        if (end >= 0) {
            char sink[65536];
            while (::read(end, sink, sizeof sink) > 0) {
            }
            ::close(end);
        }
    }
    runner.join();
    done.get(); // what the work threw, it throws here
    return inTime;
}

SmallDisk::SmallDisk(Kind kind, qint64 bytes) : kind_(kind) {
    if (kind_ == Kind::FullFileSystem) {
        if (::geteuid() != 0) {
            unavailable_ = QStringLiteral("mounting a small file system needs root");
            return;
        }
        const QByteArray options = "size=" + QByteArray::number(bytes);
        if (::mount("tmpfs", QFile::encodeName(dir_.path()).constData(), "tmpfs", 0,
                    options.constData()) != 0) {
            unavailable_ = QStringLiteral("a small file system could not be mounted: %1")
                               .arg(QString::fromLocal8Bit(std::strerror(errno)));
            return;
        }
        mounted_ = true;
        return;
    }
    // A write past the limit raises SIGXFSZ, which would end the test run; ignored, the
    // write fails with EFBIG instead.
    std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &savedLimit);
    const rlimit small{static_cast<rlim_t>(bytes), savedLimit.rlim_max};
    limited_ = ::setrlimit(RLIMIT_FSIZE, &small) == 0;
    if (!limited_) {
        unavailable_ = QStringLiteral("the file size limit could not be set");
    }
}

SmallDisk::~SmallDisk() {
    if (limited_) {
        ::setrlimit(RLIMIT_FSIZE, &savedLimit);
    }
    if (mounted_) {
        ::umount2(QFile::encodeName(dir_.path()).constData(), MNT_DETACH);
    }
}

QString SmallDisk::FilePath(const QString& name) const {
    return dir_.filePath(name);
}

QString SmallDisk::Reason() const {
    return QString::fromLocal8Bit(std::strerror(kind_ == Kind::FullFileSystem ? ENOSPC : EFBIG));
}

} // namespace quellpad::test
