#pragma once

#include "pacer.h"
#include "site.h"

#include "engine/serial_device.h"
#include "engine/serial_line.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>
#include <string>

namespace quellpad::site {

// How a UART is set: the line's own settings and those the site's equipment listens at.
struct LineFormat {
    int baud = 2400;
    char parity = 'n';
    int dataBits = 8;
    double stopBits = 1;

    bool operator==(const LineFormat&) const = default;
    // Start bit, data, parity and stop bits of one byte.
    double BitsPerByte() const { return 1 + dataBits + (parity == 'n' ? 0 : 1) + stopBits; }
};

// Parses "2400,n,8,1"; false when the text is not a line setting.
bool ParseLineFormat(const QString& text, LineFormat& format);
// "2400,n,8,1", as ParseLineFormat reads it.
QString LineFormatText(const LineFormat& format);

// A byte sent at one line format and read at another: deterministic garbage that is
// never a start byte or a printable character, so it cannot pass for a command.
std::uint8_t Garble(std::uint8_t byte, const LineFormat& sent, const LineFormat& read);

// A COM port wired to a simulated site instead of a device. Bytes written reach the
// equipment at once; the equipment's answers come back at the line's own pace, one byte
// per (bits per byte / baud) seconds. The equipment moves only while something moves.
class SimulatedLine final : public SerialLine {
    Q_OBJECT
public:
    // The site's equipment listens at 2400 baud, no parity, 8 data bits, 1 stop bit unless
    // the installer sets it otherwise.
    static constexpr LineFormat kEquipment{};
    // What the receive side holds before it overruns, as a UART's driver buffer.
    static constexpr int kReceiveBuffer = 1024;

    explicit SimulatedLine(int portNumber, QObject* parent = nullptr);
    ~SimulatedLine() override;

    int PortNumber() const override { return portNumber_; }
    QString Device() const override;
    void SetSettings(const QString& settings) override;
    void SetRtsEnable(bool /*enable*/) override {}
    void SetBufferSizes(int /*inputBytes*/, int /*outputBytes*/) override {}
    void SetInputLength(int bytes) override { inputLength_ = bytes; }
    void Open() override;
    void Close() override;
    bool IsOpen() const override { return open_; }
    void Output(std::uint8_t byte) override;
    QByteArray Input() override;

    // Bytes from another controller's wire onto this line's equipment, as a served site
    // hears its controllers; what the equipment sends back to that controller at once.
    std::string HearFrom(Site::Ear& ear, std::span<const std::uint8_t> bytes,
                         std::vector<Site::Obeyed>* obeyed);
    // The equipment on this line, brought up to the present moment.
    const Site& Equipment();
    const LineFormat& Format() const { return format_; }
    // What the equipment listens at; bytes at any other setting reach it as garbage.
    const LineFormat& EquipmentFormat() const { return equipmentFormat_; }
    void SetEquipmentFormat(const LineFormat& format) { equipmentFormat_ = format; }
    // Replaces the equipment with other equipment at rest, as when the installer rewires
    // the site. Throws std::invalid_argument for an address outside 1..255.
    void Rewire(Site::Wiring wiring);
    // Seconds one byte takes on the line.
    double ByteSeconds() const { return format_.BitsPerByte() / format_.baud; }

private:
    // Bytes from the line's own wire when `ear` is null.
    std::string Hear(Site::Ear* ear, std::span<const std::uint8_t> bytes,
                     std::vector<Site::Obeyed>* obeyed);
    void Step();

    int portNumber_;
    bool open_ = false;
    int inputLength_ = 0;
    LineFormat format_;
    LineFormat equipmentFormat_ = kEquipment;
    Site site_;
    QElapsedTimer clock_;
    qint64 steppedAt_ = 0;
    QTimer stepTimer_;
    // Answers on their way back.
    Pacer pacer_;
    QByteArray received_;
};

// The line for a COM port: the simulated site when the port is bound to "sim"
// (ResolvePortBinding), otherwise the device it is bound to.
std::unique_ptr<SerialLine> MakeLine(int portNumber);
// Whether the port is bound to the simulated site ("sim").
bool IsSimulatedBinding(int portNumber);

} // namespace quellpad::site
