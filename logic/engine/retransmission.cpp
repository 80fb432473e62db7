#include "retransmission.h"

#include "protocol/vocabulary.h"

#include <cmath>

namespace quellpad {

RetransmitPeriod ReadRetransmitPeriod(const QString& boxText) {
    const double seconds = Val(boxText);
    if (seconds > 0.05 && seconds < 61) {
        return {RetransmitPeriod::Verdict::Accepted,
                static_cast<std::int32_t>(std::floor(seconds * 1000))};
    }
    if (seconds == 0) {
        return {RetransmitPeriod::Verdict::Default, 1000};
    }
    return {RetransmitPeriod::Verdict::Rejected, 0};
}

bool RetransmitKeyAccepted(QChar key, const QString& boxText) {
    if ((key >= u'0' && key <= u'9') || key.unicode() == 8 || key.unicode() == 127) {
        return true;
    }
    return key == u'.' && !boxText.contains(u'.');
}

void RetransmitTick(Quellpad_Support_Func& keyboard) {
    if ((keyboard.Command2 & protocol::bit::kOneShot) == 0) {
        keyboard.SendCommand();
    }
}

} // namespace quellpad
