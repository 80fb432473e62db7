#include "quellpad/identity.h"

#include <QDir>
#include <QGuiApplication>
#include <QSettings>

#include <gtest/gtest.h>

namespace quellpad::test {
namespace {

// Docks find the desktop entry by the name the program gives itself (on Wayland its
// application id), so that name must be the entry the package installs.
TEST(IdentityTest, DesktopFileNameIsThePackagedDesktopEntry) {
    NameApplication();
    EXPECT_EQ(QGuiApplication::desktopFileName(), QStringLiteral("org.quellpad.quellpad"));
    const QString entry = QDir(QStringLiteral(QUELLPAD_PACKAGING_DIR))
                              .filePath(kDesktopId + QStringLiteral(".desktop"));
    ASSERT_TRUE(QFile::exists(entry)) << entry.toStdString();
    const QSettings desktop(entry, QSettings::IniFormat);
    EXPECT_EQ(desktop.value(QStringLiteral("Desktop Entry/StartupWMClass")).toString(),
              QCoreApplication::applicationName())
        << "the window class is made from the application's name";
}

} // namespace
} // namespace quellpad::test
