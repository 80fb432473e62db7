#pragma once

#include "engine/keyboard_state.h"
#include "protocol/vocabulary.h"
#include "ui/messages.h"

#include <QDateTime>
#include <QString>

#include <array>
#include <functional>
#include <optional>

// The numbered-target commands of the main window: what each number box accepts and
// stores, and the command each button and menu item loads. Nothing here sends; the
// dispatcher does at its next tick.
namespace quellpad {

// A number box's refusal: the message for the operator, after which the box is emptied
// (its change check then runs once more on the empty text). Some boxes store their
// fallback only once that has happened.
struct Refusal {
    ui::Message message;
    std::function<void()> afterEmptying;
};

// Change checks of the number boxes. Each stores what it accepts into the keyboard state,
// or returns the refusal.
std::optional<Refusal> CheckAddress(const QString& mode, const QString& text,
                                    std::uint8_t& address);
std::optional<Refusal> CheckCameraNumber(Quellpad_Support_Func& keyboard, const QString& text);
std::optional<Refusal> CheckMonitorNumber(Quellpad_Support_Func& keyboard, const QString& text);
std::optional<Refusal> CheckPresetNumber(Quellpad_Support_Func& keyboard, const QString& text);
std::optional<Refusal> CheckMacroNumber(Quellpad_Support_Func& keyboard, const QString& text);
std::optional<Refusal> CheckAlarmNumber(Quellpad_Support_Func& keyboard, const QString& text);
// The aux box: a refusal also leaves AuxNumber at 0 once the box is empty.
std::optional<Refusal> CheckAuxNumber(Quellpad_Support_Func& keyboard, const QString& text);

// The message of an address box that is given a fourth digit.
ui::Message AddressRangeMessage();

// "Send Camera  12 Title": the camera number as Str gives it, leading blank and all.
QString CameraTitleCaption(std::int32_t camera);

// The six items of the Aux menu, in menu order: Aux ON, Aux OFF, Toggle Aux, GPI ON,
// GPI OFF, Toggle GPI.
inline constexpr std::size_t kAuxItems = 6;
// Captions for an accepted aux number; an empty caption leaves that item as it is.
// Every item given a caption is enabled.
std::array<QString, kAuxItems> AuxCaptions(const QString& mode, std::int32_t aux);
std::array<QString, kAuxItems> BareAuxCaptions();
// Start and halt of macro, sequence and tour, with the number when it is not 0.
std::array<QString, 6> MacroCaptions(std::int16_t macro);

// Whether the alarm box holds a range ("12..15") rather than one alarm.
bool HoldsAlarmRange(const QString& alarmNumberText);

// Loads an ASCII command so that it goes out even when it equals the last one sent.
void LoadAsciiCommand(Quellpad_Support_Func& keyboard, const QString& text);

// Menu and button commands whose ASCII text is a fixed mnemonic, or a number and its
// mnemonic; the control's name is its objectName.
enum class TargetNumber { None, Monitor, Camera, Aux, Macro };
struct AsciiTarget {
    const char* control;
    TargetNumber number;
    protocol::Kind command;
};
using K = protocol::Kind;
inline constexpr AsciiTarget kAsciiTargets[] = {
    {"MonitorButton", TargetNumber::Monitor, K::SelectMonitor},
    {"CameraButton", TargetNumber::Camera, K::SelectCamera},
    {"CamForwardStepButton", TargetNumber::None, K::NextCamera},
    {"CamBackwardStepButton", TargetNumber::None, K::PreviousCamera},
    {"Alarm_Forward_Step_Button", TargetNumber::None, K::NextAlarm},
    {"Alarm_Backward_Step_Button", TargetNumber::None, K::PreviousAlarm},
    {"GPI_OnOption", TargetNumber::Aux, K::GpiOn},
    {"GPI_OffOption", TargetNumber::Aux, K::GpiOff},
    {"StartMacroOption", TargetNumber::Macro, K::StartMacro},
    {"HaltMacroOption", TargetNumber::Macro, K::HaltMacro},
    {"StartSequenceOption", TargetNumber::Macro, K::StartSequence},
    {"HaltSequenceOption", TargetNumber::Macro, K::HaltSequence},
    {"StartTourOption", TargetNumber::Macro, K::StartTour},
    {"HaltTourOption", TargetNumber::Macro, K::HaltTour},
    {"LockCam_Option", TargetNumber::None, K::LockCamera},
    {"UnlockCam_Option", TargetNumber::None, K::UnlockCamera},
    {"OverrideLock_Option", TargetNumber::None, K::OverrideLock},
    {"DigZoom_Option", TargetNumber::None, K::DigitalZoom},
    {"PIP_Option", TargetNumber::None, K::Pip},
    {"Quad_Option", TargetNumber::None, K::Quad},
    {"Nano_Option", TargetNumber::None, K::Nano},
    {"Hex_Option", TargetNumber::None, K::Hex},
    // The VCR keys are the multiplexer's, although the menu is offered in "ASCII".
    {"Eject_Option", TargetNumber::None, K::VcrEject},
    {"Record_Option", TargetNumber::None, K::VcrRecord},
    {"Pause_Option", TargetNumber::None, K::VcrPause},
    {"FastForward_Option", TargetNumber::None, K::VcrFastForward},
    {"Rewind_Option", TargetNumber::None, K::VcrRewind},
    {"Stop_Option", TargetNumber::None, K::VcrStop},
    {"Play_Option", TargetNumber::None, K::VcrPlay},
};
QString AsciiTargetText(const Quellpad_Support_Func& keyboard, const AsciiTarget& target);

// Alarm trigger and reset of the one alarm in the box: n "Ea"; n "Ia", or a bare "Ia"
// for alarm 0.
QString TriggerAlarmText(std::int16_t alarm);
QString ResetAlarmText(std::int16_t alarm);

// Aux on and off: the text in "ASCII", the registers (left for the dispatcher to compare
// with what it last sent) in "D" and "P".
void LoadAux(Quellpad_Support_Func& keyboard, bool on);

// Preset go, clear and set. Set arms the label-and-store sequence in "D" and "P" when a
// port is open; in "ASCII" the label travels in the one text.
void LoadPresetGo(Quellpad_Support_Func& keyboard, int preset);
void LoadPresetClear(Quellpad_Support_Func& keyboard);
void LoadPresetSet(Quellpad_Support_Func& keyboard);

// Pattern start, end and run for a pattern number 0 to 10.
enum class PatternAction { Start, End, Run };
void LoadPattern(Quellpad_Support_Func& keyboard, PatternAction action, int pattern);

// The zone frame's send button.
enum class ZoneChoice { None, Start, End, ScanOn, ScanOff };
void LoadZone(Quellpad_Support_Func& keyboard, ZoneChoice choice, int zone);

// The camera commands frame's send button; speed is the lens speed list's 0 to 3.
enum class MiscChoice { None, Flip, RemoteReset, ClearScreen, ZoomSpeed, FocusSpeed };
void LoadMisc(Quellpad_Support_Func& keyboard, MiscChoice choice, int speed);

// "Za03/07/06/14:05:09a": the switcher's clock set from the computer's.
QString TimeUpdateText(const QDateTime& now);
// " 12Ya" + label + "!a": the camera number keeps Str's leading blank.
QString CameraTitleText(std::int32_t camera, const QString& label);

} // namespace quellpad
