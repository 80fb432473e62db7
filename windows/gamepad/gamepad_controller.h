#pragma once

#include "gamepad/stick_mapping.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <optional>

namespace quellpad {

class FrmMain;

// Turns what a USB joystick reports into the operator's actions on the main window: the
// stick moves the on-screen joystick, the zoom axis and the buttons work the lens buttons
// and preset go. It acts only when the controller's state changes, so a stick at rest
// never sends anything and never takes the joystick from the mouse.
class GamepadController : public QObject {
    Q_OBJECT
public:
    GamepadController(FrmMain& window, Quellpad_Support_Func& keyboard, QObject* parent = nullptr);

    const GamepadBindings& Bindings() const { return bindings_; }
    void SetBindings(const GamepadBindings& bindings);

    // An axis reading, -32768..32767.
    void AxisMoved(int axis, int value);
    void ButtonChanged(int button, bool pressed);
    // The controller went away: whatever it drives stops at once.
    void ControllerLost();

private:
    double Shaped(int axis, bool invert) const;
    void Apply();
    void ApplyZoom(std::optional<LensButton> zoom);
    void LensPressed(LensButton lens, bool pressed);

    FrmMain& window_;
    Quellpad_Support_Func& keyboard_;
    GamepadBindings bindings_;
    JoystickState joystick_;
    QHash<int, int> axes_;
    // Axes seen at rest since the controller came: only those count. A trigger or throttle
    // resting at one end (or a stick held over while plugged in) moves nothing until it
    // has passed through the centre.
    QSet<int> armed_;
    QSet<int> pressed_;
    double pan_ = 0;
    double tilt_ = 0;
    std::optional<LensButton> zoom_;
    QSet<int> heldLens_; // lens actions switched on by a held button, by LensButton value
};

} // namespace quellpad
