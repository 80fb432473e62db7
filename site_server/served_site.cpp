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

} // namespace

QString EventText(const Event& event) {
    QString text = traffic::FormatTime(event.atUs) + QStringLiteral("  ") + event.line;
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
