#include "fixtures.h"
#include "message_boxes.h"
#include "shown_messages.h"

#include "ui/error_boundary.h"

#include <QScopeGuard>
#include <QTimer>
#include <QWidget>

namespace quellpad::test {
namespace {

// Real boxes, each in its own event loop, as the operator gets them.
class ErrorBoundaryTest : public ::testing::Test {
protected:
    void SetUp() override { recorded_ = ui::SetMessagePresenter(RealMessagePresenter()); }
    void TearDown() override { ui::SetMessagePresenter(recorded_); }

    ui::MessagePresenter recorded_;
    QWidget window_;
};

// Failures that arrive while a box is up, from timers of two windows, wait their turn:
// never a box on a box, each distinct text once, in order.
TEST_F(ErrorBoundaryTest, FailuresWhileABoxIsUpWaitAndAreShownOneAtATime) {
    ui::ErrorBoundary main(&window_);
    ui::ErrorBoundary other(&window_);
    MessageBoxWatch watch(100);
    int step = 0;
    QTimer meanwhile;
    meanwhile.setInterval(20);
    QObject::connect(&meanwhile, &QTimer::timeout, [&] {
        switch (step++) {
        case 0:
            main.Report("Save_Click", "second");
            break;
        case 1:
            other.Report("Load_Click", "third");
            break;
        case 2:
            main.Report("Save_Click", "second"); // the same words, still waiting
            break;
        default:
            meanwhile.stop();
        }
    });
    meanwhile.start();
    main.Report("Open_Click", "first");
    EXPECT_EQ(watch.MostAtOnce(), 1);
    EXPECT_EQ(watch.Shown(), 3);
    EXPECT_EQ(watch.LastText(), "third");
}

// A subject that changes while its box is up changes the box, and from then on is told
// in the status with a count; one that changes only after the operator closed its box is
// a new failure each time, told each time.
TEST_F(ErrorBoundaryTest, ASubjectThatChangesWhileItsBoxIsUpIsToldThereThenInTheStatus) {
    struct Case {
        const char* name;
        int reportEveryMs;
        int closeAfterMs; // -1: the operator leaves the box up
        int boxes;
        int toldInStatus;
    };
    const Case cases[] = {
        {"the operator leaves the box up", 40, -1, 1, 0},
        {"the operator closes each box, too late", 40, 60, 1, 10},
        {"the operator closes each box before the next change", 150, 30, 13, 0},
    };
    for (const Case& c : cases) {
        ui::ErrorBoundary boundary(&window_);
        QStringList status;
        boundary.SetStatusSink([&](const QString& subject, int untold, const QString& latest) {
            status << QStringLiteral("%1 %2 %3").arg(subject).arg(untold).arg(latest);
        });
        MessageBoxWatch watch(c.closeAfterMs);
        int reports = 0;
        QTimer flapping;
        flapping.setInterval(c.reportEveryMs);
        QObject::connect(&flapping, &QTimer::timeout, [&] {
            ++reports;
            boundary.ReportAbout("COM 1", reports % 2 == 1 ? "works again" : "lost");
            if (reports == 12) {
                flapping.stop();
                watch.CloseAll();
            }
        });
        flapping.start();
        boundary.ReportAbout("COM 1", "lost");
        WaitUntil([&] { return !flapping.isActive(); }, 5000);
        WaitUntil([] { return false; }, 100);
        EXPECT_EQ(watch.MostAtOnce(), 1) << c.name;
        EXPECT_EQ(watch.Shown(), c.boxes) << c.name;
        if (c.closeAfterMs < 0) {
            EXPECT_EQ(watch.LastText(), "lost\n\n(Changed 12 times while this message was "
                                        "showing.)");
        }
        EXPECT_GE(status.size(), c.toldInStatus) << c.name;
        EXPECT_LE(status.size(), c.toldInStatus + 1) << c.name;
        if (!status.isEmpty()) {
            EXPECT_EQ(status.last(), QStringLiteral("COM 1 %1 lost").arg(status.size()));
        }
    }
}

} // namespace
} // namespace quellpad::test
