#include "fixtures.h"
#include "protocol/frames.h"

#include "site_server/served_lines.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <atomic>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace quellpad::test {
namespace {

using protocol::BuildDFrame;
using site_server::Event;
using site_server::Peer;
using site_server::ServedSite;

QByteArray Bytes(const std::string& bytes) {
    return QByteArray::fromStdString(bytes);
}

// What the served site told, in order.
struct Told {
    explicit Told(ServedSite& site) {
        QObject::connect(&site, &ServedSite::Told,
                         [this](const Event& event) { events.push_back(event); });
    }
    std::vector<Event> Of(Event::Kind kind) const {
        std::vector<Event> some;
        std::copy_if(events.begin(), events.end(), std::back_inserter(some),
                     [kind](const Event& event) { return event.kind == kind; });
        return some;
    }
    std::vector<Event> events;
};

TEST(ServedSiteWords, EventsReadAsTheTrafficMonitorWordsThem) {
    Event event{Event::Kind::Command, 0, "/dev/pts/4", QByteArray::fromHex("ff030002200025"),
                "camera 3: pan right 32"};
    EXPECT_TRUE(site_server::EventText(event).endsWith(
        "  /dev/pts/4  → FF 03 00 02 20 00 25  camera 3: pan right 32"));
    EXPECT_EQ(site_server::EventJson(event),
              R"({"bytes":"FF 03 00 02 20 00 25","event":"command","line":"/dev/pts/4",)"
              R"("meaning":"camera 3: pan right 32","time":"1970-01-01T00:00:00.000Z"})");

    struct Case {
        const char* text;
        bool ok;
        const char* host;
        quint16 port;
    };
    const Case cases[] = {
        {"4001", true, "", 4001},          {"127.0.0.1:4001", true, "127.0.0.1", 4001},
        {"[::1]:5000", true, "::1", 5000}, {"localhost:7", true, "127.0.0.1", 7},
        {":4001", false, "", 0},           {"4001x", false, "", 0},
        {"65536", false, "", 0},           {"nohost:4001", false, "", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        QHostAddress host;
        quint16 port = 0;
        ASSERT_EQ(site_server::ParseListenAddress(c.text, host, port), c.ok);
        if (c.ok) {
            EXPECT_EQ(host, *c.host ? QHostAddress(c.host) : QHostAddress(QHostAddress::Any));
            EXPECT_EQ(port, c.port);
        }
    }
}

// One controller's wire to the equipment: what it obeys, what it throws away and counts,
// and the pace of its answers.
TEST(ServedPeer, ObeysGoodFramesReportsBadOnesAndAnswersAtTheLinePace) {
    struct Case {
        const char* controller;
        bool obeyed;
    };
    const Case cases[] = {{"2400,n,8,1", true}, {"9600,n,8,1", false}, {"2400,e,8,1", false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.controller);
        ServedSite site({}, {});
        Told told(site);
        Peer peer(site, "line");
        site::LineFormat controller;
        ASSERT_TRUE(site::ParseLineFormat(c.controller, controller));
        peer.SetControllerFormat(controller);
        QByteArray answered;
        QElapsedTimer clock;
        qint64 lastAt = 0;
        QObject::connect(&peer, &Peer::Write, [&](const QByteArray& bytes) {
            answered += bytes;
            lastAt = clock.elapsed();
        });
        std::string bad = BuildDFrame(1, 0, 0x51, 0, 0);
        bad[6] = 0;
        clock.start();
        peer.Hear(protocol::AsBytes(bad + BuildDFrame(3, 0, 0x02, 0x20, 0)));
        if (c.obeyed) {
            ASSERT_TRUE(WaitUntil([&] { return answered.size() == 4; }));
            // Four bytes of ten bits at 2400 baud take 16.7 ms.
            EXPECT_GE(lastAt, 15);
            EXPECT_EQ(answered, QByteArray::fromHex("ff030003"));
            ASSERT_EQ(told.Of(Event::Kind::Command).size(), 1u);
            EXPECT_EQ(told.Of(Event::Kind::Command)[0].meaning, "camera 3: pan right 32");
            EXPECT_EQ(told.Of(Event::Kind::Answer)[0].meaning, "camera 3 ← acknowledged");
            EXPECT_EQ(peer.Rejected().badFrames, 1u);
            EXPECT_EQ(peer.Rejected().ignored, 7u);
            EXPECT_EQ(site.Equipment().Equipment().Camera(3).Moving().pan, 1);
        } else {
            WaitUntil([] { return false; }, 60);
            EXPECT_EQ(answered, QByteArray());
            EXPECT_TRUE(told.Of(Event::Kind::Command).empty());
            EXPECT_EQ(peer.Rejected().garbled, 14u);
            EXPECT_TRUE(site.Equipment().Equipment().Camera(3).Moving().Still());
        }
        ASSERT_EQ(told.Of(Event::Kind::Rejected).size(), 1u) << "told at once, not per byte";
        // Each count in the form its number takes.
        EXPECT_TRUE(told.Of(Event::Kind::Rejected)[0].meaning.startsWith(
            c.obeyed ? "not obeyed so far: 1 bad or cut-short frame, 0 bytes at other"
                     : "not obeyed so far: 0 bad or cut-short frames, 14 bytes at other"))
            << told.Of(Event::Kind::Rejected)[0].meaning.toStdString();
    }
}

// Floods, endless text, half frames and a client that never reads: each is counted, the
// answers waiting for a client are bounded, and another client is served all along.
TEST(ServedTcpLine, HostileClientsAreCountedAndBoundedWhileAnotherIsServed) {
    ServedSite site({}, {115200, 'n', 8, 1});
    site_server::TcpLine line(site, QHostAddress::LocalHost, 0);
    QTcpSocket hostile;
    QTcpSocket polite;
    hostile.connectToHost(QHostAddress::LocalHost, line.Port());
    polite.connectToHost(QHostAddress::LocalHost, line.Port());
    ASSERT_TRUE(WaitUntil([&] {
        return hostile.state() == QAbstractSocket::ConnectedState &&
               polite.state() == QAbstractSocket::ConnectedState;
    }));
    QByteArray flood(200000, '\0');
    for (char& byte : flood) {
        byte = static_cast<char>(QRandomGenerator::global()->bounded(256));
    }
    const QByteArray endless(100000, 'A');
    const QByteArray half = Bytes(BuildDFrame(1, 0, 0x51, 0, 0)).left(4);
    // Queries without end whose answers the client never takes off the wire.
    QByteArray queries;
    for (int i = 0; i < 40000; ++i) {
        queries += Bytes(BuildDFrame(1, 0, 0x51, 0, 0));
    }
    hostile.write(flood + endless + half + half + queries);
    QByteArray answers;
    QObject::connect(&polite, &QTcpSocket::readyRead, [&] { answers += polite.readAll(); });
    QElapsedTimer clock;
    clock.start();
    for (int round = 1; round <= 5; ++round) {
        polite.write(Bytes(BuildDFrame(2, 0, 0x51, 0, 0)));
        ASSERT_TRUE(WaitUntil([&] { return answers.size() == 7 * round; }, 2000)) << round;
    }
    EXPECT_LT(clock.elapsed(), 2000);
    ASSERT_TRUE(WaitUntil([&] { return line.Rejected().answersLost > 0; }, 10000));
    const site_server::Rejections rejected = line.Rejected();
    EXPECT_GT(rejected.badFrames, 0u);
    EXPECT_GT(rejected.ignored, static_cast<std::uint64_t>(endless.size()));
    EXPECT_EQ(rejected.garbled, 0u);
}

// A bare client socket on the loopback, which can half-close as nc -N and socat do.
class RawClient {
public:
    explicit RawClient(quint16 port) {
        fd_ = ConnectToLoopback(port);
        connected_ = fd_ >= 0;
        ::fcntl(fd_, F_SETFL, O_NONBLOCK);
    }
    ~RawClient() { ::close(fd_); }
    bool Connected() const { return connected_; }
    int Fd() const { return fd_; }
    void Send(const std::string& bytes) const {
        [[maybe_unused]] const ssize_t put = ::send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
    // What arrived until `count` bytes or the end of the stream, running the event loop.
    QByteArray Receive(int count, int timeoutMs = 3000) {
        WaitUntil(
            [&] {
                char buffer[4096];
                const ssize_t got = ::recv(fd_, buffer, sizeof buffer, 0);
                if (got > 0) {
                    received_.append(buffer, got);
                }
                ended_ = ended_ || got == 0 || (got < 0 && errno != EAGAIN);
                return received_.size() >= count || ended_;
            },
            timeoutMs);
        return received_;
    }
    bool Ended() const { return ended_; }

private:
    int fd_ = -1;
    bool connected_ = false;
    bool ended_ = false;
    QByteArray received_;
};

// A client flooding its socket with switcher texts as fast as the kernel takes them is
// read a chunk at a time, in turn with the others: the polite client beside it is answered
// much as when it is alone.
TEST(ServedTcpLine, AFloodingClientLeavesThePoliteOneAnsweredInTurn) {
    ServedSite site({}, {});
    site_server::TcpLine line(site, QHostAddress::LocalHost, 0);
    QTcpSocket polite;
    polite.connectToHost(QHostAddress::LocalHost, line.Port());
    ASSERT_TRUE(polite.waitForConnected(2000));
    const std::string query = BuildDFrame(1, 0, 0x51, 0, 0);
    qint64 quiet = 0;
    for (int i = 0; i < 3; ++i) {
        quiet = std::max(quiet, AnswerMs(polite, Bytes(query)));
    }
    RawClient flooder(line.Port());
    ASSERT_TRUE(flooder.Connected());
    std::atomic<bool> flooding{true};
    std::thread flood([&] {
        std::string texts;
        while (texts.size() < 60000) {
            texts += "1Ma";
        }
        while (flooding) {
            if (::send(flooder.Fd(), texts.data(), texts.size(), MSG_NOSIGNAL) < 0) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        }
    });
    WaitUntil([] { return false; }, 300);
    qint64 flooded = 0;
    for (int i = 0; i < 5; ++i) {
        flooded = std::max(flooded, AnswerMs(polite, Bytes(query)));
    }
    flooding = false;
    flood.join();
    // Far outside what a chunk a turn costs; the flood read whole took seconds.
    EXPECT_LT(flooded, quiet + 1000) << "alone: " << quiet << " ms";
    std::cout << "answer alone: " << quiet << " ms, beside a flood: " << flooded << " ms\n";
}

// Two ways a controller leaves, and what the line does about it: a TCP client that stops
// sending is still answered, then closed; a controller that closes the pseudo-terminal
// leaves nothing to the next one.
TEST(ServedLines, AControllerThatStopsSendingIsAnsweredAndTheNextStartsClean) {
    ServedSite site({}, {});
    Told told(site);
    const std::string query = BuildDFrame(1, 0, 0x51, 0, 0);

    site_server::TcpLine tcp(site, QHostAddress::LocalHost, 0);
    RawClient halfClosed(tcp.Port());
    ASSERT_TRUE(halfClosed.Connected());
    halfClosed.Send(query);
    ::shutdown(halfClosed.Fd(), SHUT_WR);
    EXPECT_EQ(halfClosed.Receive(7).left(4), QByteArray::fromHex("ff010059"));
    EXPECT_TRUE(WaitUntil([&] { return halfClosed.Receive(8).size() == 7 && halfClosed.Ended(); }))
        << "closed once answered";
    EXPECT_TRUE(WaitUntil([&] { return tcp.Clients() == 0; }));

    site_server::PtyLine pty(site);
    const QByteArray path = pty.Name().toLocal8Bit();
    const auto open = [&] {
        const int fd = ::open(path.constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        termios settings{};
        tcgetattr(fd, &settings);
        cfmakeraw(&settings);
        cfsetspeed(&settings, B2400);
        tcsetattr(fd, TCSANOW, &settings);
        return fd;
    };
    const int first = open();
    // Queries whose answers it never reads, and a monitor number it never ends.
    std::string bytes;
    for (int i = 0; i < 20; ++i) {
        bytes += query;
    }
    bytes += "12";
    ASSERT_EQ(::write(first, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    ASSERT_TRUE(WaitUntil([&] { return told.Of(Event::Kind::Answer).size() >= 5; }));
    ::close(first);
    ASSERT_TRUE(WaitUntil(
        [&] { return !told.events.empty() && told.events.back().meaning == "controller left"; }));
    const int second = open();
    ASSERT_EQ(::write(second, "1Ma", 3), 3);
    QByteArray unasked;
    WaitUntil(
        [&] {
            char buffer[4096];
            const ssize_t got = ::read(second, buffer, sizeof buffer);
            if (got > 0) {
                unasked.append(buffer, got);
            }
            return false;
        },
        500);
    ::close(second);
    EXPECT_EQ(unasked.toHex().toStdString(), "") << "answers meant for the first controller";
    const auto commands = told.Of(Event::Kind::Command);
    ASSERT_FALSE(commands.empty());
    EXPECT_EQ(commands.back().meaning, "switcher: monitor 1");
}

// The port serves as many clients as it may; a new client takes the place of one that has
// been quiet long enough, or is turned away, and the operator is told that once.
TEST(ServedTcpLine, ANewClientTakesAQuietOnesPlaceOrIsTurnedAwayWithOneWord) {
    ServedSite site({}, {});
    Told told(site);
    site_server::TcpLine line(site, QHostAddress::LocalHost, 0, 2, 300);
    const std::string query = BuildDFrame(1, 0, 0x51, 0, 0);
    RawClient talking(line.Port());
    RawClient quiet(line.Port());
    ASSERT_TRUE(WaitUntil([&] { return line.Clients() == 2; }));
    WaitUntil([] { return false; }, 400);
    talking.Send(query);
    ASSERT_EQ(talking.Receive(7).size(), 7);
    RawClient newcomer(line.Port());
    ASSERT_TRUE(newcomer.Connected());
    newcomer.Send(query);
    EXPECT_EQ(newcomer.Receive(7).size(), 7) << "served in the quiet one's place";
    EXPECT_TRUE(WaitUntil([&] { return quiet.Receive(1).isEmpty() && quiet.Ended(); }));

    // Nobody has been quiet long enough: the next clients are turned away.
    RawClient refused(line.Port());
    RawClient alsoRefused(line.Port());
    EXPECT_TRUE(WaitUntil([&] { return refused.Receive(1).isEmpty() && refused.Ended(); }));
    EXPECT_TRUE(WaitUntil([&] { return alsoRefused.Receive(1).isEmpty() && alsoRefused.Ended(); }));
    EXPECT_EQ(line.Clients(), 2);
    const auto words = told.Of(Event::Kind::Line);
    EXPECT_EQ(std::count_if(words.begin(), words.end(),
                            [](const Event& event) {
                                return event.meaning.startsWith("closed to make room");
                            }),
              1);
    EXPECT_EQ(std::count_if(words.begin(), words.end(),
                            [](const Event& event) {
                                return event.meaning.startsWith(
                                    "turned away: the port is full (--max-clients 2)");
                            }),
              1);
}

// A USB adapter pulled out and plugged in again under its stable name.
TEST(ServedDeviceLine, AVanishedDeviceIsToldOnceAndServedAgainWhenItReturns) {
    QTemporaryDir dir;
    const QString name = dir.filePath("usb-adapter-if00-port0");
    auto first = std::make_unique<PseudoTerminal>();
    ASSERT_TRUE(QFile::link(first->SlavePath(), name));
    ServedSite site({}, {});
    Told told(site);
    site_server::DeviceLine line(site, name);
    const QByteArray query = Bytes(BuildDFrame(1, 0, 0x51, 0, 0));
    first->Write(query);
    EXPECT_EQ(first->Read(7).left(4), QByteArray::fromHex("ff010059"));

    first->Hangup();
    const auto gone = [&] {
        return std::count_if(told.events.begin(), told.events.end(), [](const Event& event) {
            return event.meaning.startsWith("the device has gone");
        });
    };
    ASSERT_TRUE(WaitUntil([&] { return gone() == 1; }));
    WaitUntil([] { return false; }, 2500);
    EXPECT_EQ(gone(), 1) << "told once while it stays away";

    PseudoTerminal second;
    QFile::remove(name);
    ASSERT_TRUE(QFile::link(second.SlavePath(), name));
    ASSERT_TRUE(WaitUntil([&] { return told.events.back().meaning == "the device is back"; }));
    second.Write(query);
    EXPECT_EQ(second.Read(7).left(4), QByteArray::fromHex("ff010059"));
}

} // namespace
} // namespace quellpad::test

namespace quellpad::test {
namespace {

// Each fault of a site's wiring as a listener on the bus and the controller meet it: pan
// queries to camera 5, one a frame as a keyboard sends them.
TEST(ServedFaults, EachFaultReachesTheBusAsAWireCarriesIt) {
    struct Case {
        const char* fault;
        int queries;
        int minQueries, maxQueries; // queries to camera 5 a listener reads whole
        int stops;                  // stops to camera 5 sent by someone else, at least
        int answerAs;               // the address the answers carry
        int minAnswers, maxAnswers; // answers that check
        bool heard;                 // the listener hears anything at all
    };
    const Case cases[] = {
        {"", 4, 4, 4, 0, 5, 4, 4, true},
        {"mute=5", 4, 4, 4, 0, 5, 0, 0, true},
        {"answer-address=5:6", 4, 4, 4, 0, 6, 4, 4, true},
        {"duplicate-address=5", 4, 4, 4, 0, 5, 0, 1, true},
        {"swapped-txrx", 4, 0, 0, 0, 5, 0, 0, false},
        {"inverted-polarity", 4, 0, 0, 0, 5, 0, 0, true},
        {"noise=0.1", 20, 1, 19, 0, 5, 1, 19, true},
        {"second-controller=5", 6, 3, 5, 1, 5, 3, 6, true},
    };
    site::LineFormat format{9600};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fault);
        ServedSite site({{3, 5}, false, false}, format);
        site::SiteFaults faults;
        if (*c.fault != 0) {
            faults.faults.emplace_back();
            ASSERT_TRUE(site::ParseSiteFault(c.fault, faults.faults.back()));
            EXPECT_EQ(site::SiteFaultText(faults.faults.back()), c.fault);
        }
        site.SetFaults(faults);
        std::string tap;
        QObject::connect(&site, &ServedSite::OnWire,
                         [&](const QByteArray& bytes, const site::LineFormat& sent, bool inverted) {
                             tap += site::ReceivedAs(bytes.toStdString(), sent, format, inverted);
                         });
        Peer peer(site, "line");
        QByteArray answered;
        QObject::connect(&peer, &Peer::Write, [&](const QByteArray& bytes) { answered += bytes; });
        const std::string query = BuildDFrame(5, 0, 0x51, 0, 0);
        for (int i = 0; i < c.queries; ++i) {
            peer.Hear(protocol::AsBytes(query));
        }
        ASSERT_TRUE(WaitUntil([&] { return !peer.Owing(); }));
        std::vector<protocol::Command> answers;
        std::vector<protocol::Command> frames;
        protocol::DReplyDecoder().Feed(protocol::AsBytes(tap), answers);
        protocol::DFrameDecoder().Feed(protocol::AsBytes(tap), frames);
        const auto count = [&frames](const std::string& bytes) {
            return std::count_if(frames.begin(), frames.end(),
                                 [&](const protocol::Command& f) { return f.bytes == bytes; });
        };
        EXPECT_GE(count(query), c.minQueries);
        EXPECT_LE(count(query), c.maxQueries);
        EXPECT_GE(count(BuildDFrame(5, 0, 0, 0, 0)), c.stops);
        EXPECT_GE(static_cast<int>(answers.size()), c.minAnswers);
        EXPECT_LE(static_cast<int>(answers.size()), c.maxAnswers);
        for (const protocol::Command& answer : answers) {
            EXPECT_EQ(answer.address, c.answerAs);
        }
        EXPECT_EQ(!tap.empty(), c.heard);
        // What reaches the controller is what the receivers put on the wire.
        EXPECT_EQ(answered.isEmpty(),
                  c.maxAnswers == 0 && std::string(c.fault) != "duplicate-address=5");
    }
    // The wires swapped: every level inverted, a break wherever the line would idle.
    const std::string inverted =
        site::ReceivedAs(BuildDFrame(5, 0, 0x51, 0, 0), format, format, true);
    EXPECT_EQ(inverted.front(), 0);
    EXPECT_EQ(inverted.back(), 0);
    // At the same settings and the right way round, bytes cross unchanged; at others, not.
    EXPECT_EQ(site::ReceivedAs("\xff\x05", format, format), "\xff\x05");
    EXPECT_NE(site::ReceivedAs("\xff\x05\x00\x51", format, {4800}),
              std::string("\xff\x05\x00\x51", 4));
    EXPECT_EQ(site::ReceivedAs(std::string("\xff\x05\x00\x51", 4), {4800, 'e'}, {4800, 'e'}),
              std::string("\xff\x05\x00\x51", 4));
}

// A listener opens the tap as a serial port: at the bus's settings it hears the controller's
// query and the camera's answer byte for byte, at others garbage; what it writes goes nowhere.
TEST(ServedTap, AListenerHearsEveryByteOnTheBusAtItsOwnSettings) {
    struct Case {
        speed_t speed;
        bool whole;
    };
    const Case cases[] = {{B9600, true}, {B2400, false}};
    for (const Case& c : cases) {
        ServedSite site({{5}, false, false}, {9600});
        site_server::TapLine tap(site);
        const int fd = ::open(tap.Name().toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        ASSERT_GE(fd, 0);
        termios settings{};
        tcgetattr(fd, &settings);
        cfmakeraw(&settings);
        cfsetspeed(&settings, c.speed);
        tcsetattr(fd, TCSANOW, &settings);
        ASSERT_EQ(::write(fd, "\xff\x05\x00\x51\x00\x00\x56", 7), 7);
        Peer peer(site, "line");
        const std::string query = BuildDFrame(5, 0, 0x51, 0, 0);
        peer.Hear(protocol::AsBytes(query));
        QByteArray heard;
        WaitUntil(
            [&] {
                char buffer[256];
                const ssize_t got = ::read(fd, buffer, sizeof buffer);
                heard += QByteArray(buffer, got > 0 ? static_cast<qsizetype>(got) : 0);
                return !peer.Owing() && heard.size() >= 14;
            },
            500);
        ::close(fd);
        std::vector<protocol::Command> answers;
        protocol::DReplyDecoder().Feed(protocol::AsBytes(heard.toStdString()), answers);
        EXPECT_EQ(heard.startsWith(Bytes(query)), c.whole) << heard.toHex().toStdString();
        EXPECT_EQ(answers.size(), c.whole ? 1u : 0u);
        EXPECT_EQ(site.Equipment().Equipment().CameraLog(5).size(), 1u) << "only the query obeyed";
    }
}

} // namespace
} // namespace quellpad::test
