#pragma once

#include "gamepad/gamepad_controller.h"
#include "gamepad/sdl_joystick.h"
#include "ui/error_boundary.h"

#include <QPointer>

class QAction;
class QLabel;

namespace quellpad::ui {
class StatusText;
}

namespace quellpad {

class FrmJoystick;
class FrmMain;

// A USB joystick on the main window: the Options menu's "Joystick..." item, the status
// bar's note of the controller in use, the bindings file, and the SDL source feeding the
// controller. SDL (its libraries weigh more than the rest of the program) starts only
// once the operator has asked for a joystick: at the first opening of the Joystick window,
// which the bindings file remembers, so that later starts pick the stick up by themselves.
class Gamepad : public QObject {
    Q_OBJECT
public:
    Gamepad(FrmMain& window, Quellpad_Support_Func& keyboard, const QString& bindingsPath);
    ~Gamepad() override;

    void StartLater(int delayMs);
    // Whether the operator has used the joystick before: then it starts with the program.
    bool WantedAtStart() const;
    void Start();

    SdlJoystick& Source() { return source_; }
    GamepadController& Controller() { return controller_; }
    FrmJoystick* JoystickWindow() const;
    void JoystickOption_Click();

private:
    void ShowController(const QString& name);

    FrmMain& window_;
    QString bindingsPath_;
    ui::ErrorBoundary boundary_;
    SdlJoystick source_;
    GamepadController controller_;
    QAction* JoystickOption = nullptr;
    ui::StatusText* status_ = nullptr;
    QPointer<FrmJoystick> joystickWindow_;
};

} // namespace quellpad
