#include "port_watch.h"

#include "errors.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace quellpad {

PortWatch::PortWatch(Quellpad_Support_Func& keyboard, QObject* parent)
    : QObject(parent), keyboard_(keyboard) {
    timer_.setObjectName(QStringLiteral("PortWatchTimer"));
    timer_.setParent(this);
    timer_.setInterval(kPollMs);
    connect(&timer_, &QTimer::timeout, this, &PortWatch::Poll);
}

void PortWatch::Watch(int portNumber) {
    watched_[static_cast<std::size_t>(portNumber - 1)] = true;
    timer_.start();
}

void PortWatch::Forget(int portNumber) {
    watched_[static_cast<std::size_t>(portNumber - 1)] = false;
    if (!watched_[0] && !watched_[1]) {
        timer_.stop();
    }
}

bool PortWatch::Watching(int portNumber) const {
    return watched_[static_cast<std::size_t>(portNumber - 1)];
}

void PortWatch::Poll() {
    for (int number = 1; number <= 2; ++number) {
        if (!Watching(number)) {
            continue;
        }
        SerialLine& port = keyboard_.Port(number);
        if (port.IsOpen()) {
            Forget(number); // the operator opened it from the menu
            continue;
        }
        // A kernel name now given to another device (the next adapter, the next
        // terminal) is left alone: only the device the port was open on is reopened.
        if (!DevicePresent(port.Device()) || !port.SameDeviceThere()) {
            continue;
        }
        try {
            port.Open();
        } catch (const PortError&) {
            continue; // there, but not ready yet: the next poll tries again
        }
        Forget(number);
        emit PortBack(number, QCoreApplication::translate(
                                  "PortErrors", "COM %1 (%2) is back and has been opened again.")
                                  .arg(number)
                                  .arg(port.Device()));
    }
}

#ifdef Q_OS_WIN
bool DevicePresent(const QString& /*device*/) {
    return true;
}
#else
bool DevicePresent(const QString& device) {
    return QFileInfo::exists(device);
}
#endif

} // namespace quellpad
