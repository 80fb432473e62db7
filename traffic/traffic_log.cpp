#include "traffic_log.h"

#include <QDir>

namespace quellpad::traffic {

namespace {

[[noreturn]] void Fail(const QFile& file, const QString& what) {
    throw TrafficFileError(
        QStringLiteral("The traffic %1 \"%2\" cannot be written: %3.")
            .arg(what, QDir::toNativeSeparators(file.fileName()), file.errorString()));
}

void WriteAll(QFile& file, const QString& text, const QString& what) {
    const QByteArray bytes = text.toUtf8();
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        Fail(file, what);
    }
}

} // namespace

FileFormat FormatFor(const QString& path, const QString& chosenFilter) {
    return path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) ||
                   chosenFilter.startsWith(QLatin1String("CSV"))
               ? FileFormat::Csv
               : FileFormat::Text;
}

void SaveRows(const QString& path, FileFormat format, const std::vector<const TrafficRow*>& rows) {
    const QString what = QStringLiteral("file");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        Fail(file, what);
    }
    const bool csv = format == FileFormat::Csv;
    QString text = (csv ? CsvHeader() : TextHeader()) + u'\n';
    for (const TrafficRow* row : rows) {
        text += (csv ? CsvLine(*row) : TextLine(*row)) + u'\n';
    }
    WriteAll(file, text, what);
}

QString LogStartLine(const QDateTime& at, const QStringList& ports) {
    return QStringLiteral("Log started ") + at.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) +
           QStringLiteral("; ") + ports.join(QStringLiteral("; "));
}

QString LogLine(const TrafficRow& row) {
    return QDateTime::fromMSecsSinceEpoch(row.atUs / 1000).toString(QStringLiteral("yyyy-MM-dd")) +
           u'\t' + TextLine(row);
}

QString LogHeader() {
    return QStringLiteral("Date\t") + TextHeader();
}

TrafficLogFile::TrafficLogFile(const QString& path, const QString& startLine) : file_(path) {
    // An earlier session's log is the operator's record: it is never cut short.
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Append)) {
        Fail(file_, QStringLiteral("log"));
    }
    Put(startLine + u'\n' + LogHeader() + u'\n');
}

void TrafficLogFile::Write(const std::vector<TrafficRow>& rows) {
    if (rows.empty()) {
        return;
    }
    QString text;
    for (const TrafficRow& row : rows) {
        text += LogLine(row) + u'\n';
    }
    Put(text);
}

void TrafficLogFile::Put(const QString& text) {
    WriteAll(file_, text, QStringLiteral("log"));
}

} // namespace quellpad::traffic
