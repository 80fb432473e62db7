// Reads arbitrary bytes as a capture: nothing may crash or loop, no packet may hold more
// bytes than the input, and the reader ends at the input's end whatever it claims.
#include "capture/capture_reader.h"

#include "fuzz_support.h"

#include <QBuffer>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QBuffer buffer;
    buffer.setData(quellpad::fuzz::Bytes(data, size));
    buffer.open(QIODevice::ReadOnly);
    try {
        quellpad::capture::CaptureReader reader(buffer);
        std::size_t packets = 0;
        while (const auto packet = reader.Next()) {
            quellpad::fuzz::Require(packet->bytes.size() < size, "a packet within the input");
            quellpad::fuzz::Require(packet->interface < reader.Interfaces().size(),
                                    "a packet of a described line");
            ++packets;
        }
        // Every packet block takes at least 32 bytes.
        quellpad::fuzz::Require(packets <= size / 32, "no more packets than fit");
        quellpad::fuzz::Require(reader.Interfaces().size() <=
                                    quellpad::capture::CaptureReader::kMostInterfaces,
                                "lines bounded");
    } catch (const quellpad::capture::CaptureError&) {
        // Refused as no capture: what it should do with most inputs.
    }
    return 0;
}
