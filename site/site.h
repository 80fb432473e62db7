#pragma once

#include "camera.h"
#include "switcher.h"

#include "protocol/decoders.h"

#include <array>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <vector>

namespace quellpad::site {

// What is wired to one line: dome cameras at addresses 1 to 8 listening in "D" and "P",
// a switcher in "ASCII" and a multiplexer in "MUX ASCII", all hearing every byte and
// each taking what is meant for it.
class Site {
public:
    static constexpr int kCameras = 8;
    // Commands each device keeps in its log.
    static constexpr std::size_t kLogLines = 12;

    Site();

    // Bytes heard on the line; what the equipment sends back.
    std::string Hear(std::span<const std::uint8_t> bytes);
    void Advance(double seconds);
    bool Busy() const;

    const SimCamera& Camera(int address) const {
        return cameras_[static_cast<std::size_t>(address - 1)];
    }
    const SimSwitcher& Switcher() const { return switcher_; }
    const SimMultiplexer& Multiplexer() const { return multiplexer_; }
    // The last commands a device decoded, newest last, in words.
    const std::deque<std::string>& CameraLog(int address) const {
        return cameraLogs_[static_cast<std::size_t>(address - 1)];
    }
    const std::deque<std::string>& SwitcherLog() const { return switcherLog_; }
    const std::deque<std::string>& MultiplexerLog() const { return multiplexerLog_; }
    // D and P frames thrown away (bad check, cut short). The texts are not counted: on a
    // wire that carries frames, every printable byte of a frame looks like a cut text.
    std::size_t Rejected() const;
    // Grows whenever something a window shows may have changed.
    std::uint64_t Version() const { return version_; }

private:
    void ToCamera(const protocol::Command& command, std::string& reply);
    void ToSwitcher(const protocol::Command& command, std::string& reply);

    protocol::DFrameDecoder d_;
    protocol::PFrameDecoder p_;
    protocol::AsciiDecoder ascii_{protocol::Language::Ascii};
    protocol::AsciiDecoder mux_{protocol::Language::MuxAscii};
    std::vector<protocol::Command> decoded_;
    std::array<SimCamera, kCameras> cameras_;
    SimSwitcher switcher_;
    SimMultiplexer multiplexer_;
    std::array<std::deque<std::string>, kCameras> cameraLogs_;
    std::deque<std::string> switcherLog_;
    std::deque<std::string> multiplexerLog_;
    std::uint64_t version_ = 0;
};

} // namespace quellpad::site
