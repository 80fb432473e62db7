#include "frm_main.h"

#include "console/dispatcher.h"
#include "console/joystick_widgets.h"
#include "console/receiver.h"
#include "dialogs/command_windows.h"
#include "dialogs/frm_settings.h"
#include "engine/port_control.h"
#include "engine/retransmission.h"
#include "ui/controls.h"
#include "ui/messages.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QScreen>
#include <QStatusBar>
#include <QTextDocument>
#include <QTimer>

#include <cmath>

namespace quellpad {

namespace {

using ui::TwoLines;

// The client area the controls are designed for; everything scales from it.
constexpr QSizeF kDesignSize{576, 390};
// Smallest outer size of the window, in twips.
constexpr double kMinimumWidthTwips = 8640;
constexpr double kMinimumHeightTwips = 6480;
// The joystick square's side and the knob's diameter, in design units.
constexpr double kSquareSide = 160;
constexpr double kBallSide = 20;

const QString kNumber = QStringLiteral("Number");

void Show(QWidget* control, bool shown) {
    control->setVisible(shown);
}
void Show(QAction* item, bool shown) {
    item->setVisible(shown);
}
void Enable(QMenu* menu, bool enabled) {
    menu->menuAction()->setEnabled(enabled);
}

int ButtonCode(Qt::MouseButtons buttons) {
    int code = 0;
    if (buttons & Qt::LeftButton) {
        code |= kLeftButton;
    }
    if (buttons & Qt::RightButton) {
        code |= kRightButton;
    }
    if (buttons & Qt::MiddleButton) {
        code |= 4;
    }
    return code;
}

void FillList(QListWidget* list, const QStringList& items, int selected) {
    list->clear();
    list->addItems(items);
    list->setCurrentRow(selected);
    list->scrollToItem(list->item(selected));
}

} // namespace

FrmMain::FrmMain(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QMainWindow(parent), keyboard_(keyboard), boundary_(this), layout_(kDesignSize) {
    setObjectName(QStringLiteral("FrmMain"));
    setWindowTitle(QStringLiteral("Quellpad"));
    setAccessibleName(QStringLiteral("Quellpad"));
    BuildMenus();
    BuildControls();
    ConnectHandlers();
    const double twips = ui::TwipsPerPixel(this);
    setMinimumSize(static_cast<int>(std::ceil(kMinimumWidthTwips / twips)),
                   static_cast<int>(std::ceil(kMinimumHeightTwips / twips)));
}

FrmMain::~FrmMain() = default;

// ---------------------------------------------------------------------------------------
// Construction

void FrmMain::BuildMenus() {
    OptionsMenu = ui::MakeMenu(this, "OptionsMenu", QStringLiteral("&Options"));
    Com1Option = ui::MakeItem(OptionsMenu, "Com1Option", QStringLiteral("COM 1"), true);
    Com2Option = ui::MakeItem(OptionsMenu, "Com2Option", QStringLiteral("COM 2"), true);
    ui::MakeItem(OptionsMenu, "Settings_Menu_Option", QStringLiteral("Settings..."));
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

    MoreCommandsMenu = ui::MakeMenu(this, "MoreCommandsMenu", QStringLiteral("Mo&re Commands"));
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

    // Ports: address, and the command last sent on each.
    AddressCOM1Label = ui::MakeLabel(c, "AddressCOM1Label", TwoLines("COM1", "Address"));
    AddressCOM1_TextBox = ui::MakeTextBox(c, "AddressCOM1_TextBox", QStringLiteral("COM1 Address"));
    AddressCOM2Label = ui::MakeLabel(c, "AddressCOM2Label", TwoLines("COM2", "Address"));
    AddressCOM2_TextBox = ui::MakeTextBox(c, "AddressCOM2_TextBox", QStringLiteral("COM2 Address"));
    COM1CommandLabel = ui::MakeLabel(c, "COM1CommandLabel");
    COM1CommandLabel->setAccessibleName(QStringLiteral("COM1 Command Sent"));
    COM2CommandLabel = ui::MakeLabel(c, "COM2CommandLabel");
    COM2CommandLabel->setAccessibleName(QStringLiteral("COM2 Command Sent"));
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
    AccessResponseTextBox = new QPlainTextEdit(c);
    AccessResponseTextBox->setObjectName(QStringLiteral("AccessResponseTextBox"));
    AccessResponseTextBox->setAccessibleName(QStringLiteral("Response"));
    AccessResponseTextBox->setReadOnly(true);
    AccessResponseTextBox->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    place(AccessResponseLabel, 292, 2, 160, 14);
    place(AccessResponseTextBox, 292, 16, 278, 48);

    // Retransmission and lens speed, above the joystick.
    RetransmitTimeLabel = ui::MakeLabel(c, "RetransmitTimeLabel", TwoLines("Retransmit", "Time"));
    RetransmitTimeTextBox =
        ui::MakeTextBox(c, "RetransmitTimeTextBox", QStringLiteral("Retransmit Time"));
    RetransmitTimeTextBox->setToolTip(
        QStringLiteral("Seconds between repeats, above .05 and below 61"));
    LensSpeedLabel = ui::MakeLabel(c, "LensSpeedLabel", TwoLines("Lens", "Speed"));
    LensSpeedList = ui::MakeList(c, "LensSpeedList", QStringLiteral("Lens Speed"));
    place(RetransmitTimeLabel, 182, 74, 62, 28);
    place(RetransmitTimeTextBox, 246, 78, 40, 20);
    place(LensSpeedLabel, 300, 74, 44, 28);
    place(LensSpeedList, 346, 78, 40, 20);

    // Lens buttons, under the joystick: zoom, focus and iris, each pair in a column.
    const double lensX[] = {180, 252, 180, 252, 324, 324};
    const double lensY[] = {0, 0, 1, 1, 0, 1};
    const LensButton lensOrder[] = {LensButton::ZoomIn,   LensButton::FocusNear,
                                    LensButton::ZoomOut,  LensButton::FocusFar,
                                    LensButton::IrisOpen, LensButton::IrisClose};
    for (std::size_t i = 0; i < 6; ++i) {
        const LensButton button = lensOrder[i];
        QPushButton* control = ui::MakeButton(c, LensButtonName(button), LensPlainCaption(button));
        lensButtons_[static_cast<std::size_t>(button)] = control;
        place(control, lensX[i], 326 + lensY[i] * 30, 70, 26);
    }

    // Left column: preset, pattern, aux, macro and zone.
    PresetNumberLabel = ui::MakeLabel(c, "PresetNumberLabel", TwoLines("Preset", kNumber));
    PresetNumberTextBox =
        ui::MakeTextBox(c, "PresetNumberTextBox", QStringLiteral("Preset Number"));
    PresetGoButton = ui::MakeButton(c, "PresetGoButton", QStringLiteral("Go"));
    PresetSetButton = ui::MakeButton(c, "PresetSetButton", QStringLiteral("Set"));
    PresetClearButton = ui::MakeButton(c, "PresetClearButton", QStringLiteral("Clear"));
    place(PresetNumberLabel, 6, 74, 50, 28);
    place(PresetNumberTextBox, 58, 78, 38, 20);
    place(PresetGoButton, 100, 74, 34, 24);
    place(PresetSetButton, 136, 74, 34, 24);
    place(PresetClearButton, 100, 100, 70, 20);

    PatternNumberLabel = ui::MakeLabel(c, "PatternNumberLabel", TwoLines("Pattern", kNumber));
    PatternNumberListBox =
        ui::MakeList(c, "PatternNumberListBox", QStringLiteral("Pattern Number"));
    StartPatternButton = ui::MakeButton(c, "StartPatternButton", QStringLiteral("Start"));
    EndPatternButton = ui::MakeButton(c, "EndPatternButton", QStringLiteral("End"));
    RunPatternButton = ui::MakeButton(c, "RunPatternButton", QStringLiteral("Run"));
    place(PatternNumberLabel, 6, 126, 50, 28);
    place(PatternNumberListBox, 58, 130, 40, 20);
    place(StartPatternButton, 6, 158, 52, 22);
    place(EndPatternButton, 61, 158, 52, 22);
    place(RunPatternButton, 116, 158, 54, 22);

    AuxNumberLabel = ui::MakeLabel(c, "AuxNumberLabel", TwoLines("Aux/GPI", kNumber));
    AuxNumberTextBox = ui::MakeTextBox(c, "AuxNumberTextBox", QStringLiteral("Aux/GPI Number"));
    MacroNumberLabel = ui::MakeLabel(c, "MacroNumberLabel", TwoLines("Macro", kNumber));
    MacroNumberTextBox = ui::MakeTextBox(c, "MacroNumberTextBox", QStringLiteral("Macro Number"));
    place(AuxNumberLabel, 6, 186, 50, 28);
    place(AuxNumberTextBox, 58, 190, 38, 20);
    // The macro box shares its place with the zone frame: no mode shows both.
    place(MacroNumberLabel, 6, 222, 50, 28);
    place(MacroNumberTextBox, 58, 226, 38, 20);

    ZoneFrame = ui::MakeFrame(c, "ZoneFrame", QStringLiteral("Zone"));
    ZoneStartOption = ui::MakeOption(ZoneFrame, "ZoneStartOption", QStringLiteral("Zone Start"));
    ZoneEndOption = ui::MakeOption(ZoneFrame, "ZoneEndOption", QStringLiteral("Zone End"));
    ZoneScanOnOption =
        ui::MakeOption(ZoneFrame, "ZoneScanOnOption", QStringLiteral("Zone Scan On"));
    ZoneScanOffOption =
        ui::MakeOption(ZoneFrame, "ZoneScanOffOption", QStringLiteral("Zone Scan Off"));
    ZoneNumberLabel = ui::MakeLabel(ZoneFrame, "ZoneNumberLabel", TwoLines("Zone", kNumber));
    ZoneNumberList = ui::MakeList(ZoneFrame, "ZoneNumberList", QStringLiteral("Zone Number"));
    ZoneButton = ui::MakeButton(ZoneFrame, "ZoneButton", QStringLiteral("Send Zone"));
    place(ZoneFrame, 6, 218, 164, 166);
    place(ZoneStartOption, 8, 18, 92, 20);
    place(ZoneEndOption, 8, 40, 92, 20);
    place(ZoneScanOnOption, 8, 62, 92, 20);
    place(ZoneScanOffOption, 8, 84, 92, 20);
    place(ZoneNumberLabel, 104, 18, 54, 28);
    place(ZoneNumberList, 106, 50, 40, 20);
    place(ZoneButton, 8, 128, 148, 26);

    // Right column: the switcher's camera, monitor and alarm in ASCII ...
    CameraNumberLabel = ui::MakeLabel(c, "CameraNumberLabel", TwoLines("Camera", kNumber));
    CameraNumberTextBox =
        ui::MakeTextBox(c, "CameraNumberTextBox", QStringLiteral("Camera Number"));
    CameraButton = ui::MakeButton(c, "CameraButton", QStringLiteral("Camera"));
    CamBackwardStepButton = ui::MakeButton(c, "CamBackwardStepButton", QStringLiteral("Prev Cam"));
    CamForwardStepButton = ui::MakeButton(c, "CamForwardStepButton", QStringLiteral("Next Cam"));
    place(CameraNumberLabel, 400, 74, 56, 28);
    place(CameraNumberTextBox, 458, 78, 56, 20);
    place(CameraButton, 518, 76, 52, 24);
    place(CamBackwardStepButton, 458, 102, 54, 22);
    place(CamForwardStepButton, 516, 102, 54, 22);

    MonitorNumberLabel = ui::MakeLabel(c, "MonitorNumberLabel", TwoLines("Monitor", kNumber));
    MonitorNumberTextBox =
        ui::MakeTextBox(c, "MonitorNumberTextBox", QStringLiteral("Monitor Number"));
    MonitorButton = ui::MakeButton(c, "MonitorButton", QStringLiteral("Monitor"));
    place(MonitorNumberLabel, 400, 134, 56, 28);
    place(MonitorNumberTextBox, 458, 138, 56, 20);
    place(MonitorButton, 518, 136, 52, 24);

    AlarmNumberLabel = ui::MakeLabel(c, "AlarmNumberLabel", TwoLines("Alarm", kNumber));
    AlarmNumberTextBox = ui::MakeTextBox(c, "AlarmNumberTextBox", QStringLiteral("Alarm Number"));
    AlarmNumberTextBox->setToolTip(QStringLiteral("One alarm, or a range such as 3..12"));
    TriggerAlarmButton = ui::MakeButton(c, "TriggerAlarmButton", QStringLiteral("Trigger"));
    ResetAlarmButton = ui::MakeButton(c, "ResetAlarmButton", QStringLiteral("Reset"));
    Alarm_Backward_Step_Button =
        ui::MakeButton(c, "Alarm_Backward_Step_Button", QStringLiteral("Prev Alarm"));
    Alarm_Forward_Step_Button =
        ui::MakeButton(c, "Alarm_Forward_Step_Button", QStringLiteral("Next Alarm"));
    place(AlarmNumberLabel, 400, 172, 56, 28);
    place(AlarmNumberTextBox, 458, 176, 56, 20);
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
    RetransmitTimeTextBox->installEventFilter(this);

    portBindings_ = new QLabel(this);
    portBindings_->setObjectName(QStringLiteral("PortBindingsLabel"));
    portBindings_->setAccessibleName(QStringLiteral("Port Bindings"));
    statusBar()->addWidget(portBindings_);
    statusBar()->setSizeGripEnabled(true);

    CommandChangeTimer = ui::MakeTimer(this, "CommandChangeTimer");
    RetransmitTimer = ui::MakeTimer(this, "RetransmitTimer");
    HernisPollTimer = ui::MakeTimer(this, "HernisPollTimer");
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
    connect(RetransmitTimer, &QTimer::timeout, this,
            [this] { boundary_.Run("RetransmitTimer_Timer", [&] { RetransmitTimer_Timer(); }); });
    connect(RetransmitTimeTextBox, &QLineEdit::textChanged, this, [this] {
        boundary_.Run("RetransmitTimeTextBox_Change", [&] { RetransmitTimeTextBox_Change(); });
    });

    for (const LensButton button : kLensButtons) {
        QPushButton* control = LensControl(button);
        connect(control, &QPushButton::pressed, this, [this, button] {
            boundary_.Run("Lens_MouseDown", [&] { Lens_MouseDown(button); });
        });
        connect(control, &QPushButton::released, this,
                [this, button] { boundary_.Run("Lens_MouseUp", [&] { Lens_MouseUp(button); }); });
        connect(control, &QPushButton::clicked, this,
                [this, button] { boundary_.Run("Lens_Click", [&] { Lens_Click(button); }); });
    }

    for (int number = 1; number <= 2; ++number) {
        SerialLine* port = &keyboard_.Port(number);
        connect(port, &SerialLine::CommEvent, this, [this, number](int code) {
            boundary_.Run(number == 1 ? "MSComm1_OnComm" : "MSComm2_OnComm",
                          [&] { MSComm_OnComm(number, code); });
        });
        connect(port, &SerialLine::LineFailed, this,
                [this, number](const QString& message) { Port_LineFailed(number, message); });
    }
    connect(&keyboard_, &Quellpad_Support_Func::CommandEchoed, this,
            [this](const QString& com1, const QString& com2) {
                COM1CommandLabel->setText(com1);
                COM2CommandLabel->setText(com2);
            });
}

// ---------------------------------------------------------------------------------------
// Start-up and shutdown

void FrmMain::Form_Load() {
    QPalette grey = palette();
    grey.setColor(QPalette::Window, QColor(0xC0, 0xC0, 0xC0));
    // Greyed-out menus and captions must still read against the grey.
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        grey.setColor(QPalette::Disabled, role, QColor(0x6a, 0x6a, 0x6a));
    }
    setPalette(grey);
    canvas_->setAutoFillBackground(true);

    const QStringList problems = StartKeyboard(keyboard_);

    const QString& mode = keyboard_.CurrentMode;
    if (IsFrameMode(mode)) {
        ZoneNumberLabel->setText(TwoLines("Zone", kNumber));
    }
    D_Protocol_Menu_Option->setChecked(mode == kModeD);
    P_Protocol_Menu_Option->setChecked(mode == kModeP);
    ASCII_Menu_Option->setChecked(mode == kModeAscii);
    MUX_ASCII_Option->setChecked(mode == kModeMuxAscii);
    HernisProtocolOption->setChecked(false);
    T_Protocol_Option->setChecked(false);

    Com1Option->setChecked(keyboard_.MSComm1().IsOpen());
    Com2Option->setChecked(keyboard_.MSComm2().IsOpen());

    CommandChangeTimer->setInterval(IsAsciiMode(mode) ? kAsciiModeTick : kFrameModeTick);
    CommandChangeTimer->start();

    ZoneStartOption->setChecked(true);
    FlipOption->setChecked(true);

    UpdateWindowTitle();
    if (mode == kModeAscii) {
        AccessResponseLabel->setText(QStringLiteral("ASCII Response"));
    } else if (mode == kModeP) {
        AccessResponseLabel->setText(QStringLiteral("P Response"));
    } else if (mode == kModeD) {
        AccessResponseLabel->setText(QStringLiteral("D Response"));
    }
    RetransmitTimeLabel->setText(TwoLines("Retransmit", "Time"));

    const QScreen* screen = this->screen();
    const double twips = ui::TwipsPerPixel(this);
    const QSize available = screen ? screen->availableGeometry().size() : QSize(800, 600);
    if (available.height() * twips < 9000) {
        resize(static_cast<int>(8400 / twips), static_cast<int>(6300 / twips));
    } else {
        resize(static_cast<int>(available.width() * 0.8),
               static_cast<int>(available.height() * 0.8));
    }

    FillList(ZoneNumberList, {"8", "7", "6", "5", "4", "3", "2", "1"}, 7);
    FillList(PatternNumberListBox, {"10", "9", "8", "7", "6", "5", "4", "3", "2", "1", "0"}, 10);
    FillList(LensSpeedList, {"4", "3", "2", "1"}, 3);

    ApplyModeControls();
    RaiseTimerResolution();
    HernisPollTimer->stop();
    HernisPollTimer->setInterval(0);
    for (QAction* unoffered : unofferedItems_) {
        unoffered->setVisible(false);
    }
    HernisProtocolOption->setVisible(false);
    T_Protocol_Option->setVisible(false);
    UpdatePortBindings();
    LayOut();

    for (const QString& problem : problems) {
        QTimer::singleShot(0, this, [this, problem] { boundary_.Report("Form_Load", problem); });
    }
}

void FrmMain::closeEvent(QCloseEvent* event) {
    // Nothing is saved at exit; the ports are released and the timer resolution restored.
    CommandChangeTimer->stop();
    RetransmitTimer->stop();
    keyboard_.MSComm1().Close();
    keyboard_.MSComm2().Close();
    RestoreTimerResolution();
    event->accept();
}

void FrmMain::ExitOption_Click() {
    close();
}

void FrmMain::UpdateWindowTitle() {
    setWindowTitle(QStringLiteral("Quellpad - Settings (") + keyboard_.BaudRate +
                   QStringLiteral(", ") + keyboard_.Parity + QStringLiteral(", 8, 1)"));
}

void FrmMain::UpdatePortBindings() {
    QStringList parts;
    for (int number = 1; number <= 2; ++number) {
        const SerialLine& port = keyboard_.Port(number);
        parts << QStringLiteral("COM %1: %2 (%3)")
                     .arg(number)
                     .arg(port.Device(),
                          port.IsOpen() ? QStringLiteral("open") : QStringLiteral("closed"));
    }
    portBindings_->setText(parts.join(QStringLiteral("    ")));
    Com1Option->setToolTip(keyboard_.MSComm1().Device());
    Com2Option->setToolTip(keyboard_.MSComm2().Device());
}

// ---------------------------------------------------------------------------------------
// Options menu

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
    const bool open = TogglePort(keyboard_, number, other->isChecked());
    if (!open) {
        (number == 1 ? COM1CommandLabel : COM2CommandLabel)->clear();
    }
}

void FrmMain::Settings_Menu_Option_Click() {
    frmSettings window(keyboard_, this);
    connect(&window, &frmSettings::Saved, this, [this] {
        UpdateWindowTitle();
        UpdatePortBindings();
    });
    RunModalWindow(window, false);
}

void FrmMain::RetransmitTimerOption_Click() {
    if (!keyboard_.RetransmitOn) {
        keyboard_.RetransmitOn = true;
        RetransmitTimerOption->setChecked(true);
        RetransmitTimer->setInterval(keyboard_.RetransmitInterval);
        RetransmitTimer->start();
    } else if (keyboard_.CurrentMode != u"H") {
        keyboard_.RetransmitOn = false;
        RetransmitTimerOption->setChecked(false);
        RetransmitTimer->stop();
    }
    RetransmitTimerOption->setChecked(keyboard_.RetransmitOn);
}

void FrmMain::RetransmitTimer_Timer() {
    RetransmitTick(keyboard_);
}

void FrmMain::RetransmitTimeTextBox_Change() {
    const RetransmitPeriod period = ReadRetransmitPeriod(RetransmitTimeTextBox->text());
    if (period.verdict == RetransmitPeriod::Verdict::Rejected) {
        ui::ShowMessage(this, {kRetransmitRangeMessage, {}, ui::MessageButtons::Ok});
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

void FrmMain::RunModalWindow(QDialog& window, bool pauseTimers) {
    if (pauseTimers) {
        CommandChangeTimer->stop();
        if (keyboard_.RetransmitOn) {
            RetransmitTimer->stop();
        }
    }
    window.exec();
    if (pauseTimers) {
        CommandChangeTimer->start();
        if (keyboard_.RetransmitOn) {
            RetransmitTimer->start();
        }
    }
    activateWindow();
}

void FrmMain::MenuControlOption_Click() {
    frmMenuControl window(this);
    RunModalWindow(window, true);
}

void FrmMain::Type_Commands_Option_Click() {
    FrmTypeCmnds window(this);
    typeCommands_ = &window;
    window.Prepare(keyboard_.CurrentMode);
    RunModalWindow(window, true);
}

void FrmMain::AdvancedCommandsOption_Click() {
    FrmAdvancedCommands window(this);
    RunModalWindow(window, false);
}

void FrmMain::ExtendedCommands_Click() {
    FrmExtendedCommands window(this);
    RunModalWindow(window, false);
}

void FrmMain::SetLabelOption_Click() {
    FrmLabel window(this);
    RunModalWindow(window, false);
}

void FrmMain::AboutOption_Click() {
    setEnabled(false);
    const auto enable = qScopeGuard([this] { setEnabled(true); });
    frmAbout window(this);
    RunModalWindow(window, false);
}

// ---------------------------------------------------------------------------------------
// Mode menu

void FrmMain::ASCII_Menu_Option_Click() {
    SwitchMode(kModeAscii, ASCII_Menu_Option);
    AccessResponseLabel->setText(QStringLiteral("ASCII Response"));
}

void FrmMain::MUX_ASCII_Option_Click() {
    SwitchMode(kModeMuxAscii, MUX_ASCII_Option);
}

void FrmMain::D_Protocol_Menu_Option_Click() {
    SwitchMode(kModeD, D_Protocol_Menu_Option);
    AccessResponseLabel->setText(QStringLiteral("D Response"));
}

void FrmMain::P_Protocol_Menu_Option_Click() {
    SwitchMode(kModeP, P_Protocol_Menu_Option);
    AccessResponseLabel->setText(QStringLiteral("P Response"));
}

void FrmMain::SwitchMode(const QString& mode, QAction* item) {
    if (keyboard_.CurrentMode != mode) {
        if (IsAsciiMode(mode)) {
            keyboard_.AsciiCommand.clear();
        }
        keyboard_.CurrentMode = mode;
        if (IsFrameMode(mode)) {
            ZoneNumberLabel->setText(TwoLines("Zone", kNumber));
        }
        LayOut();
        ApplyModeControls();
        for (QAction* option : {D_Protocol_Menu_Option, P_Protocol_Menu_Option, ASCII_Menu_Option,
                                MUX_ASCII_Option}) {
            option->setChecked(option == item);
        }
        COM1CommandLabel->clear();
        COM2CommandLabel->clear();
        RetransmitTimer->stop();
        RetransmitTimerOption->setChecked(false);
        keyboard_.RetransmitOn = false;
        RetransmitTimeTextBox->clear();
        CommandChangeTimer->setInterval(IsAsciiMode(mode) ? kAsciiModeTick : kFrameModeTick);
        keyboard_.ClearCommandBytes();
        keyboard_.SaveSettings();
    } else {
        // Choosing the current mode leaves its check mark as it was.
        item->setChecked(true);
    }
    if (mode != kModeMuxAscii) {
        keyboard_.AuxNumber = 0;
        AuxNumberTextBox->clear();
    }
}

void FrmMain::ApplyModeControls() {
    const QString& mode = keyboard_.CurrentMode;
    Com1Option->setEnabled(keyboard_.AvailablePorts.contains(u'1'));
    Com2Option->setEnabled(keyboard_.AvailablePorts.contains(u'2'));

    // The switcher's own controls: "ASCII" alone shows them.
    const bool ascii = mode == kModeAscii;
    const QList<QWidget*> addressControls{AddressCOM1Label, AddressCOM1_TextBox, AddressCOM2Label,
                                          AddressCOM2_TextBox};
    const QList<QWidget*> switcherControls{
        MonitorButton,         MonitorNumberLabel,         MonitorNumberTextBox,
        CameraButton,          CameraNumberLabel,          CameraNumberTextBox,
        CamBackwardStepButton, CamForwardStepButton,       TriggerAlarmButton,
        ResetAlarmButton,      Alarm_Backward_Step_Button, Alarm_Forward_Step_Button,
        AlarmNumberLabel,      AlarmNumberTextBox,         MacroNumberLabel,
        MacroNumberTextBox};
    for (QWidget* control : addressControls) {
        Show(control, !ascii);
    }
    for (QWidget* control : switcherControls) {
        Show(control, ascii);
    }
    Enable(VCR_Menu, ascii);
    Enable(MacroMenu, ascii);
    Enable(CamLock_Menu, ascii);
    Show(Time_Update_Option, ascii);
    Show(SendCameraTitleOption, ascii);
    for (std::size_t gpi = 3; gpi < 6; ++gpi) {
        auxItems_[gpi]->setEnabled(ascii && keyboard_.AuxNumber != 0);
    }

    const bool frame = IsFrameMode(mode);
    const bool mux = mode == kModeMuxAscii;
    if (!ascii && !frame && !mux) {
        return; // "T", "H" or an unknown text: the switcher group is all it gets
    }

    // What every mode but "MUX ASCII" offers: replies, aux, presets, patterns, the lens.
    const QList<QWidget*> operatorControls{
        AccessResponseLabel, AccessResponseTextBox, AuxNumberLabel,    AuxNumberTextBox,
        PresetGoButton,      PresetSetButton,       PresetNumberLabel, PresetNumberTextBox,
        StartPatternButton,  EndPatternButton,      RunPatternButton,  PatternNumberLabel,
        PatternNumberListBox};
    for (QWidget* control : operatorControls) {
        Show(control, !mux);
    }
    for (const LensButton button : kLensButtons) {
        Show(LensControl(button), !mux);
    }
    Show(SetLabelOption, !mux);
    Enable(AuxMenu, !mux);
    Enable(MuxMenu, !frame);
    Enable(MoreCommandsMenu, mode == kModeD);
    Show(PresetClearButton, frame);
    Show(ZoneFrame, frame);
    Show(MiscFrame, frame);
    for (QWidget* hernis : hernisControls_) {
        Show(hernis, false);
    }
    H_Protocol_Poll->setVisible(false);
    H_Protocol_Poll->setChecked(false);
    HernisPollTimer->stop();

    if (ascii) {
        AccessResponseLabel->setToolTip(QStringLiteral("Response to ASCII Commands"));
        if (keyboard_.MacroNumber == 0) {
            const char* const bare[] = {"Start Macro",   "Halt Macro", "Start Sequence",
                                        "Halt Sequence", "Start Tour", "Halt Tour"};
            for (std::size_t i = 0; i < macroItems_.size(); ++i) {
                macroItems_[i]->setText(QLatin1String(bare[i]));
                macroItems_[i]->setEnabled(false);
            }
        }
    } else if (mux) {
        for (QWidget* control : addressControls) {
            Show(control, false);
        }
        AccessResponseLabel->setToolTip(QStringLiteral("Response to ASCII Commands"));
        // Once hidden here, no mode shows the menu control item again while the program runs.
        Show(MenuControlOption, false);
    } else {
        FillList(LensSpeedList, {"4", "3", "2", "1"}, 3);
        FillList(ZoneNumberList, {"8", "7", "6", "5", "4", "3", "2", "1"}, 7);
        AddressCOM1Label->setText(TwoLines("Address", "COM1"));
        AddressCOM2Label->setText(TwoLines("Address", "COM2"));
        if (keyboard_.AuxNumber == 0) {
            for (std::size_t aux = 0; aux < 3; ++aux) {
                auxItems_[aux]->setEnabled(false);
            }
        }
        ZoneFrame->setTitle(QStringLiteral("Zone"));
        ZoneStartOption->setChecked(true);
        ZoneScanOnOption->setText(QStringLiteral("Zone Scan On"));
        ZoneScanOffOption->setText(QStringLiteral("Zone Scan Off"));
        ClearScreenOption->setText(QStringLiteral("Clear Screen"));
        FocusSpeedOption->setText(QStringLiteral("Focus Speed"));
        FlipOption->setChecked(true);
        if (mode == kModeD) {
            AccessResponseLabel->setToolTip(QStringLiteral("Response to D Protocol Commands"));
            Show(ExtendedCommands, true);
            Show(AdvancedCommandsOption, true);
        } else {
            AccessResponseLabel->setToolTip(QStringLiteral("Response to P Protocol Commands"));
        }
        Show(ASCII_CommandDisplayOption, false);
        Show(T_ProtocolCommandsOption, false);
    }
}

// ---------------------------------------------------------------------------------------
// Dispatcher

void FrmMain::CommandChangeTimer_Timer() {
    const DispatchOutcome outcome =
        CommandChangeTick(keyboard_, {ZoneStartOption->isChecked(), ZoneEndOption->isChecked(),
                                      AlarmNumberTextBox->text()});
    if (outcome.newInterval) {
        CommandChangeTimer->setInterval(*outcome.newInterval);
    }
}

// ---------------------------------------------------------------------------------------
// Lens buttons

QPushButton* FrmMain::LensControl(LensButton button) const {
    return lensButtons_[static_cast<std::size_t>(button)];
}

void FrmMain::Lens_MouseDown(LensButton button) {
    if (!keyboard_.ControlLockOn) {
        SwitchLensOn(keyboard_, button);
    }
}

void FrmMain::Lens_MouseUp(LensButton button) {
    if (!keyboard_.ControlLockOn) {
        SwitchLensOff(keyboard_, button);
    }
}

void FrmMain::Lens_Click(LensButton button) {
    if (!keyboard_.ControlLockOn) {
        return;
    }
    const LensButton partner = LensPartner(button);
    LensControl(partner)->setText(LensPlainCaption(partner) + QStringLiteral(" Off"));
    QPushButton* control = LensControl(button);
    const QString onCaption = LensPlainCaption(button) + QStringLiteral(" On");
    if (control->text() == onCaption) {
        control->setText(LensPlainCaption(button) + QStringLiteral(" Off"));
        SwitchLensOff(keyboard_, button);
    } else {
        control->setText(onCaption);
        SwitchLensOn(keyboard_, button);
    }
}

// ---------------------------------------------------------------------------------------
// Joystick

QPointF FrmMain::ToTwips(QPointF canvasPoint) const {
    return canvasPoint * ui::TwipsPerPixel(this);
}

QPointF FrmMain::FromTwips(QPointF twips) const {
    return twips / ui::TwipsPerPixel(this);
}

JoystickGeometry FrmMain::CurrentJoystickGeometry() const {
    const double twips = ui::TwipsPerPixel(this);
    const QRect square = square_->geometry();
    const QSize outer = frameGeometry().size();
    return {square.x() * twips,      square.y() * twips,    square.width() * twips,
            square.height() * twips, outer.width() * twips, outer.height() * twips};
}

void FrmMain::PlaceBallAt(QPointF twips) {
    const QPointF centre = FromTwips(twips);
    ball_->move(static_cast<int>(std::lround(centre.x() - ball_->width() / 2.0)),
                static_cast<int>(std::lround(centre.y() - ball_->height() / 2.0)));
}

void FrmMain::CentreJoystickBall() {
    PlaceBallAt(JoystickRestPoint(CurrentJoystickGeometry()));
}

void FrmMain::Form_MouseDown(int button, QPointF canvasPoint) {
    Form_MouseMove(button, canvasPoint);
}

void FrmMain::Form_MouseMove(int buttons, QPointF canvasPoint) {
    const QPointF twips = ToTwips(canvasPoint);
    if (UpdateJoystick(keyboard_, joystick_, buttons, twips.x(), twips.y(),
                       CurrentJoystickGeometry())) {
        PlaceBallAt(twips);
    }
}

void FrmMain::Form_MouseUp() {
    if (ReleaseJoystick(keyboard_, joystick_)) {
        CentreJoystickBall();
    }
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == RetransmitTimeTextBox && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        // Keys without a character (arrows, Home) move the cursor and always pass.
        return !text.isEmpty() && !RetransmitKeyAccepted(text[0], RetransmitTimeTextBox->text());
    }
    if (watched == canvas_ && event->type() == QEvent::Resize) {
        LayOut();
        return false;
    }
    if (watched != canvas_ && watched != square_) {
        return false;
    }
    const auto type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove &&
        type != QEvent::MouseButtonRelease) {
        return false;
    }
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QPointF point =
        static_cast<QWidget*>(watched)->mapTo(canvas_, mouse->position().toPoint());
    boundary_.Run("Form_Mouse", [&] {
        if (type == QEvent::MouseButtonPress) {
            Form_MouseDown(ButtonCode(mouse->button()), point);
        } else if (type == QEvent::MouseMove) {
            Form_MouseMove(ButtonCode(mouse->buttons()), point);
        } else {
            Form_MouseUp();
        }
    });
    return true;
}

void FrmMain::LayOut() {
    layout_.Apply(canvas_->size());
    // The square is centred on the knob's rest point, half the window's outer size, so that
    // the speed rule measures from the square's centre.
    const QSize outer = frameGeometry().size();
    const double scale = std::min(layout_.ScaleX(), layout_.ScaleY());
    const int side = static_cast<int>(std::lround(kSquareSide * scale));
    const int ballSide = static_cast<int>(std::lround(kBallSide * scale));
    const QPoint rest(outer.width() / 2, outer.height() / 2);
    square_->setGeometry(rest.x() - side / 2, rest.y() - side / 2, side, side);
    ball_->resize(ballSide, ballSide);
    ball_->raise();
    if (!joystick_.JoystickDragging) {
        CentreJoystickBall();
    }
}

// ---------------------------------------------------------------------------------------
// Replies

void FrmMain::MSComm_OnComm(int number, int eventCode) {
    const QString& mode = keyboard_.CurrentMode;
    if (!IsAsciiMode(mode) && !IsFrameMode(mode)) {
        return;
    }
    if (eventCode != SerialLine::kDataReceived) {
        return;
    }
    QString& response = number == 1 ? keyboard_.Com1Response : keyboard_.Com2Response;
    response += ResponseText(mode, keyboard_.Port(number).Input());
    QTextDocument* box = AccessResponseTextBox->document();
    if (ClearsResponseBox(mode, box->characterCount() - 1, response)) {
        box->clear();
    }
    QTextCursor end(box);
    end.movePosition(QTextCursor::End);
    end.insertText(response);
    const int excess = box->characterCount() - 1 - static_cast<int>(kResponseBoxMaximum);
    if (excess > 0) {
        QTextCursor oldest(box);
        oldest.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, excess);
        oldest.removeSelectedText();
    }
    AccessResponseTextBox->moveCursor(QTextCursor::End);
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
    (number == 1 ? Com1Option : Com2Option)->setChecked(false);
    UpdatePortBindings();
    boundary_.Report(number == 1 ? "MSComm1_Failed" : "MSComm2_Failed", message);
}

} // namespace quellpad
