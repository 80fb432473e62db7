#pragma once

#include "line_tap.h"
#include "numeric.h"
#include "serial_device.h"
#include "serial_line.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <span>

namespace quellpad {

inline const QString kModeAscii = QStringLiteral("ASCII");
inline const QString kModeMuxAscii = QStringLiteral("MUX ASCII");
inline const QString kModeD = QStringLiteral("D");
inline const QString kModeP = QStringLiteral("P");

bool IsAsciiMode(const QString& mode); // "ASCII" or "MUX ASCII"
bool IsFrameMode(const QString& mode); // "D" or "P"

// The byte in upper-case hexadecimal, always two characters ("0F", "AF").
QString HexByte(std::uint8_t value);

// The keyboard's one block of shared state, with the procedures that every window uses:
// the command registers, the ASCII command, the serial settings mirrored in
// Settings.dat, the two COM ports, and the one routine that puts a command on the wire.
// Fields are read and written directly by the windows; there are no accessors.
class Quellpad_Support_Func : public QObject {
    Q_OBJECT
public:
    explicit Quellpad_Support_Func(LineFactory makeLine = &MakeDeviceLine,
                                   QObject* parent = nullptr);
    ~Quellpad_Support_Func() override;

    // Command registers.
    QString CurrentMode;
    std::uint8_t AddressCOM1 = 1;
    std::uint8_t AddressCOM2 = 1;
    std::uint8_t Command1 = 0;
    // Bit 0 set marks a one-shot command that retransmission must not repeat.
    std::uint8_t Command2 = 0;
    std::uint8_t Data1 = 0;
    std::uint8_t Data2 = 0;
    std::uint8_t LastCommand1 = 0;
    std::uint8_t LastCommand2 = 0;
    std::uint8_t LastData1 = 0;
    std::uint8_t LastData2 = 0;
    QString AsciiCommand;
    QString LastAsciiCommand;

    // Serial settings, the lines of Settings.dat.
    QString BaudRate;
    QString Parity;
    QString HoldRts;
    QString AvailablePorts;
    QString EnabledPorts;

    // Flags and values of the main window.
    bool RetransmitOn = false;
    std::int32_t RetransmitInterval = 1000;
    bool ControlLockOn = false;
    std::int16_t PresetNumber = 1;
    QString Com1Response;
    QString Com2Response;
    std::uint8_t Com1OutByte = 0;
    std::uint8_t Com2OutByte = 0;

    // Numbered-target requests, armed by the operator's commands and stepped by the
    // motion dispatcher one frame per tick.
    std::uint8_t AuxToggleRequest = 0;
    std::uint8_t GpiToggleRequest = 0;
    std::int32_t AuxNumber = 0;
    std::uint8_t ZoneRequest = 0;
    std::uint8_t ZoneNumber = 0;
    std::uint8_t PresetSetStep = 0;
    QString LabelText;
    std::int16_t MacroNumber = 0;
    std::int32_t CameraNumber = 0;
    std::int16_t MonitorNumber = 0;
    std::int16_t AlarmNumber = 0;
    // 1 after the Flip option was chosen, 2 after Remote Reset; kept, though nothing reads it.
    std::uint8_t MiscOptionChoice = 0;
    std::int16_t AlarmRangeStart = 0;
    std::int16_t AlarmRangeEnd = 0;
    bool AlarmTriggerPending = false;
    bool AlarmResetPending = false;

    // A key of the menu control window is down; its auto-repeat sends nothing more.
    bool MenuKeyHeld = false;

    // Where Settings.dat is read and written.
    QString SettingsPath;

    // Told of every byte that leaves or arrives through WriteToOpenPorts and TakeInput;
    // none until the operator first opens the traffic monitor.
    LineTap* Tap = nullptr;
    // Told the same, all the time: what keeps an eye on queries that go unanswered.
    LineTap* Watch = nullptr;

    // Bytes are written and read through WriteToOpenPorts and TakeInput, so that the tap
    // sees them all; the lines themselves are for opening, closing and settings.
    SerialLine& MSComm1() { return *com1_; }
    SerialLine& MSComm2() { return *com2_; }
    SerialLine& Port(int portNumber) { return portNumber == 1 ? *com1_ : *com2_; }
    const SerialLine& Port(int portNumber) const { return portNumber == 1 ? *com1_ : *com2_; }
    // Closes the port's line and makes a new one through the line factory, which binds it
    // as the port is bound now; the new line is closed and has no settings yet
    // (RebindPort gives them). Whatever held on to the old line must take the new one:
    // LineReplaced says when.
    SerialLine& ReplaceLine(int portNumber);

    // Zeroes the last-sent copies, then stores the four values as bytes, so that the
    // dispatcher sends them at its next tick. Fails with OverflowError outside 0..255;
    // the registers stored before the failing one keep their new values.
    void SetCommandBytes(LooseNumber command1, LooseNumber command2, LooseNumber data1,
                         LooseNumber data2);
    void ClearCommandBytes();
    bool AnyPortOpen() const;

    // Builds the frame or text of the current mode for each port and writes it byte by
    // byte to every open port, COM 1 first, then echoes it (CommandEchoed).
    void SendCommand();
    // Writes the bytes byte by byte to every open port, the two ports interleaved, COM 1
    // first: `com1` to COM 1 and `com2` to COM 2. Com1OutByte and Com2OutByte hold the byte
    // last handed to each. Fails with PortError; what was written before is still tapped.
    void WriteToOpenPorts(std::span<const std::uint8_t> com1, std::span<const std::uint8_t> com2);
    // The bytes waiting on a port (its Input()), shown to the tap on their way in.
    QByteArray TakeInput(int portNumber);
    // The frame as the operator reads it: 7 bytes in "D", 8 in "P", each as two hex
    // digits and a blank; "" in other modes.
    QString FormatFrameHex(std::span<const std::uint8_t> frame) const;

    // The line settings text of both ports, such as "2400,n,8,1".
    QString LineSettingsText() const;
    // Writes the six settings to Settings.dat; fails with SettingsError.
    void SaveSettings() const;
    // Finds which of COM 1 and COM 2 exist: "", "1", " 2" or "1 2" in AvailablePorts.
    void DetectPorts();
    // Whether the port's line leads somewhere: it opens, or its device is held by another
    // program or refused to this user. The port is left closed.
    bool PortExists(int portNumber);

signals:
    // The echo captions under COM 1 and COM 2 after a command was sent.
    void CommandEchoed(const QString& com1, const QString& com2);
    // The port has a new line (ReplaceLine); the old one is gone.
    void LineReplaced(int portNumber);

private:
    LineFactory makeLine_;
    std::unique_ptr<SerialLine> com1_;
    std::unique_ptr<SerialLine> com2_;
};

} // namespace quellpad
