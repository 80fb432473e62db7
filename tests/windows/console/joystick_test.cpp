#include "console/joystick.h"

#include <gtest/gtest.h>

namespace quellpad {
namespace {

// A 3000-twip square centred in a 9000-twip window: rest point 4500, dead size 150,
// half-size 1500 on both axes.
const JoystickGeometry kGeometry{3000, 3000, 3000, 3000, 9000, 9000};

class JoystickTest : public ::testing::Test {
protected:
    bool Move(int button, double x, double y) {
        return UpdateJoystick(keyboard_, state_, button, x, y, kGeometry);
    }
    Quellpad_Support_Func keyboard_{[](int) -> std::unique_ptr<SerialLine> {
        return std::make_unique<SerialDevice>(0, QStringLiteral("/dev/quellpad-none"));
    }};
    JoystickState state_;
};

TEST(JoystickSpeedRule, DeadZoneMinimumAndEdge) {
    const std::tuple<double, double, int> cases[] = {
        // distance, scale, speed (half-size 1500, dead size 150)
        {150, 60, 0},
        {151, 60, 7},
        {150 + 1350.0 * 57 / 60, 60, 64},
        {1499, 60, 66},
        {1500, 60, 67},
        {1499, 59, 65},
        {1500, 59, 66},
        {150 + 675, 60, 37},
        {150 + 1350.0 * 56 / 59, 59, 63},
        {150 + 1350.0 * 55.5 / 59, 59, 62}};
    for (const auto& [distance, scale, speed] : cases) {
        EXPECT_EQ(JoystickSpeed(distance, 1500, 150, scale), speed) << distance;
    }
}

TEST_F(JoystickTest, DirectionsSpeedsAndTextsPerMode) {
    struct Case {
        const char* mode;
        double x, y;
        const char* lastSent;
        int command2, data1, data2;
        const char* ascii;
    };
    const Case cases[] = {
        {"D", 4500 - 825, 4500 - 825, "", 0x0C, 37, 36, ""},
        {"P", 4500 + 150, 4500 + 151, "", 0x10, 0, 7, ""},
        {"D", 4500, 4500, "", 0x00, 0, 0, ""},
        {"ASCII", 4500 + 825, 4500 + 600, "", 0, 37, 26, "37Ra26Da"},
        {"ASCII", 4500, 4500 + 600, "37Ra26Da", 0, 0, 26, "~Ra26Da"},
        {"ASCII", 4500 + 10, 4500 - 10, "37Ra", 0, 0, 0, "sa"},
        // Near the edge the registers hold the limits, the text the computed speeds.
        {"ASCII", 4500 + 1499, 4500 + 1499, "", 0, 64, 63, "66Ra65Da"},
        {"ASCII", 4500 - 1499, 4500 - 1499, "", 0, 64, 63, "66La65Ua"},
        {"MUX ASCII", 4500 + 825, 4500 - 825, "", 0, 37, 36, "dRmdUm"},
        {"MUX ASCII", 4500, 4500 - 825, "dLmdUm", 0, 0, 36, "~dLmdUm"},
    };
    for (const Case& c : cases) {
        keyboard_.CurrentMode = QLatin1String(c.mode);
        keyboard_.LastAsciiCommand = QLatin1String(c.lastSent);
        keyboard_.Command2 = 0;
        ASSERT_TRUE(Move(kLeftButton, c.x, c.y)) << c.mode;
        EXPECT_EQ(keyboard_.Command2, c.command2) << c.mode << " " << c.x << "," << c.y;
        EXPECT_EQ(keyboard_.Data1, c.data1) << c.mode << " " << c.x << "," << c.y;
        EXPECT_EQ(keyboard_.Data2, c.data2) << c.mode << " " << c.x << "," << c.y;
        EXPECT_EQ(keyboard_.AsciiCommand, QLatin1String(c.ascii)) << c.mode;
    }
}

TEST_F(JoystickTest, TheBorderIsOutsideAndOutsideChangesNothing) {
    keyboard_.CurrentMode = kModeD;
    keyboard_.Command2 = 0x20;
    for (const auto& [x, y] : {std::pair{3000.0, 4000.0},
                               {6000.0, 4000.0},
                               {4000.0, 3000.0},
                               {4000.0, 6000.0},
                               {100.0, 100.0}}) {
        EXPECT_FALSE(Move(kLeftButton, x, y));
    }
    EXPECT_EQ(keyboard_.Command2, 0x20);
    EXPECT_FALSE(state_.JoystickDragging);
}

TEST_F(JoystickTest, AOneShotCommandIsClearedByThePress) {
    keyboard_.CurrentMode = kModeD;
    keyboard_.Command1 = 0;
    keyboard_.Command2 = 7;
    keyboard_.Data2 = 12;
    Move(kLeftButton, 4500 + 825, 4500);
    EXPECT_EQ(keyboard_.Command2, 0x02);
    EXPECT_EQ(keyboard_.Data2, 0);
}

TEST_F(JoystickTest, ReleaseStopsPanAndTiltButKeepsTheLens) {
    keyboard_.CurrentMode = kModeMuxAscii;
    Move(kLeftButton, 4500 - 825, 4500 - 825);
    keyboard_.LastAsciiCommand = keyboard_.AsciiCommand;
    keyboard_.Command2 |= 0x20;
    EXPECT_TRUE(ReleaseJoystick(keyboard_, state_));
    EXPECT_EQ(keyboard_.Command2, 0x20);
    EXPECT_EQ(keyboard_.AsciiCommand, QStringLiteral("~dLm~dUm"));
    EXPECT_FALSE(ReleaseJoystick(keyboard_, state_)) << "a second release has nothing to stop";
}

TEST_F(JoystickTest, RightButtonLatchFollowsThePointerUntilTheNextRightPress) {
    keyboard_.CurrentMode = kModeD;
    EXPECT_TRUE(Move(kRightButton, 4500 + 825, 4500)); // latch on, knob jumps there
    EXPECT_FALSE(ReleaseJoystick(keyboard_, state_));  // its release does not stop
    EXPECT_TRUE(Move(0, 4500 - 825, 4500));            // follows with no button held
    EXPECT_EQ(keyboard_.Command2, 0x04);
    EXPECT_FALSE(Move(kRightButton, 4500, 4500)); // latch off, nothing else
    EXPECT_EQ(keyboard_.Command2, 0x04);
    EXPECT_TRUE(ReleaseJoystick(keyboard_, state_)); // that release stops
    EXPECT_EQ(keyboard_.Command2, 0);
    EXPECT_FALSE(Move(0, 4500 + 825, 4500));
}

TEST_F(JoystickTest, ControlLockHoldsTheMotionOnRelease) {
    keyboard_.CurrentMode = kModeD;
    keyboard_.ControlLockOn = true;
    Move(kLeftButton, 4500 + 825, 4500);
    EXPECT_FALSE(ReleaseJoystick(keyboard_, state_));
    EXPECT_EQ(keyboard_.Command2, 0x02);
    EXPECT_EQ(keyboard_.Data1, 37);
}

} // namespace
} // namespace quellpad
