#pragma once

// The names the main window's handlers go by at the error boundary, each spelled once:
// a handler that runs by itself again and again is told once per failure only when the
// name it runs under is the name marked repeating.
//
// A button's or number box's own handler takes its name from the control's objectName
// ("<name>_Click", "<name>_Change") and has no constant of its own.

namespace quellpad::handler_names {

// Options menu.
inline constexpr char kCom1OptionClick[] = "Com1Option_Click";
inline constexpr char kCom2OptionClick[] = "Com2Option_Click";
inline constexpr char kSettingsMenuOptionClick[] = "Settings_Menu_Option_Click";
inline constexpr char kSimulatedSiteOptionClick[] = "SimulatedSiteOption_Click";
inline constexpr char kTrafficClick[] = "mnuTraffic_Click";
inline constexpr char kScanClick[] = "mnuScan_Click";
inline constexpr char kRetransmitTimerOptionClick[] = "RetransmitTimerOption_Click";
inline constexpr char kControlLockClick[] = "ControlLock_Click";
inline constexpr char kMenuControlOptionClick[] = "MenuControlOption_Click";
inline constexpr char kTypeCommandsOptionClick[] = "Type_Commands_Option_Click";
inline constexpr char kAdvancedCommandsOptionClick[] = "AdvancedCommandsOption_Click";
inline constexpr char kExtendedCommandsClick[] = "ExtendedCommands_Click";
inline constexpr char kSetLabelOptionClick[] = "SetLabelOption_Click";
inline constexpr char kAboutOptionClick[] = "AboutOption_Click";
inline constexpr char kExitOptionClick[] = "ExitOption_Click";

// Mode menu.
inline constexpr char kAsciiMenuOptionClick[] = "ASCII_Menu_Option_Click";
inline constexpr char kMuxAsciiOptionClick[] = "MUX_ASCII_Option_Click";
inline constexpr char kDProtocolMenuOptionClick[] = "D_Protocol_Menu_Option_Click";
inline constexpr char kPProtocolMenuOptionClick[] = "P_Protocol_Menu_Option_Click";

// Mux menu: the sixteen camera items share one handler.
inline constexpr char kMuxCamClick[] = "MuxCam_Click";

// Timers and the Retransmit Time box.
inline constexpr char kCommandChangeTimer[] = "CommandChangeTimer_Timer";
inline constexpr char kRetransmitTimer[] = "RetransmitTimer_Timer";
inline constexpr char kRetransmitTimeTextBoxChange[] = "RetransmitTimeTextBox_Change";

// Replies on each port.
inline constexpr char kMSComm1OnComm[] = "MSComm1_OnComm";
inline constexpr char kMSComm2OnComm[] = "MSComm2_OnComm";

// Lens buttons.
inline constexpr char kLensMouseDown[] = "Lens_MouseDown";
inline constexpr char kLensMouseUp[] = "Lens_MouseUp";
inline constexpr char kLensClick[] = "Lens_Click";

// The window itself.
inline constexpr char kFormLoad[] = "Form_Load";
inline constexpr char kFormQueryUnload[] = "Form_QueryUnload";
inline constexpr char kFormKeyPress[] = "Form_KeyPress";
inline constexpr char kFormDeactivate[] = "Form_Deactivate";
inline constexpr char kFormMouse[] = "Form_Mouse";

// The handlers that run by themselves again and again.
inline constexpr const char* kRepeating[] = {kCommandChangeTimer, kRetransmitTimer, kMSComm1OnComm,
                                             kMSComm2OnComm};

} // namespace quellpad::handler_names
