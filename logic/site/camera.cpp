#include "camera.h"
#include "protocol/frames.h"
#include "protocol/vocabulary.h"

#include <algorithm>
#include <cmath>

namespace quellpad::site {

namespace {

using protocol::Kind;

constexpr double kTravelDegreesPerSecond = 120.0;
constexpr double kLensPerSecond = 0.3;
// Seconds for the zoom's full travel at zoom speeds 0 to 3.
constexpr std::array<double, 4> kZoomTravelSeconds = {8.0, 5.5, 4.0, 2.5};
constexpr std::size_t kPatternSteps = 1024;
constexpr double kPatternSeconds = 300.0;
// A pattern shorter than this is a slip of the finger, not a tour: it is not kept, and a
// run never loops faster than this.
constexpr double kShortestPattern = 0.1;
constexpr int kMenuPreset = 95;
constexpr int kFlipPreset = 33;
constexpr int kZeroPanPreset = 34;

const std::array<const char*, 6> kMenuItems = {"AUTO FOCUS", "AUTO IRIS",  "BACKLIGHT",
                                               "WHITE BAL",  "ZOOM SPEED", "EXIT"};

double Wrap(double degrees) {
    double d = std::fmod(degrees, 360.0);
    return d < 0 ? d + 360.0 : d;
}

// Moves value toward target by at most step.
double Approach(double value, double target, double step) {
    if (std::abs(target - value) <= step) {
        return target;
    }
    return value + (target > value ? step : -step);
}

int Round(double value) {
    return static_cast<int>(std::lround(value));
}

} // namespace

double DegreesPerSecond(int speed) {
    if (speed <= 0) {
        return 0.0;
    }
    const double s = std::min(speed, 64);
    const double x = (s - 1.0) / 63.0;
    return 0.1 + 99.9 * x * x;
}

SimCamera::SimCamera(int address) : address_(address) {
    columns_.fill(' ');
    // Each camera looks a different way at start, so the site's pictures differ.
    azimuth_ = Wrap(address * 47.0);
}

double SimCamera::Pan() const {
    return Wrap(azimuth_ - zero_);
}

std::string SimCamera::ZoneLabel() const {
    if (!zoneScan_) {
        return {};
    }
    const double pan = Pan();
    for (const Zone& zone : zones_) {
        if (!zone.start || !zone.end) {
            continue;
        }
        const bool inside = *zone.start <= *zone.end ? (pan >= *zone.start && pan <= *zone.end)
                                                     : (pan >= *zone.start || pan <= *zone.end);
        if (inside) {
            return zone.label;
        }
    }
    return {};
}

const std::optional<SimCamera::Preset>& SimCamera::StoredPreset(int number) const {
    static const std::optional<Preset> none;
    return number >= 0 && number < static_cast<int>(presets_.size())
               ? presets_[static_cast<std::size_t>(number)]
               : none;
}

void SimCamera::SetLabelColumns(const std::string& label) {
    for (std::size_t i = 0; i < 20; ++i) {
        columns_[20 + i] = i < label.size() ? label[i] : ' ';
    }
}

std::vector<std::string> SimCamera::MenuLines() const {
    std::vector<std::string> lines;
    lines.push_back("CAMERA SET-UP  " + std::to_string(address_));
    const auto onOff = [](bool on) {
        return std::string(on ? "ON" : "OFF");
    };
    const std::array<std::string, 6> values = {onOff(setup_.autoFocus),
                                               onOff(setup_.autoIris),
                                               onOff(setup_.backlight),
                                               setup_.autoWhite ? "AUTO" : "MANUAL",
                                               std::to_string(setup_.zoomSpeed + 1),
                                               ""};
    for (std::size_t i = 0; i < kMenuItems.size(); ++i) {
        std::string line = (static_cast<int>(i) == menuCursor_ ? "> " : "  ");
        line += kMenuItems[i];
        line.resize(14, ' ');
        line += values[i];
        lines.push_back(line);
    }
    return lines;
}

void SimCamera::StepMenu(const protocol::Motion& m) {
    // The menu steps once per press: only a direction that was not held before counts.
    const protocol::Motion& was = lastMotion_;
    const int items = static_cast<int>(kMenuItems.size());
    if (m.tilt > 0 && was.tilt <= 0) {
        menuCursor_ = (menuCursor_ + items - 1) % items;
    } else if (m.tilt < 0 && was.tilt >= 0) {
        menuCursor_ = (menuCursor_ + 1) % items;
    } else if ((m.pan != 0 && was.pan != m.pan) || (m.iris > 0 && was.iris <= 0)) {
        switch (menuCursor_) {
        case 0:
            setup_.autoFocus = !setup_.autoFocus;
            break;
        case 1:
            setup_.autoIris = !setup_.autoIris;
            break;
        case 2:
            setup_.backlight = !setup_.backlight;
            break;
        case 3:
            setup_.autoWhite = !setup_.autoWhite;
            break;
        case 4:
            setup_.zoomSpeed = (setup_.zoomSpeed + 1) % 4;
            break;
        default:
            menuOpen_ = false;
            break;
        }
    } else if (m.iris < 0 && was.iris >= 0) {
        menuOpen_ = false;
    }
    lastMotion_ = m;
}

void SimCamera::SetMotion(const protocol::Motion& m) {
    if (menuOpen_) {
        StepMenu(m);
        return;
    }
    lastMotion_ = m;
    if (m == motion_) {
        return; // a repeated frame changes nothing, and a stop leaves a preset travelling
    }
    motion_ = m;
    target_.reset();
    running_ = 0;
    Record();
}

void SimCamera::Record() {
    if (recording_ != 0 && recorded_.steps.size() < kPatternSteps) {
        recorded_.steps.push_back({recordClock_, motion_});
    }
}

void SimCamera::TravelTo(double azimuth, double tilt, double zoom) {
    motion_ = {};
    running_ = 0;
    target_ = std::array<double, 3>{Wrap(azimuth), std::clamp(tilt, kTiltLowest, kTiltHighest),
                                    std::clamp(zoom, 0.0, 1.0)};
}

std::array<double, 3> SimCamera::Destination() const {
    // Set-position commands given one after another add up to one journey.
    return target_ ? *target_ : std::array<double, 3>{azimuth_, tilt_, zoom_};
}

void SimCamera::StorePreset(int number) {
    Preset preset{Pan(), tilt_, zoom_, {}};
    std::string label(columns_.begin() + 20, columns_.end());
    label.erase(label.find_last_not_of(' ') + 1);
    preset.label = label;
    presets_[static_cast<std::size_t>(number)] = preset;
    // The label is written anew before each preset that carries one.
    std::fill(columns_.begin() + 20, columns_.end(), ' ');
}

std::string SimCamera::Apply(const protocol::Command& command) {
    const int n = static_cast<int>(std::clamp<std::int64_t>(command.number, -1, 100000));
    switch (command.kind) {
    case Kind::Unknown:
        return {};
    case Kind::Motion:
        SetMotion(command.motion);
        break;
    case Kind::DirectionStart:
    case Kind::DirectionStop: {
        protocol::Motion m = menuOpen_ ? lastMotion_ : motion_;
        const bool on = command.kind == Kind::DirectionStart;
        const auto speed = static_cast<std::uint8_t>(std::clamp(n, 1, 64));
        switch (command.direction) {
        case protocol::Direction::PanLeft:
        case protocol::Direction::PanRight: {
            const std::int8_t sign = command.direction == protocol::Direction::PanRight ? 1 : -1;
            if (on) {
                m.pan = sign;
                m.panSpeed = speed;
            } else if (m.pan == sign) {
                m.pan = 0;
                m.panSpeed = 0;
            }
            break;
        }
        case protocol::Direction::TiltUp:
        case protocol::Direction::TiltDown: {
            const std::int8_t sign = command.direction == protocol::Direction::TiltUp ? 1 : -1;
            if (on) {
                m.tilt = sign;
                m.tiltSpeed = speed;
            } else if (m.tilt == sign) {
                m.tilt = 0;
                m.tiltSpeed = 0;
            }
            break;
        }
        case protocol::Direction::ZoomIn:
        case protocol::Direction::ZoomOut: {
            const std::int8_t sign = command.direction == protocol::Direction::ZoomIn ? 1 : -1;
            m.zoom = on ? sign : (m.zoom == sign ? 0 : m.zoom);
            break;
        }
        case protocol::Direction::FocusNear:
        case protocol::Direction::FocusFar: {
            const std::int8_t sign = command.direction == protocol::Direction::FocusFar ? 1 : -1;
            m.focus = on ? sign : (m.focus == sign ? 0 : m.focus);
            break;
        }
        case protocol::Direction::IrisOpen:
        case protocol::Direction::IrisClose: {
            const std::int8_t sign = command.direction == protocol::Direction::IrisOpen ? 1 : -1;
            m.iris = on ? sign : (m.iris == sign ? 0 : m.iris);
            break;
        }
        }
        SetMotion(m);
        break;
    }
    case Kind::StopAll:
        SetMotion({});
        break;
    case Kind::SetPreset:
        if (n == kMenuPreset) {
            menuOpen_ = true;
            menuCursor_ = 0;
            motion_ = {};
            lastMotion_ = {};
            target_.reset();
            running_ = 0;
        } else if (n >= 1 && n <= 255) {
            StorePreset(n);
        }
        break;
    case Kind::ClearPreset:
        if (n >= 1 && n <= 255) {
            presets_[static_cast<std::size_t>(n)].reset();
        }
        break;
    case Kind::GoPreset:
        if (n == kFlipPreset) {
            TravelTo(azimuth_ + 180.0, tilt_, zoom_);
        } else if (n == kZeroPanPreset) {
            TravelTo(zero_, tilt_, zoom_);
        } else if (n >= 1 && n <= 255 && presets_[static_cast<std::size_t>(n)]) {
            const Preset& p = *presets_[static_cast<std::size_t>(n)];
            TravelTo(zero_ + p.pan, p.tilt, p.zoom);
            presetLabel_ = p.label;
            showLabels_ = true;
        }
        break;
    case Kind::SetAux:
    case Kind::AuxOn:
        if (n >= 1 && n <= 8) {
            aux_.set(static_cast<std::size_t>(n - 1));
        }
        break;
    case Kind::ClearAux:
    case Kind::AuxOff:
        if (n >= 1 && n <= 8) {
            aux_.reset(static_cast<std::size_t>(n - 1));
        }
        break;
    case Kind::RemoteReset:
        motion_ = {};
        lastMotion_ = {};
        target_.reset();
        running_ = 0;
        menuOpen_ = false;
        break;
    case Kind::SetZoneStart:
    case Kind::SetZoneEnd:
        if (n >= 1 && n <= 8) {
            Zone& zone = zones_[static_cast<std::size_t>(n - 1)];
            if (command.kind == Kind::SetZoneStart) {
                zone.start = Pan();
                std::string label(columns_.begin(), columns_.begin() + 20);
                label.erase(label.find_last_not_of(' ') + 1);
                zone.label = label;
            } else {
                zone.end = Pan();
            }
        }
        break;
    case Kind::WriteCharacter:
        if (n >= 0 && n < static_cast<int>(columns_.size())) {
            columns_[static_cast<std::size_t>(n)] = command.value >= 0x20 && command.value < 0x7F
                                                        ? static_cast<char>(command.value)
                                                        : ' ';
        }
        break;
    case Kind::ClearScreen:
        showLabels_ = false;
        columns_.fill(' ');
        break;
    case Kind::ZoneScanOn:
        zoneScan_ = true;
        break;
    case Kind::ZoneScanOff:
        zoneScan_ = false;
        break;
    case Kind::StartPatternRecord:
        if (n >= 1 && n <= static_cast<int>(patterns_.size())) {
            recording_ = n;
            recorded_ = {};
            recordClock_ = 0;
            Record();
        }
        break;
    case Kind::EndPatternRecord:
        if (recording_ != 0 && n == recording_ && recordClock_ < kShortestPattern) {
            recording_ = 0;
            recorded_ = {};
        } else if (recording_ != 0 && n == recording_) {
            recorded_.length = recordClock_;
            recorded_.steps.push_back({recordClock_, {}});
            patterns_[static_cast<std::size_t>(n - 1)] = std::move(recorded_);
            recorded_ = {};
            recording_ = 0;
        }
        break;
    case Kind::RunPattern:
        if (n >= 1 && n <= static_cast<int>(patterns_.size()) &&
            patterns_[static_cast<std::size_t>(n - 1)] &&
            patterns_[static_cast<std::size_t>(n - 1)]->length >= kShortestPattern) {
            target_.reset();
            running_ = n;
            runClock_ = 0;
            runStep_ = 0;
        }
        break;
    case Kind::ZoomSpeed:
        setup_.zoomSpeed = std::clamp(n, 0, 3);
        break;
    case Kind::FocusSpeed:
        setup_.focusSpeed = std::clamp(n, 0, 3);
        break;
    case Kind::ResetCamera:
        setup_ = {};
        break;
    case Kind::AutoFocus:
        setup_.autoFocus = n == 0;
        break;
    case Kind::AutoIris:
        setup_.autoIris = n == 0;
        break;
    case Kind::AutoAgc:
        setup_.autoAgc = n == 0;
        break;
    case Kind::Backlight:
        setup_.backlight = n == 2;
        break;
    case Kind::AutoWhite:
        setup_.autoWhite = n == 2;
        break;
    case Kind::ShutterSpeed:
        setup_.shutter = n;
        break;
    case Kind::RedGain:
        setup_.redGain = std::min(command.value, 1024);
        break;
    case Kind::BlueGain:
        setup_.blueGain = std::min(command.value, 1024);
        break;
    case Kind::IrisLevel:
        setup_.irisLevel = n;
        break;
    case Kind::IrisPeak:
        setup_.irisPeak = n;
        break;
    case Kind::SetZeroPosition:
        zero_ = azimuth_;
        break;
    case Kind::SetPan: {
        const auto [azimuth, tilt, zoom] = Destination();
        TravelTo(zero_ + command.value / 100.0, tilt, zoom);
        break;
    }
    case Kind::SetTilt: {
        const auto [azimuth, tilt, zoom] = Destination();
        const double a = std::min(command.value, 36000) / 100.0;
        TravelTo(azimuth, a <= 180.0 ? a : a - 360.0, zoom);
        break;
    }
    case Kind::SetZoom: {
        const auto [azimuth, tilt, zoom] = Destination();
        TravelTo(azimuth, tilt, command.value / 65535.0);
        break;
    }
    case Kind::SetMagnification: {
        const auto [azimuth, tilt, zoom] = Destination();
        TravelTo(azimuth, tilt, (command.value / 100.0 - 1.0) / (kMaxMagnification - 1.0));
        break;
    }
    case Kind::EchoMode:
        setup_.echo = true;
        break;
    default:
        break;
    }
    return command.language == protocol::Language::D ? Reply(command) : std::string();
}

std::string SimCamera::Reply(const protocol::Command& command) const {
    switch (command.kind) {
    case Kind::QueryPan:
        return protocol::BuildDReply(address_, protocol::code::kPanReply,
                                     Round(Pan() * 100.0) % 36000);
    case Kind::QueryTilt: {
        const double a = tilt_ >= 0 ? tilt_ : tilt_ + 360.0;
        return protocol::BuildDReply(address_, protocol::code::kTiltReply,
                                     Round(a * 100.0) % 36000);
    }
    case Kind::QueryZoom:
        return protocol::BuildDReply(address_, protocol::code::kZoomReply, Round(zoom_ * 65535.0));
    case Kind::QueryMagnification:
        return protocol::BuildDReply(address_, protocol::code::kMagnificationReply,
                                     Round(Magnification() * 100.0));
    default:
        return protocol::BuildGeneralReply(address_);
    }
}

bool SimCamera::Busy() const {
    return running_ != 0 || target_.has_value() || recording_ != 0 || !motion_.Still();
}

void SimCamera::Advance(double seconds) {
    if (recording_ != 0) {
        recordClock_ += seconds;
        if (recordClock_ > kPatternSeconds) {
            recording_ = 0; // a pattern never ended is forgotten
            recorded_ = {};
        }
    }
    if (running_ == 0) {
        Move(seconds);
        return;
    }
    // A running pattern changes the motion at its recorded moments: the time is cut at
    // each of them, so a step of any length follows the pattern exactly.
    const Pattern& pattern = *patterns_[static_cast<std::size_t>(running_ - 1)];
    while (seconds > 0) {
        while (runStep_ < pattern.steps.size() && pattern.steps[runStep_].at <= runClock_) {
            motion_ = pattern.steps[runStep_].motion;
            ++runStep_;
        }
        if (runStep_ == pattern.steps.size() && runClock_ >= pattern.length) {
            runClock_ = 0;
            runStep_ = 0;
            continue;
        }
        const double next =
            runStep_ < pattern.steps.size() ? pattern.steps[runStep_].at : pattern.length;
        const double piece = std::min(seconds, next - runClock_);
        Move(piece);
        runClock_ += piece;
        seconds -= piece;
    }
}

void SimCamera::Move(double seconds) {
    if (target_) {
        const auto& [azimuth, tilt, zoom] = *target_;
        double turn = Wrap(azimuth - azimuth_);
        if (turn > 180.0) {
            turn -= 360.0;
        }
        const double step = kTravelDegreesPerSecond * seconds;
        azimuth_ = Wrap(azimuth_ + std::clamp(turn, -step, step));
        tilt_ = Approach(tilt_, tilt, step);
        zoom_ = Approach(zoom_, zoom, seconds / kZoomTravelSeconds[3]);
        if (std::abs(turn) <= step && tilt_ == tilt && zoom_ == zoom) {
            azimuth_ = azimuth;
            target_.reset();
        }
        return;
    }
    azimuth_ = Wrap(azimuth_ + motion_.pan * DegreesPerSecond(motion_.panSpeed) * seconds);
    tilt_ = std::clamp(tilt_ + motion_.tilt * DegreesPerSecond(motion_.tiltSpeed) * seconds,
                       kTiltLowest, kTiltHighest);
    const double zoomRate =
        1.0 / kZoomTravelSeconds[static_cast<std::size_t>(std::clamp(setup_.zoomSpeed, 0, 3))];
    zoom_ = std::clamp(zoom_ + motion_.zoom * zoomRate * seconds, 0.0, 1.0);
    focus_ = std::clamp(focus_ + motion_.focus * kLensPerSecond * seconds, 0.0, 1.0);
    iris_ = std::clamp(iris_ + motion_.iris * kLensPerSecond * seconds, 0.0, 1.0);
}

} // namespace quellpad::site
