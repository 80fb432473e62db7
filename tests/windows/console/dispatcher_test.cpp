#include "fixtures.h"

#include "console/dispatcher.h"

#include <array>
#include <tuple>

namespace quellpad::test {
namespace {

TEST(NonMotionCommand, LabelsAndNonMotionTextsAreLeftAlone) {
    const std::pair<const char*, bool> cases[] = {
        {"1Ma", true},  {"25La", false}, {"~Fa", false},     {"sa", false},
        {"dLm", false}, {"ym", true},    {"la Ra!a", true},  {"", true},
        {"3Ea", true},  {"95^a", true},  {"20Ra15Da", false}};
    for (const auto& [text, nonMotion] : cases) {
        EXPECT_EQ(IsNonMotionCommand(QString::fromLatin1(text)), nonMotion) << text;
    }
}

// The stop the end of the program sends: one for whatever the receiver was last told or is
// about to be told that moves, nothing at rest or after a one-shot command.
TEST(LastStop, OnlyWhatMayStillMoveIsStopped) {
    struct Case {
        const char* mode;
        std::array<std::uint8_t, 4> registers;
        std::array<std::uint8_t, 4> lastSent;
        const char* text;
        const char* lastText;
        bool stops;
        const char* stopText;
    };
    const Case cases[] = {
        {"D", {0, 0, 0, 0}, {0, 0, 0, 0}, "", "", false, ""},
        {"D", {0, 0, 0, 0}, {0, 0x02, 30, 0}, "", "", true, ""},    // released, stop not sent yet
        {"D", {0x01, 0, 0, 0}, {0x01, 0, 0, 0}, "", "", true, ""},  // focus near held
        {"D", {0x88, 0, 0, 0}, {0x88, 0, 0, 0}, "", "", false, ""}, // camera on: no motion
        {"D", {0, 0, 23, 9}, {0, 0, 23, 9}, "", "", false, ""},     // speeds, no direction
        {"P", {0, 7, 0, 3}, {0, 7, 0, 3}, "", "", false, ""},       // a preset call
        {"P", {0x08, 0, 0, 0}, {0, 0, 0, 0}, "", "", true, ""},     // iris close held
        {"ASCII", {0, 0, 0, 0}, {0, 0, 0, 0}, "sa", "sa", false, "sa"},
        {"ASCII", {0, 0, 0, 0}, {0, 0, 0, 0}, "1Ma", "1Ma", false, "1Ma"},
        {"ASCII", {0, 0x02, 32, 0}, {0, 0, 0, 0}, "20Ra", "20Ra", true, "sa"}, // a menu arrow
        {"MUX ASCII", {0, 0, 0, 0}, {0, 0, 0, 0}, "~dRm", "~dRm", false, "~dRm"},
        {"MUX ASCII", {0, 0, 20, 15}, {0, 0, 20, 15}, "dLmdDm", "dLmdDm", true, "~dLm~dDm"},
        {"MUX ASCII", {0, 0, 20, 0}, {0, 0, 20, 0}, "~dLmdRm", "~dLmdRm", true, "~dRm"},
        {"MUX ASCII", {0, 0, 20, 0}, {0, 0, 0, 0}, "dRm", "", false, "dRm"}, // never sent
    };
    Quellpad_Support_Func k;
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.mode << " " << c.text << " " << c.lastText);
        k.CurrentMode = QString::fromLatin1(c.mode);
        std::tie(k.Command1, k.Command2, k.Data1, k.Data2) =
            std::tuple(c.registers[0], c.registers[1], c.registers[2], c.registers[3]);
        std::tie(k.LastCommand1, k.LastCommand2, k.LastData1, k.LastData2) =
            std::tuple(c.lastSent[0], c.lastSent[1], c.lastSent[2], c.lastSent[3]);
        k.AsciiCommand = QString::fromLatin1(c.text);
        k.LastAsciiCommand = QString::fromLatin1(c.lastText);
        EXPECT_EQ(LoadStop(k), c.stops);
        EXPECT_EQ(k.AsciiCommand, QString::fromLatin1(c.stopText));
        if (c.stops) {
            EXPECT_EQ(std::tuple(k.Command1, k.Command2, k.Data1, k.Data2), std::tuple(0, 0, 0, 0));
        }
    }
}

class DispatcherTest : public KeyboardFixture {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        OpenPorts(true, false);
    }
    DispatchOutcome Tick() { return CommandChangeTick(*keyboard_, inputs_); }
    // The (Command2, Data1, Data2) of every D or P frame that `ticks` ticks put on the wire;
    // both kinds hold them at the same offsets.
    QList<std::array<int, 3>> FramesOfTicks(int ticks) {
        QList<std::array<int, 3>> frames;
        for (int i = 0; i < ticks; ++i) {
            Tick();
        }
        const QByteArray wire = com1_.Drain(10);
        const qsizetype size = keyboard_->CurrentMode == kModeP ? 8 : 7;
        EXPECT_EQ(wire.size() % size, 0) << "whole frames only";
        for (qsizetype at = 0; at + size <= wire.size(); at += size) {
            frames.append({static_cast<std::uint8_t>(wire[at + 3]),
                           static_cast<std::uint8_t>(wire[at + 4]),
                           static_cast<std::uint8_t>(wire[at + 5])});
        }
        return frames;
    }
    DispatchInputs inputs_{true, false, QString()};
};

TEST_F(DispatcherTest, AlarmRangeTextIsReadOnlyWithOneToFourCharactersBeforeTheDots) {
    const std::tuple<const char*, int, int> cases[] = {{"3..12", 3, 12},      {"9999..1", 9999, 1},
                                                       {"123456..7", -1, -1}, {"..5", -1, -1},
                                                       {"12", -1, -1},        {"1.2..15", 1, 15}};
    for (const auto& [text, start, end] : cases) {
        keyboard_->AlarmRangeStart = -1;
        keyboard_->AlarmRangeEnd = -1;
        ParseAlarmRange(*keyboard_, QString::fromLatin1(text));
        EXPECT_EQ(keyboard_->AlarmRangeStart, start) << text;
        EXPECT_EQ(keyboard_->AlarmRangeEnd, end) << text;
    }
}

TEST_F(DispatcherTest, FrameModesSendOnlyWhenTheRegistersChange) {
    keyboard_->CurrentMode = kModeD;
    EXPECT_FALSE(Tick().sent);
    keyboard_->Data1 = 20;
    keyboard_->Command2 = 0x02;
    EXPECT_TRUE(Tick().sent);
    EXPECT_FALSE(Tick().sent);
    keyboard_->Data1 = 21;
    EXPECT_TRUE(Tick().sent);
    EXPECT_EQ(com1_.Drain(10), QByteArray::fromHex("ff010002140017"
                                                   "ff010002150018"));
}

TEST_F(DispatcherTest, ZoneStartWritesTheLabelInTwentyTwoFrames) {
    keyboard_->CurrentMode = kModeP;
    keyboard_->LabelText = QStringLiteral("GATE");
    keyboard_->ZoneNumber = 5;
    keyboard_->ZoneRequest = 1;
    QList<std::array<int, 3>> expected{{29, 0, 0}};
    for (int column = 0; column < 20; ++column) {
        expected.append({21, column, column < 4 ? "GATE"[column] : ' '});
    }
    expected.append({17, 0, 5});
    EXPECT_EQ(FramesOfTicks(23), expected);
}

TEST_F(DispatcherTest, ZoneEndAndPresetLabelSequences) {
    keyboard_->CurrentMode = kModeD;
    inputs_ = {false, true, QString()};
    keyboard_->ZoneNumber = 3;
    keyboard_->ZoneRequest = 1;
    EXPECT_EQ(FramesOfTicks(3), (QList<std::array<int, 3>>{{19, 0, 3}, {27, 0, 0}}));

    keyboard_->PresetNumber = 12;
    keyboard_->LabelText = QString();
    keyboard_->PresetSetStep = 40;
    EXPECT_EQ(FramesOfTicks(2), (QList<std::array<int, 3>>{{3, 0, 12}}));

    keyboard_->LabelText = QStringLiteral("DOOR");
    keyboard_->PresetSetStep = 20;
    const auto frames = FramesOfTicks(22);
    ASSERT_EQ(frames.size(), 21);
    EXPECT_EQ(frames[0], (std::array<int, 3>{21, 20, 'D'}));
    EXPECT_EQ(frames[4], (std::array<int, 3>{21, 24, ' '}));
    EXPECT_EQ(frames[19], (std::array<int, 3>{21, 39, ' '}));
    EXPECT_EQ(frames[20], (std::array<int, 3>{3, 0, 12}));
}

TEST_F(DispatcherTest, AuxPulseSetsThenClearsTheAux) {
    keyboard_->CurrentMode = kModeD;
    keyboard_->AuxNumber = 4;
    keyboard_->AuxToggleRequest = 2;
    EXPECT_EQ(FramesOfTicks(3), (QList<std::array<int, 3>>{{9, 0, 4}, {11, 0, 4}}));
}

TEST_F(DispatcherTest, AsciiStopSubstitution) {
    struct Case {
        const char* name;
        const QString& mode;
        const char* command;
        const char* lastSent;
        bool portOpen;
        const char* after;
        QByteArray sentTwice; // what two ticks put on the wire
    };
    const Case cases[] = {
        {"motion text becomes the stop, sent once", kModeAscii, "25La", "25La", true, "sa", "sa"},
        {"a switcher command stays and is not re-sent", kModeAscii, "1Ma", "1Ma", true, "1Ma", ""},
        {"no port open: anything becomes the stop", kModeAscii, "1Ma", "1Ma", false, "sa", ""},
        {"MUX ASCII sends a change once, with no stop of its own", kModeMuxAscii, "dLm", "", true,
         "dLm", "dLm"},
    };
    for (const Case& c : cases) {
        keyboard_->CurrentMode = c.mode;
        c.portOpen ? keyboard_->MSComm1().Open() : keyboard_->MSComm1().Close();
        keyboard_->AsciiCommand = QLatin1String(c.command);
        keyboard_->LastAsciiCommand = QLatin1String(c.lastSent);
        Tick();
        Tick();
        EXPECT_EQ(keyboard_->AsciiCommand, QLatin1String(c.after)) << c.name;
        EXPECT_EQ(com1_.Drain(10), c.sentTwice) << c.name;
    }
}

TEST_F(DispatcherTest, AlarmRangeSendsEachAlarmOnceThenRestoresTheRange) {
    struct Case {
        const char* text;
        bool trigger;
        bool reset;
        QByteArray wire;
    };
    const Case cases[] = {{"3..5", true, false, "3Ea4Ea5Ea"},
                          {"3..4", false, true, "3Ia4Ia"},
                          {"3..4", true, true, "3Ia4Ia"}, // reset wins
                          {"0..4", true, false, ""},
                          {"5..3", true, false, ""}};
    keyboard_->CurrentMode = kModeAscii;
    for (const Case& c : cases) {
        inputs_.alarmNumberText = QLatin1String(c.text);
        keyboard_->AsciiCommand = keyboard_->LastAsciiCommand = QStringLiteral("1Ma");
        ParseAlarmRange(*keyboard_, inputs_.alarmNumberText);
        keyboard_->AlarmTriggerPending = c.trigger;
        keyboard_->AlarmResetPending = c.reset;
        std::optional<int> restored;
        for (int i = 0; i < 6; ++i) {
            if (const auto interval = Tick().newInterval) {
                restored = interval;
            }
        }
        EXPECT_EQ(com1_.Drain(10), c.wire) << c.text;
        EXPECT_EQ(restored, kAsciiModeTick) << c.text;
        EXPECT_FALSE(keyboard_->AlarmTriggerPending || keyboard_->AlarmResetPending) << c.text;
        EXPECT_EQ(keyboard_->AlarmRangeStart, c.text[0] - '0') << "restored for the next use";
    }
}

} // namespace
} // namespace quellpad::test
