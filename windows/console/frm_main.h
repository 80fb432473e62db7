#pragma once

#include "bus/query_watch.h"
#include "console/joystick.h"
#include "console/lens.h"
#include "console/targets.h"
#include "engine/keyboard_state.h"
#include "engine/port_control.h"
#include "ui/error_boundary.h"
#include "ui/proportional_layout.h"

#include <QMainWindow>
#include <QPointer>

#include <array>
#include <functional>
#include <optional>

class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTimer;

namespace quellpad::ui {
class LogView;
class StatusText;
} // namespace quellpad::ui

namespace quellpad {

class FrmTypeCmnds;
class PortWatch;
class JoystickBall;
class JoystickSquare;

// The keyboard's main window: the joystick, the lens buttons, the number boxes and the
// menus. Its controls only load the keyboard state; CommandChangeTimer sends.
class FrmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit FrmMain(Quellpad_Support_Func& keyboard, QWidget* parent = nullptr);
    ~FrmMain() override;

    // Brings the keyboard into a working state: settings, ports, mode, captions, lists and
    // the dispatcher. Problems that do not stop the start are told once the window shows.
    void Form_Load();

    // The per-mode visibility and captions of the controls and menus.
    void ApplyModeControls();

    // The knob back at the rest point.
    void CentreJoystickBall();

    // A joystick outside the window (a USB stick) moving the on-screen one: the same as a
    // left-button drag to `twips` (client area) with its own drag state, the knob following.
    void DriveJoystick(JoystickState& state, QPointF twips);
    // The joystick's geometry at this moment, in twips of the window's client area.
    JoystickGeometry CurrentJoystickGeometry() const;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void LoadKeyboard();
    // Lets go of every control the operator holds or has latched, as if the mouse button
    // had come up: the knob back at rest, the held lens buttons off. The dispatcher sends
    // the stop at its next tick. A window that takes the mouse (a modal box, another
    // program's window, a popup) means the release may never arrive.
    // Whether anything was held.
    bool ReleaseHeldControls();
    // At the end of the program: every open port gets the current mode's stop, and the
    // bytes are given time to leave, when a receiver may still be moving.
    void StopBeforeEnd();
    // Every popup that opens lets go of the held controls.
    void WatchForPopups();
    void BuildMenus();
    void BuildControls();
    void ConnectHandlers();
    // The number boxes, and the buttons and items that load numbered-target commands.
    void ConnectTargets();
    // Runs handler, behind the error boundary, when the named button or item is chosen.
    void OnControl(const char* name, std::function<void()> handler);
    // Runs a number box's check at every change of its text; a refusal is told, the box
    // emptied, and `then` runs after either outcome.
    void OnChange(QLineEdit* box, std::function<std::optional<Refusal>()> check,
                  std::function<void()> then = {});
    void LayOut();
    void PlaceJoystick();
    // The window's outer size as the joystick's rest point takes it: its own, without the
    // window manager's frame.
    QSize OuterSize() const;

    // Options menu.
    void Com1Option_Click();
    void Com2Option_Click();
    void ComOption_Click(int portNumber);
    void Settings_Menu_Option_Click();
    void SimulatedSiteOption_Click();
    void mnuTraffic_Click();
    void mnuScan_Click();
    void RetransmitTimerOption_Click();
    void ControlLock_Click();
    void MenuControlOption_Click();
    void Type_Commands_Option_Click();
    void AdvancedCommandsOption_Click();
    void ExtendedCommands_Click();
    void SetLabelOption_Click();
    void AboutOption_Click();
    void ExitOption_Click();

    // Mode menu.
    void ASCII_Menu_Option_Click();
    void MUX_ASCII_Option_Click();
    void D_Protocol_Menu_Option_Click();
    void P_Protocol_Menu_Option_Click();
    void SwitchMode(const QString& mode, QAction* item);
    // The response box's label, which also names the box.
    void SetResponseCaption(const QString& caption);

    // Timers.
    void CommandChangeTimer_Timer();
    void RetransmitTimer_Timer();

    // Retransmit Time box.
    void RetransmitTimeTextBox_Change();

    // Lens buttons.
    void Lens_MouseDown(LensButton button);
    void Lens_MouseUp(LensButton button);
    void Lens_Click(LensButton button);
    // Mouse down and up of the left button on a lens button, wherever the release lands.
    void LensButton_MouseEvent(LensButton button, const QEvent& event);

    // Joystick: mouse events of the window.
    void Form_MouseDown(int button, QPointF canvasPoint);
    void Form_MouseMove(int buttons, QPointF canvasPoint);
    void Form_MouseUp();
    void PlaceBallAt(QPointF twips);
    // Twips of the client area for a point of the window's central area, and back.
    QPointF ToTwips(QPointF canvasPoint) const;
    QPointF FromTwips(QPointF twips) const;

    // Replies from the equipment.
    void MSComm_OnComm(int portNumber, int eventCode);
    void Port_LineFailed(int portNumber, const QString& message);
    void Port_Back(int portNumber, const QString& message);
    // What the error boundary tells about a port by itself, one episode at a time.
    static QString PortSubject(int portNumber);
    // The handlers of the port's line; at start and whenever the port is bound anew.
    void ConnectPort(int portNumber);
    void Port_Rebound(int portNumber);

    // The main window's one shortcut: M calls the camera's menu and opens the menu control
    // window. Whether the character was taken.
    bool Form_KeyPress(QChar character);

    // Shows a window modal; `beforeShow` runs once the timers are paused.
    void RunModalWindow(QDialog& window, bool pauseTimers,
                        const std::function<void()>& beforeShow = {});
    void UpdateWindowTitle();
    void UpdatePortBindings();
    // The COM items can be chosen for the ports listed in AvailablePorts, a port being
    // listed as soon as its device is there; a greyed one says why in its tool tip.
    void EnableComItems();
    // A line of news beside the ports' bindings, announced to a screen reader; an empty
    // text takes it away.
    void ShowNotice(const StatusNotice& notice);
    // Tells once in the status bar when D queries on a port go unanswered several times
    // running, and what is likely wrong.
    void WatchUnansweredQueries();
    QPushButton* LensControl(LensButton button) const;

    Quellpad_Support_Func& keyboard_;
    // The "Simulated Site" window, once the operator has asked for it.
    QWidget* siteWindow_ = nullptr;
    QWidget* trafficWindow_ = nullptr;
    QWidget* scanWindow_ = nullptr;
    // The port a receiver scan is using, whose replies are the scan's; 0 when none is.
    int scanningPort_ = 0;
    ui::ErrorBoundary boundary_;
    ui::ProportionalLayout layout_;
    JoystickState joystick_;
    // The lens buttons whose left button is down now (press and hold only).
    std::array<bool, 6> lensHeld_{};
    // Per port: it failed while a receiver may have been moving, and when it comes back
    // it is told where the keyboard stands.
    std::array<bool, 2> movingAtFailure_{};
    bool resendAtNextTick_ = false;
    QPointer<FrmTypeCmnds> typeCommands_;
    PortWatch* portWatch_ = nullptr;
    // The ports to try once more when their devices are there (at start, after the settings
    // are saved, and once a missing device appears).
    std::array<bool, 2> lookForPorts_{true, true};
    // Whether the operator has been told that a command went nowhere for want of an open port.
    bool toldNothingOpen_ = false;

    QWidget* canvas_ = nullptr;
    JoystickSquare* square_ = nullptr;
    JoystickBall* ball_ = nullptr;
    ui::StatusText* portBindings_ = nullptr;
    // What a port that keeps failing and coming back has done since its last message box:
    // a count for the status bar, and the latest word on it for the tool tip.
    struct PortAlert {
        QString count;
        QString latest;
    };
    PortAlert portAlerts_[2];
    ui::StatusText* settingsPlace_ = nullptr;
    ui::StatusText* startNotice_ = nullptr; // the ports that did not open at start-up
    bus::UnansweredQueries queryWatch_;

    // Timers.
    QTimer* CommandChangeTimer = nullptr;
    QTimer* RetransmitTimer = nullptr;
    QTimer* H_Poll_Timer = nullptr;
    // Looks, while a COM item is greyed for want of its device, for the device to appear.
    QTimer* ComPresenceTimer = nullptr;

    // Menus and items.
    QMenu* OptionsMenu = nullptr;
    QMenu* ModeMenu = nullptr;
    QMenu* AuxMenu = nullptr;
    QMenu* MacroMenu = nullptr;
    QMenu* CamLock_Menu = nullptr;
    QMenu* MuxMenu = nullptr;
    QMenu* VCR_Menu = nullptr;
    QMenu* MoreCommandsMenu = nullptr;
    QAction* Com1Option = nullptr;
    QAction* Com2Option = nullptr;
    QAction* RetransmitTimerOption = nullptr;
    QAction* ControlLock = nullptr;
    QAction* MenuControlOption = nullptr;
    QAction* AdvancedCommandsOption = nullptr;
    QAction* ExtendedCommands = nullptr;
    QAction* SetLabelOption = nullptr;
    QAction* Time_Update_Option = nullptr;
    QAction* SendCameraTitleOption = nullptr;
    QAction* ASCII_CommandDisplayOption = nullptr;
    QAction* T_ProtocolCommandsOption = nullptr;
    QAction* H_Protocol_Poll = nullptr;
    QAction* D_Protocol_Menu_Option = nullptr;
    QAction* P_Protocol_Menu_Option = nullptr;
    QAction* ASCII_Menu_Option = nullptr;
    QAction* MUX_ASCII_Option = nullptr;
    QAction* H_Protocol_Option = nullptr;
    QAction* T_Protocol_Option = nullptr;
    std::array<QAction*, 6> auxItems_{}; // Aux ON, Aux OFF, Toggle Aux, GPI ON, GPI OFF, Toggle GPI
    std::array<QAction*, 6> macroItems_{}; // start and halt of macro, sequence, tour
    QList<QAction*> unofferedItems_;       // entries of features this keyboard does not offer

    // Controls.
    QLabel* AddressCOM1Label = nullptr;
    QLineEdit* AddressCOM1_TextBox = nullptr;
    QLabel* AddressCOM2Label = nullptr;
    QLineEdit* AddressCOM2_TextBox = nullptr;
    QLabel* COM1CommandLabel = nullptr;
    QLabel* COM2CommandLabel = nullptr;
    QLabel* AccessResponseLabel = nullptr;
    ui::LogView* AccessResponseTextBox = nullptr;
    QLabel* RetransmitTimeLabel = nullptr;
    QLineEdit* RetransmitTimeTextBox = nullptr;
    QLabel* LensSpeedLabel = nullptr;
    QListWidget* LensSpeedList = nullptr;
    std::array<QPushButton*, 6> lensButtons_{};
    QLabel* PresetNumberLabel = nullptr;
    QLineEdit* PresetNumberTextBox = nullptr;
    QPushButton* PresetGoButton = nullptr;
    QPushButton* PresetSetButton = nullptr;
    QPushButton* PresetClearButton = nullptr;
    QLabel* PatternNumberLabel = nullptr;
    QListWidget* PatternNumberListBox = nullptr;
    QPushButton* StartPatternButton = nullptr;
    QPushButton* EndPatternButton = nullptr;
    QPushButton* RunPatternButton = nullptr;
    QLabel* AuxNumberLabel = nullptr;
    QLineEdit* AuxNumberTextBox = nullptr;
    QLabel* MacroNumberLabel = nullptr;
    QLineEdit* MacroNumberTextBox = nullptr;
    QLabel* CameraNumberLabel = nullptr;
    QLineEdit* CameraNumberTextBox = nullptr;
    QPushButton* CameraButton = nullptr;
    QPushButton* CamBackwardStepButton = nullptr;
    QPushButton* CamForwardStepButton = nullptr;
    QLabel* MonitorNumberLabel = nullptr;
    QLineEdit* MonitorNumberTextBox = nullptr;
    QPushButton* MonitorButton = nullptr;
    QLabel* AlarmNumberLabel = nullptr;
    QLineEdit* AlarmNumberTextBox = nullptr;
    QPushButton* TriggerAlarmButton = nullptr;
    QPushButton* ResetAlarmButton = nullptr;
    QPushButton* Alarm_Backward_Step_Button = nullptr;
    QPushButton* Alarm_Forward_Step_Button = nullptr;
    QGroupBox* ZoneFrame = nullptr;
    QRadioButton* ZoneStartOption = nullptr;
    QRadioButton* ZoneEndOption = nullptr;
    QRadioButton* ZoneScanOnOption = nullptr;
    QRadioButton* ZoneScanOffOption = nullptr;
    QLabel* ZoneNumberLabel = nullptr;
    QListWidget* ZoneNumberList = nullptr;
    QPushButton* ZoneButton = nullptr;
    QGroupBox* MiscFrame = nullptr;
    QRadioButton* FlipOption = nullptr;
    QRadioButton* RemoteResetOption = nullptr;
    QRadioButton* ClearScreenOption = nullptr;
    QRadioButton* ZoomSpeedOption = nullptr;
    QRadioButton* FocusSpeedOption = nullptr;
    QPushButton* MiscSendButton = nullptr;
    QGroupBox* H_Data_Frame = nullptr;
    QList<QWidget*> hDataControls_; // arrows, wipers and poll: never shown by this keyboard
};

} // namespace quellpad
