#include "main_window_fixture.h"

#include "console/frm_main.h"
#include "console/receiver.h"
#include "engine/serial_device.h"
#include "ui/controls.h"
#include "ui/proportional_layout.h"

#include <QAccessible>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <tuple>
#include <unistd.h>

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

// Which commands are repeated is RetransmitTick's (RetransmitTickTest); here, the timer.
TEST_F(MainWindowTest, RetransmissionRepeatsAtTheBoxsPeriodUntilTheModeChanges) {
    Start("D");
    QTest::keyClicks(Child<QLineEdit>("RetransmitTimeTextBox"), QStringLiteral("0.1"));
    Choose("RetransmitTimerOption");
    EXPECT_TRUE(Child<QTimer>("RetransmitTimer")->isActive());
    EXPECT_EQ(Child<QTimer>("RetransmitTimer")->interval(), 100);
    EXPECT_GE(com1_.Read(21, 1000).size(), 21) << "the stop frame is repeated";
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

TEST_F(MainWindowTest, AResponseBoxUnderAStreamOfRepliesKeepsNoHistoryAndLittleText) {
    Start("ASCII");
    auto* responses = Child<QPlainTextEdit>("AccessResponseTextBox");
    QByteArray flood;
    for (int i = 0; i < 3000; ++i) {
        flood += "OK\r\n"; // no marker: nothing ever clears the box
    }
    com1_.Write(flood + "yz");
    EXPECT_TRUE(WaitUntil([&] { return responses->toPlainText().endsWith(u"yz"); }, 10000));
    EXPECT_EQ(responses->document()->availableUndoSteps(), 0);
    EXPECT_LE(responses->toPlainText().size(), kResponseBoxMaximum);
    EXPECT_TRUE(responses->toPlainText().endsWith(u"OK\nOK\nyz"));
}

TEST_F(MainWindowTest, TheResponseBoxCountsCrLfAsTwoCharacters) {
    Start("ASCII");
    auto* responses = Child<QPlainTextEdit>("AccessResponseTextBox");
    // 252 characters as received, 126 as shown.
    com1_.Write(QByteArray(126, '\r').replace("\r", "\r\n"));
    ASSERT_TRUE(WaitUntil([&] { return responses->blockCount() == 127; }));
    com1_.Write("1a");
    EXPECT_TRUE(WaitUntil([&] { return responses->toPlainText() == u"1a"; }))
        << "a box of 251 characters or more is cleared by a reply with a marker";
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

// The tick and the retransmission fail at every run while a held zoom cannot be framed:
// each is told once, which holds only when the name a handler runs under is the one
// marked repeating.
TEST_F(MainWindowTest, EachRepeatingHandlerTellsItsFailureOnceUnderItsOwnName) {
    Start("P");
    QTest::keyClicks(Child<QLineEdit>("RetransmitTimeTextBox"), QStringLiteral("0.1"));
    Choose("RetransmitTimerOption");
    keyboard_->AddressCOM1 = 0;
    QTest::mousePress(Child("ZoomIn"), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([] { return ShownMessages().size() == 2; }));
    com1_.Drain(450); // several more failing ticks and repeats
    ASSERT_EQ(ShownMessages().size(), 2) << "one for the tick, one for the retransmission";
    EXPECT_EQ(ShownMessages()[1].text, ShownMessages()[0].text);
    EXPECT_TRUE(ShownMessages()[0].text.startsWith(QStringLiteral("Overflow")));
    QTest::mouseRelease(Child("ZoomIn"), Qt::LeftButton);
}

TEST_F(MainWindowTest, AnUnpluggedDeviceIsWatchedForAndReopenedEachTimeItComesBack) {
    // COM 1 is bound to an adapter's stable name, a link that the test points at a new
    // pseudo-terminal each time, as a USB adapter comes back under the same name.
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("by-id")));
    qputenv("QUELLPAD_SERIAL_BY_ID_DIR", QFile::encodeName(dir_.filePath(QStringLiteral("by-id"))));
    const auto unset = qScopeGuard([] { qunsetenv("QUELLPAD_SERIAL_BY_ID_DIR"); });
    const QString link = dir_.filePath(QStringLiteral("by-id/usb-FTDI_FT232R_A50285BI-port0"));
    const auto pointAt = [&](const QString& device) {
        const QString fresh = link + QStringLiteral(".new");
        ASSERT_EQ(symlink(QFile::encodeName(device).constData(), QFile::encodeName(fresh)), 0);
        ASSERT_EQ(rename(QFile::encodeName(fresh).constData(), QFile::encodeName(link)), 0);
    };
    std::vector<std::unique_ptr<PseudoTerminal>> devices;
    devices.push_back(std::make_unique<PseudoTerminal>());
    pointAt(devices.back()->SlavePath());
    Bind(1, link);
    Start("D");
    auto* echo = Child<QLabel>("COM1CommandLabel");
    for (int plug = 1; plug <= 3; ++plug) {
        keyboard_->Data1 = static_cast<std::uint8_t>(20 + plug);
        ASSERT_EQ(devices.back()->Read(7).size(), 7);
        ASSERT_FALSE(echo->text().isEmpty());

        devices.back()->Hangup();
        ASSERT_TRUE(WaitUntil([&] { return ShownMessages().size() == plug; }));
        EXPECT_EQ(ShownMessages().back().text,
                  QStringLiteral("COM 1 (%1) stopped working and has been closed: the device was "
                                 "unplugged or hung up.")
                      .arg(link));
        EXPECT_TRUE(echo->text().isEmpty());
        EXPECT_FALSE(Child<QAction>("Com1Option")->isChecked());
        EXPECT_TRUE(Child<QLabel>("PortBindingsLabel")->text().contains(u"(closed)"));
        EXPECT_TRUE(ReadSettings().endsWith("\r\n1\r\n")) << "the port stays enabled";
        EXPECT_TRUE(Child<QTimer>("PortWatchTimer")->isActive());
        if (plug == 1) { // the other port's item keeps this one enabled
            Choose("Com2Option");
            EXPECT_TRUE(ReadSettings().endsWith("\r\n1 2\r\n"));
            Choose("Com2Option");
            EXPECT_TRUE(ReadSettings().endsWith("\r\n1\r\n"));
        }

        // Its return is told in the status bar, and stops nobody.
        auto* notice = Child<QLabel>("StartNoticeLabel");
        devices.push_back(std::make_unique<PseudoTerminal>());
        pointAt(devices.back()->SlavePath());
        ASSERT_TRUE(WaitUntil([&] { return Child<QAction>("Com1Option")->isChecked(); }));
        EXPECT_EQ(notice->text(),
                  QStringLiteral("COM 1 (%1) is back and has been opened again.").arg(link));
        EXPECT_TRUE(notice->isVisible());
        EXPECT_EQ(ShownMessages().size(), plug) << "only failures interrupt";
        EXPECT_FALSE(Child<QTimer>("PortWatchTimer")->isActive());
    }
    keyboard_->Data1 = 40;
    EXPECT_EQ(devices.back()->Read(7), QByteArray::fromHex("ff010000280029"));
}

// The next terminal opened on the desktop gets the number of the pseudo-terminal whose
// program ended; the keyboard must not write into it.
TEST_F(MainWindowTest, APseudoTerminalWhoseFarEndClosedIsNotReopenedUnderItsNumber) {
    Start("D");
    const QString number = com1_.SlavePath();
    com1_.Release();
    ASSERT_TRUE(WaitUntil([] { return !ShownMessages().isEmpty(); }));
    EXPECT_EQ(ShownMessages().back().text,
              QStringLiteral("COM 1 (%1) stopped working and has been closed: the program at its "
                             "far end closed it. A pseudo-terminal is not opened again by itself: "
                             "choose Options > COM 1 once a program serves it again.")
                  .arg(number));
    // Terminals opened until one has the number again (other programs may take some).
    std::vector<std::unique_ptr<PseudoTerminal>> terminals;
    while (terminals.size() < 40 &&
           (terminals.empty() || terminals.back()->SlavePath() != number)) {
        terminals.push_back(std::make_unique<PseudoTerminal>());
    }
    if (terminals.back()->SlavePath() != number) {
        GTEST_SKIP() << "no new terminal got " << number.toStdString();
    }
    PseudoTerminal& other = *terminals.back();
    QSignalSpy polls(Child<QTimer>("PortWatchTimer"), &QTimer::timeout);
    ASSERT_TRUE(WaitUntil([&] { return polls.count() >= 4; }, 10000));
    QTest::mousePress(Child("ZoomIn"), Qt::LeftButton);
    QTest::mouseRelease(Child("ZoomIn"), Qt::LeftButton);
    EXPECT_FALSE(keyboard_->MSComm1().IsOpen());
    EXPECT_FALSE(Child<QAction>("Com1Option")->isChecked());
    EXPECT_EQ(other.Drain(300), QByteArray()) << "nothing written into another's terminal";
    EXPECT_EQ(ShownMessages().size(), 1) << ShownMessages().back().text.toStdString();

    Choose("Com1Option"); // the operator's own choice opens it
    EXPECT_TRUE(keyboard_->MSComm1().IsOpen());
}

TEST_F(MainWindowTest, AGreyedComItemSaysWhyAndIsOfferedOnceItsDeviceIsThere) {
    const QString device = dir_.filePath(QStringLiteral("ttyUSB0"));
    Bind(1, device);
    WriteSettings("2400\r\nn\r\nFalse\r\n\r\nD\r\nNone\r\n"); // the ports looked for anew
    Load();
    auto* item = Child<QAction>("Com1Option");
    EXPECT_FALSE(item->isEnabled());
    EXPECT_EQ(item->toolTip(),
              QStringLiteral(
                  "Not offered while nothing is at %1; offered as soon as the device is there.")
                  .arg(device));
    EXPECT_TRUE(Child<QAction>("Com2Option")->isEnabled());

    ASSERT_TRUE(QFile::link(com1_.SlavePath(), device)); // the adapter is plugged in
    EXPECT_TRUE(WaitUntil([&] { return item->isEnabled(); }));
    EXPECT_EQ(item->toolTip(), device);
    EXPECT_TRUE(WhileOpen([&] { Choose("Settings_Menu_Option"); },
                          [](QDialog& settings) {
                              QTest::mouseClick(settings.findChild<QPushButton*>("Save"),
                                                Qt::LeftButton);
                          }));
    EXPECT_TRUE(item->isEnabled()) << "still offered after Settings > Save";
    item->trigger();
    EXPECT_TRUE(keyboard_->MSComm1().IsOpen());
    EXPECT_TRUE(ReadSettings().startsWith("2400\r\nn\r\nFalse\r\n1 2\r\n"));
}

TEST_F(MainWindowTest, EveryFailedClickOnAComItemIsTold) {
    Bind(2, QStringLiteral("/dev/quellpad-missing"));
    Start("D", "None");
    Choose("Com2Option");
    Choose("Com2Option");
    ASSERT_EQ(ShownMessages().size(), 2);
    EXPECT_EQ(ShownMessages()[1].text, ShownMessages()[0].text);
    EXPECT_TRUE(ShownMessages()[1].text.startsWith(
        QStringLiteral("COM 2 (/dev/quellpad-missing) could not be opened")));
}

TEST_F(MainWindowTest, AStoredModeNoItemMatchesSendsNothingAndDropsWhatArrives) {
    Start("ZZ", "1");
    ASSERT_TRUE(WaitUntil([] { return !ShownMessages().isEmpty(); }));
    EXPECT_TRUE(ShownMessages()[0].text.contains(u"Choose a mode in the Mode menu."));
    for (const char* item : {"D_Protocol_Menu_Option", "P_Protocol_Menu_Option",
                             "ASCII_Menu_Option", "MUX_ASCII_Option"}) {
        EXPECT_FALSE(Child<QAction>(item)->isChecked()) << item;
    }
    keyboard_->Data1 = 20;
    com1_.Write(QByteArray(100000, 'a'));
    EXPECT_EQ(com1_.Drain(300), QByteArray());
    EXPECT_EQ(dynamic_cast<SerialDevice&>(keyboard_->MSComm1()).BytesWaiting(), 0);
    EXPECT_EQ(ShownMessages().size(), 1);
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
    EXPECT_FALSE(Child<QAction>("H_Protocol_Option")->isVisible());
    // The H mode's controls exist under their names, hidden, and their poll never runs.
    for (const char* name : {"H_Data_Frame", "UpArrowCommand", "WipeWashButton", "H_Poll_Button"}) {
        EXPECT_TRUE(Child<QWidget>(name)->isHidden()) << name;
    }
    EXPECT_FALSE(Child<QAction>("H_Protocol_Poll")->isVisible());
    EXPECT_FALSE(Child<QTimer>("H_Poll_Timer")->isActive());
    EXPECT_EQ(Child<QTimer>("H_Poll_Timer")->interval(), 0);
}

TEST_F(MainWindowTest, AHeldLensButtonStopsOnlyAtTheReleaseWhereverItLands) {
    Start("D");
    auto* focusNear = Child<QPushButton>("FocusNear");
    const auto mouse = [&](QEvent::Type type, Qt::MouseButton button, QPoint at) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        QMouseEvent event(type, at, focusNear->mapToGlobal(at), button, held, Qt::NoModifier);
        QApplication::sendEvent(focusNear, &event);
    };
    const QPoint inside = focusNear->rect().center();
    const QPoint outside(-40, -40);
    mouse(QEvent::MouseButtonPress, Qt::LeftButton, inside);
    EXPECT_EQ(keyboard_->Command1, 0x01);
    mouse(QEvent::MouseMove, Qt::LeftButton, outside);
    EXPECT_EQ(keyboard_->Command1, 0x01) << "sliding off does not stop";
    mouse(QEvent::MouseMove, Qt::LeftButton, inside);
    mouse(QEvent::MouseMove, Qt::LeftButton, outside);
    mouse(QEvent::MouseButtonRelease, Qt::LeftButton, outside);
    EXPECT_EQ(keyboard_->Command1, 0x00) << "the release stops, wherever it lands";
    mouse(QEvent::MouseButtonPress, Qt::RightButton, inside);
    EXPECT_EQ(keyboard_->Command1, 0x00) << "the right button does nothing";
    mouse(QEvent::MouseButtonRelease, Qt::RightButton, inside);
}

// Tab takes the operator to every box and list of the main window; that Tab and Shift+Tab
// leave each control again, the retransmit box among them, is AccessibilityTest's.
TEST_F(MainWindowTest, TabReachesEveryBoxAndList) {
    Start("D");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QSet<QString> reached;
    for (int i = 0; i < 40; ++i) {
        reached << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char* name : {"AddressCOM1_TextBox", "AddressCOM2_TextBox", "AccessResponseTextBox",
                             "RetransmitTimeTextBox", "LensSpeedList", "PresetNumberTextBox",
                             "PatternNumberListBox", "AuxNumberTextBox", "ZoneNumberList"}) {
        EXPECT_TRUE(reached.contains(QLatin1String(name))) << name;
    }
}

TEST_F(MainWindowTest, EachEnabledMenuOpensByAltAndItsLetter) {
    struct Case {
        const char* mode;
        Qt::Key letter;
        const char* menu;
    };
    const Case cases[] = {{"D_Protocol_Menu_Option", Qt::Key_O, "OptionsMenu"},
                          {"D_Protocol_Menu_Option", Qt::Key_M, "ModeMenu"},
                          {"D_Protocol_Menu_Option", Qt::Key_A, "AuxMenu"},
                          {"D_Protocol_Menu_Option", Qt::Key_E, "MoreCommandsMenu"},
                          {"ASCII_Menu_Option", Qt::Key_R, "MacroMenu"},
                          {"ASCII_Menu_Option", Qt::Key_C, "CamLock_Menu"},
                          {"ASCII_Menu_Option", Qt::Key_X, "MuxMenu"},
                          {"ASCII_Menu_Option", Qt::Key_V, "VCR_Menu"}};
    Start("D");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    for (const Case& c : cases) {
        Choose(c.mode);
        QTest::keyClick(window_.get(), c.letter, Qt::AltModifier);
        auto* menu = Child<QMenu>(c.menu);
        EXPECT_TRUE(WaitUntil([&] { return menu->isVisible(); }, 1000)) << c.menu;
        QTest::keyClick(menu, Qt::Key_Escape);
        QTest::keyClick(window_->menuBar(), Qt::Key_Escape);
        EXPECT_TRUE(WaitUntil([&] { return !menu->isVisible(); }, 1000)) << c.menu;
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }
}

// What a screen reader hears follows the captions as they change: a box or list by its
// label's text on one line, a locked lens button by its On or Off, the echo by what it shows.
// That every control of every window is heard at all is AccessibilityTest's.
TEST_F(MainWindowTest, AScreenReaderHearsEveryControlByItsCurrentCaption) {
    Start("D");
    Choose("P_Protocol_Menu_Option");
    Choose("ControlLock");
    QTest::mouseClick(Child<QPushButton>("ZoomIn"), Qt::LeftButton);
    EXPECT_EQ(com1_.Read(8).size(), 8);
    com1_.Write(QByteArray::fromHex("a2"));
    auto* responses = Child<QPlainTextEdit>("AccessResponseTextBox");
    ASSERT_TRUE(WaitUntil([&] { return !responses->toPlainText().isEmpty(); }));
    const std::tuple<const char*, QAccessible::Text, const char*> heard[] = {
        {"ZoomIn", QAccessible::Name, "Zoom In On"},
        {"ZoomOut", QAccessible::Name, "Zoom Out Off"},
        {"AccessResponseTextBox", QAccessible::Name, "P Response"},
        {"AccessResponseTextBox", QAccessible::Value, " A2"},
        {"AddressCOM1_TextBox", QAccessible::Name, "Address COM1"},
        {"AddressCOM1Label", QAccessible::Name, "Address COM1"},
        {"COM1CommandLabel", QAccessible::Name, "COM1 Command Sent"},
        {"LensSpeedList", QAccessible::Name, "Lens Speed"},
    };
    for (const auto& [name, kind, text] : heard) {
        EXPECT_EQ(QAccessible::queryAccessibleInterface(Child(name))->text(kind),
                  QString::fromLatin1(text))
            << name;
    }
    EXPECT_EQ(
        QAccessible::queryAccessibleInterface(Child("COM1CommandLabel"))->text(QAccessible::Value),
        Child<QLabel>("COM1CommandLabel")->text())
        << "the echo is heard";
    EXPECT_FALSE(Child<QLabel>("COM1CommandLabel")->text().isEmpty());
}

TEST_F(MainWindowTest, CaptionsReadInFullAndListsShowTheirOneItemAtEverySize) {
    Start("D");
    Choose("ControlLock");
    for (const char* name :
         {"ZoomIn", "ZoomOut", "FocusNear", "FocusFar", "IrisOpen", "IrisClose"}) {
        QTest::mouseClick(Child<QPushButton>(name), Qt::LeftButton); // leaves the Off captions
    }
    const QSize sizes[] = {{1, 1},       {640, 480},  {800, 600}, {1280, 800},
                           {1920, 1080}, {600, 1000}, {1600, 470}};
    for (const char* mode : {"D_Protocol_Menu_Option", "ASCII_Menu_Option"}) {
        Choose(mode);
        for (const QSize size : sizes) {
            window_->resize(size);
            QApplication::processEvents();
            const QString at = QStringLiteral("%1 at %2x%3")
                                   .arg(QLatin1String(mode))
                                   .arg(window_->width())
                                   .arg(window_->height());
            for (QWidget* control : window_->findChildren<QWidget*>()) {
                // Status texts elide instead, with the whole text in their tool tip.
                const bool statusText = dynamic_cast<ui::StatusText*>(control) != nullptr;
                if (control->isVisible() && !ui::IsReadout(control) && !statusText) {
                    EXPECT_TRUE(ui::CaptionFits(control, control->font(), ui::CaptionOf(control)))
                        << ui::CaptionOf(control).toStdString() << " in " << at.toStdString();
                }
            }
            for (const char* name : {"LensSpeedList", "PatternNumberListBox", "ZoneNumberList"}) {
                auto* list = Child<QListWidget>(name);
                if (!list->isVisible()) {
                    continue;
                }
                QListWidgetItem* current = list->currentItem();
                ASSERT_NE(current, nullptr) << name;
                EXPECT_EQ(list->itemAt(0, 0), current) << name << " in " << at.toStdString();
                EXPECT_EQ(list->visualItemRect(current), list->viewport()->rect())
                    << name << " in " << at.toStdString();
            }
        }
    }
}

} // namespace
} // namespace quellpad::test
