#include "console/main_menus.h"

#include "console/targets.h"
#include "ui/controls.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace quellpad {

MainMenus::MainMenus(QMainWindow* window) {
    OptionsMenu = ui::MakeMenu(window, "OptionsMenu", tr("&Options"));
    Com1Option = ui::MakeItem(OptionsMenu, "Com1Option", QStringLiteral("COM 1"), true);
    Com2Option = ui::MakeItem(OptionsMenu, "Com2Option", QStringLiteral("COM 2"), true);
    // A greyed COM item says why.
    OptionsMenu->setToolTipsVisible(true);
    Settings_Menu_Option = ui::MakeItem(OptionsMenu, "Settings_Menu_Option", tr("Settings..."));
    SimulatedSiteOption = ui::MakeItem(OptionsMenu, "SimulatedSiteOption", tr("Simulated Site..."));
    mnuTraffic = ui::MakeItem(OptionsMenu, "mnuTraffic", tr("Traffic..."));
    mnuScan = ui::MakeItem(OptionsMenu, "mnuScan", tr("Scan for Receivers..."));
    OptionsMenu->addSeparator();
    RetransmitTimerOption =
        ui::MakeItem(OptionsMenu, "RetransmitTimerOption", tr("Retransmit Timer"), true);
    ControlLock = ui::MakeItem(OptionsMenu, "ControlLock", tr("Control Lock"), true);
    MenuControlOption = ui::MakeItem(OptionsMenu, "MenuControlOption", tr("Arrow/Menu Control"));
    Type_Commands_Option =
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
    unofferedItems = {
        T_ProtocolCommandsOption,
        ui::MakeItem(OptionsMenu, "FactoryCalibrationOption", tr("Factory Calibration")),
        ui::MakeItem(OptionsMenu, "CommandScriptOption", tr("Command Script")),
        ui::MakeItem(OptionsMenu, "LogFileOption", tr("Log File"), true)};
    OptionsMenu->addSeparator();
    AboutOption = ui::MakeItem(OptionsMenu, "AboutOption", tr("About Quellpad..."));
    ExitOption = ui::MakeItem(OptionsMenu, "ExitOption", tr("Exit"));

    ModeMenu = ui::MakeMenu(window, "ModeMenu", tr("&Mode"));
    D_Protocol_Menu_Option =
        ui::MakeItem(ModeMenu, "D_Protocol_Menu_Option", tr("D Protocol"), true);
    P_Protocol_Menu_Option =
        ui::MakeItem(ModeMenu, "P_Protocol_Menu_Option", tr("P Protocol"), true);
    ASCII_Menu_Option = ui::MakeItem(ModeMenu, "ASCII_Menu_Option", QStringLiteral("ASCII"), true);
    MUX_ASCII_Option =
        ui::MakeItem(ModeMenu, "MUX_ASCII_Option", QStringLiteral("MUX ASCII"), true);
    H_Protocol_Option = ui::MakeItem(ModeMenu, "H_Protocol_Option", tr("H Protocol"), true);
    T_Protocol_Option = ui::MakeItem(ModeMenu, "T_Protocol_Option", tr("T Protocol"), true);

    AuxMenu = ui::MakeMenu(window, "AuxMenu", tr("&Aux"));
    const char* const auxNames[] = {"AuxOnOption",  "AuxOffOption",  "ToggleAuxOption",
                                    "GPI_OnOption", "GPI_OffOption", "ToggleGPI_Option"};
    const std::array<QString, kAuxItems> auxCaptions = BareAuxCaptions();
    for (std::size_t i = 0; i < auxItems.size(); ++i) {
        auxItems[i] = ui::MakeItem(AuxMenu, auxNames[i], auxCaptions[i]);
        auxItems[i]->setEnabled(false);
    }

    MacroMenu = ui::MakeMenu(window, "MacroMenu", tr("Mac&ro"));
    const char* const macroNames[] = {"StartMacroOption",    "HaltMacroOption",
                                      "StartSequenceOption", "HaltSequenceOption",
                                      "StartTourOption",     "HaltTourOption"};
    const std::array<QString, 6> macroCaptions = MacroCaptions(0);
    for (std::size_t i = 0; i < macroItems.size(); ++i) {
        macroItems[i] = ui::MakeItem(MacroMenu, macroNames[i], macroCaptions[i]);
        macroItems[i]->setEnabled(false);
    }

    CamLock_Menu = ui::MakeMenu(window, "CamLock_Menu", tr("&Cam Lock"));
    ui::MakeItem(CamLock_Menu, "LockCam_Option", tr("Lock Current Camera"));
    ui::MakeItem(CamLock_Menu, "UnlockCam_Option", tr("Unlock Current Camera"));
    ui::MakeItem(CamLock_Menu, "OverrideLock_Option", tr("Override Camera Lock"));

    MuxMenu = ui::MakeMenu(window, "MuxMenu", tr("Mu&x"));
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

    VCR_Menu = ui::MakeMenu(window, "VCR_Menu", tr("&VCR"));
    ui::MakeItem(VCR_Menu, "Eject_Option", tr("Eject"));
    ui::MakeItem(VCR_Menu, "Record_Option", tr("Record"));
    ui::MakeItem(VCR_Menu, "Pause_Option", tr("Pause"));
    ui::MakeItem(VCR_Menu, "FastForward_Option", tr("Fast Forward"));
    ui::MakeItem(VCR_Menu, "Rewind_Option", tr("Rewind"));
    ui::MakeItem(VCR_Menu, "Stop_Option", tr("Stop"));
    ui::MakeItem(VCR_Menu, "Play_Option", tr("Play"));

    MoreCommandsMenu = ui::MakeMenu(window, "MoreCommandsMenu", tr("Mor&e Commands"));
    unofferedItems.append(
        ui::MakeItem(MoreCommandsMenu, "Constant_Motion_Option", tr("Constant Motion")));

    for (QMenu* menu : {OptionsMenu, ModeMenu, AuxMenu, MacroMenu, CamLock_Menu, MuxMenu, VCR_Menu,
                        MoreCommandsMenu}) {
        window->menuBar()->addMenu(menu);
    }
}

} // namespace quellpad
