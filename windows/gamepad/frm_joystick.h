#pragma once

#include "gamepad/stick_mapping.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;

namespace quellpad {

// The "Joystick" window: which controller is in use, and which axis pans, tilts and zooms,
// their inversion, the dead zone, the response curve and what each button does. Not modal:
// the operator can try the stick with the window open. Every change takes effect at once.
class FrmJoystick : public QDialog {
    Q_OBJECT
public:
    explicit FrmJoystick(const GamepadBindings& bindings, QWidget* parent = nullptr);

    void ShowController(const QString& name);
    GamepadBindings CurrentBindings() const;

signals:
    void BindingsChanged(const GamepadBindings& bindings);

private:
    QComboBox* AxisList(const char* name, bool offerNone, int axis);

    QLabel* ControllerLabel = nullptr;
    QComboBox* PanAxisList = nullptr;
    QComboBox* TiltAxisList = nullptr;
    QComboBox* ZoomAxisList = nullptr;
    QCheckBox* InvertPanCheck = nullptr;
    QCheckBox* InvertTiltCheck = nullptr;
    QCheckBox* InvertZoomCheck = nullptr;
    QSpinBox* DeadZoneBox = nullptr;
    QComboBox* CurveList = nullptr;
    std::array<QComboBox*, kMappedButtons> buttonLists_{};
};

} // namespace quellpad
