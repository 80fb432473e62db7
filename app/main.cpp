#include "console/frm_main.h"
#include "engine/keyboard_state.h"
#include "engine/settings_location.h"
#include "gamepad/gamepad.h"
#include "netline/network_line.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QScreen>
#include <QStatusBar>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quellpad"));
    QApplication::setApplicationVersion(QStringLiteral(QUELLPAD_VERSION));

    // QUELLPAD_COMn may name a network serial server (tcp://, rfc2217://) instead of a device.
    quellpad::Quellpad_Support_Func keyboard(&quellpad::MakeNetworkOrDeviceLine);
    quellpad::FrmMain window(keyboard);
    window.Form_Load();

    // An installed program keeps its settings in the user's folder, not beside it: say where.
    const QString settingsDir =
        QDir::toNativeSeparators(QFileInfo(keyboard.SettingsPath).absolutePath());
    auto* settingsPlace = new QLabel(QStringLiteral("Settings: ") + settingsDir);
    settingsPlace->setObjectName(QStringLiteral("SettingsPlaceLabel"));
    settingsPlace->setToolTip(keyboard.SettingsPath);
    window.statusBar()->addPermanentWidget(settingsPlace);

    if (const QScreen* screen = window.screen()) {
        window.move(screen->availableGeometry().center() - window.rect().center());
    }
    window.show();

    // SDL starts once the window is up, so that the first paint does not wait for it.
    quellpad::Gamepad gamepad(window, keyboard, quellpad::BindingsFilePath());
    gamepad.StartLater(300);
    return QApplication::exec();
}
