#pragma once

#include "console/joystick.h"
#include "console/lens.h"

#include <QList>
#include <QPointF>
#include <QString>

namespace quellpad {

// How a stick's deflection grows into speed: in proportion, or slowly near the centre for
// fine positioning of a zoomed-in camera.
enum class StickCurve { Linear, Squared };

// What a button of the USB joystick does: one of the six lens actions (held = on), or
// preset go for preset 1 to 8.
struct GamepadAction {
    enum class Kind { None, Lens, PresetGo };
    Kind kind = Kind::None;
    LensButton lens = LensButton::FocusNear;
    int preset = 0;

    friend bool operator==(const GamepadAction&, const GamepadAction&) = default;
};

// Every action a button can take, in the order the Joystick window offers them, with its
// name as the window and the bindings file show it ("Zoom In", "Preset 3", "None").
QList<GamepadAction> AllGamepadActions();
// The name the bindings file keeps ("Focus Near", "Preset 3"), English in every language.
QString GamepadActionName(const GamepadAction& action);
// The same as the joystick window shows it, in the operator's language.
QString GamepadActionCaption(const GamepadAction& action);
GamepadAction GamepadActionNamed(const QString& name); // None for an unknown name

inline constexpr int kNoAxis = -1;
inline constexpr int kMappedButtons = 16;

// The operator's choices for the USB joystick, kept in the [Joystick] group of the
// bindings file.
struct GamepadBindings {
    int panAxis = 0;
    int tiltAxis = 1;
    int zoomAxis = 2; // a twist axis or a second stick; kNoAxis when none
    bool invertPan = false;
    bool invertTilt = false;
    bool invertZoom = false;
    double deadZone = 0.15; // fraction of full deflection that moves nothing
    StickCurve curve = StickCurve::Linear;
    QList<GamepadAction> buttons; // by button number from 0; kMappedButtons entries

    friend bool operator==(const GamepadBindings&, const GamepadBindings&) = default;
};

// Buttons 1 to 6 drive the lens (focus near and far, iris open and close, zoom in and
// out), buttons 7 to 14 go to presets 1 to 8.
GamepadBindings DefaultGamepadBindings();
// Reads the [Joystick] group; missing or damaged entries take their defaults.
GamepadBindings ReadGamepadBindings(const QString& path);
void WriteGamepadBindings(const QString& path, const GamepadBindings& bindings);

// An axis reading of -32768..32767 as a deflection of -1..1 after inversion, dead zone and
// curve: 0 inside the dead zone, rising from there to 1 at full deflection.
double ShapeAxis(int raw, bool invert, double deadZone, StickCurve curve);

// Where a mouse drag would have to be to give the same motion as a stick deflected by pan
// (right positive) and tilt (down positive), in twips of the main window's client area:
// the rest point for 0, just past the square's dead zone for the smallest deflection,
// and far enough out for the limits 64 and 63 at full deflection; always inside the square.
QPointF StickPointer(double pan, double tilt, const JoystickGeometry& geometry);

} // namespace quellpad
