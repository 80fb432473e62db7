#include "engine/port_binding.h"
#include "engine/settings_location.h"
#include "quellpad/command_line.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quellpad::test {
namespace {

using Action = CommandLine::Action;

TEST(CommandLineTest, ArgumentsGiveTheirActionOrOneLineOfRefusal) {
    struct Case {
        QStringList arguments; // after the program's name
        Action action;
        QString error;
        QString com1, com2, settingsDir;
    };
    const Case cases[] = {
        {{}, Action::Run, {}, {}, {}, {}},
        {{"--help"}, Action::ShowHelp, {}, {}, {}, {}},
        {{"-h"}, Action::ShowHelp, {}, {}, {}, {}},
        {{"--version"}, Action::ShowVersion, {}, {}, {}, {}},
        {{"--com1", "/dev/ttyUSB0", "--com2=sim", "--settings-dir", "/tmp/q"},
         Action::Run,
         {},
         "/dev/ttyUSB0",
         "sim",
         "/tmp/q"},
        {{"--com2", "tcp://10.0.0.7:4001"}, Action::Run, {}, {}, "tcp://10.0.0.7:4001", {}},
        {{"-platform", "offscreen", "-style", "Fusion", "-reverse"}, Action::Run, {}, {}, {}, {}},
        {{"--bogus"}, Action::Refuse, "Unknown option 'bogus'.", {}, {}, {}},
        {{"--help-all"}, Action::Refuse, "Unknown option 'help-all'.", {}, {}, {}},
        {{"--com1"}, Action::Refuse, "Missing value after '--com1'.", {}, {}, {}},
        {{"--settings-dir"}, Action::Refuse, "Missing value after '--settings-dir'.", {}, {}, {}},
        {{"--com2", " "}, Action::Refuse, "The value after '--com2' is empty.", {}, {}, {}},
        {{"/dev/ttyUSB0"}, Action::Refuse, "Unexpected argument '/dev/ttyUSB0'.", {}, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        const CommandLine line = ParseCommandLine(QStringList{"quellpad"} + c.arguments);
        EXPECT_EQ(line.action, c.action);
        EXPECT_EQ(line.error, c.error);
        EXPECT_EQ(line.com1, c.com1);
        EXPECT_EQ(line.com2, c.com2);
        EXPECT_EQ(line.settingsDir, c.settingsDir);
    }
}

TEST(CommandLineTest, OptionsWinOverTheVariablesAndBindingsFile) {
    QTemporaryDir named, chosen;
    qputenv("QUELLPAD_SETTINGS_DIR", named.path().toLocal8Bit());
    SavePortBinding(BindingsFilePath(), 2, QStringLiteral("/dev/ttyUSB3"));
    qputenv("QUELLPAD_COM1", "sim");
    SavePortBinding(QDir(chosen.path()).filePath(QStringLiteral("Bindings.ini")), 1,
                    QStringLiteral("/dev/ttyS9"));

    ApplyCommandLine(ParseCommandLine({"quellpad", "--com1", "/dev/ttyUSB1", "--com2",
                                       "rfc2217://host:7000", "--settings-dir", chosen.path()}));

    EXPECT_EQ(SettingsDir(), chosen.path());
    EXPECT_EQ(ResolvePortBinding(1).binding, QStringLiteral("/dev/ttyUSB1"));
    EXPECT_EQ(ResolvePortBinding(2).binding, QStringLiteral("rfc2217://host:7000"));
    qunsetenv("QUELLPAD_COM1");
    qunsetenv("QUELLPAD_COM2");
    qunsetenv("QUELLPAD_SETTINGS_DIR");
}

// The program itself, on a platform that does not exist: making any window would abort it,
// so each answer below is given without one.
TEST(CommandLineTest, ProgramAnswersOnTheTerminalWithoutAWindow) {
    struct Case {
        QStringList arguments;
        int status;
        QString output; // the start of standard output
        QString error;  // all of standard error
        QString locale = QStringLiteral("C.UTF-8");
    };
    const Case cases[] = {
        {{"--version"}, 0, QStringLiteral("Quellpad " QUELLPAD_VERSION "\n"), {}},
        {{"--help"}, 0, QStringLiteral("Usage: "), {}},
        {{"--bogus"}, kUsageStatus, {}, "quellpad: Unknown option 'bogus'.\n"},
        {{"--com2"}, kUsageStatus, {}, "quellpad: Missing value after '--com2'.\n"},
        {{"--com1", "sim", "extra"}, kUsageStatus, {}, "quellpad: Unexpected argument 'extra'.\n"},
        // The locale chooses the language of the program's own texts; English needs none.
        {{"--com1", "sim", "extra"},
         kUsageStatus,
         {},
         "quellpad: Unerwartetes Argument \u201eextra\u201c.\n",
         "de_DE.UTF-8"},
        {{"--com1", "sim", "extra"},
         kUsageStatus,
         {},
         "quellpad: Unexpected argument 'extra'.\n",
         "en_GB.UTF-8"},
        {{"--com1", "sim", "extra"},
         kUsageStatus,
         {},
         "quellpad: Unexpected argument 'extra'.\n",
         "fr_FR.UTF-8"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE((c.locale + u' ' + c.arguments.join(u' ')).toStdString());
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("no-such-platform"));
        environment.insert(QStringLiteral("LC_ALL"), c.locale);
        environment.remove(QStringLiteral("LANGUAGE"));
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(QUELLPAD_PROGRAM), c.arguments);
        ASSERT_TRUE(program.waitForFinished(10000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), c.status);
        const QString output = QString::fromUtf8(program.readAllStandardOutput());
        EXPECT_TRUE(output.startsWith(c.output)) << output.toStdString();
        EXPECT_EQ(QString::fromUtf8(program.readAllStandardError()), c.error);
        if (c.arguments.constFirst() == u"--help") {
            for (const char* shown : {"--com1 <device>", "--com2 <device>", "--settings-dir <dir>",
                                      "QUELLPAD_COM1", "QUELLPAD_SETTINGS_DIR", "--version"}) {
                EXPECT_TRUE(output.contains(QLatin1String(shown))) << shown;
            }
            EXPECT_FALSE(output.contains(QStringLiteral("platform"))) << "Qt's own stay hidden";
            EXPECT_TRUE(output.contains(
                QStringLiteral("Control keyboard for CCTV cameras, switchers and multiplexers.")));
        }
    }
}

} // namespace
} // namespace quellpad::test
