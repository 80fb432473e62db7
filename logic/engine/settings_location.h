#pragma once

#include <QString>

#include <functional>

namespace quellpad {

// The folders that may hold Settings.dat and the bindings file, in order of preference.
struct SettingsCandidates {
    QString namedDir; // QUELLPAD_SETTINGS_DIR, or empty
    QString appDir;   // the executable's folder
    QString userDir;  // the user's configuration folder
};

// The folder named by QUELLPAD_SETTINGS_DIR when set; else the executable's folder when it
// can be written (a copy unpacked anywhere keeps its settings beside it); else the user's
// configuration folder, as for a program installed under /usr.
QString ChooseSettingsDir(const SettingsCandidates& candidates,
                          const std::function<bool(const QString&)>& writable);

// Whether the folder is one of the system's shared program folders (/usr/bin and the like,
// also inside an unpacked root). A program there never keeps settings beside itself, not
// even when run by root, who could write there.
bool IsSharedProgramFolder(const QString& path);

// The folder chosen for this process, created when it is the user's and missing.
QString SettingsDir();

// The joystick's (and later other) bindings, an INI file beside Settings.dat.
QString BindingsFilePath();

} // namespace quellpad
