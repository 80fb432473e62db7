// The main window's four command languages: switching, and what each mode shows.
#include "console/dispatcher.h"
#include "console/frm_main.h"
#include "console/frm_main_parts.h"
#include "engine/port_control.h"
#include "ui/controls.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace quellpad {

using namespace frm_main_parts;
using ui::TwoLines;

namespace {
void Show(QWidget* control, bool shown) {
    control->setVisible(shown);
}
void Show(QAction* item, bool shown) {
    item->setVisible(shown);
}
// The menu itself is disabled, not only its item in the menu bar: the bar's item follows
// the menu, and a menu disabled in its own right stays so when its window is disabled
// and enabled again around some other window.
void Enable(QMenu* menu, bool enabled) {
    menu->setEnabled(enabled);
}
} // namespace

void FrmMain::SetResponseCaption(const QString& caption) {
    ui::SetCaption(AccessResponseLabel, caption);
}

void FrmMain::ASCII_Menu_Option_Click() {
    SwitchMode(kModeAscii, ASCII_Menu_Option);
    SetResponseCaption(tr("ASCII Response"));
}

void FrmMain::MUX_ASCII_Option_Click() {
    SwitchMode(kModeMuxAscii, MUX_ASCII_Option);
}

void FrmMain::D_Protocol_Menu_Option_Click() {
    SwitchMode(kModeD, D_Protocol_Menu_Option);
    SetResponseCaption(tr("D Response"));
}

void FrmMain::P_Protocol_Menu_Option_Click() {
    SwitchMode(kModeP, P_Protocol_Menu_Option);
    SetResponseCaption(tr("P Response"));
}

void FrmMain::SwitchMode(const QString& mode, QAction* item) {
    if (keyboard_.CurrentMode != mode) {
        if (IsAsciiMode(mode)) {
            keyboard_.AsciiCommand.clear();
        }
        keyboard_.CurrentMode = mode;
        if (IsFrameMode(mode)) {
            ui::SetCaption(ZoneNumberLabel, TwoLines(tr("Zone"), NumberCaption()));
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

void FrmMain::EnableComItems() {
    // A device plugged in since the ports were looked for is offered at once.
    ListPortsNowPresent(keyboard_, lookForPorts_);
    bool awaited = false;
    for (int number = 1; number <= 2; ++number) {
        QAction* item = number == 1 ? Com1Option : Com2Option;
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

void FrmMain::ApplyModeControls() {
    const QString& mode = keyboard_.CurrentMode;
    EnableComItems();

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
    for (QWidget* control : hDataControls_) {
        Show(control, false);
    }
    H_Protocol_Poll->setVisible(false);
    H_Protocol_Poll->setChecked(false);
    H_Poll_Timer->stop();

    if (ascii) {
        AccessResponseLabel->setToolTip(tr("Response to ASCII Commands"));
        if (keyboard_.MacroNumber == 0) {
            const std::array<QString, 6> bare = MacroCaptions(0);
            for (std::size_t i = 0; i < macroItems_.size(); ++i) {
                macroItems_[i]->setText(bare[i]);
                macroItems_[i]->setEnabled(false);
            }
        }
    } else if (mux) {
        for (QWidget* control : addressControls) {
            Show(control, false);
        }
        AccessResponseLabel->setToolTip(tr("Response to ASCII Commands"));
        // Once hidden here, no mode shows the menu control item again while the program runs.
        Show(MenuControlOption, false);
    } else {
        FillList(LensSpeedList, {"4", "3", "2", "1"}, 3);
        FillList(ZoneNumberList, {"8", "7", "6", "5", "4", "3", "2", "1"}, 7);
        ui::SetCaption(AddressCOM1Label, TwoLines(tr("Address"), QStringLiteral("COM1")));
        ui::SetCaption(AddressCOM2Label, TwoLines(tr("Address"), QStringLiteral("COM2")));
        if (keyboard_.AuxNumber == 0) {
            for (std::size_t aux = 0; aux < 3; ++aux) {
                auxItems_[aux]->setEnabled(false);
            }
        }
        ZoneFrame->setTitle(tr("Zone"));
        ZoneStartOption->setChecked(true);
        ZoneScanOnOption->setText(tr("Zone Scan On"));
        ZoneScanOffOption->setText(tr("Zone Scan Off"));
        ClearScreenOption->setText(tr("Clear Screen"));
        FocusSpeedOption->setText(tr("Focus Speed"));
        FlipOption->setChecked(true);
        if (mode == kModeD) {
            AccessResponseLabel->setToolTip(tr("Response to D Protocol Commands"));
            Show(ExtendedCommands, true);
            Show(AdvancedCommandsOption, true);
        } else {
            AccessResponseLabel->setToolTip(tr("Response to P Protocol Commands"));
        }
        Show(ASCII_CommandDisplayOption, false);
        Show(T_ProtocolCommandsOption, false);
    }
}

} // namespace quellpad
