#include "stick_mapping.h"

#include "engine/errors.h"
#include "engine/numeric.h"
#include "engine/plain_file.h"

#include <QCoreApplication>
#include <QSettings>

#include <algorithm>
#include <cmath>

namespace quellpad {

namespace {

constexpr int kPresetButtons = 8;
// Full deflection lands this far out between the square's dead zone and its edge: past
// the point where both axes reach their limits (57/60 and 56/59 of the way), short of the
// edge, where the pointer would count as outside.
constexpr double kFullReach = 0.97;

const char* CurveName(StickCurve curve) {
    return curve == StickCurve::Squared ? "squared" : "linear";
}

} // namespace

QList<GamepadAction> AllGamepadActions() {
    QList<GamepadAction> actions{GamepadAction{}};
    for (const LensButton lens : kLensButtons) {
        actions.append({GamepadAction::Kind::Lens, lens, 0});
    }
    for (int preset = 1; preset <= kPresetButtons; ++preset) {
        actions.append({GamepadAction::Kind::PresetGo, LensButton::FocusNear, preset});
    }
    return actions;
}

QString GamepadActionName(const GamepadAction& action) {
    switch (action.kind) {
    case GamepadAction::Kind::Lens:
        return LensEnglishCaption(action.lens);
    case GamepadAction::Kind::PresetGo:
        return QStringLiteral("Preset %1").arg(action.preset);
    case GamepadAction::Kind::None:
        break;
    }
    return QStringLiteral("None");
}

QString GamepadActionCaption(const GamepadAction& action) {
    switch (action.kind) {
    case GamepadAction::Kind::Lens:
        return LensPlainCaption(action.lens);
    case GamepadAction::Kind::PresetGo:
        return QCoreApplication::translate("FrmJoystick", "Preset %1").arg(action.preset);
    case GamepadAction::Kind::None:
        break;
    }
    return QCoreApplication::translate("FrmJoystick", "None");
}

GamepadAction GamepadActionNamed(const QString& name) {
    for (const GamepadAction& action : AllGamepadActions()) {
        if (GamepadActionName(action) == name) {
            return action;
        }
    }
    return {};
}

GamepadBindings DefaultGamepadBindings() {
    GamepadBindings bindings;
    const QList<GamepadAction> actions = AllGamepadActions();
    for (int button = 0; button < kMappedButtons; ++button) {
        bindings.buttons.append(button + 1 < actions.size() ? actions[button + 1]
                                                            : GamepadAction{});
    }
    return bindings;
}

GamepadBindings ReadGamepadBindings(const QString& path) {
    GamepadBindings b = DefaultGamepadBindings();
    if (IsNoPlainFile(path)) {
        return b; // the start-up problems name the file
    }
    QSettings file(path, QSettings::IniFormat);
    file.beginGroup(QStringLiteral("Joystick"));
    auto axis = [&](const char* key, int fallback) {
        bool ok = false;
        const int value = file.value(QLatin1String(key)).toInt(&ok);
        return ok && value >= kNoAxis && value < 16 ? value : fallback;
    };
    b.panAxis = axis("PanAxis", b.panAxis);
    b.tiltAxis = axis("TiltAxis", b.tiltAxis);
    b.zoomAxis = axis("ZoomAxis", b.zoomAxis);
    b.invertPan = file.value(QStringLiteral("InvertPan"), false).toBool();
    b.invertTilt = file.value(QStringLiteral("InvertTilt"), false).toBool();
    b.invertZoom = file.value(QStringLiteral("InvertZoom"), false).toBool();
    bool ok = false;
    const double dead = file.value(QStringLiteral("DeadZone")).toDouble(&ok);
    if (ok && dead >= 0 && dead <= 0.9) {
        b.deadZone = dead;
    }
    b.curve = file.value(QStringLiteral("Curve")).toString() == QLatin1String("squared")
                  ? StickCurve::Squared
                  : StickCurve::Linear;
    for (int button = 0; button < kMappedButtons; ++button) {
        const QString key = QStringLiteral("Button%1").arg(button + 1);
        if (file.contains(key)) {
            b.buttons[button] = GamepadActionNamed(file.value(key).toString());
        }
    }
    return b;
}

void WriteGamepadBindings(const QString& path, const GamepadBindings& b) {
    if (IsNoPlainFile(path)) {
        throw SettingsError(QCoreApplication::translate(
                                "FrmJoystick", "The joystick's settings could not be kept: %1.")
                                .arg(NotPlainFileText(QStringLiteral("Bindings.ini"), path)));
    }
    QSettings file(path, QSettings::IniFormat);
    file.beginGroup(QStringLiteral("Joystick"));
    file.setValue(QStringLiteral("PanAxis"), b.panAxis);
    file.setValue(QStringLiteral("TiltAxis"), b.tiltAxis);
    file.setValue(QStringLiteral("ZoomAxis"), b.zoomAxis);
    file.setValue(QStringLiteral("InvertPan"), b.invertPan);
    file.setValue(QStringLiteral("InvertTilt"), b.invertTilt);
    file.setValue(QStringLiteral("InvertZoom"), b.invertZoom);
    file.setValue(QStringLiteral("DeadZone"), b.deadZone);
    file.setValue(QStringLiteral("Curve"), QLatin1String(CurveName(b.curve)));
    for (int button = 0; button < b.buttons.size(); ++button) {
        file.setValue(QStringLiteral("Button%1").arg(button + 1),
                      GamepadActionName(b.buttons[button]));
    }
}

double ShapeAxis(int raw, bool invert, double deadZone, StickCurve curve) {
    double value = std::clamp(raw / 32767.0, -1.0, 1.0);
    if (invert) {
        value = -value;
    }
    const double magnitude = std::abs(value);
    if (magnitude <= deadZone || deadZone >= 1) {
        return 0;
    }
    double shaped = (magnitude - deadZone) / (1 - deadZone);
    if (curve == StickCurve::Squared) {
        shaped *= shaped;
    }
    return std::copysign(shaped, value);
}

QPointF StickPointer(double pan, double tilt, const JoystickGeometry& g) {
    // The same rest point and dead sizes as the speed rule measures with.
    const double restX = RoundHalfEven(g.windowWidth / 2);
    const double restY = RoundHalfEven(g.windowHeight / 2);
    const double deadX = IntPart((g.squareLeft + g.squareWidth - RoundHalfEven(g.squareLeft)) / 20);
    const double deadY = IntPart((g.squareTop + g.squareHeight - RoundHalfEven(g.squareTop)) / 20);
    const double right = g.squareLeft + g.squareWidth;
    const double bottom = g.squareTop + g.squareHeight;
    auto offset = [](double deflection, double half, double dead) {
        if (deflection == 0) {
            return 0.0;
        }
        const double reach = dead + std::abs(deflection) * (half - dead) * kFullReach;
        // Past the dead size by at least a hair, so the smallest deflection moves at 7.
        return std::copysign(std::max(reach, dead + 0.5), deflection);
    };
    const double x = restX + offset(pan, right - restX, deadX);
    const double y = restY + offset(tilt, bottom - restY, deadY);
    // A square laid out a pixel off-centre is shorter on one side: stay inside it.
    return {std::clamp(x, g.squareLeft + 1, right - 1), std::clamp(y, g.squareTop + 1, bottom - 1)};
}

} // namespace quellpad
