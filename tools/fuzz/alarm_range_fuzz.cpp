// The alarm number box as the operator types it, ranges "a..b" included.
#include "fuzz_support.h"

#include "console/dispatcher.h"
#include "engine/errors.h"

#include <memory>

using quellpad::fuzz::Require;

namespace {

std::unique_ptr<quellpad::SerialLine> NoLine(int portNumber) {
    return std::make_unique<quellpad::SerialDevice>(portNumber,
                                                    QStringLiteral("/dev/quellpad-fuzz"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static quellpad::Quellpad_Support_Func keyboard(&NoLine);
    const QString text = quellpad::fuzz::Text(data, size);
    keyboard.AlarmRangeStart = -7;
    keyboard.AlarmRangeEnd = -9;
    try {
        quellpad::ParseAlarmRange(keyboard, text);
    } catch (const quellpad::OverflowError&) {
        return 0; // a number too large for the range is the operator's to correct
    }
    if (!text.contains(QLatin1String(".."))) {
        Require(keyboard.AlarmRangeStart == -7 && keyboard.AlarmRangeEnd == -9,
                "a text without a range changes no range");
    }
    return 0;
}
