#pragma once

#include <QString>

#include <array>

namespace quellpad {

// The six lines of Settings.dat, in file order.
struct SettingsFields {
    QString BaudRate;
    QString Parity;
    QString HoldRts;
    QString AvailablePorts;
    QString CurrentMode;
    QString EnabledPorts;
};

// Where Settings.dat lives: in SettingsDir().
QString SettingsFilePath();

// Creates an empty file when there is none, then reads up to six lines. Lines may end
// in CR LF, LF or CR; a line holding control characters (binary junk) counts as empty,
// so that it takes its default. An unreadable file reads as six empty lines.
SettingsFields ReadSettingsFile(const QString& path);

// Writes the six lines, each ended by CR LF, through a temporary file that replaces
// the old one only when complete. Fails with SettingsError.
void WriteSettingsFile(const QString& path, const SettingsFields& fields);

} // namespace quellpad
