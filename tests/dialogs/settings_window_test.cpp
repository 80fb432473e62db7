#include "fixtures.h"

#include "console/frm_main.h"
#include "dialogs/frm_settings.h"
#include "engine/port_control.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace quellpad::test {
namespace {

class SettingsWindowTest : public KeyboardFixture {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n");
        StartKeyboard(*keyboard_);
    }
    template <class T> static T* Child(QWidget& window, const char* name) {
        T* child = window.findChild<T*>(QLatin1String(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }
};

TEST_F(SettingsWindowTest, CancelledChoicesAreForgottenByTheNextWindow) {
    {
        frmSettings window(*keyboard_);
        QTest::mouseClick(Child<QRadioButton>(window, "BR9600"), Qt::LeftButton);
        EXPECT_EQ(keyboard_->BaudRate, QStringLiteral("9600"));
        QTest::mouseClick(Child<QPushButton>(window, "Cancel"), Qt::LeftButton);
    }
    frmSettings window(*keyboard_);
    EXPECT_TRUE(Child<QRadioButton>(window, "BR2400")->isChecked());
    window.Save_Click();
    EXPECT_TRUE(ReadSettings().startsWith("2400\r\n"));
}

TEST_F(SettingsWindowTest, SaveAppliesAndWritesTheChoicesAndKeepsEachPortsOpenState) {
    OpenPorts(true, false);
    frmSettings window(*keyboard_);
    QSignalSpy saved(&window, &frmSettings::Saved);
    QTest::mouseClick(Child<QRadioButton>(window, "BR19200"), Qt::LeftButton);
    QTest::mouseClick(Child<QRadioButton>(window, "P_Even"), Qt::LeftButton);
    QTest::mouseClick(Child<QCheckBox>(window, "RTS_CheckBox"), Qt::LeftButton);
    QTest::mouseClick(Child<QPushButton>(window, "Save"), Qt::LeftButton);
    EXPECT_EQ(saved.size(), 1);
    EXPECT_EQ(ReadSettings(), QByteArray("19200\r\ne\r\nTrue\r\n1 2\r\nD\r\nNone\r\n"));
    EXPECT_TRUE(keyboard_->MSComm1().IsOpen());
    EXPECT_FALSE(keyboard_->MSComm2().IsOpen());
    EXPECT_EQ(Child<QCheckBox>(window, "RTS_CheckBox")->toolTip(),
              QStringLiteral("For use with \"port powered\" RS-232 to RS-422 converters"));
}

TEST_F(SettingsWindowTest, AValueMatchingNoButtonSelectsNone) {
    WriteSettings("1200\r\nx\r\nFalse\r\n1 2\r\nD\r\nNone\r\n");
    frmSettings window(*keyboard_);
    for (const char* name :
         {"BR2400", "BR4800", "BR9600", "BR19200", "P_None", "P_Odd", "P_Even"}) {
        EXPECT_FALSE(Child<QRadioButton>(window, name)->isChecked()) << name;
    }
}

TEST_F(SettingsWindowTest, EveryChoiceIsReachedByKeyboardTabBetweenGroupsArrowsWithin) {
    frmSettings window(*keyboard_);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Child<QRadioButton>(window, "BR2400")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(keyboard_->BaudRate, QStringLiteral("4800"));
    QStringList visited;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited << QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(visited, QStringList({"P_None", "RTS_CheckBox", "Save", "Cancel", "BR4800"}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(keyboard_->Parity, QStringLiteral("o"));
}

TEST_F(SettingsWindowTest, TheMainWindowTitleFollowsASave) {
    FrmMain main(*keyboard_);
    main.Form_Load();
    QTimer::singleShot(0, [&] {
        auto* window = qobject_cast<frmSettings*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        QTest::mouseClick(Child<QRadioButton>(*window, "BR4800"), Qt::LeftButton);
        window->Save_Click();
    });
    main.findChild<QAction*>(QStringLiteral("Settings_Menu_Option"))->trigger();
    EXPECT_EQ(main.windowTitle(), QStringLiteral("Quellpad - Settings (4800, n, 8, 1)"));
}

} // namespace
} // namespace quellpad::test
