// Wireshark's decode of a capture, by Quellpad's dissector, against the traffic monitor's
// rows of the same bytes: frame by frame the same words, no frame left to another
// dissector. The sessions sweep the byte space of each language rather than a list of
// commands, so that a command either side has and the other lacks shows up.
#include "capture/capture_writer.h"
#include "capture/traffic_capture.h"
#include "protocol/frames.h"
#include "site/site.h"
#include "traffic/traffic_recorder.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quellpad::capture {
namespace {

using protocol::AsBytes;

// What a controller writes in one mode: whole command runs, some two at once, noise and
// frames with a bad check among them.
std::vector<std::string> Session(const QString& mode) {
    std::vector<std::string> writes;
    if (mode == "D" || mode == "P") {
        const auto language = mode == "D" ? protocol::Language::D : protocol::Language::P;
        const auto build = [language](int address, std::uint8_t c1, std::uint8_t c2,
                                      std::uint8_t d1, std::uint8_t d2) {
            return protocol::BuildFrame(language, address, {c1, c2, d1, d2});
        };
        for (const int c1 : {0x00, 0x01, 0x02, 0x04, 0x08, 0x10, 0x80}) {
            for (int c2 = 0; c2 < 256; ++c2) {
                const auto code = static_cast<std::uint8_t>(c2);
                writes.push_back(build(1, static_cast<std::uint8_t>(c1), code, 0x20, 0x11));
                if (c1 == 0) {
                    for (const int d2 : {0, 2, 5}) {
                        writes.push_back(build(3, 0, code, 0x41, static_cast<std::uint8_t>(d2)));
                    }
                }
            }
        }
        std::string bad = build(2, 0, 0x02, 0x20, 0);
        bad.back() = static_cast<char>(bad.back() ^ 0x5A);
        writes.push_back(bad);
        writes.push_back(build(1, 0, 0x02, 0x10, 0) + build(1, 0, 0, 0, 0));
        writes.push_back("\x01\x02" + build(1, 0, 0x04, 0x3F, 0));
        return writes;
    }
    // Every mnemonic of up to three characters ending a text of either language, bare and
    // with a number, and the texts that carry free text after them.
    std::string printable;
    for (char c = 0x20; c < 0x7F; ++c) {
        printable += c;
    }
    for (const char end : {'a', 'm'}) {
        for (const char c : printable) {
            const std::string mnemonic = std::string(1, c) + end;
            writes.push_back(mnemonic);
            writes.push_back("12" + mnemonic);
            for (const char prefix : std::string("~d<>")) {
                writes.push_back(std::string(1, prefix) + mnemonic);
                // Appended piece by piece: GCC 12 at -O3 misreads "7" + std::string&& as an
                // overlapping copy.
                std::string numbered = "7";
                numbered += prefix;
                numbered += mnemonic;
                writes.push_back(numbered);
            }
        }
    }
    for (const char* text :
         {"la", "HELLO!a", "12Ya", "GATE 3!a", "Za", "01/02/03/04:05:06a", "Za", "bad timea",
          " 5Ya", "X!a", "12Ma7#a", "\x01\x02", "1234567890Ma", "4Ma\xFF\x01\x02", "sa~Ra"}) {
        writes.push_back(text);
    }
    writes.push_back(protocol::BuildDFrame(1, 0, 0x02, 0x20, 0) + "3Ma");
    return writes;
}

struct Decoded {
    QStringList info;
    QStringList protocols;
};

// tshark's Info and Protocol columns of each frame, or nothing when it will not run.
std::optional<Decoded> Tshark(const QString& tshark, const QString& path) {
    QProcess process;
    process.start(tshark,
                  {"-X", QStringLiteral("lua_script:%1").arg(QUELLPAD_DISSECTOR), "-r", path, "-T",
                   "fields", "-E", "separator=\t", "-e", "_ws.col.Protocol", "-e", "_ws.col.Info"});
    if (!process.waitForFinished(300'000) || process.exitCode() != 0) {
        ADD_FAILURE() << process.readAllStandardError().toStdString();
        return std::nullopt;
    }
    Decoded decoded;
    const QString out = QString::fromUtf8(process.readAllStandardOutput());
    for (const QString& line : out.split(u'\n', Qt::SkipEmptyParts)) {
        decoded.protocols << line.section(u'\t', 0, 0);
        decoded.info << line.section(u'\t', 1);
    }
    return decoded;
}

TEST(Dissector, TsharkReadsEachModesSessionInTheTrafficMonitorsWords) {
    const QString tshark = QStandardPaths::findExecutable(QStringLiteral("tshark"));
    if (tshark.isEmpty()) {
        GTEST_SKIP() << "tshark is not installed";
    }
    QTemporaryDir dir;
    for (const QString mode : {"D", "P", "ASCII", "MUX ASCII"}) {
        SCOPED_TRACE(mode.toStdString());
        traffic::TrafficRecorder recorder;
        site::Site site;
        std::vector<traffic::TrafficRow> rows;
        for (const std::string& write : Session(mode)) {
            // The keyboard's COM 1, and a listen line on the same bus.
            recorder.Sent(1, mode, AsBytes(write));
            recorder.Received(traffic::kListenPort, mode, AsBytes(write));
            const std::string answer = site.Hear(AsBytes(write));
            if (!answer.empty()) {
                recorder.Received(1, mode, AsBytes(answer));
                recorder.Received(traffic::kListenPort, mode, AsBytes(answer));
            }
            for (traffic::TrafficRow& row : recorder.Drain()) {
                rows.push_back(std::move(row));
            }
        }
        std::vector<const traffic::TrafficRow*> shown;
        for (const traffic::TrafficRow& row : rows) {
            shown.push_back(&row);
        }
        const QString path = dir.filePath(QString(mode).replace(' ', '_') + ".pcapng");
        SaveCapture(
            path, shown,
            {{1, "/dev/ttyUSB0", "2400,n,8,1"}, {traffic::kListenPort, "/dev/ttyUSB1", ""}});
        const auto decoded = Tshark(tshark, path);
        ASSERT_TRUE(decoded);
        ASSERT_EQ(decoded->info.size(), static_cast<qsizetype>(rows.size()));
        int differences = 0;
        for (std::size_t i = 0; i < rows.size() && differences < 10; ++i) {
            const auto at = static_cast<qsizetype>(i);
            EXPECT_EQ(decoded->protocols[at], "Quellpad") << "frame " << i + 1;
            if (decoded->info[at] != rows[i].meaning) {
                ++differences;
                ADD_FAILURE() << "frame " << i + 1 << " (" << rows[i].bytes.toHex(' ').toStdString()
                              << "): tshark \"" << decoded->info[at].toStdString()
                              << "\", monitor \"" << rows[i].meaning.toStdString() << "\"";
            }
        }
    }
}

TEST(Dissector, TsharkReadsTheSitesRecordOfALineAsAStreamAsTheMonitorReadsAPort) {
    const QString tshark = QStandardPaths::findExecutable(QStringLiteral("tshark"));
    if (tshark.isEmpty()) {
        GTEST_SKIP() << "tshark is not installed";
    }
    // Reads as a line delivers them: the answers in runs of two bytes, which no packet
    // holds whole, and no language known.
    QTemporaryDir dir;
    const QString path = dir.filePath("site.pcapng");
    traffic::TrafficRecorder recorder;
    site::Site site;
    QStringList monitor;
    {
        CaptureWriter writer(path, {{"COM 1", "/dev/pts/4", "2400,n,8,1"}});
        std::int64_t at = 1'000'000;
        const auto record = [&](Side side, const std::string& bytes) {
            Packet packet;
            packet.atUs = at += 1000;
            packet.side = side;
            packet.inbound = side == Side::Controller;
            packet.bytes = bytes;
            writer.Write(packet);
        };
        const std::vector<std::string> writes = Session("D");
        for (std::size_t i = 0; i < writes.size(); i += 7) {
            record(Side::Controller, writes[i]);
            recorder.Sent(1, "D", AsBytes(writes[i]));
            const std::string answer = site.Hear(AsBytes(writes[i]));
            for (std::size_t from = 0; from < answer.size(); from += 2) {
                record(Side::Equipment, answer.substr(from, 2));
                recorder.Received(1, "D", AsBytes(answer.substr(from, 2)));
            }
            for (const traffic::TrafficRow& row : recorder.Drain()) {
                monitor << row.meaning.split(QStringLiteral("; "));
            }
        }
        writer.Flush();
    }
    const auto decoded = Tshark(tshark, path);
    ASSERT_TRUE(decoded);
    QStringList words;
    for (const QString& info : decoded->info) {
        if (info != QStringLiteral("…")) {
            words << info.split(QStringLiteral("; "));
        }
    }
    ASSERT_EQ(words.size(), monitor.size());
    for (qsizetype i = 0; i < words.size(); ++i) {
        ASSERT_EQ(words[i], monitor[i]) << i;
    }
}

} // namespace
} // namespace quellpad::capture
