#pragma once

#include <QByteArray>
#include <QString>

namespace quellpad::test {

// A real pseudo-terminal: the program opens SlavePath() like any serial device, the test
// reads what the program wrote, and writes replies, on the master side.
class PseudoTerminal {
public:
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const QString& SlavePath() const { return slavePath_; }
    // Bytes the program has written, waiting up to timeoutMs (running the event loop)
    // until at least `count` have arrived.
    QByteArray Read(int count, int timeoutMs = 2000);
    // Everything waiting now, after letting the event loop run for settleMs.
    QByteArray Drain(int settleMs = 0);
    void Write(const QByteArray& bytes);
    // Lets a second port object open the same device (the driver marks an open serial
    // device exclusive), so that two COM ports can share one wire in a test.
    void AllowSecondOpen();
    // The line settings the device side has now, as "19200,e,8,1" (what a serial server
    // that opened SlavePath() has set on it).
    QString LineSettings() const;
    // The far end goes away, as when a USB adapter is pulled out.
    void Hangup();
    // The far end goes away and the test lets go of the device as well: its number is
    // free for the next pseudo-terminal once the program closes it too.
    void Release();

private:
    int master_ = -1;
    int slave_ = -1;
    QString slavePath_;
};

} // namespace quellpad::test
