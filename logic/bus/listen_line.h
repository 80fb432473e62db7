#pragma once

#include "engine/serial_line.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

namespace quellpad::bus {

// A line on a bus that other equipment drives. It holds the line privately and offers no
// way to write to it, so that listening can never put a byte on a wire where a stray byte
// could move a camera or collide with the real keyboard's frames.
class ListenLine final : public QObject {
    Q_OBJECT
public:
    explicit ListenLine(std::unique_ptr<SerialLine> line, QObject* parent = nullptr);
    ~ListenLine() override;

    QString Device() const { return line_->Device(); }
    // Line settings such as "4800,n,8,1"; fails with PortError as the line does.
    void SetSettings(const QString& settings);
    void Open();
    void Close();
    bool IsOpen() const { return line_->IsOpen(); }

signals:
    // Bytes heard on the bus, in the order they came.
    void Heard(const QByteArray& bytes);
    // The line failed while open; it has been closed.
    void Failed(const QString& message);

private:
    void OnEvent(int code);

    std::unique_ptr<SerialLine> line_;
};

} // namespace quellpad::bus
