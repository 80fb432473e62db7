#include "gamepad.h"

#include "console/frm_main.h"
#include "engine/plain_file.h"
#include "gamepad/frm_joystick.h"
#include "ui/controls.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>

namespace quellpad {

Gamepad::Gamepad(FrmMain& window, Quellpad_Support_Func& keyboard, const QString& bindingsPath)
    : window_(window), bindingsPath_(bindingsPath), boundary_(&window),
      controller_(window, keyboard) {
    controller_.SetBindings(ReadGamepadBindings(bindingsPath_));

    if (auto* options = window.findChild<QMenu*>(QStringLiteral("OptionsMenu"))) {
        JoystickOption = ui::MakeItem(options, "JoystickOption",
                                      QCoreApplication::translate("Gamepad", "Joystick..."));
        // Beside the other settings of the keyboard.
        const QList<QAction*> items = options->actions();
        const auto settings = std::find_if(items.begin(), items.end(), [](const QAction* item) {
            return item->objectName() == QLatin1String("Settings_Menu_Option");
        });
        if (settings != items.end() && settings + 1 != items.end()) {
            options->removeAction(JoystickOption);
            options->insertAction(*(settings + 1), JoystickOption);
        }
        connect(JoystickOption, &QAction::triggered, this,
                [this] { boundary_.Run("JoystickOption_Click", [&] { JoystickOption_Click(); }); });
    }

    connect(&source_, &SdlJoystick::AxisMoved, this, [this](int axis, int value) {
        boundary_.Run("Joystick_AxisMoved", [&] { controller_.AxisMoved(axis, value); });
    });
    connect(&source_, &SdlJoystick::ButtonChanged, this, [this](int button, bool pressed) {
        boundary_.Run("Joystick_ButtonChanged",
                      [&] { controller_.ButtonChanged(button, pressed); });
    });
    connect(&source_, &SdlJoystick::ControllerLost, this,
            [this] { boundary_.Run("Joystick_Lost", [&] { controller_.ControllerLost(); }); });
    connect(&source_, &SdlJoystick::ControllerChanged, this, &Gamepad::ShowController);
}

Gamepad::~Gamepad() = default;

FrmJoystick* Gamepad::JoystickWindow() const {
    return joystickWindow_;
}

void Gamepad::StartLater(int delayMs) {
    QTimer::singleShot(delayMs, this,
                       [this] { boundary_.Run("Joystick_Start", [&] { Start(); }); });
}

bool Gamepad::WantedAtStart() const {
    if (IsNoPlainFile(bindingsPath_)) {
        return false;
    }
    return QSettings(bindingsPath_, QSettings::IniFormat)
        .value(QStringLiteral("Joystick/InUse"), false)
        .toBool();
}

void Gamepad::Start() {
    if (source_.Started()) {
        return;
    }
    if (!status_) {
        status_ = new ui::StatusText(&window_, "JoystickStatusLabel");
        window_.statusBar()->addWidget(status_);
    }
    if (!source_.Start()) {
        status_->Show(QCoreApplication::translate("Gamepad", "Joystick: unavailable"),
                      source_.ErrorText());
        return;
    }
    ShowController(source_.ControllerName());
}

void Gamepad::ShowController(const QString& name) {
    if (status_) {
        status_->Show(QCoreApplication::translate("Gamepad", "Joystick: ") +
                      (name.isEmpty() ? QCoreApplication::translate("Gamepad", "none") : name));
    }
    if (joystickWindow_) {
        joystickWindow_->ShowController(name);
    }
}

void Gamepad::JoystickOption_Click() {
    Start();
    if (!IsNoPlainFile(bindingsPath_)) {
        QSettings(bindingsPath_, QSettings::IniFormat)
            .setValue(QStringLiteral("Joystick/InUse"), true);
    }
    if (!joystickWindow_) {
        joystickWindow_ = new FrmJoystick(controller_.Bindings(), &window_);
        joystickWindow_->setAttribute(Qt::WA_DeleteOnClose);
        connect(joystickWindow_, &FrmJoystick::BindingsChanged, this,
                [this](const GamepadBindings& bindings) {
                    boundary_.Run("FrmJoystick_Change", [&] {
                        controller_.SetBindings(bindings);
                        WriteGamepadBindings(bindingsPath_, bindings);
                    });
                });
        joystickWindow_->ShowController(source_.ControllerName());
    }
    joystickWindow_->show();
    joystickWindow_->raise();
    joystickWindow_->activateWindow();
}

} // namespace quellpad
