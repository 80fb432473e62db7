#pragma once

#include "simulated_line.h"

#include "protocol/decoders.h"

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quellpad::site {

// One thing wrong with a site, as an installer meets it.
struct SiteFault {
    enum class Kind : std::uint8_t {
        // The camera at `address` obeys frames to it but answers as `answerAs`.
        AnswerAddress,
        // A second camera is set to `address`: both answer, and their answers collide.
        DuplicateAddress,
        // The camera at `address` obeys but never answers.
        Mute,
        // The controller's transmit and receive are swapped: its bytes never reach the bus.
        SwappedTxRx,
        // The controller's two RS-485 wires are swapped: every level it drives is inverted.
        InvertedPolarity,
        // A share of the bytes on the wire is corrupted or lost.
        Noise,
        // Another controller on the bus keeps stopping the camera at `address`, and now and
        // then talks over the first.
        SecondController,
    };
    Kind kind = Kind::Mute;
    int address = 0;
    int answerAs = 0;
    double share = 0;

    bool operator==(const SiteFault&) const = default;
};

// Faults a site has, any number at once, and the seed that makes noise and collisions
// repeat from one run to the next.
struct SiteFaults {
    std::vector<SiteFault> faults;
    std::uint32_t seed = 1;

    const SiteFault* Find(SiteFault::Kind kind, int address = 0) const;
    bool Has(SiteFault::Kind kind) const { return Find(kind) != nullptr; }
};

// "answer-address=5:6", "duplicate-address=17", "mute=5", "swapped-txrx",
// "inverted-polarity", "noise=0.02", "second-controller=5"; false when the text is none.
bool ParseSiteFault(const QString& text, SiteFault& fault);
QString SiteFaultText(const SiteFault& fault);
// The names ParseSiteFault takes, as --help lists them.
QString SiteFaultNames();

// What a UART at `read` settings receives from bytes sent back to back at `sent` settings,
// the line idle (or, inverted, held at the other level) for two byte times either side. A
// byte whose bits are all space, stop bit included, is a break and reads as 0; after it the
// receiver waits for the line to go idle again.
std::string ReceivedAs(std::string_view bytes, const LineFormat& sent, const LineFormat& read,
                       bool inverted = false);
// Two transmitters on one pair at once, the second starting `offsetBits` later: a space
// from either wins, as a driver pulling low outweighs one letting go.
std::string Collided(std::string_view first, std::string_view second, double offsetBits,
                     const LineFormat& format);

// The faults applied to what crosses a site's wire. Deterministic for a given seed.
class FaultyWire {
public:
    explicit FaultyWire(SiteFaults faults = {});

    const SiteFaults& Faults() const { return faults_; }
    bool Reaches() const { return !faults_.Has(SiteFault::Kind::SwappedTxRx); }
    bool Inverted() const { return faults_.Has(SiteFault::Kind::InvertedPolarity); }
    // Bytes after the line's noise: some changed in a bit, some lost.
    std::string Noisy(std::string_view bytes);
    // What the receivers put on the wire for a command the camera obeyed with `reply`.
    std::string Answer(int address, const std::string& reply, const LineFormat& format);
    // A controller's bytes as the wire carries them: noisy on a noisy line, and with a
    // second controller about, its frames to the camera now and then garbled by the other's
    // frame over them and often followed by the other's stop.
    std::string Carry(std::string_view bytes, const LineFormat& format);

private:
    double Next();
    std::string SecondController(std::string bytes, const LineFormat& format);

    SiteFaults faults_;
    std::uint64_t state_;
    std::uint64_t commands_ = 0;
    protocol::DFrameDecoder d_;
    protocol::PFrameDecoder p_;
    std::vector<protocol::Command> decoded_;
};

} // namespace quellpad::site
