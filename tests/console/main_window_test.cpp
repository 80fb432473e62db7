#include "main_window_fixture.h"

#include "console/frm_main.h"
#include "console/receiver.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace quellpad::test {
namespace {

using MainWindowTest = MainWindowFixture;

TEST_F(MainWindowTest, JoystickDragGoesOutAtTheNextTickAndReleaseStops) {
    Start("D");
    QWidget* square = Child("Joystick_Square");
    QTest::mousePress(square, Qt::LeftButton, {}, InSquare(0.25, 0));
    const QByteArray moving = com1_.Read(7);
    ASSERT_EQ(moving.size(), 7);
    EXPECT_EQ(moving.left(4), QByteArray::fromHex("ff010002"));
    EXPECT_GT(static_cast<std::uint8_t>(moving[4]), 7);
    EXPECT_LT(static_cast<std::uint8_t>(moving[4]), 64);
    EXPECT_EQ(moving[5], 0);

    MoveInSquare(InSquare(0.49, -0.49), Qt::LeftButton);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff01000a403f8a"))
        << "pan 64 and tilt 63 at the edge";
    EXPECT_EQ(com1_.Drain(250), QByteArray()) << "a held joystick sends nothing more";

    QTest::mouseRelease(square, Qt::LeftButton, {}, InSquare(0.49, -0.49));
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010000000001"));
    EXPECT_EQ(Child("Joystick_Ball")->geometry().center(), square->geometry().center());
}

TEST_F(MainWindowTest, LeftAndUpInPAndTheAsciiStopOfALensButton) {
    Start("P");
    QTest::mousePress(Child("Joystick_Square"), Qt::LeftButton, {}, InSquare(-0.3, -0.3));
    const QByteArray frame = com1_.Read(8);
    ASSERT_EQ(frame.size(), 8);
    EXPECT_EQ(frame.left(4), QByteArray::fromHex("a000000c"));
    QTest::mouseRelease(Child("Joystick_Square"), Qt::LeftButton, {}, InSquare(-0.3, -0.3));
    com1_.Read(8);

    Choose("ASCII_Menu_Option");
    QTest::mousePress(Child("FocusNear"), Qt::LeftButton);
    EXPECT_EQ(com1_.Read(2), QByteArray("Na"));
    QTest::mouseRelease(Child("FocusNear"), Qt::LeftButton);
    EXPECT_EQ(com1_.Read(2), QByteArray("sa")) << "the lone stop goes out as stop-all";
    QTest::mousePress(Child("FocusNear"), Qt::RightButton);
    EXPECT_EQ(com1_.Drain(300), QByteArray()) << "the right button does nothing";
}

TEST_F(MainWindowTest, ControlLockTogglesWithCaptionsAndUnlockStopsEverything) {
    Start("D");
    Choose("ControlLock");
    auto* zoomIn = Child<QPushButton>("ZoomIn");
    auto* zoomOut = Child<QPushButton>("ZoomOut");
    EXPECT_EQ(zoomIn->text(), QStringLiteral("Zoom In"));
    QTest::mouseClick(zoomIn, Qt::LeftButton);
    EXPECT_EQ(zoomIn->text(), QStringLiteral("Zoom In On"));
    EXPECT_EQ(zoomOut->text(), QStringLiteral("Zoom Out Off"));
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010020000021"));
    QTest::mouseClick(zoomOut, Qt::LeftButton);
    EXPECT_EQ(zoomIn->text(), QStringLiteral("Zoom In Off"));
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010040000041"));
    Choose("ControlLock");
    EXPECT_EQ(zoomOut->text(), QStringLiteral("Zoom Out"));
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010000000001"));
}

TEST_F(MainWindowTest, EachModeShowsItsOwnControlsAndIsSaved) {
    struct Case {
        const char* item;
        const char* mode;
        int tick;
        const char* label;
        bool address, camera, lens, zone, presetClear;
        bool muxMenu, vcrMenu, moreCommands;
    };
    const Case cases[] = {
        {"ASCII_Menu_Option", "ASCII", 200, "ASCII Response", false, true, true, false, false, true,
         true, false},
        {"MUX_ASCII_Option", "MUX ASCII", 200, "ASCII Response", false, false, false, false, false,
         true, false, false},
        {"D_Protocol_Menu_Option", "D", 100, "D Response", true, false, true, true, true, false,
         false, true},
        {"P_Protocol_Menu_Option", "P", 100, "P Response", true, false, true, true, true, false,
         false, false},
    };
    Start("D");
    for (const Case& c : cases) {
        Choose(c.item);
        EXPECT_EQ(keyboard_->CurrentMode, QLatin1String(c.mode));
        EXPECT_TRUE(Child<QAction>(c.item)->isChecked()) << c.mode;
        EXPECT_EQ(Child<QTimer>("CommandChangeTimer")->interval(), c.tick) << c.mode;
        EXPECT_EQ(Child<QLabel>("AccessResponseLabel")->text(), QLatin1String(c.label)) << c.mode;
        EXPECT_EQ(Shown("AddressCOM1_TextBox"), c.address) << c.mode;
        EXPECT_EQ(Shown("CameraButton"), c.camera) << c.mode;
        EXPECT_EQ(Shown("IrisOpen"), c.lens) << c.mode;
        EXPECT_EQ(Shown("ZoneFrame"), c.zone) << c.mode;
        EXPECT_EQ(Shown("PresetClearButton"), c.presetClear) << c.mode;
        EXPECT_EQ(Child<QMenu>("MuxMenu")->menuAction()->isEnabled(), c.muxMenu) << c.mode;
        EXPECT_EQ(Child<QMenu>("VCR_Menu")->menuAction()->isEnabled(), c.vcrMenu) << c.mode;
        EXPECT_EQ(Child<QMenu>("MoreCommandsMenu")->menuAction()->isEnabled(), c.moreCommands);
        EXPECT_TRUE(ReadSettings().endsWith(QByteArray("\r\n") + c.mode + "\r\n1\r\n")) << c.mode;
    }
    EXPECT_FALSE(Child<QAction>("MenuControlOption")->isVisible())
        << "hidden for good by MUX ASCII";
    EXPECT_EQ(Child<QLabel>("AddressCOM1Label")->text(), QStringLiteral("Address\r\nCOM1"));
}

TEST_F(MainWindowTest, ChoosingTheCurrentModeOnlyResetsTheAuxBox) {
    Start("D");
    Child<QLineEdit>("AuxNumberTextBox")->setText(QStringLiteral("3"));
    keyboard_->Command2 = 0x20;
    WriteSettings("4800\r\nn\r\nFalse\r\n1 2\r\nD\r\n1\r\n");
    Choose("D_Protocol_Menu_Option");
    EXPECT_EQ(Child<QLineEdit>("AuxNumberTextBox")->text(), QString());
    EXPECT_EQ(keyboard_->Command2, 0x20);
    EXPECT_TRUE(ReadSettings().startsWith("4800")) << "the file is not rewritten";
    EXPECT_TRUE(Child<QAction>("D_Protocol_Menu_Option")->isChecked());
}

TEST_F(MainWindowTest, RetransmitTimeBoxFiltersKeysAndRefusesOutOfRangePeriods) {
    Start("D");
    auto* box = Child<QLineEdit>("RetransmitTimeTextBox");
    QTest::keyClicks(box, QStringLiteral("1..5a-"));
    EXPECT_EQ(box->text(), QStringLiteral("1.5"));
    EXPECT_EQ(keyboard_->RetransmitInterval, 1500);
    box->clear();
    QTest::keyClicks(box, QStringLiteral("61"));
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_EQ(ShownMessages()[0].text,
              QStringLiteral("Retransmit count must above .05 and less than 61."));
    EXPECT_EQ(box->text(), QString());
    EXPECT_EQ(keyboard_->RetransmitInterval, 1000);
}

TEST_F(MainWindowTest, RetransmissionRepeatsEvenCommandsOnly) {
    Start("D");
    QTest::keyClicks(Child<QLineEdit>("RetransmitTimeTextBox"), QStringLiteral("0.1"));
    Choose("RetransmitTimerOption");
    EXPECT_TRUE(Child<QTimer>("RetransmitTimer")->isActive());
    EXPECT_EQ(Child<QTimer>("RetransmitTimer")->interval(), 100);
    EXPECT_GE(com1_.Read(21, 1000).size(), 21) << "the stop frame is repeated";
    keyboard_->SetCommandBytes(0, 3, 0, 5);
    QByteArray sent;
    EXPECT_TRUE(WaitUntil([&] {
        sent += com1_.Drain();
        return sent.contains(QByteArray::fromHex("ff010003000509"));
    })) << "the dispatcher sends the one-shot once";
    EXPECT_EQ(com1_.Drain(350), QByteArray()) << "an odd Command2 is never repeated";
    Choose("P_Protocol_Menu_Option");
    EXPECT_FALSE(Child<QTimer>("RetransmitTimer")->isActive()) << "a mode change stops it";
    EXPECT_FALSE(Child<QAction>("RetransmitTimerOption")->isChecked());
}

TEST_F(MainWindowTest, RepliesAreShownPerModeAndAlarmNumbersPickedOut) {
    Start("D");
    auto* responses = Child<QPlainTextEdit>("AccessResponseTextBox");
    const auto responsesEndWith = [&](const char* text) {
        return WaitUntil([&] { return responses->toPlainText().endsWith(QLatin1String(text)); });
    };
    com1_.Write(QByteArray::fromHex("ff010000000001"));
    EXPECT_TRUE(responsesEndWith(" FF 01 00 00 00 00 01"));
    EXPECT_EQ(responses->toPlainText(), QStringLiteral(" FF 01 00 00 00 00 01"));

    Choose("ASCII_Menu_Option");
    auto* alarm = Child<QLineEdit>("AlarmNumberTextBox");
    com1_.Write("7da");
    EXPECT_TRUE(responsesEndWith("7da"));
    EXPECT_EQ(alarm->text(), QStringLiteral("7"));
    com1_.Write("5i");
    EXPECT_TRUE(responsesEndWith("5i"));
    com1_.Write("a");
    EXPECT_TRUE(responsesEndWith("5ia"));
    EXPECT_EQ(alarm->text(), QStringLiteral("7")) << "a reply split in two carries no marker";
}

TEST_F(MainWindowTest, AResponseBoxWithoutMarkersKeepsOnlyItsLatestText) {
    Start("ASCII");
    com1_.Write(QByteArray(kResponseBoxMaximum, 'x') + "yz");
    auto* responses = Child<QPlainTextEdit>("AccessResponseTextBox");
    EXPECT_TRUE(WaitUntil([&] { return responses->toPlainText().endsWith(u"yz"); }, 10000));
    const QString box = responses->toPlainText();
    EXPECT_EQ(box.size(), kResponseBoxMaximum);
    EXPECT_TRUE(box.endsWith(u"xyz"));
}

TEST_F(MainWindowTest, AFailingTickIsReportedOnceAndTheKeyboardKeepsWorking) {
    Start("P");
    keyboard_->AddressCOM1 = 0;
    keyboard_->Data1 = 20;
    ASSERT_TRUE(WaitUntil([] { return !ShownMessages().isEmpty(); }));
    com1_.Drain(350); // several more failing ticks
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_TRUE(ShownMessages()[0].text.startsWith(QStringLiteral("Overflow")));
    keyboard_->AddressCOM1 = 1;
    EXPECT_EQ(com1_.Read(8), QByteArray::fromHex("a00000001400af1b"));
}

TEST_F(MainWindowTest, AnUnpluggedPortIsReportedOnceAndItsItemUnchecked) {
    Start("D");
    ASSERT_TRUE(Child<QAction>("Com1Option")->isChecked());
    com1_.Hangup();
    ASSERT_TRUE(WaitUntil([] { return !ShownMessages().isEmpty(); }));
    com2_.Drain(100);
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_TRUE(ShownMessages()[0].text.startsWith(
        QStringLiteral("COM 1 (%1) stopped working").arg(keyboard_->MSComm1().Device())));
    EXPECT_FALSE(Child<QAction>("Com1Option")->isChecked());
    EXPECT_TRUE(Child<QLabel>("PortBindingsLabel")->text().contains(u"(closed)"));
}

TEST_F(MainWindowTest, StartUpFromTheFile) {
    Load(); // no Settings.dat at all
    EXPECT_EQ(window_->windowTitle(), QStringLiteral("Quellpad - Settings (2400, n, 8, 1)"));
    EXPECT_FALSE(keyboard_->AnyPortOpen());
    EXPECT_TRUE(Child<QAction>("D_Protocol_Menu_Option")->isChecked());

    Start("ASCII", "1 2");
    EXPECT_EQ(Child<QTimer>("CommandChangeTimer")->interval(), 200);
    EXPECT_EQ(Child<QLabel>("AccessResponseLabel")->text(), QStringLiteral("ASCII Response"));
    EXPECT_TRUE(Child<QAction>("Com2Option")->isChecked());

    Start("H");
    EXPECT_EQ(keyboard_->CurrentMode, kModeD);
    EXPECT_TRUE(Child<QAction>("D_Protocol_Menu_Option")->isChecked());
    EXPECT_FALSE(Child<QAction>("HernisProtocolOption")->isVisible());
}

TEST_F(MainWindowTest, EveryNamedControlCanBeFoundByAScreenReader) {
    Start("D");
    for (QWidget* control : window_->findChildren<QWidget*>()) {
        const bool operable =
            qobject_cast<QAbstractButton*>(control) || qobject_cast<QLineEdit*>(control) ||
            qobject_cast<QAbstractItemView*>(control) || qobject_cast<QPlainTextEdit*>(control);
        const QString name = control->objectName();
        if (operable && !name.isEmpty() && !name.startsWith(u"qt_")) {
            EXPECT_FALSE(control->accessibleName().isEmpty())
                << control->objectName().toStdString();
        }
    }
    EXPECT_EQ(Child("Joystick_Square")->accessibleName(), QStringLiteral("Joystick"));
    EXPECT_EQ(Child("AccessResponseTextBox")->accessibleName(), QStringLiteral("D Response"));
}

} // namespace
} // namespace quellpad::test
