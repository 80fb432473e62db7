#include "console/frm_main.h"
#include "engine/keyboard_state.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quellpad"));
    QApplication::setApplicationVersion(QStringLiteral(QUELLPAD_VERSION));

    quellpad::Quellpad_Support_Func keyboard;
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    window.show();
    return QApplication::exec();
}
