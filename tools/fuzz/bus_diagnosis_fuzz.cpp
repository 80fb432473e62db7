// Feeds arbitrary bytes to a diagnosing listener, with and without the settings search and
// with time passing between reads: nothing may crash, and no fault may be claimed without
// the frames it rests on, nor a silent line once a byte was heard.
#include "fuzz_support.h"

#include "bus/diagnosis.h"

#include <algorithm>
#include <span>

using quellpad::bus::BusFault;
using quellpad::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    // The first byte: search or not, and how the rest is split into reads.
    const bool search = (data[0] & 1) != 0;
    const std::size_t chunk = 1 + (data[0] >> 1);
    const std::span<const std::uint8_t> bytes(data + 1, size - 1);
    quellpad::bus::DiagnosingListener listener(search);
    for (std::size_t at = 0; at < bytes.size(); at += chunk) {
        listener.Feed(bytes.subspan(at, std::min(chunk, bytes.size() - at)));
        listener.Elapsed(1);
        const quellpad::bus::BusDiagnosis& diagnosis = listener.Diagnosis();
        const quellpad::bus::BusVerdict verdict = diagnosis.Current();
        Require(verdict.confidence >= 0 && verdict.confidence <= 1, "confidence within 0..1");
        Require(verdict.fault != BusFault::Silent, "a line that spoke is not silent");
        Require(!verdict.text.isEmpty(), "every verdict says something");
        switch (verdict.fault) {
        case BusFault::Listening:
        case BusFault::Silent:
        case BusFault::InvertedPolarity:
        case BusFault::Unreadable:
            break;
        default:
            Require(diagnosis.Frames() >= quellpad::bus::BusDiagnosis::kEnoughCommands,
                    "a fault of the frames rests on frames heard");
        }
    }
    return 0;
}
