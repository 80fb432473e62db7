// Line settings texts such as "9600,e,8,1": what is accepted is a sensible line, reads
// back the same from its plain form, and a refusal quotes the text short.
#include "fuzz_support.h"

#include "engine/errors.h"
#include "engine/serial_device.h"

using quellpad::fuzz::Require;

namespace {

QString PlainForm(const quellpad::LineSettings& line) {
    const char parity[] = {'?', '?', 'e', 'o', 's', 'm'};
    const QString stop = line.stopBits == QSerialPort::OneStop   ? QStringLiteral("1")
                         : line.stopBits == QSerialPort::TwoStop ? QStringLiteral("2")
                                                                 : QStringLiteral("1.5");
    return QStringLiteral("%1,%2,%3,%4")
        .arg(line.baud)
        .arg(line.parity == QSerialPort::NoParity
                 ? QLatin1Char('n')
                 : QLatin1Char(parity[static_cast<int>(line.parity)]))
        .arg(static_cast<int>(line.dataBits))
        .arg(stop);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = quellpad::fuzz::Text(data, size);
    const std::optional<quellpad::LineSettings> line = quellpad::ParseLineSettings(text);
    if (line) {
        Require(line->baud > 0, "the baud rate is positive");
        Require(line->dataBits >= QSerialPort::Data5 && line->dataBits <= QSerialPort::Data8,
                "5 to 8 data bits");
        const std::optional<quellpad::LineSettings> again =
            quellpad::ParseLineSettings(PlainForm(*line));
        Require(again && again->baud == line->baud && again->parity == line->parity &&
                    again->dataBits == line->dataBits && again->stopBits == line->stopBits,
                "the plain form reads back the same");
    }

    static quellpad::SerialDevice port(1, QStringLiteral("/dev/quellpad-fuzz"));
    try {
        port.SetSettings(text);
        Require(line.has_value(), "only a valid text is taken");
    } catch (const quellpad::PortError& error) {
        Require(error.Message().size() <= 200, "a refusal quotes the text short");
    }
    return 0;
}
