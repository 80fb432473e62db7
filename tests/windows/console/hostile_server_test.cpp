// The network lines against servers that misbehave on purpose: the program must stay
// small and responsive, tell each failure once, and come back when the server does.
#include "fixtures.h"
#include "hostile_server.h"
#include "message_boxes.h"
#include "shown_messages.h"

#include "console/frm_main.h"
#include "engine/errors.h"
#include "netline/network_line.h"
#include "ui/controls.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace quellpad::test {
namespace {

using Behaviour = HostileServer::Behaviour;

// Seconds each hostile run lasts; QUELLPAD_HOSTILE_SECONDS=60 gives the long figures.
int RunSeconds() {
    const int seconds = qEnvironmentVariableIntValue("QUELLPAD_HOSTILE_SECONDS");
    return seconds > 0 ? seconds : 3;
}

// Runs the event loop for `ms` with a 10 ms timer beside it, as the dispatcher's tick is;
// returns the longest the timer had to wait between two ticks.
qint64 LongestStall(int ms, const std::function<void()>& eachTick = {}) {
    QElapsedTimer clock;
    clock.start();
    qint64 last = 0;
    qint64 longest = 0;
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    tick.setInterval(10);
    QObject::connect(&tick, &QTimer::timeout, [&] {
        const qint64 now = clock.elapsed();
        longest = std::max(longest, now - last);
        last = now;
        if (eachTick) {
            eachTick();
        }
    });
    tick.start();
    WaitUntil([&] { return clock.elapsed() >= ms; }, ms + 1000);
    return longest;
}

void WriteFrames(SerialLine& line, int bytes) {
    for (int i = 0; i < bytes; ++i) {
        line.Output(static_cast<std::uint8_t>(i));
    }
}

struct Hostility {
    const char* name;
    Behaviour behaviour;
    bool rfc2217;
    int framesPerTick; // bytes the keyboard writes every 10 ms
};

const Hostility kNeverReading[] = {
    {"raw line, frames to a server that never reads", Behaviour::NeverReads, false, 32768},
    {"RFC 2217 line, frames to a server that never reads", Behaviour::NeverReads, true, 32768},
    {"RFC 2217 line, endless refused options from a server that never reads",
     Behaviour::FloodsNegotiation, true, 0},
};

TEST(HostileServer, AServerThatNeverReadsCostsBoundedMemoryAndTheWindowKeepsAnswering) {
    for (const Hostility& c : kNeverReading) {
        HostileServer server(c.behaviour);
        NetworkLine line(1, server.Url(c.rfc2217));
        line.SetSettings("9600,n,8,1");
        line.Open();
        ASSERT_TRUE(WaitUntil([&] { return line.IsConnected(); })) << c.name;
        // Past the option negotiation, whatever the server says; how long this machine keeps
        // a timer waiting when nothing is sent is the baseline for the stalls below.
        const qint64 quiet = LongestStall(1200);
        const qint64 before = HeldBytes();
        const qint64 stall = LongestStall(RunSeconds() * 1000, [&] {
            if (line.IsOpen()) {
                WriteFrames(line, c.framesPerTick);
            }
        });
        const qint64 grown = HeldBytes() - before;
        std::printf("[ hostile  ] %s: resident %lld MB after %d s (grew %lld kB), longest "
                    "stall %lld ms\n",
                    c.name, ResidentBytes() >> 20, RunSeconds(), grown >> 10, stall);
        EXPECT_LT(grown, 16 << 20) << c.name;
        // Waiting on a server that never reads would stall for seconds.
        EXPECT_LT(stall, quiet + 250) << c.name;
        EXPECT_TRUE(line.IsOpen()) << c.name << ": a server that reads nothing is still there";
    }
}

// What is written past the cap is lost, the operator hears of it once, and the line
// sends again, by itself, once the server reads.
TEST(HostileServer, AServerThatStopsReadingIsToldOnceAndTheLineSendsAgainWhenItReads) {
    for (const bool rfc2217 : {false, true}) {
        HostileServer server(Behaviour::NeverReads);
        NetworkLine line(1, server.Url(rfc2217));
        line.SetSettings("9600,n,8,1");
        QSignalSpy stalled(&line, &SerialLine::LineStalled);
        QSignalSpy flowing(&line, &SerialLine::LineFlowing);
        line.Open();
        ASSERT_TRUE(WaitUntil([&] { return line.IsConnected(); }));
        LongestStall(1200);
        ASSERT_TRUE(WaitUntil(
            [&] {
                WriteFrames(line, 65536);
                return line.IsStalled();
            },
            20000))
            << "the system's buffers fill at last";
        ASSERT_TRUE(WaitUntil([&] { return !stalled.isEmpty(); }));
        WriteFrames(line, 4 * kSendLimit);
        LongestStall(200);
        ASSERT_EQ(stalled.size(), 1) << rfc2217;
        EXPECT_TRUE(stalled[0][0].toString().startsWith(
            QStringLiteral("COM 1 (%1): the server does not read what is sent to it; ")
                .arg(server.Url(rfc2217))))
            << stalled[0][0].toString().toStdString();
        EXPECT_TRUE(flowing.isEmpty());

        server.StartReading();
        ASSERT_TRUE(WaitUntil([&] { return !flowing.isEmpty(); }, 10000)) << rfc2217;
        EXPECT_EQ(flowing[0][0].toString(),
                  QStringLiteral("COM 1 (%1): the server reads again, and what the keyboard "
                                 "sends leaves once more.")
                      .arg(server.Url(rfc2217)));
        EXPECT_FALSE(line.IsStalled());
        ASSERT_TRUE(WaitUntil([&] { return line.IsConnected() && !line.IsStalled(); }));
        const qint64 before = server.BytesRead();
        LongestStall(300);
        const qint64 drained = server.BytesRead();
        WriteFrames(line, 100);
        EXPECT_TRUE(WaitUntil([&] { return server.BytesRead() >= drained + 100; }))
            << rfc2217 << ": read " << server.BytesRead() - before;
        EXPECT_EQ(stalled.size(), 1);
    }
}

// A server whose queue is full takes the call and never answers: told once for the whole
// outage however often the line tries again, and the window never waits on it.
TEST(HostileServer, AServerThatNeverAnswersItsBacklogIsToldOnceAndNeverWaitedOn) {
    HostileServer server(Behaviour::NeverAnswersBacklog);
    NetworkLine line(1, server.Url(false));
    line.SetConnectTimeout(300);
    line.SetRetryInterval(200);
    QSignalSpy failed(&line, &SerialLine::LineFailed);
    const qint64 quiet = LongestStall(500);
    QElapsedTimer clock;
    clock.start();
    line.Open();
    // Waiting for the server would take the whole connect timeout.
    EXPECT_LT(clock.elapsed(), 300);
    const qint64 stall = LongestStall(RunSeconds() * 1000, [&] {
        if (line.IsOpen()) {
            WriteFrames(line, 16);
        }
    });
    EXPECT_LT(stall, quiet + 250);
    ASSERT_EQ(failed.size(), 1);
    EXPECT_EQ(failed[0][0].toString(),
              QStringLiteral("COM 1 (%1): the server did not answer within 0.3 seconds; it is "
                             "tried again every 0.2 seconds and reopens by itself.")
                  .arg(server.Url(false)));
    EXPECT_TRUE(line.IsRetrying());
}

// The main window on COM 1 bound to a server that keeps dropping the connection, with
// the real message boxes an operator gets.
class FlappingServerTest : public KeyboardFixture {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        recorded_ = ui::SetMessagePresenter(RealMessagePresenter());
    }
    void TearDown() override {
        window_.reset();
        keyboard_.reset();
        ui::SetMessagePresenter(recorded_);
        KeyboardFixture::TearDown();
    }
    void Start(const QString& url) {
        WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\n1\r\n");
        Bind(1, url);
        keyboard_ = std::make_unique<Quellpad_Support_Func>(&MakeNetworkOrDeviceLine);
        dynamic_cast<NetworkLine&>(keyboard_->MSComm1()).SetRetryInterval(200);
        window_ = std::make_unique<FrmMain>(*keyboard_);
        window_->Form_Load();
        window_->show();
    }
    QString StatusText() const {
        return window_->findChild<QLabel*>(QStringLiteral("PortBindingsLabel"))->text();
    }

    ui::MessagePresenter recorded_;
    std::unique_ptr<FrmMain> window_;
};

TEST_F(FlappingServerTest, APortThatKeepsDroppingIsToldOneBoxAtATimeThenInTheStatusBar) {
    struct Case {
        const char* name;
        Behaviour behaviour;
        int closeAfterMs; // the operator reads each box this long; -1: never closes it
        int boxes;
    };
    const Case cases[] = {
        {"resets, the box left up", Behaviour::ResetsEveryPeriod, -1, 1},
        {"resets, each box closed", Behaviour::ResetsEveryPeriod, 300, 1},
        {"half-closes, each box closed", Behaviour::HalfClosesEveryPeriod, 300, 1},
    };
    for (const Case& c : cases) {
        HostileServer server(c.behaviour, 300);
        Start(server.Url(false));
        MessageBoxWatch watch(c.closeAfterMs);
        int boxes = 0; // those shown while the server flapped
        QTimer::singleShot(RunSeconds() * 1000, [&] {
            boxes = watch.Shown();
            watch.CloseAll();
        });
        QElapsedTimer clock;
        clock.start();
        WaitUntil([&] { return clock.elapsed() > RunSeconds() * 1000 + 200; },
                  RunSeconds() * 1000 + 5000);
        std::printf("[ hostile  ] %s: %d boxes in %d s, %d accepted connections, at most %d "
                    "at once\n",
                    c.name, boxes, RunSeconds(), server.Accepted(), watch.MostAtOnce());
        EXPECT_GE(server.Accepted(), 3) << c.name << ": the line keeps reconnecting";
        EXPECT_EQ(watch.MostAtOnce(), 1) << c.name;
        EXPECT_EQ(boxes, c.boxes) << c.name;
        if (c.closeAfterMs >= 0) {
            EXPECT_TRUE(StatusText().contains(u"more since the last message"))
                << c.name << ": " << StatusText().toStdString();
        }
        window_.reset();
        keyboard_.reset();
    }
}

} // namespace
} // namespace quellpad::test
