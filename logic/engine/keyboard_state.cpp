#include "keyboard_state.h"

#include "errors.h"
#include "settings_file.h"

#include "protocol/frames.h"

#include <QScopeGuard>

#include <algorithm>
#include <array>

namespace quellpad {

namespace {

// The frame of one port, or the engine's overflow, worded as every other, where the
// address cannot be carried (the address 0 of a P frame): before any byte is written.
std::string BuildFrame(protocol::Language language, std::uint8_t address,
                       const Quellpad_Support_Func& k) {
    try {
        return protocol::BuildFrame(language, address, {k.Command1, k.Command2, k.Data1, k.Data2});
    } catch (const protocol::ByteOutOfRange& outOfRange) {
        ToByte(outOfRange.Value());
        throw;
    }
}

QString SplitLongEcho(const QString& text) {
    return text.size() >= 14 ? text.left(13) + QStringLiteral("\r\n") + text.mid(13) : text;
}

QString LeftTrimmed(const QString& text) {
    qsizetype i = 0;
    while (i < text.size() && text[i] == u' ') {
        ++i;
    }
    return text.mid(i);
}

} // namespace

bool IsAsciiMode(const QString& mode) {
    return mode == kModeAscii || mode == kModeMuxAscii;
}
bool IsFrameMode(const QString& mode) {
    return mode == kModeD || mode == kModeP;
}

QString HexByte(std::uint8_t value) {
    return QStringLiteral("%1").arg(value, 2, 16, QLatin1Char('0')).toUpper();
}

Quellpad_Support_Func::Quellpad_Support_Func(LineFactory makeLine, QObject* parent)
    : QObject(parent), SettingsPath(SettingsFilePath()), makeLine_(makeLine), com1_(makeLine(1)),
      com2_(makeLine(2)) {}

Quellpad_Support_Func::~Quellpad_Support_Func() = default;

SerialLine& Quellpad_Support_Func::ReplaceLine(int portNumber) {
    std::unique_ptr<SerialLine>& slot = portNumber == 1 ? com1_ : com2_;
    slot->Close();
    slot = makeLine_(portNumber);
    emit LineReplaced(portNumber);
    return *slot;
}

void Quellpad_Support_Func::SetCommandBytes(LooseNumber command1, LooseNumber command2,
                                            LooseNumber data1, LooseNumber data2) {
    LastCommand1 = 0;
    LastCommand2 = 0;
    LastData1 = 0;
    LastData2 = 0;
    Command1 = ToByte(command1.Value());
    Command2 = ToByte(command2.Value());
    Data1 = ToByte(data1.Value());
    Data2 = ToByte(data2.Value());
}

void Quellpad_Support_Func::ClearCommandBytes() {
    LastCommand1 = LastCommand2 = LastData1 = LastData2 = 0;
    Command1 = Command2 = Data1 = Data2 = 0;
}

bool Quellpad_Support_Func::AnyPortOpen() const {
    const bool com1 = com1_->IsOpen();
    const bool com2 = com2_->IsOpen();
    return com1 || com2;
}

void Quellpad_Support_Func::SendCommand() {
    if (IsAsciiMode(CurrentMode)) {
        AsciiCommand = LeftTrimmed(AsciiCommand);
        // Every character is converted before the first is written, so a text that
        // cannot be sent puts nothing at all on the wire.
        QByteArray bytes;
        bytes.reserve(AsciiCommand.size());
        for (const QChar c : AsciiCommand) {
            bytes.append(static_cast<char>(ToByte(c.unicode())));
        }
        WriteToOpenPorts(WireBytes(bytes), WireBytes(bytes));
        emit CommandEchoed(com1_->IsOpen() ? SplitLongEcho(AsciiCommand) : QString(),
                           com2_->IsOpen() ? SplitLongEcho(AsciiCommand) : QString());
        return;
    }
    if (!IsFrameMode(CurrentMode)) {
        return;
    }
    const auto language = CurrentMode == kModeP ? protocol::Language::P : protocol::Language::D;
    const std::string frame1 = BuildFrame(language, AddressCOM1, *this);
    const std::string frame2 = BuildFrame(language, AddressCOM2, *this);
    WriteToOpenPorts(protocol::AsBytes(frame1), protocol::AsBytes(frame2));
    emit CommandEchoed(com1_->IsOpen() ? FormatFrameHex(protocol::AsBytes(frame1)) : QString(),
                       com2_->IsOpen() ? FormatFrameHex(protocol::AsBytes(frame2)) : QString());
}

void Quellpad_Support_Func::WriteToOpenPorts(std::span<const std::uint8_t> com1,
                                             std::span<const std::uint8_t> com2) {
    std::size_t written1 = 0;
    std::size_t written2 = 0;
    // The tap hears of a frame once, whole, after its last byte; a write that fails part
    // way still shows what did leave.
    const auto tell = qScopeGuard([&] {
        for (LineTap* tap : {Tap, Watch}) {
            if (tap != nullptr) [[unlikely]] {
                if (written1 > 0) {
                    tap->Sent(1, CurrentMode, com1.first(written1));
                }
                if (written2 > 0) {
                    tap->Sent(2, CurrentMode, com2.first(written2));
                }
            }
        }
    });
    const std::size_t length = std::max(com1.size(), com2.size());
    for (std::size_t i = 0; i < length; ++i) {
        if (i < com1.size() && com1_->IsOpen()) {
            Com1OutByte = com1[i];
            com1_->Output(Com1OutByte);
            ++written1;
        }
        if (i < com2.size() && com2_->IsOpen()) {
            Com2OutByte = com2[i];
            com2_->Output(Com2OutByte);
            ++written2;
        }
    }
}

QByteArray Quellpad_Support_Func::TakeInput(int portNumber) {
    QByteArray bytes = Port(portNumber).Input();
    for (LineTap* tap : {Tap, Watch}) {
        if (tap != nullptr && !bytes.isEmpty()) [[unlikely]] {
            tap->Received(portNumber, CurrentMode, WireBytes(bytes));
        }
    }
    return bytes;
}

QString Quellpad_Support_Func::FormatFrameHex(std::span<const std::uint8_t> frame) const {
    const std::size_t length = CurrentMode == kModeD ? 7 : CurrentMode == kModeP ? 8 : 0;
    QString text;
    for (std::size_t i = 0; i < length && i < frame.size(); ++i) {
        text += HexByte(frame[i]) + u' ';
    }
    return text;
}

QString Quellpad_Support_Func::LineSettingsText() const {
    return BaudRate + u',' + Parity + QStringLiteral(",8,1");
}

void Quellpad_Support_Func::SaveSettings() const {
    WriteSettingsFile(SettingsPath,
                      {BaudRate, Parity, HoldRts, AvailablePorts, CurrentMode, EnabledPorts});
}

bool Quellpad_Support_Func::PortExists(int portNumber) {
    SerialLine& port = Port(portNumber);
    bool exists = false;
    try {
        port.Open();
        exists = port.IsOpen();
    } catch (const PortError& error) {
        // A port held by another program, or one this user may not open, exists all
        // the same.
        exists =
            error.Failure() == PortFailure::InUse || error.Failure() == PortFailure::AccessRefused;
    }
    port.Close();
    return exists;
}

void Quellpad_Support_Func::DetectPorts() {
    AvailablePorts.clear();
    for (int number = 1; number <= 2; ++number) {
        if (PortExists(number)) {
            AvailablePorts += number == 1 ? QStringLiteral("1") : QStringLiteral(" 2");
        }
    }
}

} // namespace quellpad
