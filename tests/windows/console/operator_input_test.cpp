#include "main_window_fixture.h"

#include "console/window_size.h"
#include "engine/port_binding.h"
#include "engine/serial_device.h"
#include "site/simulated_line.h"
#include "ui/controls.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProcess>
#include <QScopeGuard>
#include <QScreen>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <vector>

namespace quellpad::test {
namespace {

// The main window as an operator meets it: sizes, keys to whatever has the focus, clicks,
// and the modal windows opened over it.
class OperatorInputTest : public MainWindowFixture {
protected:
    // The smallest size, 30 between it and the whole screen, the whole screen, and back;
    // then sizes below the smallest, which the window must refuse.
    std::vector<QSize> SmallestToLargestAndBack() const {
        const QSize small = window_->minimumSize();
        const QSize large = window_->screen()->availableGeometry().size();
        std::vector<QSize> sizes;
        for (int step = 0; step <= 31; ++step) {
            sizes.push_back(small + (large - small) * step / 31);
        }
        sizes.insert(sizes.end(), sizes.rbegin(), sizes.rend());
        sizes.insert(sizes.end(), {large, QSize(1, 1), large, small / 2, small});
        return sizes;
    }
    void Wheel(QListWidget* list, int notches) {
        const QPoint at = list->viewport()->rect().center();
        QWheelEvent wheel(at, list->viewport()->mapToGlobal(at), {}, QPoint(0, 120 * notches),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(list->viewport(), &wheel);
    }
};

TEST_F(OperatorInputTest, OneLineListsKeepTheOperatorsChoiceThroughEveryResize) {
    Start("D");
    auto* pattern = Child<QListWidget>("PatternNumberListBox");
    auto* speed = Child<QListWidget>("LensSpeedList");
    const auto sweep = [&](int patternRow, int speedRow, const char* when) {
        for (const QSize size : SmallestToLargestAndBack()) {
            window_->resize(size);
            QApplication::processEvents();
            const QSize shown = window_->size();
            ASSERT_TRUE(shown.width() >= window_->minimumWidth() &&
                        shown.height() >= window_->minimumHeight())
                << "the window refuses to be smaller than the keyboard";
            for (const auto& [list, row] : {std::pair{pattern, patternRow}, {speed, speedRow}}) {
                EXPECT_EQ(ui::TopIndex(list), row)
                    << when << ", " << list->objectName().toStdString() << " at " << shown.width()
                    << "x" << shown.height();
                EXPECT_EQ(list->currentRow(), row) << when;
            }
        }
    };
    sweep(10, 3, "at start (pattern 0, lens speed 1)");

    // The operator picks pattern 1 with the arrow key and lens speed 2 with the wheel.
    QTest::mouseClick(pattern->viewport(), Qt::LeftButton, {},
                      pattern->viewport()->rect().center());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    Wheel(speed, 1);
    ASSERT_EQ(pattern->currentItem()->text(), u"1");
    ASSERT_EQ(speed->currentItem()->text(), u"2");
    sweep(9, 2, "after the operator's choice");

    com1_.Drain(250);
    QTest::mouseClick(Child("StartPatternButton"), Qt::LeftButton);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff01001f000121")) << "start pattern 1";
}

TEST_F(OperatorInputTest, MReachesTheMenuWhereverTheFocusRefusesTheLetter) {
    const auto click = [this](const char* name) {
        return [this, name] {
            QTest::mouseClick(Child(name), Qt::LeftButton);
        };
    };
    struct Step {
        const char* what;
        std::function<void()> act;
    };
    Start("D");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"AddressCOM1_TextBox");
    const Step steps[] = {
        {"at first start",
         [] {
         }},
        {"after typing an address",
         [] {
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
             QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("1"));
         }},
        {"after clicking the joystick", click("Joystick_Square")},
        {"after clicking a lens button", click("ZoomIn")},
        {"after choosing from a list", click("LensSpeedList")},
    };
    for (const Step& step : steps) {
        step.act();
        com1_.Drain(300);
        QString opened;
        EXPECT_TRUE(WhileOpen(
            [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_M, Qt::ShiftModifier); },
            [&](QDialog& window) { opened = window.objectName(); }))
            << step.what;
        EXPECT_EQ(opened, u"frmMenuControl") << step.what;
        EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010003005f63")) << step.what;
    }
}

TEST_F(OperatorInputTest, InMuxAsciiMCallsNoMenuWhereverTheFocusIs) {
    Start("MUX ASCII");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    com1_.Drain(300);
    for (const char* name : {"RetransmitTimeTextBox", "Joystick_Square", "LensSpeedList"}) {
        QTest::mouseClick(Child(name), Qt::LeftButton);
        EXPECT_FALSE(WhileOpen([] {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_M, Qt::ShiftModifier);
        })) << name;
    }
    EXPECT_EQ(com1_.Drain(300), QByteArray());
}

TEST_F(OperatorInputTest, ModalWindowsLeaveEveryMenuAsTheModeSetIt) {
    const auto state = [this] {
        QStringList items;
        for (const QAction* item : window_->findChildren<QAction*>()) {
            items << QStringLiteral("%1 %2 enabled=%3 visible=%4")
                         .arg(item->objectName(), item->text())
                         .arg(item->isEnabled())
                         .arg(item->isVisible());
        }
        for (const QAction* item : window_->menuBar()->actions()) {
            items << QStringLiteral("menu %1 enabled=%2 visible=%3")
                         .arg(item->text())
                         .arg(item->isEnabled())
                         .arg(item->isVisible());
        }
        return items;
    };
    const ui::MessagePresenter recorded = ui::SetMessagePresenter(RealMessagePresenter());
    const auto restore = qScopeGuard([&] { ui::SetMessagePresenter(recorded); });
    const char* const openers[] = {
        "AboutOption",          "Settings_Menu_Option",   "SetLabelOption",
        "Type_Commands_Option", "AdvancedCommandsOption", "ExtendedCommands",
        "MenuControlOption"};
    for (const char* mode : {"D", "P", "ASCII", "MUX ASCII"}) {
        Start(mode);
        const QStringList before = state();
        for (const char* opener : openers) {
            WhileOpen([&] { Child<QAction>(opener)->trigger(); });
            EXPECT_EQ(state(), before) << mode << ", after " << opener;
        }
        // A refused number shows a message box.
        auto* monitor = Child<QLineEdit>("MonitorNumberTextBox");
        EXPECT_TRUE(WhileOpen([&] { QTest::keyClicks(monitor, QStringLiteral("10000")); })) << mode;
        EXPECT_EQ(state(), before) << mode << ", after a message";
    }
}

TEST_F(OperatorInputTest, AModeSwitchShowsItsControlsPlacedAsAtStartUp) {
    // Every shown control's place and font size, at the smallest window size.
    const auto placed = [this] {
        window_->resize(window_->minimumSize());
        QApplication::processEvents();
        QStringList places;
        for (const QWidget* control : window_->centralWidget()->findChildren<QWidget*>()) {
            if (control->isVisible() && !control->objectName().isEmpty()) {
                const QRect r = control->geometry();
                places << QStringLiteral("%1 %2,%3 %4x%5 %6pt")
                              .arg(control->objectName())
                              .arg(r.x())
                              .arg(r.y())
                              .arg(r.width())
                              .arg(r.height())
                              .arg(control->font().pointSizeF());
            }
        }
        places.sort();
        return places;
    };
    const std::pair<const char*, const char*> switches[] = {{"D", "ASCII_Menu_Option"},
                                                            {"ASCII", "P_Protocol_Menu_Option"},
                                                            {"MUX ASCII", "D_Protocol_Menu_Option"},
                                                            {"P", "MUX_ASCII_Option"}};
    const char* const started[] = {"ASCII", "P", "D", "MUX ASCII"};
    for (std::size_t i = 0; i < std::size(switches); ++i) {
        Start(started[i]);
        const QStringList expected = placed();
        Start(switches[i].first);
        placed();
        Choose(switches[i].second);
        EXPECT_EQ(placed(), expected) << switches[i].first << " switched to " << started[i];
    }
}

TEST_F(OperatorInputTest, TheMainWindowTakesNoInputWhileAboutIsOpen) {
    Start("D");
    ASSERT_TRUE(WhileOpen([&] { Child<QAction>("AboutOption")->trigger(); },
                          [&](QDialog& about) {
                              EXPECT_EQ(about.objectName(), u"frmAbout");
                              // Pressed through the window system, as a pointer does.
                              QWidget* zoom = Child("ZoomIn");
                              const QPoint at = zoom->mapTo(window_.get(), zoom->rect().center());
                              QTest::mousePress(window_->windowHandle(), Qt::LeftButton, {}, at);
                              QTest::mouseRelease(window_->windowHandle(), Qt::LeftButton, {}, at);
                              EXPECT_EQ(keyboard_->Command2, 0) << "the press never arrived";
                          }));
    EXPECT_TRUE(window_->isEnabled());
}

TEST_F(OperatorInputTest, EveryStatusTextReadsInFullAtTheSmallestSize) {
    Start("D");
    window_->resize(window_->minimumSize());
    QApplication::processEvents();
    const QList<QLabel*> texts = window_->statusBar()->findChildren<QLabel*>();
    ASSERT_GE(texts.size(), 2) << "the port bindings and where the settings are kept";
    for (const QLabel* text : texts) {
        if (!text->isVisible()) {
            continue;
        }
        const bool fits =
            text->fontMetrics().horizontalAdvance(text->text()) <= text->contentsRect().width();
        EXPECT_TRUE(fits || text->toolTip() == text->text())
            << text->objectName().toStdString() << ": " << text->text().toStdString();
    }
}

TEST_F(OperatorInputTest, TheRunCommandsFirstStartAnswersEachCommandOnceAndReadably) {
    QProcess prepare;
    prepare.start(QStringLiteral(QUELLPAD_SOURCE_DIR "/scripts/first-run-settings"), {dir_.path()});
    ASSERT_TRUE(prepare.waitForFinished());
    ASSERT_EQ(prepare.exitCode(), 0) << prepare.readAllStandardError().toStdString();
    qunsetenv("QUELLPAD_COM1"); // the bindings file decides, as for scripts/run
    qunsetenv("QUELLPAD_COM2");
    LoadOn([](int number) -> std::unique_ptr<SerialLine> {
        if (IsSimulatedSiteBinding(ResolvePortBinding(number).binding)) {
            return std::make_unique<site::SimulatedLine>(number);
        }
        return std::make_unique<SerialDevice>(number, QStringLiteral("/dev/quellpad-none"));
    });
    EXPECT_TRUE(Child<QAction>("Com1Option")->isChecked());
    EXPECT_FALSE(Child<QAction>("Com2Option")->isChecked());
    EXPECT_EQ(keyboard_->MSComm2().Device(), keyboard_->MSComm1().Device())
        << "COM 2 is bound to the site as well, ready to be opened";

    // Zoom in and stop: two frames, each answered by the camera's general reply.
    QTest::mousePress(Child("ZoomIn"), Qt::LeftButton);
    QTest::qWait(300);
    QTest::mouseRelease(Child("ZoomIn"), Qt::LeftButton);
    auto* responses = Child<QPlainTextEdit>("AccessResponseTextBox");
    const QString twoReplies = QStringLiteral(" FF 01 00 01 FF 01 00 01");
    EXPECT_TRUE(WaitUntil([&] { return responses->toPlainText().size() >= twoReplies.size(); }));
    QTest::qWait(300);
    EXPECT_EQ(responses->toPlainText(), twoReplies);
}

// A newcomer starts on the site with QUELLPAD_COM1=sim, COM 1 closed, and drives.
TEST_F(OperatorInputTest, AControlUsedWithNoPortOpenSaysOnceWhichPortsAreClosedAndHowToOpen) {
    Bind(1, kSimulatedSiteBinding);
    WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n");
    LoadOn([](int number) -> std::unique_ptr<SerialLine> {
        if (IsSimulatedSiteBinding(ResolvePortBinding(number).binding)) {
            return std::make_unique<site::SimulatedLine>(number);
        }
        return std::make_unique<SerialDevice>(number, DeviceForPort(number));
    });
    auto* notice = Child<QLabel>("StartNoticeLabel");
    const QString told = QStringLiteral("Nothing was sent: COM 1 (simulated site) and COM 2 (%1) "
                                        "are closed; open COM 1 or COM 2 in the Options menu.")
                             .arg(com2_.SlavePath());
    QTest::qWait(300); // ticks with nothing to send say nothing
    EXPECT_FALSE(notice->isVisible());

    QWidget* square = Child("Joystick_Square");
    QTest::mousePress(square, Qt::LeftButton, {}, InSquare(0.3, 0));
    ASSERT_TRUE(WaitUntil([&] { return notice->isVisible(); }));
    QTest::mouseRelease(square, Qt::LeftButton, {}, InSquare(0.3, 0));
    EXPECT_EQ(notice->text(), told);
    EXPECT_TRUE(ShownMessages().isEmpty()) << "nobody is stopped";

    Choose("Com1Option"); // opened and closed: the news is gone, and not told again
    Choose("Com1Option");
    QTest::mousePress(Child("ZoomIn"), Qt::LeftButton);
    QTest::qWait(300);
    QTest::mouseRelease(Child("ZoomIn"), Qt::LeftButton);
    EXPECT_FALSE(notice->isVisible());
}

// The advice for a port that did not open fits the situation and reads whole in the
// window's first size on a small laptop's screen.
TEST_F(OperatorInputTest, TheAdviceForAPortThatDidNotOpenReadsWholeAndFitsHowItWasBound) {
    const QString missing = QStringLiteral("/dev/ttyUSB7");
    const struct {
        bool byVariable;
        QString told;
    } cases[] = {
        {true, QStringLiteral("COM 1 (%1) did not open. Bound by QUELLPAD_COM1 or the command "
                              "line; to work without equipment, start with QUELLPAD_COM1=sim")
                   .arg(missing)},
        {false, QStringLiteral("COM 1 (%1) did not open; to work without equipment, choose "
                               "\"Simulated site\" in Options > Settings...")
                    .arg(missing)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.told.toStdString());
        if (c.byVariable) {
            Bind(1, missing);
        } else {
            qunsetenv("QUELLPAD_COM1");
            QFile bindings(dir_.filePath(QStringLiteral("Bindings.ini")));
            ASSERT_TRUE(bindings.open(QIODevice::WriteOnly));
            bindings.write(QByteArray("[Ports]\nCOM1=") + missing.toUtf8() + "\n");
        }
        Start("D", "1");
        window_->resize(StartWindowSize(QSize(1366, 768 - 32), ui::TwipsPerPixel(window_.get())));
        QApplication::processEvents();
        auto* notice = Child<QLabel>("StartNoticeLabel");
        EXPECT_EQ(notice->text(), c.told);
        EXPECT_LE(notice->fontMetrics().horizontalAdvance(notice->text()),
                  notice->contentsRect().width())
            << "at " << window_->width() << " pixels";
        EXPECT_TRUE(notice->toolTip().startsWith(c.told + u'\n'));
    }
}

TEST(StartWindowSize, OneSizeFromTheScreenNeverUnderTheSmallest) {
    struct Case {
        QSize available;
        double twipsPerPixel;
        QSize expected;
    };
    const Case cases[] = {
        {{1280, 1024}, 15, {1024, 819}}, // 0.8 of the free area
        {{3840, 2160}, 7.5, {3072, 1728}},
        {{1024, 600}, 15, {819, 480}},   // exactly 9000 twips high: not a small screen
        {{1024, 576}, 15, {576, 432}},   // 8400 by 6300 twips, grown to the smallest size
        {{800, 400}, 15, {576, 432}},    // a screen smaller than the keyboard
        {{1024, 576}, 7.5, {1152, 864}}, // at 200 %: the smallest size in twips still holds
    };
    for (const Case& c : cases) {
        EXPECT_EQ(StartWindowSize(c.available, c.twipsPerPixel), c.expected)
            << c.available.width() << "x" << c.available.height() << " at " << c.twipsPerPixel;
    }
}

} // namespace
} // namespace quellpad::test
