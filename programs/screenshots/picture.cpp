#include "picture.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace quellpad::screenshots {

void DrawOffscreen(bool simulatedPorts) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (simulatedPorts) {
        qputenv("QUELLPAD_COM1", "sim");
        qputenv("QUELLPAD_COM2", "sim");
    }
}

int SaveWhenSettled(QWidget& window, const QString& path, int delayMs) {
    QTimer::singleShot(delayMs, &window,
                       [&window, path] { QApplication::exit(window.grab().save(path) ? 0 : 1); });
    return QApplication::exec();
}

} // namespace quellpad::screenshots
