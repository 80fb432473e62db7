#include "fixtures.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

namespace quellpad::test {
namespace {

// The program itself, ended by the session (logout, a closed terminal, Ctrl+C) with no
// control held: it ends as when its window is closed, and its ports get nothing more.
TEST(EndSignalTest, AtRestTheProgramEndsNormallyAndSendsNothing) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        SCOPED_TRACE(signal);
        PseudoTerminal com1;
        QTemporaryDir settings;
        QFile file(settings.filePath(QStringLiteral("Settings.dat")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\n1\r\n");
        file.close();
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(QUELLPAD_PROGRAM),
                      {QStringLiteral("--com1"), com1.SlavePath(), QStringLiteral("--com2"),
                       QStringLiteral("/dev/quellpad-missing"), QStringLiteral("--settings-dir"),
                       settings.path()});
        ASSERT_TRUE(WaitUntil([&] { return com1.LineSettings() == u"2400,n,8,1"; }, 20000))
            << "COM 1 opened";
        ASSERT_EQ(kill(static_cast<pid_t>(program.processId()), signal), 0);
        ASSERT_TRUE(program.waitForFinished(20000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_EQ(com1.Drain(), QByteArray());
    }
}

} // namespace
} // namespace quellpad::test
