#include "fixtures.h"

#include "engine/errors.h"
#include "engine/port_watch.h"
#include "engine/stable_device_names.h"

#include <QFile>
#include <QSignalSpy>
#include <QTimer>

#include <memory>

namespace quellpad::test {
namespace {

const QString kById = QStringLiteral("/dev/serial/by-id/");
const QString kFtdi = kById + QStringLiteral("usb-FTDI_FT232R_USB_UART_A50285BI-if00-port0");
const QString kProlific = kById + QStringLiteral("usb-Prolific_USB-Serial_Controller-if00-port0");

TEST(StableDeviceNamesTest, StableNamesComeFirstCaptionedAsTheirDevice) {
    const QList<DeviceChoice> devices = {
        {"/dev/ttyS0", "/dev/ttyS0"},
        {"/dev/ttyUSB0", "/dev/ttyUSB0 \u2014 FT232R USB UART (0403:6001)"},
        {"/dev/ttyUSB1", "/dev/ttyUSB1 \u2014 USB-Serial Controller (067b:2303)"},
    };
    const QList<StableName> names = {
        {kFtdi, "/dev/ttyUSB0"}, {kProlific, "/dev/ttyUSB1"}, {kById + "usb-pty", "/dev/pts/7"}};
    const QList<DeviceChoice> expected = {
        {kFtdi, kFtdi + " \u2014 FT232R USB UART (0403:6001)"},
        {kProlific, kProlific + " \u2014 USB-Serial Controller (067b:2303)"},
        {kById + "usb-pty", kById + "usb-pty \u2014 /dev/pts/7"},
    };
    const QList<DeviceChoice> listed = WithStableNames(devices, names);
    ASSERT_EQ(listed.size(), 6);
    for (qsizetype i = 0; i < listed.size(); ++i) {
        SCOPED_TRACE(i);
        const DeviceChoice& want = i < 3 ? expected[i] : devices[i - 3];
        EXPECT_EQ(listed[i].path, want.path);
        EXPECT_EQ(listed[i].caption, want.caption);
    }
}

TEST(StableDeviceNamesTest, ADeviceIsKeptUnderItsStableNameWhenItHasOne) {
    const QList<StableName> names = {{kFtdi, "/dev/ttyUSB0"}};
    const struct {
        QString binding;
        QString kept;
    } cases[] = {
        {"/dev/ttyUSB0", kFtdi},
        {kFtdi, kFtdi},
        {"/dev/ttyUSB1", "/dev/ttyUSB1"}, // no stable name
        {"/dev/ttyS0", "/dev/ttyS0"},
        {"sim", "sim"},
        {"tcp://10.0.0.7:4001", "tcp://10.0.0.7:4001"},
        {"COM3", "COM3"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(PreferStableName(c.binding, names), c.kept) << c.binding.toStdString();
    }
}

TEST(StableDeviceNamesTest, APortReopensByItselfOnlyOnTheDeviceItWasOpenOn) {
    const DeviceIdentity adapterA{false, {kFtdi}, "/sys/devices/usb1/1-2/1-2:1.0 A50285BI"};
    const DeviceIdentity adapterB{false, {kProlific}, "/sys/devices/usb1/1-2/1-2:1.0"};
    const DeviceIdentity namelessA{false, {}, "/sys/devices/usb1/1-2/1-2:1.0 A50285BI"};
    const DeviceIdentity namelessB{false, {}, "/sys/devices/usb1/1-3/1-3:1.0 A50285BJ"};
    const DeviceIdentity builtIn{false, {}, "/sys/devices/platform/serial8250"};
    const DeviceIdentity unknown{false, {}, {}};
    const DeviceIdentity terminal{true, {}, {}};
    const DeviceIdentity terminalByName{true, {kFtdi}, {}};
    const struct {
        const char* what;
        DeviceIdentity before;
        DeviceIdentity now;
        bool same;
    } cases[] = {
        {"the adapter back under its stable name", adapterA, adapterA, true},
        {"the adapter in another socket", adapterA, {false, {kFtdi}, "/sys/devices/usb2"}, true},
        {"another adapter on its kernel name", adapterA, adapterB, false},
        {"no stable names: the same serial number in the same socket", namelessA, namelessA, true},
        {"no stable names: another adapter", namelessA, namelessB, false},
        {"a built-in port", builtIn, builtIn, true},
        {"a device the system tells nothing of", unknown, unknown, true},
        {"a pseudo-terminal's number taken again", terminal, terminal, false},
        {"a kernel name now a pseudo-terminal", unknown, terminal, false},
        {"a stable name that led to a pseudo-terminal", terminalByName, terminalByName, true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SameDevice(c.before, c.now), c.same) << c.what;
    }
}

// A folder of links standing for /dev/serial/by-id, each to a pseudo-terminal.
class StableNameFolderTest : public KeyboardFixture {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        qputenv("QUELLPAD_SERIAL_BY_ID_DIR", byId_.path().toLocal8Bit());
        stable_ = byId_.filePath(QStringLiteral("usb-FTDI_FT232R_USB_UART_A50285BI-if00-port0"));
    }
    void TearDown() override {
        qunsetenv("QUELLPAD_SERIAL_BY_ID_DIR");
        KeyboardFixture::TearDown();
    }
    // The adapter appears at `device`, as udev points the link at its new kernel name.
    void PlugIn(const QString& device) {
        QFile::remove(stable_);
        ASSERT_TRUE(QFile::link(device, stable_));
    }
    QTemporaryDir byId_;
    QString stable_;
};

TEST_F(StableNameFolderTest, TheChooserListsTheStableNameFirstAndKeepsIt) {
    PlugIn(com2_.SlavePath());
    QFile::link(QStringLiteral("/dev/quellpad-unplugged"), byId_.filePath(QStringLiteral("gone")));
    const QList<DeviceChoice> listed = ChooserDevices();
    ASSERT_FALSE(listed.isEmpty());
    EXPECT_EQ(listed[0].path, stable_);
    EXPECT_EQ(listed[0].caption, stable_ + QStringLiteral(" \u2014 ") + com2_.SlavePath());
    EXPECT_EQ(std::count_if(listed.begin(), listed.end(),
                            [](const DeviceChoice& d) { return d.path.endsWith(u"/gone"); }),
              0)
        << "a link to an unplugged adapter is not offered";
    EXPECT_EQ(PreferStableName(com2_.SlavePath()), stable_);
}

// The adapter is pulled out and plugged into another socket: another kernel device, the
// same stable name. The port bound to the name reopens on the new device by itself.
TEST_F(StableNameFolderTest, APortBoundToAStableNameReopensWhereverTheAdapterReturns) {
    PlugIn(com1_.SlavePath());
    Bind(1, stable_);
    MakeKeyboard();
    SerialLine& port = keyboard_->Port(1);
    port.Open();
    QSignalSpy failed(&port, &SerialLine::LineFailed);
    PortWatch watch(*keyboard_);
    QSignalSpy back(&watch, &PortWatch::PortBack);

    com1_.Hangup();
    QFile::remove(stable_); // udev removes the link with the device
    ASSERT_TRUE(WaitUntil([&] { return !failed.isEmpty(); }));
    watch.Watch(1);
    PseudoTerminal replugged;
    WaitUntil([] { return false; }, 2 * PortWatch::kPollMs);
    EXPECT_TRUE(back.isEmpty()) << "nothing to open while the adapter is out";

    PlugIn(replugged.SlavePath());
    ASSERT_TRUE(WaitUntil([&] { return !back.isEmpty(); }));
    EXPECT_EQ(back[0][1].toString(),
              QStringLiteral("COM 1 (%1) is back and has been opened again.").arg(stable_));
    EXPECT_EQ(keyboard_->Port(1).Device(), stable_);
    keyboard_->Port(1).Output(0x5A);
    EXPECT_EQ(replugged.Read(1), QByteArray("\x5A"));
}

// COM 1 is bound to a kernel name (a link standing for /dev/ttyUSB0) that the next adapter
// plugged in takes: the port waits for its own adapter, known by its stable name.
TEST_F(StableNameFolderTest, AKernelNameTakenByAnotherAdapterIsNotReopened) {
    const QString kernelName = dir_.filePath(QStringLiteral("ttyUSB0"));
    const auto plugInAt = [&](const QString& stable, const QString& device) {
        QFile::remove(kernelName);
        QFile::remove(stable);
        ASSERT_TRUE(QFile::link(device, kernelName));
        ASSERT_TRUE(QFile::link(device, stable));
    };
    const QString other = byId_.filePath(QStringLiteral("usb-Prolific_USB-Serial-if00-port0"));
    plugInAt(stable_, com1_.SlavePath());
    Bind(1, kernelName);
    MakeKeyboard();
    SerialLine& port = keyboard_->Port(1);
    port.Open();
    QSignalSpy failed(&port, &SerialLine::LineFailed);
    PortWatch watch(*keyboard_);
    QSignalSpy back(&watch, &PortWatch::PortBack);
    com1_.Hangup();
    QFile::remove(stable_);
    ASSERT_TRUE(WaitUntil([&] { return !failed.isEmpty(); }));
    watch.Watch(1);

    PseudoTerminal another;
    plugInAt(other, another.SlavePath());
    QSignalSpy polls(watch.findChild<QTimer*>(QStringLiteral("PortWatchTimer")), &QTimer::timeout);
    ASSERT_TRUE(WaitUntil([&] { return polls.count() >= 3; }, 10000));
    EXPECT_TRUE(back.isEmpty()) << "another adapter took the kernel name";
    EXPECT_FALSE(port.IsOpen());
    EXPECT_EQ(another.Drain(), QByteArray());

    PseudoTerminal own;
    QFile::remove(other);
    plugInAt(stable_, own.SlavePath());
    ASSERT_TRUE(WaitUntil([&] { return !back.isEmpty(); }));
    keyboard_->Port(1).Output(0x5A);
    EXPECT_EQ(own.Read(1), QByteArray("\x5A"));
}

} // namespace
} // namespace quellpad::test
