#pragma once

#include <QByteArray>
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

// Longest line of Settings.dat that is read as a value.
inline constexpr qsizetype kLongestSettingsLine = 4096;

// What reading Settings.dat found.
struct SettingsRead {
    SettingsFields fields;
    // Why the file could not be read as plain lines ("line 2 holds characters that are not
    // plain text"); empty when it could, or when there was no file.
    QString damage;
    // The path is there but is no plain file (a FIFO, a device): it was not opened, and
    // must not be written either.
    bool notPlainFile = false;
};

// Where Settings.dat lives: in SettingsDir().
QString SettingsFilePath();

// The first six lines of the file's content. Lines may end in CR LF, LF or CR; a line
// holding control characters (binary junk, UTF-16) or longer than kLongestSettingsLine
// counts as empty, so that it takes its default, and is named in `damage`. `whole` is
// false when the content is only the start of a longer file.
SettingsRead ParseSettingsContent(const QByteArray& content, bool whole = true);

// Creates an empty file when there is none, then reads up to six lines. A path that is no
// plain file is not opened; an unreadable file reads as six empty lines.
SettingsRead InspectSettingsFile(const QString& path);
SettingsFields ReadSettingsFile(const QString& path);

// The six lines as the file holds them, each ended by CR LF.
QByteArray SettingsContent(const SettingsFields& fields);

// Writes the six lines, each ended by CR LF, through a temporary file that replaces
// the old one only when complete. Fails with SettingsError, also for a path that is no
// plain file.
void WriteSettingsFile(const QString& path, const SettingsFields& fields);

// Keeps the file at `path` under the first free name of Settings.dat.bak,
// Settings.dat.bak.1 ... Settings.dat.bak.9, never replacing an older backup; returns the
// name used. Fails with SettingsError when all are taken or the file cannot be moved.
QString KeepSettingsBackup(const QString& path);

} // namespace quellpad
