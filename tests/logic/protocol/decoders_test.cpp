#include "fixtures.h"

#include "protocol/decoders.h"
#include "protocol/frames.h"

namespace quellpad::test {
namespace {

using protocol::AsBytes;
using protocol::Command;
using protocol::Kind;
using protocol::Language;

std::vector<Command> FeedAll(protocol::Decoder& decoder, std::string_view bytes) {
    return decoder.Feed(AsBytes(bytes));
}

std::vector<std::string> Words(const std::vector<Command>& commands) {
    std::vector<std::string> words;
    for (const Command& c : commands) {
        words.push_back(c.Describe());
    }
    return words;
}

std::string Bytes(std::initializer_list<int> values) {
    std::string out;
    for (const int v : values) {
        out += static_cast<char>(v);
    }
    return out;
}

TEST(FrameDecoders, EveryRegisterCommandOfTheKeyboardDecodesByName) {
    struct Case {
        std::uint8_t c1, c2, d1, d2;
        const char* d;
        const char* p;
    };
    const Case cases[] = {
        {0x00, 0x00, 0x00, 0x00, "stop", "stop"},
        {0x00, 0x02, 0x20, 0x00, "pan right 32", "pan right 32"},
        {0x00, 0x0C, 0x07, 0x3F, "pan left 7, tilt up 63", "pan left 7, tilt up 63"},
        {0x00, 0x30, 0x00, 0x10, "tilt down 16, zoom in", "tilt down 16, zoom in"},
        {0x01, 0x40, 0x00, 0x00, "zoom out, focus near", "zoom out, focus far"},
        {0x02, 0x80, 0x00, 0x00, "focus far, iris open", "unknown"},
        {0x04, 0x00, 0x00, 0x00, "iris close", "iris open"},
        {0x00, 0x03, 0x00, 0x05, "set preset 5", "set preset 5"},
        {0x00, 0x05, 0x00, 0x05, "clear preset 5", "clear preset 5"},
        {0x00, 0x07, 0x00, 0x22, "go to preset 34", "go to preset 34"},
        {0x00, 0x09, 0x00, 0x03, "aux 3 on", "aux 3 on"},
        {0x00, 0x0B, 0x00, 0x03, "aux 3 off", "aux 3 off"},
        {0x00, 0x0F, 0x00, 0x00, "remote reset", "remote reset"},
        {0x00, 0x11, 0x00, 0x02, "zone 2 start", "zone 2 start"},
        {0x00, 0x13, 0x00, 0x02, "zone 2 end", "zone 2 end"},
        {0x00, 0x15, 0x14, 0x41, "character 'A' at column 20", "character 'A' at column 20"},
        {0x00, 0x17, 0x00, 0x00, "clear screen", "clear screen"},
        {0x00, 0x1B, 0x00, 0x00, "zone scan on", "zone scan on"},
        {0x00, 0x1D, 0x00, 0x00, "zone scan off", "zone scan off"},
        {0x00, 0x1F, 0x00, 0x04, "record pattern 4", "record pattern 4"},
        {0x00, 0x21, 0x00, 0x04, "end pattern 4", "end pattern 4"},
        {0x00, 0x23, 0x00, 0x04, "run pattern 4", "run pattern 4"},
        {0x00, 0x25, 0x00, 0x02, "zoom speed 2", "zoom speed 2"},
        {0x00, 0x27, 0x00, 0x01, "focus speed 1", "focus speed 1"},
        {0x00, 0x29, 0x00, 0x00, "reset camera to defaults", "reset camera to defaults"},
        {0x00, 0x2B, 0x00, 0x00, "auto focus on", "auto focus on"},
        {0x00, 0x2D, 0x00, 0x01, "auto iris off", "auto iris off"},
        {0x00, 0x2F, 0x00, 0x00, "auto AGC on", "auto AGC on"},
        {0x00, 0x31, 0x00, 0x02, "backlight compensation on", "backlight compensation on"},
        {0x00, 0x33, 0x00, 0x01, "auto white balance off", "auto white balance off"},
        {0x00, 0x37, 0x00, 0x10, "shutter speed code 16", "shutter speed code 16"},
        {0x00, 0x3B, 0x04, 0x00, "red gain 1024", "red gain 1024"},
        {0x00, 0x3D, 0x00, 0x0A, "blue gain 10", "blue gain 10"},
        {0x00, 0x41, 0x00, 0x0D, "iris level 13", "iris level 13"},
        {0x00, 0x43, 0x00, 0x7F, "iris peak 127", "iris peak 127"},
        {0x00, 0x45, 0x00, 0x00, "query set-up", "query set-up"},
        {0x00, 0x49, 0x00, 0x00, "set zero position", "set zero position"},
        {0x00, 0x4B, 0x8C, 0x9F, "set pan 359.99", "set pan 359.99"},
        {0x00, 0x4D, 0x88, 0xB8, "set tilt 350.00", "set tilt 350.00"},
        {0x00, 0x4F, 0x80, 0x00, "set zoom 32768", "set zoom 32768"},
        {0x00, 0x5F, 0x00, 0x64, "set magnification 1.00", "set magnification 1.00"},
        {0x00, 0x51, 0x00, 0x00, "query pan", "query pan"},
        {0x00, 0x53, 0x00, 0x00, "query tilt", "query tilt"},
        {0x00, 0x55, 0x00, 0x00, "query zoom", "query zoom"},
        {0x00, 0x61, 0x00, 0x00, "query magnification", "query magnification"},
        {0x00, 0x6B, 0x00, 0x00, "query device type", "query device type"},
        {0x00, 0x6F, 0x00, 0x00, "query diagnostics", "query diagnostics"},
        {0x00, 0x65, 0x00, 0x00, "echo mode", "echo mode"},
        {0x00, 0x57, 0x00, 0x00, "prepare download", "prepare download"},
        {0x00, 0x69, 0x00, 0x00, "start download", "start download"},
        {0x00, 0x7F, 0x00, 0x00, "unknown", "unknown"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.d);
        protocol::DFrameDecoder d;
        const auto fromD = FeedAll(d, protocol::BuildDFrame(3, c.c1, c.c2, c.d1, c.d2));
        ASSERT_EQ(fromD.size(), 1u);
        EXPECT_EQ(fromD[0].address, 3);
        EXPECT_EQ(fromD[0].Describe().substr(0, std::string(c.d).size()), c.d);
        protocol::PFrameDecoder p;
        const auto fromP = FeedAll(p, protocol::BuildPFrame(3, c.c1, c.c2, c.d1, c.d2));
        ASSERT_EQ(fromP.size(), 1u);
        EXPECT_EQ(fromP[0].address, 3);
        EXPECT_EQ(fromP[0].Describe().substr(0, std::string(c.p).size()), c.p);
    }
}

TEST(AsciiDecoders, EveryTextOfTheKeyboardDecodesByName) {
    struct Case {
        const char* text;
        Language language;
        std::vector<std::string> words;
    };
    const Case cases[] = {
        {"12Ma", Language::Ascii, {"monitor 12"}},
        {"999999#a", Language::Ascii, {"camera 999999"}},
        {"+a-a", Language::Ascii, {"next camera", "previous camera"}},
        {"iada", Language::Ascii, {"next alarm", "previous alarm"}},
        {"0Ea3EaIa7Ia",
         Language::Ascii,
         {"trigger alarm 0", "trigger alarm 3", "reset all alarms", "reset alarm 7"}},
        {"4Aa4Ba9xa9~xa", Language::Ascii, {"aux 4 on", "aux 4 off", "GPI 9 on", "GPI 9 off"}},
        {"2Sa2Ha2qa2ea2ta2ra",
         Language::Ascii,
         {"start macro 2", "halt macro 2", "start sequence 2", "halt sequence 2", "start tour 2",
          "halt tour 2"}},
        {"5\\a5^a", Language::Ascii, {"go to preset 5", "set preset 5"}},
        {"laFRONT DOOR!a5^a", Language::Ascii, {"label \"FRONT DOOR\"", "set preset 5"}},
        {"10/a10na10pa",
         Language::Ascii,
         {"record pattern 10", "end pattern 10", "run pattern 10"}},
        {"Ga~Gaoa", Language::Ascii, {"lock camera", "unlock camera", "override camera lock"}},
        {" 12YaGATE!a", Language::Ascii, {"camera 12 title \"GATE\""}},
        {" 12Ya!a", Language::Ascii, {"camera 12 title \"\""}},
        {"Za03/07/06/14:05:09a", Language::Ascii, {"time 03/07/06/14:05:09"}},
        {"25La~Ra15Da", Language::Ascii, {"pan left 25", "pan right off", "tilt down 15"}},
        {"20Ua~UaTa~TaWa~WaNa~NaFa~FaOa~OaCa~Casa",
         Language::Ascii,
         {"tilt up 20", "tilt up off", "zoom in", "zoom in off", "zoom out", "zoom out off",
          "focus near", "focus near off", "focus far", "focus far off", "iris open",
          "iris open off", "iris close", "iris close off", "stop all"}},
        {"12Qa", Language::Ascii, {"unknown \"12Qa\""}},
        {"Ma", Language::Ascii, {"unknown \"Ma\""}},
        {"dLm~dLmdRm~dUmdDm",
         Language::MuxAscii,
         {"pan left", "pan left off", "pan right", "tilt up off", "tilt down"}},
        {"ymimumomxm16#m",
         Language::MuxAscii,
         {"digital zoom", "picture in picture", "quad", "nano", "hex", "camera 16 full screen"}},
        {"<mrmem>>m<<msm>m",
         Language::MuxAscii,
         {"VCR eject", "VCR record", "VCR pause", "VCR fast forward", "VCR rewind", "VCR stop",
          "VCR play"}},
        {"qqm", Language::MuxAscii, {"unknown \"qqm\""}},
        // Each language steps over the other's texts.
        {"1Ma ym 2#a", Language::Ascii, {"monitor 1", "camera 2"}},
        {"1Ma ym 2#a", Language::MuxAscii, {"digital zoom"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        protocol::AsciiDecoder decoder(c.language);
        EXPECT_EQ(Words(FeedAll(decoder, c.text)), c.words);
    }
}

TEST(FrameDecoders, BrokenFramesAreThrownAwayAndTheNextFrameIsFound) {
    const std::string stop = protocol::BuildDFrame(1, 0, 0, 0, 0);
    const std::string right = protocol::BuildDFrame(2, 0, 0x02, 0x20, 0);
    std::string badCheck = right;
    badCheck[6] = static_cast<char>(badCheck[6] + 1);
    struct Case {
        const char* name;
        std::string wire;
        std::vector<std::string> words;
        std::size_t rejected;
    };
    const Case cases[] = {
        {"junk between frames",
         "\x01\x02junk" + stop + "\x00\x7F" + right,
         {"stop", "pan right 32"},
         0},
        {"bad check", badCheck + stop, {"stop"}, 1},
        {"frame cut by the next start", stop.substr(0, 4) + right, {"pan right 32"}, 1},
        {"frame cut at the end", right + stop.substr(0, 5), {"pan right 32"}, 0},
        {"data byte equal to the start byte",
         protocol::BuildDFrame(1, 0, 0x02, 0xFF, 0),
         {"pan right 255"},
         0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        protocol::DFrameDecoder whole;
        EXPECT_EQ(Words(FeedAll(whole, c.wire)), c.words);
        EXPECT_EQ(whole.Rejected(), c.rejected);
        // The same bytes one at a time, as a slow line delivers them.
        protocol::DFrameDecoder split;
        std::vector<Command> pieces;
        for (const char byte : c.wire) {
            split.Feed(AsBytes(std::string_view(&byte, 1)), pieces);
        }
        EXPECT_EQ(Words(pieces), c.words);
    }
}

TEST(FrameDecoders, PFramesNeedTheirMarkerAndCheckAndCarryTheAddressLessOne) {
    const std::string good = protocol::BuildPFrame(2, 0, 0x02, 0x20, 0);
    EXPECT_EQ(good, Bytes({0xA0, 0x01, 0x00, 0x02, 0x20, 0x00, 0xAF, 0x2C}));
    std::string noMarker = good;
    noMarker[6] = static_cast<char>(0xAE);
    noMarker[7] = static_cast<char>(noMarker[7] ^ 0xAF ^ 0xAE);
    std::string badCheck = good;
    badCheck[7] = 0;
    protocol::PFrameDecoder decoder;
    const auto commands = FeedAll(decoder, noMarker + badCheck + "\xFF\x01" + good);
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].address, 2);
    EXPECT_EQ(commands[0].Describe(), "pan right 32");
    EXPECT_EQ(decoder.Rejected(), 2u);
}

TEST(FrameDecoders, RepliesOfADReceiverDecodeWithTheirValues) {
    const std::string wire =
        protocol::BuildDReply(1, 0x59, 35999) + protocol::BuildGeneralReply(1) + "\x13" +
        protocol::BuildDReply(2, 0x5B, 35000) + protocol::BuildDReply(2, 0x5D, 65535) +
        protocol::BuildGeneralReply(0x59) + protocol::BuildDReply(3, 0x63, 350);
    EXPECT_EQ(protocol::BuildDReply(1, 0x59, 35999),
              Bytes({0xFF, 0x01, 0x00, 0x59, 0x8C, 0x9F, 0x85}));
    EXPECT_EQ(protocol::BuildGeneralReply(1), Bytes({0xFF, 0x01, 0x00, 0x01}));
    protocol::DReplyDecoder decoder;
    EXPECT_EQ(Words(FeedAll(decoder, wire)),
              (std::vector<std::string>{"pan is 359.99", "acknowledged", "tilt is 350.00",
                                        "zoom is 65535", "acknowledged", "magnification is 3.50"}));
}

TEST(AsciiDecoders, CutAndOverlongTextsAreLostAsOnARealLine) {
    protocol::AsciiDecoder decoder(Language::Ascii);
    // "12M" cut by noise, an endless text lost up to its end, then a text split in two reads.
    auto first = FeedAll(decoder, std::string("12M\r") + std::string(60, 'X') + "3#a4#");
    EXPECT_TRUE(first.empty());
    EXPECT_EQ(Words(FeedAll(decoder, "a")), (std::vector<std::string>{"camera 4"}));
    EXPECT_EQ(decoder.Rejected(), 2u);
}

TEST(AllDecoders, HowTheLineIsSplitIntoReadsChangesNothing) {
    // Every language and its noise on one wire, read in pieces of every size from 1 to 23.
    const std::string wire = protocol::BuildDFrame(1, 0, 0x02, 0x20, 0) + "12Ma\r" +
                             protocol::BuildPFrame(3, 0, 0x03, 0, 5) + "dLm~dLm" +
                             protocol::BuildDReply(1, 0x59, 1234) + " 12YaGATE!a" +
                             protocol::BuildGeneralReply(2) + "\xFF\x01\x00laX" +
                             protocol::BuildDFrame(2, 0, 0x51, 0, 0) + "sa16#m";
    using Make = std::unique_ptr<protocol::Decoder> (*)();
    const Make makers[] = {
        [] { return std::unique_ptr<protocol::Decoder>(new protocol::DFrameDecoder); },
        [] { return std::unique_ptr<protocol::Decoder>(new protocol::PFrameDecoder); },
        [] { return std::unique_ptr<protocol::Decoder>(new protocol::DReplyDecoder); },
        [] {
            return std::unique_ptr<protocol::Decoder>(new protocol::AsciiDecoder(Language::Ascii));
        },
        [] {
            return std::unique_ptr<protocol::Decoder>(
                new protocol::AsciiDecoder(Language::MuxAscii));
        },
    };
    for (const Make make : makers) {
        const auto whole = Words(make()->Feed(AsBytes(wire)));
        EXPECT_FALSE(whole.empty());
        for (std::size_t piece = 1; piece < 24; ++piece) {
            auto decoder = make();
            std::vector<Command> pieces;
            for (std::size_t at = 0; at < wire.size(); at += piece) {
                decoder->Feed(AsBytes(std::string_view(wire).substr(at, piece)), pieces);
            }
            EXPECT_EQ(Words(pieces), whole) << "pieces of " << piece;
        }
    }
}

// An address a frame cannot carry fails before any byte is built: 0 in P (sent as the
// address less one), 256 in D; the edges themselves are built.
TEST(FrameBuilders, AnAddressTheFrameCannotCarryFailsBeforeAnyByte) {
    struct Case {
        Language language;
        int address;
        bool fits;
    };
    const Case cases[] = {{Language::P, 0, false},   {Language::P, 1, true},
                          {Language::P, 256, true},  {Language::P, 257, false},
                          {Language::D, 0, true},    {Language::D, 255, true},
                          {Language::D, 256, false}, {Language::D, -1, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.address);
        if (c.fits) {
            EXPECT_NO_THROW(protocol::BuildFrame(c.language, c.address, {}));
        } else {
            EXPECT_THROW(protocol::BuildFrame(c.language, c.address, {}), protocol::ByteOutOfRange);
        }
    }
    EXPECT_THROW(protocol::BuildDReply(256, 0x59, 0), protocol::ByteOutOfRange);
}

} // namespace
} // namespace quellpad::test
