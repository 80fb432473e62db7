#include "fixtures.h"
#include "shown_messages.h"

#include "console/frm_main.h"
#include "dialogs/frm_settings.h"
#include "engine/port_binding.h"
#include "engine/port_control.h"
#include "engine/stable_device_names.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
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

// The window opens on the baud rate in use, and the arrows choose as they move.
TEST_F(SettingsWindowTest, EveryChoiceIsReachedByKeyboardTabBetweenGroupsArrowsWithin) {
    WriteSettings("4800\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n");
    frmSettings window(*keyboard_);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"BR4800") << "the checked baud rate";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(keyboard_->BaudRate, QStringLiteral("9600"));
    QStringList visited;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited << QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(visited, QStringList({"P_None", "RTS_CheckBox", "Save", "Cancel", "BR9600"}));
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

// The operator who started Quellpad from a desktop menu binds COM 1 to another device in
// the window: the next command goes there, replies come back from there, and Settings.dat
// keeps its six lines as they were.
TEST_F(SettingsWindowTest, ADeviceChosenInTheWindowCarriesTheNextCommandAtOnce) {
    const QByteArray settings = "9600\r\nn\r\nFalse\r\n1 2\r\nD\r\n1\r\n";
    WriteSettings(settings);
    qunsetenv("QUELLPAD_COM1");
    FrmMain main(*keyboard_);
    main.Form_Load();
    ASSERT_TRUE(keyboard_->MSComm1().IsOpen());
    PseudoTerminal chosen;
    com1_.Drain();

    QTimer::singleShot(0, [&] {
        auto* window = qobject_cast<frmSettings*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        auto* box = Child<QComboBox>(*window, "cboCom1Device");
        ASSERT_TRUE(box->isEnabled());
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->lineEdit(), chosen.SlavePath());
        QTest::mouseClick(Child<QPushButton>(*window, "Save"), Qt::LeftButton);
    });
    main.findChild<QAction*>(QStringLiteral("Settings_Menu_Option"))->trigger();
    ASSERT_TRUE(ShownMessages().isEmpty()) << ShownMessages()[0].text.toStdString();

    // Sent here rather than by the dispatcher's tick, so that exactly one frame goes out.
    main.findChild<QTimer*>(QStringLiteral("CommandChangeTimer"))->stop();
    keyboard_->SetCommandBytes(0, 2, 32, 0);
    keyboard_->SendCommand();
    EXPECT_EQ(chosen.Read(7), QByteArray::fromHex("ff010002200023"));
    EXPECT_EQ(com1_.Drain(50), QByteArray()) << "the old device is let go";
    EXPECT_EQ(chosen.LineSettings(), QStringLiteral("9600,n,8,1")); // a pty shows no parity
    EXPECT_EQ(ReadSettings(), settings);
    EXPECT_EQ(ResolvePortBinding(1),
              (PortBinding{chosen.SlavePath(), BindingSource::BindingsFile}));

    chosen.Write(QByteArray::fromHex("ff010000000001"));
    auto* responses = main.findChild<QPlainTextEdit*>(QStringLiteral("AccessResponseTextBox"));
    EXPECT_TRUE(WaitUntil([&] { return responses->toPlainText().endsWith(u" 00 00 01"); }));
    EXPECT_TRUE(main.findChild<QLabel*>(QStringLiteral("PortBindingsLabel"))
                    ->text()
                    .startsWith(QStringLiteral("COM 1: %1 (open)").arg(chosen.SlavePath())));
}

// A machine with one serial port: COM 2 was never found, and comes into use once it is
// bound to a device that is there.
TEST_F(SettingsWindowTest, APortWithoutADeviceBecomesAvailableOnceBoundToOne) {
    WriteSettings("2400\r\nn\r\nFalse\r\n1\r\nD\r\nNone\r\n");
    qunsetenv("QUELLPAD_COM2");
    // The machine's second port is not there.
    SavePortBinding(dir_.filePath(QStringLiteral("Bindings.ini")), 2,
                    QStringLiteral("/dev/quellpad-missing"));
    MakeKeyboard();
    FrmMain main(*keyboard_);
    main.Form_Load();
    auto* com2Item = main.findChild<QAction*>(QStringLiteral("Com2Option"));
    ASSERT_FALSE(com2Item->isEnabled());
    QTimer::singleShot(0, [&] {
        auto* window = qobject_cast<frmSettings*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        Child<QComboBox>(*window, "cboCom2Device")->setEditText(com2_.SlavePath());
        window->Save_Click();
    });
    main.findChild<QAction*>(QStringLiteral("Settings_Menu_Option"))->trigger();
    EXPECT_EQ(ReadSettings(), QByteArray("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n"));
    EXPECT_TRUE(com2Item->isEnabled());
    com2Item->trigger();
    EXPECT_TRUE(keyboard_->MSComm2().IsOpen());
}

TEST_F(SettingsWindowTest, EachPortShowsItsBindingAndWhereItComesFrom) {
    qunsetenv("QUELLPAD_COM2");
    SavePortBinding(dir_.filePath(QStringLiteral("Bindings.ini")), 2, QStringLiteral("SIM"));
    frmSettings window(*keyboard_);
    auto* com1 = Child<QComboBox>(window, "cboCom1Device");
    auto* com2 = Child<QComboBox>(window, "cboCom2Device");

    EXPECT_FALSE(com1->isEnabled()) << "the variable would win again at the next start";
    EXPECT_EQ(com1->currentText(), com1_.SlavePath());
    EXPECT_EQ(Child<QLabel>(window, "lblCom1Source")->text(),
              QStringLiteral("Set by QUELLPAD_COM1"));
    EXPECT_TRUE(com2->isEnabled());
    EXPECT_EQ(com2->currentText(), QStringLiteral("Simulated site"));
    EXPECT_EQ(Child<QLabel>(window, "lblCom2Source")->text(), QStringLiteral("Chosen here"));
    const SerialLine* line = &keyboard_->MSComm2();
    window.Save_Click();
    EXPECT_EQ(&keyboard_->MSComm2(), line) << "a Save that changes no binding keeps the line";
    // Screen readers name a combo box by its labels (on Linux through the "labelled by"
    // relation, the box's own name being its text): its frame's and its own.
    QStringList labels;
    for (const auto& [label, relation] :
         QAccessible::queryAccessibleInterface(com2)->relations(QAccessible::Label)) {
        labels << label->text(QAccessible::Name);
    }
    EXPECT_TRUE(labels.contains(QStringLiteral("COM 2 device:")))
        << labels.join(u'|').toStdString();
}

TEST_F(SettingsWindowTest, TheDevicesAreLookedUpWhenTheListOpensAndTypingSurvivesIt) {
    qunsetenv("QUELLPAD_COM1");
    frmSettings window(*keyboard_);
    window.show();
    auto* box = Child<QComboBox>(window, "cboCom1Device");
    EXPECT_EQ(box->count(), 3) << "the simulated site and two network forms, no device scan";
    box->setEditText(com2_.SlavePath()); // a pty: the system does not list it
    box->showPopup();
    EXPECT_EQ(box->count(), ChooserDevices().size() + 3);
    box->hidePopup();
    EXPECT_EQ(box->currentText(), com2_.SlavePath());
}

// An adapter with a name in /dev/serial/by-id (here a folder of links standing for it) is
// offered under that name first, and kept under it even when its kernel name is typed.
TEST_F(SettingsWindowTest, ADeviceIsOfferedAndKeptUnderItsStableName) {
    QTemporaryDir byId;
    const QString stable = byId.filePath(QStringLiteral("usb-FTDI_FT232R_USB_UART_A50285BI-if00"));
    ASSERT_TRUE(QFile::link(com2_.SlavePath(), stable));
    qputenv("QUELLPAD_SERIAL_BY_ID_DIR", byId.path().toLocal8Bit());
    qunsetenv("QUELLPAD_COM2");
    frmSettings window(*keyboard_);
    window.show();
    auto* box = Child<QComboBox>(window, "cboCom2Device");
    box->showPopup();
    box->hidePopup();
    EXPECT_EQ(box->itemData(0).toString(), stable);
    EXPECT_EQ(box->itemText(0), stable + QStringLiteral(" \u2014 ") + com2_.SlavePath());

    box->setEditText(com2_.SlavePath());
    window.Save_Click();
    EXPECT_EQ(ResolvePortBinding(2).binding, stable);
    EXPECT_EQ(keyboard_->MSComm2().Device(), stable);
    qunsetenv("QUELLPAD_SERIAL_BY_ID_DIR");
}

TEST_F(SettingsWindowTest, ANetworkFormLeftUncompletedIsRefusedAndNothingIsSaved) {
    qunsetenv("QUELLPAD_COM2");
    const QByteArray settings = ReadSettings();
    frmSettings window(*keyboard_);
    QSignalSpy saved(&window, &frmSettings::Saved);
    auto* box = Child<QComboBox>(window, "cboCom2Device");
    box->setCurrentIndex(box->findText(QStringLiteral("tcp://host:port")));
    window.Save_Click();
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_TRUE(ShownMessages()[0].text.startsWith(u"COM 2: \"tcp://host:port\" names no server."));
    EXPECT_EQ(saved.size(), 0);
    EXPECT_EQ(ResolvePortBinding(2).source, BindingSource::Default);
    EXPECT_EQ(ReadSettings(), settings);
}

} // namespace
} // namespace quellpad::test
