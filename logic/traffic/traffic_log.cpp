#include "traffic_log.h"

#include <QCoreApplication>
#include <QDir>

namespace quellpad::traffic {

namespace {

// What cannot be written, told in a whole sentence (a file saved once, or the log).
constexpr const char* kFileFails =
    QT_TRANSLATE_NOOP("TrafficLog", "The traffic file \"%1\" cannot be written: %2.");
constexpr const char* kLogFails =
    QT_TRANSLATE_NOOP("TrafficLog", "The traffic log \"%1\" cannot be written: %2.");

[[noreturn]] void Fail(const char* sentence, const QString& path, const QString& reason) {
    throw TrafficFileError(QCoreApplication::translate("TrafficLog", sentence)
                               .arg(QDir::toNativeSeparators(path), reason));
}

void OpenOrFail(PlainFileWriter& file, const QString& path, const char* sentence) {
    if (!file.Open(path)) {
        Fail(sentence, path, file.Reason());
    }
}

void AppendOrFail(PlainFileWriter& file, const QString& path, const QString& text,
                  const char* sentence) {
    if (!file.Append(text.toUtf8())) {
        Fail(sentence, path, file.Reason());
    }
}

} // namespace

FileFormat FormatFor(const QString& path, const QString& chosenFilter) {
    if (path.endsWith(QLatin1String(".pcapng"), Qt::CaseInsensitive) ||
        chosenFilter.contains(QLatin1String("(*.pcapng)"))) {
        return FileFormat::Pcapng;
    }
    return path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) ||
                   chosenFilter.contains(QLatin1String("(*.csv)")) // in any language
               ? FileFormat::Csv
               : FileFormat::Text;
}

void SaveRows(const QString& path, FileFormat format, const std::vector<const TrafficRow*>& rows,
              const QString& after) {
    PlainFileWriter file;
    OpenOrFail(file, path, kFileFails);
    const bool csv = format == FileFormat::Csv;
    QString text = (csv ? CsvHeader() : TextHeader()) + u'\n';
    for (const TrafficRow* row : rows) {
        text += (csv ? CsvLine(*row) : TextLine(*row)) + u'\n';
    }
    if (!after.isEmpty()) {
        text += u'\n' + after;
    }
    AppendOrFail(file, path, text, kFileFails);
}

QString LogStartLine(const QDateTime& at, const QStringList& ports) {
    return QCoreApplication::translate("TrafficLog", "Log started ") +
           at.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) + QStringLiteral("; ") +
           ports.join(QStringLiteral("; "));
}

QString LogLine(const TrafficRow& row) {
    return QDateTime::fromMSecsSinceEpoch(row.atUs / 1000).toString(QStringLiteral("yyyy-MM-dd")) +
           u'\t' + TextLine(row);
}

QString LogHeader() {
    return QCoreApplication::translate("TrafficLog", "Date\t") + TextHeader();
}

TrafficLogFile::TrafficLogFile(const QString& path, const QString& startLine) : path_(path) {
    // An earlier session's log is the operator's record: it is never cut short.
    if (!file_.Open(path_, PlainFileWriter::Keep::Everything)) {
        Fail(kLogFails, path_, file_.Reason());
    }
    AppendOrFail(file_, path_, startLine + u'\n' + LogHeader() + u'\n', kLogFails);
}

void TrafficLogFile::Write(const std::vector<TrafficRow>& rows) {
    if (rows.empty()) {
        return;
    }
    QByteArray bytes;
    std::vector<qint64> rowEnds; // where each row ends in the file once written
    const qint64 start = file_.Size();
    for (const TrafficRow& row : rows) {
        bytes += (LogLine(row) + u'\n').toUtf8();
        rowEnds.push_back(start + bytes.size());
    }
    if (file_.Append(bytes)) {
        return;
    }
    // A full disk takes part of a batch: the file is cut back to the last row it holds
    // whole, so that whoever reads it never meets half a row.
    std::size_t whole = 0;
    while (whole < rowEnds.size() && rowEnds[whole] <= file_.Size()) {
        ++whole;
    }
    file_.Truncate(whole == 0 ? start : rowEnds[whole - 1]);
    const auto lost = static_cast<int>(rows.size() - whole);
    throw TrafficFileError(
        QCoreApplication::translate("TrafficLog",
                                    "The traffic log \"%1\" cannot be written: %2. Logging has "
                                    "stopped after the last whole row; %n rows were not written.",
                                    nullptr, lost)
            .arg(QDir::toNativeSeparators(path_), file_.Reason()));
}

} // namespace quellpad::traffic
