#include "console/frm_main.h"

#include "console/dispatcher.h"
#include "console/frm_main_parts.h"
#include "console/handler_names.h"
#include "console/joystick_panel.h"
#include "console/key_preview.h"
#include "console/lens_buttons.h"
#include "console/main_menus.h"
#include "console/mode_setup.h"
#include "console/numbered_targets.h"
#include "console/receiver.h"
#include "console/reply_boxes.h"
#include "console/window_size.h"
#include "dialogs/type_commands.h"
#include "engine/port_control.h"
#include "engine/port_watch.h"
#include "engine/retransmission.h"
#include "engine/words.h"
#include "ui/controls.h"
#include "ui/messages.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QScreen>
#include <QStatusBar>
#include <QTime>
#include <QTimer>

#include <cmath>
#include <utility>

namespace quellpad {

using namespace handler_names;

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
    menus_ = std::make_unique<MainMenus>(this);
    BuildControls();
    ConnectHandlers();
    replies_->ConnectAddresses();
    targets_->Connect(*menus_, CommandChangeTimer, lens_->LensSpeedList);
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
    const MainMenus& m = *menus_;
    on(m.Com1Option, kCom1OptionClick, &FrmMain::Com1Option_Click);
    on(m.Com2Option, kCom2OptionClick, &FrmMain::Com2Option_Click);
    on(m.Settings_Menu_Option, kSettingsMenuOptionClick, &FrmMain::Settings_Menu_Option_Click);
    on(m.SimulatedSiteOption, kSimulatedSiteOptionClick, &FrmMain::SimulatedSiteOption_Click);
    on(m.mnuTraffic, kTrafficClick, &FrmMain::mnuTraffic_Click);
    on(m.mnuScan, kScanClick, &FrmMain::mnuScan_Click);
    on(m.RetransmitTimerOption, kRetransmitTimerOptionClick, &FrmMain::RetransmitTimerOption_Click);
    on(m.ControlLock, kControlLockClick, &FrmMain::ControlLock_Click);
    on(m.MenuControlOption, kMenuControlOptionClick, &FrmMain::MenuControlOption_Click);
    on(m.Type_Commands_Option, kTypeCommandsOptionClick, &FrmMain::Type_Commands_Option_Click);
    on(m.AdvancedCommandsOption, kAdvancedCommandsOptionClick,
       &FrmMain::AdvancedCommandsOption_Click);
    on(m.ExtendedCommands, kExtendedCommandsClick, &FrmMain::ExtendedCommands_Click);
    on(m.SetLabelOption, kSetLabelOptionClick, &FrmMain::SetLabelOption_Click);
    on(m.AboutOption, kAboutOptionClick, &FrmMain::AboutOption_Click);
    on(m.ExitOption, kExitOptionClick, &FrmMain::ExitOption_Click);
    modes_->Connect(this, boundary_);

    connect(CommandChangeTimer, &QTimer::timeout, this,
            [this] { boundary_.Run(kCommandChangeTimer, [&] { CommandChangeTimer_Timer(); }); });
    connect(ComPresenceTimer, &QTimer::timeout, this, &FrmMain::EnableComItems);
    connect(RetransmitTimer, &QTimer::timeout, this,
            [this] { boundary_.Run(kRetransmitTimer, [&] { RetransmitTimer_Timer(); }); });
    connect(RetransmitTimeTextBox, &QLineEdit::textChanged, this, [this] {
        boundary_.Run(kRetransmitTimeTextBoxChange, [&] { RetransmitTimeTextBox_Change(); });
    });
    lens_->Connect();

    for (const char* repeating : kRepeating) {
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
                ui::ShowReading(replies_->CommandLabel(1), com1);
                ui::ShowReading(replies_->CommandLabel(2), com2);
            });
}

QString FrmMain::PortSubject(int number) {
    return QStringLiteral("COM %1").arg(number);
}

void FrmMain::ConnectPort(int number) {
    SerialLine* port = &keyboard_.Port(number);
    connect(port, &SerialLine::CommEvent, this, [this, number](int code) {
        boundary_.Run(number == 1 ? kMSComm1OnComm : kMSComm2OnComm,
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
    boundary_.Run(kFormLoad, [&] { LoadKeyboard(); });
}

void FrmMain::LoadKeyboard() {
    // The keyboard's face takes the desktop's colours, light, dark or high-contrast alike.
    canvas_->setAutoFillBackground(true);

    const StartUpReport started = StartKeyboardReporting(keyboard_);
    const QStringList& problems = started.problems;

    const QString& mode = keyboard_.CurrentMode;
    if (IsFrameMode(mode)) {
        ui::SetCaption(targets_->ZoneNumberLabel, TwoLines(tr("Zone"), NumberCaption()));
    }
    menus_->D_Protocol_Menu_Option->setChecked(mode == kModeD);
    menus_->P_Protocol_Menu_Option->setChecked(mode == kModeP);
    menus_->ASCII_Menu_Option->setChecked(mode == kModeAscii);
    menus_->MUX_ASCII_Option->setChecked(mode == kModeMuxAscii);
    menus_->H_Protocol_Option->setChecked(false);
    menus_->T_Protocol_Option->setChecked(false);

    menus_->Com1Option->setChecked(keyboard_.MSComm1().IsOpen());
    menus_->Com2Option->setChecked(keyboard_.MSComm2().IsOpen());
    for (int number = 1; number <= 2; ++number) {
        if (keyboard_.EnabledPorts.contains(QString::number(number)) &&
            !keyboard_.Port(number).IsOpen()) {
            portWatch_->Watch(number);
        }
    }

    CommandChangeTimer->setInterval(IsAsciiMode(mode) ? kAsciiModeTick : kFrameModeTick);
    CommandChangeTimer->start();

    targets_->ZoneStartOption->setChecked(true);
    targets_->FlipOption->setChecked(true);

    UpdateWindowTitle();
    if (mode == kModeAscii) {
        replies_->SetResponseCaption(tr("ASCII Response"));
    } else if (mode == kModeP) {
        replies_->SetResponseCaption(tr("P Response"));
    } else if (mode == kModeD) {
        replies_->SetResponseCaption(tr("D Response"));
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

    FillList(targets_->ZoneNumberList, {"8", "7", "6", "5", "4", "3", "2", "1"}, 7);
    FillList(targets_->PatternNumberListBox,
             {"10", "9", "8", "7", "6", "5", "4", "3", "2", "1", "0"}, 10);
    FillList(lens_->LensSpeedList, {"4", "3", "2", "1"}, 3);

    modes_->ApplyModeControls();
    RaiseTimerResolution();
    H_Poll_Timer->stop();
    H_Poll_Timer->setInterval(0);
    for (QAction* unoffered : menus_->unofferedItems) {
        unoffered->setVisible(false);
    }
    menus_->H_Protocol_Option->setVisible(false);
    menus_->T_Protocol_Option->setVisible(false);
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
        QTimer::singleShot(0, this, [this, problem] { boundary_.Report(kFormLoad, problem); });
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
    boundary_.Run(kFormQueryUnload, [&] { StopBeforeEnd(); });
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
// Dispatcher

void FrmMain::CommandChangeTimer_Timer() {
    const bool resend = std::exchange(resendAtNextTick_, false);
    const DispatchOutcome outcome = CommandChangeTick(
        keyboard_, {targets_->ZoneStartOption->isChecked(), targets_->ZoneEndOption->isChecked(),
                    targets_->AlarmNumberTextBox->text(), resend});
    if (outcome.newInterval) {
        CommandChangeTimer->setInterval(*outcome.newInterval);
    }
    // A control used while no port is open moves nothing: the first time, the operator is
    // told why and what to do, once.
    const bool command = keyboard_.Command1 != 0 || keyboard_.Command2 != 0 ||
                         keyboard_.Data1 != 0 || keyboard_.Data2 != 0 ||
                         (IsAsciiMode(keyboard_.CurrentMode) && !keyboard_.AsciiCommand.isEmpty() &&
                          keyboard_.AsciiCommand != Word(protocol::Kind::StopAll));
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
    replies_->ShowResponse(mode, response);
    if (IsAsciiMode(mode)) {
        if (const auto alarm = AlarmNumberFromReply(response)) {
            targets_->AlarmNumberTextBox->setText(*alarm);
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
    (number == 1 ? menus_->Com1Option : menus_->Com2Option)->setChecked(false);
    replies_->CommandLabel(number)->clear();
    UpdatePortBindings();
    portWatch_->Watch(number);
    boundary_.ReportAbout(PortSubject(number), message);
}

void FrmMain::Port_Back(int number, const QString& message) {
    // Its receiver may have missed the stop while the line was down.
    if (std::exchange(movingAtFailure_[static_cast<std::size_t>(number - 1)], false)) {
        resendAtNextTick_ = true;
    }
    (number == 1 ? menus_->Com1Option : menus_->Com2Option)->setChecked(true);
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
