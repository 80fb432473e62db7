#include "fixtures.h"
#include "hostile_files.h"

#include "engine/keyboard_state.h"
#include "protocol/frames.h"
#include "traffic/traffic_log.h"
#include "traffic/traffic_recorder.h"
#include "traffic/traffic_rows.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quellpad::traffic {
namespace {

using protocol::AsBytes;

QStringList Meanings(const std::vector<TrafficRow>& rows) {
    QStringList out;
    for (const TrafficRow& row : rows) {
        out << row.meaning;
    }
    return out;
}

std::string D(int address, int c2, int d1, int d2) {
    return protocol::BuildDFrame(address, 0, static_cast<std::uint8_t>(c2),
                                 static_cast<std::uint8_t>(d1), static_cast<std::uint8_t>(d2));
}

struct SentCase {
    const char* mode;
    int port;
    std::string bytes;
    const char* meaning;
};

TEST(TrafficMeaning, EachWrittenFrameOrTextIsOneRowInWords) {
    const SentCase cases[] = {
        {"D", 1, D(1, 0x02, 32, 0), "COM 1 → camera 1: pan right 32"},
        {"D", 2, D(7, 0, 0, 0), "COM 2 → camera 7: stop"},
        {"D", 1, D(1, 0x51, 0, 0), "COM 1 → camera 1: query pan"},
        {"P", 2, protocol::BuildPFrame(2, 0, 0x07, 0, 5), "COM 2 → camera 2: go to preset 5"},
        {"ASCII", 1, "12Ma", "switcher: monitor 12"},
        {"ASCII", 1, "1Ma2#a", "switcher: monitor 1; switcher: camera 2"},
        {"ASCII", 1, "laGATE!a", "switcher: label \"GATE\""},
        {"MUX ASCII", 2, "um", "multiplexer: quad"},
        {"MUX ASCII", 1, "~dLm", "multiplexer: pan left off"},
        {"D", 1, "\x12\x34", "not decoded: 12 34"},
        // A frame whose check byte is wrong is what a receiver throws away.
        {"D", 1, std::string("\xFF\x01\x00\x02\x20\x00\x00", 7),
         "not decoded: FF 01 00 02 20 00 00"},
        {"ASCII", 1, "xx", "not decoded: 78 78"},
        {"T", 1, "\x01", "not decoded: 01"},
    };
    for (const SentCase& c : cases) {
        TrafficRecorder recorder;
        recorder.Sent(c.port, QString::fromLatin1(c.mode), AsBytes(c.bytes));
        const std::vector<TrafficRow> rows = recorder.Drain();
        ASSERT_EQ(rows.size(), 1u) << c.mode << " " << c.meaning;
        EXPECT_EQ(rows[0].meaning, QString::fromUtf8(c.meaning)) << c.mode;
        EXPECT_EQ(rows[0].bytes, QByteArray::fromStdString(c.bytes));
        EXPECT_EQ(rows[0].port, c.port);
        EXPECT_EQ(rows[0].way, Way::Sent);
    }
}

struct ReceivedCase {
    const char* mode;
    std::vector<std::string> chunks;
    QStringList meanings;
};

TEST(TrafficMeaning, RepliesAreSplitAsTheyArriveWhereverTheReadsCutThem) {
    const std::string pan = protocol::BuildDReply(1, 0x59, 12345);
    const std::string ack = protocol::BuildGeneralReply(3);
    const ReceivedCase cases[] = {
        {"D", {pan.substr(0, 3), pan.substr(3)}, {"camera 1 ← pan position 123.45°"}},
        {"D",
         {pan + protocol::BuildDReply(2, 0x5D, 300)},
         {"camera 1 ← pan position 123.45°", "camera 2 ← zoom position 300"}},
        {"D",
         {"\x01\x02" + ack.substr(0, 1), ack.substr(1)},
         {"not decoded: 01 02", "camera 3 ← acknowledged"}},
        {"P", {protocol::BuildPFrame(4, 0, 0, 0, 0)}, {"camera 4 ← stop"}},
        {"ASCII",
         {"3i", "a", "4da"},
         {"switcher ← alarm 3 (forward)", "switcher ← alarm 4 (back)"}},
        {"MUX ASCII", {"u", "m"}, {"multiplexer ← quad"}},
    };
    for (const ReceivedCase& c : cases) {
        TrafficRecorder recorder;
        std::vector<TrafficRow> rows;
        std::string all;
        for (const std::string& chunk : c.chunks) {
            recorder.Received(2, QString::fromLatin1(c.mode), AsBytes(chunk));
            all += chunk;
            for (TrafficRow& row : recorder.Drain()) {
                rows.push_back(std::move(row));
            }
        }
        EXPECT_EQ(Meanings(rows), c.meanings) << c.mode;
        QByteArray shown;
        for (const TrafficRow& row : rows) {
            EXPECT_EQ(row.way, Way::Received);
            EXPECT_EQ(row.port, 2);
            shown += row.bytes;
        }
        EXPECT_EQ(shown, QByteArray::fromStdString(all)) << "every byte in exactly one row";
    }
}

TEST(TrafficMeaning, AReplyLeftIncompleteIsShownAsNotDecodedOnceTheLineIsQuiet) {
    TrafficRecorder recorder;
    recorder.Received(1, QStringLiteral("D"), AsBytes("\xFF\x01"));
    EXPECT_TRUE(recorder.Drain().empty());
    QThread::msleep(TrafficRecorder::kQuietMs + 50);
    EXPECT_EQ(Meanings(recorder.Drain()), QStringList{"not decoded: FF 01"});
    // The decoder started afresh: a whole reply after it is read as one.
    recorder.Received(1, QStringLiteral("D"), AsBytes(protocol::BuildGeneralReply(1)));
    EXPECT_EQ(Meanings(recorder.Drain()), QStringList{"camera 1 ← acknowledged"});
}

TEST(TrafficMeaning, RowsCarryTheirTimeAndTheTimeSinceTheRowBefore) {
    TrafficRecorder recorder;
    const std::int64_t before = QDateTime::currentMSecsSinceEpoch() * 1000;
    recorder.Sent(1, QStringLiteral("D"), AsBytes(D(1, 0, 0, 0)));
    const std::int64_t after = QDateTime::currentMSecsSinceEpoch() * 1000 + 1000;
    QThread::msleep(20);
    recorder.Received(1, QStringLiteral("D"), AsBytes(protocol::BuildGeneralReply(1)));
    const std::vector<TrafficRow> rows = recorder.Drain();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_GE(rows[0].atUs, before - 1000); // the wall clock is read in whole milliseconds
    EXPECT_LE(rows[0].atUs, after);
    EXPECT_EQ(rows[0].sincePreviousUs, 0);
    EXPECT_GE(rows[1].sincePreviousUs, 20'000);
    EXPECT_EQ(rows[1].atUs - rows[0].atUs, rows[1].sincePreviousUs);
}

TEST(TrafficRows, KeepsTheNewestHundredThousandAndCountsTheDropped) {
    const auto batch = [](int first, int count) {
        std::vector<TrafficRow> rows(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            rows[static_cast<std::size_t>(i)].meaning = QString::number(first + i);
        }
        return rows;
    };
    TrafficRows rows;
    rows.Append(batch(0, 60'000));
    EXPECT_EQ(rows.Overflow(60'000), 20'000u);
    rows.Append(batch(60'000, 60'000));
    EXPECT_EQ(rows.Size(), 100'000u);
    EXPECT_EQ(rows.Dropped(), 20'000u);
    EXPECT_EQ(rows[0].meaning, QStringLiteral("20000"));
    EXPECT_EQ(rows[99'999].meaning, QStringLiteral("119999"));
    // A batch over the limit by itself keeps only its own newest rows.
    rows.Append(batch(120'000, 100'001));
    EXPECT_EQ(rows.Dropped(), 20'000u + 100'000u + 1u);
    EXPECT_EQ(rows[0].meaning, QStringLiteral("120001"));
    rows.Clear();
    EXPECT_EQ(rows.Size(), 0u);
    EXPECT_EQ(rows.Dropped(), 0u);
}

TrafficRow Row(const char* bytes, const char* meaning) {
    // 13:05:09.123 local time, 1.608 ms after the row before.
    const QDateTime at(QDate(2026, 3, 7), QTime(13, 5, 9, 123));
    return {at.toMSecsSinceEpoch() * 1000 + 456, 1608, 2, Way::Received, QByteArray(bytes),
            QString::fromUtf8(meaning)};
}

TEST(TrafficFormat, TextAndCsvLinesHoldTheSevenColumns) {
    EXPECT_EQ(TextLine(Row("\xFF\x01", "x")), "13:05:09.123\t1.608\tCOM 2\treceived\tFF 01\t..\tx");
    EXPECT_EQ(TextHeader(), "Time\t+ms\tPort\tDirection\tHex\tText\tMeaning");
    EXPECT_EQ(CsvHeader(), "Time,+ms,Port,Direction,Hex,Text,Meaning");
    EXPECT_EQ(CsvLine(Row("1,2\"a", "switcher: label \"A,B\"")),
              "13:05:09.123,1.608,COM 2,received,31 2C 32 22 61,\"1,2\"\"a\","
              "\"switcher: label \"\"A,B\"\"\"");
    EXPECT_EQ(Field(Row("\x10\x20\x30", "x"), kHex), "10 20 30");
    EXPECT_EQ(HexText({}), "");
    EXPECT_EQ(FormatSince(0), "0.000");
    EXPECT_EQ(FormatSince(12'345'678), "12345.678");
    EXPECT_EQ(FormatFor(QStringLiteral("a.CSV")), FileFormat::Csv);
    EXPECT_EQ(FormatFor(QStringLiteral("a"), QStringLiteral("CSV files (*.csv)")), FileFormat::Csv);
    // The filters are translated: a German "Kommagetrennte Werte (*.csv)" chooses CSV too.
    EXPECT_EQ(FormatFor(QStringLiteral("a"), QStringLiteral("Kommagetrennte Werte (*.csv)")),
              FileFormat::Csv);
    EXPECT_EQ(FormatFor(QStringLiteral("a.txt")), FileFormat::Text);
    EXPECT_EQ(FormatFor(QStringLiteral("a.PCAPNG")), FileFormat::Pcapng);
    EXPECT_EQ(FormatFor(QStringLiteral("a"), QStringLiteral("pcapng-Mitschnitte (*.pcapng)")),
              FileFormat::Pcapng);
}

// A second session appends to the first: each opens with when it started and how the
// ports were set, and every row carries its date, so a log that runs past midnight reads
// right. Each batch is in the file before the log is closed.
TEST(TrafficLog, AnExistingLogIsAppendedToWithASessionLineAndDatedRows) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("traffic.log"));
    const QString start = LogStartLine(QDateTime(QDate(2026, 3, 7), QTime(23, 59, 58)),
                                       {QStringLiteral("COM 1 (/dev/ttyUSB0) 2400,n,8,1"),
                                        QStringLiteral("COM 2 (sim) 9600,e,8,1")});
    EXPECT_EQ(start, QStringLiteral("Log started 2026-03-07 23:59:58; COM 1 (/dev/ttyUSB0) "
                                    "2400,n,8,1; COM 2 (sim) 9600,e,8,1"));
    { TrafficLogFile(path, QStringLiteral("first session")).Write({Row("\x01", "a")}); }
    TrafficRow beforeMidnight = Row("\xFF", "b");
    beforeMidnight.atUs =
        QDateTime(QDate(2026, 3, 7), QTime(23, 59, 59, 500)).toMSecsSinceEpoch() * 1000;
    TrafficRow afterMidnight = Row("\x02", "c");
    afterMidnight.atUs = beforeMidnight.atUs + 1'000'000;
    TrafficLogFile second(path, start);
    second.Write({beforeMidnight});
    second.Write({afterMidnight});

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    EXPECT_EQ(lines, (QStringList{
                         "first session", LogHeader(), "2026-03-07\t" + TextLine(Row("\x01", "a")),
                         start, "Date\tTime\t+ms\tPort\tDirection\tHex\tText\tMeaning",
                         "2026-03-07\t23:59:59.500\t1.608\tCOM 2\treceived\tFF\t.\tb",
                         "2026-03-08\t00:00:00.500\t1.608\tCOM 2\treceived\t02\t.\tc", ""}));
}

// A FIFO or a device where the log or a saved file is to go is refused at once, with or
// without a reader at its other end: the window would wait on it for ever. Any file that
// cannot be written is named with the reason.
TEST(TrafficLog, AFileThatCannotBeWrittenIsNamedWithTheReasonWithoutWaitingOnIt) {
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("traffic.log"));
    ASSERT_TRUE(test::MakeFifo(fifo));
    struct Case {
        const char* name;
        QString path;
        bool reader;
        const char* reason;
    };
    const Case cases[] = {
        {"a FIFO nobody reads", fifo, false, "No such device or address"},
        {"a FIFO with a reader", fifo, true, "it is not a plain file"},
        {"a device", QStringLiteral("/dev/full"), false, "it is not a plain file"},
        {"a missing folder", dir.filePath(QStringLiteral("missing/traffic.csv")), false,
         "No such file or directory"},
    };
    for (const Case& c : cases) {
        const int reader =
            c.reader ? ::open(QFile::encodeName(c.path).constData(), O_RDONLY | O_NONBLOCK) : -1;
        QStringList refusals;
        EXPECT_TRUE(test::FinishesWithin(
            [&] {
                for (const bool log : {true, false}) {
                    try {
                        if (log) {
                            TrafficLogFile opened(c.path, {});
                        } else {
                            SaveRows(c.path, FileFormat::Text, {});
                        }
                    } catch (const TrafficFileError& error) {
                        refusals << error.Message();
                    }
                }
            },
            fifo))
            << c.name;
        EXPECT_EQ(refusals,
                  (QStringList{QStringLiteral("The traffic log \"%1\" cannot be written: %2.")
                                   .arg(c.path, c.reason),
                               QStringLiteral("The traffic file \"%1\" cannot be written: %2.")
                                   .arg(c.path, c.reason)}))
            << c.name;
        if (reader >= 0) {
            ::close(reader);
        }
    }
}

// A disk that fills is found at once, named in the system's words, and the log ends on
// the last whole row with the rows it could not hold counted.
TEST(TrafficLog, AFullDiskStopsTheLogAtARowBoundaryAndCountsTheRowsNotWritten) {
    for (const auto kind :
         {test::SmallDisk::Kind::FileSizeLimit, test::SmallDisk::Kind::FullFileSystem}) {
        {
            // No room at all: a file system filled by another file, or no size allowed.
            const bool full = kind == test::SmallDisk::Kind::FullFileSystem;
            test::SmallDisk none(kind, full ? 4096 : 0);
            if (!none.Unavailable().isEmpty()) {
                std::printf("[  SKIPPED ] a full file system: %s\n",
                            qPrintable(none.Unavailable()));
                continue;
            }
            if (full) {
                QFile filler(none.FilePath(QStringLiteral("filler")));
                ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
                filler.write(QByteArray(8192, 'x'));
            }
            const QString path = none.FilePath(QStringLiteral("traffic.log"));
            try {
                TrafficLogFile log(path, {});
                FAIL() << "wrote to a full disk";
            } catch (const TrafficFileError& error) {
                EXPECT_EQ(error.Message(),
                          QStringLiteral("The traffic log \"%1\" cannot be written: %2.")
                              .arg(path, none.Reason()));
            }
        }
        test::SmallDisk disk(kind, 16384);
        const QString path = disk.FilePath(QStringLiteral("traffic.log"));
        TrafficLogFile log(path, {});
        std::vector<TrafficRow> batch;
        for (int i = 0; i < 40; ++i) {
            batch.push_back(Row("\x01\x02\x03", "a reply that takes room on the disk"));
        }
        int written = 0;
        QString failure;
        for (int attempt = 0; attempt < 100 && failure.isEmpty(); ++attempt) {
            try {
                log.Write(batch);
                written += static_cast<int>(batch.size());
            } catch (const TrafficFileError& error) {
                failure = error.Message();
            }
        }
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        EXPECT_TRUE(content.endsWith('\n')) << "no half row at the end";
        // Less the session's start line and the column titles.
        const int rows = static_cast<int>(content.count('\n')) - 2;
        const int lost = written + static_cast<int>(batch.size()) - rows;
        EXPECT_GT(lost, 0);
        EXPECT_EQ(failure,
                  QStringLiteral("The traffic log \"%1\" cannot be written: %2. Logging has "
                                 "stopped after the last whole row; %3 rows were not written.")
                      .arg(path, disk.Reason())
                      .arg(lost));
    }
}

} // namespace
} // namespace quellpad::traffic
