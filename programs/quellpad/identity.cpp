#include "quellpad/identity.h"

#include <QGuiApplication>

namespace quellpad {

void NameApplication() {
    QCoreApplication::setApplicationName(QStringLiteral("Quellpad"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUELLPAD_VERSION));
    QGuiApplication::setDesktopFileName(kDesktopId);
}

} // namespace quellpad
