#include "camera_timeline.h"

#include <algorithm>
#include <cmath>

namespace quellpad::capture {

using protocol::Command;
using protocol::Kind;

namespace {

constexpr double kTiltLowest = -90.0;
constexpr double kTiltHighest = 20.0;

double Wrap(double degrees) {
    const double d = std::fmod(degrees, 360.0);
    return d < 0 ? d + 360.0 : d;
}

double Approach(double from, double to, double step) {
    return from < to ? std::min(from + step, to) : std::max(from - step, to);
}

// A tilt as a receiver sends and takes it: 0 to 360 hundredths, below the horizon from 360
// down.
double TiltOf(int hundredths) {
    const double a = std::min(hundredths, 36000) / 100.0;
    return a <= 180.0 ? a : a - 360.0;
}

} // namespace

double ReceiverModel::DegreesPerSecond(int speed) const {
    if (speed <= 0) {
        return 0.0;
    }
    const double s = std::min(speed, 64);
    if (curve == Curve::Linear) {
        return 100.0 * s / 64.0;
    }
    const double x = (s - 1.0) / 63.0;
    return 0.1 + 99.9 * x * x;
}

CameraPoint Advanced(const CameraPoint& point, std::int64_t atUs, const ReceiverModel& model) {
    CameraPoint next = point;
    next.atUs = atUs;
    next.answered = false;
    const double seconds = static_cast<double>(std::max<std::int64_t>(0, atUs - point.atUs)) / 1e6;
    if (point.target) {
        const auto& [pan, tilt, zoom] = *point.target;
        double turn = Wrap(pan - point.pan);
        if (turn > 180.0) {
            turn -= 360.0;
        }
        const double step = model.travelDegreesPerSecond * seconds;
        next.pan = Wrap(point.pan + std::clamp(turn, -step, step));
        next.tilt = Approach(point.tilt, tilt, step);
        next.zoom = Approach(point.zoom, zoom, seconds / model.zoomSeconds);
        if (std::abs(turn) <= step && next.tilt == tilt && next.zoom == zoom) {
            next.pan = pan;
            next.target.reset();
        }
        return next;
    }
    next.pan = Wrap(point.pan + point.panRate * seconds);
    next.tilt = std::clamp(point.tilt + point.tiltRate * seconds, kTiltLowest, kTiltHighest);
    next.zoom = std::clamp(point.zoom + point.zoomRate * seconds, 0.0, 1.0);
    return next;
}

// The decoders of one line of the capture, kept between its packets.
struct CameraTimeline::Line {
    protocol::DFrameDecoder d;
    protocol::PFrameDecoder p;
    protocol::DReplyDecoder replies;
};

CameraTimeline::CameraTimeline(ReceiverModel model, bool useAnswers)
    : model_(model), useAnswers_(useAnswers) {}

CameraTimeline::~CameraTimeline() = default;

void CameraTimeline::Add(const Packet& packet) {
    auto& line = lines_[packet.interface];
    if (!line) {
        line = std::make_unique<Line>();
    }
    const auto bytes = protocol::AsBytes(packet.bytes);
    decoded_.clear();
    const bool answers = packet.side == Side::Equipment;
    if (answers) {
        if (!useAnswers_) {
            return;
        }
        line->replies.Feed(bytes, decoded_);
    } else {
        line->d.Feed(bytes, decoded_);
        line->p.Feed(bytes, decoded_);
    }
    for (const Command& command : decoded_) {
        Apply(command, packet.atUs, answers);
    }
}

CameraPoint& CameraTimeline::Now(int address, std::int64_t atUs) {
    auto [found, added] = cameras_.try_emplace(address);
    CameraPoint& point = found->second;
    if (added) {
        point.address = address;
        point.atUs = atUs;
    }
    point = Advanced(point, atUs, model_);
    return point;
}

void CameraTimeline::Apply(const Command& command, std::int64_t atUs, bool answer) {
    const int address = command.address;
    switch (command.kind) {
    case Kind::Motion:
    case Kind::SetPreset:
    case Kind::GoPreset:
    case Kind::SetPan:
    case Kind::SetTilt:
    case Kind::SetZoom:
    case Kind::PanReply:
    case Kind::TiltReply:
        break;
    default:
        return;
    }
    CameraPoint& point = Now(address, atUs);
    const auto destination = [&point]() {
        return point.target.value_or(std::array<double, 3>{point.pan, point.tilt, point.zoom});
    };
    const auto travel = [this, &point, address](std::array<double, 3> to) {
        motions_[address] = {};
        point.panRate = point.tiltRate = point.zoomRate = 0;
        to[0] = Wrap(to[0]);
        to[1] = std::clamp(to[1], kTiltLowest, kTiltHighest);
        to[2] = std::clamp(to[2], 0.0, 1.0);
        point.target = to;
    };
    switch (command.kind) {
    case Kind::Motion: {
        const protocol::Motion& m = command.motion;
        if (motions_[address] == m) {
            // A repeated frame changes nothing, and a stop leaves a journey going on.
            return;
        }
        motions_[address] = m;
        point.target.reset();
        point.panRate = m.pan * model_.DegreesPerSecond(m.panSpeed);
        point.tiltRate = m.tilt * model_.DegreesPerSecond(m.tiltSpeed);
        point.zoomRate = m.zoom / model_.zoomSeconds;
        break;
    }
    case Kind::SetPreset:
        presets_[{address, static_cast<int>(command.number)}] = {point.pan, point.tilt, point.zoom};
        break;
    case Kind::GoPreset: {
        const auto found = presets_.find({address, static_cast<int>(command.number)});
        if (found != presets_.end()) {
            travel(found->second);
        }
        break;
    }
    case Kind::SetPan: {
        auto to = destination();
        to[0] = command.value / 100.0;
        travel(to);
        break;
    }
    case Kind::SetTilt: {
        auto to = destination();
        to[1] = TiltOf(command.value);
        travel(to);
        break;
    }
    case Kind::SetZoom: {
        auto to = destination();
        to[2] = command.value / 65535.0;
        travel(to);
        break;
    }
    case Kind::PanReply:
        point.pan = Wrap(command.value / 100.0);
        break;
    case Kind::TiltReply:
        point.tilt = TiltOf(command.value);
        break;
    default:
        break;
    }
    CameraPoint shown = point;
    shown.answered = answer;
    points_.push_back(shown);
}

std::optional<CameraPoint> CameraTimeline::At(int address, std::int64_t atUs) const {
    // The last change of the camera at or before the moment.
    const CameraPoint* last = nullptr;
    for (const CameraPoint& point : points_) {
        if (point.atUs > atUs) {
            break;
        }
        if (point.address == address) {
            last = &point;
        }
    }
    if (last == nullptr) {
        return std::nullopt;
    }
    return Advanced(*last, atUs, model_);
}

QString TimelineCsv(const std::vector<CameraPoint>& points) {
    QString csv = QStringLiteral("address,time_s,pan,tilt,zoom,answered\n");
    for (const CameraPoint& point : points) {
        csv += QStringLiteral("%1,%2,%3,%4,%5,%6\n")
                   .arg(point.address)
                   .arg(static_cast<double>(point.atUs) / 1e6, 0, 'f', 6)
                   .arg(point.pan, 0, 'f', 2)
                   .arg(point.tilt, 0, 'f', 2)
                   .arg(point.zoom, 0, 'f', 3)
                   .arg(point.answered ? 1 : 0);
    }
    return csv;
}

} // namespace quellpad::capture
