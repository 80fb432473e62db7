#include "fixtures.h"
#include "ser2net.h"

#include "bus/scanner.h"
#include "capture/capture_reader.h"
#include "capture/capture_writer.h"
#include "netline/network_line.h"
#include "protocol/decoders.h"
#include "protocol/frames.h"
#include "protocol/vocabulary.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSerialPort>
#include <QTcpSocket>

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace quellpad::test {
namespace {

// quellpad-site in a process of its own, its output read line by line.
class SiteProgram {
public:
    explicit SiteProgram(const QStringList& arguments) {
        process_.setProgram(QStringLiteral(QUELLPAD_SITE_PROGRAM));
        process_.setArguments(arguments);
        QObject::connect(&process_, &QProcess::readyReadStandardOutput, [this] {
            while (process_.canReadLine()) {
                lines_ << QString::fromUtf8(process_.readLine()).trimmed();
            }
        });
        process_.start();
    }
    ~SiteProgram() {
        process_.kill();
        process_.waitForFinished();
    }
    // The pseudo-terminal's path, which --pty prints first.
    QString PtyPath() {
        WaitUntil([&] { return !lines_.isEmpty(); });
        return lines_.value(0);
    }
    // The events of --json whose meaning contains `words`.
    int Count(const QString& event, const QString& words) const {
        int count = 0;
        for (const QString& line : lines_) {
            const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
            count += object.value("event") == event &&
                     object.value("meaning").toString().contains(words);
        }
        return count;
    }
    bool WaitFor(const QString& event, const QString& words) {
        return WaitUntil([&] { return Count(event, words) > 0; });
    }
    QProcess& Process() { return process_; }
    const QStringList& Lines() const { return lines_; }

private:
    QProcess process_;
    QStringList lines_;
};

class SiteProgramTest : public KeyboardFixture {};

// A headless box listens on the served site's TCP tap while a keyboard polls cameras 3, 5
// and 17, camera 5 mute: --diagnose names it, and what to check.
TEST(SiteProgramDiagnose, NamesTheCameraThatNeverAnswersFromTheTap) {
    const quint16 port = FreeLoopbackPort();
    SiteProgram site({"--pty", "--tap", QStringLiteral("tcp:127.0.0.1:%1").arg(port), "--cameras",
                      "3,5,17", "--line", "9600,n,8,1", "--fault", "mute=5"});
    const int keyboard =
        ::open(site.PtyPath().toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(keyboard, 0);
    termios settings{};
    tcgetattr(keyboard, &settings);
    cfmakeraw(&settings);
    cfsetspeed(&settings, B9600);
    tcsetattr(keyboard, TCSANOW, &settings);
    ASSERT_TRUE(WaitUntil([&] { return LoopbackListening(port); }));
    SiteProgram diagnose({"--diagnose", QStringLiteral("tcp://127.0.0.1:%1").arg(port)});
    ASSERT_TRUE(WaitUntil([&] { return !diagnose.Lines().isEmpty(); }));
    const auto named = [&] {
        return diagnose.Lines().last().contains("  mute  ");
    };
    for (int poll = 0; poll < 60 && !named(); ++poll) {
        const int cameras[] = {3, 5, 17};
        const std::string frame = bus::PollFrame(protocol::Language::D, cameras[poll % 3]);
        ASSERT_EQ(::write(keyboard, frame.data(), frame.size()), 7);
        WaitUntil([] { return false; }, 30);
        char answers[64];
        while (::read(keyboard, answers, sizeof answers) > 0) {
        }
    }
    ::close(keyboard);
    EXPECT_TRUE(diagnose.Lines().last().contains("Camera 5 is commanded"))
        << diagnose.Lines().join('\n').toStdString();
}

// Camera 1's pan query, which the site's dome answers.
const QByteArray kPanQuery =
    QByteArray::fromStdString(protocol::BuildDFrame(1, 0, protocol::code::kQueryPan, 0, 0));

// A client on its own thread sending switcher texts to a TCP port as fast as it takes them,
// each one a line of output.
class Flood {
public:
    explicit Flood(quint16 port) {
        fd_ = ConnectToLoopback(port);
        if (fd_ < 0) {
            return;
        }
        const timeval wait{0, 100000};
        ::setsockopt(fd_, SOL_SOCKET, SO_SNDTIMEO, &wait, sizeof wait);
        thread_ = std::thread([this] {
            std::string texts;
            while (texts.size() < 30000) {
                texts += "1Ma";
            }
            while (flooding_ && (::send(fd_, texts.data(), texts.size(), MSG_NOSIGNAL) >= 0 ||
                                 errno == EAGAIN)) {
            }
        });
    }
    ~Flood() {
        flooding_ = false;
        if (thread_.joinable()) {
            thread_.join();
        }
        ::close(fd_);
    }

private:
    int fd_ = -1;
    std::atomic<bool> flooding_{true};
    std::thread thread_;
};

// Whether every line is one whole JSON object.
bool AllJson(const QStringList& lines) {
    return std::all_of(lines.begin(), lines.end(), [](const QString& line) {
        return QJsonDocument::fromJson(line.toUtf8()).isObject();
    });
}

// Standard output piped into a reader that stops reading: the lines it cannot take are
// dropped whole and counted on standard error, every controller is still answered, and
// the program still ends at once when told to.
TEST(SiteProgramOutput, AReaderThatStallsNeverHoldsUpServing) {
    int pipe[2] = {-1, -1};
    ASSERT_EQ(::pipe2(pipe, O_CLOEXEC), 0);
    ::fcntl(pipe[1], F_SETPIPE_SZ, 4096);
    const quint16 port = FreeLoopbackPort();
    QProcess site;
    site.setProgram(QStringLiteral(QUELLPAD_SITE_PROGRAM));
    site.setArguments({"--listen", QStringLiteral("127.0.0.1:%1").arg(port), "--json"});
    site.setChildProcessModifier([fd = pipe[1]] { ::dup2(fd, STDOUT_FILENO); });
    site.start();
    ::close(pipe[1]);
    ASSERT_TRUE(WaitUntil([&] { return LoopbackListening(port); }));
    QTcpSocket polite;
    polite.connectToHost(QHostAddress::LocalHost, port);
    ASSERT_TRUE(polite.waitForConnected(2000));
    const qint64 quiet = AnswerMs(polite, kPanQuery);
    qint64 flooded = 0;
    {
        Flood flood(port);
        WaitUntil([] { return false; }, 500);
        for (int i = 0; i < 5; ++i) {
            flooded = std::max(flooded, AnswerMs(polite, kPanQuery));
        }
    }
    EXPECT_LT(flooded, quiet + 2000) << "alone: " << quiet << " ms";
    QElapsedTimer clock;
    clock.start();
    ::kill(static_cast<pid_t>(site.processId()), SIGTERM);
    // The reader wakes up, but reads at a trickle (200 kB/s) that cannot take the backlog
    // within the time the end allows: the closing lines still come out.
    QByteArray out;
    WaitUntil(
        [&] {
            char buffer[4096];
            const ssize_t got = ::read(pipe[0], buffer, sizeof buffer);
            out.append(buffer, std::max<ssize_t>(got, 0));
            ::usleep(20000);
            return got == 0;
        },
        10000);
    ::close(pipe[0]);
    ASSERT_TRUE(site.state() == QProcess::NotRunning || site.waitForFinished(5000));
    std::cout << "answered alone in " << quiet << " ms, beside a flood into a stalled reader in "
              << flooded << " ms; ended " << clock.elapsed() << " ms after SIGTERM\n";
    EXPECT_EQ(site.exitCode(), 0);
    const QStringList lines = QString::fromUtf8(out).split('\n', Qt::SkipEmptyParts);
    EXPECT_TRUE(AllJson(lines));
    EXPECT_TRUE(lines.last().contains("closed; not obeyed")) << lines.last().toStdString();
    EXPECT_TRUE(QString::fromUtf8(site.readAllStandardError()).contains("output lines dropped"));
}

// Each way of being told to stop, in the middle of a flood: every line closes (the
// listening port, and the program's end of the pseudo-terminal), the output ends with whole
// lines and the closing counts, and the program is gone at once.
TEST(SiteProgramEnd, HangupTerminateAndInterruptEachCloseEveryLineAtOnce) {
    for (const int signal : {SIGHUP, SIGTERM, SIGINT}) {
        SCOPED_TRACE(signal);
        const quint16 port = FreeLoopbackPort();
        SiteProgram site({"--pty", "--json", "--listen", QStringLiteral("127.0.0.1:%1").arg(port)});
        const QString pty = site.PtyPath();
        ASSERT_FALSE(pty.isEmpty());
        ASSERT_TRUE(WaitUntil([&] { return LoopbackListening(port); }));
        // The terminal is held open from this side: once the program has let go of its end,
        // this end hangs up. (Its /dev/pts number may already be another test's terminal.)
        const int controller = ::open(QFile::encodeName(pty).constData(), O_RDWR | O_NOCTTY);
        ASSERT_GE(controller, 0);
        Flood flood(port);
        WaitUntil([] { return false; }, 500);
        QElapsedTimer clock;
        clock.start();
        ::kill(static_cast<pid_t>(site.Process().processId()), signal);
        ASSERT_TRUE(site.Process().waitForFinished(5000));
        std::cout << "ended " << clock.elapsed() << " ms after signal " << signal << "\n";
        EXPECT_EQ(site.Process().exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(site.Process().exitCode(), 0);
        pollfd end{controller, POLLIN, 0};
        EXPECT_EQ(::poll(&end, 1, 0), 1);
        EXPECT_TRUE(end.revents & POLLHUP) << "the program's end of the terminal is still open";
        ::close(controller);
        EXPECT_FALSE(LoopbackListening(port)) << "every line is closed";
        EXPECT_TRUE(AllJson(site.Lines().mid(1)));
        EXPECT_TRUE(site.Lines().last().contains("closed; not obeyed: 0 bad"))
            << site.Lines().last().toStdString();
    }
}

// Raw TCP clients, one at a time and several at once, each answered on its own socket.
TEST(SiteProgramTcp, PanPositionQueriesAreAnsweredToEveryClient) {
    const quint16 port = FreeLoopbackPort();
    SiteProgram site({"--listen", QStringLiteral("127.0.0.1:%1").arg(port), "--json"});
    ASSERT_TRUE(WaitUntil([&] { return LoopbackListening(port); }));
    for (const int clients : {1, 2}) {
        SCOPED_TRACE(clients);
        std::vector<std::unique_ptr<QTcpSocket>> sockets;
        for (int i = 0; i < clients; ++i) {
            sockets.push_back(std::make_unique<QTcpSocket>());
            sockets.back()->connectToHost(QHostAddress::LocalHost, port);
            ASSERT_TRUE(sockets.back()->waitForConnected(2000));
        }
        // Each client's frame in two halves, the halves of the clients interleaved: every
        // client has a wire of its own, so no frame cuts into another's.
        for (const qsizetype from : {0, 3}) {
            for (const auto& socket : sockets) {
                socket->write(kPanQuery.mid(from, from == 0 ? 3 : -1));
                socket->waitForBytesWritten(1000);
                WaitUntil([] { return false; }, 20);
            }
        }
        for (const auto& socket : sockets) {
            QByteArray answer;
            ASSERT_TRUE(WaitUntil([&] {
                answer += socket->readAll();
                return answer.size() >= 7;
            }));
            protocol::DReplyDecoder decoder;
            const auto replies = decoder.Feed(protocol::AsBytes(answer.toStdString()));
            ASSERT_EQ(replies.size(), 1u) << answer.toHex().toStdString();
            EXPECT_EQ(replies[0].address, 1);
            EXPECT_EQ(replies[0].Describe().rfind("pan is ", 0), 0u) << replies[0].Describe();
        }
    }
    EXPECT_EQ(site.Count("answer", "camera 1 ← pan position"), 3);
}

// The packets of a capture as far as it reads, and the lines it describes.
std::vector<capture::Packet> ReadCapture(const QString& path, QStringList& lines) {
    std::vector<capture::Packet> packets;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0) {
        return packets;
    }
    capture::CaptureReader reader(file);
    while (auto packet = reader.Next()) {
        packets.push_back(*packet);
    }
    lines.clear();
    for (const capture::Interface& line : reader.Interfaces()) {
        lines << line.name;
    }
    return packets;
}

TEST(SiteProgramRecord, AKilledSiteLeavesACaptureOfWhatEachLineCarried) {
    QTemporaryDir dir;
    const QString path = dir.filePath("site.pcapng");
    const quint16 port = FreeLoopbackPort();
    SiteProgram site(
        {"--listen", QStringLiteral("127.0.0.1:%1").arg(port), "--json", "--record", path});
    ASSERT_TRUE(WaitUntil([&] { return LoopbackListening(port); }));
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port);
    ASSERT_TRUE(socket.waitForConnected(2000));
    socket.write(kPanQuery);
    QByteArray answer;
    ASSERT_TRUE(WaitUntil([&] {
        answer += socket.readAll();
        return answer.size() >= 7;
    }));
    QStringList lines;
    // Flushed while it runs: no clean end is needed for the capture to read.
    ASSERT_TRUE(WaitUntil([&] {
        std::size_t bytes = 0;
        for (const capture::Packet& packet : ReadCapture(path, lines)) {
            bytes += packet.bytes.size();
        }
        return bytes >= static_cast<std::size_t>(kPanQuery.size() + answer.size());
    }));
    ::kill(static_cast<pid_t>(site.Process().processId()), SIGKILL);
    site.Process().waitForFinished();
    // The answer leaves at the line's pace, in as many runs as the pace cuts it into.
    QByteArray heard;
    QByteArray answered;
    std::int64_t last = 0;
    for (const capture::Packet& packet : ReadCapture(path, lines)) {
        (packet.inbound ? heard : answered) += QByteArray::fromStdString(packet.bytes);
        EXPECT_EQ(packet.side,
                  packet.inbound ? capture::Side::Controller : capture::Side::Equipment);
        EXPECT_GE(packet.atUs, last);
        last = packet.atUs;
    }
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].startsWith("tcp")) << lines[0].toStdString();
    EXPECT_EQ(heard, kPanQuery);
    EXPECT_EQ(answered, answer);
}

// A capture of COM 1 at `settings` in which the keyboard asked camera 1's pan position
// twice, 150 ms apart, and the camera answered.
QString FieldCapture(const QTemporaryDir& dir, const QString& settings) {
    const QString path = dir.filePath(settings.left(4) + ".pcapng");
    capture::CaptureWriter writer(path, {{"COM 1", "/dev/ttyUSB0", settings}});
    for (const std::int64_t at : {1'000'000, 1'150'000}) {
        capture::Packet packet;
        packet.atUs = at;
        packet.bytes = kPanQuery.toStdString();
        writer.Write(packet);
        packet.side = capture::Side::Equipment;
        packet.inbound = true;
        packet.bytes = protocol::BuildDReply(1, 0x59, 100);
        writer.Write(packet);
    }
    writer.Flush();
    return path;
}

TEST(SiteProgramReplay, ACaptureReplaysAtItsSettingsOnlyAndTellsWhereTheCameraPointed) {
    QTemporaryDir dir;
    const QString at2400 = FieldCapture(dir, "2400,n,8,1");
    const QString at9600 = FieldCapture(dir, "9600,n,8,1");
    {
        // Into the site: the camera hears both queries, and the program ends by itself.
        SiteProgram site({"--replay", at2400, "--json"});
        ASSERT_TRUE(site.Process().waitForFinished(10'000));
        site.Process().waitForReadyRead(100);
        EXPECT_EQ(site.Process().exitCode(), 0);
        EXPECT_EQ(site.Count("command", "camera 1: query pan"), 2)
            << site.Lines().join('\n').toStdString();
    }
    {
        // At other settings than the site's: refused, unless forced.
        SiteProgram refused({"--replay", at9600});
        ASSERT_TRUE(refused.Process().waitForFinished(10'000));
        EXPECT_EQ(refused.Process().exitCode(), 1);
        EXPECT_TRUE(refused.Process().readAllStandardError().contains("--force"));
        SiteProgram forced({"--replay", at9600, "--force", "--json"});
        ASSERT_TRUE(forced.Process().waitForFinished(10'000));
        EXPECT_EQ(forced.Process().exitCode(), 0);
    }
    {
        // Onto a line: the same bytes, with the recorded gap between them.
        PseudoTerminal terminal;
        SiteProgram site({"--replay", at9600, "--replay-to", terminal.SlavePath()});
        const QByteArray first = terminal.Read(static_cast<int>(kPanQuery.size()), 5000);
        QElapsedTimer gap;
        gap.start();
        // The line is at the capture's settings while it plays.
        const QString settings = terminal.LineSettings();
        const QByteArray second = terminal.Read(static_cast<int>(kPanQuery.size()), 5000);
        const qint64 gapMs = gap.elapsed();
        EXPECT_EQ(first, kPanQuery);
        EXPECT_EQ(second, kPanQuery);
        // Not at once: a replay that dropped the timing would send both together.
        EXPECT_GT(gapMs, 50);
        EXPECT_EQ(settings, "9600,n,8,1");
    }
    {
        // Where the camera pointed, as CSV: each answer puts it at pan 1°.
        SiteProgram timeline({"--timeline", at2400});
        ASSERT_TRUE(timeline.Process().waitForFinished(10'000));
        timeline.Process().waitForReadyRead(100);
        EXPECT_EQ(timeline.Process().exitCode(), 0);
        EXPECT_EQ(timeline.Lines().value(0), "address,time_s,pan,tilt,zoom,answered");
        EXPECT_TRUE(timeline.Lines().contains("1,1.150000,1.00,-10.00,0.000,1"))
            << timeline.Lines().join('\n').toStdString();
    }
}

// A controller at other line settings than the equipment's gets garbage through, and
// therefore no answer; at the same settings it is answered.
TEST(SiteProgramLine, OnlyAControllerAtTheEquipmentsSettingsIsAnswered) {
    struct Case {
        const char* served;
        qint32 baud;
        bool answered;
    };
    const Case cases[] = {
        {"2400,n,8,1", 2400, true},
        {"2400,n,8,1", 9600, false},
        {"9600,n,8,1", 9600, true},
        {"9600,n,8,1", 4800, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.served) + " to a controller at " + std::to_string(c.baud));
        SiteProgram site({"--pty", "--line", c.served});
        QSerialPort port(site.PtyPath());
        ASSERT_TRUE(port.open(QIODevice::ReadWrite));
        port.setBaudRate(c.baud);
        port.write(kPanQuery);
        QByteArray answer;
        WaitUntil(
            [&] {
                answer += port.readAll();
                return answer.size() >= 7;
            },
            c.answered ? 3000 : 300);
        EXPECT_EQ(answer.size(), c.answered ? 7 : 0) << answer.toHex().toStdString();
    }
}

TEST(SiteProgramArguments, HelpVersionAndRefusalsAnswerOnTheTerminal) {
    struct Case {
        QStringList arguments;
        int status;
        const char* out;
        const char* err;
    };
    const Case cases[] = {
        {{"--help"}, 0, "--listen <[host:]port>", ""},
        {{"--help"}, 0, "--max-clients <count>", ""},
        {{"--help"}, 0, "backlog of 256 kB", ""},
        {{"--listen", "4001", "--max-clients", "0"},
         2,
         "",
         "quellpad-site: '0' is not a number of clients from 1 to 1000.\n"},
        {{"--version"}, 0, "quellpad-site ", ""},
        {{"--pty", "--bogus"}, 2, "", "quellpad-site: Unknown option 'bogus'.\n"},
        {{},
         2,
         "",
         "quellpad-site: No line to serve on: name a device, --pty or --listen "
         "[host:]port.\n"},
        {{"--pty", "--cameras", "0-3"},
         2,
         "",
         "quellpad-site: '0-3' are not camera addresses from 1 to 255 (such as 1-8 or "
         "3,17,200).\n"},
        {{"--pty", "--line", "2400,x,8,1"},
         2,
         "",
         "quellpad-site: '2400,x,8,1' are not line settings (such as 2400,n,8,1).\n"},
        {{"/dev/nonexistent-quellpad"}, 1, "", "quellpad-site: cannot serve the site on "},
        {{"--pty", "--fault", "mute=0"}, 2, "", "quellpad-site: 'mute=0' is not a fault (such as "},
        {{"--pty", "--fault", "noise=0.9"}, 2, "", "quellpad-site: 'noise=0.9' is not a fault"},
        {{"--pty", "--tap", "serial"},
         2,
         "",
         "quellpad-site: 'serial' is not a tap (pty or tcp:[host:]port).\n"},
        {{"--diagnose", "/dev/nonexistent-quellpad"}, 1, "", "quellpad-site: "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        QProcess process;
        process.start(QStringLiteral(QUELLPAD_SITE_PROGRAM), c.arguments);
        ASSERT_TRUE(process.waitForFinished(5000));
        EXPECT_EQ(process.exitCode(), c.status);
        EXPECT_TRUE(QString::fromUtf8(process.readAllStandardOutput()).contains(c.out));
        const QString err = QString::fromUtf8(process.readAllStandardError());
        EXPECT_TRUE(*c.err == '\0' ? err.isEmpty() : err.startsWith(c.err)) << err.toStdString();
        EXPECT_LE(err.count('\n'), 1);
    }
}

// The keyboard on the served pseudo-terminal as on any serial device (the site's window
// open, which changes nothing), straight to the served TCP port, and through ser2net's RFC
// 2217 port in front of the served pseudo-terminal (where the frame's 0xFF start byte is
// doubled on the way): pan right and stop, answered; told to end, the program ends well.
TEST_F(SiteProgramTest, TheKeyboardOnEachServedLinePansCameraThreeRightAndStops) {
    for (const char* way : {"pty", "tcp", "rfc2217"}) {
        SCOPED_TRACE(way);
        const QString reason = Ser2netUnavailable();
        if (way[0] == 'r' && !reason.isEmpty()) {
            GTEST_SKIP() << reason.toStdString();
        }
        const quint16 port = FreeLoopbackPort();
        QStringList arguments{"--pty", "--json", "--listen",
                              QStringLiteral("127.0.0.1:%1").arg(port)};
        SiteProgram site(way[0] == 'p' ? arguments << "--view" : arguments);
        const QString pty = site.PtyPath();
        ASSERT_TRUE(pty.startsWith("/dev/pts/")) << pty.toStdString();
        Ser2net server(pty, true, dir_.path(), "2400n81");
        ASSERT_TRUE(way[0] != 'r' || server.Start());
        ASSERT_TRUE(WaitUntil([&] { return LoopbackListening(port); }));
        Bind(1, way[0] == 'p'   ? pty
                : way[0] == 'r' ? server.Url()
                                : QStringLiteral("tcp://127.0.0.1:%1").arg(port));
        keyboard_ = std::make_unique<Quellpad_Support_Func>(&MakeNetworkOrDeviceLine);
        keyboard_->MSComm1().SetSettings("2400,n,8,1");
        OpenPorts(true, false);
        keyboard_->CurrentMode = kModeD;
        keyboard_->AddressCOM1 = 3;
        for (const int speed : {0x20, 0}) {
            keyboard_->SetCommandBytes(0, speed ? 0x02 : 0, speed, 0);
            keyboard_->SendCommand();
        }
        EXPECT_TRUE(site.WaitFor("command", "camera 3: pan right 32"));
        EXPECT_TRUE(site.WaitFor("command", "camera 3: stop"));
        EXPECT_TRUE(site.WaitFor("answer", "camera 3 ← acknowledged"))
            << site.Lines().join('\n').toStdString();
        keyboard_.reset();
        ::kill(static_cast<pid_t>(site.Process().processId()), SIGTERM);
        ASSERT_TRUE(site.Process().waitForFinished(3000));
        EXPECT_EQ(site.Process().exitCode(), 0);
    }
}

} // namespace
} // namespace quellpad::test
