#include "fixtures.h"
#include "protocol/frames.h"
#include "pseudo_terminal.h"

#include "bus/listen_line.h"
#include "bus/scanner.h"
#include "engine/serial_device.h"
#include "site/simulated_line.h"
#include "traffic/traffic_row.h"

#include <QElapsedTimer>
#include <QSignalSpy>

namespace quellpad::test {
namespace {

using protocol::BuildDFrame;

TEST(ListenLine, PutsNotOneByteOnTheWireFromOpeningToClosing) {
    PseudoTerminal wire;
    QByteArray heard;
    {
        bus::ListenLine line(
            std::make_unique<SerialDevice>(traffic::kListenPort, wire.SlavePath()));
        QObject::connect(&line, &bus::ListenLine::Heard,
                         [&heard](const QByteArray& bytes) { heard += bytes; });
        line.SetSettings("4800,n,8,1");
        line.Open();
        const QByteArray frame = QByteArray::fromStdString(BuildDFrame(17, 0, 0x02, 20, 0));
        for (int i = 0; i < 50; ++i) {
            wire.Write(frame);
        }
        ASSERT_TRUE(WaitUntil([&] { return heard.size() == 50 * frame.size(); }));
        line.SetSettings("9600,n,8,1"); // as the settings search does
        line.Close();
        line.Open();
    } // and closed again as the window goes
    EXPECT_EQ(wire.Drain(200), QByteArray());
}

// The scan finds exactly the site's cameras at the baud they listen at (a query at any
// other reaches them as garbage), pauses the keyboard's own sending while it runs, and
// leaves the port as it found it: closed, or open at its own settings.
TEST(Scanner, FindsExactlyTheSiteCamerasAtTheirBaudAndGivesThePortBack) {
    using Found = std::vector<std::pair<int, int>>;
    struct Case {
        const char* what;
        site::Site::Wiring wiring;
        site::LineFormat equipment;
        const char* own; // the port's settings; empty: closed
        bus::ScanPlan plan;
        Found found;
    };
    // An answer takes 29 ms at 2400 baud, 14.6 ms at 4800.
    const Case cases[] = {
        {"the default site, the port closed",
         {},
         {2400, 'n', 8, 1},
         "",
         {.bauds = {9600, 2400, 4800}, .first = 5, .last = 12, .waitMs = 150},
         {{2400, 5}, {2400, 6}, {2400, 7}, {2400, 8}}},
        {"cameras 3, 17 and 200 at 4800, the port open at 9600",
         {{3, 17, 200}},
         {4800, 'n', 8, 1},
         "9600,n,8,1",
         {.bauds = {19200, 4800}, .waitMs = 50},
         {{4800, 3}, {4800, 17}, {4800, 200}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        site::SimulatedLine line(1);
        line.Rewire(c.wiring);
        line.SetEquipmentFormat(c.equipment);
        const QString own = *c.own ? QLatin1String(c.own) : QStringLiteral("2400,n,8,1");
        line.SetSettings(own);
        if (*c.own) {
            line.Open();
        }
        bus::Scanner scanner(line, own);
        bool ended = false;
        bool cancelled = true;
        QObject::connect(&scanner, &bus::Scanner::Finished, [&](bool wasCancelled, const QString&) {
            ended = true;
            cancelled = wasCancelled;
        });
        std::vector<bool> paused;
        scanner.SetPause([&paused](bool on) { paused.push_back(on); });
        const bus::ScanPlan& plan = c.plan;
        scanner.Start(plan);
        ASSERT_TRUE(WaitUntil([&ended] { return ended; }, 120000));
        EXPECT_FALSE(cancelled);
        Found found;
        for (const bus::ScanResult& result : scanner.Results()) {
            found.emplace_back(result.baud, result.address);
            EXPECT_EQ(result.port, 1);
            EXPECT_EQ(result.answer.rfind("pan is ", 0), 0u) << result.answer;
            EXPECT_LT(result.answerMs, plan.waitMs);
        }
        EXPECT_EQ(found, c.found);
        EXPECT_EQ(paused, (std::vector<bool>{true, false}));
        EXPECT_EQ(line.IsOpen(), *c.own != '\0');
        EXPECT_EQ(site::LineFormatText(line.Format()), own) << "the port's own settings";
    }
}

TEST(Scanner, CancelStopsAtOnceAndGivesThePortBack) {
    site::SimulatedLine line(1);
    line.SetSettings("19200,e,8,1");
    line.Open();
    bus::Scanner own(line, "19200,e,8,1");
    bool done = false;
    QObject::connect(&own, &bus::Scanner::Finished, [&done](bool c, const QString&) { done = c; });
    own.Start(bus::ScanPlan{});
    WaitUntil([] { return false; }, 100);
    own.Cancel();
    EXPECT_TRUE(done);
    EXPECT_FALSE(own.Running());
    EXPECT_LT(own.Done(), 10);
    EXPECT_TRUE(line.IsOpen());
    EXPECT_EQ(line.Format(), (site::LineFormat{19200, 'e', 8, 1}));
}

// The scan gives each address its query's time on the wire and the whole wait, and does not
// linger between addresses. How close it comes to its plan is measured by
// bench/scan_bench.cpp; here a loaded machine may add to the time, never take from it.
TEST(Scanner, GivesEachAddressItsWireTimeAndWholeWaitAndNoMore) {
    for (const int baud : {2400, 9600}) {
        PseudoTerminal wire;
        SerialDevice port(1, wire.SlavePath());
        bus::Scanner scanner(port, "2400,n,8,1");
        bool ended = false;
        QObject::connect(&scanner, &bus::Scanner::Finished, [&ended] { ended = true; });
        bus::ScanPlan plan;
        plan.bauds = {baud};
        plan.last = 30;
        plan.waitMs = 20;
        QElapsedTimer clock;
        clock.start();
        scanner.Start(plan);
        ASSERT_TRUE(WaitUntil([&ended] { return ended; }, 60000));
        const double ms = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        const double planned = bus::PlannedMs(plan);
        std::cout << plan.last << " addresses at " << baud << " baud: " << ms << " ms, planned "
                  << planned << " ms\n";
        // Nobody answers, so each address takes its query's wire time and the whole wait (to
        // the millisecond it is rounded to). A busy machine only makes a scan slower, so the
        // plan is a bound that holds; how close a scan comes to it is the scan benchmark's
        // figure.
        EXPECT_GE(ms, planned - plan.last) << baud << ": the wait was cut short";
        EXPECT_EQ(wire.Drain(100).size(), 7 * plan.last);
    }
}

TEST(Scanner, APortThatFailsMidScanSaysWhichAddressItHadReached) {
    PseudoTerminal wire;
    SerialDevice port(2, wire.SlavePath());
    bus::Scanner scanner(port, "2400,n,8,1");
    QString failure;
    QObject::connect(&scanner, &bus::Scanner::Finished,
                     [&failure](bool, const QString& why) { failure = why; });
    bus::ScanPlan plan;
    plan.bauds = {9600};
    plan.waitMs = 10;
    scanner.Start(plan);
    ASSERT_TRUE(WaitUntil([&scanner] { return scanner.Done() >= 5; }));
    wire.Hangup();
    ASSERT_TRUE(WaitUntil([&scanner] { return !scanner.Running(); }));
    EXPECT_TRUE(failure.startsWith(
        QStringLiteral("The scan stopped at address %1 (9600 baud): ").arg(scanner.Done())))
        << failure.toStdString();
}

} // namespace
} // namespace quellpad::test
