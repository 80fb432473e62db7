// Renders the main window offscreen in one mode, or the settings window, and saves it as
// a PNG, for the README.
// Usage: quellpad_screenshot MODE OUTPUT.png [WIDTH HEIGHT]
//        (MODE: "D", "P", "ASCII" or "MUX ASCII"; the size is clamped to the window's minimum)
//        quellpad_screenshot settings OUTPUT.png
#include "console/frm_main.h"
#include "dialogs/frm_settings.h"
#include "engine/keyboard_state.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[]) {
    if (argc != 3 && argc != 5) {
        std::fprintf(stderr, "usage: %s MODE OUTPUT.png [WIDTH HEIGHT]\n", argv[0]);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir settings;
    qputenv("QUELLPAD_SETTINGS_DIR", settings.path().toLocal8Bit());
    QFile file(QDir(settings.path()).filePath(QStringLiteral("Settings.dat")));
    if (!file.open(QIODevice::WriteOnly)) {
        return 1;
    }
    const QByteArray mode(argv[1]);
    const bool settingsWindow = mode == "settings";
    file.write("9600\r\nn\r\nFalse\r\n1 2\r\n" + QByteArray(settingsWindow ? "D" : argv[1]) +
               "\r\nNone\r\n");
    file.close();

    QApplication app(argc, argv);
    quellpad::Quellpad_Support_Func keyboard;
    if (settingsWindow) {
        quellpad::frmSettings window(keyboard);
        window.show();
        QTimer::singleShot(200, &app, [&] {
            app.exit(window.grab().save(QString::fromLocal8Bit(argv[2])) ? 0 : 1);
        });
        return QApplication::exec();
    }
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    window.resize(argc == 5 ? QSize(std::atoi(argv[3]), std::atoi(argv[4])) : QSize(760, 540));
    window.show();
    QTimer::singleShot(
        200, &app, [&] { app.exit(window.grab().save(QString::fromLocal8Bit(argv[2])) ? 0 : 1); });
    return QApplication::exec();
}
