#include "netline/telnet_codec.h"

#include <gtest/gtest.h>

#include <string>

namespace quellpad::telnet {
namespace {

constexpr std::uint8_t IAC = kIac, SB = kSb, SE = kSe, WILL = kWill, WONT = kWont, DO = kDo,
                       DONT = kDont, COM = kComPortOption;

TEST(TelnetEncoding, DataAndPortCommandsAreEscapedAndFramed) {
    EXPECT_EQ(EscapeData(Bytes{0xFF, 0x01, 0xFF}), (Bytes{IAC, IAC, 0x01, IAC, IAC}));
    EXPECT_EQ(SetBaudRate(0xFF00), (Bytes{IAC, SB, COM, 1, 0, 0, IAC, IAC, 0, IAC, SE}));
    EXPECT_EQ(ConfigurePort({4800, 7, kParityOdd, kStopTwo}, true),
              (Bytes{IAC, SB,  COM, 1,   0,   0, 0x12, 0xC0, IAC, SE,  IAC, SB,  COM, 2,   7,
                     IAC, SE,  IAC, SB,  COM, 3, 2,    IAC,  SE,  IAC, SB,  COM, 4,   2,   IAC,
                     SE,  IAC, SB,  COM, 5,   1, IAC,  SE,   IAC, SB,  COM, 5,   11,  IAC, SE}));
}

struct DecodeCase {
    const char* what;
    Bytes wire; // after our opening offers
    Bytes data;
    Bytes reply;
    bool agreed;
    bool settled;
};

const DecodeCase kDecodeCases[] = {
    {"IAC IAC is one 0xFF",
     {0xA0, IAC, IAC, 0x0D, IAC, IAC},
     {0xA0, 0xFF, 0x0D, 0xFF},
     {},
     false,
     false},
    {"a serial server's opening: SGA taken, echo refused, binary and the port option agreed "
     "without a loop",
     {IAC, WILL, 3, IAC, DO, 3, IAC, WILL, 1, IAC, DONT, 1, IAC, DO, 0, IAC, WILL, 0, IAC, DO, COM},
     {},
     {IAC, DO, 3, IAC, WILL, 3, IAC, DONT, 1},
     true,
     true},
    {"a refused offer is not answered", {IAC, DONT, COM}, {}, {}, false, true},
    {"an option switched off is acknowledged once",
     {IAC, DO, COM, IAC, DONT, COM, IAC, DONT, COM},
     {},
     {IAC, WONT, COM},
     false,
     true},
    {"unknown options refused",
     {IAC, DO, 24, IAC, WILL, 31},
     {},
     {IAC, WONT, 24, IAC, DONT, 31},
     false,
     false},
    {"commands without options vanish",
     {'a', IAC, kNop, 'b', IAC, SE, 'c'},
     {'a', 'b', 'c'},
     {},
     false,
     false},
    {"answers and notices consumed, data around them kept",
     {'a', IAC, SB,  COM, 101, 0,   0,    IAC, IAC, 0,  IAC,
      SE,  'b', IAC, SB,  COM, 106, 0x60, IAC, SE,  'c'},
     {'a', 'b', 'c'},
     {},
     false,
     false},
    {"a subnegotiation without IAC SE ends at the next command",
     {IAC, SB, COM, 102, 8, IAC, WILL, 1, 'x'},
     {'x'},
     {IAC, DONT, 1},
     false,
     false},
};

// Each case is fed whole and cut at every position; a TCP stream splits where it likes.
TEST(TelnetDecoding, NegotiationAndSubnegotiationNeverReachTheDataWhereverTheInputSplits) {
    for (const DecodeCase& c : kDecodeCases) {
        for (std::size_t cut = 0; cut < c.wire.size(); ++cut) {
            SCOPED_TRACE(std::string(c.what) + ", cut at " + std::to_string(cut));
            Session session;
            session.Start();
            Bytes data;
            Bytes reply;
            const auto middle = c.wire.begin() + static_cast<long>(cut);
            session.Feed(Bytes(c.wire.begin(), middle), data, reply);
            session.Feed(Bytes(middle, c.wire.end()), data, reply);
            EXPECT_EQ(data, c.data);
            EXPECT_EQ(reply, c.reply);
            EXPECT_EQ(session.ComPortAgreed(), c.agreed);
            EXPECT_EQ(session.ComPortSettled(), c.settled);
        }
    }
}

TEST(TelnetDecoding, AServerThatAsksForThePortOptionFirstGetsItAndOverlongPartsAreDropped) {
    Session session;
    Bytes wire{IAC, DO, COM, IAC, SB, COM, 101, 0, 0, IAC, IAC, 0, IAC, SE, IAC, SB, COM, 103};
    wire.insert(wire.end(), 500, kParityEven);
    wire.insert(wire.end(), {IAC, SE, 'o', 'k'});
    Bytes data;
    Bytes reply;
    session.Feed(wire, data, reply);
    EXPECT_EQ(reply, (Bytes{IAC, WILL, COM}));
    EXPECT_TRUE(session.ComPortAgreed());
    EXPECT_EQ(data, (Bytes{'o', 'k'}));
    EXPECT_EQ(session.ServerValue(PortCommand::SetBaudRate), 0xFF00u);
    EXPECT_EQ(session.ServerValue(PortCommand::SetParity), kParityEven);
}

} // namespace
} // namespace quellpad::telnet
