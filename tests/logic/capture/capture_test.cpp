#include "capture/capture_reader.h"
#include "capture/capture_writer.h"
#include "capture/traffic_capture.h"
#include "protocol/frames.h"
#include "traffic/traffic_recorder.h"

#include "hostile_files.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quellpad::capture {
namespace {

using protocol::Language;

const std::vector<Interface> kLines = {{"COM 1", "/dev/ttyUSB0", "2400,n,8,1"},
                                       {"tcp 0.0.0.0:4001", "tcp 0.0.0.0:4001", ""}};

Packet Sample(std::uint32_t interface, std::int64_t atUs, std::string bytes) {
    Packet packet;
    packet.interface = interface;
    packet.atUs = atUs;
    packet.inbound = interface == 1;
    packet.language = interface == 0 ? std::optional(Language::P) : std::nullopt;
    packet.side = interface == 0 ? Side::Controller : Side::Equipment;
    packet.bytes = std::move(bytes);
    return packet;
}

// What a file holds: its blocks as written, and what the reader makes of any bytes.
struct Read {
    std::vector<Packet> packets;
    std::vector<Interface> interfaces;
    QString problem;
    QStringList remarks;
};

Read ReadAll(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    CaptureReader reader(buffer);
    Read read;
    while (auto packet = reader.Next()) {
        read.packets.push_back(*packet);
    }
    read.interfaces = reader.Interfaces();
    read.problem = reader.Problem();
    read.remarks = reader.Remarks();
    return read;
}

std::string Good() {
    std::string file =
        SectionHeaderBlock("test") + InterfaceBlock(kLines[0]) + InterfaceBlock(kLines[1]);
    file += PacketBlock(Sample(0, 1'700'000'000'000'001, std::string("\xA0\x00\x00\x02", 4)));
    file += PacketBlock(Sample(1, 1'700'000'000'000'500, "4ia"));
    return file;
}

TEST(Capture, WhatIsWrittenReadsBackLineByLine) {
    QTemporaryDir dir;
    const QString path = dir.filePath("site.pcapng");
    {
        CaptureWriter writer(path, {kLines[0]});
        EXPECT_EQ(writer.AddInterface(kLines[1]), 1u);
        writer.Write(Sample(0, 1'700'000'000'000'001, std::string("\xFF\x01\x00\x00", 4)));
        writer.Write(Sample(1, 1'700'000'000'123'456, "12Ma"));
        // Flushed once: the file must read whole although the writer is never closed.
        writer.Flush();
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const Read read = ReadAll(file.readAll());
        ASSERT_EQ(read.packets.size(), 2u);
        EXPECT_TRUE(read.problem.isEmpty()) << read.problem.toStdString();
        EXPECT_EQ(read.interfaces[0].name, "COM 1");
        EXPECT_EQ(read.interfaces[0].device, "/dev/ttyUSB0");
        EXPECT_EQ(read.interfaces[0].settings, "2400,n,8,1");
        EXPECT_EQ(read.interfaces[1].settings, "");
        const Packet& second = read.packets[1];
        EXPECT_EQ(second.interface, 1u);
        EXPECT_EQ(second.atUs, 1'700'000'000'123'456);
        EXPECT_TRUE(second.inbound);
        EXPECT_EQ(second.side, Side::Equipment);
        EXPECT_EQ(second.language, std::nullopt);
        EXPECT_EQ(second.bytes, "12Ma");
        EXPECT_EQ(read.packets[0].language, Language::P);
        EXPECT_FALSE(read.packets[0].inbound);
    }
}

TEST(Capture, TheTrafficMonitorsRowsSaveAsPacketsOfTheirPortAndLanguage) {
    traffic::TrafficRecorder recorder;
    const std::string query = protocol::BuildDFrame(1, 0, 0x51, 0, 0);
    const std::string answer = protocol::BuildDReply(1, 0x59, 12345);
    recorder.Sent(1, "D", protocol::AsBytes(query));
    recorder.Received(1, "D", protocol::AsBytes(answer));
    recorder.Received(traffic::kListenPort, "ASCII", protocol::AsBytes("12Ma"));
    const std::vector<traffic::TrafficRow> rows = recorder.Drain();
    ASSERT_EQ(rows.size(), 3u);
    QTemporaryDir dir;
    const QString path = dir.filePath("rows.pcapng");
    SaveCapture(path, {&rows[0], &rows[1], &rows[2]},
                {{1, "/dev/ttyUSB0", "9600,n,8,1"}, {traffic::kListenPort, "/dev/ttyUSB1", ""}});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const Read read = ReadAll(file.readAll());
    ASSERT_EQ(read.packets.size(), 3u);
    EXPECT_EQ(read.interfaces[1].name, "Listen");
    const struct {
        std::uint32_t interface;
        bool inbound;
        Side side;
        Language language;
        std::string bytes;
    } expected[] = {{0, false, Side::Controller, Language::D, query},
                    {0, true, Side::Equipment, Language::D, answer},
                    {1, true, Side::Heard, Language::Ascii, "12Ma"}};
    for (std::size_t i = 0; i < 3; ++i) {
        const Packet& packet = read.packets[i];
        EXPECT_EQ(packet.interface, expected[i].interface) << i;
        EXPECT_EQ(packet.inbound, expected[i].inbound) << i;
        EXPECT_EQ(packet.side, expected[i].side) << i;
        EXPECT_EQ(packet.language, expected[i].language) << i;
        EXPECT_EQ(packet.bytes, expected[i].bytes) << i;
        EXPECT_EQ(packet.atUs, rows[i].atUs) << i;
    }
}

TEST(Capture, RotatesBySizeEachFileWholeOnItsOwn) {
    QTemporaryDir dir;
    const QString path = dir.filePath("site.pcapng");
    CaptureWriter writer(path, kLines, 4096);
    for (int i = 0; i < 400; ++i) {
        writer.Write(Sample(static_cast<std::uint32_t>(i % 2), 1'000'000 + i, "0123456789"));
    }
    writer.Flush();
    EXPECT_EQ(RotatedPath(path, 2), dir.filePath("site-2.pcapng"));
    std::size_t packets = 0;
    for (int n = 1; QFile::exists(RotatedPath(path, n)); ++n) {
        QFile file(RotatedPath(path, n));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_LE(file.size(), 4096 + 64);
        const Read read = ReadAll(file.readAll());
        EXPECT_TRUE(read.problem.isEmpty());
        EXPECT_EQ(read.interfaces.size(), 2u);
        packets += read.packets.size();
    }
    EXPECT_EQ(packets, 400u);
}

TEST(Capture, AFullDiskStopsWithWholeBlocksAndSaysSo) {
    test::SmallDisk disk(test::SmallDisk::Kind::FileSizeLimit, 6000);
    ASSERT_TRUE(disk.Unavailable().isEmpty());
    const QString path = disk.FilePath("full.pcapng");
    CaptureWriter writer(path, kLines);
    QString failure;
    int written = 0;
    for (int i = 0; i < 1000 && failure.isEmpty(); ++i) {
        try {
            writer.Write(Sample(0, i, std::string(100, 'x')));
            writer.Flush();
            ++written;
        } catch (const CaptureError& error) {
            failure = error.Message();
        }
    }
    EXPECT_EQ(failure, QStringLiteral("The capture \"%1\" stopped: %2. It holds every whole "
                                      "block written before.")
                           .arg(path, disk.Reason()));
    EXPECT_TRUE(writer.Stopped());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const Read read = ReadAll(file.readAll());
    EXPECT_TRUE(read.problem.isEmpty()) << read.problem.toStdString();
    EXPECT_EQ(static_cast<int>(read.packets.size()), written);
}

// Replaces four bytes at `at` with a little-endian number.
std::string Patched(std::string file, std::size_t at, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) {
        file[at + static_cast<std::size_t>(i)] = static_cast<char>((value >> (8 * i)) & 0xFF);
    }
    return file;
}

TEST(Capture, HostileFilesAreReadAsFarAsTheyAreSound) {
    const std::string good = Good();
    const std::size_t shb = SectionHeaderBlock("test").size();
    const std::size_t idb = InterfaceBlock(kLines[0]).size();
    const std::size_t firstPacket = shb + idb + InterfaceBlock(kLines[1]).size();
    const std::string unknown("\x99\x00\x00\x00\x10\x00\x00\x00\x01\x02\x03\x04\x10\x00\x00\x00",
                              16);
    std::string backwards = SectionHeaderBlock("t") + InterfaceBlock(kLines[0]) +
                            PacketBlock(Sample(0, 2000, "a")) + PacketBlock(Sample(0, 1000, "b"));
    std::string noInterfaces =
        SectionHeaderBlock("t") + InterfaceBlock(kLines[0]) + InterfaceBlock(kLines[1]);
    std::string missingLine = SectionHeaderBlock("t") + InterfaceBlock(kLines[0]) +
                              PacketBlock(Sample(1, 5, "x")) + PacketBlock(Sample(0, 6, "y"));
    const struct {
        const char* what;
        std::string file;
        std::size_t packets;
        const char* problem; // start of Problem(), or "" for a clean end
        const char* remark;  // some remark, or ""
    } cases[] = {
        {"cut inside the last packet", good.substr(0, good.size() - 3), 1,
         "The file ends inside a block at byte", ""},
        {"cut inside a block head", good.substr(0, firstPacket + 5), 0,
         "The file ends inside a block", ""},
        {"a huge length", Patched(good, firstPacket + 4, 0x7FFFFFF0), 0,
         "The block at byte 184 claims a length of 2147483632", ""},
        {"a length not of whole words", Patched(good, firstPacket + 4, 45), 0, "The block at byte",
         ""},
        {"a length too short for a block", Patched(good, firstPacket + 4, 4), 0,
         "The block at byte", ""},
        {"lengths that disagree", Patched(good, good.size() - 4, 12), 1, "The block at byte", ""},
        {"a packet longer than its block", Patched(good, firstPacket + 20, 4000), 0,
         "A packet block claims more bytes", ""},
        {"an unknown block", good.substr(0, firstPacket) + unknown + good.substr(firstPacket), 2,
         "", "1 blocks of kinds not read here were stepped over."},
        {"lines without packets", noInterfaces, 0, "", ""},
        {"a packet of a line not described", missingLine, 1, "", "1 packets of lines"},
        {"time going backwards", backwards, 2, "",
         "1 packets are timed before the packet before them on their line."},
        {"a time resolution beyond reason", Patched(good, shb + 60, 0x7F), 0,
         "An interface has a time resolution that makes no sense.", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Read read = ReadAll(QByteArray::fromStdString(c.file));
        EXPECT_EQ(read.packets.size(), c.packets);
        if (*c.problem == '\0') {
            EXPECT_TRUE(read.problem.isEmpty()) << read.problem.toStdString();
        } else {
            EXPECT_TRUE(read.problem.startsWith(QString::fromUtf8(c.problem)))
                << read.problem.toStdString();
        }
        if (*c.remark != '\0') {
            EXPECT_TRUE(read.remarks.join(' ').contains(QString::fromUtf8(c.remark)))
                << read.remarks.join(' ').toStdString();
        }
    }
    // Not a capture at all: refused outright.
    for (const char* bytes : {"", "hello, world", "\x0A\x0D\x0D\x0A\x1C\x00\x00\x00zzzz"}) {
        EXPECT_THROW(ReadAll(QByteArray(bytes)), CaptureError);
    }
}

TEST(Capture, AFileCutAnywhereReadsUpToItsLastWholePacket) {
    // A program killed mid-write leaves a file cut at any byte: never more packets than
    // whole ones, never a crash.
    const std::string good = Good();
    const std::size_t firstPacket = good.size() - PacketBlock(Sample(1, 0, "4ia")).size() -
                                    PacketBlock(Sample(0, 0, std::string(4, 'x'))).size();
    for (std::size_t size = firstPacket; size <= good.size(); ++size) {
        const Read read = ReadAll(QByteArray::fromStdString(good.substr(0, size)));
        const std::size_t whole =
            size == good.size()
                ? 2
                : (size >= good.size() - PacketBlock(Sample(1, 0, "4ia")).size() ? 1 : 0);
        EXPECT_EQ(read.packets.size(), whole) << size;
    }
}

} // namespace
} // namespace quellpad::capture
