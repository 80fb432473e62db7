#pragma once

#include "camera.h"
#include "switcher.h"

#include "protocol/decoders.h"

#include <array>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quellpad::site {

// What is wired to one line: dome cameras listening in "D" and "P" (at addresses 1 to 8
// unless the installer wires others), a switcher in "ASCII" and a multiplexer in
// "MUX ASCII", all hearing every byte and each taking what is meant for it.
class Site {
public:
    // Cameras of the site as it comes: addresses 1 to this.
    static constexpr int kCameras = 8;
    // Addresses a "D" or "P" receiver can be set to.
    static constexpr int kLowestAddress = 1;
    static constexpr int kHighestAddress = 255;
    // Commands each device keeps in its log.
    static constexpr std::size_t kLogLines = 12;

    // Which equipment is on the line.
    struct Wiring {
        // Camera addresses, each within 1..255; kept in ascending order without repeats.
        std::vector<int> cameras = DefaultCameras();
        bool switcher = true;
        bool multiplexer = true;

        static std::vector<int> DefaultCameras();
        bool operator==(const Wiring&) const = default;
    };

    // What one controller's wire brings to the equipment: every receiver's decoder, so that
    // several controllers on one site never run their frames into each other.
    struct Ear {
        protocol::DFrameDecoder d;
        protocol::PFrameDecoder p;
        protocol::AsciiDecoder ascii{protocol::Language::Ascii};
        protocol::AsciiDecoder mux{protocol::Language::MuxAscii};
        std::vector<protocol::Command> decoded;

        // D and P frames thrown away (bad check, cut short).
        std::size_t Rejected() const { return d.Rejected() + p.Rejected(); }
        // Texts too long for the switcher or the multiplexer.
        std::size_t TextsRejected() const { return ascii.Rejected() + mux.Rejected(); }
    };
    // A command some equipment obeyed, and what it sent back for it.
    struct Obeyed {
        protocol::Command command;
        std::string reply;
    };

    Site() : Site(Wiring{}) {}
    // Throws std::invalid_argument for an address outside 1..255.
    explicit Site(Wiring wiring);

    // Bytes heard on the line; what the equipment sends back.
    std::string Hear(std::span<const std::uint8_t> bytes) { return Hear(ear_, bytes); }
    // Bytes heard from one controller's wire; the commands obeyed are appended to `obeyed`
    // when it is given.
    std::string Hear(Ear& ear, std::span<const std::uint8_t> bytes,
                     std::vector<Obeyed>* obeyed = nullptr);
    void Advance(double seconds);
    bool Busy() const;

    const Wiring& Wired() const { return wiring_; }
    bool HasCamera(int address) const;
    // The camera at an address the site has (HasCamera).
    const SimCamera& Camera(int address) const { return cameras_[Index(address)]; }
    const SimSwitcher& Switcher() const { return switcher_; }
    const SimMultiplexer& Multiplexer() const { return multiplexer_; }
    // The last commands a device decoded, newest last, in words.
    const std::deque<std::string>& CameraLog(int address) const {
        return cameraLogs_[Index(address)];
    }
    const std::deque<std::string>& SwitcherLog() const { return switcherLog_; }
    const std::deque<std::string>& MultiplexerLog() const { return multiplexerLog_; }
    // D and P frames thrown away (bad check, cut short). The texts are not counted: on a
    // wire that carries frames, every printable byte of a frame looks like a cut text.
    std::size_t Rejected() const { return ear_.Rejected(); }
    // Grows whenever something a window shows may have changed.
    std::uint64_t Version() const { return version_; }

private:
    std::size_t Index(int address) const {
        return static_cast<std::size_t>(slot_[static_cast<std::size_t>(address)] - 1);
    }
    bool ToCamera(const protocol::Command& command, std::string& reply);
    void ToSwitcher(const protocol::Command& command, std::string& reply);

    Ear ear_;
    Wiring wiring_;
    // Position + 1 in cameras_ of the camera at each address; 0 where none is.
    std::array<std::uint16_t, kHighestAddress + 1> slot_{};
    std::vector<SimCamera> cameras_;
    SimSwitcher switcher_;
    SimMultiplexer multiplexer_;
    std::vector<std::deque<std::string>> cameraLogs_;
    std::deque<std::string> switcherLog_;
    std::deque<std::string> multiplexerLog_;
    std::uint64_t version_ = 0;
};

// Camera addresses as an installer writes them: "1-8", "3,17,200", "1-4,9". False when the
// text names none, or an address outside 1..255.
bool ParseCameraAddresses(std::string_view text, std::vector<int>& addresses);
// The addresses written back as an installer would, runs shortened: "1-8", "3,17,200".
std::string CameraAddressesText(const std::vector<int>& addresses);

} // namespace quellpad::site
