#pragma once

#include "engine/keyboard_state.h"

#include <QPointF>
#include <QRect>

namespace quellpad {

// Where the joystick is at one event, in the main window's client coordinates (twips).
struct JoystickGeometry {
    double squareLeft = 0;
    double squareTop = 0;
    double squareWidth = 0;
    double squareHeight = 0;
    // The main window's outer size; the knob rests at half of it.
    double windowWidth = 0;
    double windowHeight = 0;
};

struct JoystickState {
    bool JoystickDragging = false;
    bool JoystickLatched = false;
};

// Mouse button codes as the joystick reads them; a move reports the buttons held.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;

// Pan and tilt speed rule: the speed for a pointer `distance` from the rest point on an
// axis with the given half-size and dead size. 0 while inside the dead zone, otherwise
// 7 rising linearly with the scale (60 for pan, 59 for tilt): up to 67 and 66 at the
// square's edge. The registers take at most the axis's limit; the ASCII text does not.
int JoystickSpeed(double distance, double halfSize, double deadSize, double scale);

// The knob's rest point: half the window's outer size, not rounded.
QPointF JoystickRestPoint(const JoystickGeometry& geometry);
// The pixels of a square of `side` centred on `centre`: squares of one parity placed so
// share their centre pixel.
QRect CentredSquare(QPointF centre, int side);

// Mouse down or move on the main window (button code, pointer in twips). Returns true
// when the pointer was taken by the joystick: the knob is then to be drawn centred on
// the pointer. Only the registers and AsciiCommand change; nothing is sent.
bool UpdateJoystick(Quellpad_Support_Func& keyboard, JoystickState& state, int button, double x,
                    double y, const JoystickGeometry& geometry);

// Mouse up on the main window. Returns true when the joystick stopped: the knob is then
// to be centred.
bool ReleaseJoystick(Quellpad_Support_Func& keyboard, JoystickState& state);

// The "MUX ASCII" stop texts of the directions that `sent` starts and does not stop, in
// the order a release sends them; "" when it moves nothing.
QString MuxStopTexts(const QString& sent);

} // namespace quellpad
