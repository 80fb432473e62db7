#pragma once

#include "traffic_row.h"

#include "engine/errors.h"
#include "engine/plain_file.h"

#include <QDateTime>
#include <QStringList>

#include <vector>

namespace quellpad::traffic {

// The traffic log or a saved file could not be written.
class TrafficFileError : public QuellpadError {
public:
    using QuellpadError::QuellpadError;
};

enum class FileFormat { Text, Csv, Pcapng };
// CSV for a name ending in ".csv" or when the CSV filter was chosen, a pcapng capture for
// ".pcapng" or its filter, otherwise text.
FileFormat FormatFor(const QString& path, const QString& chosenFilter = {});

// Writes the rows to a new file (a header line, then a line per row), and `after`, when
// there is any, after a blank line; fails with TrafficFileError naming the file and the
// reason.
void SaveRows(const QString& path, FileFormat format, const std::vector<const TrafficRow*>& rows,
              const QString& after = {});

// The line that opens each logging session: when it started, and each port's device and
// line settings, e.g. "Log started 2026-03-07 13:05:09; COM 1 (/dev/ttyUSB0) 2400,n,8,1".
QString LogStartLine(const QDateTime& at, const QStringList& ports);
// A row of the log: its date, then the row as TextLine gives it, so that a log that runs
// past midnight, or over several days, tells its rows apart.
QString LogLine(const TrafficRow& row);
QString LogHeader();

// A continuous log of all traffic, in plain text. Each batch is written and handed to the
// system at once, so that a program killed a moment later has lost nothing of it.
class TrafficLogFile {
public:
    // Appends to the file (made when missing) the start line and the column titles; what
    // the file held stays. Fails with TrafficFileError. What is there that is no plain
    // file (a FIFO, a device) is refused without waiting on it.
    TrafficLogFile(const QString& path, const QString& startLine);

    // Fails with TrafficFileError, saying the system's reason and how many rows of the
    // batch were not written; the file then ends after the last whole row, and the log
    // is to be given up.
    void Write(const std::vector<TrafficRow>& rows);
    QString Path() const { return path_; }

private:
    QString path_;
    PlainFileWriter file_;
};

} // namespace quellpad::traffic
