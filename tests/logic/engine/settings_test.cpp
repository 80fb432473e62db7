#include "fixtures.h"
#include "hostile_files.h"

#include "engine/errors.h"
#include "engine/port_control.h"
#include "engine/settings_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSerialPort>

#include <sys/stat.h>

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
    };
    for (const Case& c : cases) {
        WriteSettings(c.content);
        MakeKeyboard();
        EXPECT_TRUE(StartKeyboard(*keyboard_).isEmpty()) << c.name;
        EXPECT_EQ(ReadSettings(), c.rewritten) << c.name;
    }
}

TEST_F(SettingsTest, AFileThatCannotBeReadAsPlainLinesIsKeptBeforeItIsRewritten) {
    const QByteArray rest = "False\r\n1 2\r\nD\r\nNone\r\n";
    struct Case {
        const char* name;
        QByteArray content;
        const char* damage;
    };
    const Case cases[] = {
        {"binary", QByteArray("\x01\xff\x00zz\r\nn\r\n", 10) + rest,
         "line 1 holds characters that are not plain text"},
        {"UTF-16",
         QByteArray("\xff\xfe"
                    "9\0"
                    "6\0"
                    "0\0"
                    "0\0\r\0\n\0",
                    14),
         "line 1 holds characters"},
        {"a line over 4 KB", "9600\r\n" + QByteArray(5000, 'e') + "\r\n" + rest,
         "line 2 is longer than 4096 characters"},
        {"a last line over 4 KB", "9600\r\n" + QByteArray(30000, 'e'),
         "line 2 is longer than 4096 characters"},
    };
    const QStringList backups{"Settings.dat.bak", "Settings.dat.bak.1", "Settings.dat.bak.2",
                              "Settings.dat.bak.3"};
    for (int i = 0; i < 4; ++i) {
        const Case& c = cases[i];
        WriteSettings(c.content);
        MakeKeyboard();
        const QStringList problems = StartKeyboard(*keyboard_);
        ASSERT_EQ(problems.size(), 1) << c.name;
        EXPECT_TRUE(problems[0].contains(QLatin1String(c.damage))) << problems[0].toStdString();
        EXPECT_TRUE(problems[0].contains(QStringLiteral("kept as ") + backups[i]))
            << problems[0].toStdString();
        QFile kept(dir_.filePath(backups[i]));
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly)) << c.name;
        EXPECT_EQ(kept.readAll(), c.content) << "an older backup is never replaced";
        EXPECT_TRUE(ReadSettings().startsWith(c.content.startsWith("9600") ? "9600\r\nn\r\n"
                                                                           : "2400\r\nn\r\n"))
            << c.name;
    }

    for (int n = 4; n <= 9; ++n) {
        WriteSettings("taken");
        QFile::copy(SettingsPath(), SettingsPath() + QStringLiteral(".bak.%1").arg(n));
    }
    WriteSettings(cases[0].content);
    MakeKeyboard();
    const QStringList problems = StartKeyboard(*keyboard_);
    ASSERT_EQ(problems.size(), 1);
    EXPECT_TRUE(problems[0].contains(u"are all taken, so it was left as it is"))
        << problems[0].toStdString();
    EXPECT_EQ(ReadSettings(), cases[0].content);
    EXPECT_EQ(keyboard_->BaudRate, QStringLiteral("2400"));
}

TEST_F(SettingsTest, ASettingsPathThatIsNoPlainFileIsRefusedAndTheKeyboardStartsOnDefaults) {
    ASSERT_EQ(mkfifo(QFile::encodeName(SettingsPath()).constData(), 0600), 0);
    const QStringList problems = StartKeyboard(*keyboard_); // would wait for a writer for ever
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems[0], QStringLiteral("Settings.dat at %1 is not a plain file, so it was "
                                          "neither read nor written. The keyboard starts on its "
                                          "defaults.")
                               .arg(SettingsPath()));
    EXPECT_EQ(keyboard_->LineSettingsText(), QStringLiteral("2400,n,8,1"));
    EXPECT_TRUE(QFileInfo(SettingsPath()).isFile() == false);
    EXPECT_THROW(keyboard_->SaveSettings(), SettingsError);
}

TEST_F(SettingsTest, ABindingsIniThatIsNoPlainFileIsToldAtStartAndTheKeyboardStartsAnyway) {
    WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\n1\r\n");
    const QString bindings = dir_.filePath(QStringLiteral("Bindings.ini"));
    ASSERT_TRUE(MakeFifo(bindings));
    const QStringList problems = StartKeyboard(*keyboard_);
    EXPECT_EQ(problems,
              QStringList{QStringLiteral(
                              "Bindings.ini at %1 is not a plain file, so it was neither read nor "
                              "written. The ports and the joystick start on their defaults.")
                              .arg(bindings)});
    EXPECT_TRUE(keyboard_->MSComm1().IsOpen());
}

TEST_F(SettingsTest, BadValuesAreQuotedShortAndOnlyForEnabledPorts) {
    WriteSettings(QByteArray(4000, 'z') + "\r\nn\r\nFalse\r\n1 2\r\nD\r\n1\r\n");
    MakeKeyboard();
    const QStringList problems = StartKeyboard(*keyboard_);
    ASSERT_EQ(problems.size(), 1) << "COM 2 is not enabled";
    EXPECT_EQ(problems[0], QStringLiteral("COM 1 (%1): the line settings \"%2...\" are not valid")
                               .arg(com1_.SlavePath(), QString(40, u'z')));

    struct Quote {
        QString value;
        const char* quoted;
    };
    const Quote quotes[] = {
        {QStringLiteral("D "), "D "},
        {QStringLiteral("a\tb\x7f"), "a\\x09b\\x7F"},
        {QString(41, u'x'), "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx..."},
        {QString(20, QChar(1)), "\\x01\\x01\\x01\\x01\\x01\\x01\\x01\\x01\\x01\\x01..."}};
    for (const Quote& q : quotes) {
        EXPECT_EQ(QuoteValue(q.value), QLatin1String(q.quoted));
    }
}

// A stored mode no menu item matches is kept and told; T and H start as D. Either way the
// file keeps what it held.
TEST_F(SettingsTest, EachStoredModeStartsAsTheKeyboardCanSendIt) {
    const std::tuple<const char*, QString, bool> cases[] = {
        {"ZZ", "ZZ", true}, {"D ", "D ", true}, {"H", kModeD, false}, {"T", kModeD, false}};
    for (const auto& [mode, current, told] : cases) {
        SCOPED_TRACE(mode);
        WriteSettings(QByteArray("2400\r\nn\r\nFalse\r\n1 2\r\n") + mode + "\r\nNone\r\n");
        MakeKeyboard();
        const QStringList problems = StartKeyboard(*keyboard_);
        EXPECT_EQ(problems,
                  told ? QStringList{QStringLiteral(
                                         "Settings.dat holds the mode \"%1\", which this keyboard "
                                         "does not know, so no command is sent and replies are "
                                         "dropped. Choose a mode in the Mode menu.")
                                         .arg(QLatin1String(mode))}
                       : QStringList{});
        EXPECT_EQ(keyboard_->CurrentMode, current);
        EXPECT_TRUE(ReadSettings().contains(QByteArray("\r\n") + mode + "\r\n"));
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
