// The program as it starts, with the operator's retransmission switched on, for the soak:
// scripts/soak floods its ports and watches its memory and the repeated frames.
// Usage: quellpad_soak_probe PERIOD_SECONDS (runs until it is terminated)
#include "console/frm_main.h"
#include "engine/keyboard_state.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    quellpad::Quellpad_Support_Func keyboard;
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    window.show();

    const QString period = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("0.1");
    window.findChild<QLineEdit*>(QStringLiteral("RetransmitTimeTextBox"))->setText(period);
    // The ASCII modes repeat the last command text; give them one, as a Monitor click would.
    if (keyboard.CurrentMode == quellpad::kModeAscii) {
        keyboard.AsciiCommand = QStringLiteral("1Ma");
    } else if (keyboard.CurrentMode == quellpad::kModeMuxAscii) {
        keyboard.AsciiCommand = QStringLiteral("1Mm");
    }
    window.findChild<QAction*>(QStringLiteral("RetransmitTimerOption"))->trigger();
    return QApplication::exec();
}
