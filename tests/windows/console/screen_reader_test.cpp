#include "main_window_fixture.h"

#include "dialogs/extended_commands.h"
#include "traffic_window/frm_traffic.h"

#include <QAccessible>
#include <QLabel>
#include <QScopeGuard>
#include <QStatusBar>
#include <QTest>

#include <functional>

// Run with the accessibility bus up (tests/CMakeLists.txt), where Qt speaks to a screen
// reader as it would on an operator's desktop.
namespace quellpad::test {
namespace {

using ScreenReaderTest = MainWindowFixture;

// What a screen reader is told while a test runs.
QList<std::pair<QObject*, QAccessible::Event>>& Told() {
    static QList<std::pair<QObject*, QAccessible::Event>> told;
    return told;
}

TEST_F(ScreenReaderTest, ChangingReadingsCanBeReadAndAreAnnounced) {
    const QAccessible::UpdateHandler previous =
        QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
            Told().append({event->object(), event->type()});
        });
    const auto restore = qScopeGuard([&] { QAccessible::installUpdateHandler(previous); });
    const auto readsAndIsTold = [](QWidget* reading, const std::function<void()>& change,
                                   const char* what) {
        Told().clear();
        change();
        EXPECT_TRUE(WaitUntil([&] {
            return Told().contains({reading, QAccessible::TextUpdated});
        })) << what
            << " changed silently";
        QAccessibleTextInterface* text =
            QAccessible::queryAccessibleInterface(reading)->textInterface();
        ASSERT_NE(text, nullptr) << what;
        EXPECT_EQ(text->text(0, text->characterCount()), static_cast<QLabel*>(reading)->text())
            << what;
        EXPECT_FALSE(static_cast<QLabel*>(reading)->text().isEmpty()) << what;
    };

    Start("D");
    readsAndIsTold(
        Child("COM1CommandLabel"), [&] { QTest::mousePress(Child("ZoomIn"), Qt::LeftButton); },
        "the echo");
    QTest::mouseRelease(Child("ZoomIn"), Qt::LeftButton);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window_->statusBar())->text(QAccessible::Name),
              u"Status");
    readsAndIsTold(
        Child("PortBindingsLabel"), [&] { Choose("Com2Option"); }, "the status bar");
    Choose("Com2Option");
    Choose("Com1Option"); // no port open now: a command goes nowhere, and the news is told
    QTest::qWait(300);    // the zoom's stop gone
    readsAndIsTold(
        Child("StartNoticeLabel"), [&] { QTest::mousePress(Child("ZoomIn"), Qt::LeftButton); },
        "the status bar's news");
    QTest::mouseRelease(Child("ZoomIn"), Qt::LeftButton);
    Choose("Com1Option");

    LevelAdjusters levels;
    FrmExtendedCommands extended(*keyboard_, levels, window_.get());
    extended.show();
    QWidget* up = extended.findChild<QWidget*>(QStringLiteral("IrisLevelUpButton"));
    readsAndIsTold(
        extended.findChild<QWidget*>(QStringLiteral("IrisLevelPic")),
        [&] { QTest::mousePress(up, Qt::LeftButton); }, "a camera set-up value");
    QTest::mouseRelease(up, Qt::LeftButton);

    traffic_window::FrmTraffic traffic(*keyboard_, window_.get());
    traffic.show();
    readsAndIsTold(
        traffic.findChild<QWidget*>(QStringLiteral("TrafficStatusLabel")),
        [&] { keyboard_->SendCommand(); }, "the traffic row count");
}

} // namespace
} // namespace quellpad::test
