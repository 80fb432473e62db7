#include "frames.h"

namespace quellpad::protocol {

namespace {

char Byte(int value) {
    if (value < 0 || value > 255) {
        throw ByteOutOfRange(value);
    }
    return static_cast<char>(value);
}

} // namespace

ByteOutOfRange::ByteOutOfRange(int value)
    : std::out_of_range(std::to_string(value) + " does not fit a byte"), value_(value) {}

std::string BuildDFrame(int address, Registers r) {
    const char addr = Byte(address);
    const auto sum =
        static_cast<std::uint8_t>(address + r.command1 + r.command2 + r.data1 + r.data2);
    return {static_cast<char>(kDStart),    addr,
            static_cast<char>(r.command1), static_cast<char>(r.command2),
            static_cast<char>(r.data1),    static_cast<char>(r.data2),
            static_cast<char>(sum)};
}

std::string BuildPFrame(int address, Registers r) {
    std::string frame = {static_cast<char>(kPStart),    Byte(address - 1),
                         static_cast<char>(r.command1), static_cast<char>(r.command2),
                         static_cast<char>(r.data1),    static_cast<char>(r.data2),
                         static_cast<char>(kPMarker)};
    char check = 0;
    for (const char c : frame) {
        check = static_cast<char>(check ^ c);
    }
    frame += check;
    return frame;
}

std::string BuildFrame(Language language, int address, Registers registers) {
    return language == Language::P ? BuildPFrame(address, registers)
                                   : BuildDFrame(address, registers);
}

std::string BuildDReply(int address, std::uint8_t code, int value) {
    const char addr = Byte(address);
    const auto hi = static_cast<std::uint8_t>((value >> 8) & 0xFF);
    const auto lo = static_cast<std::uint8_t>(value & 0xFF);
    const auto sum = static_cast<std::uint8_t>(address + code + hi + lo);
    return {static_cast<char>(kDStart),
            addr,
            0,
            static_cast<char>(code),
            static_cast<char>(hi),
            static_cast<char>(lo),
            static_cast<char>(sum)};
}

std::string BuildGeneralReply(int address) {
    const char addr = Byte(address);
    return {static_cast<char>(kDStart), addr, 0, addr};
}

} // namespace quellpad::protocol
