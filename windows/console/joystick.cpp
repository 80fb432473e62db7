#include "joystick.h"

#include "engine/numeric.h"
#include "engine/words.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quellpad {

namespace {

enum class Axis { Pan, Tilt };

struct Direction {
    Axis axis;
    int sign; // +1 when the distance grows with the coordinate (right, down)
    double scale;
    int limit;
    std::uint8_t bit;
    QLatin1String ascii;
    QLatin1String asciiStop;
    QLatin1String mux;
    QLatin1String muxStop;
};

// In this order: the stop texts of left and right replace each other, those of down and
// up follow them.
constexpr Direction Along(Axis axis, int sign, double scale, int limit, std::uint8_t bit,
                          protocol::Direction direction) {
    using protocol::DirectionMnemonic;
    using protocol::Language;
    return {axis,
            sign,
            scale,
            limit,
            bit,
            Latin(DirectionMnemonic(Language::Ascii, direction, true)),
            Latin(DirectionMnemonic(Language::Ascii, direction, false)),
            Latin(DirectionMnemonic(Language::MuxAscii, direction, true)),
            Latin(DirectionMnemonic(Language::MuxAscii, direction, false))};
}

const std::array<Direction, 4> kDirections{{
    Along(Axis::Pan, -1, 60, 64, protocol::bit::kPanLeft, protocol::Direction::PanLeft),
    Along(Axis::Pan, +1, 60, 64, protocol::bit::kPanRight, protocol::Direction::PanRight),
    Along(Axis::Tilt, +1, 59, 63, protocol::bit::kTiltDown, protocol::Direction::TiltDown),
    Along(Axis::Tilt, -1, 59, 63, protocol::bit::kTiltUp, protocol::Direction::TiltUp),
}};

// Left, right, up, down: the order in which a release stops the directions.
const std::array<const Direction*, 4> kReleaseOrder{&kDirections[0], &kDirections[1],
                                                    &kDirections[3], &kDirections[2]};

} // namespace

int JoystickSpeed(double distance, double halfSize, double deadSize, double scale) {
    if (distance <= deadSize) {
        return 0;
    }
    return static_cast<int>(IntPart(scale / (halfSize - deadSize) * (distance - deadSize))) + 7;
}

QPointF JoystickRestPoint(const JoystickGeometry& g) {
    return {g.windowWidth / 2, g.windowHeight / 2};
}

QRect CentredSquare(QPointF centre, int side) {
    return {static_cast<int>(std::lround(centre.x() - side / 2.0)),
            static_cast<int>(std::lround(centre.y() - side / 2.0)), side, side};
}

bool UpdateJoystick(Quellpad_Support_Func& k, JoystickState& state, int button, double x, double y,
                    const JoystickGeometry& g) {
    QString stops;
    if (button == kLeftButton) {
        state.JoystickLatched = false;
    }
    if (button == kRightButton) {
        state.JoystickLatched = !state.JoystickLatched;
    }
    if (button != kLeftButton && !state.JoystickLatched) {
        return false;
    }
    const double squareRight = g.squareLeft + g.squareWidth;
    const double squareBottom = g.squareTop + g.squareHeight;
    if (!(g.squareLeft < x && x < squareRight && g.squareTop < y && y < squareBottom)) {
        return false;
    }
    if (k.Command2 & protocol::bit::kOneShot) {
        k.Command1 = k.Command2 = k.Data1 = k.Data2 = 0;
    }
    state.JoystickDragging = true;

    // Whole twips; wider than 16 bits on today's large screens.
    const double restX = RoundHalfEven(g.windowWidth / 2);
    const double restY = RoundHalfEven(g.windowHeight / 2);
    const double deadX = IntPart((g.squareLeft + g.squareWidth - RoundHalfEven(g.squareLeft)) / 20);
    const double deadY = IntPart((g.squareTop + g.squareHeight - RoundHalfEven(g.squareTop)) / 20);
    k.AsciiCommand.clear();

    std::array<bool, 4> idle{};
    for (std::size_t i = 0; i < kDirections.size(); ++i) {
        const Direction& d = kDirections[i];
        const bool pan = d.axis == Axis::Pan;
        const double distance = pan ? d.sign * (x - restX) : d.sign * (y - restY);
        const double halfSize = pan ? squareRight - restX : squareBottom - restY;
        const double dead = pan ? deadX : deadY;
        if (distance <= dead) {
            k.Command2 &= static_cast<std::uint8_t>(~d.bit);
            idle[i] = true;
            QString stop;
            if (k.CurrentMode == kModeAscii && k.LastAsciiCommand.contains(d.ascii) &&
                !k.LastAsciiCommand.contains(d.asciiStop)) {
                stop = d.asciiStop;
            } else if (k.CurrentMode == kModeMuxAscii && k.LastAsciiCommand.contains(d.mux) &&
                       !k.LastAsciiCommand.contains(d.muxStop)) {
                stop = d.muxStop;
            }
            if (!stop.isEmpty()) {
                stops = pan ? stop : stops + stop;
            }
            continue;
        }
        // The register holds at most the limit; the ASCII text carries the speed as
        // computed, so near the edge the switcher is told up to 67 (pan) or 66 (tilt).
        const int speed = JoystickSpeed(distance, halfSize, dead, d.scale);
        (pan ? k.Data1 : k.Data2) = ToByte(std::min(speed, d.limit));
        if (k.Command2 & protocol::bit::kOneShot) {
            k.Command2 = 0;
        }
        if (IsFrameMode(k.CurrentMode)) {
            k.Command2 |= d.bit;
        } else if (k.CurrentMode == kModeAscii) {
            k.AsciiCommand += QString::number(speed) + d.ascii;
        } else if (k.CurrentMode == kModeMuxAscii) {
            k.AsciiCommand = i == 0 ? QString(d.mux) : k.AsciiCommand + d.mux;
        }
    }
    if (IsAsciiMode(k.CurrentMode)) {
        k.AsciiCommand = stops + k.AsciiCommand;
    }
    const bool panIdle = idle[0] && idle[1];
    const bool tiltIdle = idle[2] && idle[3];
    if (panIdle) {
        k.Data1 = 0;
    }
    if (tiltIdle) {
        k.Data2 = 0;
    }
    if (panIdle && tiltIdle && k.CurrentMode == kModeAscii) {
        k.AsciiCommand = Word(protocol::Kind::StopAll);
    }
    return true;
}

bool ReleaseJoystick(Quellpad_Support_Func& k, JoystickState& state) {
    if (k.ControlLockOn || !state.JoystickDragging || state.JoystickLatched) {
        return false;
    }
    state.JoystickDragging = false;
    // Pan, tilt and any one-shot bit go; zoom and focus-far stay with their buttons.
    k.Command2 &= protocol::bit::kZoomIn | protocol::bit::kZoomOut | protocol::bit::kDFocusFar;
    k.Data1 = 0;
    k.Data2 = 0;
    if (k.CurrentMode == kModeMuxAscii) {
        k.AsciiCommand.clear();
        for (const Direction* d : kReleaseOrder) {
            if (k.LastAsciiCommand.contains(d->mux)) {
                k.AsciiCommand += d->muxStop;
            }
        }
    }
    return true;
}

QString MuxStopTexts(const QString& sent) {
    QString stops;
    for (const Direction* d : kReleaseOrder) {
        if (sent.contains(d->mux) && !sent.contains(d->muxStop)) {
            stops += d->muxStop;
        }
    }
    return stops;
}

} // namespace quellpad
