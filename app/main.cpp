#include "console/frm_main.h"
#include "engine/keyboard_state.h"
#include "netline/network_line.h"

#include <QApplication>
#include <QScreen>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quellpad"));
    QApplication::setApplicationVersion(QStringLiteral(QUELLPAD_VERSION));

    // QUELLPAD_COMn may name a network serial server (tcp://, rfc2217://) instead of a device.
    quellpad::Quellpad_Support_Func keyboard(&quellpad::MakeNetworkOrDeviceLine);
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    if (const QScreen* screen = window.screen()) {
        window.move(screen->availableGeometry().center() - window.rect().center());
    }
    window.show();
    return QApplication::exec();
}
