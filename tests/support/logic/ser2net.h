#pragma once

#include <QProcess>
#include <QString>

namespace quellpad::test {

// Why ser2net cannot be used, or "" once it is there; installed from the distribution's
// packages when missing and the tests run as root.
QString Ser2netUnavailable();

quint16 FreeLoopbackPort();
// Whether something listens on a loopback TCP port, as the kernel's table says.
bool LoopbackListening(quint16 port);

// ser2net serving one pseudo-terminal on a loopback port, raw or with RFC 2217, the
// device opened at `settings` ("9600n81") until a client sets it otherwise.
class Ser2net {
public:
    Ser2net(const QString& device, bool rfc2217, const QString& folder,
            const QString& settings = QStringLiteral("9600n81"));
    ~Ser2net() { Kill(); }

    QString Url() const;
    // Starts it and waits until it listens.
    bool Start();
    // Gone at once, as a server that loses its power.
    void Kill();

private:
    quint16 port_;
    bool rfc2217_;
    QString folder_;
    QProcess process_;
};

} // namespace quellpad::test
