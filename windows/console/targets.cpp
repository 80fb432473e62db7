#include "targets.h"

#include "console/dispatcher.h"
#include "engine/numeric.h"
#include "engine/words.h"

#include <QCoreApplication>

namespace quellpad {

namespace code = protocol::code;

namespace {

QString Error() {
    return QCoreApplication::translate("FrmMain", "Error");
}

// Registers loaded so that the dispatcher sends them even when they equal the last sent.
void LoadRegisters(Quellpad_Support_Func& k, std::uint8_t command2, std::uint8_t data2) {
    k.SetCommandBytes(0, command2, 0, data2);
}

Refusal Refuse(const QString& text, const QString& title = {},
               ui::MessageButtons buttons = ui::MessageButtons::Ok,
               std::function<void()> afterEmptying = {}) {
    return {{text, title, buttons}, std::move(afterEmptying)};
}

} // namespace

ui::Message AddressRangeMessage() {
    return {QCoreApplication::translate("FrmMain", "Must be a number between 1 and 254."), Error(),
            ui::MessageButtons::Ok};
}

std::optional<Refusal> CheckAddress(const QString& mode, const QString& text,
                                    std::uint8_t& address) {
    if (!IsFrameMode(mode)) {
        return std::nullopt;
    }
    const double value = Val(text);
    if (value > 254 || (!text.isEmpty() && value == 0)) {
        return Refusal{AddressRangeMessage(), {}};
    }
    address = text.isEmpty() ? 1 : ToByte(IntPart(value));
    return std::nullopt;
}

QString CameraTitleCaption(std::int32_t camera) {
    return QCoreApplication::translate("FrmMain", "Send Camera %1 Title").arg(Str(camera));
}

std::optional<Refusal> CheckCameraNumber(Quellpad_Support_Func& k, const QString& text) {
    const double value = Val(text);
    if ((!text.isEmpty() && value == 0) || IntPart(value) > 999999) {
        return Refuse(
            QCoreApplication::translate("FrmMain", "Camera number must be between 1 and 999999."),
            Error(), ui::MessageButtons::Ok, [&k] { k.CameraNumber = 1; });
    }
    k.CameraNumber = ToInt32(value);
    return std::nullopt;
}

std::optional<Refusal> CheckMonitorNumber(Quellpad_Support_Func& k, const QString& text) {
    const double value = Val(text);
    if (IntPart(value) > 9999 || (!text.isEmpty() && value <= 0)) {
        // Stored before the box is emptied, whose own check then leaves 0.
        k.MonitorNumber = 1;
        return Refuse(
            QCoreApplication::translate("FrmMain", "Monitor number must be between 1 and 9999."),
            Error());
    }
    k.MonitorNumber = ToInt16(value);
    return std::nullopt;
}

std::optional<Refusal> CheckPresetNumber(Quellpad_Support_Func& k, const QString& text) {
    const QString& mode = k.CurrentMode;
    if (text.isEmpty() || mode == u"T" || mode == u"H") {
        return std::nullopt;
    }
    const double value = Val(text);
    if (IntPart(value) < 1 || IntPart(value) > 150) {
        return Refuse(QCoreApplication::translate("FrmMain", "Preset numbers range from 1 to 150."),
                      Error(), ui::MessageButtons::OkCancel);
    }
    k.PresetNumber = ToInt16(value);
    return std::nullopt;
}

std::optional<Refusal> CheckMacroNumber(Quellpad_Support_Func& k, const QString& text) {
    if (k.CurrentMode != kModeAscii) {
        return std::nullopt;
    }
    const double value = Val(text);
    if (!text.isEmpty() && (IntPart(value) == 0 || value > 9999)) {
        return Refuse(
            QCoreApplication::translate("FrmMain", "Must be a number between 1 and 9999."),
            Error());
    }
    k.MacroNumber = ToInt16(value);
    return std::nullopt;
}

bool HoldsAlarmRange(const QString& alarmNumberText) {
    return ReadAlarmRange(alarmNumberText).has_value();
}

std::optional<Refusal> CheckAlarmNumber(Quellpad_Support_Func& k, const QString& text) {
    const std::optional<AlarmRange> range = ReadAlarmRange(text);
    if (!range) {
        k.AlarmRangeStart = 0;
        k.AlarmRangeEnd = 0;
        const double value = Val(text);
        if (value > 9999) {
            k.AlarmNumber = 0;
            return Refuse(QCoreApplication::translate(
                "FrmMain", "Alarm numbers must be greater than 0 and less than 9999."));
        }
        k.AlarmNumber = ToInt16(value);
        return std::nullopt;
    }
    const QString tooLarge =
        QCoreApplication::translate("FrmMain", "Alarm numbers must be less than 9999");
    // An end above 32767 would not fit the range's 16 bits; it is simply above 9999.
    if (range->first > 9999) {
        k.AlarmRangeStart = 0;
        return Refuse(tooLarge);
    }
    k.AlarmRangeStart = ToInt16(range->first);
    if (range->last > 9999) {
        k.AlarmRangeEnd = 0;
        return Refuse(tooLarge);
    }
    k.AlarmRangeEnd = ToInt16(range->last);
    return std::nullopt;
}

std::optional<Refusal> CheckAuxNumber(Quellpad_Support_Func& k, const QString& text) {
    const double value = Val(text);
    if (IntPart(value) == 0) {
        return std::nullopt; // the caller shows the bare, disabled items
    }
    const QString& mode = k.CurrentMode;
    auto refuse = [&k](const QString& message) {
        return Refuse(message, {}, ui::MessageButtons::Ok, [&k] { k.AuxNumber = 0; });
    };
    if (IsFrameMode(mode) && value > 8) {
        return refuse(QCoreApplication::translate(
            "FrmMain", "In D or P Protocol auxes must\r\nbe less than 9."));
    }
    // "MUX ASCII" sets no limit of its own, but no aux number beyond the switcher's
    // can be held either.
    if (value >= 65001) {
        return refuse(QCoreApplication::translate(
            "FrmMain", "In ASCII Protocol auxes must\r\nbe less than 65000."));
    }
    k.AuxNumber = ToInt32(value);
    return std::nullopt;
}

std::array<QString, kAuxItems> BareAuxCaptions() {
    return {QCoreApplication::translate("FrmMain", "Aux ON"),
            QCoreApplication::translate("FrmMain", "Aux OFF"),
            QCoreApplication::translate("FrmMain", "Toggle Aux"),
            QCoreApplication::translate("FrmMain", "GPI ON"),
            QCoreApplication::translate("FrmMain", "GPI OFF"),
            QCoreApplication::translate("FrmMain", "Toggle GPI")};
}

std::array<QString, kAuxItems> AuxCaptions(const QString& mode, std::int32_t aux) {
    const QString n = QString::number(aux);
    const std::array<QString, 3> gpi{
        QCoreApplication::translate("FrmMain", "GPI %1 On").arg(n),
        QCoreApplication::translate("FrmMain", "GPI %1 Off").arg(n),
        QCoreApplication::translate("FrmMain", "Toggle GPI %1").arg(n)};
    if (aux <= 8) {
        const bool ascii = mode == kModeAscii;
        return {QCoreApplication::translate("FrmMain", "Aux %1 ON").arg(n),
                QCoreApplication::translate("FrmMain", "Aux %1 OFF").arg(n),
                QCoreApplication::translate("FrmMain", "Toggle Aux %1").arg(n),
                ascii ? gpi[0] : QString(),
                ascii ? gpi[1] : QString(),
                ascii ? gpi[2] : QString()};
    }
    // Above 8 an aux is addressed as group and output; a multiple of 8 is output 8 of the
    // group below (16 is group 2, aux 8), as the switcher counts them.
    const std::int32_t remainder = aux % 8;
    const QString group = QString::number(aux / 8);
    const QString output = QString::number(remainder == 0 ? 8 : remainder);
    return {QCoreApplication::translate("FrmMain", "GPI %1, Aux %2 ON").arg(group, output),
            QCoreApplication::translate("FrmMain", "GPI %1, Aux %2 OFF").arg(group, output),
            QCoreApplication::translate("FrmMain", "Toggle GPI %1, Aux %2").arg(group, output),
            gpi[0],
            gpi[1],
            gpi[2]};
}

std::array<QString, 6> MacroCaptions(std::int16_t macro) {
    std::array<QString, 6> captions{QCoreApplication::translate("FrmMain", "Start Macro"),
                                    QCoreApplication::translate("FrmMain", "Halt Macro"),
                                    QCoreApplication::translate("FrmMain", "Start Sequence"),
                                    QCoreApplication::translate("FrmMain", "Halt Sequence"),
                                    QCoreApplication::translate("FrmMain", "Start Tour"),
                                    QCoreApplication::translate("FrmMain", "Halt Tour")};
    if (macro != 0) {
        for (QString& caption : captions) {
            caption += u' ' + QString::number(macro);
        }
    }
    return captions;
}

void LoadAsciiCommand(Quellpad_Support_Func& k, const QString& text) {
    k.LastAsciiCommand.clear();
    k.AsciiCommand = text;
}

QString AsciiTargetText(const Quellpad_Support_Func& k, const AsciiTarget& target) {
    QString number;
    switch (target.number) {
    case TargetNumber::None:
        break;
    case TargetNumber::Monitor:
        number = Digits(k.MonitorNumber);
        break;
    case TargetNumber::Camera:
        number = Digits(k.CameraNumber);
        break;
    case TargetNumber::Aux:
        number = Digits(k.AuxNumber);
        break;
    case TargetNumber::Macro:
        number = Digits(k.MacroNumber);
        break;
    }
    return number + Word(target.command);
}

QString TriggerAlarmText(std::int16_t alarm) {
    return Digits(alarm) + Word(protocol::Kind::TriggerAlarm);
}

QString ResetAlarmText(std::int16_t alarm) {
    return (alarm == 0 ? QString() : Digits(alarm)) + Word(protocol::Kind::ResetAlarm);
}

void LoadAux(Quellpad_Support_Func& k, bool on) {
    if (k.CurrentMode == kModeAscii) {
        LoadAsciiCommand(k, Digits(k.AuxNumber) +
                                Word(on ? protocol::Kind::AuxOn : protocol::Kind::AuxOff));
    } else if (IsFrameMode(k.CurrentMode)) {
        // Loaded directly: the same aux command twice in a row goes out once.
        k.Command1 = 0;
        k.Command2 = on ? code::kSetAux : code::kClearAux;
        k.Data1 = 0;
        k.Data2 = ToByte(k.AuxNumber);
    }
}

void LoadPresetGo(Quellpad_Support_Func& k, int preset) {
    LoadRegisters(k, code::kGoPreset, ToByte(preset));
    if (k.CurrentMode == kModeAscii) {
        LoadAsciiCommand(k, Digits(preset) + Word(protocol::Kind::GoPreset));
    }
}

void LoadPresetClear(Quellpad_Support_Func& k) {
    LoadRegisters(k, code::kClearPreset, ToByte(k.PresetNumber));
}

void LoadPresetSet(Quellpad_Support_Func& k) {
    const QString store = Digits(k.PresetNumber) + Word(protocol::Kind::SetPreset);
    if (k.CurrentMode == kModeAscii) {
        LoadAsciiCommand(k, k.LabelText.isEmpty() ? store
                                                  : Word(protocol::Kind::Label) + k.LabelText +
                                                        FreeTextEnd() + store);
    } else if (IsFrameMode(k.CurrentMode) && k.AnyPortOpen()) {
        // Twenty label characters first when there is a label, then the store itself.
        k.PresetSetStep = k.LabelText.isEmpty() ? 40 : 20;
    }
}

void LoadPattern(Quellpad_Support_Func& k, PatternAction action, int pattern) {
    static constexpr std::uint8_t kCommand[] = {code::kStartPatternRecord, code::kEndPatternRecord,
                                                code::kRunPattern};
    static constexpr protocol::Kind kText[] = {protocol::Kind::StartPatternRecord,
                                               protocol::Kind::EndPatternRecord,
                                               protocol::Kind::RunPattern};
    const auto index = static_cast<std::size_t>(action);
    LoadRegisters(k, kCommand[index], ToByte(pattern));
    if (k.CurrentMode == kModeAscii) {
        LoadAsciiCommand(k, Digits(k.Data2) + Word(kText[index]));
    }
}

void LoadZone(Quellpad_Support_Func& k, ZoneChoice choice, int zone) {
    switch (choice) {
    case ZoneChoice::None:
        return;
    case ZoneChoice::ScanOn:
    case ZoneChoice::ScanOff:
        k.LastCommand1 = 0;
        k.LastCommand2 = 0;
        k.Command1 = 0;
        k.Command2 = choice == ZoneChoice::ScanOn ? code::kZoneScanOn : code::kZoneScanOff;
        k.Data1 = 0;
        k.Data2 = 0;
        return;
    case ZoneChoice::Start:
    case ZoneChoice::End:
        if (k.AnyPortOpen()) {
            k.ZoneRequest = 1;
            k.ZoneNumber = ToByte(zone);
        }
        return;
    }
}

void LoadMisc(Quellpad_Support_Func& k, MiscChoice choice, int speed) {
    k.LastCommand1 = k.LastCommand2 = k.LastData1 = k.LastData2 = 0;
    switch (choice) {
    case MiscChoice::None:
        return;
    case MiscChoice::Flip:
        LoadRegisters(k, code::kGoPreset, protocol::preset::kFlip);
        return;
    case MiscChoice::RemoteReset:
        LoadRegisters(k, code::kRemoteReset, 0);
        return;
    case MiscChoice::ClearScreen:
        LoadRegisters(k, code::kClearScreen, 0);
        return;
    case MiscChoice::ZoomSpeed:
        LoadRegisters(k, code::kZoomSpeed, ToByte(speed));
        return;
    case MiscChoice::FocusSpeed:
        LoadRegisters(k, code::kFocusSpeed, ToByte(speed));
        return;
    }
}

QString TimeUpdateText(const QDateTime& now) {
    const QDate date = now.date();
    const QTime time = now.time();
    auto two = [](int value) {
        return QStringLiteral("%1").arg(value % 100, 2, 10, QLatin1Char('0'));
    };
    return Word(protocol::Kind::TimeUpdate) + two(date.month()) + u'/' + two(date.day()) + u'/' +
           two(date.year()) + u'/' + two(time.hour()) + u':' + two(time.minute()) + u':' +
           two(time.second()) + QLatin1Char(protocol::kAsciiEnd);
}

QString CameraTitleText(std::int32_t camera, const QString& label) {
    return Str(camera) + Word(protocol::Kind::CameraTitle) + label + FreeTextEnd();
}

} // namespace quellpad
