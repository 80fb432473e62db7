#pragma once

#include <QString>
#include <QStringList>

namespace quellpad {

// What the program's arguments ask for. Read before any window exists, so that --help,
// --version and a mistyped option answer on a terminal without a display.
struct CommandLine {
    enum class Action { Run, ShowHelp, ShowVersion, Refuse };
    Action action = Action::Run;
    QString error; // why the arguments were refused, one line
    // What --com1, --com2 and --settings-dir named; empty when not given.
    QString com1;
    QString com2;
    QString settingsDir;
};

// The exit status of arguments that cannot be used, as for any command-line program.
inline constexpr int kUsageStatus = 2;

// `arguments` as main() received them, the program's name first. Qt's own options
// (-platform, -style, ...) are let through for the application object to take.
CommandLine ParseCommandLine(const QStringList& arguments);

// The text of --help. Needs the application object, which names the program.
QString CommandLineHelp();

// The options in force as the variables they stand for (QUELLPAD_COM1, QUELLPAD_COM2,
// QUELLPAD_SETTINGS_DIR), so that an option wins over a variable set before.
void ApplyCommandLine(const CommandLine& line);

} // namespace quellpad
