#include "main_window_fixture.h"

#include "console/frm_main.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace quellpad::test {
namespace {

// The main window opening its command windows: which timers run while each is open,
// what reaches the ports, and what is left when it closes.
class CommandWindowsTest : public MainWindowFixture {
protected:
    bool Running(const char* timer) const { return Child<QTimer>(timer)->isActive(); }
    // A click as the display delivers it, to the control's window, where a modal window
    // may stop it.
    static void ClickThroughItsWindow(QWidget* control) {
        QWidget* window = control->window();
        const QPoint at = control->mapTo(window, control->rect().center());
        QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, at);
    }
};

TEST_F(CommandWindowsTest, TypedCommandsPauseBothTimersShowRepliesAndRestoreTheTimers) {
    Start("D");
    Child<QAction>("RetransmitTimerOption")->trigger();
    ASSERT_TRUE(Running("RetransmitTimer"));
    const bool opened =
        WhileOpen([&] { Child<QAction>("Type_Commands_Option")->trigger(); },
                  [&](QDialog& typed) {
                      EXPECT_FALSE(Running("CommandChangeTimer"));
                      EXPECT_FALSE(Running("RetransmitTimer"));
                      auto* replies = typed.findChild<QPlainTextEdit*>(
                          QStringLiteral("CommandResponseTextBox"));
                      com1_.Write(QByteArray::fromHex("ff01"));
                      EXPECT_TRUE(WaitUntil([&] { return replies->toPlainText() == u" FF 01"; }));
                  });
    ASSERT_TRUE(opened);
    EXPECT_TRUE(Running("CommandChangeTimer"));
    EXPECT_TRUE(Running("RetransmitTimer"));
}

TEST_F(CommandWindowsTest, TheMKeyCallsTheMenuAndOpensMenuControlWithTheTimersPaused) {
    Start("D");
    com1_.Drain(150);
    // Any control but a text box: here the list of lens speeds.
    QWidget* list = Child("LensSpeedList");
    list->setFocus();
    const bool opened = WhileOpen([&] { QTest::keyClick(list, Qt::Key_M, Qt::ShiftModifier); },
                                  [&](QDialog& menu) {
                                      EXPECT_EQ(menu.objectName(), u"frmMenuControl");
                                      EXPECT_FALSE(Running("CommandChangeTimer"));
                                      EXPECT_FALSE(Running("RetransmitTimer"));
                                  });
    ASSERT_TRUE(opened);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010003005f63")) << "set preset 95";
    EXPECT_TRUE(Running("CommandChangeTimer"));
    EXPECT_FALSE(Running("RetransmitTimer")) << "retransmission was off and stays off";
    // The registers still hold the menu call, which the dispatcher has never sent itself.
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010003005f63"));

    Child<QAction>("RetransmitTimerOption")->trigger();
    list->setFocus();
    EXPECT_TRUE(WhileOpen([&] { QTest::keyClick(list, Qt::Key_M); },
                          [&](QDialog&) { EXPECT_FALSE(Running("RetransmitTimer")); }))
        << "lower-case m does the same";
    EXPECT_TRUE(Running("RetransmitTimer"));
    Child<QAction>("RetransmitTimerOption")->trigger();

    com1_.Drain(250);
    EXPECT_TRUE(WhileOpen([&] { Child<QAction>("MenuControlOption")->trigger(); },
                          [&](QDialog&) {
                              EXPECT_EQ(com1_.Drain(150), QByteArray())
                                  << "the menu item opens the window without calling the menu";
                          }));
}

TEST_F(CommandWindowsTest, AdvancedAndExtendedWindowsLoadWhileTheDispatcherRunsAndClearOnClose) {
    Start("D");
    const std::pair<const char*, std::pair<const char*, const char*>> windows[] = {
        {"AdvancedCommandsOption", {"QueryPanButton", "ff010051000052"}},
        {"ExtendedCommands", {"AutoFocusOffButton", "ff01002b00012d"}},
    };
    for (const auto& [item, click] : windows) {
        com1_.Drain(150);
        const bool opened =
            WhileOpen([&] { Child<QAction>(item)->trigger(); },
                      [&](QDialog& commands) {
                          EXPECT_TRUE(Running("CommandChangeTimer"));
                          commands.findChild<QPushButton*>(QLatin1String(click.first))->click();
                          EXPECT_EQ(com1_.Read(7), QByteArray::fromHex(click.second));
                      });
        ASSERT_TRUE(opened) << item;
        EXPECT_EQ(keyboard_->Command2, 0) << item;
        if (std::string(item) == "AdvancedCommandsOption") {
            // Nothing answers on COM 1: after three unanswered queries the status bar says
            // so once, with where to look.
            WhileOpen([&] { Child<QAction>(item)->trigger(); },
                      [&](QDialog& commands) {
                          for (int i = 0; i < 4; ++i) {
                              commands.findChild<QPushButton*>("QueryPanButton")->click();
                              com1_.Read(7);
                          }
                      });
            const QString notice = Child<QLabel>("StartNoticeLabel")->text();
            EXPECT_TRUE(notice.startsWith("COM 1: 3 queries running had no answer"))
                << notice.toStdString();
            EXPECT_TRUE(notice.contains("Scan for Receivers"));
        }
        EXPECT_EQ(com1_.Drain(250), QByteArray())
            << "cleared with their last-sent copies, the registers send nothing more";
    }
}

// A command window keeps the operator off the keyboard underneath only: the windows beside
// it (the Traffic window here, the Simulated Site window alike) stay usable, so that what
// it acts on can be watched.
TEST_F(CommandWindowsTest, ACommandWindowBlocksTheKeyboardButNotTheWindowsBesideIt) {
    Start("D");
    Choose("mnuTraffic");
    auto* traffic = window_->findChild<QWidget*>(QStringLiteral("FrmTraffic"));
    ASSERT_NE(traffic, nullptr);
    auto* pause = traffic->findChild<QPushButton*>(QStringLiteral("PauseButton"));
    // Clicked where the operator sees it: once the window is shown and laid out.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(traffic));
    QCoreApplication::processEvents();
    for (const char* item : {"AdvancedCommandsOption", "MenuControlOption"}) {
        const bool paused = pause->isChecked();
        const bool opened = WhileOpen([&] { Choose(item); },
                                      [&](QDialog&) {
                                          ClickThroughItsWindow(pause);
                                          ClickThroughItsWindow(Child("ZoomIn"));
                                      });
        ASSERT_TRUE(opened) << item;
        EXPECT_NE(pause->isChecked(), paused) << "the Traffic window takes clicks beside " << item;
        EXPECT_EQ(keyboard_->Command2, 0) << "the keyboard takes none beside " << item;
    }
}

} // namespace
} // namespace quellpad::test
