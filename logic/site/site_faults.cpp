#include "site_faults.h"
#include "protocol/frames.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace quellpad::site {

namespace {

using Kind = SiteFault::Kind;

struct Name {
    Kind kind;
    const char* text;
    int numbers; // 0: no argument, 1: an address, 2: address:address, -1: a share
};
constexpr Name kNames[] = {
    {Kind::AnswerAddress, "answer-address", 2},
    {Kind::DuplicateAddress, "duplicate-address", 1},
    {Kind::Mute, "mute", 1},
    {Kind::SwappedTxRx, "swapped-txrx", 0},
    {Kind::InvertedPolarity, "inverted-polarity", 0},
    {Kind::Noise, "noise", -1},
    {Kind::SecondController, "second-controller", 1},
};

// The line is sampled this often per second: eight samples to a bit at 19200 baud, more at
// the slower rates, enough for a receiver at one rate to read a sender at another.
constexpr double kSamplesPerSecond = 19200.0 * 8;
// The idle line either side of a burst, in byte times.
constexpr int kIdleBytes = 2;
// Noise never takes more than this share of the bytes: beyond it there is no line at all.
constexpr double kMostNoise = 0.5;

bool ParseAddress(const QString& text, int& address) {
    bool ok = false;
    address = text.toInt(&ok);
    return ok && address >= Site::kLowestAddress && address <= Site::kHighestAddress;
}

int SamplesPerBit(const LineFormat& format) {
    return std::max(1, static_cast<int>(std::lround(kSamplesPerSecond / format.baud)));
}

using Levels = std::vector<std::uint8_t>;

void AddLevel(Levels& levels, std::uint8_t level, double bits, int perBit) {
    levels.insert(levels.end(), static_cast<std::size_t>(std::lround(bits * perBit)), level);
}

// The levels a UART at `format` drives for the bytes, idle (1) either side.
Levels ToLevels(std::string_view bytes, const LineFormat& format) {
    const int perBit = SamplesPerBit(format);
    Levels levels;
    levels.reserve(static_cast<std::size_t>(static_cast<double>(bytes.size() + 2 * kIdleBytes) *
                                            format.BitsPerByte() * perBit));
    AddLevel(levels, 1, kIdleBytes * format.BitsPerByte(), perBit);
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        AddLevel(levels, 0, 1, perBit);
        int ones = 0;
        for (int bit = 0; bit < format.dataBits; ++bit) {
            const std::uint8_t level = (byte >> bit) & 1;
            ones += level;
            AddLevel(levels, level, 1, perBit);
        }
        switch (format.parity) {
        case 'e':
            AddLevel(levels, static_cast<std::uint8_t>(ones & 1), 1, perBit);
            break;
        case 'o':
            AddLevel(levels, static_cast<std::uint8_t>((ones & 1) ^ 1), 1, perBit);
            break;
        case 'm':
            AddLevel(levels, 1, 1, perBit);
            break;
        case 's':
            AddLevel(levels, 0, 1, perBit);
            break;
        default:
            break;
        }
        AddLevel(levels, 1, format.stopBits, perBit);
    }
    AddLevel(levels, 1, kIdleBytes * format.BitsPerByte(), perBit);
    return levels;
}

// What a UART at `format` reads from the levels; beyond their end the line stays at `idle`.
std::string FromLevels(const Levels& levels, const LineFormat& format, std::uint8_t idle) {
    const double perBit = SamplesPerBit(format);
    const auto at = [&levels, idle](double sample) {
        const auto index = static_cast<std::size_t>(sample);
        return index < levels.size() ? levels[index] : idle;
    };
    const int bits = 1 + format.dataBits + (format.parity == 'n' ? 0 : 1);
    std::string out;
    std::size_t i = 0;
    while (i < levels.size()) {
        if (levels[i] != 0) {
            ++i;
            continue;
        }
        const auto middle = [i, perBit](int bit) {
            return static_cast<double>(i) + (bit + 0.5) * perBit;
        };
        if (at(middle(0)) != 0) {
            ++i; // a glitch, not a start bit
            continue;
        }
        int byte = 0;
        bool space = true;
        for (int bit = 1; bit < bits; ++bit) {
            const std::uint8_t level = at(middle(bit));
            space = space && level == 0;
            if (bit <= format.dataBits) {
                byte |= level << (bit - 1);
            }
        }
        const double stop = middle(bits);
        i = static_cast<std::size_t>(stop) + 1;
        if (at(stop) == 0) {
            // A framing error, or with every bit space a break: read as it came (a break
            // as 0), and nothing more until the line is idle again.
            out += static_cast<char>(space ? 0 : byte);
            while (i < levels.size() && levels[i] == 0) {
                ++i;
            }
            if (i >= levels.size() && idle == 0) {
                break;
            }
            continue;
        }
        out += static_cast<char>(byte);
    }
    return out;
}

} // namespace

const SiteFault* SiteFaults::Find(SiteFault::Kind kind, int address) const {
    const auto found = std::find_if(faults.begin(), faults.end(), [&](const SiteFault& fault) {
        return fault.kind == kind && (address == 0 || fault.address == address);
    });
    return found == faults.end() ? nullptr : &*found;
}

bool ParseSiteFault(const QString& text, SiteFault& fault) {
    const QString name = text.section(u'=', 0, 0).trimmed().toLower();
    const bool hasValue = text.contains(u'=');
    const QString value = text.section(u'=', 1).trimmed();
    for (const Name& known : kNames) {
        if (name != QLatin1String(known.text) || hasValue != (known.numbers != 0)) {
            continue;
        }
        SiteFault parsed{known.kind};
        bool ok = true;
        if (known.numbers == -1) {
            parsed.share = value.toDouble(&ok);
            ok = ok && parsed.share > 0 && parsed.share <= kMostNoise;
        } else if (known.numbers == 1) {
            ok = ParseAddress(value, parsed.address);
        } else if (known.numbers == 2) {
            const QStringList parts = value.split(u':');
            ok = parts.size() == 2 && ParseAddress(parts[0], parsed.address) &&
                 ParseAddress(parts[1], parsed.answerAs) && parsed.address != parsed.answerAs;
        }
        if (ok) {
            fault = parsed;
        }
        return ok;
    }
    return false;
}

QString SiteFaultText(const SiteFault& fault) {
    for (const Name& known : kNames) {
        if (known.kind != fault.kind) {
            continue;
        }
        const QString name = QLatin1String(known.text);
        switch (known.numbers) {
        case 0:
            return name;
        case 1:
            return QStringLiteral("%1=%2").arg(name).arg(fault.address);
        case 2:
            return QStringLiteral("%1=%2:%3").arg(name).arg(fault.address).arg(fault.answerAs);
        default:
            return QStringLiteral("%1=%2").arg(name).arg(fault.share);
        }
    }
    return {};
}

QString SiteFaultNames() {
    QStringList names;
    for (const Name& known : kNames) {
        SiteFault example{known.kind, 5, 6, 0.02};
        names << SiteFaultText(example);
    }
    return names.join(QStringLiteral(", "));
}

std::string ReceivedAs(std::string_view bytes, const LineFormat& sent, const LineFormat& read,
                       bool inverted) {
    if (!inverted && sent == read) {
        return std::string(bytes);
    }
    Levels levels = ToLevels(bytes, sent);
    if (inverted) {
        for (std::uint8_t& level : levels) {
            level ^= 1;
        }
    }
    return FromLevels(levels, read, inverted ? 0 : 1);
}

std::string Collided(std::string_view first, std::string_view second, double offsetBits,
                     const LineFormat& format) {
    Levels a = ToLevels(first, format);
    const Levels b = ToLevels(second, format);
    const auto shift = static_cast<std::size_t>(std::lround(offsetBits * SamplesPerBit(format)));
    a.resize(std::max(a.size(), b.size() + shift), 1);
    for (std::size_t i = 0; i < b.size(); ++i) {
        a[i + shift] &= b[i];
    }
    return FromLevels(a, format, 1);
}

FaultyWire::FaultyWire(SiteFaults faults)
    : faults_(std::move(faults)), state_(faults_.seed * 0x9E3779B97F4A7C15ull + 1) {}

double FaultyWire::Next() {
    // A small generator of its own, so that a run repeats on every platform.
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return static_cast<double>(state_ >> 11) / static_cast<double>(1ull << 53);
}

std::string FaultyWire::Noisy(std::string_view bytes) {
    const SiteFault* noise = faults_.Find(Kind::Noise);
    if (noise == nullptr) {
        return std::string(bytes);
    }
    std::string out;
    out.reserve(bytes.size());
    for (const char c : bytes) {
        if (Next() >= noise->share) {
            out += c;
        } else if (Next() < 0.5) {
            out += static_cast<char>(c ^ (1 << static_cast<int>(Next() * 8)));
        }
    }
    return out;
}

std::string FaultyWire::Answer(int address, const std::string& reply, const LineFormat& format) {
    if (reply.empty() || faults_.Find(Kind::Mute, address) != nullptr) {
        return reply.empty() ? reply : std::string();
    }
    const SiteFault* moved = faults_.Find(Kind::AnswerAddress, address);
    const SiteFault* twin = faults_.Find(Kind::DuplicateAddress, address);
    if (moved == nullptr && twin == nullptr) {
        return reply;
    }
    std::vector<protocol::Command> answers;
    protocol::DReplyDecoder().Feed(protocol::AsBytes(reply), answers);
    std::string out;
    for (const protocol::Command& answer : answers) {
        const auto rebuilt = [&answer](int as, int value) {
            return answer.kind == protocol::Kind::GeneralReply
                       ? protocol::BuildGeneralReply(as)
                       : protocol::BuildDReply(as, static_cast<std::uint8_t>(answer.bytes[3]),
                                               value);
        };
        if (moved != nullptr) {
            out += rebuilt(moved->answerAs, answer.value);
        } else {
            // The other camera looks elsewhere, and never starts at quite the same moment.
            const std::string other = rebuilt(address, (answer.value + 4500) & 0xFFFF);
            out += Collided(answer.bytes, other, 0.3 + 2.2 * Next(), format);
        }
    }
    return answers.empty() ? reply : out;
}

std::string FaultyWire::Carry(std::string_view bytes, const LineFormat& format) {
    std::string carried = Noisy(bytes);
    return faults_.Has(Kind::SecondController) ? SecondController(std::move(carried), format)
                                               : carried;
}

std::string FaultyWire::SecondController(std::string bytes, const LineFormat& format) {
    decoded_.clear();
    d_.Feed(protocol::AsBytes(bytes), decoded_);
    p_.Feed(protocol::AsBytes(bytes), decoded_);
    for (const protocol::Command& command : decoded_) {
        if (faults_.Find(Kind::SecondController, command.address) == nullptr) {
            continue;
        }
        const std::size_t at = bytes.rfind(command.bytes);
        if (at == std::string::npos) {
            continue; // split across reads: carried as it came
        }
        const std::string stop = command.language == protocol::Language::P
                                     ? protocol::BuildPFrame(command.address, 0, 0, 0, 0)
                                     : protocol::BuildDFrame(command.address, 0, 0, 0, 0);
        ++commands_;
        if (commands_ % 3 == 0) {
            bytes.replace(at, command.bytes.size(),
                          Collided(command.bytes, stop, 0.5 + 2.5 * Next(), format));
        } else if (commands_ % 3 == 1) {
            bytes.insert(at + command.bytes.size(), stop);
        }
    }
    return bytes;
}

} // namespace quellpad::site
