#include "switcher.h"

#include "protocol/vocabulary.h"

#include <QtGlobal>

#include <algorithm>

namespace quellpad::site {

namespace {

using protocol::Kind;

constexpr double kSequenceDwellSeconds = 3.0;

// Adds to a table unless it is full; a flood of numbers cannot grow it further.
void Insert(std::set<std::int64_t>& table, std::int64_t value) {
    if (table.size() < SimSwitcher::kTableLimit || table.count(value) != 0) {
        table.insert(value);
    }
}

} // namespace

SimSwitcher::SimSwitcher() {
    for (int m = 1; m <= kMonitors; ++m) {
        routes_[static_cast<std::size_t>(m)] = m;
    }
}

void SimSwitcher::Step(int monitor, int by) {
    auto& camera = routes_[static_cast<std::size_t>(monitor)];
    const std::int64_t from = std::clamp<std::int64_t>(camera, 1, kCameras);
    camera = (from - 1 + by + kCameras) % kCameras + 1;
}

std::string SimSwitcher::Apply(const protocol::Command& command) {
    const std::int64_t n = command.number;
    switch (command.kind) {
    case Kind::SelectMonitor:
        if (n >= 1 && n <= kMonitors) {
            monitor_ = static_cast<int>(n);
        }
        break;
    case Kind::SelectCamera:
        if (n >= 1) {
            routes_[static_cast<std::size_t>(monitor_)] = n;
            sequences_.erase(monitor_);
        }
        break;
    case Kind::NextCamera:
        Step(monitor_, 1);
        break;
    case Kind::PreviousCamera:
        Step(monitor_, -1);
        break;
    case Kind::NextAlarm:
    case Kind::PreviousAlarm: {
        if (alarms_.empty()) {
            return {};
        }
        const bool forward = command.kind == Kind::NextAlarm;
        if (forward) {
            auto next = alarms_.upper_bound(alarmShown_);
            alarmShown_ = next == alarms_.end() ? *alarms_.begin() : *next;
        } else {
            auto next = alarms_.lower_bound(alarmShown_);
            alarmShown_ = next == alarms_.begin() ? *alarms_.rbegin() : *std::prev(next);
        }
        // The alarmed camera comes up on the selected monitor.
        routes_[static_cast<std::size_t>(monitor_)] = alarmShown_;
        return std::to_string(alarmShown_) +
               std::string(protocol::Mnemonic(forward ? Kind::NextAlarm : Kind::PreviousAlarm));
    }
    case Kind::TriggerAlarm:
        if (n >= 1) {
            Insert(alarms_, n);
        }
        break;
    case Kind::ResetAlarm:
        if (n >= 1) {
            alarms_.erase(n);
        } else {
            alarms_.clear();
        }
        break;
    case Kind::AuxOn:
        Insert(auxes_, n);
        break;
    case Kind::AuxOff:
        auxes_.erase(n);
        break;
    case Kind::GpiOn:
        Insert(gpis_, n);
        break;
    case Kind::GpiOff:
        gpis_.erase(n);
        break;
    case Kind::StartMacro:
        macro_ = n;
        break;
    case Kind::HaltMacro:
        if (macro_ == n) {
            macro_ = 0;
        }
        break;
    case Kind::StartSequence:
        sequences_[monitor_] = n;
        break;
    case Kind::HaltSequence:
        if (sequences_.count(monitor_) != 0 && sequences_[monitor_] == n) {
            sequences_.erase(monitor_);
        }
        break;
    case Kind::StartTour:
        tour_ = n;
        break;
    case Kind::HaltTour:
        if (tour_ == n) {
            tour_ = 0;
        }
        break;
    case Kind::LockCamera:
        Insert(locked_, SelectedCamera());
        break;
    case Kind::UnlockCamera:
    case Kind::OverrideLock:
        locked_.erase(SelectedCamera());
        break;
    case Kind::Label:
        label_ = command.text;
        break;
    case Kind::CameraTitle:
        if (titles_.size() < kTableLimit || titles_.count(n) != 0) {
            titles_[n] = command.text;
        }
        break;
    case Kind::TimeUpdate:
        time_ = command.text;
        break;
    default:
        break;
    }
    return {};
}

void SimSwitcher::Advance(double seconds) {
    clock_ += seconds;
    if (clock_ < kSequenceDwellSeconds) {
        return;
    }
    clock_ = 0;
    for (const auto& [monitor, sequence] : sequences_) {
        Step(monitor, 1);
    }
    if (tour_ != 0) {
        // A tour walks the selected monitor through the cameras the other way round.
        Step(monitor_, -1);
    }
}

void SimMultiplexer::Apply(const protocol::Command& command) {
    switch (command.kind) {
    case Kind::DigitalZoom:
        display_ = Display::DigitalZoom;
        break;
    case Kind::Pip:
        display_ = Display::Pip;
        break;
    case Kind::Quad:
        display_ = Display::Quad;
        break;
    case Kind::Nano:
        display_ = Display::Nano;
        break;
    case Kind::Hex:
        display_ = Display::Hex;
        break;
    case Kind::MuxCamera:
        if (command.number >= 1 && command.number <= 16) {
            camera_ = static_cast<int>(command.number);
            if (display_ != Display::DigitalZoom && display_ != Display::Pip) {
                display_ = Display::Full;
            }
        }
        break;
    case Kind::VcrEject:
        vcr_ = Vcr::Ejected;
        break;
    case Kind::VcrRecord:
        vcr_ = Vcr::Recording;
        break;
    case Kind::VcrPause:
        vcr_ = Vcr::Paused;
        break;
    case Kind::VcrFastForward:
        vcr_ = Vcr::FastForward;
        break;
    case Kind::VcrRewind:
        vcr_ = Vcr::Rewind;
        break;
    case Kind::VcrStop:
        vcr_ = Vcr::Stopped;
        break;
    case Kind::VcrPlay:
        vcr_ = Vcr::Playing;
        break;
    case Kind::DirectionStart:
    case Kind::DirectionStop: {
        const int on = command.kind == Kind::DirectionStart ? 1 : 0;
        switch (command.direction) {
        case protocol::Direction::PanLeft:
            zoomPan_ = on != 0 ? -1 : (zoomPan_ < 0 ? 0 : zoomPan_);
            break;
        case protocol::Direction::PanRight:
            zoomPan_ = on != 0 ? 1 : (zoomPan_ > 0 ? 0 : zoomPan_);
            break;
        case protocol::Direction::TiltUp:
            zoomTilt_ = on != 0 ? 1 : (zoomTilt_ > 0 ? 0 : zoomTilt_);
            break;
        case protocol::Direction::TiltDown:
            zoomTilt_ = on != 0 ? -1 : (zoomTilt_ < 0 ? 0 : zoomTilt_);
            break;
        default:
            break;
        }
        break;
    }
    default:
        break;
    }
}

void SimMultiplexer::Advance(double seconds) {
    zoomX_ = std::clamp(zoomX_ + zoomPan_ * 0.5 * seconds, -1.0, 1.0);
    zoomY_ = std::clamp(zoomY_ + zoomTilt_ * 0.5 * seconds, -1.0, 1.0);
}

// The names are English; the window translates them as it shows them ("SiteWords").
const char* SimMultiplexer::DisplayName(Display display) {
    switch (display) {
    case Display::Full:
        return QT_TRANSLATE_NOOP("SiteWords", "full screen");
    case Display::Quad:
        return QT_TRANSLATE_NOOP("SiteWords", "quad");
    case Display::Pip:
        return QT_TRANSLATE_NOOP("SiteWords", "picture in picture");
    case Display::Nano:
        return QT_TRANSLATE_NOOP("SiteWords", "nano");
    case Display::Hex:
        return QT_TRANSLATE_NOOP("SiteWords", "hex");
    case Display::DigitalZoom:
        return QT_TRANSLATE_NOOP("SiteWords", "digital zoom");
    }
    return "";
}

const char* SimMultiplexer::VcrName(Vcr vcr) {
    switch (vcr) {
    case Vcr::Stopped:
        return QT_TRANSLATE_NOOP("SiteWords", "stopped");
    case Vcr::Playing:
        return QT_TRANSLATE_NOOP("SiteWords", "playing");
    case Vcr::Recording:
        return QT_TRANSLATE_NOOP("SiteWords", "recording");
    case Vcr::Paused:
        return QT_TRANSLATE_NOOP("SiteWords", "paused");
    case Vcr::FastForward:
        return QT_TRANSLATE_NOOP("SiteWords", "fast forward");
    case Vcr::Rewind:
        return QT_TRANSLATE_NOOP("SiteWords", "rewinding");
    case Vcr::Ejected:
        return QT_TRANSLATE_NOOP("SiteWords", "tape ejected");
    }
    return "";
}

} // namespace quellpad::site
