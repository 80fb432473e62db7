// Records what the keyboard puts on COM 1 during one scripted session in one mode: every
// button of the main window pressed and let go, every one-shot menu item, each number box
// typed into, and the joystick dragged round the square, one dispatcher tick at a time. The
// ticks are fired by hand, so the record holds no timing and two builds compare byte for
// byte (scripts/wire-sessions).
// Usage: quellpad_wire_session MODE OUTPUT   (MODE: "D", "P", "ASCII" or "MUX ASCII")
#include "console/frm_main.h"
#include "engine/keyboard_state.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

namespace {

int master = -1;
QFile* output = nullptr;

void StopTimers(QWidget& window) {
    for (QTimer* timer : window.findChildren<QTimer*>()) {
        timer->stop();
    }
}

// The bytes the step put on the line, as one line of the record.
void Record(const QString& step) {
    QCoreApplication::processEvents();
    QByteArray bytes;
    char buffer[4096];
    for (int quiet = 0; quiet < 3;) {
        const ssize_t got = read(master, buffer, sizeof buffer);
        if (got > 0) {
            bytes.append(buffer, got);
            quiet = 0;
        } else {
            ++quiet;
            QCoreApplication::processEvents();
            usleep(20000);
        }
    }
    output->write(step.toUtf8() + ": " + bytes.toHex(' ') + "\n");
}

void Tick(QWidget& window, int times) {
    auto* timer = window.findChild<QTimer*>(QStringLiteral("CommandChangeTimer"));
    for (int i = 0; i < times; ++i) {
        QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
    }
    StopTimers(window);
}

template <typename T> QList<T*> ByName(QWidget& window) {
    QList<T*> found = window.findChildren<T*>();
    found.removeIf([](T* item) { return item->objectName().isEmpty(); });
    std::stable_sort(found.begin(), found.end(),
                     [](T* a, T* b) { return a->objectName() < b->objectName(); });
    return found;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s MODE OUTPUT\n", argv[0]);
        return 2;
    }
    master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
        return 1;
    }
    fcntl(master, F_SETFL, O_NONBLOCK);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QUELLPAD_COM1", ptsname(master));
    qputenv("QUELLPAD_COM2", "/dev/null");
    QTemporaryDir settings;
    qputenv("QUELLPAD_SETTINGS_DIR", settings.path().toLocal8Bit());
    QFile file(QDir(settings.path()).filePath(QStringLiteral("Settings.dat")));
    if (!file.open(QIODevice::WriteOnly)) {
        return 1;
    }
    file.write("9600\r\nn\r\nFalse\r\n1 2\r\n" + QByteArray(argv[1]) + "\r\n1\r\n");
    file.close();
    QFile record(QString::fromLocal8Bit(argv[2]));
    if (!record.open(QIODevice::WriteOnly)) {
        return 1;
    }
    output = &record;

    QApplication app(argc, argv);
    // A menu item that opens a window of its own sends nothing until the window is used.
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            modal->close();
        }
    });
    closer.start(20);
    quellpad::Quellpad_Support_Func keyboard;
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    window.show();
    StopTimers(window);
    Record(QStringLiteral("start"));

    for (QLineEdit* box : ByName<QLineEdit>(window)) {
        if (!box->isVisible() || !box->isEnabled() || box->isReadOnly()) {
            continue;
        }
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("7"));
        QTest::keyClick(box, Qt::Key_Return);
        Tick(window, 2);
        Record(QStringLiteral("type ") + box->objectName());
    }
    for (QAbstractButton* button : ByName<QAbstractButton>(window)) {
        if (!button->isVisible() || !button->isEnabled()) {
            continue;
        }
        const QPoint centre = button->rect().center();
        QTest::mousePress(button, Qt::LeftButton, {}, centre);
        Tick(window, 2);
        QTest::mouseRelease(button, Qt::LeftButton, {}, centre);
        Tick(window, 2);
        Record(QStringLiteral("press ") + button->objectName());
    }
    for (QMenu* menu : ByName<QMenu>(window)) {
        for (QAction* item : menu->actions()) {
            if (item->objectName().isEmpty() || item->menu() != nullptr || !item->isEnabled() ||
                item->isCheckable() || item->text().endsWith(QStringLiteral("...")) ||
                item->objectName() == u"ExitOption" || item->objectName().contains(u"Macro")) {
                continue;
            }
            item->trigger();
            Tick(window, 2);
            Record(QStringLiteral("menu ") + item->objectName());
        }
    }
    auto* square = window.findChild<QWidget*>(QStringLiteral("Joystick_Square"));
    if (square != nullptr) {
        const QPoint centre = square->rect().center();
        const int reach = square->width() / 2 - 2;
        QTest::mousePress(square, Qt::LeftButton, {}, centre);
        for (int step = 0; step < 16; ++step) {
            const double angle = step * 3.14159265358979 / 8;
            const double share = (step % 4 + 1) / 4.0;
            const QPoint to = centre + QPoint(static_cast<int>(reach * share * std::cos(angle)),
                                              static_cast<int>(reach * share * std::sin(angle)));
            QTest::mouseMove(square, to);
            Tick(window, 1);
            Record(QStringLiteral("joystick %1").arg(step));
        }
        QTest::mouseRelease(square, Qt::LeftButton, {}, centre);
        Tick(window, 2);
        Record(QStringLiteral("joystick let go"));
    }
    return 0;
}
