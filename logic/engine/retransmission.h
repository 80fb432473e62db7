#pragma once

#include "keyboard_state.h"

#include <QCoreApplication>
#include <QString>

namespace quellpad {

// Asked for as it is shown, so that it comes in the operator's language.
inline QString RetransmitRangeMessage() {
    return QCoreApplication::translate("Retransmission",
                                       "Retransmit count must above .05 and less than 61.");
}

// What the Retransmit Time box's text means for the period.
struct RetransmitPeriod {
    enum class Verdict {
        Accepted, // IntervalMs holds the new period
        Default,  // an empty box, "." or 0: the period becomes 1000 ms, silently
        Rejected, // out of range: tell the operator, empty the box, keep the old period
    };
    Verdict verdict;
    std::int32_t IntervalMs;
};

// Seconds strictly between 0.05 and 61, as whole milliseconds rounded down.
RetransmitPeriod ReadRetransmitPeriod(const QString& boxText);

// The key filter of the box: digits, Backspace, Delete, and one ".".
bool RetransmitKeyAccepted(QChar key, const QString& boxText);

// One tick of the retransmit timer: the registers go out again as they stand, unless
// Command2 is odd (a one-shot command, which must never be repeated).
void RetransmitTick(Quellpad_Support_Func& keyboard);

} // namespace quellpad
