#include "capture_writer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace quellpad::capture {

namespace {

QString Application() {
    return QStringLiteral("Quellpad %1").arg(QStringLiteral(QUELLPAD_VERSION));
}

} // namespace

QString RotatedPath(const QString& path, int number) {
    if (number <= 1) {
        return path;
    }
    const QFileInfo info(path);
    const QString suffix = info.completeSuffix();
    const QString base = suffix.isEmpty() ? path : path.left(path.size() - suffix.size() - 1);
    return base + QStringLiteral("-%1").arg(number) +
           (suffix.isEmpty() ? QString() : u'.' + suffix);
}

CaptureWriter::CaptureWriter(const QString& path, std::vector<Interface> lines,
                             std::int64_t rotateBytes)
    : path_(path), lines_(std::move(lines)), rotateBytes_(rotateBytes) {
    Open();
    Flush();
}

void CaptureWriter::Open() {
    ++files_;
    current_ = RotatedPath(path_, files_);
    if (!file_.Open(current_)) {
        stopped_ = true;
        throw CaptureError(
            QCoreApplication::translate("Capture", "The capture \"%1\" cannot be written: %2.")
                .arg(QDir::toNativeSeparators(current_), file_.Reason()));
    }
    Queue(SectionHeaderBlock(Application()));
    for (const Interface& line : lines_) {
        Queue(InterfaceBlock(line));
    }
}

void CaptureWriter::Queue(std::string block) {
    pending_ += block;
    ends_.push_back(pending_.size());
}

std::uint32_t CaptureWriter::AddInterface(const Interface& line) {
    lines_.push_back(line);
    if (!stopped_) {
        Queue(InterfaceBlock(line));
    }
    return static_cast<std::uint32_t>(lines_.size() - 1);
}

void CaptureWriter::Write(const Packet& packet) {
    if (stopped_) {
        return;
    }
    if (rotateBytes_ > 0 &&
        file_.Size() + static_cast<std::int64_t>(pending_.size()) >= rotateBytes_) {
        Flush();
        Open();
    }
    Queue(PacketBlock(packet));
    ++packets_;
    if (pending_.size() >= kFlushAt) {
        Flush();
    }
}

void CaptureWriter::Flush() {
    if (stopped_ || pending_.empty()) {
        return;
    }
    const qint64 before = file_.Size();
    const bool written = file_.Append(
        QByteArray::fromRawData(pending_.data(), static_cast<qsizetype>(pending_.size())));
    if (written) {
        pending_.clear();
        ends_.clear();
        return;
    }
    // Keep the blocks that went out whole; a block cut short would make the rest unreadable.
    const auto got = static_cast<std::size_t>(file_.Size() - before);
    std::size_t whole = 0;
    for (const std::size_t end : ends_) {
        if (end <= got) {
            whole = end;
        }
    }
    file_.Truncate(before + static_cast<qint64>(whole));
    stopped_ = true;
    pending_.clear();
    ends_.clear();
    throw CaptureError(QCoreApplication::translate(
                           "Capture", "The capture \"%1\" stopped: %2. It holds every whole block "
                                      "written before.")
                           .arg(QDir::toNativeSeparators(current_), file_.Reason()));
}

} // namespace quellpad::capture
