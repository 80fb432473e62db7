#include "fixtures.h"

#include "engine/retransmission.h"

namespace quellpad::test {
namespace {

using Verdict = RetransmitPeriod::Verdict;

TEST(RetransmitPeriodBox, SecondsStrictlyBetweenTheBoundsBecomeWholeMilliseconds) {
    const std::tuple<const char*, Verdict, int> cases[] = {
        {"2.5", Verdict::Accepted, 2500}, {"0.0505", Verdict::Accepted, 50},
        {"0.06", Verdict::Accepted, 60},  {"60.9999", Verdict::Accepted, 60999},
        {"", Verdict::Default, 1000},     {".", Verdict::Default, 1000},
        {"0", Verdict::Default, 1000},    {"0.05", Verdict::Rejected, 0},
        {"61", Verdict::Rejected, 0},     {"0.01", Verdict::Rejected, 0},
    };
    for (const auto& [text, verdict, ms] : cases) {
        const RetransmitPeriod period = ReadRetransmitPeriod(QString::fromLatin1(text));
        EXPECT_EQ(period.verdict, verdict) << text;
        if (verdict != Verdict::Rejected) {
            EXPECT_EQ(period.IntervalMs, ms) << text;
        }
    }
}

using RetransmitTickTest = KeyboardFixture;

TEST_F(RetransmitTickTest, AnOddCommandTwoIsNeverRepeated) {
    OpenPorts(true, false);
    keyboard_->CurrentMode = kModeD;
    keyboard_->Command2 = 0x03;
    RetransmitTick(*keyboard_);
    EXPECT_EQ(com1_.Drain(10), QByteArray());
    keyboard_->Command2 = 0x02;
    RetransmitTick(*keyboard_);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010002000003"));
    EXPECT_EQ(keyboard_->LastCommand2, 0) << "retransmission leaves the dispatcher's copies alone";
}

} // namespace
} // namespace quellpad::test
