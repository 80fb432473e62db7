#pragma once

#include "protocol/frames.h"

#include <string>

namespace quellpad::bench {

// A line's worth of traffic as the keyboard sends it: joystick moves, stops, presets and
// queries, with a little noise now and then.
inline std::string DTraffic() {
    std::string out;
    for (int i = 0; out.size() < 65536; ++i) {
        const auto speed = static_cast<std::uint8_t>(7 + i % 58);
        out += protocol::BuildDFrame(1 + i % 8, 0, 0x02, speed, 0);
        out += protocol::BuildDFrame(1 + i % 8, 0, 0, 0, 0);
        out += protocol::BuildDFrame(1 + i % 8, 0, 0x07, 0, static_cast<std::uint8_t>(1 + i % 32));
        out += protocol::BuildDFrame(1 + i % 8, 0, 0x51, 0, 0);
        if (i % 16 == 0) {
            out += "\x13\x00";
        }
    }
    return out;
}

} // namespace quellpad::bench
