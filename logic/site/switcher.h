#pragma once

#include "protocol/commands.h"

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace quellpad::site {

// A video matrix switcher in "ASCII": cameras routed to monitors, alarms, locks, macros,
// sequences and tours. Motion and preset texts are meant for the camera on the selected
// monitor; the site hands them on.
class SimSwitcher {
public:
    static constexpr int kMonitors = 8;
    static constexpr int kCameras = 16;
    // Most entries any one table keeps (alarms, auxes, titles), however many are sent.
    static constexpr std::size_t kTableLimit = 256;

    SimSwitcher();

    // Carries out one command; the text the switcher answers ("12ia"), or "".
    std::string Apply(const protocol::Command& command);
    // Steps running sequences and tours.
    void Advance(double seconds);
    bool Busy() const { return !sequences_.empty() || tour_ != 0; }

    int SelectedMonitor() const { return monitor_; }
    // Camera shown on monitor 1..kMonitors.
    std::int64_t CameraOn(int monitor) const { return routes_[static_cast<std::size_t>(monitor)]; }
    std::int64_t SelectedCamera() const { return CameraOn(monitor_); }
    const std::set<std::int64_t>& Alarms() const { return alarms_; }
    const std::set<std::int64_t>& LockedCameras() const { return locked_; }
    const std::set<std::int64_t>& AuxesOn() const { return auxes_; }
    const std::set<std::int64_t>& GpisOn() const { return gpis_; }
    std::int64_t Macro() const { return macro_; }
    // Monitor -> sequence number.
    const std::map<int, std::int64_t>& Sequences() const { return sequences_; }
    std::int64_t Tour() const { return tour_; }
    const std::map<std::int64_t, std::string>& Titles() const { return titles_; }
    const std::string& Time() const { return time_; }
    // The label of the next preset stored through the switcher ("la...!a").
    const std::string& PendingLabel() const { return label_; }
    void TakePendingLabel() { label_.clear(); }

private:
    void Step(int monitor, int by);

    int monitor_ = 1;
    std::array<std::int64_t, kMonitors + 1> routes_{};
    std::set<std::int64_t> alarms_;
    std::int64_t alarmShown_ = 0;
    std::set<std::int64_t> locked_;
    std::set<std::int64_t> auxes_;
    std::set<std::int64_t> gpis_;
    std::int64_t macro_ = 0;
    std::map<int, std::int64_t> sequences_;
    std::int64_t tour_ = 0;
    double clock_ = 0;
    std::map<std::int64_t, std::string> titles_;
    std::string time_;
    std::string label_;
};

// A video multiplexer in "MUX ASCII": display modes, camera selection and the VCR.
class SimMultiplexer {
public:
    enum class Display : std::uint8_t { Full, Quad, Pip, Nano, Hex, DigitalZoom };
    enum class Vcr : std::uint8_t {
        Stopped,
        Playing,
        Recording,
        Paused,
        FastForward,
        Rewind,
        Ejected
    };

    void Apply(const protocol::Command& command);
    void Advance(double seconds);
    bool Busy() const { return zoomPan_ != 0 || zoomTilt_ != 0; }

    Display Mode() const { return display_; }
    int Camera() const { return camera_; }
    Vcr Tape() const { return vcr_; }
    // Where the digital zoom window sits, -1..1 each way.
    double ZoomX() const { return zoomX_; }
    double ZoomY() const { return zoomY_; }

    static const char* DisplayName(Display display);
    static const char* VcrName(Vcr vcr);

private:
    Display display_ = Display::Quad;
    int camera_ = 1;
    Vcr vcr_ = Vcr::Stopped;
    int zoomPan_ = 0;
    int zoomTilt_ = 0;
    double zoomX_ = 0;
    double zoomY_ = 0;
};

} // namespace quellpad::site
