#include "fixtures.h"

#include "engine/errors.h"
#include "engine/serial_device.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quellpad::test {
namespace {

using SerialDeviceTest = KeyboardFixture;

TEST_F(SerialDeviceTest, OpenFailuresNameThePortTheDeviceAndTheKindOfFailure) {
    struct Case {
        QString device;
        PortFailure failure;
        const char* wording;
    };
    const Case cases[] = {
        {QStringLiteral("/dev/quellpad-missing"), PortFailure::NoSuchPort, "there is no such port"},
        {QStringLiteral("/dev/null"), PortFailure::NotSerial, "the device is not a serial port"},
    };
    for (const Case& c : cases) {
        SerialDevice port(1, c.device);
        try {
            port.Open();
            FAIL() << c.device.toStdString() << " opened";
        } catch (const PortError& error) {
            EXPECT_EQ(error.Failure(), c.failure);
            EXPECT_TRUE(error.Message().startsWith(
                QStringLiteral("COM 1 (%1) could not be opened: %2").arg(c.device, c.wording)))
                << error.Message().toStdString();
        }
        EXPECT_FALSE(port.IsOpen());
    }
}

TEST_F(SerialDeviceTest, AVanishedDeviceIsReportedOnceAndTheLineCloses) {
    SerialDevice port(2, com2_.SlavePath());
    port.Open();
    QSignalSpy failed(&port, &SerialLine::LineFailed);
    com2_.Hangup();
    ASSERT_TRUE(WaitUntil([&] { return !failed.isEmpty(); }));
    com1_.Drain(100);
    ASSERT_EQ(failed.size(), 1) << "told once, however often the driver repeats it";
    // A pseudo-terminal is not reopened by itself, and the operator is told so.
    EXPECT_EQ(failed[0][0].toString(),
              QStringLiteral("COM 2 (%1) stopped working and has been closed: the program at its "
                             "far end closed it. A pseudo-terminal is not opened again by itself: "
                             "choose Options > COM 2 once a program serves it again.")
                  .arg(port.Device()));
    EXPECT_FALSE(port.IsOpen());
    EXPECT_THROW(port.Output(0xFF), PortError);
}

TEST_F(SerialDeviceTest, ARepliesLongerThanTheInputLengthArriveInSeveralEvents) {
    SerialDevice port(1, com1_.SlavePath());
    port.SetInputLength(30);
    port.Open();
    QList<QByteArray> reads;
    QObject::connect(&port, &SerialLine::CommEvent, [&](int code) {
        ASSERT_EQ(code, SerialLine::kDataReceived);
        reads.append(port.Input());
    });
    com1_.Write(QByteArray(70, 'x'));
    const auto all = [&] {
        return reads.join();
    };
    EXPECT_TRUE(WaitUntil([&] { return all().size() >= 70; }));
    EXPECT_EQ(all(), QByteArray(70, 'x'));
    for (const QByteArray& read : reads) {
        EXPECT_LE(read.size(), 30);
    }
}

TEST_F(SerialDeviceTest, AFloodNobodyReadsIsBoundedAndKeepsTheLatestBytes) {
    SerialDevice port(1, com1_.SlavePath());
    port.SetInputLength(0);
    port.Open();
    QByteArray flood;
    for (int i = 0; i < 20000; ++i) {
        flood += QByteArray::number(i % 10);
    }
    com1_.Write(flood + flood + flood + "end");
    ASSERT_TRUE(WaitUntil([&] { return port.BytesWaiting() > 0 && com1_.Drain(50).isEmpty(); }));
    com1_.Drain(100);
    const QByteArray kept = port.Input();
    EXPECT_EQ(kept.size(), kReceiveLimit);
    EXPECT_TRUE(kept.endsWith("end"));
}

// The far end of the pty reads nothing until told: what waits is capped, the rest is
// lost as on a wire nobody listens to, and the operator hears of it once each way.
TEST_F(SerialDeviceTest, AWireNobodyReadsDropsWhatIsWrittenPastTheCapAndIsToldOnce) {
    SerialDevice port(1, com1_.SlavePath());
    port.Open();
    QSignalSpy stalled(&port, &SerialLine::LineStalled);
    QSignalSpy flowing(&port, &SerialLine::LineFlowing);
    for (int i = 0; i < 4 * kSendLimit; ++i) {
        ASSERT_NO_THROW(port.Output(static_cast<std::uint8_t>(i))) << "byte " << i;
    }
    EXPECT_LE(port.BytesToWrite(), kSendLimit);
    ASSERT_TRUE(WaitUntil([&] { return !stalled.isEmpty(); }));
    EXPECT_TRUE(stalled[0][0].toString().startsWith(
        QStringLiteral("COM 1 (%1): the device does not take what is sent to it; ")
            .arg(port.Device())))
        << stalled[0][0].toString().toStdString();
    EXPECT_TRUE(port.IsOpen());

    QByteArray far;
    ASSERT_TRUE(WaitUntil([&] {
        far += com1_.Drain();
        return !flowing.isEmpty();
    }));
    EXPECT_EQ(stalled.size(), 1);
    // What was still waiting in the port leaves as the event loop runs.
    ASSERT_TRUE(WaitUntil([&] {
        far += com1_.Drain();
        return port.BytesToWrite() == 0;
    }));
    far += com1_.Drain(100);
    port.Output(0xA5);
    const QByteArray last = com1_.Read(1);
    EXPECT_EQ(last.right(1), QByteArray("\xA5")) << "what is sent after the wire drains leaves";
    // The pty's own buffer holds some 20 kB more than the port keeps.
    EXPECT_LE(far.size(), kSendLimit + 32768) << "the dropped bytes never reach the wire";
}

TEST_F(SerialDeviceTest, TimersKeepTheirPeriodWhileAFloodIsReported) {
    SerialDevice port(1, com1_.SlavePath());
    port.SetInputLength(30);
    port.Open();
    qsizetype taken = 0;
    QObject::connect(&port, &SerialLine::CommEvent, [&](int) {
        taken += port.Input().size();
        QThread::msleep(2); // a response box that takes its time
    });
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    tick.setInterval(20);
    QElapsedTimer clock;
    qint64 last = 0, longestGap = 0;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        longestGap = qMax(longestGap, clock.elapsed() - last);
        last = clock.elapsed();
    });
    clock.start();
    tick.start();
    com1_.Write(QByteArray(kReceiveLimit, 'x'));
    ASSERT_TRUE(WaitUntil([&] { return taken >= kReceiveLimit - 4096; }, 10000));
    // Every reply event of the flood in one go would keep the timer waiting for all of
    // their 2 ms (over 800 ms); one at a time between ticks, it waits for one tick.
    const qint64 allInOneGo = 2 * (kReceiveLimit - 4096) / 30;
    std::printf("[ flood    ] longest gap between 20 ms ticks: %lld ms\n", longestGap);
    EXPECT_LT(longestGap, allInOneGo / 2) << "one reply event at a time between the timers' ticks";
}

// What the opener is told by the device's permissions alone: joining its group helps
// only where that group may read and write it and is not root's own.
TEST(AccessRefusalTest, TheAdviceFollowsTheDevicesModeBits) {
    const QString joinDialout = QStringLiteral(
        "Access to /dev/ttyUSB0 was refused. Ask for membership of the group \"dialout\", which "
        "owns it, then log out and in again.");
    const QString onlyRoot = QStringLiteral(
        "Access to /dev/ttyUSB0 was refused. Only its owner, root, may open it. An administrator "
        "can grant access to it, for example with a udev rule that gives it a group to join.");
    const struct {
        const char* name;
        DeviceAccess access;
        QString told;
    } cases[] = {
        {"crw-rw---- root dialout", {020660, "root", "dialout", false}, joinDialout},
        {"crw-rw-rw- root dialout", {020666, "root", "dialout", false}, joinDialout},
        {"crw------- root root", {020600, "root", "root", true}, onlyRoot},
        {"crw-rw---- root root", {020660, "root", "root", true}, onlyRoot},
        {"crw-r----- root dialout", {020640, "root", "dialout", false}, onlyRoot},
        {"crw------- root dialout", {020600, "root", "dialout", false}, onlyRoot},
        {"nothing known",
         {},
         "Access to /dev/ttyUSB0 was refused. Ask for read and write access "
         "to it."},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(AccessRefusalText(QStringLiteral("/dev/ttyUSB0"), c.access), c.told) << c.name;
    }
}

// Root may open anything: each attempt is made by an unprivileged user, on a real device
// given the owner, group and mode of the case.
TEST_F(SerialDeviceTest, ADeviceThisUserMayNotOpenIsToldAsRefusedAsItsPermissionsSay) {
    const group* dialout = getgrnam("dialout");
    ASSERT_NE(dialout, nullptr);
    const struct {
        gid_t group;
        mode_t mode;
        QString advice;
    } cases[] = {
        {dialout->gr_gid, 0660,
         QStringLiteral("Ask for membership of the group \"dialout\", which owns it, then log out "
                        "and in again.")},
        {0, 0600,
         QStringLiteral("Only its owner, root, may open it. An administrator can grant access to "
                        "it, for example with a udev rule that gives it a group to join.")},
    };
    const QByteArray path = QFile::encodeName(com1_.SlavePath());
    for (const auto& c : cases) {
        SCOPED_TRACE(c.advice.toStdString());
        ASSERT_EQ(chown(path.constData(), 0, c.group), 0);
        ASSERT_EQ(chmod(path.constData(), c.mode), 0);
        int pipeEnds[2];
        ASSERT_EQ(pipe(pipeEnds), 0);
        const pid_t child = fork();
        if (child == 0) {
            QByteArray told = "opened";
            if (setgid(65534) == 0 && setuid(65534) == 0) {
                try {
                    SerialDevice port(1, com1_.SlavePath());
                    port.Open();
                } catch (const PortError& error) {
                    told = error.Message().toUtf8();
                }
            }
            (void)!write(pipeEnds[1], told.constData(), static_cast<size_t>(told.size()));
            _exit(0);
        }
        close(pipeEnds[1]);
        QByteArray told;
        char buffer[512];
        for (ssize_t n; (n = read(pipeEnds[0], buffer, sizeof buffer)) > 0;) {
            told.append(buffer, n);
        }
        close(pipeEnds[0]);
        waitpid(child, nullptr, 0);
        EXPECT_EQ(QString::fromUtf8(told),
                  QStringLiteral("COM 1 (%1) could not be opened. Access to %1 was refused. %2")
                      .arg(com1_.SlavePath(), c.advice));
    }
}

} // namespace
} // namespace quellpad::test
