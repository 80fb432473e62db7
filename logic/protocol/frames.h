#pragma once

// The one place where D and P frames and D replies are built, as the keyboard, the
// command windows, the scanner and the simulated site put them on the wire.

#include "commands.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace quellpad::protocol {

inline constexpr std::uint8_t kDStart = 0xFF;
inline constexpr std::uint8_t kPStart = 0xA0;
inline constexpr std::uint8_t kPMarker = 0xAF;
inline constexpr std::size_t kDFrameSize = 7;
inline constexpr std::size_t kPFrameSize = 8;

// The four bytes a frame carries after its address.
struct Registers {
    std::uint8_t command1 = 0;
    std::uint8_t command2 = 0;
    std::uint8_t data1 = 0;
    std::uint8_t data2 = 0;
};

// A value that a frame's byte cannot carry, such as the address 0 of a P frame (sent as
// the address less one). Thrown before any byte is built, so nothing reaches the wire.
class ByteOutOfRange : public std::out_of_range {
public:
    explicit ByteOutOfRange(int value);
    int Value() const { return value_; }

private:
    int value_;
};

// FF addr c1 c2 d1 d2 sum: the sum of the five bytes after the start, modulo 256.
// Addresses 0 to 255.
std::string BuildDFrame(int address, Registers registers);
// A0 addr-1 c1 c2 d1 d2 AF xor: the exclusive-or of the seven bytes before it.
// Addresses 1 to 256.
std::string BuildPFrame(int address, Registers registers);
// The frame of a D or P line.
std::string BuildFrame(Language language, int address, Registers registers);

inline std::string BuildDFrame(int address, std::uint8_t command1, std::uint8_t command2,
                               std::uint8_t data1, std::uint8_t data2) {
    return BuildDFrame(address, Registers{command1, command2, data1, data2});
}
inline std::string BuildPFrame(int address, std::uint8_t command1, std::uint8_t command2,
                               std::uint8_t data1, std::uint8_t data2) {
    return BuildPFrame(address, Registers{command1, command2, data1, data2});
}

// FF addr 00 code hi lo sum: the answer to a position query.
std::string BuildDReply(int address, std::uint8_t code, int value);
// FF addr 00 addr: the acknowledgement of every other D command.
std::string BuildGeneralReply(int address);

} // namespace quellpad::protocol
