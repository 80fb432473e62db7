// The main window's menus and controls, and their proportional layout.
#include "console/frm_main.h"
#include "console/frm_main_parts.h"
#include "console/joystick_widgets.h"
#include "console/receiver.h"
#include "console/window_size.h"
#include "engine/port_watch.h"
#include "engine/retransmission.h"
#include "ui/controls.h"
#include "ui/key_filter.h"

#include <QAction>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace quellpad {

using namespace frm_main_parts;
using ui::TwoLines;

namespace {
// The joystick square's side and the knob's diameter, in design units.
constexpr double kSquareSide = 160;
constexpr double kBallSide = 20;
} // namespace

void FrmMain::BuildMenus() {
    OptionsMenu = ui::MakeMenu(this, "OptionsMenu", tr("&Options"));
    Com1Option = ui::MakeItem(OptionsMenu, "Com1Option", QStringLiteral("COM 1"), true);
    Com2Option = ui::MakeItem(OptionsMenu, "Com2Option", QStringLiteral("COM 2"), true);
    // A greyed COM item says why.
    OptionsMenu->setToolTipsVisible(true);
    ui::MakeItem(OptionsMenu, "Settings_Menu_Option", tr("Settings..."));
    ui::MakeItem(OptionsMenu, "SimulatedSiteOption", tr("Simulated Site..."));
    ui::MakeItem(OptionsMenu, "mnuTraffic", tr("Traffic..."));
    ui::MakeItem(OptionsMenu, "mnuScan", tr("Scan for Receivers..."));
    OptionsMenu->addSeparator();
    RetransmitTimerOption =
        ui::MakeItem(OptionsMenu, "RetransmitTimerOption", tr("Retransmit Timer"), true);
    ControlLock = ui::MakeItem(OptionsMenu, "ControlLock", tr("Control Lock"), true);
    MenuControlOption = ui::MakeItem(OptionsMenu, "MenuControlOption", tr("Arrow/Menu Control"));
    ui::MakeItem(OptionsMenu, "Type_Commands_Option", tr("Type Commands..."));
    AdvancedCommandsOption =
        ui::MakeItem(OptionsMenu, "AdvancedCommandsOption", tr("Advanced Commands..."));
    ExtendedCommands = ui::MakeItem(OptionsMenu, "ExtendedCommands", tr("Extended Commands..."));
    SetLabelOption = ui::MakeItem(OptionsMenu, "SetLabelOption", tr("Set Label..."));
    Time_Update_Option =
        ui::MakeItem(OptionsMenu, "Time_Update_Option", tr("Send ASCII Time Update"));
    SendCameraTitleOption =
        ui::MakeItem(OptionsMenu, "SendCameraTitleOption", tr("Send Camera Title"));
    ASCII_CommandDisplayOption =
        ui::MakeItem(OptionsMenu, "ASCII_CommandDisplayOption", tr("ASCII Command Display"), true);
    T_ProtocolCommandsOption =
        ui::MakeItem(OptionsMenu, "T_ProtocolCommandsOption", tr("T Protocol Commands"));
    H_Protocol_Poll = ui::MakeItem(OptionsMenu, "H_Protocol_Poll", tr("H Protocol Poll"), true);
    unofferedItems_ = {
        T_ProtocolCommandsOption,
        ui::MakeItem(OptionsMenu, "FactoryCalibrationOption", tr("Factory Calibration")),
        ui::MakeItem(OptionsMenu, "CommandScriptOption", tr("Command Script")),
        ui::MakeItem(OptionsMenu, "LogFileOption", tr("Log File"), true)};
    OptionsMenu->addSeparator();
    ui::MakeItem(OptionsMenu, "AboutOption", tr("About Quellpad..."));
    ui::MakeItem(OptionsMenu, "ExitOption", tr("Exit"));

    ModeMenu = ui::MakeMenu(this, "ModeMenu", tr("&Mode"));
    D_Protocol_Menu_Option =
        ui::MakeItem(ModeMenu, "D_Protocol_Menu_Option", tr("D Protocol"), true);
    P_Protocol_Menu_Option =
        ui::MakeItem(ModeMenu, "P_Protocol_Menu_Option", tr("P Protocol"), true);
    ASCII_Menu_Option = ui::MakeItem(ModeMenu, "ASCII_Menu_Option", QStringLiteral("ASCII"), true);
    MUX_ASCII_Option =
        ui::MakeItem(ModeMenu, "MUX_ASCII_Option", QStringLiteral("MUX ASCII"), true);
    H_Protocol_Option = ui::MakeItem(ModeMenu, "H_Protocol_Option", tr("H Protocol"), true);
    T_Protocol_Option = ui::MakeItem(ModeMenu, "T_Protocol_Option", tr("T Protocol"), true);

    AuxMenu = ui::MakeMenu(this, "AuxMenu", tr("&Aux"));
    const char* const auxNames[] = {"AuxOnOption",  "AuxOffOption",  "ToggleAuxOption",
                                    "GPI_OnOption", "GPI_OffOption", "ToggleGPI_Option"};
    const std::array<QString, kAuxItems> auxCaptions = BareAuxCaptions();
    for (std::size_t i = 0; i < auxItems_.size(); ++i) {
        auxItems_[i] = ui::MakeItem(AuxMenu, auxNames[i], auxCaptions[i]);
        auxItems_[i]->setEnabled(false);
    }

    MacroMenu = ui::MakeMenu(this, "MacroMenu", tr("Mac&ro"));
    const char* const macroNames[] = {"StartMacroOption",    "HaltMacroOption",
                                      "StartSequenceOption", "HaltSequenceOption",
                                      "StartTourOption",     "HaltTourOption"};
    const std::array<QString, 6> macroCaptions = MacroCaptions(0);
    for (std::size_t i = 0; i < macroItems_.size(); ++i) {
        macroItems_[i] = ui::MakeItem(MacroMenu, macroNames[i], macroCaptions[i]);
        macroItems_[i]->setEnabled(false);
    }

    CamLock_Menu = ui::MakeMenu(this, "CamLock_Menu", tr("&Cam Lock"));
    ui::MakeItem(CamLock_Menu, "LockCam_Option", tr("Lock Current Camera"));
    ui::MakeItem(CamLock_Menu, "UnlockCam_Option", tr("Unlock Current Camera"));
    ui::MakeItem(CamLock_Menu, "OverrideLock_Option", tr("Override Camera Lock"));

    MuxMenu = ui::MakeMenu(this, "MuxMenu", tr("Mu&x"));
    ui::MakeItem(MuxMenu, "DigZoom_Option", tr("Digital Zoom"));
    ui::MakeItem(MuxMenu, "PIP_Option", QStringLiteral("PIP"));
    ui::MakeItem(MuxMenu, "Quad_Option", tr("Quad"));
    ui::MakeItem(MuxMenu, "Nano_Option", tr("Nano"));
    ui::MakeItem(MuxMenu, "Hex_Option", tr("Hex"));
    QMenu* muxCameras = ui::MakeMenu(MuxMenu, "MuxCam_Option", tr("Mux Camera"));
    MuxMenu->addMenu(muxCameras);
    for (int index = 0; index < 16; ++index) {
        QAction* camera = ui::MakeItem(muxCameras, "MuxCam", tr("Cam %1").arg(index + 1));
        camera->setData(index);
    }

    VCR_Menu = ui::MakeMenu(this, "VCR_Menu", tr("&VCR"));
    ui::MakeItem(VCR_Menu, "Eject_Option", tr("Eject"));
    ui::MakeItem(VCR_Menu, "Record_Option", tr("Record"));
    ui::MakeItem(VCR_Menu, "Pause_Option", tr("Pause"));
    ui::MakeItem(VCR_Menu, "FastForward_Option", tr("Fast Forward"));
    ui::MakeItem(VCR_Menu, "Rewind_Option", tr("Rewind"));
    ui::MakeItem(VCR_Menu, "Stop_Option", tr("Stop"));
    ui::MakeItem(VCR_Menu, "Play_Option", tr("Play"));

    MoreCommandsMenu = ui::MakeMenu(this, "MoreCommandsMenu", tr("Mor&e Commands"));
    unofferedItems_.append(
        ui::MakeItem(MoreCommandsMenu, "Constant_Motion_Option", tr("Constant Motion")));

    for (QMenu* menu : {OptionsMenu, ModeMenu, AuxMenu, MacroMenu, CamLock_Menu, MuxMenu, VCR_Menu,
                        MoreCommandsMenu}) {
        menuBar()->addMenu(menu);
    }
}

void FrmMain::BuildControls() {
    canvas_ = new QWidget(this);
    canvas_->setObjectName(QStringLiteral("FrmMainPanel"));
    canvas_->setMouseTracking(true);
    setCentralWidget(canvas_);
    QWidget* c = canvas_;
    auto place = [this](QWidget* control, double x, double y, double w, double h,
                        double points = 8.0) {
        layout_.Place(control, QRectF(x, y, w, h), points);
        return control;
    };

    // A number box with its two-line "... Number" label to its left.
    auto numberBox = [&](QLabel*& label, const char* labelName, QLineEdit*& box,
                         const char* boxName, const QString& what, double x, double y,
                         double labelWidth, double boxWidth) {
        label = ui::MakeLabel(c, labelName, TwoLines(what, NumberCaption()));
        box = ui::MakeTextBox(c, boxName, label);
        place(label, x, y, labelWidth, 28);
        place(box, x + labelWidth + 2, y + 4, boxWidth, 20);
    };

    // Ports: address, and the command last sent on each.
    AddressCOM1Label =
        ui::MakeLabel(c, "AddressCOM1Label", TwoLines(QStringLiteral("COM1"), tr("Address")));
    AddressCOM1_TextBox = ui::MakeTextBox(c, "AddressCOM1_TextBox", AddressCOM1Label);
    AddressCOM2Label =
        ui::MakeLabel(c, "AddressCOM2Label", TwoLines(QStringLiteral("COM2"), tr("Address")));
    AddressCOM2_TextBox = ui::MakeTextBox(c, "AddressCOM2_TextBox", AddressCOM2Label);
    COM1CommandLabel = ui::MakeReadout(c, "COM1CommandLabel", tr("COM1 Command Sent"));
    COM2CommandLabel = ui::MakeReadout(c, "COM2CommandLabel", tr("COM2 Command Sent"));
    for (QLabel* echo : {COM1CommandLabel, COM2CommandLabel}) {
        echo->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        echo->setFrameShape(QFrame::StyledPanel);
        echo->setFrameShadow(QFrame::Sunken);
        echo->setAutoFillBackground(true);
        echo->setStyleSheet(
            QStringLiteral("background: #1e2328; color: #8fe388; padding: 1px 4px;"));
    }
    place(AddressCOM1Label, 6, 4, 50, 28);
    place(AddressCOM1_TextBox, 58, 8, 38, 20);
    place(COM1CommandLabel, 100, 4, 182, 28);
    place(AddressCOM2Label, 6, 36, 50, 28);
    place(AddressCOM2_TextBox, 58, 40, 38, 20);
    place(COM2CommandLabel, 100, 36, 182, 28);

    AccessResponseLabel = ui::MakeLabel(c, "AccessResponseLabel", tr("D Response"));
    AccessResponseTextBox = new ui::LogView(c, kResponseBoxMaximum);
    AccessResponseTextBox->setObjectName(QStringLiteral("AccessResponseTextBox"));
    ui::SetBuddy(AccessResponseLabel, AccessResponseTextBox);
    AccessResponseTextBox->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    place(AccessResponseLabel, 292, 2, 160, 14);
    place(AccessResponseTextBox, 292, 16, 278, 48);

    // Retransmission and lens speed, above the joystick.
    RetransmitTimeLabel =
        ui::MakeLabel(c, "RetransmitTimeLabel", TwoLines(tr("Retransmit"), tr("Time")));
    RetransmitTimeTextBox = ui::MakeTextBox(c, "RetransmitTimeTextBox", RetransmitTimeLabel);
    ui::FilterCharacters(RetransmitTimeTextBox, &RetransmitKeyAccepted);
    RetransmitTimeTextBox->setToolTip(tr("Seconds between repeats, above .05 and below 61"));
    LensSpeedLabel = ui::MakeLabel(c, "LensSpeedLabel", TwoLines(tr("Lens"), tr("Speed")));
    LensSpeedList = ui::MakeList(c, "LensSpeedList", LensSpeedLabel);
    place(RetransmitTimeLabel, 182, 74, 62, 28);
    place(RetransmitTimeTextBox, 246, 78, 40, 20);
    place(LensSpeedLabel, 300, 74, 44, 28);
    place(LensSpeedList, 346, 78, 40, 20);

    // Lens buttons, under the joystick and on to the right edge: zoom, focus and iris, each
    // pair in a column wide enough for the Control Lock captions ("Focus Near Off").
    const double lensX[] = {178, 310, 178, 310, 442, 442};
    const double lensY[] = {0, 0, 1, 1, 0, 1};
    const LensButton lensOrder[] = {LensButton::ZoomIn,   LensButton::FocusNear,
                                    LensButton::ZoomOut,  LensButton::FocusFar,
                                    LensButton::IrisOpen, LensButton::IrisClose};
    for (std::size_t i = 0; i < 6; ++i) {
        const LensButton button = lensOrder[i];
        const QString caption = LensPlainCaption(button);
        QPushButton* control = ui::MakeButton(c, LensButtonName(button), caption);
        lensButtons_[static_cast<std::size_t>(button)] = control;
        layout_.Place(control, QRectF(lensX[i], 326 + lensY[i] * 30, 128, 26), 8.0,
                      {LensOnCaption(button), LensOffCaption(button)});
    }

    // Left column: preset, pattern, aux, macro and zone.
    numberBox(PresetNumberLabel, "PresetNumberLabel", PresetNumberTextBox, "PresetNumberTextBox",
              tr("Preset"), 6, 74, 50, 38);
    PresetGoButton = ui::MakeButton(c, "PresetGoButton", tr("Go"));
    PresetSetButton = ui::MakeButton(c, "PresetSetButton", tr("Set"));
    PresetClearButton = ui::MakeButton(c, "PresetClearButton", tr("Clear"));
    place(PresetGoButton, 100, 74, 34, 24);
    place(PresetSetButton, 136, 74, 34, 24);
    place(PresetClearButton, 100, 100, 70, 20);

    PatternNumberLabel =
        ui::MakeLabel(c, "PatternNumberLabel", TwoLines(tr("Pattern"), NumberCaption()));
    PatternNumberListBox = ui::MakeList(c, "PatternNumberListBox", PatternNumberLabel);
    StartPatternButton = ui::MakeButton(c, "StartPatternButton", tr("Start"));
    EndPatternButton = ui::MakeButton(c, "EndPatternButton", tr("End"));
    RunPatternButton = ui::MakeButton(c, "RunPatternButton", tr("Run"));
    place(PatternNumberLabel, 6, 126, 50, 28);
    place(PatternNumberListBox, 58, 130, 40, 20);
    place(StartPatternButton, 6, 158, 52, 22);
    place(EndPatternButton, 61, 158, 52, 22);
    place(RunPatternButton, 116, 158, 54, 22);

    numberBox(AuxNumberLabel, "AuxNumberLabel", AuxNumberTextBox, "AuxNumberTextBox", tr("Aux/GPI"),
              6, 186, 50, 38);
    // The macro box shares its place with the zone frame: no mode shows both.
    numberBox(MacroNumberLabel, "MacroNumberLabel", MacroNumberTextBox, "MacroNumberTextBox",
              tr("Macro"), 6, 222, 50, 38);

    ZoneFrame = ui::MakeFrame(c, "ZoneFrame", tr("Zone"));
    ZoneStartOption = ui::MakeOption(ZoneFrame, "ZoneStartOption", tr("Zone Start"));
    ZoneEndOption = ui::MakeOption(ZoneFrame, "ZoneEndOption", tr("Zone End"));
    ZoneScanOnOption = ui::MakeOption(ZoneFrame, "ZoneScanOnOption", tr("Zone Scan On"));
    ZoneScanOffOption = ui::MakeOption(ZoneFrame, "ZoneScanOffOption", tr("Zone Scan Off"));
    ZoneNumberLabel =
        ui::MakeLabel(ZoneFrame, "ZoneNumberLabel", TwoLines(tr("Zone"), NumberCaption()));
    ZoneNumberList = ui::MakeList(ZoneFrame, "ZoneNumberList", ZoneNumberLabel);
    ZoneButton = ui::MakeButton(ZoneFrame, "ZoneButton", tr("Send Zone"));
    place(ZoneFrame, 6, 218, 164, 166);
    place(ZoneStartOption, 8, 16, 150, 20);
    place(ZoneEndOption, 8, 36, 150, 20);
    place(ZoneScanOnOption, 8, 56, 150, 20);
    place(ZoneScanOffOption, 8, 76, 150, 20);
    place(ZoneNumberLabel, 8, 100, 54, 28);
    place(ZoneNumberList, 66, 104, 40, 20);
    place(ZoneButton, 8, 134, 148, 24);

    // Right column: the switcher's camera, monitor and alarm in ASCII ...
    numberBox(CameraNumberLabel, "CameraNumberLabel", CameraNumberTextBox, "CameraNumberTextBox",
              tr("Camera"), 400, 74, 56, 56);
    CameraButton = ui::MakeButton(c, "CameraButton", tr("Camera"));
    CamBackwardStepButton = ui::MakeButton(c, "CamBackwardStepButton", tr("Prev Cam"));
    CamForwardStepButton = ui::MakeButton(c, "CamForwardStepButton", tr("Next Cam"));
    place(CameraButton, 518, 76, 52, 24);
    place(CamBackwardStepButton, 458, 102, 54, 22);
    place(CamForwardStepButton, 516, 102, 54, 22);

    numberBox(MonitorNumberLabel, "MonitorNumberLabel", MonitorNumberTextBox,
              "MonitorNumberTextBox", tr("Monitor"), 400, 134, 56, 56);
    MonitorButton = ui::MakeButton(c, "MonitorButton", tr("Monitor"));
    place(MonitorButton, 518, 136, 52, 24);

    numberBox(AlarmNumberLabel, "AlarmNumberLabel", AlarmNumberTextBox, "AlarmNumberTextBox",
              tr("Alarm"), 400, 172, 56, 56);
    AlarmNumberTextBox->setToolTip(tr("One alarm, or a range such as 3..12"));
    TriggerAlarmButton = ui::MakeButton(c, "TriggerAlarmButton", tr("Trigger"));
    ResetAlarmButton = ui::MakeButton(c, "ResetAlarmButton", tr("Reset"));
    Alarm_Backward_Step_Button = ui::MakeButton(c, "Alarm_Backward_Step_Button", tr("Prev Alarm"));
    Alarm_Forward_Step_Button = ui::MakeButton(c, "Alarm_Forward_Step_Button", tr("Next Alarm"));
    place(TriggerAlarmButton, 400, 206, 84, 24);
    place(ResetAlarmButton, 486, 206, 84, 24);
    place(Alarm_Backward_Step_Button, 400, 234, 84, 24);
    place(Alarm_Forward_Step_Button, 486, 234, 84, 24);

    // ... and the receiver's miscellaneous commands in D and P, in the same place.
    MiscFrame = ui::MakeFrame(c, "MiscFrame", tr("Camera Commands"));
    FlipOption = ui::MakeOption(MiscFrame, "FlipOption", tr("Flip"));
    RemoteResetOption = ui::MakeOption(MiscFrame, "RemoteResetOption", tr("Remote Reset"));
    ClearScreenOption = ui::MakeOption(MiscFrame, "ClearScreenOption", tr("Clear Screen"));
    ZoomSpeedOption = ui::MakeOption(MiscFrame, "ZoomSpeedOption", tr("Zoom Speed"));
    FocusSpeedOption = ui::MakeOption(MiscFrame, "FocusSpeedOption", tr("Focus Speed"));
    MiscSendButton = ui::MakeButton(MiscFrame, "MiscSendButton", tr("Send"));
    place(MiscFrame, 400, 74, 170, 182);
    double y = 18;
    for (QRadioButton* option :
         {FlipOption, RemoteResetOption, ClearScreenOption, ZoomSpeedOption, FocusSpeedOption}) {
        place(option, 10, y, 150, 20);
        y += 22;
    }
    place(MiscSendButton, 10, 140, 150, 26);

    // The poll and wiper controls of a protocol this keyboard does not offer.
    H_Data_Frame = ui::MakeFrame(c, "H_Data_Frame", tr("Data"));
    place(H_Data_Frame, 400, 264, 170, 120);
    const char* const dataNames[] = {"UpArrowCommand",    "DownArrowCommand", "LeftArrowCommand",
                                     "RightArrowCommand", "WipeButton",       "H_Poll_Button"};
    const char* const dataCaptions[] = {QT_TR_NOOP("Up"),   QT_TR_NOOP("Down"),
                                        QT_TR_NOOP("Left"), QT_TR_NOOP("Right"),
                                        QT_TR_NOOP("Wipe"), QT_TR_NOOP("Poll")};
    for (std::size_t i = 0; i < 6; ++i) {
        QPushButton* control = ui::MakeButton(H_Data_Frame, dataNames[i], tr(dataCaptions[i]));
        place(control, 8 + static_cast<double>(i % 3) * 52, 20 + static_cast<double>(i / 3) * 28,
              48, 24);
        hDataControls_.append(control);
    }
    QPushButton* wipeWash =
        ui::MakeButton(H_Data_Frame, "WipeWashButton", TwoLines(tr("Wipe/"), tr("Wash")));
    place(wipeWash, 8, 78, 48, 34);
    hDataControls_.append(wipeWash);
    hDataControls_.append(H_Data_Frame);

    // The joystick: placed by LayOut, centred on the rest point.
    square_ = new JoystickSquare(c);
    ball_ = new JoystickBall(c);
    square_->installEventFilter(this);
    canvas_->installEventFilter(this);

    // The bindings and where the settings are kept on one line, and below it a line of its
    // own for news of the ports and advice, so that a sentence reads whole at the window's
    // usual width. The second line keeps its room while empty: news that comes and goes
    // never resizes the keyboard's face under a held joystick.
    auto* status = new QWidget(this);
    auto* lines = new QGridLayout(status);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setVerticalSpacing(0);
    portBindings_ = new ui::StatusText(status, "PortBindingsLabel");
    lines->addWidget(portBindings_, 0, 0);
    lines->setColumnStretch(0, 1);
    // An installed program keeps its settings in the user's folder, not beside it: say where.
    settingsPlace_ = new ui::StatusText(status, "SettingsPlaceLabel");
    lines->addWidget(settingsPlace_, 0, 1);
    startNotice_ = new ui::StatusText(status, "StartNoticeLabel");
    QSizePolicy keepsRoom = startNotice_->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    startNotice_->setSizePolicy(keepsRoom);
    startNotice_->hide();
    lines->addWidget(startNotice_, 1, 0, 1, 2);
    statusBar()->addWidget(status, 1);
    statusBar()->setSizeGripEnabled(true);
    statusBar()->setAccessibleName(tr("Status"));
    // The window's own keys (the menu-access key) must reach it whatever was clicked.
    ui::TakeButtonsOutOfTabOrder(this);

    CommandChangeTimer = ui::MakeTimer(this, "CommandChangeTimer");
    RetransmitTimer = ui::MakeTimer(this, "RetransmitTimer");
    H_Poll_Timer = ui::MakeTimer(this, "H_Poll_Timer");
    ComPresenceTimer = ui::MakeTimer(this, "ComPresenceTimer");
    ComPresenceTimer->setInterval(PortWatch::kPollMs);

    setMinimumSize(MinimumWindowSize(ui::TwipsPerPixel(this)));
}

void FrmMain::LayOut() {
    layout_.Apply(canvas_->size());
    // The one-line lists (ui::OneLineList) fit their items to their boxes as they resize.
    PlaceJoystick();
}

void FrmMain::PlaceJoystick() {
    // The square is centred on the knob's rest point, half the window's outer size, so that
    // the speed rule measures from the square's centre. The outer size is the window's own
    // (menus and status bar included, the window manager's frame not): the frame arrives
    // after the window is shown and changes no size the keyboard is told of, so a rest
    // point taken from it would move under a knob already drawn.
    const double scale = std::min(layout_.ScaleX(), layout_.ScaleY());
    const int side = static_cast<int>(std::lround(kSquareSide * scale));
    // A knob of the square's parity sits exactly on the square's centre at rest, rather
    // than half a pixel beside it.
    int ballSide = static_cast<int>(std::lround(kBallSide * scale));
    ballSide += (side - ballSide) % 2;
    const QRect square =
        CentredSquare(FromTwips(JoystickRestPoint(CurrentJoystickGeometry())), side);
    if (square_->geometry() == square && ball_->width() == ballSide) {
        return;
    }
    square_->setGeometry(square);
    ball_->resize(ballSide, ballSide);
    ball_->raise();
    if (!joystick_.JoystickDragging) {
        CentreJoystickBall();
    }
}

} // namespace quellpad
