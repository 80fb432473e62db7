#include "console/numbered_targets.h"

#include "console/dispatcher.h"
#include "console/handler_names.h"
#include "console/main_menus.h"
#include "engine/keyboard_state.h"
#include "engine/numeric.h"
#include "engine/words.h"
#include "ui/controls.h"
#include "ui/error_boundary.h"
#include "ui/key_filter.h"

#include <QAction>
#include <QDateTime>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace quellpad {

using namespace frm_main_parts;
using namespace handler_names;
using ui::TwoLines;

NumberedTargets::NumberedTargets(const PartContext& context) : context_(context) {
    QWidget* c = context_.canvas;
    // A number box with its two-line "... Number" label to its left.
    auto numberBox = [&](QLabel*& label, const char* labelName, QLineEdit*& box,
                         const char* boxName, const QString& what, double x, double y,
                         double labelWidth, double boxWidth) {
        label = ui::MakeLabel(c, labelName, TwoLines(what, NumberCaption()));
        box = ui::MakeTextBox(c, boxName, label);
        context_.Place(label, x, y, labelWidth, 28);
        context_.Place(box, x + labelWidth + 2, y + 4, boxWidth, 20);
    };

    // Left column: preset, pattern, aux, macro and zone.
    numberBox(PresetNumberLabel, "PresetNumberLabel", PresetNumberTextBox, "PresetNumberTextBox",
              tr("Preset"), 6, 74, 50, 38);
    PresetGoButton = ui::MakeButton(c, "PresetGoButton", tr("Go"));
    PresetSetButton = ui::MakeButton(c, "PresetSetButton", tr("Set"));
    PresetClearButton = ui::MakeButton(c, "PresetClearButton", tr("Clear"));
    context_.Place(PresetGoButton, 100, 74, 34, 24);
    context_.Place(PresetSetButton, 136, 74, 34, 24);
    context_.Place(PresetClearButton, 100, 100, 70, 20);

    PatternNumberLabel =
        ui::MakeLabel(c, "PatternNumberLabel", TwoLines(tr("Pattern"), NumberCaption()));
    PatternNumberListBox = ui::MakeList(c, "PatternNumberListBox", PatternNumberLabel);
    StartPatternButton = ui::MakeButton(c, "StartPatternButton", tr("Start"));
    EndPatternButton = ui::MakeButton(c, "EndPatternButton", tr("End"));
    RunPatternButton = ui::MakeButton(c, "RunPatternButton", tr("Run"));
    context_.Place(PatternNumberLabel, 6, 126, 50, 28);
    context_.Place(PatternNumberListBox, 58, 130, 40, 20);
    context_.Place(StartPatternButton, 6, 158, 52, 22);
    context_.Place(EndPatternButton, 61, 158, 52, 22);
    context_.Place(RunPatternButton, 116, 158, 54, 22);

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
    context_.Place(ZoneFrame, 6, 218, 164, 166);
    context_.Place(ZoneStartOption, 8, 16, 150, 20);
    context_.Place(ZoneEndOption, 8, 36, 150, 20);
    context_.Place(ZoneScanOnOption, 8, 56, 150, 20);
    context_.Place(ZoneScanOffOption, 8, 76, 150, 20);
    context_.Place(ZoneNumberLabel, 8, 100, 54, 28);
    context_.Place(ZoneNumberList, 66, 104, 40, 20);
    context_.Place(ZoneButton, 8, 134, 148, 24);

    // Right column: the switcher's camera, monitor and alarm in ASCII ...
    numberBox(CameraNumberLabel, "CameraNumberLabel", CameraNumberTextBox, "CameraNumberTextBox",
              tr("Camera"), 400, 74, 56, 56);
    CameraButton = ui::MakeButton(c, "CameraButton", tr("Camera"));
    CamBackwardStepButton = ui::MakeButton(c, "CamBackwardStepButton", tr("Prev Cam"));
    CamForwardStepButton = ui::MakeButton(c, "CamForwardStepButton", tr("Next Cam"));
    context_.Place(CameraButton, 518, 76, 52, 24);
    context_.Place(CamBackwardStepButton, 458, 102, 54, 22);
    context_.Place(CamForwardStepButton, 516, 102, 54, 22);

    numberBox(MonitorNumberLabel, "MonitorNumberLabel", MonitorNumberTextBox,
              "MonitorNumberTextBox", tr("Monitor"), 400, 134, 56, 56);
    MonitorButton = ui::MakeButton(c, "MonitorButton", tr("Monitor"));
    context_.Place(MonitorButton, 518, 136, 52, 24);

    numberBox(AlarmNumberLabel, "AlarmNumberLabel", AlarmNumberTextBox, "AlarmNumberTextBox",
              tr("Alarm"), 400, 172, 56, 56);
    AlarmNumberTextBox->setToolTip(tr("One alarm, or a range such as 3..12"));
    TriggerAlarmButton = ui::MakeButton(c, "TriggerAlarmButton", tr("Trigger"));
    ResetAlarmButton = ui::MakeButton(c, "ResetAlarmButton", tr("Reset"));
    Alarm_Backward_Step_Button = ui::MakeButton(c, "Alarm_Backward_Step_Button", tr("Prev Alarm"));
    Alarm_Forward_Step_Button = ui::MakeButton(c, "Alarm_Forward_Step_Button", tr("Next Alarm"));
    context_.Place(TriggerAlarmButton, 400, 206, 84, 24);
    context_.Place(ResetAlarmButton, 486, 206, 84, 24);
    context_.Place(Alarm_Backward_Step_Button, 400, 234, 84, 24);
    context_.Place(Alarm_Forward_Step_Button, 486, 234, 84, 24);

    // ... and the receiver's miscellaneous commands in D and P, in the same place.
    MiscFrame = ui::MakeFrame(c, "MiscFrame", tr("Camera Commands"));
    FlipOption = ui::MakeOption(MiscFrame, "FlipOption", tr("Flip"));
    RemoteResetOption = ui::MakeOption(MiscFrame, "RemoteResetOption", tr("Remote Reset"));
    ClearScreenOption = ui::MakeOption(MiscFrame, "ClearScreenOption", tr("Clear Screen"));
    ZoomSpeedOption = ui::MakeOption(MiscFrame, "ZoomSpeedOption", tr("Zoom Speed"));
    FocusSpeedOption = ui::MakeOption(MiscFrame, "FocusSpeedOption", tr("Focus Speed"));
    MiscSendButton = ui::MakeButton(MiscFrame, "MiscSendButton", tr("Send"));
    context_.Place(MiscFrame, 400, 74, 170, 182);
    double y = 18;
    for (QRadioButton* option :
         {FlipOption, RemoteResetOption, ClearScreenOption, ZoomSpeedOption, FocusSpeedOption}) {
        context_.Place(option, 10, y, 150, 20);
        y += 22;
    }
    context_.Place(MiscSendButton, 10, 140, 150, 26);
}

void NumberedTargets::Connect(const MainMenus& menus, QTimer* commandChangeTimer,
                              QListWidget* lensSpeedList) {
    Quellpad_Support_Func& k = context_.keyboard;

    for (QLineEdit* box : {CameraNumberTextBox, MonitorNumberTextBox, PresetNumberTextBox,
                           MacroNumberTextBox, AuxNumberTextBox}) {
        ui::FilterCharacters(box, &ui::DigitsOnly);
    }
    ui::FilterCharacters(AlarmNumberTextBox, [](QChar c, const QString& before) {
        return c == u'.' || ui::DigitsOnly(c, before);
    });

    OnChange(
        context_, CameraNumberTextBox,
        [this, &k] { return CheckCameraNumber(k, CameraNumberTextBox->text()); },
        [&menus, &k] { menus.SendCameraTitleOption->setText(CameraTitleCaption(k.CameraNumber)); });
    OnChange(context_, MonitorNumberTextBox,
             [this, &k] { return CheckMonitorNumber(k, MonitorNumberTextBox->text()); });
    OnChange(context_, PresetNumberTextBox,
             [this, &k] { return CheckPresetNumber(k, PresetNumberTextBox->text()); });
    OnChange(context_, AlarmNumberTextBox,
             [this, &k] { return CheckAlarmNumber(k, AlarmNumberTextBox->text()); });
    OnChange(
        context_, MacroNumberTextBox,
        [this, &k] { return CheckMacroNumber(k, MacroNumberTextBox->text()); },
        [&menus, &k] {
            if (k.CurrentMode != kModeAscii) {
                return;
            }
            const auto captions = MacroCaptions(k.MacroNumber);
            for (std::size_t i = 0; i < menus.macroItems.size(); ++i) {
                menus.macroItems[i]->setText(captions[i]);
                menus.macroItems[i]->setEnabled(k.MacroNumber != 0);
            }
        });
    OnChange(
        context_, AuxNumberTextBox,
        [this, &k] { return CheckAuxNumber(k, AuxNumberTextBox->text()); },
        [this, &menus, &k] {
            const bool none = IntPart(Val(AuxNumberTextBox->text())) == 0;
            const auto captions =
                none ? BareAuxCaptions() : AuxCaptions(k.CurrentMode, k.AuxNumber);
            for (std::size_t i = 0; i < kAuxItems; ++i) {
                if (!captions[i].isEmpty()) {
                    menus.auxItems[i]->setText(captions[i]);
                    menus.auxItems[i]->setEnabled(!none);
                }
            }
        });

    // Commands whose text is a mnemonic, with or without the number of its box.
    for (const AsciiTarget& target : kAsciiTargets) {
        OnControl(context_, target.control,
                  [&k, &target] { LoadAsciiCommand(k, AsciiTargetText(k, target)); });
    }
    for (QAction* camera : context_.window->findChildren<QAction*>(QStringLiteral("MuxCam"))) {
        const int index = camera->data().toInt();
        QObject::connect(camera, &QAction::triggered, context_.window, [this, &k, index] {
            context_.boundary.Run(kMuxCamClick, [&] {
                LoadAsciiCommand(k, Digits(index + 1) + Word(protocol::Kind::MuxCamera));
            });
        });
    }
    OnControl(context_, "Time_Update_Option",
              [&k] { LoadAsciiCommand(k, TimeUpdateText(QDateTime::currentDateTime())); });
    OnControl(context_, "SendCameraTitleOption",
              [&k] { LoadAsciiCommand(k, CameraTitleText(k.CameraNumber, k.LabelText)); });

    // Alarms: one alarm at once, or a range stepped by the dispatcher at its slower pace.
    auto alarm = [this, &k, commandChangeTimer](bool trigger) {
        if (!HoldsAlarmRange(AlarmNumberTextBox->text())) {
            LoadAsciiCommand(k, trigger ? TriggerAlarmText(k.AlarmNumber)
                                        : ResetAlarmText(k.AlarmNumber));
            return;
        }
        bool& pending = trigger ? k.AlarmTriggerPending : k.AlarmResetPending;
        pending = k.AnyPortOpen();
        if (pending) {
            commandChangeTimer->setInterval(kAlarmRangeTick);
        }
    };
    OnControl(context_, "TriggerAlarmButton", [alarm] { alarm(true); });
    OnControl(context_, "ResetAlarmButton", [alarm] { alarm(false); });

    OnControl(context_, "AuxOnOption", [&k] { LoadAux(k, true); });
    OnControl(context_, "AuxOffOption", [&k] { LoadAux(k, false); });
    OnControl(context_, "ToggleAuxOption", [&k] { k.AuxToggleRequest = 2; });
    OnControl(context_, "ToggleGPI_Option", [&k] { k.GpiToggleRequest = 2; });

    OnControl(context_, "PresetGoButton", [&k] { LoadPresetGo(k, k.PresetNumber); });
    OnControl(context_, "PresetClearButton", [&k] { LoadPresetClear(k); });
    OnControl(context_, "PresetSetButton", [&k] { LoadPresetSet(k); });

    auto pattern = [this, &k](PatternAction action) {
        LoadPattern(k, action, 10 - SelectTopItem(PatternNumberListBox));
    };
    OnControl(context_, "StartPatternButton", [pattern] { pattern(PatternAction::Start); });
    OnControl(context_, "EndPatternButton", [pattern] { pattern(PatternAction::End); });
    OnControl(context_, "RunPatternButton", [pattern] { pattern(PatternAction::Run); });

    OnControl(context_, "ZoneButton", [this, &k] {
        const ZoneChoice choice = ZoneStartOption->isChecked()     ? ZoneChoice::Start
                                  : ZoneEndOption->isChecked()     ? ZoneChoice::End
                                  : ZoneScanOnOption->isChecked()  ? ZoneChoice::ScanOn
                                  : ZoneScanOffOption->isChecked() ? ZoneChoice::ScanOff
                                                                   : ZoneChoice::None;
        LoadZone(k, choice, 8 - SelectTopItem(ZoneNumberList));
    });
    OnControl(context_, "MiscSendButton", [this, &k, lensSpeedList] {
        const MiscChoice choice = FlipOption->isChecked()          ? MiscChoice::Flip
                                  : RemoteResetOption->isChecked() ? MiscChoice::RemoteReset
                                  : ClearScreenOption->isChecked() ? MiscChoice::ClearScreen
                                  : ZoomSpeedOption->isChecked()   ? MiscChoice::ZoomSpeed
                                  : FocusSpeedOption->isChecked()  ? MiscChoice::FocusSpeed
                                                                   : MiscChoice::None;
        LoadMisc(k, choice, 3 - SelectTopItem(lensSpeedList));
    });
    OnControl(context_, "FlipOption", [&k] { k.MiscOptionChoice = 1; });
    OnControl(context_, "RemoteResetOption", [&k] { k.MiscOptionChoice = 2; });
}

} // namespace quellpad
