#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <string>

namespace quellpad::site {

// Bytes on their way over a line at its pace: each is handed on once its last bit has
// left, gathered at most every `deliveryMs` as a UART's driver gathers what arrives, so
// that a fast line costs a few wake-ups a second, not one per byte.
class Pacer : public QObject {
    Q_OBJECT
public:
    // Bytes waiting beyond `limit` are lost, as a flooded receiver drops them.
    Pacer(int deliveryMs, std::size_t limit, QObject* parent = nullptr);

    // Queues bytes that take `byteSeconds` each; false, and nothing queued, when they
    // would pass the limit.
    bool Send(const std::string& bytes, double byteSeconds);
    // Forgets what was on its way.
    void Clear();
    // Bytes held, whether on their way or waiting: never more than the limit.
    std::size_t Held() const { return sending_.size(); }

signals:
    void Arrived(const QByteArray& bytes);

private:
    void Pace();

    int deliveryMs_;
    std::size_t limit_;
    double byteNs_ = 0;
    QElapsedTimer clock_;
    std::string sending_;
    std::size_t sent_ = 0;
    // When the first byte of sending_ started to leave.
    qint64 sendingSince_ = 0;
    QTimer timer_;
};

} // namespace quellpad::site
