#include "ser2net.h"

#include "fixtures.h"

#include <QFile>
#include <QStandardPaths>
#include <QTcpServer>

#include <unistd.h>

namespace quellpad::test {

QString Ser2netUnavailable() {
    static const QString reason = []() -> QString {
        const auto found = [] {
            return !QStandardPaths::findExecutable("ser2net").isEmpty();
        };
        if (found()) {
            return {};
        }
        if (geteuid() != 0) {
            return "ser2net is not installed, and installing it needs root: run "
                   "scripts/install-deps";
        }
        QProcess apt;
        apt.setProcessChannelMode(QProcess::MergedChannels);
        apt.start("sh", {"-c", "apt-get install -y -q --no-install-recommends ser2net || "
                               "{ apt-get update -q && apt-get install -y -q "
                               "--no-install-recommends ser2net; }"});
        apt.waitForFinished(600000);
        return found() ? QString()
                       : "ser2net is not installed and apt-get could not install it: " +
                             QString::fromLocal8Bit(apt.readAll().right(300));
    }();
    return reason;
}

quint16 FreeLoopbackPort() {
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

Ser2net::Ser2net(const QString& device, bool rfc2217, const QString& folder,
                 const QString& settings)
    : port_(FreeLoopbackPort()), rfc2217_(rfc2217), folder_(folder) {
    QFile config(folder_ + "/ser2net.yaml");
    config.open(QIODevice::WriteOnly);
    config.write(QStringLiteral("connection: &quellpad\n"
                                "  accepter: %1tcp,127.0.0.1,%2\n"
                                "  connector: serialdev,%3,%4,local\n")
                     .arg(rfc2217 ? "telnet(rfc2217)," : "")
                     .arg(port_)
                     .arg(device, settings)
                     .toUtf8());
}

QString Ser2net::Url() const {
    return QStringLiteral("%1://127.0.0.1:%2").arg(rfc2217_ ? "rfc2217" : "tcp").arg(port_);
}

bool Ser2net::Start() {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start("ser2net",
                   {"-n", "-d", "-c", folder_ + "/ser2net.yaml", "-P", folder_ + "/ser2net.pid"});
    return process_.waitForStarted() && WaitUntil([&] { return LoopbackListening(port_); });
}

void Ser2net::Kill() {
    process_.kill();
    process_.waitForFinished();
}

bool LoopbackListening(quint16 port) {
    QFile table("/proc/net/tcp");
    table.open(QIODevice::ReadOnly);
    const QByteArray entry = QStringLiteral(" 0100007F:%1 00000000:0000 0A ")
                                 .arg(port, 4, 16, QChar(u'0'))
                                 .toUpper()
                                 .toLatin1();
    return table.readAll().contains(entry);
}

} // namespace quellpad::test
