#pragma once

#include "engine/port_binding.h"

#include <QList>
#include <QString>

namespace quellpad {

// A USB serial adapter moved to another socket comes back as another /dev/ttyUSBn, but
// under the same name in /dev/serial/by-id (made by udev from its vendor, model and
// serial number). A port bound to that name finds the adapter again wherever it is.

// A stable name and the kernel device it points to now.
struct StableName {
    QString path;   // "/dev/serial/by-id/usb-FTDI_FT232R_USB_UART_A50285BI-if00-port0"
    QString target; // "/dev/ttyUSB0"
    friend bool operator==(const StableName&, const StableName&) = default;
};

// /dev/serial/by-id, or the folder QUELLPAD_SERIAL_BY_ID_DIR names (a folder of links for
// the tests). Where the system makes no such folder, it is simply missing.
QString StableNameFolder();

// The links of the folder whose device is there, by name.
QList<StableName> StableNames(const QString& folder);

// What the device chooser offers: a stable name for each device that has one, captioned
// as the device is (its description and USB vendor:product), ahead of the kernel names.
QList<DeviceChoice> WithStableNames(const QList<DeviceChoice>& devices,
                                    const QList<StableName>& names);

// The binding as it is to be kept: the stable name of the device it names, when it has
// one; any other binding (the simulated site, a server, a device without one) as it is.
QString PreferStableName(const QString& binding, const QList<StableName>& names);

// The same two on this system's devices and stable names.
QList<DeviceChoice> ChooserDevices();
QString PreferStableName(const QString& binding);

} // namespace quellpad
