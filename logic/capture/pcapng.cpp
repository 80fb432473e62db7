#include "pcapng.h"

namespace quellpad::capture {

namespace {

void Put16(std::string& out, std::uint16_t value) {
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>(value >> 8);
}

void Put32(std::string& out, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) {
        out += static_cast<char>((value >> shift) & 0xFF);
    }
}

void Pad(std::string& out) {
    while (out.size() % 4 != 0) {
        out += '\0';
    }
}

void Option(std::string& out, std::uint16_t code, const std::string& value) {
    Put16(out, code);
    Put16(out, static_cast<std::uint16_t>(value.size()));
    out += value;
    Pad(out);
}

// Type, length, body, length again: the length counts the whole block.
std::string Block(std::uint32_t type, std::string body) {
    Pad(body);
    const auto length = static_cast<std::uint32_t>(body.size() + 12);
    std::string out;
    out.reserve(length);
    Put32(out, type);
    Put32(out, length);
    out += body;
    Put32(out, length);
    return out;
}

std::string Utf8(const QString& text) {
    // An option's length is 16 bits; names and descriptions are far shorter.
    return text.toUtf8().left(1024).toStdString();
}

} // namespace

QString InterfaceDescription(const Interface& line) {
    return line.settings.isEmpty() ? line.device
                                   : line.device + QStringLiteral(", ") + line.settings;
}

void ReadDescription(const QString& description, Interface& line) {
    const qsizetype comma = description.lastIndexOf(QStringLiteral(", "));
    if (comma < 0) {
        line.device = description;
        line.settings.clear();
        return;
    }
    line.device = description.left(comma);
    line.settings = description.mid(comma + 2);
}

std::string SectionHeaderBlock(const QString& application) {
    std::string body;
    Put32(body, pcapng::kByteOrderMagic);
    Put16(body, 1); // version 1.0
    Put16(body, 0);
    Put32(body, 0xFFFFFFFF); // section length not known while streaming
    Put32(body, 0xFFFFFFFF);
    Option(body, pcapng::kShbUserAppl, Utf8(application));
    Put32(body, 0); // end of options
    return Block(pcapng::kSectionHeader, std::move(body));
}

std::string InterfaceBlock(const Interface& line) {
    std::string body;
    Put16(body, kLinkType);
    Put16(body, 0);
    Put32(body, 0); // no snapshot length: every byte is kept
    Option(body, pcapng::kIfName, Utf8(line.name));
    Option(body, pcapng::kIfDescription, Utf8(InterfaceDescription(line)));
    Option(body, pcapng::kIfTsresol, std::string(1, '\x06')); // microseconds
    Put32(body, 0);
    return Block(pcapng::kInterfaceDescription, std::move(body));
}

std::string PacketBlock(const Packet& packet) {
    std::string data;
    data += static_cast<char>(kHeaderVersion);
    data += static_cast<char>(LanguageCode(packet.language));
    data += static_cast<char>(packet.side);
    data += '\0';
    data += packet.bytes;
    const auto ts = static_cast<std::uint64_t>(packet.atUs);
    std::string body;
    body.reserve(data.size() + 40);
    Put32(body, packet.interface);
    Put32(body, static_cast<std::uint32_t>(ts >> 32));
    Put32(body, static_cast<std::uint32_t>(ts & 0xFFFFFFFF));
    Put32(body, static_cast<std::uint32_t>(data.size()));
    Put32(body, static_cast<std::uint32_t>(data.size()));
    body += data;
    Pad(body);
    std::string flags;
    Put32(flags, packet.inbound ? pcapng::kInbound : pcapng::kOutbound);
    Option(body, pcapng::kEpbFlags, flags);
    Put32(body, 0);
    return Block(pcapng::kEnhancedPacket, std::move(body));
}

std::uint8_t LanguageCode(std::optional<protocol::Language> language) {
    return language ? static_cast<std::uint8_t>(static_cast<std::uint8_t>(*language) + 1) : 0;
}

std::optional<protocol::Language> LanguageOfCode(std::uint8_t code) {
    if (code < 1 || code > 4) {
        return std::nullopt;
    }
    return static_cast<protocol::Language>(code - 1);
}

} // namespace quellpad::capture
