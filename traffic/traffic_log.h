#pragma once

#include "traffic_row.h"

#include "engine/errors.h"
#include "engine/plain_file.h"

#include <vector>

namespace quellpad::traffic {

// The traffic log or a saved file could not be written.
class TrafficFileError : public QuellpadError {
public:
    using QuellpadError::QuellpadError;
};

enum class FileFormat { Text, Csv };
// CSV for a name ending in ".csv" or when the CSV filter was chosen, otherwise text.
FileFormat FormatFor(const QString& path, const QString& chosenFilter = {});

// Writes the rows to a new file (a header line, then a line per row); fails with
// TrafficFileError naming the file and the reason.
void SaveRows(const QString& path, FileFormat format, const std::vector<const TrafficRow*>& rows);

// A continuous log of all traffic, in plain text. Each batch is written and handed to the
// system at once, so that a program killed a moment later has lost nothing of it.
class TrafficLogFile {
public:
    // Starts the file afresh with a header line; fails with TrafficFileError. What is
    // there that is no plain file (a FIFO, a device) is refused without waiting on it.
    explicit TrafficLogFile(const QString& path);

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
