#include "fixtures.h"
#include "hostile_server.h"
#include "ser2net.h"

#include "bus/listen_line.h"
#include "engine/errors.h"
#include "engine/port_control.h"
#include "netline/network_line.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

namespace quellpad::test {
namespace {

class NetworkLineTest : public KeyboardFixture, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        if (const QString reason = Ser2netUnavailable(); !reason.isEmpty()) {
            GTEST_SKIP() << "Network lines not tested against a serial server: "
                         << reason.toStdString();
        }
        server_ = std::make_unique<Ser2net>(com1_.SlavePath(), GetParam(), dir_.path());
        Bind(1, server_->Url());
        network_ = std::make_unique<Quellpad_Support_Func>(&MakeNetworkOrDeviceLine);
        line_ = dynamic_cast<NetworkLine*>(&network_->MSComm1());
        ASSERT_NE(line_, nullptr);
        line_->SetRetryInterval(200);
        QObject::connect(line_, &SerialLine::CommEvent, [&] { received_ += line_->Input(); });
    }
    void TearDown() override {
        network_.reset();
        server_.reset();
        KeyboardFixture::TearDown();
    }
    // A D frame, pan right at speed 0x20, from SendCommand on COM 1 to the far pty.
    void SendFrameToFarEnd() {
        network_->CurrentMode = kModeD;
        network_->Command2 = 0x02;
        network_->Data1 = 0x20;
        network_->SendCommand();
        EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010002200023"));
    }
    bool Rfc2217() const { return GetParam(); }
    // The server applies the line settings on its own time, not in step with the data.
    QString FarSettingsOnceSettled(const QString& expected) {
        WaitUntil([&] { return com1_.LineSettings() == expected; }, 1000);
        return com1_.LineSettings();
    }

    std::unique_ptr<Ser2net> server_;
    std::unique_ptr<Quellpad_Support_Func> network_;
    NetworkLine* line_ = nullptr;
    QByteArray received_;
};

TEST_P(NetworkLineTest, FramesSettingsAndRepliesCrossTheServerByteExact) {
    ASSERT_TRUE(server_->Start());
    // Two stop bits show on the far pty; parity does not, as this kernel refuses it on a
    // pseudo-terminal, so the server's own answer stands for it.
    line_->SetSettings("4800,n,8,2");
    QElapsedTimer clock;
    clock.start();
    line_->Open();
    // Waiting for the connection would cost the server's negotiation at least, and
    // seconds where it does not answer; the bound is the connect timeout's tenth.
    EXPECT_LT(clock.elapsed(), 300) << "opening waits for nobody";
    SendFrameToFarEnd(); // written while the connection is still being made
    const QString first = Rfc2217() ? "4800,n,8,2" : "9600,n,8,1";
    EXPECT_EQ(FarSettingsOnceSettled(first), first);

    line_->SetSettings("19200,e,8,1");
    const QByteArray reply = QByteArray::fromHex("ff01005912ffa0");
    com1_.Write(reply);
    EXPECT_TRUE(WaitUntil([&] { return received_.size() >= reply.size(); }));
    EXPECT_EQ(received_, reply) << "0xFF undoubled, negotiation kept out";
    const QString changed = Rfc2217() ? "19200,n,8,1" : "9600,n,8,1";
    EXPECT_EQ(FarSettingsOnceSettled(changed), changed)
        << "a raw server keeps its own line settings";
    if (Rfc2217()) {
        EXPECT_TRUE(WaitUntil([&] {
            return line_->ServerValue(telnet::PortCommand::SetParity) == telnet::kParityEven;
        })) << "the server confirms even parity";
    }
}

// A listen-only line on a serial server hears the bus and puts nothing on it, from the
// connection to its end, whatever the server is told about the line settings.
TEST_P(NetworkLineTest, AListenLineHearsTheBusAndPutsNothingOnIt) {
    ASSERT_TRUE(server_->Start());
    QByteArray heard;
    {
        bus::ListenLine listen(MakeNetworkLine(3, server_->Url()));
        QObject::connect(&listen, &bus::ListenLine::Heard,
                         [&heard](const QByteArray& bytes) { heard += bytes; });
        listen.SetSettings("4800,n,8,1");
        listen.Open();
        const QByteArray frame = QByteArray::fromHex("ff110002140027");
        WaitUntil([] { return false; }, 300); // connected
        com1_.Write(frame + frame);
        EXPECT_TRUE(WaitUntil([&] { return heard.size() == 2 * frame.size(); }));
        EXPECT_EQ(heard, frame + frame);
        listen.SetSettings("9600,n,8,1");
        listen.Close();
    }
    EXPECT_EQ(com1_.Drain(300), QByteArray()) << "not a byte reached the bus";
}

// A server that is not there when the port opens, and one that dies while it is open, are
// each told once; the line comes back by itself when the server does.
TEST_P(NetworkLineTest, AMissingOrLostServerIsReportedOnceAndTheLineReopensWhenItIsBack) {
    QSignalSpy failed(line_, &SerialLine::LineFailed);
    QSignalSpy restored(line_, &SerialLine::LineRestored);
    line_->SetSettings("19200,n,8,1");
    line_->Open();
    ASSERT_TRUE(WaitUntil([&] { return !failed.isEmpty(); }));
    EXPECT_EQ(failed[0][0].toString(),
              QStringLiteral("COM 1 (%1): the server does not answer (Connection refused); it is "
                             "tried again every 0.2 seconds and reopens by itself.")
                  .arg(server_->Url()));
    ASSERT_TRUE(server_->Start());
    ASSERT_TRUE(WaitUntil([&] { return !restored.isEmpty(); }));
    EXPECT_EQ(restored[0][0].toString(),
              QStringLiteral("COM 1 (%1) works again: the server answers and the port is open.")
                  .arg(server_->Url()));

    server_->Kill();
    ASSERT_TRUE(WaitUntil([&] { return failed.size() == 2; }));
    EXPECT_FALSE(line_->IsOpen());
    EXPECT_TRUE(failed[1][0].toString().startsWith(
        QStringLiteral("COM 1 (%1) stopped working and has been closed: the connection to the "
                       "server was lost")
            .arg(server_->Url())))
        << failed[1][0].toString().toStdString();
    com1_.Drain(700); // several retries find no server, silently
    ASSERT_TRUE(server_->Start());
    ASSERT_TRUE(WaitUntil([&] { return restored.size() == 2; }));
    EXPECT_EQ(failed.size(), 2);
    EXPECT_TRUE(line_->IsOpen());
    SendFrameToFarEnd();
    if (Rfc2217()) {
        EXPECT_EQ(FarSettingsOnceSettled("19200,n,8,1"), "19200,n,8,1")
            << "the settings are given again";
    }

    // The settings window's Save closes and reopens the port: the connection is kept, as
    // a server serving one client could turn a new one away while it drops the old.
    network_->AvailablePorts = "1";
    network_->BaudRate = "2400";
    network_->Parity = "n";
    network_->HoldRts = "True";
    ApplyLineSettings(*network_);
    EXPECT_TRUE(line_->IsConnected());
    SendFrameToFarEnd();
    const QString saved = Rfc2217() ? "2400,n,8,1" : "9600,n,8,1";
    EXPECT_EQ(FarSettingsOnceSettled(saved), saved);
    EXPECT_EQ(failed.size(), 2);
}

INSTANTIATE_TEST_SUITE_P(RawAndRfc2217, NetworkLineTest, ::testing::Bool(),
                         [](const ::testing::TestParamInfo<bool>& param) {
                             return param.param ? "Rfc2217" : "Raw";
                         });

// A server whose queue of connections is full drops the call unanswered, as one that hangs.
TEST(NetworkLine, AServerThatDoesNotAnswerIsGivenUpOnWithoutWaitingInOpen) {
    const HostileServer server(HostileServer::Behaviour::NeverAnswersBacklog);
    const QString url = server.Url(false);
    NetworkLine line(1, url);
    line.SetConnectTimeout(300);
    QSignalSpy failed(&line, &SerialLine::LineFailed);
    QElapsedTimer clock;
    clock.start();
    line.Open();
    EXPECT_TRUE(failed.isEmpty()) << "opening waited for the connect timeout";
    EXPECT_LT(clock.elapsed(), 300) << "opening waited for the connect timeout";
    EXPECT_TRUE(WaitUntil([&] { return !failed.isEmpty(); }));
    EXPECT_EQ(failed.value(0).value(0).toString(),
              QStringLiteral("COM 1 (%1): the server did not answer within 0.3 seconds; it is "
                             "tried again every 2 seconds and reopens by itself.")
                  .arg(url));
}

TEST(NetworkBinding, UrlsMakeNetworkLinesAndOtherBindingsDevices) {
    struct Case {
        const char* binding;
        bool network;
        bool opens;
    };
    const Case cases[] = {
        {"tcp://127.0.0.1:7001", true, true},    {"RFC2217://localhost:4001", true, true},
        {"tcp://127.0.0.1", true, false},        {"rfc2217://:4001", true, false},
        {"/dev/quellpad-missing", false, false},
    };
    for (const Case& c : cases) {
        qputenv("QUELLPAD_COM2", c.binding);
        const std::unique_ptr<SerialLine> line = MakeNetworkOrDeviceLine(2);
        EXPECT_EQ(dynamic_cast<NetworkLine*>(line.get()) != nullptr, c.network) << c.binding;
        EXPECT_EQ(line->Device(), QString::fromLatin1(c.binding));
        try {
            line->Open();
            EXPECT_TRUE(c.opens) << c.binding;
        } catch (const PortError& error) {
            EXPECT_FALSE(c.opens) << c.binding;
            EXPECT_EQ(error.Failure(), PortFailure::NoSuchPort) << c.binding;
        }
    }
}

} // namespace
} // namespace quellpad::test
