// The program's start-up as far as an idle event loop with the window shown, then exit:
// run it under /usr/bin/time or hyperfine for the start-up time and peak memory.
#include "console/frm_main.h"
#include "engine/keyboard_state.h"
#include "gamepad/gamepad.h"

#include <QApplication>
#include <QTimer>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    quellpad::Quellpad_Support_Func keyboard;
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    window.show();
    // As the program does: the joystick's SDL starts only after the window is up.
    quellpad::Gamepad gamepad(window, keyboard, QString());
    gamepad.StartLater(300);
    QTimer::singleShot(0, &app, &QCoreApplication::quit);
    return QApplication::exec();
}
