#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

// The Telnet side of a serial server that speaks the COM Port Control option: data with
// its 0xFF escapes, option negotiation, and the port commands that set the server's line.
// Plain functions and one state machine over bytes, so that the codec can be driven
// without a socket.
namespace quellpad::telnet {

using Bytes = std::vector<std::uint8_t>;

inline constexpr std::uint8_t kSe = 240;
inline constexpr std::uint8_t kNop = 241;
inline constexpr std::uint8_t kSb = 250;
inline constexpr std::uint8_t kWill = 251;
inline constexpr std::uint8_t kWont = 252;
inline constexpr std::uint8_t kDo = 253;
inline constexpr std::uint8_t kDont = 254;
inline constexpr std::uint8_t kIac = 255;

inline constexpr std::uint8_t kBinary = 0;
inline constexpr std::uint8_t kEcho = 1;
inline constexpr std::uint8_t kSuppressGoAhead = 3;
inline constexpr std::uint8_t kComPortOption = 44;

// Commands of the COM Port Control option as the client sends them; the server answers
// each with the same number plus 100.
enum class PortCommand : std::uint8_t {
    SetBaudRate = 1,
    SetDataSize = 2,
    SetParity = 3,
    SetStopSize = 4,
    SetControl = 5,
};
inline constexpr std::uint8_t kServerReplyOffset = 100;

inline constexpr std::uint8_t kParityNone = 1;
inline constexpr std::uint8_t kParityOdd = 2;
inline constexpr std::uint8_t kParityEven = 3;
inline constexpr std::uint8_t kParityMark = 4;
inline constexpr std::uint8_t kParitySpace = 5;
inline constexpr std::uint8_t kStopOne = 1;
inline constexpr std::uint8_t kStopTwo = 2;
inline constexpr std::uint8_t kStopOneAndHalf = 3;
inline constexpr std::uint8_t kControlNoFlow = 1;
inline constexpr std::uint8_t kControlRtsOn = 11;
inline constexpr std::uint8_t kControlRtsOff = 12;

// Appends the byte as data on the wire: 0xFF goes out doubled.
void AppendData(Bytes& wire, std::uint8_t byte);
Bytes EscapeData(std::span<const std::uint8_t> data);

// IAC verb option.
Bytes Negotiation(std::uint8_t verb, std::uint8_t option);
// IAC SB 44 command value IAC SE, the value escaped like data.
Bytes PortCommandFrame(PortCommand command, std::span<const std::uint8_t> value);
Bytes SetBaudRate(std::uint32_t baud); // four bytes, most significant first
Bytes SetDataSize(std::uint8_t bits);
Bytes SetParity(std::uint8_t parity);
Bytes SetStopSize(std::uint8_t stop);
Bytes SetControl(std::uint8_t control);

// Line settings in the option's own terms.
struct PortSettings {
    std::uint32_t baud = 9600;
    std::uint8_t dataSize = 8;
    std::uint8_t parity = kParityNone;
    std::uint8_t stopSize = kStopOne;
};
// The commands that give the server the whole line: baud rate, data size, parity, stop
// size, no flow control, and RTS.
Bytes ConfigurePort(const PortSettings& settings, bool rts);

// The client end of one Telnet connection. Feed() takes what the server sent and splits
// it into the data bytes of the line and the answers owed to the server; negotiation and
// subnegotiation never reach the data. Options are agreed without loops: an answer is
// sent only when a request changes an option's state. Accepted: binary transmission and
// suppress-go-ahead both ways, and the COM Port Control option on our side; everything
// else (echo above all, which would send our frames back) is refused.
class Session {
public:
    // Our opening offers: WILL COM-PORT, WILL BINARY, DO BINARY.
    Bytes Start();
    void Feed(std::span<const std::uint8_t> wire, Bytes& data, Bytes& reply);

    // The server has agreed (DO) to the COM Port Control option.
    bool ComPortAgreed() const { return local_[kComPortOption] == State::Yes; }
    // The server has answered our offer of the option, yes or no.
    bool ComPortSettled() const { return local_[kComPortOption] != State::WantYes; }
    // The last value the server reported for a port command (its answer to our setting),
    // if it sent one.
    std::optional<std::uint32_t> ServerValue(PortCommand command) const;
    // Port notifications and other subnegotiations received and consumed.
    int SubnegotiationsSeen() const { return subnegotiations_; }
    // Between commands: what was fed last ended whatever it began.
    bool BetweenCommands() const { return step_ == Step::Data; }

private:
    enum class State : std::uint8_t { No, WantYes, Yes };
    enum class Step : std::uint8_t { Data, Iac, Verb, Sub, SubIac };
    // Longest subnegotiation kept; the rest of a longer one is dropped.
    static constexpr std::size_t kMaxSubnegotiation = 64;

    void Negotiate(std::uint8_t verb, std::uint8_t option, Bytes& reply);
    void EndSubnegotiation();

    Step step_ = Step::Data;
    std::uint8_t verb_ = 0;
    Bytes sub_;
    std::array<State, 256> local_{};  // options on our side (WILL/WONT, asked by DO/DONT)
    std::array<State, 256> remote_{}; // options on the server's side (DO/DONT)
    std::array<std::optional<std::uint32_t>, 6> serverValues_{};
    int subnegotiations_ = 0;
};

} // namespace quellpad::telnet
