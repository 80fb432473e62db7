#include "port_control.h"

#include "errors.h"
#include "plain_file.h"
#include "port_binding.h"
#include "port_watch.h"
#include "settings_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

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

bool Enabled(const Quellpad_Support_Func& keyboard, int portNumber) {
    return keyboard.EnabledPorts.contains(PortDigit(portNumber));
}

// What a port is given before it is first opened: the buffers, the input length and the
// line settings. Fails with PortError when the settings cannot be applied.
void PreparePort(const Quellpad_Support_Func& keyboard, SerialLine& port) {
    port.SetBufferSizes(kInputBufferBytes, kOutputBufferBytes);
    port.SetInputLength(kInputLength);
    port.SetSettings(keyboard.LineSettingsText());
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

void RebindPort(Quellpad_Support_Func& keyboard, int portNumber) {
    SerialLine& port = keyboard.ReplaceLine(portNumber);
    port.SetRtsEnable(keyboard.HoldRts == u"True");
    PreparePort(keyboard, port);
    // A port that had no device at the first start can be enabled once it is bound to one
    // that is there; the ports found before stay listed.
    if (!keyboard.AvailablePorts.contains(PortDigit(portNumber)) &&
        keyboard.PortExists(portNumber)) {
        const bool com1 = portNumber == 1 || keyboard.AvailablePorts.contains(u'1');
        const bool com2 = portNumber == 2 || keyboard.AvailablePorts.contains(u'2');
        keyboard.AvailablePorts =
            (com1 ? QStringLiteral("1") : QString()) + (com2 ? QStringLiteral(" 2") : QString());
    }
    if (Enabled(keyboard, portNumber)) {
        port.Open();
    }
}

bool ListPortsNowPresent(Quellpad_Support_Func& keyboard, std::array<bool, 2>& lookAgain) {
    bool added = false;
    for (int number = 1; number <= 2; ++number) {
        const QString device = keyboard.Port(number).Device();
        bool& look = lookAgain[static_cast<std::size_t>(number - 1)];
        // Only a device path can be seen to come and go without opening it.
        if (keyboard.AvailablePorts.contains(PortDigit(number)) || !device.startsWith(u'/')) {
            continue;
        }
        if (!DevicePresent(device)) {
            look = true;
            continue;
        }
        if (!look) {
            continue;
        }
        look = false;
        // An open port is there; trying it would close it.
        if (!keyboard.Port(number).IsOpen() && !keyboard.PortExists(number)) {
            continue;
        }
        const bool com1 = number == 1 || keyboard.AvailablePorts.contains(u'1');
        const bool com2 = number == 2 || keyboard.AvailablePorts.contains(u'2');
        keyboard.AvailablePorts =
            (com1 ? QStringLiteral("1") : QString()) + (com2 ? QStringLiteral(" 2") : QString());
        added = true;
    }
    return added;
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

StatusNotice ClosedAtStartNotice(const QList<PortError>& failures) {
    if (failures.isEmpty()) {
        return {};
    }
    QStringList ports;
    QStringList reasons;
    QString variable; // of the first port the environment or the command line binds
    for (const PortError& failure : failures) {
        ports << QStringLiteral("COM %1 (%2)").arg(failure.PortNumber()).arg(failure.Device());
        reasons << failure.Message();
        if (variable.isEmpty() &&
            ResolvePortBinding(failure.PortNumber()).source == BindingSource::Environment) {
            variable = BindingVariable(failure.PortNumber());
        }
    }
    // The settings window cannot change a binding the environment made: the advice is
    // where the binding was made.
    const QString advice =
        variable.isEmpty()
            ? QCoreApplication::translate("PortControl",
                                          " did not open; to work without equipment, choose "
                                          "\"Simulated site\" in Options > Settings...")
            : QCoreApplication::translate("PortControl",
                                          " did not open. Bound by %1 or the command line; to "
                                          "work without equipment, start with %1=sim")
                  .arg(variable);
    return {ports.join(QCoreApplication::translate("PortControl", " and ")) + advice,
            reasons.join(u'\n')};
}

StatusNotice NothingOpenNotice(const Quellpad_Support_Func& keyboard) {
    QStringList closed;
    QList<int> offered;
    for (int number = 1; number <= 2; ++number) {
        const SerialLine& port = keyboard.Port(number);
        if (port.IsOpen()) {
            return {};
        }
        closed << QStringLiteral("COM %1 (%2)").arg(number).arg(port.Device());
        if (keyboard.AvailablePorts.contains(PortDigit(number))) {
            offered << number;
        }
    }
    const QString nothing =
        QCoreApplication::translate("PortControl", "Nothing was sent: %1 and %2 are closed; ")
            .arg(closed[0], closed[1]);
    if (offered.size() == 1) {
        return {nothing +
                    QCoreApplication::translate("PortControl", "open COM %1 in the Options menu.")
                        .arg(offered[0]),
                {}};
    }
    if (offered.size() == 2) {
        return {nothing + QCoreApplication::translate("PortControl",
                                                      "open COM 1 or COM 2 in the Options menu."),
                {}};
    }
    return {nothing + QCoreApplication::translate("PortControl",
                                                  "bind one to a device in Options > Settings..."),
            {}};
}

QStringList StartKeyboard(Quellpad_Support_Func& k) {
    StartUpReport report = StartKeyboardReporting(k);
    for (const PortError& failure : report.closedPorts) {
        report.problems << failure.Message();
    }
    return report.problems;
}

StartUpReport StartKeyboardReporting(Quellpad_Support_Func& k) {
    StartUpReport report;
    QStringList& problems = report.problems;
    ResetKeyboardState(k);

    const SettingsRead read = InspectSettingsFile(k.SettingsPath);
    k.BaudRate = read.fields.BaudRate;
    k.Parity = read.fields.Parity;
    k.HoldRts = read.fields.HoldRts;
    k.AvailablePorts = read.fields.AvailablePorts;
    k.CurrentMode = read.fields.CurrentMode;
    k.EnabledPorts = read.fields.EnabledPorts;
    const QString path = QDir::toNativeSeparators(k.SettingsPath);
    if (read.notPlainFile) {
        problems << QCoreApplication::translate(
                        "PortControl", "Settings.dat at %1 is not a plain file, so it was neither "
                                       "read nor written. The keyboard starts on its defaults.")
                        .arg(path);
    }

    // Bindings.ini lives beside Settings.dat; what is no plain file there has not been
    // opened, and the ports and the joystick start on their defaults.
    const QString bindings =
        QFileInfo(k.SettingsPath).dir().filePath(QStringLiteral("Bindings.ini"));
    if (IsNoPlainFile(bindings)) {
        problems << NotPlainFileText(QStringLiteral("Bindings.ini"), bindings) +
                        QCoreApplication::translate(
                            "PortControl",
                            ", so it was neither read nor written. The ports and the "
                            "joystick start on their defaults.");
    }

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
        bool rewrite = !read.notPlainFile;
        if (rewrite && !read.damage.isEmpty()) {
            // What could not be read may still matter to its owner: it is kept, never lost.
            const QString unreadable =
                QCoreApplication::translate(
                    "PortControl", "Settings.dat at %1 could not be read as six plain lines (%2)")
                    .arg(path, read.damage);
            try {
                const QString backup = KeepSettingsBackup(k.SettingsPath);
                problems << unreadable + QCoreApplication::translate(
                                             "PortControl", ". It has been kept as %1, and a new "
                                                            "Settings.dat holds the defaults for "
                                                            "what could not be read.")
                                             .arg(backup);
            } catch (const SettingsError& error) {
                problems << unreadable + QCoreApplication::translate(
                                             "PortControl",
                                             ", and %1, so it was left as it is. The "
                                             "keyboard starts on the defaults for "
                                             "what could not be read.")
                                             .arg(error.Message());
                rewrite = false;
            }
        }
        if (rewrite) {
            try {
                k.SaveSettings();
            } catch (const SettingsError& error) {
                problems << error.Message();
            }
        }
    }

    // "T" and "H" name modes this keyboard cannot select; the file keeps them until the
    // next save.
    if (k.CurrentMode == u"T" || k.CurrentMode == u"H") {
        k.CurrentMode = kModeD;
    }
    if (!IsAsciiMode(k.CurrentMode) && !IsFrameMode(k.CurrentMode)) {
        problems << QCoreApplication::translate(
                        "PortControl",
                        "Settings.dat holds the mode \"%1\", which this keyboard does "
                        "not know, so no command is sent and replies are dropped. "
                        "Choose a mode in the Mode menu.")
                        .arg(QuoteValue(k.CurrentMode));
    }

    for (int number = 1; number <= 2; ++number) {
        SerialLine& port = k.Port(number);
        // Only a port the operator enabled is worth a word; the other keeps its settings
        // problem until it is enabled.
        const bool enabled = Enabled(k, number);
        try {
            PreparePort(k, port);
            if (enabled) {
                port.Open();
            } else {
                port.Close();
            }
        } catch (const PortError& error) {
            if (enabled && error.Failure() == PortFailure::BadSettings) {
                problems << error.Message();
            } else if (enabled) {
                report.closedPorts << error;
            }
        }
    }
    return report;
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
