#include "gamepad_controller.h"

#include "console/targets.h"

#include "console/frm_main.h"

#include <QPushButton>

#include <utility>

namespace quellpad {

GamepadController::GamepadController(FrmMain& window, Quellpad_Support_Func& keyboard,
                                     QObject* parent)
    : QObject(parent), window_(window), keyboard_(keyboard), bindings_(DefaultGamepadBindings()) {}

void GamepadController::SetBindings(const GamepadBindings& bindings) {
    bindings_ = bindings;
    Apply();
}

double GamepadController::Shaped(int axis, bool invert) const {
    if (axis == kNoAxis || !armed_.contains(axis)) {
        return 0;
    }
    return ShapeAxis(axes_.value(axis, 0), invert, bindings_.deadZone, bindings_.curve);
}

void GamepadController::AxisMoved(int axis, int value) {
    axes_.insert(axis, value);
    if (ShapeAxis(value, false, bindings_.deadZone, bindings_.curve) == 0) {
        armed_.insert(axis);
    }
    Apply();
}

void GamepadController::Apply() {
    const double pan = Shaped(bindings_.panAxis, bindings_.invertPan);
    const double tilt = Shaped(bindings_.tiltAxis, bindings_.invertTilt);
    if (pan != pan_ || tilt != tilt_) {
        pan_ = pan;
        tilt_ = tilt;
        window_.DriveJoystick(joystick_,
                              StickPointer(pan, tilt, window_.CurrentJoystickGeometry()));
    }
    const double zoom = Shaped(bindings_.zoomAxis, bindings_.invertZoom);
    ApplyZoom(zoom > 0   ? std::optional(LensButton::ZoomIn)
              : zoom < 0 ? std::optional(LensButton::ZoomOut)
                         : std::nullopt);
}

void GamepadController::ApplyZoom(std::optional<LensButton> zoom) {
    if (zoom == zoom_) {
        return;
    }
    if (zoom_) {
        SwitchLensOff(keyboard_, *zoom_);
    }
    zoom_ = zoom;
    if (zoom_) {
        SwitchLensOn(keyboard_, *zoom_);
    }
}

void GamepadController::ButtonChanged(int button, bool pressed) {
    // Repeated reports of the same state are no change.
    if (pressed_.contains(button) == pressed) {
        return;
    }
    if (pressed) {
        pressed_.insert(button);
    } else {
        pressed_.remove(button);
    }
    if (button < 0 || button >= bindings_.buttons.size()) {
        return;
    }
    const GamepadAction& action = bindings_.buttons[button];
    if (action.kind == GamepadAction::Kind::Lens) {
        LensPressed(action.lens, pressed);
    } else if (action.kind == GamepadAction::Kind::PresetGo && pressed) {
        LoadPresetGo(keyboard_, action.preset);
    }
}

void GamepadController::LensPressed(LensButton lens, bool pressed) {
    if (keyboard_.ControlLockOn) {
        // A press toggles, as a click on the on-screen button does, captions and all.
        if (pressed) {
            if (auto* control =
                    window_.findChild<QPushButton*>(QLatin1String(LensButtonName(lens)))) {
                control->click();
            }
        }
        return;
    }
    const int key = static_cast<int>(lens);
    if (pressed) {
        heldLens_.insert(key);
        SwitchLensOn(keyboard_, lens);
    } else if (heldLens_.remove(key)) {
        SwitchLensOff(keyboard_, lens);
    }
}

void GamepadController::ControllerLost() {
    axes_.clear();
    armed_.clear();
    pressed_.clear();
    if (pan_ != 0 || tilt_ != 0) {
        pan_ = tilt_ = 0;
        window_.DriveJoystick(joystick_, StickPointer(0, 0, window_.CurrentJoystickGeometry()));
    }
    ApplyZoom(std::nullopt);
    for (const int key : std::exchange(heldLens_, {})) {
        SwitchLensOff(keyboard_, static_cast<LensButton>(key));
    }
}

} // namespace quellpad
