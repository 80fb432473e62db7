#include "dispatcher.h"

#include "console/joystick.h"
#include "engine/numeric.h"
#include "engine/words.h"

#include <algorithm>
#include <array>

namespace quellpad {

namespace {

using namespace protocol::code;

// What the zone sequences write: a zone is marked with the scan codes around the store.
constexpr std::uint8_t kZoneEndMark = kSetZoneEnd;
constexpr std::uint8_t kZoneStore = kSetZoneStart;
constexpr std::uint8_t kZoneEndFinish = kZoneScanOn;
constexpr std::uint8_t kZoneStartBegin = kZoneScanOff;

const QString kStopAll = Word(protocol::Kind::StopAll);

void Load(Quellpad_Support_Func& k, std::uint8_t command1, std::uint8_t command2,
          std::uint8_t data1, std::uint8_t data2) {
    k.Command1 = command1;
    k.Command2 = command2;
    k.Data1 = data1;
    k.Data2 = data2;
}

// The character code of character `position` (1-based) of the label, a blank past its end.
std::uint8_t LabelCharacter(const QString& label, int position) {
    return position >= 1 && position <= label.size() ? ToByte(label[position - 1].unicode())
                                                     : std::uint8_t{32};
}

bool RegistersUnchanged(const Quellpad_Support_Func& k) {
    return k.AuxToggleRequest == 0 && k.Command1 == k.LastCommand1 &&
           k.Command2 == k.LastCommand2 && k.Data1 == k.LastData1 && k.Data2 == k.LastData2;
}

bool FramePart(Quellpad_Support_Func& k, const DispatchInputs& in) {
    if (!in.resend && k.PresetSetStep == 0 && k.ZoneRequest == 0 && RegistersUnchanged(k)) {
        return false;
    }
    if (k.AuxToggleRequest == 2 || k.AuxToggleRequest == 1) {
        k.Command2 = k.AuxToggleRequest == 2 ? kSetAux : kClearAux;
        k.Data2 = ToByte(k.AuxNumber);
        --k.AuxToggleRequest;
    }
    if (in.zoneStartSelected) {
        if (k.ZoneRequest == 1) {
            Load(k, 0, kZoneStartBegin, 0, 0);
            k.ZoneRequest = 2;
        } else if (k.ZoneRequest >= 2 && k.ZoneRequest <= 21) {
            Load(k, 0, kWriteCharacter, ToByte(k.ZoneRequest - 2),
                 LabelCharacter(k.LabelText, k.ZoneRequest - 1));
            k.ZoneRequest = ToByte(k.ZoneRequest + 1);
        } else if (k.ZoneRequest == 22) {
            Load(k, 0, kZoneStore, 0, k.ZoneNumber);
            k.ZoneRequest = 0;
        }
    }
    if (in.zoneEndSelected) {
        if (k.ZoneRequest == 1) {
            Load(k, 0, kZoneEndMark, 0, k.ZoneNumber);
            k.ZoneRequest = 2;
        } else if (k.ZoneRequest == 2) {
            Load(k, 0, kZoneEndFinish, 0, 0);
            k.ZoneRequest = 0;
        }
    }
    if (k.PresetSetStep >= 20 && k.PresetSetStep <= 39) {
        Load(k, 0, kWriteCharacter, k.PresetSetStep,
             LabelCharacter(k.LabelText, k.PresetSetStep - 19));
        k.PresetSetStep = ToByte(k.PresetSetStep + 1);
    } else if (k.PresetSetStep == 40) {
        Load(k, 0, kSetPreset, 0, ToByte(k.PresetNumber));
        k.PresetSetStep = 0;
    }
    return true;
}

bool AsciiPart(Quellpad_Support_Func& k, const DispatchInputs& in, DispatchOutcome& outcome) {
    const bool registersZero = k.Command1 == 0 && k.Command2 == 0 && k.Data1 == 0 && k.Data2 == 0;
    // Releasing the last motion control turns the last motion text into the stop-all.
    if ((!IsNonMotionCommand(k.AsciiCommand) || !k.AnyPortOpen()) && registersZero) {
        k.AsciiCommand = kStopAll;
    }
    // A range asks for a send only while it has an alarm left, so that the tick which
    // finds it finished does not repeat the last alarm.
    const bool rangeLeft = (k.AlarmTriggerPending || k.AlarmResetPending) &&
                           k.AlarmRangeStart != 0 && k.AlarmRangeStart <= k.AlarmRangeEnd;
    const bool send = in.resend || k.GpiToggleRequest != 0 || k.AuxToggleRequest != 0 ||
                      k.AsciiCommand != k.LastAsciiCommand || rangeLeft;
    if (send) {
        if (k.AlarmRangeStart != 0 && k.AlarmRangeStart <= k.AlarmRangeEnd) {
            const QString digits = Digits(k.AlarmRangeStart);
            if (k.AlarmTriggerPending) {
                k.AsciiCommand = digits + Word(protocol::Kind::TriggerAlarm);
            }
            if (k.AlarmResetPending) {
                k.AsciiCommand = digits + Word(protocol::Kind::ResetAlarm);
            }
        }
        if (k.AuxToggleRequest == 2 || k.AuxToggleRequest == 1) {
            k.AsciiCommand =
                Digits(k.AuxNumber) +
                Word(k.AuxToggleRequest == 2 ? protocol::Kind::AuxOn : protocol::Kind::AuxOff);
            --k.AuxToggleRequest;
        }
        if (k.GpiToggleRequest == 2 || k.GpiToggleRequest == 1) {
            k.AsciiCommand =
                Digits(k.AuxNumber) +
                Word(k.GpiToggleRequest == 2 ? protocol::Kind::GpiOn : protocol::Kind::GpiOff);
            --k.GpiToggleRequest;
        }
    }
    if (k.AlarmTriggerPending || k.AlarmResetPending) {
        if (k.AlarmRangeStart == 0 || k.AlarmRangeStart > k.AlarmRangeEnd) {
            k.AlarmTriggerPending = false;
            k.AlarmResetPending = false;
            outcome.newInterval = kAsciiModeTick;
            ParseAlarmRange(k, in.alarmNumberText);
        } else {
            k.AlarmRangeStart = ToInt16(k.AlarmRangeStart + 1.0);
        }
    }
    return send;
}

} // namespace

bool IsNonMotionCommand(const QString& text) {
    if (text.contains(Word(protocol::Kind::Label))) {
        return true;
    }
    // Every start of a direction, in both text languages (its stop holds it too).
    for (const protocol::Word& word : protocol::kWords) {
        if (word.kind == protocol::Kind::DirectionStart &&
            text.contains(QLatin1String(word.mnemonic.data(),
                                        static_cast<qsizetype>(word.mnemonic.size())))) {
            return false;
        }
    }
    return !text.contains(kStopAll);
}

std::optional<AlarmRange> ReadAlarmRange(const QString& text) {
    const qsizetype position = text.indexOf(QLatin1String("..")) + 1; // 1-based, 0 when absent
    if (position < 2 || position > 5) {
        return std::nullopt;
    }
    // Digits weighted by powers of ten from the right, each as its code minus 48, so that
    // any character counts as the keyboard has always counted it.
    auto spelled = [](QStringView characters) {
        double value = 0;
        for (const QChar c : characters) {
            value = value * 10 + (c.unicode() - 48);
        }
        return value;
    };
    return AlarmRange{spelled(QStringView(text).left(text.indexOf(u'.'))),
                      spelled(QStringView(text).mid(text.lastIndexOf(u'.') + 1))};
}

void ParseAlarmRange(Quellpad_Support_Func& k, const QString& text) {
    if (const auto range = ReadAlarmRange(text)) {
        // The box refuses ends above 9999, so only text set behind its back could overflow.
        k.AlarmRangeStart = ToInt16(std::min(range->first, 32767.0));
        k.AlarmRangeEnd = ToInt16(std::min(range->last, 32767.0));
    }
}

DispatchOutcome CommandChangeTick(Quellpad_Support_Func& k, const DispatchInputs& in) {
    DispatchOutcome outcome;
    bool send = false;
    if (IsFrameMode(k.CurrentMode)) {
        send = FramePart(k, in);
    } else if (k.CurrentMode == kModeAscii) {
        send = AsciiPart(k, in, outcome);
    } else if (k.CurrentMode == kModeMuxAscii) {
        send = in.resend || k.AsciiCommand != k.LastAsciiCommand;
    }
    if (send) {
        SendAndRemember(k);
        outcome.sent = true;
    }
    return outcome;
}

void SendAndRemember(Quellpad_Support_Func& k) {
    k.SendCommand();
    k.LastCommand1 = k.Command1;
    k.LastCommand2 = k.Command2;
    k.LastData1 = k.Data1;
    k.LastData2 = k.Data2;
    k.LastAsciiCommand = k.AsciiCommand;
}

namespace {

bool RegistersMove(const QString& mode, std::uint8_t command1, std::uint8_t command2) {
    if (command2 & protocol::bit::kOneShot) {
        return false; // a one-shot command: its data are no speeds
    }
    // The lens bits of Command1: three in "D", four in "P" (which "ASCII" mirrors). The
    // speeds in the data move nothing without a direction bit beside them.
    const std::uint8_t lens = mode == kModeD ? protocol::bit::kDLens : protocol::bit::kPLens;
    return (command1 & lens) != 0 || (command2 & ~protocol::bit::kOneShot) != 0;
}

bool AsciiTextMoves(const QString& text) {
    return text != kStopAll && !IsNonMotionCommand(text);
}

} // namespace

bool ReceiverMayBeMoving(const Quellpad_Support_Func& k) {
    const QString& mode = k.CurrentMode;
    if (!IsFrameMode(mode) && !IsAsciiMode(mode)) {
        return false; // nothing is ever sent
    }
    if (RegistersMove(mode, k.Command1, k.Command2) ||
        RegistersMove(mode, k.LastCommand1, k.LastCommand2)) {
        return true;
    }
    if (mode == kModeAscii) {
        return AsciiTextMoves(k.AsciiCommand) || AsciiTextMoves(k.LastAsciiCommand);
    }
    return mode == kModeMuxAscii && !MuxStopTexts(k.LastAsciiCommand).isEmpty();
}

bool LoadStop(Quellpad_Support_Func& k) {
    if (!ReceiverMayBeMoving(k)) {
        return false;
    }
    if (k.CurrentMode == kModeMuxAscii) {
        // The multiplexer stops each direction on its own, and only those it was told.
        const QString stops = MuxStopTexts(k.LastAsciiCommand);
        if (stops.isEmpty()) {
            return false;
        }
        k.AsciiCommand = stops;
    } else if (k.CurrentMode == kModeAscii) {
        k.AsciiCommand = kStopAll;
    }
    Load(k, 0, 0, 0, 0);
    return true;
}

} // namespace quellpad
