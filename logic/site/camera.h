#pragma once

#include "protocol/commands.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace quellpad::site {

// Degrees per second of a pan or tilt speed byte (7 to 64 from the keyboard): a slow,
// fine creep at the bottom of the range for following a face at full zoom, rising on a
// square law to a 100 degrees per second sweep at the top.
double DegreesPerSecond(int speed);

// Largest optical magnification of the simulated lens.
inline constexpr double kMaxMagnification = 25.0;
// Tilt range: 0 is the horizon, -90 straight down.
inline constexpr double kTiltLowest = -90.0;
inline constexpr double kTiltHighest = 20.0;

// A pan/tilt/zoom camera receiver at one address. It is fed decoded commands and the time
// that passes; it answers D commands with the bytes a receiver sends back.
class SimCamera {
public:
    struct Preset {
        double pan = 0;
        double tilt = 0;
        double zoom = 0;
        std::string label;
    };
    struct Zone {
        std::optional<double> start;
        std::optional<double> end;
        std::string label;
    };
    // Lens and picture set-up that the extended commands change.
    struct Setup {
        bool autoFocus = true;
        bool autoIris = true;
        bool autoAgc = true;
        bool backlight = false;
        bool autoWhite = true;
        int shutter = 0;
        int redGain = 512;
        int blueGain = 512;
        int irisLevel = 128;
        int irisPeak = 64;
        int zoomSpeed = 3;
        int focusSpeed = 3;
        bool echo = false;
    };

    explicit SimCamera(int address);

    int Address() const { return address_; }
    // Carries out one command; for a D command the receiver's answer (a position reply
    // or the general reply), otherwise "".
    std::string Apply(const protocol::Command& command);
    void Advance(double seconds);
    // Something moves, travels to a position or runs a pattern.
    bool Busy() const;

    // Pan 0 to below 360 from the zero position, tilt in degrees above the horizon.
    double Pan() const;
    double Tilt() const { return tilt_; }
    // Where the camera looks in the scene, whatever its zero position.
    double Azimuth() const { return azimuth_; }
    // Zoom travel 0 (wide) to 1 (tele), and the magnification it gives.
    double Zoom() const { return zoom_; }
    double Magnification() const { return 1.0 + zoom_ * (kMaxMagnification - 1.0); }
    double Focus() const { return focus_; }
    double Iris() const { return iris_; }
    const protocol::Motion& Moving() const { return motion_; }
    const std::bitset<8>& Aux() const { return aux_; }
    const Setup& Settings() const { return setup_; }

    // The camera's on-screen menu, opened by setting preset 95.
    bool MenuOpen() const { return menuOpen_; }
    std::vector<std::string> MenuLines() const;
    int MenuCursor() const { return menuCursor_; }

    // Text the camera lays over its picture: the label of the preset it went to, the
    // label of the zone it points into while zone scan is on.
    std::string PresetLabel() const { return showLabels_ ? presetLabel_ : std::string(); }
    std::string ZoneLabel() const;
    const std::optional<Preset>& StoredPreset(int number) const;
    int PatternRecording() const { return recording_; }
    int PatternRunning() const { return running_; }
    bool ZoneScan() const { return zoneScan_; }
    const std::array<Zone, 8>& Zones() const { return zones_; }

    // Sets the characters a preset stored next takes as its label (columns 20 to 39).
    void SetLabelColumns(const std::string& label);

private:
    struct PatternStep {
        double at;
        protocol::Motion motion;
    };
    struct Pattern {
        std::vector<PatternStep> steps;
        double length = 0;
    };

    void SetMotion(const protocol::Motion& motion);
    void Move(double seconds);
    void StepMenu(const protocol::Motion& motion);
    void TravelTo(double azimuth, double tilt, double zoom);
    std::array<double, 3> Destination() const;
    void StorePreset(int number);
    void Record();
    std::string Reply(const protocol::Command& command) const;

    int address_;
    double azimuth_ = 0;
    double zero_ = 0;
    double tilt_ = -10;
    double zoom_ = 0;
    double focus_ = 0.5;
    double iris_ = 0.5;
    protocol::Motion motion_;
    protocol::Motion lastMotion_;
    std::optional<std::array<double, 3>> target_;
    std::bitset<8> aux_;
    Setup setup_;
    bool menuOpen_ = false;
    int menuCursor_ = 0;
    std::array<char, 40> columns_{};
    std::string presetLabel_;
    bool showLabels_ = true;
    std::array<std::optional<Preset>, 256> presets_{};
    std::array<Zone, 8> zones_{};
    bool zoneScan_ = false;
    std::array<std::optional<Pattern>, 16> patterns_{};
    int recording_ = 0;
    Pattern recorded_;
    double recordClock_ = 0;
    int running_ = 0;
    double runClock_ = 0;
    std::size_t runStep_ = 0;
};

} // namespace quellpad::site
