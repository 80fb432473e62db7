#include "frm_main.h"

#include "scan_window/frm_scan.h"
#include "site_window/frm_simulated_site.h"
#include "traffic_window/frm_traffic.h"

#include "console/dispatcher.h"
#include "console/frm_main_parts.h"
#include "console/key_preview.h"
#include "console/receiver.h"
#include "console/window_size.h"
#include "dialogs/about.h"
#include "dialogs/advanced_commands.h"
#include "dialogs/extended_commands.h"
#include "dialogs/frm_label.h"
#include "dialogs/frm_settings.h"
#include "dialogs/menu_control.h"
#include "dialogs/type_commands.h"
#include "engine/port_control.h"
#include "engine/port_watch.h"
#include "engine/retransmission.h"
#include "ui/controls.h"
#include "ui/messages.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QScreen>
#include <QStatusBar>
#include <QTime>
#include <QTimer>
#include <QWindow>

#include <cmath>
#include <utility>

namespace quellpad {

using namespace frm_main_parts;
using ui::TwoLines;

namespace {

// How long the end of the program waits for the last stop to leave the ports.
constexpr int kStopLeavesMs = 1000;

} // namespace

FrmMain::FrmMain(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QMainWindow(parent), keyboard_(keyboard), boundary_(this), layout_(kDesignSize) {
    setObjectName(QStringLiteral("FrmMain"));
    setWindowTitle(QStringLiteral("Quellpad"));
    BuildMenus();
    BuildControls();
    ConnectHandlers();
    ConnectTargets();
    new KeyPreview(this, [this](QChar character) { return Form_KeyPress(character); });
    WatchUnansweredQueries();
}

FrmMain::~FrmMain() {
    keyboard_.Watch = nullptr;
}

void FrmMain::ConnectHandlers() {
    auto on = [this](QAction* item, const char* entry, void (FrmMain::*handler)()) {
        connect(item, &QAction::triggered, this,
                [this, entry, handler] { boundary_.Run(entry, [&] { (this->*handler)(); }); });
    };
    auto item = [this](const char* name) {
        return findChild<QAction*>(QLatin1String(name));
    };
    on(Com1Option, "Com1Option_Click", &FrmMain::Com1Option_Click);
    on(Com2Option, "Com2Option_Click", &FrmMain::Com2Option_Click);
    on(item("Settings_Menu_Option"), "Settings_Menu_Option_Click",
       &FrmMain::Settings_Menu_Option_Click);
    on(item("SimulatedSiteOption"), "SimulatedSiteOption_Click",
       &FrmMain::SimulatedSiteOption_Click);
    on(item("mnuTraffic"), "mnuTraffic_Click", &FrmMain::mnuTraffic_Click);
    on(item("mnuScan"), "mnuScan_Click", &FrmMain::mnuScan_Click);
    on(RetransmitTimerOption, "RetransmitTimerOption_Click", &FrmMain::RetransmitTimerOption_Click);
    on(ControlLock, "ControlLock_Click", &FrmMain::ControlLock_Click);
    on(MenuControlOption, "MenuControlOption_Click", &FrmMain::MenuControlOption_Click);
    on(item("Type_Commands_Option"), "Type_Commands_Option_Click",
       &FrmMain::Type_Commands_Option_Click);
    on(AdvancedCommandsOption, "AdvancedCommandsOption_Click",
       &FrmMain::AdvancedCommandsOption_Click);
    on(ExtendedCommands, "ExtendedCommands_Click", &FrmMain::ExtendedCommands_Click);
    on(SetLabelOption, "SetLabelOption_Click", &FrmMain::SetLabelOption_Click);
    on(item("AboutOption"), "AboutOption_Click", &FrmMain::AboutOption_Click);
    on(item("ExitOption"), "ExitOption_Click", &FrmMain::ExitOption_Click);
    on(ASCII_Menu_Option, "ASCII_Menu_Option_Click", &FrmMain::ASCII_Menu_Option_Click);
    on(MUX_ASCII_Option, "MUX_ASCII_Option_Click", &FrmMain::MUX_ASCII_Option_Click);
    on(D_Protocol_Menu_Option, "D_Protocol_Menu_Option_Click",
       &FrmMain::D_Protocol_Menu_Option_Click);
    on(P_Protocol_Menu_Option, "P_Protocol_Menu_Option_Click",
       &FrmMain::P_Protocol_Menu_Option_Click);

    connect(CommandChangeTimer, &QTimer::timeout, this, [this] {
        boundary_.Run("CommandChangeTimer_Timer", [&] { CommandChangeTimer_Timer(); });
    });
    connect(ComPresenceTimer, &QTimer::timeout, this, &FrmMain::EnableComItems);
    connect(RetransmitTimer, &QTimer::timeout, this,
            [this] { boundary_.Run("RetransmitTimer_Timer", [&] { RetransmitTimer_Timer(); }); });
    connect(RetransmitTimeTextBox, &QLineEdit::textChanged, this, [this] {
        boundary_.Run("RetransmitTimeTextBox_Change", [&] { RetransmitTimeTextBox_Change(); });
    });

    for (const LensButton button : kLensButtons) {
        QPushButton* control = LensControl(button);
        // Mouse down and up themselves: pressed and released follow the pointer in and out.
        control->installEventFilter(this);
        connect(control, &QPushButton::clicked, this,
                [this, button] { boundary_.Run("Lens_Click", [&] { Lens_Click(button); }); });
    }

    for (const char* repeating : {"CommandChangeTimer_Timer", "RetransmitTimer_Timer",
                                  "MSComm1_OnComm", "MSComm2_OnComm"}) {
        boundary_.SetRepeating(repeating);
    }
    boundary_.SetStatusSink([this](const QString& subject, int untold, const QString& latest) {
        const int number = subject == PortSubject(2) ? 2 : 1;
        portAlerts_[number - 1] =
            untold == 0
                ? PortAlert{}
                : PortAlert{tr("%1 more since the last message, the latest at %2")
                                .arg(untold)
                                .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss"))),
                            latest};
        UpdatePortBindings();
    });
    WatchForPopups();
    portWatch_ = new PortWatch(keyboard_, this);
    connect(portWatch_, &PortWatch::PortBack, this, &FrmMain::Port_Back);
    for (int number = 1; number <= 2; ++number) {
        ConnectPort(number);
    }
    connect(&keyboard_, &Quellpad_Support_Func::LineReplaced, this, &FrmMain::Port_Rebound);
    connect(&keyboard_, &Quellpad_Support_Func::CommandEchoed, this,
            [this](const QString& com1, const QString& com2) {
                ui::ShowReading(COM1CommandLabel, com1);
                ui::ShowReading(COM2CommandLabel, com2);
            });
}

QString FrmMain::PortSubject(int number) {
    return QStringLiteral("COM %1").arg(number);
}

void FrmMain::ConnectPort(int number) {
    SerialLine* port = &keyboard_.Port(number);
    connect(port, &SerialLine::CommEvent, this, [this, number](int code) {
        boundary_.Run(number == 1 ? "MSComm1_OnComm" : "MSComm2_OnComm",
                      [&] { MSComm_OnComm(number, code); });
    });
    connect(port, &SerialLine::LineFailed, this,
            [this, number](const QString& message) { Port_LineFailed(number, message); });
    // A line that reconnects by itself (a network serial server) says so itself.
    connect(port, &SerialLine::LineRestored, this,
            [this, number](const QString& message) { Port_Back(number, message); });
    // The port stays open while its far end does not read; only what is sent is lost.
    connect(port, &SerialLine::LineStalled, this, [this, number](const QString& message) {
        boundary_.ReportAbout(PortSubject(number), message);
    });
    connect(port, &SerialLine::LineFlowing, this, [this, number](const QString& message) {
        boundary_.ReportAbout(PortSubject(number), message);
    });
}

// ---------------------------------------------------------------------------------------
// Start-up and shutdown

void FrmMain::Form_Load() {
    boundary_.Run("Form_Load", [&] { LoadKeyboard(); });
}

void FrmMain::LoadKeyboard() {
    // The keyboard's face takes the desktop's colours, light, dark or high-contrast alike.
    canvas_->setAutoFillBackground(true);

    const StartUpReport started = StartKeyboardReporting(keyboard_);
    const QStringList& problems = started.problems;

    const QString& mode = keyboard_.CurrentMode;
    if (IsFrameMode(mode)) {
        ui::SetCaption(ZoneNumberLabel, TwoLines(tr("Zone"), NumberCaption()));
    }
    D_Protocol_Menu_Option->setChecked(mode == kModeD);
    P_Protocol_Menu_Option->setChecked(mode == kModeP);
    ASCII_Menu_Option->setChecked(mode == kModeAscii);
    MUX_ASCII_Option->setChecked(mode == kModeMuxAscii);
    H_Protocol_Option->setChecked(false);
    T_Protocol_Option->setChecked(false);

    Com1Option->setChecked(keyboard_.MSComm1().IsOpen());
    Com2Option->setChecked(keyboard_.MSComm2().IsOpen());
    for (int number = 1; number <= 2; ++number) {
        if (keyboard_.EnabledPorts.contains(QString::number(number)) &&
            !keyboard_.Port(number).IsOpen()) {
            portWatch_->Watch(number);
        }
    }

    CommandChangeTimer->setInterval(IsAsciiMode(mode) ? kAsciiModeTick : kFrameModeTick);
    CommandChangeTimer->start();

    ZoneStartOption->setChecked(true);
    FlipOption->setChecked(true);

    UpdateWindowTitle();
    if (mode == kModeAscii) {
        SetResponseCaption(tr("ASCII Response"));
    } else if (mode == kModeP) {
        SetResponseCaption(tr("P Response"));
    } else if (mode == kModeD) {
        SetResponseCaption(tr("D Response"));
    }
    ui::SetCaption(RetransmitTimeLabel, TwoLines(tr("Retransmit"), tr("Time")));

    const QScreen* screen = this->screen();
    const QRect available = screen ? screen->availableGeometry() : QRect(0, 0, 800, 600);
    resize(StartWindowSize(available.size(), ui::TwipsPerPixel(this)));
    // A keyboard larger than the free area with room for a frame (its smallest size on a
    // small screen at a large scale) opens at the area's top left, so that its title bar
    // and menus are on the screen; placed by the window manager it would be centred, its
    // top above the screen.
    const QSize room = available.size() * 0.9;
    if (width() > room.width() || height() > room.height()) {
        move(available.topLeft());
    }

    FillList(ZoneNumberList, {"8", "7", "6", "5", "4", "3", "2", "1"}, 7);
    FillList(PatternNumberListBox, {"10", "9", "8", "7", "6", "5", "4", "3", "2", "1", "0"}, 10);
    FillList(LensSpeedList, {"4", "3", "2", "1"}, 3);

    ApplyModeControls();
    RaiseTimerResolution();
    H_Poll_Timer->stop();
    H_Poll_Timer->setInterval(0);
    for (QAction* unoffered : unofferedItems_) {
        unoffered->setVisible(false);
    }
    H_Protocol_Option->setVisible(false);
    T_Protocol_Option->setVisible(false);
    UpdatePortBindings();
    settingsPlace_->Show(
        tr("Settings: %1")
            .arg(QDir::toNativeSeparators(QFileInfo(keyboard_.SettingsPath).absolutePath())),
        keyboard_.SettingsPath);
    // A window not yet shown has no final size: its first showing lays it out.
    if (isVisible()) {
        LayOut();
    }

    for (const QString& problem : problems) {
        QTimer::singleShot(0, this, [this, problem] { boundary_.Report("Form_Load", problem); });
    }
    // Beside what the ports are bound to, until a port opens, closes or is bound anew
    // (UpdatePortBindings clears it).
    ShowNotice(ClosedAtStartNotice(started.closedPorts));
}

void FrmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    // The smallest size is a hint that a window manager may ignore, and with none at all
    // the display gives whatever was asked: the window grows back to it itself.
    const QSize enforced = AtLeast(size(), minimumSize());
    if (!isMinimized() && enforced != size()) {
        resize(enforced);
    }
}

void FrmMain::closeEvent(QCloseEvent* event) {
    // Nothing is saved at exit; the ports are released and the timer resolution restored.
    CommandChangeTimer->stop();
    RetransmitTimer->stop();
    // A receiver keeps moving until it is told to stop, and has no other way to learn that
    // its keyboard has gone.
    boundary_.Run("Form_QueryUnload", [&] { StopBeforeEnd(); });
    keyboard_.MSComm1().Close();
    keyboard_.MSComm2().Close();
    RestoreTimerResolution();
    event->accept();
}

void FrmMain::StopBeforeEnd() {
    ReleaseHeldControls();
    if (!LoadStop(keyboard_)) {
        return; // at rest: nothing to tell anyone
    }
    SendAndRemember(keyboard_);
    const QDeadlineTimer deadline(kStopLeavesMs);
    for (int number = 1; number <= 2; ++number) {
        if (keyboard_.Port(number).IsOpen()) {
            keyboard_.Port(number).WaitUntilSent(deadline);
        }
    }
}

void FrmMain::ExitOption_Click() {
    close();
}

void FrmMain::UpdateWindowTitle() {
    setWindowTitle(
        tr("Quellpad - Settings (%1, %2, 8, 1)").arg(keyboard_.BaudRate, keyboard_.Parity));
}

void FrmMain::UpdatePortBindings() {
    QStringList parts;
    QStringList alerts;
    for (int number = 1; number <= 2; ++number) {
        const SerialLine& port = keyboard_.Port(number);
        const PortAlert& alert = portAlerts_[number - 1];
        parts << QStringLiteral("COM %1: %2 (%3%4)")
                     .arg(number)
                     .arg(port.Device(), port.IsOpen() ? tr("open") : tr("closed"),
                          alert.count.isEmpty() ? QString() : QStringLiteral("; ") + alert.count);
        if (!alert.latest.isEmpty()) {
            alerts << alert.latest;
        }
    }
    portBindings_->Show(parts.join(QStringLiteral("    ")), alerts.join(u'\n'));
    startNotice_->Show({});
    startNotice_->hide();
    EnableComItems();
}

// ---------------------------------------------------------------------------------------
// Options menu

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
    QAction* own = number == 1 ? Com1Option : Com2Option;
    QAction* other = number == 1 ? Com2Option : Com1Option;
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
        (number == 1 ? COM1CommandLabel : COM2CommandLabel)->clear();
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
            (number == 1 ? Com1Option : Com2Option)->setChecked(open);
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
    (number == 1 ? COM1CommandLabel : COM2CommandLabel)->clear();
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
    RetransmitTimerOption->setChecked(keyboard_.RetransmitOn);
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
        ControlLock->setChecked(false);
        for (const LensButton button : kLensButtons) {
            LensControl(button)->setText(LensPlainCaption(button));
        }
        CentreJoystickBall();
        keyboard_.Command1 = keyboard_.Command2 = keyboard_.Data1 = keyboard_.Data2 = 0;
    } else {
        // The captions stay plain until the first click of each pair shows On or Off.
        keyboard_.ControlLockOn = true;
        ControlLock->setChecked(true);
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
    boundary_.Run("Form_KeyPress", [&] {
        frmMenuControl window(keyboard_, this);
        RunModalWindow(window, true, [this] {
            // Set preset 95, which the receiver takes as the call for its menu.
            keyboard_.Command1 = 0;
            keyboard_.Command2 = 3;
            keyboard_.Data1 = 0;
            keyboard_.Data2 = 95;
            keyboard_.AsciiCommand = QStringLiteral("95^a");
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

// ---------------------------------------------------------------------------------------
// Dispatcher

void FrmMain::CommandChangeTimer_Timer() {
    const bool resend = std::exchange(resendAtNextTick_, false);
    const DispatchOutcome outcome =
        CommandChangeTick(keyboard_, {ZoneStartOption->isChecked(), ZoneEndOption->isChecked(),
                                      AlarmNumberTextBox->text(), resend});
    if (outcome.newInterval) {
        CommandChangeTimer->setInterval(*outcome.newInterval);
    }
    // A control used while no port is open moves nothing: the first time, the operator is
    // told why and what to do, once.
    const bool command = keyboard_.Command1 != 0 || keyboard_.Command2 != 0 ||
                         keyboard_.Data1 != 0 || keyboard_.Data2 != 0 ||
                         (IsAsciiMode(keyboard_.CurrentMode) && !keyboard_.AsciiCommand.isEmpty() &&
                          keyboard_.AsciiCommand != u"sa");
    if (outcome.sent && command && !toldNothingOpen_ && !keyboard_.AnyPortOpen()) {
        toldNothingOpen_ = true;
        ShowNotice(NothingOpenNotice(keyboard_));
    }
}

// ---------------------------------------------------------------------------------------
// Replies

void FrmMain::MSComm_OnComm(int number, int eventCode) {
    const QString& mode = keyboard_.CurrentMode;
    if (eventCode != SerialLine::kDataReceived || number == scanningPort_) {
        return;
    }
    if (!IsAsciiMode(mode) && !IsFrameMode(mode)) {
        keyboard_.TakeInput(number); // a mode that shows no replies drops them
        return;
    }
    QString& response = number == 1 ? keyboard_.Com1Response : keyboard_.Com2Response;
    response += ResponseText(mode, keyboard_.TakeInput(number));
    if (ClearsResponseBox(mode, AccessResponseTextBox->ReceivedLength(), response)) {
        AccessResponseTextBox->Clear();
    }
    AccessResponseTextBox->Append(response);
    if (IsAsciiMode(mode)) {
        if (const auto alarm = AlarmNumberFromReply(response)) {
            AlarmNumberTextBox->setText(*alarm);
        }
    }
    if (typeCommands_ && typeCommands_->isVisible()) {
        typeCommands_->AppendResponse(response);
    }
    response.clear();
}

void FrmMain::Port_LineFailed(int number, const QString& message) {
    // Before the message box, which lets go of the held controls: the stop that follows
    // reaches only the ports still open.
    movingAtFailure_[static_cast<std::size_t>(number - 1)] = ReceiverMayBeMoving(keyboard_);
    // The port stays enabled in Settings.dat: it is reopened when its device comes back.
    (number == 1 ? Com1Option : Com2Option)->setChecked(false);
    (number == 1 ? COM1CommandLabel : COM2CommandLabel)->clear();
    UpdatePortBindings();
    portWatch_->Watch(number);
    boundary_.ReportAbout(PortSubject(number), message);
}

void FrmMain::Port_Back(int number, const QString& message) {
    // Its receiver may have missed the stop while the line was down.
    if (std::exchange(movingAtFailure_[static_cast<std::size_t>(number - 1)], false)) {
        resendAtNextTick_ = true;
    }
    (number == 1 ? Com1Option : Com2Option)->setChecked(true);
    UpdatePortBindings();
    // Good news does not stop the operator: it is read, and heard, in the status bar, and
    // updates the port's failure box if that is still showing.
    boundary_.ReportRecovery(PortSubject(number), message);
    ShowNotice({message, {}});
}

void FrmMain::WatchUnansweredQueries() {
    queryWatch_.tell = [this](const StatusNotice& notice) {
        ShowNotice(notice);
    };
    keyboard_.Watch = &queryWatch_;
}

void FrmMain::ShowNotice(const StatusNotice& notice) {
    startNotice_->Show(notice.text, notice.detail);
    startNotice_->setVisible(!notice.text.isEmpty());
}

} // namespace quellpad
