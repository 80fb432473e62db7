#include "commands.h"

#include <cstdio>

namespace quellpad::protocol {

namespace {

WordTranslator wordTranslator = nullptr;

// The words commands are told in, through the program's language when it has installed
// one. Named and called as the catalogue tools look for a text to translate.
std::string translate(const char* /*context*/, const char* text) {
    return wordTranslator != nullptr ? wordTranslator(text) : std::string(text);
}

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

// Appended piece by piece: GCC 12 at -O3 misreads "\"" + std::string&& as an overlapping copy.
std::string Quoted(const std::string& text) {
    std::string out;
    out.reserve(text.size() + 2);
    out += '"';
    out += text;
    out += '"';
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
    return std::string(words) +
           (on ? translate("CommandWords", " on") : translate("CommandWords", " off"));
}

std::string DescribeMotion(const Motion& m) {
    if (m.Still()) {
        return translate("CommandWords", "stop");
    }
    std::string out;
    const auto add = [&out](const std::string& part) {
        if (!out.empty()) {
            out += ", ";
        }
        out += part;
    };
    if (m.pan != 0) {
        add(WithNumber(m.pan > 0 ? translate("CommandWords", "pan right")
                                 : translate("CommandWords", "pan left"),
                       m.panSpeed));
    }
    if (m.tilt != 0) {
        add(WithNumber(m.tilt > 0 ? translate("CommandWords", "tilt up")
                                  : translate("CommandWords", "tilt down"),
                       m.tiltSpeed));
    }
    if (m.zoom != 0) {
        add(m.zoom > 0 ? translate("CommandWords", "zoom in")
                       : translate("CommandWords", "zoom out"));
    }
    if (m.focus != 0) {
        add(m.focus > 0 ? translate("CommandWords", "focus far")
                        : translate("CommandWords", "focus near"));
    }
    if (m.iris != 0) {
        add(m.iris > 0 ? translate("CommandWords", "iris open")
                       : translate("CommandWords", "iris close"));
    }
    return out;
}

} // namespace

void SetWordTranslator(WordTranslator translator) {
    wordTranslator = translator;
}

std::string DirectionName(Direction direction) {
    switch (direction) {
    case Direction::PanLeft:
        return translate("CommandWords", "pan left");
    case Direction::PanRight:
        return translate("CommandWords", "pan right");
    case Direction::TiltUp:
        return translate("CommandWords", "tilt up");
    case Direction::TiltDown:
        return translate("CommandWords", "tilt down");
    case Direction::ZoomIn:
        return translate("CommandWords", "zoom in");
    case Direction::ZoomOut:
        return translate("CommandWords", "zoom out");
    case Direction::FocusNear:
        return translate("CommandWords", "focus near");
    case Direction::FocusFar:
        return translate("CommandWords", "focus far");
    case Direction::IrisOpen:
        return translate("CommandWords", "iris open");
    case Direction::IrisClose:
        return translate("CommandWords", "iris close");
    }
    return "?";
}

std::string Command::Describe() const {
    const std::int64_t n = number;
    switch (kind) {
    case Kind::Unknown:
        return translate("CommandWords", "unknown ") +
               (language == Language::D || language == Language::P ? Hex(bytes)
                                                                   : Quoted(Printable(bytes)));
    case Kind::Motion:
        return DescribeMotion(motion);
    case Kind::SetPreset:
        return WithNumber(translate("CommandWords", "set preset"), n);
    case Kind::ClearPreset:
        return WithNumber(translate("CommandWords", "clear preset"), n);
    case Kind::GoPreset:
        return WithNumber(translate("CommandWords", "go to preset"), n);
    case Kind::SetAux:
        return WithNumber(translate("CommandWords", "aux"), n) + translate("CommandWords", " on");
    case Kind::ClearAux:
        return WithNumber(translate("CommandWords", "aux"), n) + translate("CommandWords", " off");
    case Kind::RemoteReset:
        return translate("CommandWords", "remote reset");
    case Kind::SetZoneStart:
        return WithNumber(translate("CommandWords", "zone"), n) +
               translate("CommandWords", " start");
    case Kind::SetZoneEnd:
        return WithNumber(translate("CommandWords", "zone"), n) + translate("CommandWords", " end");
    case Kind::WriteCharacter:
        return translate("CommandWords", "character '") +
               Printable(std::string(1, static_cast<char>(value))) +
               translate("CommandWords", "' at column ") + std::to_string(n);
    case Kind::ClearScreen:
        return translate("CommandWords", "clear screen");
    case Kind::ZoneScanOn:
        return translate("CommandWords", "zone scan on");
    case Kind::ZoneScanOff:
        return translate("CommandWords", "zone scan off");
    case Kind::StartPatternRecord:
        return WithNumber(translate("CommandWords", "record pattern"), n);
    case Kind::EndPatternRecord:
        return WithNumber(translate("CommandWords", "end pattern"), n);
    case Kind::RunPattern:
        return WithNumber(translate("CommandWords", "run pattern"), n);
    case Kind::ZoomSpeed:
        return WithNumber(translate("CommandWords", "zoom speed"), n);
    case Kind::FocusSpeed:
        return WithNumber(translate("CommandWords", "focus speed"), n);
    case Kind::ResetCamera:
        return translate("CommandWords", "reset camera to defaults");
    case Kind::AutoFocus:
        return OnOff(translate("CommandWords", "auto focus"), n == 0);
    case Kind::AutoIris:
        return OnOff(translate("CommandWords", "auto iris"), n == 0);
    case Kind::AutoAgc:
        return OnOff(translate("CommandWords", "auto AGC"), n == 0);
    case Kind::Backlight:
        return OnOff(translate("CommandWords", "backlight compensation"), n == 2);
    case Kind::AutoWhite:
        return OnOff(translate("CommandWords", "auto white balance"), n == 2);
    case Kind::ShutterSpeed:
        return WithNumber(translate("CommandWords", "shutter speed code"), n);
    case Kind::RedGain:
        return translate("CommandWords", "red gain ") + std::to_string(value);
    case Kind::BlueGain:
        return translate("CommandWords", "blue gain ") + std::to_string(value);
    case Kind::IrisLevel:
        return WithNumber(translate("CommandWords", "iris level"), n);
    case Kind::IrisPeak:
        return WithNumber(translate("CommandWords", "iris peak"), n);
    case Kind::QuerySetup:
        return translate("CommandWords", "query set-up");
    case Kind::SetZeroPosition:
        return translate("CommandWords", "set zero position");
    case Kind::SetPan:
        return translate("CommandWords", "set pan ") + Hundredths(value);
    case Kind::SetTilt:
        return translate("CommandWords", "set tilt ") + Hundredths(value);
    case Kind::SetZoom:
        return translate("CommandWords", "set zoom ") + std::to_string(value);
    case Kind::SetMagnification:
        return translate("CommandWords", "set magnification ") + Hundredths(value);
    case Kind::QueryPan:
        return translate("CommandWords", "query pan");
    case Kind::QueryTilt:
        return translate("CommandWords", "query tilt");
    case Kind::QueryZoom:
        return translate("CommandWords", "query zoom");
    case Kind::QueryMagnification:
        return translate("CommandWords", "query magnification");
    case Kind::QueryDevice:
        return translate("CommandWords", "query device type");
    case Kind::QueryDiagnostic:
        return translate("CommandWords", "query diagnostics");
    case Kind::EchoMode:
        return translate("CommandWords", "echo mode");
    case Kind::PrepareDownload:
        return translate("CommandWords", "prepare download");
    case Kind::StartDownload:
        return translate("CommandWords", "start download");
    case Kind::PanReply:
        return translate("CommandWords", "pan is ") + Hundredths(value);
    case Kind::TiltReply:
        return translate("CommandWords", "tilt is ") + Hundredths(value);
    case Kind::ZoomReply:
        return translate("CommandWords", "zoom is ") + std::to_string(value);
    case Kind::MagnificationReply:
        return translate("CommandWords", "magnification is ") + Hundredths(value);
    case Kind::GeneralReply:
        return translate("CommandWords", "acknowledged");
    case Kind::DirectionStart:
        return WithNumber(DirectionName(direction), n);
    case Kind::DirectionStop:
        return std::string(DirectionName(direction)) + translate("CommandWords", " off");
    case Kind::StopAll:
        return translate("CommandWords", "stop all");
    case Kind::SelectMonitor:
        return WithNumber(translate("CommandWords", "monitor"), n);
    case Kind::SelectCamera:
        return WithNumber(translate("CommandWords", "camera"), n);
    case Kind::NextCamera:
        return translate("CommandWords", "next camera");
    case Kind::PreviousCamera:
        return translate("CommandWords", "previous camera");
    case Kind::NextAlarm:
        return n >= 0 ? WithNumber(translate("CommandWords", "alarm"), n) +
                            translate("CommandWords", " (forward)")
                      : translate("CommandWords", "next alarm");
    case Kind::PreviousAlarm:
        return n >= 0 ? WithNumber(translate("CommandWords", "alarm"), n) +
                            translate("CommandWords", " (back)")
                      : translate("CommandWords", "previous alarm");
    case Kind::TriggerAlarm:
        return WithNumber(translate("CommandWords", "trigger alarm"), n);
    case Kind::ResetAlarm:
        return n > 0 ? WithNumber(translate("CommandWords", "reset alarm"), n)
                     : translate("CommandWords", "reset all alarms");
    case Kind::AuxOn:
        return WithNumber(translate("CommandWords", "aux"), n) + translate("CommandWords", " on");
    case Kind::AuxOff:
        return WithNumber(translate("CommandWords", "aux"), n) + translate("CommandWords", " off");
    case Kind::GpiOn:
        return WithNumber(translate("CommandWords", "GPI"), n) + translate("CommandWords", " on");
    case Kind::GpiOff:
        return WithNumber(translate("CommandWords", "GPI"), n) + translate("CommandWords", " off");
    case Kind::StartMacro:
        return WithNumber(translate("CommandWords", "start macro"), n);
    case Kind::HaltMacro:
        return WithNumber(translate("CommandWords", "halt macro"), n);
    case Kind::StartSequence:
        return WithNumber(translate("CommandWords", "start sequence"), n);
    case Kind::HaltSequence:
        return WithNumber(translate("CommandWords", "halt sequence"), n);
    case Kind::StartTour:
        return WithNumber(translate("CommandWords", "start tour"), n);
    case Kind::HaltTour:
        return WithNumber(translate("CommandWords", "halt tour"), n);
    case Kind::Label:
        return translate("CommandWords", "label \"") + Printable(text) + "\"";
    case Kind::CameraTitle:
        return WithNumber(translate("CommandWords", "camera"), n) +
               translate("CommandWords", " title \"") + Printable(text) + "\"";
    case Kind::TimeUpdate:
        return translate("CommandWords", "time ") + Printable(text);
    case Kind::LockCamera:
        return translate("CommandWords", "lock camera");
    case Kind::UnlockCamera:
        return translate("CommandWords", "unlock camera");
    case Kind::OverrideLock:
        return translate("CommandWords", "override camera lock");
    case Kind::DigitalZoom:
        return translate("CommandWords", "digital zoom");
    case Kind::Pip:
        return translate("CommandWords", "picture in picture");
    case Kind::Quad:
        return translate("CommandWords", "quad");
    case Kind::Nano:
        return translate("CommandWords", "nano");
    case Kind::Hex:
        return translate("CommandWords", "hex");
    case Kind::MuxCamera:
        return WithNumber(translate("CommandWords", "camera"), n) +
               translate("CommandWords", " full screen");
    case Kind::VcrEject:
        return translate("CommandWords", "VCR eject");
    case Kind::VcrRecord:
        return translate("CommandWords", "VCR record");
    case Kind::VcrPause:
        return translate("CommandWords", "VCR pause");
    case Kind::VcrFastForward:
        return translate("CommandWords", "VCR fast forward");
    case Kind::VcrRewind:
        return translate("CommandWords", "VCR rewind");
    case Kind::VcrStop:
        return translate("CommandWords", "VCR stop");
    case Kind::VcrPlay:
        return translate("CommandWords", "VCR play");
    }
    return "?";
}

} // namespace quellpad::protocol
