#include "shown_messages.h"

#include "i18n/translations.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// Each test starts with no message shown.
class ForgetShownMessages : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override {
        quellpad::test::ShownMessages().clear();
    }
};

} // namespace

// Widget tests run on the offscreen platform unless told otherwise (the window manager
// tests run on a virtual X display), in a configuration folder of their own, never the
// tester's (remembered windows, a rewired site); messages to the operator are recorded
// rather than waiting for a click. The texts are the program's English, counts included.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    QApplication app(argc, argv);
    quellpad::InstallTranslations(QLocale(QLocale::English, QLocale::UnitedStates));
    quellpad::test::RealMessagePresenter() =
        quellpad::ui::SetMessagePresenter([](QWidget*, const quellpad::ui::Message& message) {
            quellpad::test::ShownMessages().append(message);
        });
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new ForgetShownMessages);
    return RUN_ALL_TESTS();
}
