#include "port_control.h"

#include "errors.h"
#include "settings_file.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace quellpad {

namespace {

constexpr int kInputBufferBytes = 1024;
constexpr int kOutputBufferBytes = 50;
constexpr int kInputLength = 30;

QString PortDigit(int portNumber) {
    return QString::number(portNumber);
}

} // namespace

bool TogglePort(Quellpad_Support_Func& keyboard, int portNumber, bool otherPortChecked) {
    SerialLine& port = keyboard.Port(portNumber);
    const bool opening = !port.IsOpen();
    if (opening) {
        port.Open();
        keyboard.EnabledPorts = otherPortChecked ? QStringLiteral("1 2") : PortDigit(portNumber);
    } else {
        port.Close();
        keyboard.EnabledPorts =
            otherPortChecked ? PortDigit(3 - portNumber) : QStringLiteral("None");
    }
    keyboard.SaveSettings();
    return opening;
}

void ApplyLineSettings(Quellpad_Support_Func& keyboard) {
    for (int number = 1; number <= 2; ++number) {
        if (!keyboard.AvailablePorts.contains(PortDigit(number))) {
            continue;
        }
        SerialLine& port = keyboard.Port(number);
        const bool wasOpen = port.IsOpen();
        port.Close();
        port.SetSettings(keyboard.LineSettingsText());
        port.SetRtsEnable(keyboard.HoldRts == u"True");
        if (wasOpen) {
            port.Open();
        }
    }
}

void ResetKeyboardState(Quellpad_Support_Func& k) {
    k.BaudRate.clear();
    k.Parity.clear();
    k.HoldRts.clear();
    k.AvailablePorts.clear();
    k.EnabledPorts.clear();
    k.CurrentMode.clear();
    k.AddressCOM1 = 1;
    k.AddressCOM2 = 1;
    k.PresetNumber = 1;
    k.ControlLockOn = false;
    k.RetransmitInterval = 1000;
    k.Com1Response.clear();
    k.Com2Response.clear();
    k.RetransmitOn = false;
    k.ClearCommandBytes();
}

QStringList StartKeyboard(Quellpad_Support_Func& k) {
    QStringList problems;
    ResetKeyboardState(k);

    const SettingsFields read = ReadSettingsFile(k.SettingsPath);
    k.BaudRate = read.BaudRate;
    k.Parity = read.Parity;
    k.HoldRts = read.HoldRts;
    k.AvailablePorts = read.AvailablePorts;
    k.CurrentMode = read.CurrentMode;
    k.EnabledPorts = read.EnabledPorts;

    const bool incomplete = k.BaudRate.isEmpty() || k.Parity.isEmpty() || k.HoldRts.isEmpty() ||
                            k.AvailablePorts.isEmpty() || k.CurrentMode.isEmpty() ||
                            k.EnabledPorts.isEmpty();
    if (incomplete) {
        auto fill = [](QString& field, const QString& fallback) {
            if (field.isEmpty()) {
                field = fallback;
            }
        };
        fill(k.BaudRate, QStringLiteral("2400"));
        fill(k.Parity, QStringLiteral("n"));
        fill(k.HoldRts, QStringLiteral("False"));
        if (k.AvailablePorts.isEmpty()) {
            k.DetectPorts();
        }
        fill(k.CurrentMode, kModeD);
        fill(k.EnabledPorts, QStringLiteral("None"));
        try {
            k.SaveSettings();
        } catch (const SettingsError& error) {
            problems << error.Message();
        }
    }

    // "T" and "H" name modes this keyboard cannot select; the file keeps them until the
    // next save.
    if (k.CurrentMode == u"T" || k.CurrentMode == u"H") {
        k.CurrentMode = kModeD;
    }

    for (int number = 1; number <= 2; ++number) {
        SerialLine& port = k.Port(number);
        port.SetBufferSizes(kInputBufferBytes, kOutputBufferBytes);
        port.SetInputLength(kInputLength);
        try {
            port.SetSettings(k.LineSettingsText());
            if (k.EnabledPorts.contains(PortDigit(number))) {
                port.Open();
            } else {
                port.Close();
            }
        } catch (const PortError& error) {
            problems << error.Message();
        }
    }
    return problems;
}

void RaiseTimerResolution() {
#ifdef Q_OS_WIN
    timeBeginPeriod(1);
#endif
}

void RestoreTimerResolution() {
#ifdef Q_OS_WIN
    timeEndPeriod(1);
#endif
}

} // namespace quellpad
