#include "console/frm_main.h"
#include "engine/keyboard_state.h"
#include "engine/port_binding.h"
#include "engine/settings_location.h"
#include "gamepad/gamepad.h"
#include "i18n/translations.h"
#include "netline/network_line.h"
#include "quellpad/command_line.h"
#include "quellpad/end_signals.h"
#include "quellpad/identity.h"
#include "site/simulated_line.h"

#include <QApplication>
#include <QScreen>

#include <cstdio>

namespace {

// The line for what the port is bound to now (QUELLPAD_COMn, else the settings window's
// choice, else the platform's device): the simulated site ("sim"), a network serial
// server (tcp://, rfc2217://) or a local device. The keyboard asks again when the
// operator binds the port anew.
std::unique_ptr<quellpad::SerialLine> MakeLine(int portNumber) {
    const QString binding = quellpad::ResolvePortBinding(portNumber).binding;
    if (quellpad::IsSimulatedSiteBinding(binding)) {
        return std::make_unique<quellpad::site::SimulatedLine>(portNumber);
    }
    if (quellpad::IsNetworkBinding(binding)) {
        return quellpad::MakeNetworkLine(portNumber, binding);
    }
    return std::make_unique<quellpad::SerialDevice>(portNumber, binding);
}

// --help, --version and refused arguments, answered without a display: no window is made.
int AnswerOnTerminal(const QStringList& arguments, int argc, char* argv[]) {
    QCoreApplication core(argc, argv);
    quellpad::NameApplication();
    quellpad::InstallTranslations();
    // Read again now that the texts speak the operator's language.
    const quellpad::CommandLine line = quellpad::ParseCommandLine(arguments);
    switch (line.action) {
    case quellpad::CommandLine::Action::ShowHelp:
        std::fputs(qPrintable(quellpad::CommandLineHelp()), stdout);
        return 0;
    case quellpad::CommandLine::Action::ShowVersion:
        std::printf("%s %s\n", qPrintable(QCoreApplication::applicationName()),
                    qPrintable(QCoreApplication::applicationVersion()));
        return 0;
    case quellpad::CommandLine::Action::Refuse:
    case quellpad::CommandLine::Action::Run:
        break;
    }
    std::fprintf(stderr, "quellpad: %s\n", qPrintable(line.error));
    return quellpad::kUsageStatus;
}

} // namespace

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    const quellpad::CommandLine line = quellpad::ParseCommandLine(arguments);
    if (line.action != quellpad::CommandLine::Action::Run) {
        return AnswerOnTerminal(arguments, argc, argv);
    }
    quellpad::ApplyCommandLine(line);

    QApplication app(argc, argv);
    quellpad::NameApplication();
    quellpad::InstallTranslations();

    quellpad::Quellpad_Support_Func keyboard(&MakeLine);
    quellpad::FrmMain window(keyboard);
    // Ended by the session as by the window's close button: the cameras are stopped first.
    const quellpad::EndSignals endSignals([&window](int /*signal*/) {
        window.close();
        QCoreApplication::quit();
    });
    window.Form_Load();

    if (const QScreen* screen = window.screen()) {
        window.move(screen->availableGeometry().center() - window.rect().center());
    }
    window.show();

    // A joystick the operator has used before starts once the window is up, so that the
    // first paint does not wait for it; otherwise Options > Joystick... starts it.
    quellpad::Gamepad gamepad(window, keyboard, quellpad::BindingsFilePath());
    if (gamepad.WantedAtStart()) {
        gamepad.StartLater(300);
    }
    return QApplication::exec();
}
