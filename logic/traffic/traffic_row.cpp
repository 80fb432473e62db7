#include "traffic_row.h"

#include <QCoreApplication>
#include <QDateTime>

#include <array>

namespace quellpad::traffic {

namespace {

QString CsvField(const QString& field) {
    if (!field.contains(u',') && !field.contains(u'"') && !field.contains(u'\n') &&
        !field.contains(u'\r')) {
        return field;
    }
    QString quoted = field;
    quoted.replace(u'"', QLatin1String("\"\""));
    return u'"' + quoted + u'"';
}

template <class Format> QString JoinFields(QChar separator, Format format) {
    QStringList fields;
    for (int column = 0; column < kColumns; ++column) {
        fields << format(column);
    }
    return fields.join(separator);
}

} // namespace

QString ColumnTitle(int column) {
    static constexpr std::array<const char*, kColumns> kTitles = {
        QT_TRANSLATE_NOOP("TrafficWords", "Time"),   "+ms",
        QT_TRANSLATE_NOOP("TrafficWords", "Port"),   QT_TRANSLATE_NOOP("TrafficWords", "Direction"),
        QT_TRANSLATE_NOOP("TrafficWords", "Hex"),    QT_TRANSLATE_NOOP("TrafficWords", "Text"),
        QT_TRANSLATE_NOOP("TrafficWords", "Meaning")};
    return column >= 0 && column < kColumns
               ? QCoreApplication::translate("TrafficWords",
                                             kTitles[static_cast<std::size_t>(column)])
               : QString();
}

QString PortName(int port) {
    return port == kListenPort ? QCoreApplication::translate("TrafficWords", "Listen")
                               : QStringLiteral("COM %1").arg(port);
}

QString Field(const TrafficRow& row, int column) {
    switch (column) {
    case kTime:
        return FormatTime(row.atUs);
    case kSince:
        return FormatSince(row.sincePreviousUs);
    case kPort:
        return PortName(row.port);
    case kDirection:
        return row.way == Way::Sent ? QCoreApplication::translate("TrafficWords", "sent")
                                    : QCoreApplication::translate("TrafficWords", "received");
    case kHex:
        return HexText(row.bytes);
    case kText:
        return PrintableText(row.bytes);
    case kMeaning:
        return row.meaning;
    }
    return {};
}

QString FormatTime(std::int64_t atUs) {
    return QDateTime::fromMSecsSinceEpoch(atUs / 1000).toString(QStringLiteral("HH:mm:ss.zzz"));
}

QString FormatSince(std::int64_t us) {
    return QStringLiteral("%1.%2").arg(us / 1000).arg(us % 1000, 3, 10, QLatin1Char('0'));
}

QString HexText(const QByteArray& bytes) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    QString text;
    text.reserve(bytes.size() * 3);
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (!text.isEmpty()) {
            text += u' ';
        }
        text += QLatin1Char(kDigits[byte >> 4]);
        text += QLatin1Char(kDigits[byte & 0x0F]);
    }
    return text;
}

QString PrintableText(const QByteArray& bytes) {
    QString text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        text += c >= 0x20 && c < 0x7F ? QLatin1Char(c) : QLatin1Char('.');
    }
    return text;
}

QString TextLine(const TrafficRow& row) {
    return JoinFields(u'\t', [&row](int column) { return Field(row, column); });
}

QString TextHeader() {
    return JoinFields(u'\t', [](int column) { return ColumnTitle(column); });
}

QString CsvLine(const TrafficRow& row) {
    return JoinFields(u',', [&row](int column) { return CsvField(Field(row, column)); });
}

QString CsvHeader() {
    return JoinFields(u',', [](int column) { return CsvField(ColumnTitle(column)); });
}

} // namespace quellpad::traffic
