#include "commands.h"

#include <cstdio>

namespace quellpad::protocol {

namespace {

std::string Hex(std::string_view bytes) {
    std::string out;
    for (const char c : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02X",
                      static_cast<unsigned>(static_cast<unsigned char>(c)));
        if (!out.empty()) {
            out += ' ';
        }
        out += digits;
    }
    return out;
}

// A text as the operator can read it: printable characters as they are, others as <XX>.
std::string Printable(std::string_view bytes) {
    std::string out;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F) {
            out += c;
        } else {
            char digits[6];
            std::snprintf(digits, sizeof digits, "<%02X>", static_cast<unsigned>(byte));
            out += digits;
        }
    }
    return out;
}

std::string Hundredths(int value) {
    char text[24];
    std::snprintf(text, sizeof text, "%d.%02d", value / 100, value % 100);
    return text;
}

std::string WithNumber(std::string_view words, std::int64_t number) {
    std::string out(words);
    if (number >= 0) {
        out += ' ';
        out += std::to_string(number);
    }
    return out;
}

std::string OnOff(std::string_view words, bool on) {
    return std::string(words) + (on ? " on" : " off");
}

std::string DescribeMotion(const Motion& m) {
    if (m.Still()) {
        return "stop";
    }
    std::string out;
    const auto add = [&out](const std::string& part) {
        if (!out.empty()) {
            out += ", ";
        }
        out += part;
    };
    if (m.pan != 0) {
        add(WithNumber(m.pan > 0 ? "pan right" : "pan left", m.panSpeed));
    }
    if (m.tilt != 0) {
        add(WithNumber(m.tilt > 0 ? "tilt up" : "tilt down", m.tiltSpeed));
    }
    if (m.zoom != 0) {
        add(m.zoom > 0 ? "zoom in" : "zoom out");
    }
    if (m.focus != 0) {
        add(m.focus > 0 ? "focus far" : "focus near");
    }
    if (m.iris != 0) {
        add(m.iris > 0 ? "iris open" : "iris close");
    }
    return out;
}

} // namespace

std::string_view DirectionName(Direction direction) {
    switch (direction) {
    case Direction::PanLeft:
        return "pan left";
    case Direction::PanRight:
        return "pan right";
    case Direction::TiltUp:
        return "tilt up";
    case Direction::TiltDown:
        return "tilt down";
    case Direction::ZoomIn:
        return "zoom in";
    case Direction::ZoomOut:
        return "zoom out";
    case Direction::FocusNear:
        return "focus near";
    case Direction::FocusFar:
        return "focus far";
    case Direction::IrisOpen:
        return "iris open";
    case Direction::IrisClose:
        return "iris close";
    }
    return "?";
}

std::string Command::Describe() const {
    const std::int64_t n = number;
    switch (kind) {
    case Kind::Unknown:
        return "unknown " + (language == Language::D || language == Language::P
                                 ? Hex(bytes)
                                 : "\"" + Printable(bytes) + "\"");
    case Kind::Motion:
        return DescribeMotion(motion);
    case Kind::SetPreset:
        return WithNumber("set preset", n);
    case Kind::ClearPreset:
        return WithNumber("clear preset", n);
    case Kind::GoPreset:
        return WithNumber("go to preset", n);
    case Kind::SetAux:
        return WithNumber("aux", n) + " on";
    case Kind::ClearAux:
        return WithNumber("aux", n) + " off";
    case Kind::RemoteReset:
        return "remote reset";
    case Kind::SetZoneStart:
        return WithNumber("zone", n) + " start";
    case Kind::SetZoneEnd:
        return WithNumber("zone", n) + " end";
    case Kind::WriteCharacter:
        return "character '" + Printable(std::string(1, static_cast<char>(value))) +
               "' at column " + std::to_string(n);
    case Kind::ClearScreen:
        return "clear screen";
    case Kind::ZoneScanOn:
        return "zone scan on";
    case Kind::ZoneScanOff:
        return "zone scan off";
    case Kind::StartPatternRecord:
        return WithNumber("record pattern", n);
    case Kind::EndPatternRecord:
        return WithNumber("end pattern", n);
    case Kind::RunPattern:
        return WithNumber("run pattern", n);
    case Kind::ZoomSpeed:
        return WithNumber("zoom speed", n);
    case Kind::FocusSpeed:
        return WithNumber("focus speed", n);
    case Kind::ResetCamera:
        return "reset camera to defaults";
    case Kind::AutoFocus:
        return OnOff("auto focus", n == 0);
    case Kind::AutoIris:
        return OnOff("auto iris", n == 0);
    case Kind::AutoAgc:
        return OnOff("auto AGC", n == 0);
    case Kind::Backlight:
        return OnOff("backlight compensation", n == 2);
    case Kind::AutoWhite:
        return OnOff("auto white balance", n == 2);
    case Kind::ShutterSpeed:
        return WithNumber("shutter speed code", n);
    case Kind::RedGain:
        return "red gain " + std::to_string(value);
    case Kind::BlueGain:
        return "blue gain " + std::to_string(value);
    case Kind::IrisLevel:
        return WithNumber("iris level", n);
    case Kind::IrisPeak:
        return WithNumber("iris peak", n);
    case Kind::QuerySetup:
        return "query set-up";
    case Kind::SetZeroPosition:
        return "set zero position";
    case Kind::SetPan:
        return "set pan " + Hundredths(value);
    case Kind::SetTilt:
        return "set tilt " + Hundredths(value);
    case Kind::SetZoom:
        return "set zoom " + std::to_string(value);
    case Kind::SetMagnification:
        return "set magnification " + Hundredths(value);
    case Kind::QueryPan:
        return "query pan";
    case Kind::QueryTilt:
        return "query tilt";
    case Kind::QueryZoom:
        return "query zoom";
    case Kind::QueryMagnification:
        return "query magnification";
    case Kind::QueryDevice:
        return "query device type";
    case Kind::QueryDiagnostic:
        return "query diagnostics";
    case Kind::EchoMode:
        return "echo mode";
    case Kind::PrepareDownload:
        return "prepare download";
    case Kind::StartDownload:
        return "start download";
    case Kind::PanReply:
        return "pan is " + Hundredths(value);
    case Kind::TiltReply:
        return "tilt is " + Hundredths(value);
    case Kind::ZoomReply:
        return "zoom is " + std::to_string(value);
    case Kind::MagnificationReply:
        return "magnification is " + Hundredths(value);
    case Kind::GeneralReply:
        return "acknowledged";
    case Kind::DirectionStart:
        return WithNumber(DirectionName(direction), n);
    case Kind::DirectionStop:
        return std::string(DirectionName(direction)) + " off";
    case Kind::StopAll:
        return "stop all";
    case Kind::SelectMonitor:
        return WithNumber("monitor", n);
    case Kind::SelectCamera:
        return WithNumber("camera", n);
    case Kind::NextCamera:
        return "next camera";
    case Kind::PreviousCamera:
        return "previous camera";
    case Kind::NextAlarm:
        return n >= 0 ? WithNumber("alarm", n) + " (forward)" : "next alarm";
    case Kind::PreviousAlarm:
        return n >= 0 ? WithNumber("alarm", n) + " (back)" : "previous alarm";
    case Kind::TriggerAlarm:
        return WithNumber("trigger alarm", n);
    case Kind::ResetAlarm:
        return n > 0 ? WithNumber("reset alarm", n) : "reset all alarms";
    case Kind::AuxOn:
        return WithNumber("aux", n) + " on";
    case Kind::AuxOff:
        return WithNumber("aux", n) + " off";
    case Kind::GpiOn:
        return WithNumber("GPI", n) + " on";
    case Kind::GpiOff:
        return WithNumber("GPI", n) + " off";
    case Kind::StartMacro:
        return WithNumber("start macro", n);
    case Kind::HaltMacro:
        return WithNumber("halt macro", n);
    case Kind::StartSequence:
        return WithNumber("start sequence", n);
    case Kind::HaltSequence:
        return WithNumber("halt sequence", n);
    case Kind::StartTour:
        return WithNumber("start tour", n);
    case Kind::HaltTour:
        return WithNumber("halt tour", n);
    case Kind::Label:
        return "label \"" + Printable(text) + "\"";
    case Kind::CameraTitle:
        return WithNumber("camera", n) + " title \"" + Printable(text) + "\"";
    case Kind::TimeUpdate:
        return "time " + Printable(text);
    case Kind::LockCamera:
        return "lock camera";
    case Kind::UnlockCamera:
        return "unlock camera";
    case Kind::OverrideLock:
        return "override camera lock";
    case Kind::DigitalZoom:
        return "digital zoom";
    case Kind::Pip:
        return "picture in picture";
    case Kind::Quad:
        return "quad";
    case Kind::Nano:
        return "nano";
    case Kind::Hex:
        return "hex";
    case Kind::MuxCamera:
        return WithNumber("camera", n) + " full screen";
    case Kind::VcrEject:
        return "VCR eject";
    case Kind::VcrRecord:
        return "VCR record";
    case Kind::VcrPause:
        return "VCR pause";
    case Kind::VcrFastForward:
        return "VCR fast forward";
    case Kind::VcrRewind:
        return "VCR rewind";
    case Kind::VcrStop:
        return "VCR stop";
    case Kind::VcrPlay:
        return "VCR play";
    }
    return "?";
}

std::string BuildDFrame(int address, std::uint8_t command1, std::uint8_t command2,
                        std::uint8_t data1, std::uint8_t data2) {
    const auto addr = static_cast<std::uint8_t>(address);
    const auto sum = static_cast<std::uint8_t>(addr + command1 + command2 + data1 + data2);
    return {static_cast<char>(0xFF),     static_cast<char>(addr),  static_cast<char>(command1),
            static_cast<char>(command2), static_cast<char>(data1), static_cast<char>(data2),
            static_cast<char>(sum)};
}

std::string BuildPFrame(int address, std::uint8_t command1, std::uint8_t command2,
                        std::uint8_t data1, std::uint8_t data2) {
    std::string frame = {static_cast<char>(0xA0),     static_cast<char>(address - 1),
                         static_cast<char>(command1), static_cast<char>(command2),
                         static_cast<char>(data1),    static_cast<char>(data2),
                         static_cast<char>(0xAF)};
    char check = 0;
    for (const char c : frame) {
        check = static_cast<char>(check ^ c);
    }
    frame += check;
    return frame;
}

std::string BuildDReply(int address, std::uint8_t code, int value) {
    const auto addr = static_cast<std::uint8_t>(address);
    const auto hi = static_cast<std::uint8_t>((value >> 8) & 0xFF);
    const auto lo = static_cast<std::uint8_t>(value & 0xFF);
    const auto sum = static_cast<std::uint8_t>(addr + code + hi + lo);
    return {static_cast<char>(0xFF), static_cast<char>(addr), 0,
            static_cast<char>(code), static_cast<char>(hi),   static_cast<char>(lo),
            static_cast<char>(sum)};
}

std::string BuildGeneralReply(int address) {
    const auto addr = static_cast<char>(address);
    return {static_cast<char>(0xFF), addr, 0, addr};
}

} // namespace quellpad::protocol
