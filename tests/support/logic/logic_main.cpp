#include "i18n/translations.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// Tests of the plain logic run without a display or a widget, in a configuration folder of
// their own, never the tester's. The texts are the program's English, counts included.
int main(int argc, char** argv) {
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    QCoreApplication app(argc, argv);
    quellpad::InstallTranslations(QLocale(QLocale::English, QLocale::UnitedStates));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
