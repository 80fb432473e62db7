// Numbers as the operator types them: Val, the checked conversions and the Retransmit
// Time box.
#include "fuzz_support.h"

#include "engine/errors.h"
#include "engine/numeric.h"
#include "engine/retransmission.h"

#include <cmath>

using quellpad::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = quellpad::fuzz::Text(data, size);
    const double value = quellpad::Val(text);
    Require(std::isfinite(value), "Val is a finite number");

    try {
        const std::uint8_t byte = quellpad::ToByte(value);
        Require(byte == quellpad::RoundHalfEven(value), "a byte is the rounded value");
    } catch (const quellpad::OverflowError&) {
        const double rounded = quellpad::RoundHalfEven(value);
        Require(rounded < 0 || rounded > 255, "only a value outside 0..255 overflows a byte");
    }
    try {
        const std::int16_t integer = quellpad::ToInt16(value);
        Require(integer == quellpad::RoundHalfEven(value), "an integer is the rounded value");
    } catch (const quellpad::OverflowError&) {
        const double rounded = quellpad::RoundHalfEven(value);
        Require(rounded < -32768 || rounded > 32767, "only a value outside 16 bits overflows");
    }

    const quellpad::RetransmitPeriod period = quellpad::ReadRetransmitPeriod(text);
    using Verdict = quellpad::RetransmitPeriod::Verdict;
    if (period.verdict == Verdict::Accepted) {
        Require(period.IntervalMs >= 50 && period.IntervalMs <= 60999,
                "an accepted retransmit period lies in 50..60999 ms");
    } else if (period.verdict == Verdict::Default) {
        Require(value == 0 && period.IntervalMs == 1000, "only 0 gives the default period");
    } else {
        Require(value != 0 && (value <= 0.05 || value >= 61), "only out of range is rejected");
    }

    // Typed key by key through the box's filter, the text holds digits and one point.
    QString box;
    for (const QChar key : text) {
        if (quellpad::RetransmitKeyAccepted(key, box) && key.unicode() != 8 &&
            key.unicode() != 127) {
            box += key;
        }
    }
    Require(box.count(u'.') <= 1, "the box holds at most one point");
    for (const QChar c : box) {
        Require(c == u'.' || (c >= u'0' && c <= u'9'), "the box holds digits and a point");
    }
    return 0;
}
