#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace quellpad {

// What a COM port is bound to: a local device path ("/dev/ttyUSB0", "COM3"), the
// simulated site ("sim") or a serial server on the network ("tcp://host:port",
// "rfc2217://host:port"). The binding is chosen, in order of precedence, by QUELLPAD_COMn,
// by the operator in the settings window (kept in the bindings file), or by the platform.
enum class BindingSource { Environment, BindingsFile, Default };

struct PortBinding {
    QString binding;
    BindingSource source = BindingSource::Default;
    friend bool operator==(const PortBinding&, const PortBinding&) = default;
};

inline const QString kSimulatedSiteBinding = QStringLiteral("sim");

// "QUELLPAD_COM1" or "QUELLPAD_COM2".
QString BindingVariable(int portNumber);

// The platform's own device for a COM port: the first and second serial device.
QString DefaultDevice(int portNumber);

// The binding in force for the port, read from the environment and from the bindings
// file at `bindingsPath`. A variable that is set but blank counts as not set.
PortBinding ResolvePortBinding(int portNumber, const QString& bindingsPath);
// The same, with the bindings file beside Settings.dat.
PortBinding ResolvePortBinding(int portNumber);

// Keeps the operator's choice in the [Ports] group of the bindings file; the file's other
// groups (the joystick's) stay as they are. Fails with SettingsError when the file cannot
// be written.
void SavePortBinding(const QString& bindingsPath, int portNumber, const QString& binding);

// Whether the binding names the simulated site.
bool IsSimulatedSiteBinding(const QString& binding);

// A serial server on the network, as a binding names it.
struct NetworkAddress {
    bool rfc2217 = false; // else a raw TCP server
    QString host;
    quint16 port = 0;
};
// Whether the binding is meant as a network server (its scheme is tcp:// or rfc2217://),
// whether or not the rest of it is usable.
bool IsNetworkBinding(const QString& binding);
// The server's address; nothing when host or port is missing or not usable.
std::optional<NetworkAddress> ParseNetworkBinding(const QString& binding);

// Why the binding cannot be used for the port, as the operator is to read it; nothing
// when it can. A path is not checked here: a device may be plugged in later, and opening
// it says what is wrong.
std::optional<QString> BindingProblem(int portNumber, const QString& binding);

// A serial device found on this machine, as the settings window offers it.
struct DeviceChoice {
    QString path;    // what the port is bound to
    QString caption; // "/dev/ttyUSB0 — FT232R USB UART (0403:6001)"
};
// The caption of a device: its path, its description and its USB vendor:product, when
// the system knows them.
QString DeviceCaption(const QString& path, const QString& description,
                      std::optional<quint16> vendor, std::optional<quint16> product);
// The serial devices the system lists now. Pseudo-terminals and links to devices are not
// among them: those are typed by hand.
QList<DeviceChoice> AvailableDevices();

} // namespace quellpad
