#pragma once

#include "keyboard_state.h"

#include <QObject>
#include <QTimer>

#include <array>

namespace quellpad {

// Waits for the device of a failed COM port to come back (a USB adapter plugged in
// again, a line server restarted) and reopens the port by itself, on that device only:
// never on another that took its kernel name, nor on a pseudo-terminal, whose number the
// next terminal gets. The port keeps its
// line settings and RTS while closed, so it comes back as the operator left it. The
// timer (`PortWatchTimer`) runs only while a port is watched.
class PortWatch : public QObject {
    Q_OBJECT
public:
    static constexpr int kPollMs = 500;

    explicit PortWatch(Quellpad_Support_Func& keyboard, QObject* parent = nullptr);

    void Watch(int portNumber);
    void Forget(int portNumber);
    bool Watching(int portNumber) const;

signals:
    // The port is open again; the message is for the operator.
    void PortBack(int portNumber, const QString& message);

private:
    void Poll();

    Quellpad_Support_Func& keyboard_;
    QTimer timer_;
    std::array<bool, 2> watched_{};
};

// Whether something is there at the device path to try to open. Where ports are no
// files (Windows), always true: the attempt to open tells.
bool DevicePresent(const QString& device);

} // namespace quellpad
