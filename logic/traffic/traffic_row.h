#pragma once

#include "protocol/commands.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace quellpad::traffic {

enum class Way : std::uint8_t { Sent, Received };

// The port of the rows a listen-only line heard on a bus the keyboard does not drive.
inline constexpr int kListenPort = 3;
inline constexpr int kPorts = 3;
// "COM 1", "COM 2", "Listen".
QString PortName(int port);

// One frame or text as the keyboard wrote it, or one reply as it arrived.
struct TrafficRow {
    // Wall-clock time in microseconds since the epoch, and the time since the row before.
    std::int64_t atUs = 0;
    std::int64_t sincePreviousUs = 0;
    int port = 1;
    Way way = Way::Sent;
    QByteArray bytes;
    // In the operator's words: "COM 1 → camera 1: pan right 32".
    QString meaning;
    // The language the port was set to when the bytes crossed it; none without a decoder.
    std::optional<protocol::Language> language = std::nullopt;
};

// The columns of a row as the window, the saved files and the log show them.
enum Column : int { kTime, kSince, kPort, kDirection, kHex, kText, kMeaning, kColumns };
QString ColumnTitle(int column);
QString Field(const TrafficRow& row, int column);

// "13:05:09.123", local time.
QString FormatTime(std::int64_t atUs);
// Milliseconds to the microsecond: "0.608".
QString FormatSince(std::int64_t us);
// "FF 01 00 02 20 00 23": upper case, one blank between bytes and none after the last,
// so that copied bytes paste as they are.
QString HexText(const QByteArray& bytes);
// Printable characters as they are, every other byte as ".".
QString PrintableText(const QByteArray& bytes);

// One line of plain text: the fields separated by tabs, no line end.
QString TextLine(const TrafficRow& row);
QString TextHeader();
// One CSV record, no line end; fields holding a comma, a quote or a line end are quoted.
QString CsvLine(const TrafficRow& row);
QString CsvHeader();

} // namespace quellpad::traffic
