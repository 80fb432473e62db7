#include "fixtures.h"
#include "protocol/frames.h"

#include "bus/address_table.h"
#include "bus/detector.h"
#include "site/simulated_line.h"
#include "traffic/splitter.h"

#include <QFile>

#include <random>

namespace quellpad::test {
namespace {

using bus::Detector;
using bus::Verdict;
using protocol::AsBytes;
using protocol::BuildDFrame;
using protocol::BuildDReply;
using protocol::BuildGeneralReply;
using protocol::BuildPFrame;
using protocol::Language;

// A keyboard's day on one bus, in one language, to receivers 3, 17 and 200.
std::string Traffic(Language language, int frames) {
    const int addresses[] = {3, 17, 200};
    std::string bytes;
    for (int i = 0; i < frames; ++i) {
        const int address = addresses[i % 3];
        const auto speed = static_cast<std::uint8_t>(i % 64);
        switch (language) {
        case Language::D:
            bytes += BuildDFrame(address, 0, 0x02, speed, 0);
            bytes += BuildGeneralReply(address);
            break;
        case Language::P:
            bytes += BuildPFrame(address, 0, 0x02, speed, 0);
            break;
        case Language::Ascii:
            bytes += std::to_string(i % 8 + 1) + "Ma" + std::to_string(i % 16 + 1) + "#a";
            break;
        case Language::MuxAscii:
            bytes += i % 2 == 0 ? "dLm" : "~dLm";
            break;
        }
    }
    return bytes;
}

std::string Random(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random() & 0xFF);
    }
    return bytes;
}

// Feeds `chunk` bytes at a time, as a line hands them over.
void FeedSplit(Detector& detector, const std::string& bytes, std::size_t chunk) {
    std::vector<bus::Heard> heard;
    for (std::size_t at = 0; at < bytes.size(); at += chunk) {
        detector.Feed(AsBytes(bytes).subspan(at, std::min(chunk, bytes.size() - at)), heard);
    }
}

TEST(Detector, NamesEachLanguageWithinTwentyFramesAtEverySplit) {
    for (const Language language :
         {Language::D, Language::P, Language::Ascii, Language::MuxAscii}) {
        for (const std::size_t chunk :
             {std::size_t{1}, std::size_t{3}, std::size_t{7}, std::size_t{64}}) {
            SCOPED_TRACE(bus::LanguageName(language).toStdString() + " in chunks of " +
                         std::to_string(chunk));
            Detector detector;
            FeedSplit(detector, Traffic(language, 1), chunk);
            EXPECT_EQ(detector.Current(), Verdict::Listening);
            FeedSplit(detector, Traffic(language, 19), chunk);
            ASSERT_EQ(detector.Current(), Verdict::Language);
            EXPECT_EQ(detector.Spoken(), language);
            EXPECT_LE(detector.FramesToSettle(), 20u);
            if (language == Language::D || language == Language::P) {
                EXPECT_EQ(detector.Addresses(), (std::set<int>{3, 17, 200}));
            }
        }
    }
}

TEST(Detector, CallsRandomBytesAndFloodsGarbageNotALanguage) {
    for (const unsigned seed : {1u, 2u, 3u, 4u, 5u}) {
        Detector detector;
        FeedSplit(detector, Random(4096, seed), 97);
        EXPECT_EQ(detector.Current(), Verdict::Garbage) << "seed " << seed;
        EXPECT_FALSE(detector.Spoken());
    }
    // A megabyte of flood costs no more memory than its verdict.
    Detector flood;
    FeedSplit(flood, Random(1 << 20, 9), 4096);
    EXPECT_EQ(flood.Current(), Verdict::Garbage);
}

TEST(Detector, ChangesItsMindOnlyOnEvidence) {
    Detector detector;
    FeedSplit(detector, Traffic(Language::D, 20), 5);
    ASSERT_EQ(detector.Spoken(), Language::D);
    // A few P frames and a burst of noise among D traffic are no reason to change.
    FeedSplit(detector, Traffic(Language::P, 5) + Random(200, 7) + Traffic(Language::D, 5), 5);
    EXPECT_EQ(detector.Spoken(), Language::D);
    // The bus turns to P for good: that is evidence.
    FeedSplit(detector, Traffic(Language::P, 40), 5);
    EXPECT_EQ(detector.Spoken(), Language::P);
}

// A frame is whole at its length: a switcher text right after it is read from its own first
// byte, whatever the frame's last byte, by the site's switcher, the traffic monitor and a
// listen line alike.
TEST(SharedWire, ATextRightAfterAFrameIsReadFromItsOwnFirstByte) {
    struct Case {
        const char* what;
        std::string bytes;
        int monitor;
    };
    const Case cases[] = {
        {"D frame ending in 'R'", BuildDFrame(1, 0, 0x51, 0, 0) + "5Ma", 5},
        {"P frame ending in '-'", BuildPFrame(1, 0, 0x02, 0x20, 0) + "3Ma", 3},
    };
    ASSERT_EQ(cases[0].bytes[6], 'R');
    ASSERT_EQ(cases[1].bytes[7], '-');
    const auto monitorOf = [](const protocol::Command& command) {
        return command.kind == protocol::Kind::SelectMonitor ? command.number : 0;
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        for (const std::size_t chunk : {std::size_t{1}, c.bytes.size()}) {
            site::Site site;
            site::Site::Ear ear;
            std::vector<site::Site::Obeyed> obeyed;
            for (std::size_t at = 0; at < c.bytes.size(); at += chunk) {
                site.Hear(ear, AsBytes(c.bytes).subspan(at, std::min(chunk, c.bytes.size() - at)),
                          &obeyed);
            }
            EXPECT_EQ(site.Switcher().SelectedMonitor(), c.monitor);

            traffic::Splitter splitter(Language::Ascii, traffic::Way::Sent);
            std::vector<traffic::Piece> pieces;
            for (std::size_t at = 0; at < c.bytes.size(); at += chunk) {
                splitter.Feed(AsBytes(c.bytes).subspan(at, std::min(chunk, c.bytes.size() - at)),
                              pieces);
            }
            splitter.Flush(pieces);
            std::int64_t split = 0;
            for (const traffic::Piece& piece : pieces) {
                split = piece.command ? monitorOf(*piece.command) : split;
            }
            EXPECT_EQ(split, c.monitor);

            Detector detector;
            std::vector<bus::Heard> heard;
            detector.Feed(AsBytes(c.bytes), heard);
            std::int64_t listened = 0;
            for (const bus::Heard& one : heard) {
                listened = monitorOf(one.command) != 0 ? monitorOf(one.command) : listened;
            }
            EXPECT_EQ(listened, c.monitor);
        }
    }
}

TEST(Detector, CallsABusGarbageOnlyOnceEverySettingHasBeenTried) {
    bus::SettingsSearch search;
    std::vector<bus::Heard> heard;
    for (unsigned seed = 1; seed < bus::CandidateSettings().size(); ++seed) {
        search.Feed(AsBytes(Random(400, seed)), heard);
        EXPECT_FALSE(search.AllGarbage()) << seed;
    }
    search.Feed(AsBytes(Random(400, 99)), heard);
    EXPECT_TRUE(search.AllGarbage());
}

// A capture of a bus at 4800 baud, no parity, where a keyboard speaks D to receivers 3,
// 17 and 200, heard through the settings search: under every other setting the bytes
// reach the listener as a UART sampling at the wrong rate reads them.
TEST(Detector, NamesDAt4800AndTheReceiversFromARecordedCapture) {
    QFile file(QStringLiteral(QUELLPAD_CAPTURES "/d-4800-addresses-3-17-200.bin"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::string capture = file.readAll().toStdString();
    const site::LineFormat sent{4800, 'n', 8, 1};
    bus::SettingsSearch search;
    std::vector<bus::Heard> heard;
    for (int pass = 0; pass < 30 && !search.Found(); ++pass) {
        site::LineFormat read;
        ASSERT_TRUE(site::ParseLineFormat(QString::fromStdString(search.Current()), read));
        std::string bytes = capture;
        if (!(read == sent)) {
            for (char& byte : bytes) {
                byte = static_cast<char>(site::Garble(static_cast<std::uint8_t>(byte), sent, read));
            }
        }
        // Split at every byte boundary, as a slow line hands them over.
        for (std::size_t i = 0; i < bytes.size() && !search.Found(); ++i) {
            if (search.Feed(AsBytes(bytes).subspan(i, 1), heard)) {
                break;
            }
        }
    }
    ASSERT_TRUE(search.Found());
    EXPECT_EQ(search.Current(), "4800,n,8,1");
    EXPECT_EQ(search.Hearing().Spoken(), Language::D);
    EXPECT_EQ(search.Hearing().Addresses(), (std::set<int>{3, 17, 200}));
    std::cout << "valid frames to settle on the capture: " << search.Hearing().FramesToSettle()
              << "\n";
    EXPECT_LE(search.Hearing().FramesToSettle(), 20u);
}

TEST(AddressTable, CountsFramesBadChecksAndAnswersPerAddress) {
    std::string bytes = Traffic(Language::D, 6); // 2 frames and 2 answers each
    std::string bad = BuildDFrame(17, 0, 0x07, 0, 5);
    bad[6] = static_cast<char>(bad[6] + 1);
    bytes += bad + BuildDFrame(3, 0, 0x07, 0, 5) + BuildDReply(3, 0x59, 12345);
    Detector detector;
    std::vector<bus::Heard> heard;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        detector.Feed(AsBytes(bytes).subspan(i, 1), heard);
    }
    bus::AddressTable table;
    const QDateTime when = QDateTime::fromString("2026-11-24T20:00:00", Qt::ISODate);
    for (std::size_t i = 0; i < heard.size(); ++i) {
        table.Add(heard[i], when.addMSecs(static_cast<qint64>(i)));
    }
    const auto rows = table.Sorted(bus::AddressColumn::Address, true);
    ASSERT_EQ(rows.size(), 3u);
    struct Expected {
        int address;
        std::size_t frames, badChecks, answers;
        const char* last;
    };
    const Expected expected[] = {{3, 3, 0, 3, "go to preset 5"},
                                 {17, 2, 1, 2, "pan right 4"},
                                 {200, 2, 0, 2, "pan right 5"}};
    for (std::size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(expected[i].address);
        EXPECT_EQ(rows[i].address, expected[i].address);
        EXPECT_EQ(rows[i].frames, expected[i].frames);
        EXPECT_EQ(rows[i].badChecks, expected[i].badChecks);
        EXPECT_EQ(rows[i].answers, expected[i].answers);
        EXPECT_EQ(rows[i].lastCommand, expected[i].last);
    }
    // Sorted by frames, most first; ties by address.
    const auto byFrames = table.Sorted(bus::AddressColumn::Frames, false);
    EXPECT_EQ(byFrames[0].address, 3);
    EXPECT_EQ(byFrames[1].address, 17);
    EXPECT_EQ(bus::AddressText({rows[0]}),
              "Address\tLanguage\tFrames\tBad checksum\tAnswers\tLast command\tLast seen\n"
              "3\tD\t3\t0\t3\tgo to preset 5\t" +
                  rows[0].lastSeen.toString("yyyy-MM-dd HH:mm:ss.zzz") + "\n");
    // Saved beside CSV rows, every cell quoted.
    EXPECT_TRUE(bus::AddressText({rows[1]}, true)
                    .endsWith("\n\"17\",\"D\",\"2\",\"1\",\"2\",\"pan right 4\",\"" +
                              rows[1].lastSeen.toString("yyyy-MM-dd HH:mm:ss.zzz") + "\"\n"));
}

} // namespace
} // namespace quellpad::test
