#include "console/frm_main.h"
#include "engine/keyboard_state.h"
#include "site/simulated_line.h"

#include <QApplication>
#include <QScreen>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quellpad"));
    QApplication::setApplicationVersion(QStringLiteral(QUELLPAD_VERSION));

    // QUELLPAD_COM1=sim (or COM2) puts a simulated site on that port instead of a device.
    quellpad::Quellpad_Support_Func keyboard(&quellpad::site::MakeLine);
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    if (const QScreen* screen = window.screen()) {
        window.move(screen->availableGeometry().center() - window.rect().center());
    }
    window.show();
    return QApplication::exec();
}
