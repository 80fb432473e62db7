#pragma once

#include "engine/port_binding.h"

#include <QList>
#include <QString>
#include <QStringList>

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

// What tells the device behind a binding apart from the next one to take its kernel name:
// the next USB adapter plugged in takes the last one's /dev/ttyUSBn, and the next terminal
// opened the last pseudo-terminal's /dev/pts number.
struct DeviceIdentity {
    // A pseudo-terminal: its number goes to whichever program asks next, and nothing tells
    // its next owner from its last.
    bool pseudoTerminal = false;
    // The stable names that lead to it (an adapter's /dev/serial/by-id names).
    QStringList stableNames;
    // Where it sits in the system's device tree, with its serial number where it has one.
    QString hardware;
    friend bool operator==(const DeviceIdentity&, const DeviceIdentity&) = default;
};

// The identity of what `binding` leads to now (nothing when nothing is there).
DeviceIdentity IdentifyDevice(const QString& binding, const QList<StableName>& names);
DeviceIdentity IdentifyDevice(const QString& binding);

// Whether the device found now is the one a port was open on, so that the port may be
// opened again without the operator: by a stable name they share, else (never for a
// pseudo-terminal) by their place and serial number. A device of which nothing was known
// (a built-in port where the system tells nothing) counts as the same.
bool SameDevice(const DeviceIdentity& before, const DeviceIdentity& now);

// The same two on this system's devices and stable names.
QList<DeviceChoice> ChooserDevices();
QString PreferStableName(const QString& binding);

} // namespace quellpad
