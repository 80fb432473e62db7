#include "fixtures.h"
#include "hostile_files.h"

#include "engine/errors.h"
#include "engine/port_binding.h"
#include "engine/settings_location.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quellpad::test {
namespace {

// The environment variable wins when set and not blank, then the settings window's choice
// kept in the bindings file beside Settings.dat, then the platform's device.
TEST(PortBindingTest, EnvironmentThenBindingsFileThenDefault) {
    struct Case {
        const char* name;
        const char* environment; // nullptr: not set
        const char* file;        // nullptr: no entry
        PortBinding expected;
    };
    const QString device = QStringLiteral("/dev/ttyS1"); // the platform's second serial port
    const Case cases[] = {
        {"nothing chosen", nullptr, nullptr, {device, BindingSource::Default}},
        {"file only", nullptr, "/dev/ttyUSB3", {"/dev/ttyUSB3", BindingSource::BindingsFile}},
        {"environment only", "sim", nullptr, {"sim", BindingSource::Environment}},
        {"environment over file",
         " tcp://10.1.1.9:4001 ",
         "/dev/ttyUSB3",
         {"tcp://10.1.1.9:4001", BindingSource::Environment}},
        {"blank environment counts as unset",
         "  ",
         "/dev/ttyUSB3",
         {"/dev/ttyUSB3", BindingSource::BindingsFile}},
        {"blank file entry counts as none", nullptr, " ", {device, BindingSource::Default}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QTemporaryDir dir;
        qputenv("QUELLPAD_SETTINGS_DIR", dir.path().toLocal8Bit());
        if (c.environment) {
            qputenv("QUELLPAD_COM2", c.environment);
        } else {
            qunsetenv("QUELLPAD_COM2");
        }
        if (c.file) {
            SavePortBinding(BindingsFilePath(), 2, QLatin1String(c.file));
        }
        const PortBinding found = ResolvePortBinding(2);
        EXPECT_EQ(found.binding, c.expected.binding);
        EXPECT_EQ(found.source, c.expected.source);
        EXPECT_EQ(ResolvePortBinding(1).source, BindingSource::Default) << "COM 1 is its own";
    }
    qunsetenv("QUELLPAD_COM2");
}

// A FIFO where Bindings.ini belongs is never opened: start-up would wait on it for ever.
TEST(PortBindingTest, AFifoNamedBindingsIniIsNotWaitedOnAndThePortTakesItsDefault) {
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("Bindings.ini"));
    ASSERT_TRUE(MakeFifo(fifo));
    const QByteArray environment = qgetenv("QUELLPAD_COM2");
    qunsetenv("QUELLPAD_COM2");
    PortBinding read;
    EXPECT_TRUE(FinishesWithin([&] { read = ResolvePortBinding(2, fifo); }, fifo));
    qputenv("QUELLPAD_COM2", environment);
    EXPECT_EQ(read.binding, DefaultDevice(2));
    EXPECT_EQ(read.source, BindingSource::Default);
    QString refusal;
    EXPECT_TRUE(FinishesWithin(
        [&] {
            try {
                SavePortBinding(fifo, 2, QStringLiteral("/dev/ttyUSB0"));
            } catch (const SettingsError& error) {
                refusal = error.Message();
            }
        },
        fifo));
    EXPECT_EQ(refusal, QStringLiteral("The choice of device for COM 2 could not be kept: "
                                      "Bindings.ini at %1 is not a plain file.")
                           .arg(fifo));
}

TEST(PortBindingTest, SavingAPortKeepsTheJoysticksEntries) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Bindings.ini"));
    QSettings(path, QSettings::IniFormat).setValue(QStringLiteral("Joystick/InUse"), true);
    SavePortBinding(path, 1, QStringLiteral("/dev/pts/7"));
    SavePortBinding(path, 1, QStringLiteral("sim"));
    const QSettings file(path, QSettings::IniFormat);
    EXPECT_TRUE(file.value(QStringLiteral("Joystick/InUse")).toBool());
    EXPECT_EQ(file.value(QStringLiteral("Ports/COM1")).toString(), QStringLiteral("sim"));
}

TEST(PortBindingTest, EmptyBindingsAndServersWithoutHostAndPortAreRefused) {
    const QString noServer =
        QStringLiteral("COM 2: \"%1\" names no server. Write it as tcp://host:port or "
                       "rfc2217://host:port, with a port number from 1 to 65535.");
    const QString empty =
        QStringLiteral("Choose what COM 2 is bound to: a serial device, the simulated site, or a "
                       "network server as tcp://host:port or rfc2217://host:port.");
    const std::pair<const char*, QString> cases[] = {
        {"   ", empty},
        {"tcp://host:port", noServer.arg("tcp://host:port")},
        {"RFC2217://:4001", noServer.arg("RFC2217://:4001")},
        {"tcp://10.0.0.5:70000", noServer.arg("tcp://10.0.0.5:70000")},
        {"rfc2217://10.0.0.5:4001", {}},
        {"/dev/pts/3", {}},
    };
    for (const auto& [binding, problem] : cases) {
        EXPECT_EQ(BindingProblem(2, QLatin1String(binding)).value_or(QString()), problem)
            << binding;
    }
}

TEST(PortBindingTest, ADeviceIsShownWithItsDescriptionAndUsbIdentity) {
    EXPECT_EQ(DeviceCaption("/dev/ttyUSB0", "FT232R USB UART", quint16{0x0403}, quint16{0x6001}),
              QStringLiteral("/dev/ttyUSB0 \u2014 FT232R USB UART (0403:6001)"));
}

} // namespace
} // namespace quellpad::test
