#pragma once

#include "pcapng.h"

#include <QIODevice>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quellpad::capture {

// Reads a capture packet by packet, as far as it is sound. A file that is no pcapng at all
// is refused at once; one that is cut short, corrupted or hostile ends where it stops making
// sense, and Problem() says where and why. Blocks of kinds not written here are stepped
// over and counted; packets of lines the file does not describe, or not of Quellpad's
// link type, are skipped and counted. Memory stays within one block, whatever the file.
class CaptureReader {
public:
    // Reads from the device, which must stay open while reading. Throws CaptureError when
    // it does not start as a capture.
    explicit CaptureReader(QIODevice& device);

    // The next packet, or none at the end of the file or of what is sound.
    std::optional<Packet> Next();

    const std::vector<Interface>& Interfaces() const { return interfaces_; }
    // Why reading stopped before the end of the file; empty after a clean end.
    const QString& Problem() const { return problem_; }
    // Everything odd met so far in words, one sentence each ("2 packets for lines the file
    // does not describe were skipped."), the problem last; empty when there was nothing.
    QStringList Remarks() const;

    std::uint64_t SkippedBlocks() const { return skippedBlocks_; }
    std::uint64_t SkippedPackets() const { return skippedPackets_; }
    // Packets whose time is before the packet before them on the same line.
    std::uint64_t Backwards() const { return backwards_; }

    // Most lines one section may describe.
    static constexpr std::size_t kMostInterfaces = 256;

private:
    struct Line {
        bool ours = false;
        // Ticks of the line's clock per microsecond, as a divisor or a factor.
        std::uint64_t divide = 1;
        std::uint64_t multiply = 1;
        std::int64_t lastUs = INT64_MIN;
    };
    bool ReadBlock(std::uint32_t& type);
    bool Stop(const QString& why);
    bool SectionHeader();
    bool InterfaceDescription();
    std::optional<Packet> EnhancedPacket();
    std::uint32_t U32(std::size_t at) const;
    std::uint16_t U16(std::size_t at) const;

    QIODevice& device_;
    std::string block_;
    bool swapped_ = false;
    bool ended_ = false;
    qint64 offset_ = 0;
    std::vector<Interface> interfaces_;
    std::vector<Line> lines_;
    QString problem_;
    std::uint64_t skippedBlocks_ = 0;
    std::uint64_t skippedPackets_ = 0;
    std::uint64_t backwards_ = 0;
};

} // namespace quellpad::capture
