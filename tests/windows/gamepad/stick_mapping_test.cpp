#include "hostile_files.h"

#include "engine/errors.h"
#include "gamepad/stick_mapping.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quellpad {
namespace {

// The geometry of the on-screen joystick tests: a 3000-twip square centred in a
// 9000-twip window, dead size 150.
const JoystickGeometry kGeometry{3000, 3000, 3000, 3000, 9000, 9000};

TEST(StickMapping, AxisShapeDeadZoneInversionAndCurve) {
    struct Case {
        int raw;
        bool invert;
        double dead;
        StickCurve curve;
        double shaped;
    };
    const Case cases[] = {
        {0, false, 0.15, StickCurve::Linear, 0},
        {4915, false, 0.15, StickCurve::Linear, 0}, // inside the dead zone
        {32767, false, 0.15, StickCurve::Linear, 1},
        {-32768, false, 0.15, StickCurve::Linear, -1},
        {32767, true, 0.15, StickCurve::Linear, -1},
        {16384, false, 0, StickCurve::Linear, 0.5},
        {16384, false, 0, StickCurve::Squared, 0.25},
        {-16384, false, 0, StickCurve::Squared, -0.25},
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(ShapeAxis(c.raw, c.invert, c.dead, c.curve), c.shaped, 0.001) << c.raw;
    }
}

// The stick goes through the same speed rule as a mouse drag: full deflection gives the
// limits 64 and 63, the slightest deflection 7. The texts are the drag's (JoystickTest).
TEST(StickMapping, DeflectionGivesTheOnScreenDirectionsAndSpeeds) {
    struct Case {
        const char* mode;
        double pan, tilt;
        int command2, data1, data2;
    };
    const Case cases[] = {
        {"D", 1, 1, 0x12, 64, 63}, {"P", -1, -1, 0x0C, 64, 63}, {"D", 0.001, 0, 0x02, 7, 0},
        {"D", 0, 0, 0, 0, 0},      {"P", -1, 1, 0x14, 64, 63},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.mode << " " << c.pan << "," << c.tilt);
        Quellpad_Support_Func keyboard([](int) -> std::unique_ptr<SerialLine> {
            return std::make_unique<SerialDevice>(0, QStringLiteral("/dev/quellpad-none"));
        });
        keyboard.CurrentMode = QLatin1String(c.mode);
        JoystickState state;
        const QPointF at = StickPointer(c.pan, c.tilt, kGeometry);
        ASSERT_TRUE(UpdateJoystick(keyboard, state, kLeftButton, at.x(), at.y(), kGeometry));
        EXPECT_EQ(keyboard.Command2, c.command2);
        EXPECT_EQ(keyboard.Data1, c.data1);
        EXPECT_EQ(keyboard.Data2, c.data2);
    }
}

TEST(StickMapping, BindingsSurviveTheFileAndDamageTakesDefaults) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Bindings.ini"));
    EXPECT_EQ(ReadGamepadBindings(path), DefaultGamepadBindings()) << "no file yet";

    GamepadBindings chosen = DefaultGamepadBindings();
    chosen.panAxis = 2;
    chosen.zoomAxis = kNoAxis;
    chosen.invertTilt = true;
    chosen.deadZone = 0.3;
    chosen.curve = StickCurve::Squared;
    chosen.buttons[0] = GamepadActionNamed(QStringLiteral("Preset 8"));
    chosen.buttons[15] = GamepadActionNamed(QStringLiteral("Iris Close"));
    WriteGamepadBindings(path, chosen);
    EXPECT_EQ(ReadGamepadBindings(path), chosen);

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("[Joystick]\nPanAxis=junk\nTiltAxis=3\nDeadZone=7\nButton2=Launch\n");
    file.close();
    const GamepadBindings damaged = ReadGamepadBindings(path);
    EXPECT_EQ(damaged.panAxis, 0);
    EXPECT_EQ(damaged.tiltAxis, 3);
    EXPECT_EQ(damaged.deadZone, 0.15);
    EXPECT_EQ(damaged.buttons[0], DefaultGamepadBindings().buttons[0]);
    EXPECT_EQ(damaged.buttons[1], GamepadAction{});
}

// A FIFO where Bindings.ini belongs is never opened: the joystick starts on its defaults
// and a change of its settings is refused with the file named.
TEST(StickMapping, AFifoNamedBindingsIniIsNotWaitedOnAndTheDefaultsStand) {
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("Bindings.ini"));
    ASSERT_TRUE(test::MakeFifo(fifo));
    GamepadBindings read;
    read.panAxis = 5;
    EXPECT_TRUE(test::FinishesWithin([&] { read = ReadGamepadBindings(fifo); }, fifo));
    EXPECT_EQ(read, DefaultGamepadBindings());
    QString refusal;
    EXPECT_TRUE(test::FinishesWithin(
        [&] {
            try {
                WriteGamepadBindings(fifo, DefaultGamepadBindings());
            } catch (const SettingsError& error) {
                refusal = error.Message();
            }
        },
        fifo));
    EXPECT_EQ(refusal, QStringLiteral("The joystick's settings could not be kept: Bindings.ini "
                                      "at %1 is not a plain file.")
                           .arg(fifo));
}

} // namespace
} // namespace quellpad
