#include "console/frm_main.h"
#include "engine/keyboard_state.h"
#include "engine/port_binding.h"
#include "engine/settings_location.h"
#include "gamepad/gamepad.h"
#include "netline/network_line.h"
#include "site/simulated_line.h"

#include <QApplication>
#include <QScreen>

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

} // namespace

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quellpad"));
    QApplication::setApplicationVersion(QStringLiteral(QUELLPAD_VERSION));

    quellpad::Quellpad_Support_Func keyboard(&MakeLine);
    quellpad::FrmMain window(keyboard);
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
