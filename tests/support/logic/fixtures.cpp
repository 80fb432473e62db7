#include "fixtures.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTcpSocket>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quellpad::test {

bool WaitUntil(const std::function<bool()>& condition, int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > timeoutMs) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

void KeyboardFixture::SetUp() {
    qputenv("QUELLPAD_SETTINGS_DIR", dir_.path().toLocal8Bit());
    // What the windows remember goes to the user's configuration: a fresh one per test,
    // so that no test starts from another's windows, nor touches the tester's own.
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(dir_.filePath(QStringLiteral("config"))));
    Bind(1, com1_.SlavePath());
    Bind(2, com2_.SlavePath());
    MakeKeyboard();
}

void KeyboardFixture::TearDown() {
    keyboard_.reset();
}

void KeyboardFixture::Bind(int portNumber, const QString& device) {
    qputenv(portNumber == 1 ? "QUELLPAD_COM1" : "QUELLPAD_COM2", device.toLocal8Bit());
}

void KeyboardFixture::MakeKeyboard() {
    keyboard_.reset();
    keyboard_ = std::make_unique<Quellpad_Support_Func>();
}

QString KeyboardFixture::SettingsPath() const {
    return dir_.filePath(QStringLiteral("Settings.dat"));
}

void KeyboardFixture::WriteSettings(const QByteArray& content) const {
    QFile file(SettingsPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray KeyboardFixture::ReadSettings() const {
    QFile file(SettingsPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void KeyboardFixture::OpenPorts(bool com1, bool com2) {
    if (com1) {
        keyboard_->MSComm1().Open();
    }
    if (com2) {
        keyboard_->MSComm2().Open();
    }
}

int ConnectToLoopback(quint16 port) {
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(port);
    to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&to), sizeof to) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

qint64 AnswerMs(QTcpSocket& client, const QByteArray& query) {
    QElapsedTimer clock;
    clock.start();
    client.readAll();
    client.write(query);
    QByteArray answer;
    WaitUntil(
        [&] {
            answer += client.readAll();
            return answer.size() >= 7;
        },
        5000);
    return answer.size() >= 7 ? clock.elapsed() : 1'000'000;
}

} // namespace quellpad::test
