#pragma once

#include "engine/errors.h"
#include "protocol/commands.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string>

namespace quellpad::capture {

// A capture could not be written, or a file is no capture that can be read.
class CaptureError : public QuellpadError {
public:
    using QuellpadError::QuellpadError;
};

// The link type of every line in a capture: one of the types set aside for private use,
// which Wireshark hands to Quellpad's own dissector. A packet is a run of bytes of the
// wire after a short header saying what the line was set to speak and which side spoke.
inline constexpr std::uint16_t kLinkType = 147;
inline constexpr std::size_t kPacketHeader = 4;
inline constexpr std::uint8_t kHeaderVersion = 1;

// Which side put the bytes on the wire, seen from the equipment.
enum class Side : std::uint8_t {
    Controller = 0, // commands on their way to the equipment
    Equipment = 1,  // its answers
    Heard = 2,      // a listen line: both, as they crossed the bus
};

// One line of a capture: "COM 1", "/dev/pts/4"; the device and its line settings.
struct Interface {
    QString name;
    QString device;
    QString settings; // "2400,n,8,1"; empty where the line has none (TCP)
};
// "/dev/ttyUSB0, 2400,n,8,1" as the interface's description, and back.
QString InterfaceDescription(const Interface& line);
void ReadDescription(const QString& description, Interface& line);

// One run of bytes as it was read from or written to a line.
struct Packet {
    std::uint32_t interface = 0;
    // Wall-clock time in microseconds since the epoch.
    std::int64_t atUs = 0;
    // Read by the side that recorded it (the pcapng inbound flag), or written by it.
    bool inbound = false;
    // The language the line's side was set to; none where it reads them all (the site).
    std::optional<protocol::Language> language;
    Side side = Side::Controller;
    std::string bytes;
};

namespace pcapng {
inline constexpr std::uint32_t kSectionHeader = 0x0A0D0D0A;
inline constexpr std::uint32_t kInterfaceDescription = 1;
inline constexpr std::uint32_t kEnhancedPacket = 6;
inline constexpr std::uint32_t kByteOrderMagic = 0x1A2B3C4D;
inline constexpr std::uint16_t kEndOfOptions = 0;
inline constexpr std::uint16_t kIfName = 2;
inline constexpr std::uint16_t kIfDescription = 3;
inline constexpr std::uint16_t kIfTsresol = 9;
inline constexpr std::uint16_t kShbUserAppl = 4;
inline constexpr std::uint16_t kEpbFlags = 2;
inline constexpr std::uint32_t kInbound = 1;
inline constexpr std::uint32_t kOutbound = 2;
// Longest block written or read: far beyond any run of bytes a line delivers at once.
inline constexpr std::uint32_t kMostBlock = 1u << 20;
} // namespace pcapng

// The blocks of a capture, each whole and ready for the file.
std::string SectionHeaderBlock(const QString& application);
std::string InterfaceBlock(const Interface& line);
std::string PacketBlock(const Packet& packet);

// The language byte of a packet's header, and back (nullopt for none or anything else).
std::uint8_t LanguageCode(std::optional<protocol::Language> language);
std::optional<protocol::Language> LanguageOfCode(std::uint8_t code);

} // namespace quellpad::capture
