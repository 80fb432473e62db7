#include "console/lens.h"
#include "console/receiver.h"

#include <gtest/gtest.h>

namespace quellpad {
namespace {

std::unique_ptr<SerialLine> NoDevice(int number) {
    return std::make_unique<SerialDevice>(number, QStringLiteral("/dev/quellpad-none"));
}

TEST(LensButtons, EachModeSetsItsOwnBitsAndClearsThePartner) {
    struct Case {
        const char* mode;
        LensButton button;
        int command1Before, command2Before;
        int command1On, command2On;   // after switching on
        int command1Off, command2Off; // after switching off again
        const char* asciiOn;
        const char* asciiOff;
    };
    using B = LensButton;
    const Case cases[] = {
        {"D", B::FocusFar, 0x01, 0x00, 0x00, 0x80, 0x00, 0x00, "", ""},
        {"D", B::FocusNear, 0x00, 0x80, 0x01, 0x00, 0x00, 0x00, "", ""},
        {"D", B::IrisOpen, 0x04, 0x00, 0x02, 0x00, 0x00, 0x00, "", ""},
        {"P", B::IrisOpen, 0x08, 0x00, 0x04, 0x00, 0x00, 0x00, "", ""},
        {"P", B::FocusNear, 0x01, 0x00, 0x02, 0x00, 0x00, 0x00, "", ""},
        {"P", B::ZoomOut, 0x00, 0x20, 0x00, 0x40, 0x00, 0x00, "", ""},
        {"ASCII", B::FocusNear, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, "Na", "~Na"},
        {"ASCII", B::ZoomIn, 0x00, 0x00, 0x00, 0x20, 0x00, 0x00, "Ta", "~Ta"},
        {"ASCII", B::IrisClose, 0x00, 0x00, 0x08, 0x00, 0x00, 0x00, "Ca", "~Ca"},
        {"MUX ASCII", B::FocusFar, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, "", ""},
        {"MUX ASCII", B::ZoomIn, 0x00, 0x00, 0x00, 0x20, 0x00, 0x00, "", ""},
        {"D", B::ZoomIn, 0x00, 0x07, 0x00, 0x20, 0x00, 0x00, "", ""}, // one-shot cleared first
    };
    for (const Case& c : cases) {
        Quellpad_Support_Func keyboard(&NoDevice);
        keyboard.CurrentMode = QLatin1String(c.mode);
        keyboard.Command1 = static_cast<std::uint8_t>(c.command1Before);
        keyboard.Command2 = static_cast<std::uint8_t>(c.command2Before);
        SwitchLensOn(keyboard, c.button);
        EXPECT_EQ(keyboard.Command1, c.command1On) << c.mode << " " << LensButtonName(c.button);
        EXPECT_EQ(keyboard.Command2, c.command2On) << c.mode << " " << LensButtonName(c.button);
        EXPECT_EQ(keyboard.AsciiCommand, QLatin1String(c.asciiOn));
        SwitchLensOff(keyboard, c.button);
        EXPECT_EQ(keyboard.Command1, c.command1Off) << c.mode << " " << LensButtonName(c.button);
        EXPECT_EQ(keyboard.Command2, c.command2Off) << c.mode << " " << LensButtonName(c.button);
        EXPECT_EQ(keyboard.AsciiCommand, QLatin1String(c.asciiOff));
    }
}

TEST(LensButtons, ReleaseLeavesTheOtherButtonsBits) {
    Quellpad_Support_Func keyboard(&NoDevice);
    keyboard.CurrentMode = kModeD;
    SwitchLensOn(keyboard, LensButton::ZoomIn);
    SwitchLensOn(keyboard, LensButton::FocusNear);
    SwitchLensOff(keyboard, LensButton::FocusNear);
    EXPECT_EQ(keyboard.Command2, 0x20);
}

TEST(Replies, ResponseTextPerMode) {
    const QByteArray bytes = QByteArray::fromHex("ff01") + "a";
    EXPECT_EQ(ResponseText(kModeD, bytes), QStringLiteral(" FF 01 61"));
    EXPECT_EQ(ResponseText(kModeP, bytes), QStringLiteral(" FF 01 61"));
    EXPECT_EQ(ResponseText(kModeAscii, "12ia"), QStringLiteral("12ia"));
    EXPECT_EQ(ResponseText(QStringLiteral("T"), bytes), QString());
}

TEST(Replies, TheResponseBoxIsClearedOnlyWhenLongAndANewReplyStarts) {
    const QString longBox(251, u'x');
    const QString shortBox(250, u'x');
    const std::tuple<QString, const char*, const char*, bool> cases[] = {
        {kModeD, " 00 A2", "long", true},
        {kModeP, " 01 02", "long", false},
        {kModeD, " FF 01", "short", false},
        {kModeAscii, "1a", "long", true},
        {kModeMuxAscii, "OK", "long", false}};
    for (const auto& [mode, reply, size, cleared] : cases) {
        const QString box = QLatin1String(size) == u"long" ? longBox : shortBox;
        EXPECT_EQ(ClearsResponseBox(mode, box.size(), QLatin1String(reply)), cleared) << reply;
    }
}

TEST(Replies, AlarmNumbersComeFromIaAndDaReplies) {
    const std::pair<const char*, const char*> cases[] = {
        {"12ia", "12"}, {"7da", "7"},   {"ia", nullptr}, {"5i", nullptr},
        {"a", nullptr}, {"ia3x", "ia"}, {"1Ma", nullptr}};
    for (const auto& [reply, number] : cases) {
        const auto got = AlarmNumberFromReply(QLatin1String(reply));
        if (number) {
            EXPECT_EQ(got, QLatin1String(number)) << reply;
        } else {
            EXPECT_FALSE(got) << reply;
        }
    }
}

} // namespace
} // namespace quellpad
