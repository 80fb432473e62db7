#pragma once

#include "errors.h"
#include "keyboard_state.h"

#include <QStringList>

#include <array>

namespace quellpad {

// The Options menu's COM n item: opens the port when it is closed, closes it when it is
// open (its real state decides, not the menu's check mark), records the enabled ports
// and saves the settings. otherPortChecked is the other COM item's check mark.
// Returns whether the port is now open. An open that fails raises PortError before
// anything is recorded or saved.
bool TogglePort(Quellpad_Support_Func& keyboard, int portNumber, bool otherPortChecked);

// Gives every available port the current line settings and RTS, closing and reopening a
// port that is open; a port not listed in AvailablePorts keeps its old parameters.
void ApplyLineSettings(Quellpad_Support_Func& keyboard);

// Binds the port anew after the operator chose another device for it: the old line is
// closed and dropped, the new one gets the buffers, line settings and RTS of the keyboard
// and is opened when the port is enabled. A port missing from AvailablePorts is added
// when its new device is there; nothing else of the settings changes. An open that fails
// raises PortError; the port is then bound and closed, and stays enabled.
void RebindPort(Quellpad_Support_Func& keyboard, int portNumber);

// Lists in AvailablePorts each port bound to a device that was not found when the ports
// were detected and is there now (an adapter plugged in after the first start): its COM
// item is offered from then on. A port marked in `lookAgain` is tried as a first start
// tries it, by opening and closing it, once its device is there; a device that is there
// but will not open (a serial port's device file with no port behind it) is tried again
// only after it has been missing. Whether a port was added.
bool ListPortsNowPresent(Quellpad_Support_Func& keyboard, std::array<bool, 2>& lookAgain);

// The reset of the shared state at start-up, before Settings.dat is read.
void ResetKeyboardState(Quellpad_Support_Func& keyboard);

// Start-up of the command engine: resets the state, reads or creates Settings.dat,
// completes it with defaults, replaces the unselectable modes "T" and "H" by "D",
// configures both ports and opens the enabled ones. A port that will not open, or a
// file that cannot be written, does not stop the start: each is one line of the result,
// for the operator to read once the window is up.
QStringList StartKeyboard(Quellpad_Support_Func& keyboard);

// The same start, its problems told apart: an enabled port whose device would not open
// (absent, refused, in use) is no reason to stop the operator with a message. The
// keyboard works without it and reopens it when the device appears; the status bar says
// so, with the way to the simulated site.
struct StartUpReport {
    QStringList problems;         // for a message once the window is up
    QList<PortError> closedPorts; // for the status bar
};
StartUpReport StartKeyboardReporting(Quellpad_Support_Func& keyboard);

// A line for the status bar, short enough to read there, and its whole story for its
// tool tip.
struct StatusNotice {
    QString text;
    QString detail;
};
// The status bar's notice of the enabled ports that would not open at start-up; empty
// when all did.
StatusNotice ClosedAtStartNotice(const QList<PortError>& failures);
// The status bar's notice when the operator's command went nowhere because no port is
// open: which are closed and how to open one. Empty while a port is open.
StatusNotice NothingOpenNotice(const Quellpad_Support_Func& keyboard);

// Raises the system timer resolution to 1 ms, and restores it, where the platform has
// such a setting (elsewhere timers are already this fine).
void RaiseTimerResolution();
void RestoreTimerResolution();

} // namespace quellpad
