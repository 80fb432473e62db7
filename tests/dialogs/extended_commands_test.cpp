#include "fixtures.h"

#include "dialogs/extended_commands.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

namespace quellpad::test {
namespace {

using Bytes = std::array<std::uint8_t, 4>;

Bytes Registers(const Quellpad_Support_Func& k) {
    return {k.Command1, k.Command2, k.Data1, k.Data2};
}
Bytes Of(const CommandBytes& b) {
    return {b.command1, b.command2, b.data1, b.data2};
}

class ExtendedCommandsTest : public KeyboardFixture {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        window_ = std::make_unique<FrmExtendedCommands>(*keyboard_, levels_);
    }
    void TearDown() override {
        window_.reset();
        KeyboardFixture::TearDown();
    }
    template <class T = QPushButton> T* Child(const char* name) const {
        T* child = window_->findChild<T*>(QLatin1String(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }

    LevelAdjusters levels_;
    std::unique_ptr<FrmExtendedCommands> window_;
};

TEST_F(ExtendedCommandsTest, EachFixedButtonLoadsItsCommandIncludingTheTwoIrregularRows) {
    const std::pair<const char*, Bytes> rows[] = {
        {"AutoFocusOnButton", {0x00, 0x2B, 0x00, 0x00}},
        {"AutoFocusOffButton", {0x00, 0x2B, 0x00, 0x01}},
        {"AutoIrisOnButton", {0x00, 0x2D, 0x00, 0x00}},
        {"AutoIrisOffButton", {0x00, 0x2D, 0x00, 0x01}},
        {"AutoAgcOnButton", {0x00, 0x2F, 0x00, 0x00}},
        {"AutoAgcOffButton", {0x00, 0x2D, 0x00, 0x01}},
        {"AutoWhiteOnButton", {0x00, 0x33, 0x00, 0x02}},
        {"AutoWhiteOffButton", {0x00, 0x33, 0x00, 0x01}},
        {"BacklightOnButton", {0x00, 0x31, 0x00, 0x02}},
        {"BacklightOffButton", {0x00, 0x31, 0x00, 0x01}},
        {"ResetCamButton", {0x00, 0x29, 0x00, 0x00}},
        {"QueryButton", {0x00, 0x45, 0x00, 0x00}},
    };
    for (const auto& [name, bytes] : rows) {
        keyboard_->Command2 = 0xEE;
        keyboard_->LastCommand2 = 0xEE;
        Child(name)->click();
        EXPECT_EQ(Registers(*keyboard_), bytes) << name;
        EXPECT_EQ(keyboard_->LastCommand2, 0) << name;
    }
}

TEST_F(ExtendedCommandsTest, ShutterSpeedsOfBothStandardsWithTheLateNtscHundred) {
    const QStringList ntsc{"Auto", "2",   "4",   "8",    "15",   "30",   "60",    "100",  "120",
                           "180",  "250", "500", "1000", "2000", "4000", "10000", "30000"};
    const int ntscCodes[] = {0, 1, 2, 3, 4, 5, 6, 0x10, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    const QStringList pal{"Auto", "1.5", "3",   "6",    "12",   "25",   "50",    "100",
                          "150",  "250", "500", "1000", "2000", "4000", "10000", "30000"};
    ASSERT_EQ(kNtscShutterSpeeds, ntsc);
    ASSERT_EQ(kPalShutterSpeeds, pal);
    for (qsizetype i = 0; i < ntsc.size(); ++i) {
        EXPECT_EQ(ShutterSpeedCode(true, ntsc[i]), ntscCodes[i]) << ntsc[i].toStdString();
    }
    for (qsizetype i = 0; i < pal.size(); ++i) {
        EXPECT_EQ(ShutterSpeedCode(false, pal[i]), i) << pal[i].toStdString();
    }
    EXPECT_FALSE(ShutterSpeedCode(true, QStringLiteral("1.5")));
    EXPECT_FALSE(ShutterSpeedCode(false, QString()));

    EXPECT_FALSE(Child("SetShutterSpeedButton")->isEnabled()) << "until a standard is chosen";
    Child<QRadioButton>("OptionPAL")->click();
    Child<QComboBox>("ComboPAL")->setCurrentText(QStringLiteral("100"));
    Child("SetShutterSpeedButton")->click();
    EXPECT_EQ(Registers(*keyboard_), (Bytes{0x00, 0x37, 0x00, 0x07}));
    Child<QRadioButton>("OptionNTSC")->click();
    EXPECT_TRUE(Child<QComboBox>("ComboPAL")->isHidden());
    Child<QComboBox>("ComboNTSC")->setCurrentText(QStringLiteral("100"));
    Child("SetShutterSpeedButton")->click();
    EXPECT_EQ(Registers(*keyboard_), (Bytes{0x00, 0x37, 0x00, 0x10}));
}

TEST_F(ExtendedCommandsTest, GainsRunInTensAfterALongHoldAndTheIrisStopsAtItsBounds) {
    LevelAdjusters a;
    a.Press(AdjustTarget::RedGain, AdjustSign::Up);
    QList<int> seen;
    LevelAdjusters::Step step;
    for (int tick = 0; tick < 160; ++tick) {
        step = a.Tick();
        EXPECT_FALSE(step.stopTimer);
        seen << step.level;
    }
    EXPECT_EQ(seen.mid(0, 3), (QList<int>{1, 2, 3}));
    EXPECT_EQ(seen.mid(47, 4), (QList<int>{48, 49, 59, 69}))
        << "tens from the 50th tick on, the test made on the value before the step";
    const qsizetype at1019 = seen.indexOf(1019);
    ASSERT_GT(at1019, 0);
    EXPECT_EQ(seen.mid(at1019 - 1, 8),
              (QList<int>{1009, 1019, 1020, 1021, 1022, 1023, 1024, 1024}));
    EXPECT_EQ(Of(step.bytes), (Bytes{0x00, 0x3B, 0x04, 0x00}));

    a.Release();
    a.BlueGain = 15;
    a.HoldTicks = 50;
    a.Press(AdjustTarget::BlueGain, AdjustSign::Down);
    seen.clear();
    for (int tick = 0; tick < 8; ++tick) {
        step = a.Tick();
        seen << step.level;
    }
    EXPECT_EQ(seen, (QList<int>{5, 4, 3, 2, 1, 0, 0, 0}));
    EXPECT_EQ(Of(step.bytes), (Bytes{0x00, 0x3D, 0x00, 0x00})) << "loaded again at the bound";

    struct Bound {
        AdjustTarget target;
        int ticks;
        Bytes last;
    };
    for (const Bound& b : {Bound{AdjustTarget::IrisLevel, 255, {0x00, 0x41, 0x00, 0xFF}},
                           Bound{AdjustTarget::IrisPeak, 127, {0x00, 0x43, 0x00, 0x7F}}}) {
        LevelAdjusters iris;
        iris.Press(b.target, AdjustSign::Up);
        for (int tick = 0; tick < b.ticks; ++tick) {
            step = iris.Tick();
            ASSERT_FALSE(step.stopTimer);
            if (tick == 12) {
                EXPECT_EQ(step.bytes.data2, 13) << "one step per tick, even after a long hold";
            }
        }
        EXPECT_EQ(Of(step.bytes), b.last);
        step = iris.Tick();
        EXPECT_TRUE(step.stopTimer) << "the timer goes off at the bound";
        EXPECT_EQ(Of(step.bytes), b.last);
        iris.Press(b.target, AdjustSign::Down);
        EXPECT_EQ(iris.Tick().level, b.ticks - 1);
    }
}

TEST_F(ExtendedCommandsTest, HoldingAnAdjusterStepsOnTheRealTimerUntilReleased) {
    auto* timer = Child<QTimer>("AdjustTimer");
    EXPECT_EQ(timer->interval(), 50);
    QPushButton* up = Child("IrisLevelUpButton");
    QTest::mousePress(up, Qt::LeftButton);
    EXPECT_TRUE(timer->isActive());
    // The pointer leaving the button changes nothing: only the release ends the hold.
    QTest::mouseMove(window_.get(), QPoint(1, 1));
    ASSERT_TRUE(WaitUntil([&] { return levels_.IrisLevel >= 3; }));
    QTest::mouseRelease(up, Qt::LeftButton);
    EXPECT_FALSE(timer->isActive());
    const int level = levels_.IrisLevel;
    EXPECT_EQ(Registers(*keyboard_), (Bytes{0x00, 0x41, 0x00, static_cast<std::uint8_t>(level)}));
    EXPECT_EQ(Child<QLabel>("IrisLevelPic")->text(), QString::number(level));

    QPushButton* down = Child("RedGainDownButton");
    down->setFocus();
    QTest::keyPress(down, Qt::Key_Space);
    EXPECT_TRUE(timer->isActive()) << "Space held on the button works like the mouse";
    QTest::keyRelease(down, Qt::Key_Space);
    EXPECT_FALSE(timer->isActive());

    window_->reject();
    EXPECT_EQ(Registers(*keyboard_), (Bytes{}));
    EXPECT_EQ(levels_.IrisLevel, level) << "the levels outlive the window";
}

} // namespace
} // namespace quellpad::test
