#include "main_window_fixture.h"

#include "gamepad/frm_joystick.h"
#include "gamepad/gamepad.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include <SDL.h>

namespace quellpad::test {
namespace {

// A virtual SDL joystick plugged into a running main window, driven from the test; the
// frames are read on COM 1's pseudo-terminal.
class VirtualJoystickTest : public MainWindowFixture {
protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        Load("D");
    }
    void Load(const char* mode) {
        Unplug();
        gamepad_.reset();
        Start(mode);
        gamepad_ = std::make_unique<Gamepad>(*window_, *keyboard_, dir_.filePath("Bindings.ini"));
        gamepad_->Start();
        ASSERT_TRUE(gamepad_->Source().Started()) << gamepad_->Source().ErrorText().toStdString();
    }
    void TearDown() override {
        Unplug();
        gamepad_.reset();
        MainWindowFixture::TearDown();
    }
    // A gamepad: axes 0 to 3 two sticks, 4 and 5 triggers resting fully out (-32768).
    void Plug() {
        device_ = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 6, 16, 0);
        ASSERT_GE(device_, 0) << SDL_GetError();
        stick_ = SDL_JoystickOpen(device_);
        ASSERT_NE(stick_, nullptr) << SDL_GetError();
        ASSERT_TRUE(WaitUntil([&] { return !gamepad_->Source().ControllerName().isEmpty(); }));
    }
    void Unplug() {
        if (stick_) {
            SDL_JoystickClose(stick_);
            SDL_JoystickDetachVirtual(device_);
            stick_ = nullptr;
        }
    }
    void Axis(int axis, int value) {
        SDL_JoystickSetVirtualAxis(stick_, axis, static_cast<Sint16>(value));
    }
    void Button(int button, bool pressed) {
        SDL_JoystickSetVirtualButton(stick_, button, pressed ? SDL_PRESSED : SDL_RELEASED);
    }
    QString Status() const { return Child<QLabel>("JoystickStatusLabel")->text(); }

    std::unique_ptr<Gamepad> gamepad_;
    int device_ = -1;
    SDL_Joystick* stick_ = nullptr;
};

TEST_F(VirtualJoystickTest, StickDrivesTheCameraAndUnplugStopsIt) {
    EXPECT_EQ(Status(), QStringLiteral("Joystick: none"));
    Plug();
    EXPECT_TRUE(Status().startsWith(QStringLiteral("Joystick: "))) << Status().toStdString();
    EXPECT_NE(Status(), QStringLiteral("Joystick: none")) << "a stick plugged in later is found";
    EXPECT_EQ(com1_.Drain(250), QByteArray()) << "a stick at rest sends nothing";

    Axis(0, 32767);
    Axis(1, -32768);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff01000a403f8a")) << "right 64, up 63";
    QWidget* ball = Child("Joystick_Ball");
    QWidget* square = Child("Joystick_Square");
    EXPECT_GT(ball->geometry().center().x(), square->geometry().center().x());
    EXPECT_LT(ball->geometry().center().y(), square->geometry().center().y());

    Axis(2, 0);
    QTest::qWait(30);
    Axis(2, 32767);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff01002a403faa")) << "twist: zoom in as well";

    Unplug();
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010000000001")) << "stop at the next tick";
    EXPECT_TRUE(WaitUntil([&] { return Status() == QStringLiteral("Joystick: none"); }));
}

TEST_F(VirtualJoystickTest, TextModesSendTheOnScreenTextsAndStop) {
    const struct {
        const char* mode;
        QByteArray moving;
        QByteArray stopped;
    } cases[] = {// full deflection, 97% of the way to the edge: the computed speed, past the limit
                 {"ASCII", "65La", "sa"},
                 {"MUX ASCII", "dLm", "~dLm"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mode);
        Load(c.mode);
        Plug();
        Axis(0, 0);
        QTest::qWait(30);
        Axis(0, -32768);
        EXPECT_EQ(com1_.Read(static_cast<int>(c.moving.size())), c.moving);
        Axis(0, 0);
        EXPECT_EQ(com1_.Read(static_cast<int>(c.stopped.size())), c.stopped);
        EXPECT_EQ(com1_.Drain(250), QByteArray());
    }
}

TEST_F(VirtualJoystickTest, JoystickWindowSettingsTakeEffectAndAreKept) {
    Plug();
    Choose("JoystickOption");
    FrmJoystick* settings = gamepad_->JoystickWindow();
    ASSERT_NE(settings, nullptr);
    EXPECT_TRUE(settings->isVisible());
    EXPECT_FALSE(settings->isModal());
    settings->findChild<QCheckBox*>(QStringLiteral("InvertPanCheck"))->setChecked(true);
    settings->findChild<QComboBox*>(QStringLiteral("Button1List"))
        ->setCurrentText(QStringLiteral("Preset 5"));
    settings->findChild<QComboBox*>(QStringLiteral("ZoomAxisList"))
        ->setCurrentText(QStringLiteral("Axis 5"));
    Axis(4, -30000); // the left trigger, resting out: no zoom until it has been at the centre

    Axis(0, 0);
    QTest::qWait(30);
    Axis(0, 32767);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010004400045")) << "inverted: left 64";
    Axis(4, 0);
    QTest::qWait(30);
    Axis(4, 32767);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010024400065")) << "trigger pulled: zoom in";
    Button(0, true);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff01000700050d"));
    EXPECT_EQ(ReadGamepadBindings(dir_.filePath("Bindings.ini")).zoomAxis, 4);

    const GamepadBindings kept = ReadGamepadBindings(dir_.filePath("Bindings.ini"));
    EXPECT_TRUE(kept.invertPan);
    EXPECT_EQ(GamepadActionName(kept.buttons[0]), QStringLiteral("Preset 5"));
}

TEST_F(VirtualJoystickTest, ButtonsWorkLensAndPresetsHeldOrLocked) {
    Plug();
    Button(4, true); // Zoom In, held
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010020000021"));
    Button(4, false);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010000000001"));

    Button(8, true); // Preset 3
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff01000700030b"));
    Button(8, false);

    Choose("ControlLock");
    auto* zoomIn = Child<QPushButton>("ZoomIn");
    Button(4, true);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010020000021"));
    Button(4, false);
    EXPECT_EQ(zoomIn->text(), QStringLiteral("Zoom In On")) << "locked: a press toggles";
    EXPECT_EQ(com1_.Drain(250), QByteArray()) << "the release leaves it on";
    Button(4, true);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010000000001")) << "and the next press off";
    EXPECT_EQ(zoomIn->text(), QStringLiteral("Zoom In Off"));
}

} // namespace
} // namespace quellpad::test
