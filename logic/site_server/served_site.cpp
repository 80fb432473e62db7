#include "served_site.h"

#include "traffic/traffic_row.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>

namespace quellpad::site_server {

namespace {

const char* KindName(Event::Kind kind) {
    switch (kind) {
    case Event::Kind::Command:
        return "command";
    case Event::Kind::Answer:
        return "answer";
    case Event::Kind::Rejected:
        return "rejected";
    case Event::Kind::Line:
        return "line";
    }
    return "";
}

// "13:05:09" (local) or "2026-11-24T13:05:09" (UTC) of a time, worked out once a second: a
// busy line tells thousands of events a second, and each local time costs a look at the
// time zone.
QString Seconds(std::int64_t atUs, bool utc) {
    struct Cached {
        std::int64_t second = -1;
        QString text;
    };
    static Cached cached[2];
    Cached& cache = cached[utc ? 1 : 0];
    const std::int64_t second = atUs / 1000000;
    if (second != cache.second) {
        cache.second = second;
        cache.text =
            utc ? QDateTime::fromSecsSinceEpoch(second, Qt::UTC)
                      .toString(Qt::ISODate)
                      .chopped(1) // the "Z", put back after the milliseconds
                : QDateTime::fromSecsSinceEpoch(second).toString(QStringLiteral("HH:mm:ss"));
    }
    return cache.text + QStringLiteral(".%1").arg(atUs / 1000 % 1000, 3, 10, QLatin1Char('0')) +
           (utc ? QStringLiteral("Z") : QString());
}

} // namespace

QString EventText(const Event& event) {
    QString text = Seconds(event.atUs, false) + QStringLiteral("  ") + event.line;
    if (event.kind == Event::Kind::Command || event.kind == Event::Kind::Answer) {
        text +=
            event.kind == Event::Kind::Command ? QStringLiteral("  → ") : QStringLiteral("  ← ");
        text += traffic::HexText(event.bytes);
    }
    return text + QStringLiteral("  ") + event.meaning;
}

QString EventJson(const Event& event) {
    QJsonObject object;
    object.insert(
        QStringLiteral("time"),
        QDateTime::fromMSecsSinceEpoch(event.atUs / 1000, Qt::UTC).toString(Qt::ISODateWithMs));
    object.insert(QStringLiteral("line"), event.line);
    object.insert(QStringLiteral("event"), QLatin1String(KindName(event.kind)));
    if (!event.bytes.isEmpty()) {
        object.insert(QStringLiteral("bytes"), traffic::HexText(event.bytes));
    }
    object.insert(QStringLiteral("meaning"), event.meaning);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

ServedSite::ServedSite(site::Site::Wiring wiring, const site::LineFormat& format, QObject* parent)
    : QObject(parent), equipment_(0) {
    equipment_.Rewire(std::move(wiring));
    equipment_.SetEquipmentFormat(format);
}

void ServedSite::Tell(Event::Kind kind, const QString& line, const QString& meaning,
                      const QByteArray& bytes) {
    emit Told({kind, QDateTime::currentMSecsSinceEpoch() * 1000, line, bytes, meaning});
}

} // namespace quellpad::site_server
