// The main window's numbered-target commands and its switcher, multiplexer and VCR menus:
// the number boxes with their filters and checks, and the buttons and items that load
// the commands for the dispatcher.
#include "console/dispatcher.h"
#include "console/frm_main.h"
#include "console/frm_main_parts.h"
#include "console/handler_names.h"
#include "console/targets.h"
#include "engine/numeric.h"
#include "ui/key_filter.h"

#include <QAction>
#include <QDateTime>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace quellpad {

using namespace handler_names;

using namespace frm_main_parts;

void FrmMain::OnControl(const char* name, std::function<void()> handler) {
    const QByteArray entry = QByteArray(name) + "_Click";
    auto run = [this, entry, handler = std::move(handler)] {
        boundary_.Run(entry.constData(), handler);
    };
    if (auto* item = findChild<QAction*>(QLatin1String(name))) {
        connect(item, &QAction::triggered, this, run);
    } else if (auto* button = findChild<QAbstractButton*>(QLatin1String(name))) {
        connect(button, &QAbstractButton::clicked, this, run);
    } else {
        // A name that matches no control would leave its command silently unconnected.
        qFatal("No control is named %s", name);
    }
}

void FrmMain::OnChange(QLineEdit* box, std::function<std::optional<Refusal>()> check,
                       std::function<void()> then) {
    const QByteArray entry = box->objectName().toLatin1() + "_Change";
    connect(box, &QLineEdit::textChanged, this,
            [this, box, entry, check = std::move(check), then = std::move(then)] {
                boundary_.Run(entry.constData(), [&] {
                    if (const std::optional<Refusal> refusal = check()) {
                        ui::ShowMessage(this, refusal->message);
                        // Emptying the box runs its check once more, on the empty text.
                        box->clear();
                        if (refusal->afterEmptying) {
                            refusal->afterEmptying();
                        }
                    }
                    if (then) {
                        then();
                    }
                });
            });
}

void FrmMain::ConnectTargets() {
    Quellpad_Support_Func& k = keyboard_;

    // Address boxes: digits only in "D" and "P", where a fourth digit is refused outright.
    for (QLineEdit* box : {AddressCOM1_TextBox, AddressCOM2_TextBox}) {
        std::uint8_t& address = box == AddressCOM1_TextBox ? k.AddressCOM1 : k.AddressCOM2;
        ui::FilterCharacters(
            box,
            [&k](QChar c, const QString& before) {
                return !IsFrameMode(k.CurrentMode) || ui::DigitsOnly(c, before);
            },
            [this, &k, box](QChar c) {
                if (IsFrameMode(k.CurrentMode) && c.isDigit() && box->text().size() >= 3) {
                    ui::ShowMessage(this, AddressRangeMessage());
                    box->clear();
                    return false;
                }
                return true;
            });
        OnChange(box,
                 [&k, box, &address] { return CheckAddress(k.CurrentMode, box->text(), address); });
    }

    for (QLineEdit* box : {CameraNumberTextBox, MonitorNumberTextBox, PresetNumberTextBox,
                           MacroNumberTextBox, AuxNumberTextBox}) {
        ui::FilterCharacters(box, &ui::DigitsOnly);
    }
    ui::FilterCharacters(AlarmNumberTextBox, [](QChar c, const QString& before) {
        return c == u'.' || ui::DigitsOnly(c, before);
    });

    OnChange(
        CameraNumberTextBox,
        [this, &k] { return CheckCameraNumber(k, CameraNumberTextBox->text()); },
        [this, &k] { SendCameraTitleOption->setText(CameraTitleCaption(k.CameraNumber)); });
    OnChange(MonitorNumberTextBox,
             [this, &k] { return CheckMonitorNumber(k, MonitorNumberTextBox->text()); });
    OnChange(PresetNumberTextBox,
             [this, &k] { return CheckPresetNumber(k, PresetNumberTextBox->text()); });
    OnChange(AlarmNumberTextBox,
             [this, &k] { return CheckAlarmNumber(k, AlarmNumberTextBox->text()); });
    OnChange(
        MacroNumberTextBox, [this, &k] { return CheckMacroNumber(k, MacroNumberTextBox->text()); },
        [this, &k] {
            if (k.CurrentMode != kModeAscii) {
                return;
            }
            const auto captions = MacroCaptions(k.MacroNumber);
            for (std::size_t i = 0; i < macroItems_.size(); ++i) {
                macroItems_[i]->setText(captions[i]);
                macroItems_[i]->setEnabled(k.MacroNumber != 0);
            }
        });
    OnChange(
        AuxNumberTextBox, [this, &k] { return CheckAuxNumber(k, AuxNumberTextBox->text()); },
        [this, &k] {
            const bool none = IntPart(Val(AuxNumberTextBox->text())) == 0;
            const auto captions =
                none ? BareAuxCaptions() : AuxCaptions(k.CurrentMode, k.AuxNumber);
            for (std::size_t i = 0; i < kAuxItems; ++i) {
                if (!captions[i].isEmpty()) {
                    auxItems_[i]->setText(captions[i]);
                    auxItems_[i]->setEnabled(!none);
                }
            }
        });

    // Commands whose text is a mnemonic, with or without the number of its box.
    for (const AsciiTarget& target : kAsciiTargets) {
        OnControl(target.control,
                  [&k, &target] { LoadAsciiCommand(k, AsciiTargetText(k, target)); });
    }
    for (QAction* camera : findChildren<QAction*>(QStringLiteral("MuxCam"))) {
        const int index = camera->data().toInt();
        connect(camera, &QAction::triggered, this, [this, &k, index] {
            boundary_.Run(kMuxCamClick,
                          [&] { LoadAsciiCommand(k, Digits(index + 1) + QStringLiteral("#m")); });
        });
    }
    OnControl("Time_Update_Option",
              [&k] { LoadAsciiCommand(k, TimeUpdateText(QDateTime::currentDateTime())); });
    OnControl("SendCameraTitleOption",
              [&k] { LoadAsciiCommand(k, CameraTitleText(k.CameraNumber, k.LabelText)); });

    // Alarms: one alarm at once, or a range stepped by the dispatcher at its slower pace.
    auto alarm = [this, &k](bool trigger) {
        if (!HoldsAlarmRange(AlarmNumberTextBox->text())) {
            LoadAsciiCommand(k, trigger ? TriggerAlarmText(k.AlarmNumber)
                                        : ResetAlarmText(k.AlarmNumber));
            return;
        }
        bool& pending = trigger ? k.AlarmTriggerPending : k.AlarmResetPending;
        pending = k.AnyPortOpen();
        if (pending) {
            CommandChangeTimer->setInterval(kAlarmRangeTick);
        }
    };
    OnControl("TriggerAlarmButton", [alarm] { alarm(true); });
    OnControl("ResetAlarmButton", [alarm] { alarm(false); });

    OnControl("AuxOnOption", [&k] { LoadAux(k, true); });
    OnControl("AuxOffOption", [&k] { LoadAux(k, false); });
    OnControl("ToggleAuxOption", [&k] { k.AuxToggleRequest = 2; });
    OnControl("ToggleGPI_Option", [&k] { k.GpiToggleRequest = 2; });

    OnControl("PresetGoButton", [&k] { LoadPresetGo(k, k.PresetNumber); });
    OnControl("PresetClearButton", [&k] { LoadPresetClear(k); });
    OnControl("PresetSetButton", [&k] { LoadPresetSet(k); });

    auto pattern = [this, &k](PatternAction action) {
        LoadPattern(k, action, 10 - SelectTopItem(PatternNumberListBox));
    };
    OnControl("StartPatternButton", [pattern] { pattern(PatternAction::Start); });
    OnControl("EndPatternButton", [pattern] { pattern(PatternAction::End); });
    OnControl("RunPatternButton", [pattern] { pattern(PatternAction::Run); });

    OnControl("ZoneButton", [this, &k] {
        const ZoneChoice choice = ZoneStartOption->isChecked()     ? ZoneChoice::Start
                                  : ZoneEndOption->isChecked()     ? ZoneChoice::End
                                  : ZoneScanOnOption->isChecked()  ? ZoneChoice::ScanOn
                                  : ZoneScanOffOption->isChecked() ? ZoneChoice::ScanOff
                                                                   : ZoneChoice::None;
        LoadZone(k, choice, 8 - SelectTopItem(ZoneNumberList));
    });
    OnControl("MiscSendButton", [this, &k] {
        const MiscChoice choice = FlipOption->isChecked()          ? MiscChoice::Flip
                                  : RemoteResetOption->isChecked() ? MiscChoice::RemoteReset
                                  : ClearScreenOption->isChecked() ? MiscChoice::ClearScreen
                                  : ZoomSpeedOption->isChecked()   ? MiscChoice::ZoomSpeed
                                  : FocusSpeedOption->isChecked()  ? MiscChoice::FocusSpeed
                                                                   : MiscChoice::None;
        LoadMisc(k, choice, 3 - SelectTopItem(LensSpeedList));
    });
    OnControl("FlipOption", [&k] { k.MiscOptionChoice = 1; });
    OnControl("RemoteResetOption", [&k] { k.MiscOptionChoice = 2; });
}

} // namespace quellpad
