#pragma once

#include <QCoreApplication>
#include <QList>

#include <array>

class QAction;
class QMainWindow;
class QMenu;

namespace quellpad {

// The main window's menu bar: options, modes, and the switcher's, multiplexer's and VCR's
// commands. The items only exist here; what they do is connected by the window.
class MainMenus {
    Q_DECLARE_TR_FUNCTIONS(quellpad::FrmMain)
public:
    explicit MainMenus(QMainWindow* window);

    QMenu* OptionsMenu = nullptr;
    QMenu* ModeMenu = nullptr;
    QMenu* AuxMenu = nullptr;
    QMenu* MacroMenu = nullptr;
    QMenu* CamLock_Menu = nullptr;
    QMenu* MuxMenu = nullptr;
    QMenu* VCR_Menu = nullptr;
    QMenu* MoreCommandsMenu = nullptr;

    // Options menu.
    QAction* Com1Option = nullptr;
    QAction* Com2Option = nullptr;
    QAction* Settings_Menu_Option = nullptr;
    QAction* SimulatedSiteOption = nullptr;
    QAction* mnuTraffic = nullptr;
    QAction* mnuScan = nullptr;
    QAction* RetransmitTimerOption = nullptr;
    QAction* ControlLock = nullptr;
    QAction* MenuControlOption = nullptr;
    QAction* Type_Commands_Option = nullptr;
    QAction* AdvancedCommandsOption = nullptr;
    QAction* ExtendedCommands = nullptr;
    QAction* SetLabelOption = nullptr;
    QAction* Time_Update_Option = nullptr;
    QAction* SendCameraTitleOption = nullptr;
    QAction* ASCII_CommandDisplayOption = nullptr;
    QAction* T_ProtocolCommandsOption = nullptr;
    QAction* H_Protocol_Poll = nullptr;
    QAction* AboutOption = nullptr;
    QAction* ExitOption = nullptr;

    // Mode menu.
    QAction* D_Protocol_Menu_Option = nullptr;
    QAction* P_Protocol_Menu_Option = nullptr;
    QAction* ASCII_Menu_Option = nullptr;
    QAction* MUX_ASCII_Option = nullptr;
    QAction* H_Protocol_Option = nullptr;
    QAction* T_Protocol_Option = nullptr;

    std::array<QAction*, 6> auxItems{}; // Aux ON, Aux OFF, Toggle Aux, GPI ON, GPI OFF, Toggle GPI
    std::array<QAction*, 6> macroItems{}; // start and halt of macro, sequence, tour
    QList<QAction*> unofferedItems;       // entries of features this keyboard does not offer
};

} // namespace quellpad
