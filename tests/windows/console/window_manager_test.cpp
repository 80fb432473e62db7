#include "main_window_fixture.h"

#include "gamepad/frm_joystick.h"
#include "gamepad/stick_mapping.h"
#include "site/simulated_line.h"
#include "ui/controls.h"

#include <QApplication>
#include <QListWidget>
#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <vector>

// Run on a virtual X display, under a window manager or under none (tests/CMakeLists.txt):
// the sizes here are asked of the display, as an operator's drag or the maximise button
// would, not set on the widget.
namespace quellpad::test {
namespace {

class WindowManagerTest : public MainWindowFixture {
protected:
    // The size the display gives the window once it has settled.
    QSize Settled() {
        QSize last;
        for (int calm = 0; calm < 4;) {
            QTest::qWait(50);
            calm = window_->size() == last ? calm + 1 : 0;
            last = window_->size();
        }
        return last;
    }
    // Asks the display for a size through the window's own platform window, which the
    // widget's minimum does not clamp: as a window manager that ignores the size hints, or
    // no window manager at all, would give it.
    void AskForSize(QSize size) {
        window_->windowHandle()->resize(size);
        Settled();
    }
    void ExpectListsAt(int patternRow, int speedRow, const QString& when) {
        for (const auto& [name, row] :
             {std::pair{"PatternNumberListBox", patternRow}, {"LensSpeedList", speedRow}}) {
            auto* list = Child<QListWidget>(name);
            EXPECT_EQ(ui::TopIndex(list), row) << name << " " << when.toStdString();
            EXPECT_EQ(list->currentRow(), row) << name << " " << when.toStdString();
        }
    }
    QString At() const {
        return QStringLiteral("at %1x%2").arg(window_->width()).arg(window_->height());
    }
};

TEST_F(WindowManagerTest, MaximisingAndResizingNeverChangeTheListsChoice) {
    Start("D");
    Settled();
    const QSize small = window_->minimumSize();
    const QSize large = window_->screen()->availableGeometry().size();
    for (int round = 0; round < 2; ++round) {
        AskForSize(small);
        ExpectListsAt(10, 3, QStringLiteral("smallest, ") + At());
        window_->showMaximized();
        Settled();
        ExpectListsAt(10, 3, QStringLiteral("maximised, ") + At());
        window_->showNormal();
        Settled();
        ExpectListsAt(10, 3, QStringLiteral("restored, ") + At());
    }
    std::vector<QSize> sizes;
    for (int step = 0; step <= 31; ++step) {
        sizes.push_back(small + (large - small) * step / 31);
    }
    sizes.insert(sizes.end(), sizes.rbegin(), sizes.rend());
    for (const QSize size : sizes) {
        AskForSize(size);
        ExpectListsAt(10, 3, At());
    }
    com1_.Drain(250);
    QTest::mouseClick(Child("StartPatternButton"), Qt::LeftButton);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff01001f000020")) << "start pattern 0";
}

// The frame a window manager puts round the window arrives after the window is shown; the
// knob is drawn at rest before it, and the operator presses it as it is drawn.
TEST_F(WindowManagerTest, APressOnTheKnobAtRestSendsNothingAndASidewaysDragNoTilt) {
    Start("D");
    Settled();
    QWidget* square = Child("Joystick_Square");
    QWidget* ball = Child("Joystick_Ball");
    const QRect drawn = square->geometry();
    const QPoint knob = square->mapFrom(ball->parentWidget(), ball->geometry().center());
    QSignalSpy ticks(Child<QTimer>("CommandChangeTimer"), &QTimer::timeout);
    const auto sentOverTicks = [&](int count) {
        ticks.clear();
        QByteArray sent;
        WaitUntil([&] {
            sent += com1_.Drain();
            return ticks.count() >= count;
        });
        return sent + com1_.Drain();
    };
    sentOverTicks(2);

    QTest::mousePress(square, Qt::LeftButton, {}, knob);
    EXPECT_EQ(square->geometry(), drawn)
        << "the square stays where it was drawn, " << At().toStdString();
    EXPECT_EQ(sentOverTicks(3), QByteArray())
        << "pressed at the knob's centre, " << At().toStdString();
    for (int right = 4; right <= 40; right += 4) {
        MoveInSquare(knob + QPoint(right, 0), Qt::LeftButton);
    }
    const QByteArray pan = com1_.Read(7);
    ASSERT_EQ(pan.size(), 7) << At().toStdString();
    EXPECT_EQ(std::uint8_t(pan[3]), 0x02) << "pan right alone " << pan.toHex(' ').toStdString();
    EXPECT_EQ(std::uint8_t(pan[5]), 0x00) << "no tilt speed " << pan.toHex(' ').toStdString();
    QTest::mouseRelease(square, Qt::LeftButton, {}, knob + QPoint(40, 0));
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010000000001")) << "the stop";
}

TEST_F(WindowManagerTest, TheWindowRefusesASizeBelowTheKeyboardsSmallest) {
    Start("D");
    Settled();
    const QSize small = window_->minimumSize();
    for (const QSize asked : {QSize(200, 150), small / 2, QSize(small.width(), 100)}) {
        AskForSize(asked);
        EXPECT_GE(window_->width(), small.width()) << "asked " << asked.width();
        EXPECT_GE(window_->height(), small.height()) << "asked " << asked.height();
        ExpectListsAt(10, 3, At());
    }
}

TEST_F(WindowManagerTest, TheWindowAppearsOnceAtItsFinalSize) {
    WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\n1\r\n");
    MakeKeyboard();
    window_ = std::make_unique<FrmMain>(*keyboard_);
    window_->Form_Load();
    // What the operator sees: every size the window has from its first showing on.
    struct Sizes : QObject {
        std::vector<QSize> seen;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Resize) {
                seen.push_back(static_cast<QResizeEvent*>(event)->size());
            }
            return false;
        }
    } sizes;
    window_->installEventFilter(&sizes);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get(), kExposeWait));
    const QSize final = Settled();
    ASSERT_FALSE(sizes.seen.empty());
    for (const QSize size : sizes.seen) {
        EXPECT_EQ(size, final) << "shown at " << size.width() << "x" << size.height();
    }
    const QRect available = window_->screen()->availableGeometry();
    EXPECT_TRUE(available.contains(window_->frameGeometry()))
        << "the whole window, frame included, is on the screen";
}

TEST_F(WindowManagerTest, EveryWindowOpensWithinTheScreen) {
    // COM 1 on the simulated site, whose window then shows all its equipment.
    WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\n1\r\n");
    LoadOn([](int number) -> std::unique_ptr<SerialLine> {
        return std::make_unique<site::SimulatedLine>(number);
    });
    Settled();
    const QRect screen = window_->screen()->availableGeometry();
    const QRect keyboard = window_->frameGeometry();
    if (window_->minimumHeight() < screen.height() * 0.9) {
        EXPECT_TRUE(screen.contains(keyboard)) << "the keyboard";
    } else { // larger than the screen: its title bar and menus are on it all the same
        EXPECT_EQ(keyboard.topLeft(), screen.topLeft())
            << "the keyboard at " << keyboard.x() << "," << keyboard.y();
        const QMenuBar* menus = window_->menuBar();
        EXPECT_TRUE(screen.contains(QRect(menus->mapToGlobal(QPoint(0, 0)), menus->size())))
            << "its menus";
    }
    Choose("mnuTraffic");
    Choose("SimulatedSiteOption");
    Choose("mnuScan");
    FrmJoystick joystick(DefaultGamepadBindings(), window_.get());
    joystick.show();
    for (const char* name : {"FrmTraffic", "FrmSimulatedSite", "FrmScan", "FrmJoystick"}) {
        QWidget* window = window_->findChild<QWidget*>(QLatin1String(name));
        ASSERT_NE(window, nullptr) << name;
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window, kExposeWait)) << name;
        QTest::qWait(300); // placed and framed by the window manager
        const QRect frame = window->frameGeometry();
        EXPECT_TRUE(screen.contains(frame))
            << name << " at " << frame.x() << "," << frame.y() << " " << frame.width() << "x"
            << frame.height() << " on a screen of " << screen.width() << "x" << screen.height();
        // At its smallest it still shows all it holds within the screen.
        const QSize smallest = window->minimumSizeHint().expandedTo(window->minimumSize());
        EXPECT_TRUE(smallest.width() <= screen.width() && smallest.height() <= screen.height())
            << name << " needs " << smallest.width() << "x" << smallest.height();
    }
}

} // namespace
} // namespace quellpad::test
