#include "window_fixture.h"

#include "dialogs/extended_commands.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

namespace quellpad::test {
namespace {

QByteArray Loaded(const LevelAdjusters::Step& step) {
    return Bytes(step.bytes.command1, step.bytes.command2, step.bytes.data1, step.bytes.data2);
}

class ExtendedCommandsTest : public WindowFixture<FrmExtendedCommands> {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        window_ = std::make_unique<FrmExtendedCommands>(*keyboard_, levels_);
    }
    void SetShutter(const char* option, const char* combo, const QString& speed) {
        Child<QRadioButton>(option)->click();
        Child<QComboBox>(combo)->setCurrentText(speed);
        Child("SetShutterSpeedButton")->click();
    }

    LevelAdjusters levels_;
};

TEST_F(ExtendedCommandsTest, EachFixedButtonLoadsItsCommandIncludingTheTwoIrregularRows) {
    const std::pair<const char*, const char*> rows[] = {
        {"AutoFocusOnButton", "002b0000"}, {"AutoFocusOffButton", "002b0001"},
        {"AutoIrisOnButton", "002d0000"},  {"AutoIrisOffButton", "002d0001"},
        {"AutoAgcOnButton", "002f0000"},   {"AutoAgcOffButton", "002d0001"},
        {"AutoWhiteOnButton", "00330002"}, {"AutoWhiteOffButton", "00330001"},
        {"BacklightOnButton", "00310002"}, {"BacklightOffButton", "00310001"},
        {"ResetCamButton", "00290000"},    {"QueryButton", "00450000"},
    };
    for (const auto& [name, hex] : rows) {
        keyboard_->Command2 = keyboard_->LastCommand2 = 0xEE;
        Child(name)->click();
        EXPECT_EQ(Registers(*keyboard_), QByteArray::fromHex(hex)) << name;
        EXPECT_EQ(keyboard_->LastCommand2, 0) << name;
    }
}

TEST_F(ExtendedCommandsTest, ShutterSpeedsOfBothStandardsWithTheLateNtscHundred) {
    const char* ntsc[] = {"Auto", "2",   "4",   "8",    "15",   "30",   "60",    "100",  "120",
                          "180",  "250", "500", "1000", "2000", "4000", "10000", "30000"};
    const int ntscCodes[] = {0, 1, 2, 3, 4, 5, 6, 0x10, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    const char* pal[] = {"Auto", "1.5", "3",   "6",    "12",   "25",   "50",    "100",
                         "150",  "250", "500", "1000", "2000", "4000", "10000", "30000"};
    ASSERT_EQ(kNtscShutterSpeeds.size(), 17);
    for (int i = 0; i < 17; ++i) {
        EXPECT_EQ(kNtscShutterSpeeds[i], QLatin1String(ntsc[i])) << "NTSC list order";
        EXPECT_EQ(ShutterSpeedCode(true, QLatin1String(ntsc[i])), ntscCodes[i]) << ntsc[i];
    }
    ASSERT_EQ(kPalShutterSpeeds.size(), 16);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(kPalShutterSpeeds[i], QLatin1String(pal[i])) << "PAL list order";
        EXPECT_EQ(ShutterSpeedCode(false, QLatin1String(pal[i])), i) << pal[i];
    }
    EXPECT_FALSE(ShutterSpeedCode(true, QStringLiteral("1.5")));

    EXPECT_FALSE(Child("SetShutterSpeedButton")->isEnabled()) << "until a standard is chosen";
    SetShutter("OptionPAL", "ComboPAL", QStringLiteral("100"));
    EXPECT_EQ(Registers(*keyboard_), QByteArray::fromHex("00370007"));
    SetShutter("OptionNTSC", "ComboNTSC", QStringLiteral("100"));
    EXPECT_TRUE(Child<QComboBox>("ComboPAL")->isHidden());
    EXPECT_EQ(Registers(*keyboard_), QByteArray::fromHex("00370010"));
}

TEST_F(ExtendedCommandsTest, GainsRunInTensAfterALongHoldAndTheIrisStopsAtItsBounds) {
    LevelAdjusters a;
    const auto hold = [&](AdjustTarget target, AdjustSign sign, int ticks) {
        a.Press(target, sign);
        QList<int> seen;
        for (int tick = 0; tick < ticks; ++tick) {
            const LevelAdjusters::Step step = a.Tick();
            seen << (step.stopTimer ? -1 : step.level); // -1: the timer switched itself off
        }
        return seen;
    };
    const QList<int> red = hold(AdjustTarget::RedGain, AdjustSign::Up, 160);
    EXPECT_EQ(red.mid(0, 2), (QList<int>{1, 2}));
    EXPECT_EQ(red.mid(47, 4), (QList<int>{48, 49, 59, 69}))
        << "tens from the 50th tick on, the test made on the value before the step";
    EXPECT_EQ(red.mid(144, 8), (QList<int>{1009, 1019, 1020, 1021, 1022, 1023, 1024, 1024}))
        << "the timer keeps running at the bound";
    EXPECT_EQ(Loaded(a.Tick()), QByteArray::fromHex("003b0400"));

    a.Release();
    a.BlueGain = 15;
    a.HoldTicks = 50;
    EXPECT_EQ(hold(AdjustTarget::BlueGain, AdjustSign::Down, 8),
              (QList<int>{5, 4, 3, 2, 1, 0, 0, 0}));
    EXPECT_EQ(Loaded(a.Tick()), QByteArray::fromHex("003d0000"));

    a.Release();
    QList<int> level = hold(AdjustTarget::IrisLevel, AdjustSign::Up, 257);
    EXPECT_EQ(level[12], 13) << "the iris moves by one even after a long hold";
    EXPECT_EQ(level.mid(254), (QList<int>{255, -1, -1}));
    EXPECT_EQ(Loaded(a.Tick()), QByteArray::fromHex("004100ff"));
    EXPECT_EQ(hold(AdjustTarget::IrisPeak, AdjustSign::Up, 129).mid(126),
              (QList<int>{127, -1, -1}));
    EXPECT_EQ(Loaded(a.Tick()), QByteArray::fromHex("0043007f"));
    EXPECT_EQ(hold(AdjustTarget::IrisPeak, AdjustSign::Down, 1), QList<int>{126});
}

TEST_F(ExtendedCommandsTest, HoldingAnAdjusterStepsOnTheRealTimerUntilReleased) {
    auto* timer = Child<QTimer>("AdjustTimer");
    EXPECT_EQ(timer->interval(), 50);
    QPushButton* up = Child("IrisLevelUpButton");
    QTest::mousePress(up, Qt::LeftButton);
    // The pointer leaving the button changes nothing: only the release ends the hold.
    QTest::mouseMove(window_.get(), QPoint(1, 1));
    ASSERT_TRUE(WaitUntil([&] { return levels_.IrisLevel >= 3; }));
    QTest::mouseRelease(up, Qt::LeftButton);
    EXPECT_FALSE(timer->isActive());
    const int level = levels_.IrisLevel;
    EXPECT_EQ(Registers(*keyboard_), Bytes(0x00, 0x41, 0x00, static_cast<std::uint8_t>(level)));
    EXPECT_EQ(Child<QLabel>("IrisLevelPic")->text(), QString::number(level));

    QPushButton* down = Child("RedGainDownButton");
    down->setFocus();
    QTest::keyPress(down, Qt::Key_Space);
    EXPECT_TRUE(timer->isActive()) << "Space held on the button works like the mouse";
    QTest::keyRelease(down, Qt::Key_Space);
    EXPECT_FALSE(timer->isActive());

    window_->reject();
    EXPECT_EQ(Registers(*keyboard_), QByteArray(4, 0));
    EXPECT_EQ(levels_.IrisLevel, level) << "the levels outlive the window";
}

} // namespace
} // namespace quellpad::test
