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

TrafficLogFile::TrafficLogFile(const QString& path) : file_(path) {
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        Fail(file_, QStringLiteral("log"));
    }
    Put(TextHeader() + u'\n');
}

void TrafficLogFile::Write(const std::vector<TrafficRow>& rows) {
    if (rows.empty()) {
        return;
    }
    QString text;
    for (const TrafficRow& row : rows) {
        text += TextLine(row) + u'\n';
    }
    Put(text);
}

void TrafficLogFile::Put(const QString& text) {
    WriteAll(file_, text, QStringLiteral("log"));
}

} // namespace quellpad::traffic
