#pragma once

#include "bus/query_watch.h"
#include "console/joystick.h"
#include "engine/keyboard_state.h"
#include "engine/port_control.h"
#include "ui/error_boundary.h"
#include "ui/proportional_layout.h"

#include <QMainWindow>
#include <QPointer>

#include <array>
#include <functional>
#include <memory>

class QGroupBox;
class QLabel;
class QLineEdit;
class QTimer;

namespace quellpad::ui {
class LogView;
class StatusText;
} // namespace quellpad::ui

namespace quellpad {

class FrmTypeCmnds;
class JoystickPanel;
class LensButtons;
class MainMenus;
class ModeSetup;
class NumberedTargets;
class PortWatch;
class ReplyBoxes;

// The keyboard's main window, put together from its parts (the menus, the reply boxes, the
// lens buttons, the numbered targets, the joystick and the mode set-up), and what joins
// them: the ports, the timers, the status bar and the command windows. Its controls only
// load the keyboard state; CommandChangeTimer sends.
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
    void BuildControls();
    void ConnectHandlers();
    void LayOut();

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

    // Timers.
    void CommandChangeTimer_Timer();
    void RetransmitTimer_Timer();

    // Retransmit Time box.
    void RetransmitTimeTextBox_Change();

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

    Quellpad_Support_Func& keyboard_;
    // The "Simulated Site" window, once the operator has asked for it.
    QWidget* siteWindow_ = nullptr;
    QWidget* trafficWindow_ = nullptr;
    QWidget* scanWindow_ = nullptr;
    // The port a receiver scan is using, whose replies are the scan's; 0 when none is.
    int scanningPort_ = 0;
    ui::ErrorBoundary boundary_;
    ui::ProportionalLayout layout_;
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

    QLabel* RetransmitTimeLabel = nullptr;
    QLineEdit* RetransmitTimeTextBox = nullptr;
    QGroupBox* H_Data_Frame = nullptr;

    // What the operator sees, part by part; made after the boundary and the layout they
    // use, and gone before them.
    std::unique_ptr<MainMenus> menus_;
    std::unique_ptr<ReplyBoxes> replies_;
    std::unique_ptr<LensButtons> lens_;
    std::unique_ptr<NumberedTargets> targets_;
    std::unique_ptr<JoystickPanel> joystick_;
    std::unique_ptr<ModeSetup> modes_;
};

} // namespace quellpad
