#pragma once

#include "engine/keyboard_state.h"

#include <QString>

#include <optional>

namespace quellpad {

// The motion dispatcher's periods, in milliseconds.
inline constexpr int kFrameModeTick = 100;
inline constexpr int kAsciiModeTick = 200;
inline constexpr int kAlarmRangeTick = 500;

// What the tick reads from the main window's controls.
struct DispatchInputs {
    bool zoneStartSelected = false;
    bool zoneEndSelected = false;
    QString alarmNumberText;
    // A port is back that failed while a receiver on it was moving: it is told where the
    // keyboard stands now, so the tick sends even what has not changed.
    bool resend = false;
};

struct DispatchOutcome {
    bool sent = false;
    // The tick's new period, when it changes (an alarm range has finished).
    std::optional<int> newInterval;
};

// True for a text that is not a motion command, so that the ASCII stop substitution
// leaves it alone. "la" marks a label, whose free text may hold any mnemonic by chance.
bool IsNonMotionCommand(const QString& text);

// The two numbers of an alarm range "a..b", spelled digit by digit (one to four
// characters before ".."); nothing for any other text.
struct AlarmRange {
    double first = 0;
    double last = 0;
};
std::optional<AlarmRange> ReadAlarmRange(const QString& alarmNumberText);

// Reads an alarm range "a..b" (one to four characters before "..") into
// AlarmRangeStart and AlarmRangeEnd; any other text changes nothing.
void ParseAlarmRange(Quellpad_Support_Func& keyboard, const QString& alarmNumberText);

// Whether a receiver may be moving on the keyboard's word: what the tick last sent, or
// what is loaded now (a control held, a key of the menu control window), is a pan, tilt
// or lens motion. A one-shot command moves nothing.
bool ReceiverMayBeMoving(const Quellpad_Support_Func& keyboard);

// Loads the current mode's stop when a receiver may be moving: all four registers 0,
// with "sa" in "ASCII" and the stop texts of the directions last started in "MUX ASCII".
// False, with nothing changed, at rest: there is nothing to stop.
bool LoadStop(Quellpad_Support_Func& keyboard);

// Sends what is loaded and remembers it as sent, as the tick does.
void SendAndRemember(Quellpad_Support_Func& keyboard);

// One tick of CommandChangeTimer: sends the registers or the ASCII text when they differ
// from what it last sent, or while a multi-frame sequence runs; at most one send.
DispatchOutcome CommandChangeTick(Quellpad_Support_Func& keyboard, const DispatchInputs& inputs);

} // namespace quellpad
