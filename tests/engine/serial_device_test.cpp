#include "fixtures.h"

#include "engine/errors.h"
#include "engine/serial_device.h"

#include <QSignalSpy>

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
    EXPECT_TRUE(failed[0][0].toString().startsWith(
        QStringLiteral("COM 2 (%1) stopped working").arg(port.Device())));
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

TEST_F(SerialDeviceTest, BindingsComeFromTheEnvironment) {
    Bind(1, QStringLiteral("/dev/ttyUSB7"));
    EXPECT_EQ(DeviceForPort(1), QStringLiteral("/dev/ttyUSB7"));
    qunsetenv("QUELLPAD_COM2");
    EXPECT_EQ(DeviceForPort(2), QStringLiteral("/dev/ttyS1"));
}

} // namespace
} // namespace quellpad::test
