#include "console/mode_setup.h"

#include "console/dispatcher.h"
#include "console/frm_main_parts.h"
#include "console/handler_names.h"
#include "console/lens_buttons.h"
#include "console/main_menus.h"
#include "console/numbered_targets.h"
#include "console/reply_boxes.h"
#include "engine/keyboard_state.h"
#include "engine/port_control.h"
#include "ui/controls.h"
#include "ui/error_boundary.h"

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
using namespace handler_names;
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

ModeSetup::ModeSetup(Quellpad_Support_Func& keyboard, MainMenus& menus, ReplyBoxes& replies,
                     LensButtons& lens, NumberedTargets& targets, Reach reach)
    : keyboard_(keyboard), menus_(menus), replies_(replies), lens_(lens), targets_(targets),
      reach_(std::move(reach)) {}

void ModeSetup::Connect(QWidget* window, ui::ErrorBoundary& boundary) {
    auto on = [this, window, &boundary](QAction* item, const char* entry,
                                        void (ModeSetup::*handler)()) {
        QObject::connect(item, &QAction::triggered, window, [this, &boundary, entry, handler] {
            boundary.Run(entry, [&] { (this->*handler)(); });
        });
    };
    on(menus_.ASCII_Menu_Option, kAsciiMenuOptionClick, &ModeSetup::ASCII_Menu_Option_Click);
    on(menus_.MUX_ASCII_Option, kMuxAsciiOptionClick, &ModeSetup::MUX_ASCII_Option_Click);
    on(menus_.D_Protocol_Menu_Option, kDProtocolMenuOptionClick,
       &ModeSetup::D_Protocol_Menu_Option_Click);
    on(menus_.P_Protocol_Menu_Option, kPProtocolMenuOptionClick,
       &ModeSetup::P_Protocol_Menu_Option_Click);
}

void ModeSetup::ASCII_Menu_Option_Click() {
    SwitchMode(kModeAscii, menus_.ASCII_Menu_Option);
    replies_.SetResponseCaption(tr("ASCII Response"));
}

void ModeSetup::MUX_ASCII_Option_Click() {
    SwitchMode(kModeMuxAscii, menus_.MUX_ASCII_Option);
}

void ModeSetup::D_Protocol_Menu_Option_Click() {
    SwitchMode(kModeD, menus_.D_Protocol_Menu_Option);
    replies_.SetResponseCaption(tr("D Response"));
}

void ModeSetup::P_Protocol_Menu_Option_Click() {
    SwitchMode(kModeP, menus_.P_Protocol_Menu_Option);
    replies_.SetResponseCaption(tr("P Response"));
}

void ModeSetup::SwitchMode(const QString& mode, QAction* item) {
    if (keyboard_.CurrentMode != mode) {
        if (IsAsciiMode(mode)) {
            keyboard_.AsciiCommand.clear();
        }
        keyboard_.CurrentMode = mode;
        if (IsFrameMode(mode)) {
            ui::SetCaption(targets_.ZoneNumberLabel, TwoLines(tr("Zone"), NumberCaption()));
        }
        reach_.layOut();
        ApplyModeControls();
        for (QAction* option : {menus_.D_Protocol_Menu_Option, menus_.P_Protocol_Menu_Option,
                                menus_.ASCII_Menu_Option, menus_.MUX_ASCII_Option}) {
            option->setChecked(option == item);
        }
        replies_.COM1CommandLabel->clear();
        replies_.COM2CommandLabel->clear();
        reach_.retransmitTimer->stop();
        menus_.RetransmitTimerOption->setChecked(false);
        keyboard_.RetransmitOn = false;
        reach_.retransmitTimeTextBox->clear();
        reach_.commandChangeTimer->setInterval(IsAsciiMode(mode) ? kAsciiModeTick : kFrameModeTick);
        keyboard_.ClearCommandBytes();
        keyboard_.SaveSettings();
    } else {
        // Choosing the current mode leaves its check mark as it was.
        item->setChecked(true);
    }
    if (mode != kModeMuxAscii) {
        keyboard_.AuxNumber = 0;
        targets_.AuxNumberTextBox->clear();
    }
}

void ModeSetup::ApplyModeControls() {
    const QString& mode = keyboard_.CurrentMode;
    reach_.enableComItems();

    // The switcher's own controls: "ASCII" alone shows them.
    const bool ascii = mode == kModeAscii;
    const QList<QWidget*> addressControls{replies_.AddressCOM1Label, replies_.AddressCOM1_TextBox,
                                          replies_.AddressCOM2Label, replies_.AddressCOM2_TextBox};
    const QList<QWidget*> switcherControls{targets_.MonitorButton,
                                           targets_.MonitorNumberLabel,
                                           targets_.MonitorNumberTextBox,
                                           targets_.CameraButton,
                                           targets_.CameraNumberLabel,
                                           targets_.CameraNumberTextBox,
                                           targets_.CamBackwardStepButton,
                                           targets_.CamForwardStepButton,
                                           targets_.TriggerAlarmButton,
                                           targets_.ResetAlarmButton,
                                           targets_.Alarm_Backward_Step_Button,
                                           targets_.Alarm_Forward_Step_Button,
                                           targets_.AlarmNumberLabel,
                                           targets_.AlarmNumberTextBox,
                                           targets_.MacroNumberLabel,
                                           targets_.MacroNumberTextBox};
    for (QWidget* control : addressControls) {
        Show(control, !ascii);
    }
    for (QWidget* control : switcherControls) {
        Show(control, ascii);
    }
    Enable(menus_.VCR_Menu, ascii);
    Enable(menus_.MacroMenu, ascii);
    Enable(menus_.CamLock_Menu, ascii);
    Show(menus_.Time_Update_Option, ascii);
    Show(menus_.SendCameraTitleOption, ascii);
    for (std::size_t gpi = 3; gpi < 6; ++gpi) {
        menus_.auxItems[gpi]->setEnabled(ascii && keyboard_.AuxNumber != 0);
    }

    const bool frame = IsFrameMode(mode);
    const bool mux = mode == kModeMuxAscii;
    if (!ascii && !frame && !mux) {
        return; // "T", "H" or an unknown text: the switcher group is all it gets
    }

    // What every mode but "MUX ASCII" offers: replies, aux, presets, patterns, the lens.
    const QList<QWidget*> operatorControls{
        replies_.AccessResponseLabel, replies_.AccessResponseTextBox, targets_.AuxNumberLabel,
        targets_.AuxNumberTextBox,    targets_.PresetGoButton,        targets_.PresetSetButton,
        targets_.PresetNumberLabel,   targets_.PresetNumberTextBox,   targets_.StartPatternButton,
        targets_.EndPatternButton,    targets_.RunPatternButton,      targets_.PatternNumberLabel,
        targets_.PatternNumberListBox};
    for (QWidget* control : operatorControls) {
        Show(control, !mux);
    }
    for (const LensButton button : kLensButtons) {
        Show(lens_.LensControl(button), !mux);
    }
    Show(menus_.SetLabelOption, !mux);
    Enable(menus_.AuxMenu, !mux);
    Enable(menus_.MuxMenu, !frame);
    Enable(menus_.MoreCommandsMenu, mode == kModeD);
    Show(targets_.PresetClearButton, frame);
    Show(targets_.ZoneFrame, frame);
    Show(targets_.MiscFrame, frame);
    for (QWidget* control : reach_.hDataControls) {
        Show(control, false);
    }
    menus_.H_Protocol_Poll->setVisible(false);
    menus_.H_Protocol_Poll->setChecked(false);
    reach_.hPollTimer->stop();

    if (ascii) {
        replies_.AccessResponseLabel->setToolTip(tr("Response to ASCII Commands"));
        if (keyboard_.MacroNumber == 0) {
            const std::array<QString, 6> bare = MacroCaptions(0);
            for (std::size_t i = 0; i < menus_.macroItems.size(); ++i) {
                menus_.macroItems[i]->setText(bare[i]);
                menus_.macroItems[i]->setEnabled(false);
            }
        }
    } else if (mux) {
        for (QWidget* control : addressControls) {
            Show(control, false);
        }
        replies_.AccessResponseLabel->setToolTip(tr("Response to ASCII Commands"));
        // Once hidden here, no mode shows the menu control item again while the program runs.
        Show(menus_.MenuControlOption, false);
    } else {
        FillList(lens_.LensSpeedList, {"4", "3", "2", "1"}, 3);
        FillList(targets_.ZoneNumberList, {"8", "7", "6", "5", "4", "3", "2", "1"}, 7);
        ui::SetCaption(replies_.AddressCOM1Label, TwoLines(tr("Address"), QStringLiteral("COM1")));
        ui::SetCaption(replies_.AddressCOM2Label, TwoLines(tr("Address"), QStringLiteral("COM2")));
        if (keyboard_.AuxNumber == 0) {
            for (std::size_t aux = 0; aux < 3; ++aux) {
                menus_.auxItems[aux]->setEnabled(false);
            }
        }
        targets_.ZoneFrame->setTitle(tr("Zone"));
        targets_.ZoneStartOption->setChecked(true);
        targets_.ZoneScanOnOption->setText(tr("Zone Scan On"));
        targets_.ZoneScanOffOption->setText(tr("Zone Scan Off"));
        targets_.ClearScreenOption->setText(tr("Clear Screen"));
        targets_.FocusSpeedOption->setText(tr("Focus Speed"));
        targets_.FlipOption->setChecked(true);
        if (mode == kModeD) {
            replies_.AccessResponseLabel->setToolTip(tr("Response to D Protocol Commands"));
            Show(menus_.ExtendedCommands, true);
            Show(menus_.AdvancedCommandsOption, true);
        } else {
            replies_.AccessResponseLabel->setToolTip(tr("Response to P Protocol Commands"));
        }
        Show(menus_.ASCII_CommandDisplayOption, false);
        Show(menus_.T_ProtocolCommandsOption, false);
    }
}

} // namespace quellpad
