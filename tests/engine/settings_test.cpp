#include "fixtures.h"

#include "engine/errors.h"
#include "engine/port_control.h"
#include "engine/settings_file.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QSerialPort>

namespace quellpad::test {
namespace {

using SettingsTest = KeyboardFixture;

TEST_F(SettingsTest, DamagedFilesAreCompletedWithDefaultsAndRewritten) {
    struct Case {
        const char* name;
        QByteArray content;
        QByteArray rewritten; // what start-up leaves in the file
    };
    const QByteArray full = "9600\r\ne\r\nTrue\r\n1 2\r\nP\r\n1\r\n";
    const Case cases[] = {
        {"empty", "", "2400\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n"},
        {"short", "9600\r\ne\r\n", "9600\r\ne\r\nFalse\r\n1 2\r\nD\r\nNone\r\n"},
        {"complete", full, full},
        {"extra lines are ignored", full + "junk\r\nmore\r\n", full + "junk\r\nmore\r\n"},
        {"line feeds only", "4800\no\nFalse\n1\nASCII\nNone", "4800\no\nFalse\n1\nASCII\nNone"},
        {"binary junk", QByteArray("\x01\xff\x00zz\r\nn\r\n", 10) + "False\r\n1 2\r\nD\r\nNone\r\n",
         "2400\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n"},
    };
    for (const Case& c : cases) {
        WriteSettings(c.content);
        MakeKeyboard();
        EXPECT_TRUE(StartKeyboard(*keyboard_).isEmpty()) << c.name;
        EXPECT_EQ(ReadSettings(), c.rewritten) << c.name;
    }
}

TEST_F(SettingsTest, FirstStartWithOnlyComOneWritesDefaultsAndOpensNothing) {
    Bind(2, dir_.filePath(QStringLiteral("no-such-port")));
    MakeKeyboard();
    EXPECT_TRUE(StartKeyboard(*keyboard_).isEmpty());
    EXPECT_EQ(ReadSettings(), QByteArray("2400\r\nn\r\nFalse\r\n1\r\nD\r\nNone\r\n"));
    EXPECT_FALSE(keyboard_->AnyPortOpen());
}

TEST_F(SettingsTest, DetectPortsTellsPresentBusyAndMissingPortsApart) {
    struct Case {
        const char* name;
        bool com1Missing;
        bool com2Busy;
        const char* available;
    };
    const Case cases[] = {{"both present", false, false, "1 2"},
                          {"COM 2 busy", false, true, "1 2"},
                          {"COM 1 missing", true, false, " 2"},
                          {"COM 1 missing, COM 2 busy", true, true, " 2"}};
    for (const Case& c : cases) {
        Bind(1, c.com1Missing ? QStringLiteral("/dev/quellpad-missing") : com1_.SlavePath());
        Bind(2, com2_.SlavePath());
        MakeKeyboard();
        QSerialPort otherProgram(com2_.SlavePath());
        if (c.com2Busy) {
            ASSERT_TRUE(otherProgram.open(QIODevice::ReadWrite));
        }
        keyboard_->DetectPorts();
        EXPECT_EQ(keyboard_->AvailablePorts, QLatin1String(c.available)) << c.name;
        EXPECT_FALSE(keyboard_->AnyPortOpen()) << c.name;
    }
}

TEST_F(SettingsTest, StoredModesTAndHStartAsDButStayInTheFile) {
    WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nH\r\nNone\r\n");
    StartKeyboard(*keyboard_);
    EXPECT_EQ(keyboard_->CurrentMode, kModeD);
    EXPECT_TRUE(ReadSettings().contains("\r\nH\r\n"));
}

TEST_F(SettingsTest, EnabledPortsOpenAndAPortThatWillNotOpenIsReportedNotFatal) {
    WriteSettings("9600\r\ne\r\nFalse\r\n1 2\r\nD\r\n1 2\r\n");
    Bind(2, QStringLiteral("/dev/quellpad-missing"));
    MakeKeyboard();
    const QStringList problems = StartKeyboard(*keyboard_);
    EXPECT_TRUE(keyboard_->MSComm1().IsOpen());
    EXPECT_FALSE(keyboard_->MSComm2().IsOpen());
    ASSERT_EQ(problems.size(), 1);
    EXPECT_TRUE(problems[0].startsWith(
        QStringLiteral("COM 2 (/dev/quellpad-missing) could not be opened: there is no such port")))
        << problems[0].toStdString();
}

TEST_F(SettingsTest, ComOptionsRecordTheEnabledPortsAndSaveThem) {
    StartKeyboard(*keyboard_);
    struct Step {
        int port;
        bool otherChecked;
        bool nowOpen;
        const char* enabled;
    };
    const Step steps[] = {{1, false, true, "1"},
                          {2, true, true, "1 2"},
                          {1, true, false, "2"},
                          {2, false, false, "None"}};
    for (const Step& s : steps) {
        EXPECT_EQ(TogglePort(*keyboard_, s.port, s.otherChecked), s.nowOpen);
        EXPECT_EQ(keyboard_->EnabledPorts, QLatin1String(s.enabled));
        EXPECT_TRUE(ReadSettings().endsWith(QByteArray(s.enabled) + "\r\n"));
    }
}

TEST_F(SettingsTest, AComOptionThatCannotOpenChangesAndSavesNothing) {
    StartKeyboard(*keyboard_);
    const QByteArray before = ReadSettings();
    QSerialPort otherProgram(com1_.SlavePath());
    ASSERT_TRUE(otherProgram.open(QIODevice::ReadWrite));
    try {
        TogglePort(*keyboard_, 1, false);
        FAIL() << "opening a busy port succeeded";
    } catch (const PortError& error) {
        EXPECT_EQ(error.Failure(), PortFailure::InUse);
        EXPECT_TRUE(error.Message().contains(com1_.SlavePath()));
    }
    EXPECT_EQ(keyboard_->EnabledPorts, QStringLiteral("None"));
    EXPECT_EQ(ReadSettings(), before);
}

TEST_F(SettingsTest, SaveReconfiguresAvailablePortsAndLeavesClosedOnesClosed) {
    StartKeyboard(*keyboard_);
    OpenPorts(true, false);
    keyboard_->BaudRate = QStringLiteral("9600");
    keyboard_->HoldRts = QStringLiteral("True"); // a pty has no RTS line: no error all the same
    ApplyLineSettings(*keyboard_);
    EXPECT_TRUE(keyboard_->MSComm1().IsOpen());
    EXPECT_FALSE(keyboard_->MSComm2().IsOpen());
    keyboard_->BaudRate = QStringLiteral("fast");
    EXPECT_THROW(ApplyLineSettings(*keyboard_), PortError);
}

TEST_F(SettingsTest, AFileThatCannotBeWrittenIsReportedAndTheOldOneKept) {
    WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n");
    keyboard_->SettingsPath = dir_.filePath(QStringLiteral("missing-folder/Settings.dat"));
    try {
        keyboard_->SaveSettings();
        FAIL() << "writing into a missing folder succeeded";
    } catch (const SettingsError& error) {
        EXPECT_TRUE(
            error.Message().startsWith(QStringLiteral("Settings.dat could not be written")));
    }
    EXPECT_EQ(ReadSettings(), QByteArray("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n"));
}

} // namespace
} // namespace quellpad::test
