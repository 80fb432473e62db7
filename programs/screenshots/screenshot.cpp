// Renders the main window offscreen in one mode, or the settings window, and saves it as
// a PNG, for the README; or shows every window of the program at once on the display, for
// scripts/accessibility-tree to read what a screen reader hears of each.
// Usage: quellpad_screenshot MODE OUTPUT.png [WIDTH HEIGHT]
//        (MODE: "D", "P", "ASCII" or "MUX ASCII"; the size is clamped to the window's minimum)
//        quellpad_screenshot settings OUTPUT.png
//        quellpad_screenshot windows MODE
//        quellpad_screenshot dialogs FOLDER   (each window it opens, as FOLDER/<name>.png)
// QUELLPAD_SCREENSHOT_PALETTE=dark draws it under a dark desktop's palette.
#include "console/frm_main.h"
#include "dialogs/about.h"
#include "dialogs/advanced_commands.h"
#include "dialogs/extended_commands.h"
#include "dialogs/frm_label.h"
#include "dialogs/frm_settings.h"
#include "dialogs/menu_control.h"
#include "dialogs/type_commands.h"
#include "engine/keyboard_state.h"
#include "i18n/translations.h"
#include "picture.h"
#include "site_window/frm_simulated_site.h"
#include "traffic_window/frm_traffic.h"
#include "ui/palettes.h"

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
    const QByteArray mode(argv[1]);
    const bool everyWindow = mode == "windows";
    const bool dialogs = mode == "dialogs";
    if (!everyWindow) {
        quellpad::screenshots::DrawOffscreen(false);
    }
    QTemporaryDir settings;
    qputenv("QUELLPAD_SETTINGS_DIR", settings.path().toLocal8Bit());
    QFile file(QDir(settings.path()).filePath(QStringLiteral("Settings.dat")));
    if (!file.open(QIODevice::WriteOnly)) {
        return 1;
    }
    const bool settingsWindow = mode == "settings";
    const QByteArray shownMode = everyWindow                   ? QByteArray(argv[2])
                                 : (settingsWindow || dialogs) ? "D"
                                                               : mode;
    file.write("9600\r\nn\r\nFalse\r\n1 2\r\n" + shownMode + "\r\nNone\r\n");
    file.close();

    QApplication app(argc, argv);
    // In the language the locale asks for, as the program shows it: LANG=de_DE.UTF-8.
    quellpad::InstallTranslations();
    if (qEnvironmentVariable("QUELLPAD_SCREENSHOT_PALETTE") == u"dark") {
        QApplication::setPalette(quellpad::ui::DarkPalette());
    }
    quellpad::Quellpad_Support_Func keyboard;
    if (everyWindow || dialogs) {
        quellpad::FrmMain window(keyboard);
        window.Form_Load();
        if (everyWindow) {
            window.show();
        }
        quellpad::LevelAdjusters levels;
        quellpad::FrmTypeCmnds typed(keyboard, &window);
        typed.Prepare(keyboard.CurrentMode);
        quellpad::FrmAdvancedCommands advanced(keyboard, &window);
        quellpad::FrmExtendedCommands extended(keyboard, levels, &window);
        quellpad::frmMenuControl menu(keyboard, &window);
        quellpad::FrmLabel label(keyboard, &window);
        quellpad::frmAbout about(&window);
        quellpad::frmSettings settingsDialog(keyboard, &window);
        quellpad::traffic_window::FrmTraffic traffic(keyboard, &window);
        quellpad::site_window::FrmSimulatedSite site(keyboard, &window);
        int failed = 0;
        for (QWidget* shown :
             std::initializer_list<QWidget*>{&typed, &advanced, &extended, &menu, &label, &about,
                                             &settingsDialog, &traffic, &site}) {
            shown->setWindowModality(Qt::NonModal);
            shown->show();
            if (dialogs) {
                const QString path = QDir(QString::fromLocal8Bit(argv[2]))
                                         .filePath(shown->objectName() + QStringLiteral(".png"));
                failed += shown->grab().save(path) ? 0 : 1;
            }
        }
        return dialogs ? failed : QApplication::exec();
    }
    if (settingsWindow) {
        quellpad::frmSettings window(keyboard);
        window.show();
        return quellpad::screenshots::SaveWhenSettled(window, QString::fromLocal8Bit(argv[2]), 200);
    }
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    window.resize(argc == 5 ? QSize(std::atoi(argv[3]), std::atoi(argv[4])) : QSize(760, 540));
    window.show();
    return quellpad::screenshots::SaveWhenSettled(window, QString::fromLocal8Bit(argv[2]), 200);
}
