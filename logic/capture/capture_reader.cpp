#include "capture_reader.h"

#include <QCoreApplication>

#include <limits>

namespace quellpad::capture {

namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("Capture", text);
}

std::uint32_t Swap32(std::uint32_t v) {
    return ((v & 0xFF) << 24) | ((v & 0xFF00) << 8) | ((v >> 8) & 0xFF00) | (v >> 24);
}

// What EnhancedPacket gives for a packet it steps over.
Packet Skipped() {
    Packet packet;
    packet.interface = std::numeric_limits<std::uint32_t>::max();
    return packet;
}

} // namespace

CaptureReader::CaptureReader(QIODevice& device) : device_(device) {
    std::uint32_t type = 0;
    if (!ReadBlock(type) || type != pcapng::kSectionHeader || !SectionHeader()) {
        throw CaptureError(
            problem_.isEmpty()
                ? Tr(QT_TRANSLATE_NOOP("Capture", "This is no pcapng capture."))
                : Tr(QT_TRANSLATE_NOOP("Capture", "This is no pcapng capture: %1")).arg(problem_));
    }
}

bool CaptureReader::Stop(const QString& why) {
    if (problem_.isEmpty()) {
        problem_ = why;
    }
    ended_ = true;
    return false;
}

std::uint32_t CaptureReader::U32(std::size_t at) const {
    std::uint32_t v = 0;
    for (int i = 3; i >= 0; --i) {
        v = (v << 8) | static_cast<std::uint8_t>(block_[at + static_cast<std::size_t>(i)]);
    }
    return swapped_ ? Swap32(v) : v;
}

std::uint16_t CaptureReader::U16(std::size_t at) const {
    const auto lo = static_cast<std::uint8_t>(block_[at]);
    const auto hi = static_cast<std::uint8_t>(block_[at + 1]);
    return swapped_ ? static_cast<std::uint16_t>(lo << 8 | hi)
                    : static_cast<std::uint16_t>(hi << 8 | lo);
}

// Reads one whole block into block_ (type, length, body, length); false at the end or
// where the file stops making sense.
bool CaptureReader::ReadBlock(std::uint32_t& type) {
    if (ended_) {
        return false;
    }
    const qint64 start = offset_;
    block_.resize(12);
    const qint64 head = device_.read(block_.data(), 8);
    if (head == 0) {
        ended_ = true;
        return false;
    }
    if (head != 8) {
        return Stop(
            Tr(QT_TRANSLATE_NOOP(
                   "Capture", "The file ends inside a block at byte %1; it was read up to there."))
                .arg(start));
    }
    type = U32(0);
    if (type == pcapng::kSectionHeader) {
        // A new section may have the other byte order: its magic tells.
        char magic[4];
        if (device_.peek(magic, 4) != 4) {
            return Stop(Tr(QT_TRANSLATE_NOOP(
                               "Capture",
                               "The file ends inside a block at byte %1; it was read up to there."))
                            .arg(start));
        }
        std::uint32_t m = 0;
        for (int i = 3; i >= 0; --i) {
            m = (m << 8) | static_cast<std::uint8_t>(magic[i]);
        }
        if (m == pcapng::kByteOrderMagic) {
            swapped_ = false;
        } else if (m == Swap32(pcapng::kByteOrderMagic)) {
            swapped_ = true;
        } else {
            return Stop(
                Tr(QT_TRANSLATE_NOOP("Capture", "The section at byte %1 has no byte-order mark."))
                    .arg(start));
        }
    }
    const std::uint32_t length = U32(4);
    if (length < 12 || length % 4 != 0 || length > pcapng::kMostBlock) {
        return Stop(Tr(QT_TRANSLATE_NOOP(
                           "Capture",
                           "The block at byte %1 claims a length of %2 bytes, which no sound block "
                           "has; the file was read up to there."))
                        .arg(start)
                        .arg(length));
    }
    block_.resize(length);
    const qint64 rest = device_.read(block_.data() + 8, length - 8);
    if (rest != static_cast<qint64>(length) - 8) {
        return Stop(
            Tr(QT_TRANSLATE_NOOP(
                   "Capture", "The file ends inside a block at byte %1; it was read up to there."))
                .arg(start));
    }
    if (U32(length - 4) != length) {
        return Stop(Tr(QT_TRANSLATE_NOOP(
                           "Capture",
                           "The block at byte %1 ends with another length than it starts with; the "
                           "file was read up to there."))
                        .arg(start));
    }
    offset_ += length;
    return true;
}

bool CaptureReader::SectionHeader() {
    if (block_.size() < 28) {
        return Stop(Tr(QT_TRANSLATE_NOOP("Capture", "The section header is too short.")));
    }
    if (U16(12) != 1) {
        return Stop(
            Tr(QT_TRANSLATE_NOOP("Capture",
                                 "The section is of pcapng version %1, which is not read here."))
                .arg(U16(12)));
    }
    // A new section describes its lines afresh.
    interfaces_.clear();
    lines_.clear();
    return true;
}

bool CaptureReader::InterfaceDescription() {
    if (interfaces_.size() >= kMostInterfaces) {
        return Stop(Tr(QT_TRANSLATE_NOOP("Capture", "The file describes more than %1 lines."))
                        .arg(kMostInterfaces));
    }
    if (block_.size() < 20) {
        return Stop(Tr(QT_TRANSLATE_NOOP("Capture", "An interface block at byte %1 is too short."))
                        .arg(offset_ - static_cast<qint64>(block_.size())));
    }
    Interface interface;
    Line line;
    line.ours = U16(8) == kLinkType;
    std::size_t at = 16;
    const std::size_t end = block_.size() - 4;
    while (at + 4 <= end) {
        const std::uint16_t code = U16(at);
        const std::uint16_t length = U16(at + 2);
        at += 4;
        if (code == pcapng::kEndOfOptions || at + length > end) {
            break;
        }
        const QString text = QString::fromUtf8(block_.data() + at, length);
        if (code == pcapng::kIfName) {
            interface.name = text;
        } else if (code == pcapng::kIfDescription) {
            ReadDescription(text, interface);
        } else if (code == pcapng::kIfTsresol && length >= 1) {
            const auto resolution = static_cast<std::uint8_t>(block_[at]);
            const unsigned exponent = resolution & 0x7F;
            const bool binary = (resolution & 0x80) != 0;
            // Ticks per second as a power of ten or of two; far-off ones mean a hostile file.
            if ((binary && exponent > 63) || (!binary && exponent > 18)) {
                return Stop(Tr(QT_TRANSLATE_NOOP(
                    "Capture", "An interface has a time resolution that makes no sense.")));
            }
            std::uint64_t perSecond = 1;
            for (unsigned i = 0; i < exponent; ++i) {
                perSecond *= binary ? 2 : 10;
            }
            line.divide = perSecond >= 1'000'000 ? perSecond / 1'000'000 : 1;
            line.multiply = perSecond < 1'000'000 ? 1'000'000 / perSecond : 1;
        }
        at += (length + 3u) & ~3u;
    }
    interfaces_.push_back(interface);
    lines_.push_back(line);
    return true;
}

std::optional<Packet> CaptureReader::EnhancedPacket() {
    if (block_.size() < 32) {
        Stop(Tr(QT_TRANSLATE_NOOP("Capture", "A packet block is too short.")));
        return std::nullopt;
    }
    Packet packet;
    packet.interface = U32(8);
    const std::uint64_t ticks = (std::uint64_t{U32(12)} << 32) | U32(16);
    const std::uint32_t captured = U32(20);
    if (captured > block_.size() - 32) {
        Stop(Tr(QT_TRANSLATE_NOOP("Capture", "A packet block claims more bytes than it holds.")));
        return std::nullopt;
    }
    if (packet.interface >= lines_.size() || !lines_[packet.interface].ours ||
        captured < kPacketHeader || static_cast<std::uint8_t>(block_[28]) != kHeaderVersion) {
        ++skippedPackets_;
        return Skipped();
    }
    Line& line = lines_[packet.interface];
    const std::uint64_t us = ticks / line.divide;
    if (us > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) / line.multiply) {
        ++skippedPackets_;
        return Skipped();
    }
    packet.atUs = static_cast<std::int64_t>(us * line.multiply);
    if (packet.atUs < line.lastUs) {
        ++backwards_;
    }
    line.lastUs = packet.atUs;
    packet.language = LanguageOfCode(static_cast<std::uint8_t>(block_[29]));
    const auto side = static_cast<std::uint8_t>(block_[30]);
    packet.side = side <= 2 ? static_cast<Side>(side) : Side::Controller;
    packet.bytes = block_.substr(28 + kPacketHeader, captured - kPacketHeader);
    // The direction is an option after the bytes.
    std::size_t at = 28 + ((captured + 3u) & ~3u);
    const std::size_t end = block_.size() - 4;
    while (at + 4 <= end) {
        const std::uint16_t code = U16(at);
        const std::uint16_t length = U16(at + 2);
        at += 4;
        if (code == pcapng::kEndOfOptions || at + length > end) {
            break;
        }
        if (code == pcapng::kEpbFlags && length == 4) {
            packet.inbound = (U32(at) & 3u) == pcapng::kInbound;
        }
        at += (length + 3u) & ~3u;
    }
    return packet;
}

std::optional<Packet> CaptureReader::Next() {
    std::uint32_t type = 0;
    while (ReadBlock(type)) {
        if (type == pcapng::kSectionHeader) {
            if (!SectionHeader()) {
                return std::nullopt;
            }
        } else if (type == pcapng::kInterfaceDescription) {
            if (!InterfaceDescription()) {
                return std::nullopt;
            }
        } else if (type == pcapng::kEnhancedPacket) {
            auto packet = EnhancedPacket();
            if (!packet) {
                return std::nullopt;
            }
            if (packet->interface != std::numeric_limits<std::uint32_t>::max()) {
                return packet;
            }
        } else {
            ++skippedBlocks_;
        }
    }
    return std::nullopt;
}

QStringList CaptureReader::Remarks() const {
    QStringList remarks;
    if (skippedBlocks_ > 0) {
        remarks << Tr(QT_TRANSLATE_NOOP("Capture",
                                        "%1 blocks of kinds not read here were stepped over."))
                       .arg(skippedBlocks_);
    }
    if (skippedPackets_ > 0) {
        remarks << Tr(QT_TRANSLATE_NOOP(
                          "Capture",
                          "%1 packets of lines the file does not describe, or not recorded by "
                          "Quellpad, were skipped."))
                       .arg(skippedPackets_);
    }
    if (backwards_ > 0) {
        remarks << Tr(QT_TRANSLATE_NOOP(
                          "Capture",
                          "%1 packets are timed before the packet before them on their line."))
                       .arg(backwards_);
    }
    if (!problem_.isEmpty()) {
        remarks << problem_;
    }
    return remarks;
}

} // namespace quellpad::capture
