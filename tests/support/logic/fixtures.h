#pragma once

#include "pseudo_terminal.h"

#include "engine/keyboard_state.h"

#include <QByteArray>
#include <QList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>

// Readable failures: texts as text, bytes as hexadecimal.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << '[' << bytes.toHex(' ').toStdString() << ']';
}
QT_END_NAMESPACE

class QTcpSocket;

namespace quellpad::test {

// Runs the event loop until the condition holds, for at most timeoutMs; whether it held.
bool WaitUntil(const std::function<bool()>& condition, int timeoutMs = 3000);

// A bare TCP socket connected to `port` on the loopback, for clients that Qt's sockets
// cannot play (half-closing, flooding from a thread of their own); -1 where it could not
// connect.
int ConnectToLoopback(quint16 port);

// Milliseconds until a client's D query (seven bytes back) is answered, the event loop
// running; far beyond any test's patience when it is not answered within 5 s.
qint64 AnswerMs(QTcpSocket& client, const QByteArray& query);

// Settings.dat in a fresh folder, COM 1 and COM 2 bound to fresh pseudo-terminals (or to
// paths where nothing answers), and the keyboard state built on them.
class KeyboardFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Binds COM n to a device path; takes effect for the next keyboard made.
    static void Bind(int portNumber, const QString& device);
    // Makes the keyboard on the current bindings (SetUp binds both to ptys).
    void MakeKeyboard();
    QString SettingsPath() const;
    void WriteSettings(const QByteArray& content) const;
    QByteArray ReadSettings() const;
    // Opens the ports as the Options menu would.
    void OpenPorts(bool com1, bool com2);

    QTemporaryDir dir_;
    PseudoTerminal com1_;
    PseudoTerminal com2_;
    std::unique_ptr<Quellpad_Support_Func> keyboard_;
};

} // namespace quellpad::test
