// The main window's menus and controls, and their proportional layout.
#include "console/frm_main.h"
#include "console/frm_main_parts.h"
#include "console/joystick_widgets.h"
#include "console/receiver.h"
#include "console/window_size.h"
#include "engine/retransmission.h"
#include "ui/controls.h"
#include "ui/key_filter.h"

#include <QAction>
#include <QFontDatabase>
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
    OptionsMenu = ui::MakeMenu(this, "OptionsMenu", QStringLiteral("&Options"));
    Com1Option = ui::MakeItem(OptionsMenu, "Com1Option", QStringLiteral("COM 1"), true);
    Com2Option = ui::MakeItem(OptionsMenu, "Com2Option", QStringLiteral("COM 2"), true);
    ui::MakeItem(OptionsMenu, "Settings_Menu_Option", QStringLiteral("Settings..."));
    ui::MakeItem(OptionsMenu, "SimulatedSiteOption", QStringLiteral("Simulated Site..."));
    ui::MakeItem(OptionsMenu, "mnuTraffic", QStringLiteral("Traffic..."));
    ui::MakeItem(OptionsMenu, "mnuScan", QStringLiteral("Scan for Receivers..."));
    OptionsMenu->addSeparator();
    RetransmitTimerOption = ui::MakeItem(OptionsMenu, "RetransmitTimerOption",
                                         QStringLiteral("Retransmit Timer"), true);
    ControlLock = ui::MakeItem(OptionsMenu, "ControlLock", QStringLiteral("Control Lock"), true);
    MenuControlOption =
        ui::MakeItem(OptionsMenu, "MenuControlOption", QStringLiteral("Arrow/Menu Control"));
    ui::MakeItem(OptionsMenu, "Type_Commands_Option", QStringLiteral("Type Commands..."));
    AdvancedCommandsOption =
        ui::MakeItem(OptionsMenu, "AdvancedCommandsOption", QStringLiteral("Advanced Commands..."));
    ExtendedCommands =
        ui::MakeItem(OptionsMenu, "ExtendedCommands", QStringLiteral("Extended Commands..."));
    SetLabelOption = ui::MakeItem(OptionsMenu, "SetLabelOption", QStringLiteral("Set Label..."));
    Time_Update_Option =
        ui::MakeItem(OptionsMenu, "Time_Update_Option", QStringLiteral("Send ASCII Time Update"));
    SendCameraTitleOption =
        ui::MakeItem(OptionsMenu, "SendCameraTitleOption", QStringLiteral("Send Camera Title"));
    ASCII_CommandDisplayOption = ui::MakeItem(OptionsMenu, "ASCII_CommandDisplayOption",
                                              QStringLiteral("ASCII Command Display"), true);
    T_ProtocolCommandsOption = ui::MakeItem(OptionsMenu, "T_ProtocolCommandsOption",
                                            QStringLiteral("T Protocol Commands"));
    H_Protocol_Poll =
        ui::MakeItem(OptionsMenu, "H_Protocol_Poll", QStringLiteral("H Protocol Poll"), true);
    unofferedItems_ = {
        T_ProtocolCommandsOption,
        ui::MakeItem(OptionsMenu, "FactoryCalibrationOption",
                     QStringLiteral("Factory Calibration")),
        ui::MakeItem(OptionsMenu, "CommandScriptOption", QStringLiteral("Command Script")),
        ui::MakeItem(OptionsMenu, "LogFileOption", QStringLiteral("Log File"), true)};
    OptionsMenu->addSeparator();
    ui::MakeItem(OptionsMenu, "AboutOption", QStringLiteral("About Quellpad..."));
    ui::MakeItem(OptionsMenu, "ExitOption", QStringLiteral("Exit"));

    ModeMenu = ui::MakeMenu(this, "ModeMenu", QStringLiteral("&Mode"));
    D_Protocol_Menu_Option =
        ui::MakeItem(ModeMenu, "D_Protocol_Menu_Option", QStringLiteral("D Protocol"), true);
    P_Protocol_Menu_Option =
        ui::MakeItem(ModeMenu, "P_Protocol_Menu_Option", QStringLiteral("P Protocol"), true);
    ASCII_Menu_Option = ui::MakeItem(ModeMenu, "ASCII_Menu_Option", QStringLiteral("ASCII"), true);
    MUX_ASCII_Option =
        ui::MakeItem(ModeMenu, "MUX_ASCII_Option", QStringLiteral("MUX ASCII"), true);
    HernisProtocolOption =
        ui::MakeItem(ModeMenu, "HernisProtocolOption", QStringLiteral("H Protocol"), true);
    T_Protocol_Option =
        ui::MakeItem(ModeMenu, "T_Protocol_Option", QStringLiteral("T Protocol"), true);

    AuxMenu = ui::MakeMenu(this, "AuxMenu", QStringLiteral("&Aux"));
    const char* const auxNames[] = {"AuxOnOption",  "AuxOffOption",  "ToggleAuxOption",
                                    "GPI_OnOption", "GPI_OffOption", "ToggleGPI_Option"};
    const char* const auxCaptions[] = {"Aux ON", "Aux OFF", "Toggle Aux",
                                       "GPI ON", "GPI OFF", "Toggle GPI"};
    for (std::size_t i = 0; i < auxItems_.size(); ++i) {
        auxItems_[i] = ui::MakeItem(AuxMenu, auxNames[i], QLatin1String(auxCaptions[i]));
        auxItems_[i]->setEnabled(false);
    }

    MacroMenu = ui::MakeMenu(this, "MacroMenu", QStringLiteral("Mac&ro"));
    const char* const macroNames[] = {"StartMacroOption",    "HaltMacroOption",
                                      "StartSequenceOption", "HaltSequenceOption",
                                      "StartTourOption",     "HaltTourOption"};
    const char* const macroCaptions[] = {"Start Macro",   "Halt Macro", "Start Sequence",
                                         "Halt Sequence", "Start Tour", "Halt Tour"};
    for (std::size_t i = 0; i < macroItems_.size(); ++i) {
        macroItems_[i] = ui::MakeItem(MacroMenu, macroNames[i], QLatin1String(macroCaptions[i]));
        macroItems_[i]->setEnabled(false);
    }

    CamLock_Menu = ui::MakeMenu(this, "CamLock_Menu", QStringLiteral("&Cam Lock"));
    ui::MakeItem(CamLock_Menu, "LockCam_Option", QStringLiteral("Lock Current Camera"));
    ui::MakeItem(CamLock_Menu, "UnlockCam_Option", QStringLiteral("Unlock Current Camera"));
    ui::MakeItem(CamLock_Menu, "OverrideLock_Option", QStringLiteral("Override Camera Lock"));

    MuxMenu = ui::MakeMenu(this, "MuxMenu", QStringLiteral("Mu&x"));
    ui::MakeItem(MuxMenu, "DigZoom_Option", QStringLiteral("Digital Zoom"));
    ui::MakeItem(MuxMenu, "PIP_Option", QStringLiteral("PIP"));
    ui::MakeItem(MuxMenu, "Quad_Option", QStringLiteral("Quad"));
    ui::MakeItem(MuxMenu, "Nano_Option", QStringLiteral("Nano"));
    ui::MakeItem(MuxMenu, "Hex_Option", QStringLiteral("Hex"));
    QMenu* muxCameras = ui::MakeMenu(MuxMenu, "MuxCam_Option", QStringLiteral("Mux Camera"));
    MuxMenu->addMenu(muxCameras);
    for (int index = 0; index < 16; ++index) {
        QAction* camera =
            ui::MakeItem(muxCameras, "MuxCam", QStringLiteral("Cam %1").arg(index + 1));
        camera->setData(index);
    }

    VCR_Menu = ui::MakeMenu(this, "VCR_Menu", QStringLiteral("&VCR"));
    ui::MakeItem(VCR_Menu, "Eject_Option", QStringLiteral("Eject"));
    ui::MakeItem(VCR_Menu, "Record_Option", QStringLiteral("Record"));
    ui::MakeItem(VCR_Menu, "Pause_Option", QStringLiteral("Pause"));
    ui::MakeItem(VCR_Menu, "FastForward_Option", QStringLiteral("Fast Forward"));
    ui::MakeItem(VCR_Menu, "Rewind_Option", QStringLiteral("Rewind"));
    ui::MakeItem(VCR_Menu, "Stop_Option", QStringLiteral("Stop"));
    ui::MakeItem(VCR_Menu, "Play_Option", QStringLiteral("Play"));

    MoreCommandsMenu = ui::MakeMenu(this, "MoreCommandsMenu", QStringLiteral("Mor&e Commands"));
    unofferedItems_.append(ui::MakeItem(MoreCommandsMenu, "Constant_Motion_Option",
                                        QStringLiteral("Constant Motion")));

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
        label = ui::MakeLabel(c, labelName, TwoLines(what, kNumber));
        box = ui::MakeTextBox(c, boxName, label);
        place(label, x, y, labelWidth, 28);
        place(box, x + labelWidth + 2, y + 4, boxWidth, 20);
    };

    // Ports: address, and the command last sent on each.
    AddressCOM1Label = ui::MakeLabel(c, "AddressCOM1Label", TwoLines("COM1", "Address"));
    AddressCOM1_TextBox = ui::MakeTextBox(c, "AddressCOM1_TextBox", AddressCOM1Label);
    AddressCOM2Label = ui::MakeLabel(c, "AddressCOM2Label", TwoLines("COM2", "Address"));
    AddressCOM2_TextBox = ui::MakeTextBox(c, "AddressCOM2_TextBox", AddressCOM2Label);
    COM1CommandLabel = ui::MakeReadout(c, "COM1CommandLabel", QStringLiteral("COM1 Command Sent"));
    COM2CommandLabel = ui::MakeReadout(c, "COM2CommandLabel", QStringLiteral("COM2 Command Sent"));
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

    AccessResponseLabel = ui::MakeLabel(c, "AccessResponseLabel", QStringLiteral("D Response"));
    AccessResponseTextBox = new ui::LogView(c, kResponseBoxMaximum);
    AccessResponseTextBox->setObjectName(QStringLiteral("AccessResponseTextBox"));
    ui::SetBuddy(AccessResponseLabel, AccessResponseTextBox);
    AccessResponseTextBox->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    place(AccessResponseLabel, 292, 2, 160, 14);
    place(AccessResponseTextBox, 292, 16, 278, 48);

    // Retransmission and lens speed, above the joystick.
    RetransmitTimeLabel = ui::MakeLabel(c, "RetransmitTimeLabel", TwoLines("Retransmit", "Time"));
    RetransmitTimeTextBox = ui::MakeTextBox(c, "RetransmitTimeTextBox", RetransmitTimeLabel);
    ui::FilterCharacters(RetransmitTimeTextBox, &RetransmitKeyAccepted);
    RetransmitTimeTextBox->setToolTip(
        QStringLiteral("Seconds between repeats, above .05 and below 61"));
    LensSpeedLabel = ui::MakeLabel(c, "LensSpeedLabel", TwoLines("Lens", "Speed"));
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
                      {caption + QStringLiteral(" On"), caption + QStringLiteral(" Off")});
    }

    // Left column: preset, pattern, aux, macro and zone.
    numberBox(PresetNumberLabel, "PresetNumberLabel", PresetNumberTextBox, "PresetNumberTextBox",
              QStringLiteral("Preset"), 6, 74, 50, 38);
    PresetGoButton = ui::MakeButton(c, "PresetGoButton", QStringLiteral("Go"));
    PresetSetButton = ui::MakeButton(c, "PresetSetButton", QStringLiteral("Set"));
    PresetClearButton = ui::MakeButton(c, "PresetClearButton", QStringLiteral("Clear"));
    place(PresetGoButton, 100, 74, 34, 24);
    place(PresetSetButton, 136, 74, 34, 24);
    place(PresetClearButton, 100, 100, 70, 20);

    PatternNumberLabel = ui::MakeLabel(c, "PatternNumberLabel", TwoLines("Pattern", kNumber));
    PatternNumberListBox = ui::MakeList(c, "PatternNumberListBox", PatternNumberLabel);
    StartPatternButton = ui::MakeButton(c, "StartPatternButton", QStringLiteral("Start"));
    EndPatternButton = ui::MakeButton(c, "EndPatternButton", QStringLiteral("End"));
    RunPatternButton = ui::MakeButton(c, "RunPatternButton", QStringLiteral("Run"));
    place(PatternNumberLabel, 6, 126, 50, 28);
    place(PatternNumberListBox, 58, 130, 40, 20);
    place(StartPatternButton, 6, 158, 52, 22);
    place(EndPatternButton, 61, 158, 52, 22);
    place(RunPatternButton, 116, 158, 54, 22);

    numberBox(AuxNumberLabel, "AuxNumberLabel", AuxNumberTextBox, "AuxNumberTextBox",
              QStringLiteral("Aux/GPI"), 6, 186, 50, 38);
    // The macro box shares its place with the zone frame: no mode shows both.
    numberBox(MacroNumberLabel, "MacroNumberLabel", MacroNumberTextBox, "MacroNumberTextBox",
              QStringLiteral("Macro"), 6, 222, 50, 38);

    ZoneFrame = ui::MakeFrame(c, "ZoneFrame", QStringLiteral("Zone"));
    ZoneStartOption = ui::MakeOption(ZoneFrame, "ZoneStartOption", QStringLiteral("Zone Start"));
    ZoneEndOption = ui::MakeOption(ZoneFrame, "ZoneEndOption", QStringLiteral("Zone End"));
    ZoneScanOnOption =
        ui::MakeOption(ZoneFrame, "ZoneScanOnOption", QStringLiteral("Zone Scan On"));
    ZoneScanOffOption =
        ui::MakeOption(ZoneFrame, "ZoneScanOffOption", QStringLiteral("Zone Scan Off"));
    ZoneNumberLabel = ui::MakeLabel(ZoneFrame, "ZoneNumberLabel", TwoLines("Zone", kNumber));
    ZoneNumberList = ui::MakeList(ZoneFrame, "ZoneNumberList", ZoneNumberLabel);
    ZoneButton = ui::MakeButton(ZoneFrame, "ZoneButton", QStringLiteral("Send Zone"));
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
              QStringLiteral("Camera"), 400, 74, 56, 56);
    CameraButton = ui::MakeButton(c, "CameraButton", QStringLiteral("Camera"));
    CamBackwardStepButton = ui::MakeButton(c, "CamBackwardStepButton", QStringLiteral("Prev Cam"));
    CamForwardStepButton = ui::MakeButton(c, "CamForwardStepButton", QStringLiteral("Next Cam"));
    place(CameraButton, 518, 76, 52, 24);
    place(CamBackwardStepButton, 458, 102, 54, 22);
    place(CamForwardStepButton, 516, 102, 54, 22);

    numberBox(MonitorNumberLabel, "MonitorNumberLabel", MonitorNumberTextBox,
              "MonitorNumberTextBox", QStringLiteral("Monitor"), 400, 134, 56, 56);
    MonitorButton = ui::MakeButton(c, "MonitorButton", QStringLiteral("Monitor"));
    place(MonitorButton, 518, 136, 52, 24);

    numberBox(AlarmNumberLabel, "AlarmNumberLabel", AlarmNumberTextBox, "AlarmNumberTextBox",
              QStringLiteral("Alarm"), 400, 172, 56, 56);
    AlarmNumberTextBox->setToolTip(QStringLiteral("One alarm, or a range such as 3..12"));
    TriggerAlarmButton = ui::MakeButton(c, "TriggerAlarmButton", QStringLiteral("Trigger"));
    ResetAlarmButton = ui::MakeButton(c, "ResetAlarmButton", QStringLiteral("Reset"));
    Alarm_Backward_Step_Button =
        ui::MakeButton(c, "Alarm_Backward_Step_Button", QStringLiteral("Prev Alarm"));
    Alarm_Forward_Step_Button =
        ui::MakeButton(c, "Alarm_Forward_Step_Button", QStringLiteral("Next Alarm"));
    place(TriggerAlarmButton, 400, 206, 84, 24);
    place(ResetAlarmButton, 486, 206, 84, 24);
    place(Alarm_Backward_Step_Button, 400, 234, 84, 24);
    place(Alarm_Forward_Step_Button, 486, 234, 84, 24);

    // ... and the receiver's miscellaneous commands in D and P, in the same place.
    MiscFrame = ui::MakeFrame(c, "MiscFrame", QStringLiteral("Camera Commands"));
    FlipOption = ui::MakeOption(MiscFrame, "FlipOption", QStringLiteral("Flip"));
    RemoteResetOption =
        ui::MakeOption(MiscFrame, "RemoteResetOption", QStringLiteral("Remote Reset"));
    ClearScreenOption =
        ui::MakeOption(MiscFrame, "ClearScreenOption", QStringLiteral("Clear Screen"));
    ZoomSpeedOption = ui::MakeOption(MiscFrame, "ZoomSpeedOption", QStringLiteral("Zoom Speed"));
    FocusSpeedOption = ui::MakeOption(MiscFrame, "FocusSpeedOption", QStringLiteral("Focus Speed"));
    MiscSendButton = ui::MakeButton(MiscFrame, "MiscSendButton", QStringLiteral("Send"));
    place(MiscFrame, 400, 74, 170, 182);
    double y = 18;
    for (QRadioButton* option :
         {FlipOption, RemoteResetOption, ClearScreenOption, ZoomSpeedOption, FocusSpeedOption}) {
        place(option, 10, y, 150, 20);
        y += 22;
    }
    place(MiscSendButton, 10, 140, 150, 26);

    // The poll and wiper controls of a protocol this keyboard does not offer.
    HernisDataFrame = ui::MakeFrame(c, "HernisDataFrame", QStringLiteral("Data"));
    place(HernisDataFrame, 400, 264, 170, 120);
    const char* const hernisNames[] = {"UpArrowCommand",    "DownArrowCommand", "LeftArrowCommand",
                                       "RightArrowCommand", "WipeButton",       "HernisPollButton"};
    const char* const hernisCaptions[] = {"Up", "Down", "Left", "Right", "Wipe", "Poll"};
    for (std::size_t i = 0; i < 6; ++i) {
        QPushButton* control =
            ui::MakeButton(HernisDataFrame, hernisNames[i], QLatin1String(hernisCaptions[i]));
        place(control, 8 + static_cast<double>(i % 3) * 52, 20 + static_cast<double>(i / 3) * 28,
              48, 24);
        hernisControls_.append(control);
    }
    QPushButton* wipeWash =
        ui::MakeButton(HernisDataFrame, "WipeWashButton", TwoLines("Wipe/", "Wash"));
    place(wipeWash, 8, 78, 48, 34);
    hernisControls_.append(wipeWash);
    hernisControls_.append(HernisDataFrame);

    // The joystick: placed by LayOut, centred on the rest point.
    square_ = new JoystickSquare(c);
    ball_ = new JoystickBall(c);
    square_->installEventFilter(this);
    canvas_->installEventFilter(this);

    portBindings_ = new ui::StatusText(this, "PortBindingsLabel");
    statusBar()->addWidget(portBindings_, 1);
    startNotice_ = new ui::StatusText(this, "StartNoticeLabel");
    startNotice_->hide();
    statusBar()->addWidget(startNotice_, 1);
    // An installed program keeps its settings in the user's folder, not beside it: say where.
    settingsPlace_ = new ui::StatusText(this, "SettingsPlaceLabel");
    statusBar()->addPermanentWidget(settingsPlace_);
    statusBar()->setSizeGripEnabled(true);
    statusBar()->setAccessibleName(QStringLiteral("Status"));
    // The window's own keys (the menu-access key) must reach it whatever was clicked.
    ui::TakeButtonsOutOfTabOrder(this);

    CommandChangeTimer = ui::MakeTimer(this, "CommandChangeTimer");
    RetransmitTimer = ui::MakeTimer(this, "RetransmitTimer");
    HernisPollTimer = ui::MakeTimer(this, "HernisPollTimer");

    setMinimumSize(MinimumWindowSize(ui::TwipsPerPixel(this)));
}

void FrmMain::LayOut() {
    layout_.Apply(canvas_->size());
    // The one-line lists (ui::OneLineList) fit their items to their boxes as they resize.
    PlaceJoystick();
}

void FrmMain::PlaceJoystick() {
    // The square is centred on the knob's rest point, half the window's outer size, so that
    // the speed rule measures from the square's centre. The outer size can change without
    // the client area changing (a window manager adding its frame), so this is checked
    // again at every press.
    const QSize outer = frameGeometry().size();
    const double scale = std::min(layout_.ScaleX(), layout_.ScaleY());
    const int side = static_cast<int>(std::lround(kSquareSide * scale));
    const int ballSide = static_cast<int>(std::lround(kBallSide * scale));
    const QPoint rest(outer.width() / 2, outer.height() / 2);
    const QRect square(rest.x() - side / 2, rest.y() - side / 2, side, side);
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
