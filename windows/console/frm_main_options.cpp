// The main window's Options menu: the ports, the windows beside the keyboard, and the
// command windows it shows modal.
#include "console/frm_main.h"

#include "console/handler_names.h"
#include "console/joystick_panel.h"
#include "console/lens_buttons.h"
#include "console/main_menus.h"
#include "console/reply_boxes.h"
#include "dialogs/about.h"
#include "dialogs/advanced_commands.h"
#include "dialogs/extended_commands.h"
#include "dialogs/frm_label.h"
#include "dialogs/frm_settings.h"
#include "dialogs/menu_control.h"
#include "dialogs/type_commands.h"
#include "engine/port_watch.h"
#include "engine/retransmission.h"
#include "engine/words.h"
#include "scan_window/frm_scan.h"
#include "site_window/frm_simulated_site.h"
#include "traffic_window/frm_traffic.h"
#include "ui/messages.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QTimer>
#include <QWindow>

namespace quellpad {

using namespace handler_names;

namespace {

// A window that sits beside the keyboard, shown again in front where it was left. It is
// a window of its own, not one the keyboard owns on the display, so that a command window,
// which blocks the keyboard, leaves it usable.
void BringUp(QWidget* window) {
    window->show();
    window->windowHandle()->setTransientParent(nullptr);
    window->raise();
    window->activateWindow();
}

} // namespace

void FrmMain::SimulatedSiteOption_Click() {
    // Made at the first request only, so that a keyboard on real ports pays nothing for it.
    if (siteWindow_ == nullptr) {
        siteWindow_ = new site_window::FrmSimulatedSite(keyboard_, this);
    }
    BringUp(siteWindow_);
}

void FrmMain::mnuTraffic_Click() {
    // Made at the first request only: until then the wire is not watched at all.
    if (trafficWindow_ == nullptr) {
        trafficWindow_ = new traffic_window::FrmTraffic(keyboard_, this);
    }
    BringUp(trafficWindow_);
}

void FrmMain::mnuScan_Click() {
    if (scanWindow_ == nullptr) {
        // While a scan runs the dispatcher and retransmission send nothing and the reply
        // box takes nothing from the scanned port: the queries and answers are the scan's.
        scanWindow_ = new scan_window::FrmScan(
            keyboard_,
            [this](int port) {
                scanningPort_ = port;
                if (port != 0) {
                    CommandChangeTimer->stop();
                    RetransmitTimer->stop();
                    return;
                }
                CommandChangeTimer->start();
                if (keyboard_.RetransmitOn) {
                    RetransmitTimer->start();
                }
            },
            this);
    }
    BringUp(scanWindow_);
}

void FrmMain::Com1Option_Click() {
    ComOption_Click(1);
}
void FrmMain::Com2Option_Click() {
    ComOption_Click(2);
}

void FrmMain::ComOption_Click(int number) {
    QAction* own = number == 1 ? menus_->Com1Option : menus_->Com2Option;
    QAction* other = number == 1 ? menus_->Com2Option : menus_->Com1Option;
    // The item's check mark follows the port, whether the handler succeeds or not.
    const auto sync = qScopeGuard([this, own, number] {
        own->setChecked(keyboard_.Port(number).IsOpen());
        UpdatePortBindings();
    });
    // A port waiting for its device to come back is still enabled.
    const bool open =
        TogglePort(keyboard_, number, other->isChecked() || portWatch_->Watching(3 - number));
    if (open) {
        portWatch_->Forget(number);
    } else {
        replies_->CommandLabel(number)->clear();
    }
}

void FrmMain::EnableComItems() {
    // A device plugged in since the ports were looked for is offered at once.
    ListPortsNowPresent(keyboard_, lookForPorts_);
    bool awaited = false;
    for (int number = 1; number <= 2; ++number) {
        QAction* item = number == 1 ? menus_->Com1Option : menus_->Com2Option;
        const QString device = keyboard_.Port(number).Device();
        const bool listed = keyboard_.AvailablePorts.contains(QString::number(number));
        item->setEnabled(listed);
        if (listed) {
            item->setToolTip(device);
        } else if (device.startsWith(u'/')) {
            item->setToolTip(
                tr("Not offered while nothing is at %1; offered as soon as the device is there.")
                    .arg(device));
            awaited = true;
        } else {
            item->setToolTip(tr("Not offered: %1 was not found when the ports were looked for; "
                                "choose it again in Options > Settings...")
                                 .arg(device));
        }
    }
    if (awaited) {
        ComPresenceTimer->start();
    } else {
        ComPresenceTimer->stop();
    }
}

void FrmMain::Settings_Menu_Option_Click() {
    frmSettings window(keyboard_, this);
    connect(&window, &frmSettings::Saved, this, [this] {
        UpdateWindowTitle();
        lookForPorts_ = {true, true};
        EnableComItems();
        for (int number = 1; number <= 2; ++number) {
            const bool open = keyboard_.Port(number).IsOpen();
            (number == 1 ? menus_->Com1Option : menus_->Com2Option)->setChecked(open);
            // An enabled port whose new device is not there yet opens when it comes.
            if (!open && keyboard_.EnabledPorts.contains(QString::number(number))) {
                portWatch_->Watch(number);
            }
        }
        UpdatePortBindings();
    });
    RunModalWindow(window, false);
}

void FrmMain::Port_Rebound(int number) {
    ConnectPort(number);
    replies_->CommandLabel(number)->clear();
    // The site window shows the equipment of the lines it was made for; it is made anew
    // for the lines there are now.
    if (siteWindow_ != nullptr) {
        const bool shown = siteWindow_->isVisible();
        delete siteWindow_;
        siteWindow_ = nullptr;
        if (shown) {
            SimulatedSiteOption_Click();
        }
    }
}

void FrmMain::RetransmitTimerOption_Click() {
    if (!keyboard_.RetransmitOn) {
        keyboard_.RetransmitOn = true;
        RetransmitTimer->setInterval(keyboard_.RetransmitInterval);
        RetransmitTimer->start();
    } else if (keyboard_.CurrentMode != u"H") {
        keyboard_.RetransmitOn = false;
        RetransmitTimer->stop();
    }
    // The item's own toggle is overruled: its check mark is the state.
    menus_->RetransmitTimerOption->setChecked(keyboard_.RetransmitOn);
}

void FrmMain::RetransmitTimer_Timer() {
    RetransmitTick(keyboard_);
}

void FrmMain::RetransmitTimeTextBox_Change() {
    const RetransmitPeriod period = ReadRetransmitPeriod(RetransmitTimeTextBox->text());
    if (period.verdict == RetransmitPeriod::Verdict::Rejected) {
        ui::ShowMessage(this, {RetransmitRangeMessage(), {}, ui::MessageButtons::Ok});
        RetransmitTimeTextBox->clear();
        return;
    }
    keyboard_.RetransmitInterval = period.IntervalMs;
}

void FrmMain::ControlLock_Click() {
    if (keyboard_.ControlLockOn) {
        keyboard_.ControlLockOn = false;
        menus_->ControlLock->setChecked(false);
        lens_->ShowPlainCaptions();
        joystick_->CentreJoystickBall();
        keyboard_.Command1 = keyboard_.Command2 = keyboard_.Data1 = keyboard_.Data2 = 0;
    } else {
        // The captions stay plain until the first click of each pair shows On or Off.
        keyboard_.ControlLockOn = true;
        menus_->ControlLock->setChecked(true);
    }
}

void FrmMain::RunModalWindow(QDialog& window, bool pauseTimers,
                             const std::function<void()>& beforeShow) {
    if (pauseTimers) {
        // The window takes the mouse, and with the dispatcher paused the stop of a held
        // control would wait for the window to close: it goes out now.
        if (ReleaseHeldControls()) {
            CommandChangeTimer_Timer();
        }
        CommandChangeTimer->stop();
        if (keyboard_.RetransmitOn) {
            RetransmitTimer->stop();
        }
    }
    // The timers run again however the window ends, also when the command before it failed.
    const auto restore = qScopeGuard([this, pauseTimers] {
        if (pauseTimers) {
            CommandChangeTimer->start();
            if (keyboard_.RetransmitOn) {
                RetransmitTimer->start();
            }
        }
        activateWindow();
    });
    if (beforeShow) {
        beforeShow();
    }
    // Modal to the keyboard only: the Traffic and Simulated Site windows stay usable beside it.
    window.setWindowModality(Qt::WindowModal);
    window.exec();
}

bool FrmMain::Form_KeyPress(QChar character) {
    if ((character != u'm' && character != u'M') || keyboard_.CurrentMode == kModeMuxAscii) {
        return false;
    }
    boundary_.Run(kFormKeyPress, [&] {
        frmMenuControl window(keyboard_, this);
        RunModalWindow(window, true, [this] {
            // Set the preset that the receiver takes as the call for its menu.
            keyboard_.Command1 = 0;
            keyboard_.Command2 = protocol::code::kSetPreset;
            keyboard_.Data1 = 0;
            keyboard_.Data2 = protocol::preset::kMenu;
            keyboard_.AsciiCommand =
                QString::number(protocol::preset::kMenu) + Word(protocol::Kind::SetPreset);
            keyboard_.SendCommand();
        });
    });
    return true;
}

void FrmMain::MenuControlOption_Click() {
    frmMenuControl window(keyboard_, this);
    RunModalWindow(window, true);
}

void FrmMain::Type_Commands_Option_Click() {
    FrmTypeCmnds window(keyboard_, this);
    typeCommands_ = &window;
    window.Prepare(keyboard_.CurrentMode);
    RunModalWindow(window, true);
}

void FrmMain::AdvancedCommandsOption_Click() {
    FrmAdvancedCommands window(keyboard_, this);
    RunModalWindow(window, false);
}

void FrmMain::ExtendedCommands_Click() {
    // The levels outlive the window, as the camera keeps them between openings.
    static LevelAdjusters levels;
    FrmExtendedCommands window(keyboard_, levels, this);
    RunModalWindow(window, false);
}

void FrmMain::SetLabelOption_Click() {
    FrmLabel window(keyboard_, this);
    RunModalWindow(window, false);
}

void FrmMain::AboutOption_Click() {
    // Shown modal, the window alone takes input. Disabling the main window around it would
    // enable on return every menu the mode had disabled.
    frmAbout window(this);
    RunModalWindow(window, false);
}

} // namespace quellpad
