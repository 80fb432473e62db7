#include "fixtures.h"

#include "engine/errors.h"

#include <QFile>

namespace quellpad::test {
namespace {

class SendCommandTest : public KeyboardFixture {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        QObject::connect(keyboard_.get(), &Quellpad_Support_Func::CommandEchoed,
                         [this](const QString& com1, const QString& com2) {
                             echo1_ = com1;
                             echo2_ = com2;
                         });
    }
    void Load(int command1, int command2, int data1, int data2) {
        keyboard_->SetCommandBytes(command1, command2, data1, data2);
    }
    QString echo1_ = QStringLiteral("<untouched>");
    QString echo2_ = QStringLiteral("<untouched>");
};

TEST_F(SendCommandTest, WorkedFramesLeaveByteExactWithTheirEcho) {
    // COM 1 alone, then COM 2 alone at an address of its own (COM 1's is 1).
    struct Case {
        int port;
        const char* mode;
        int address;
        int registers[4];
        QByteArray wire;
    };
    const Case cases[] = {
        {1, "D", 1, {0x00, 0x00, 0x00, 0x00}, QByteArray::fromHex("ff010000000001")},
        {1, "D", 1, {0x00, 0x02, 0x20, 0x00}, QByteArray::fromHex("ff010002200023")},
        {1, "D", 254, {0x88, 0x90, 0xFF, 0x3F}, QByteArray::fromHex("fffe8890ff3f54")},
        {1, "P", 1, {0x00, 0x00, 0x00, 0x00}, QByteArray::fromHex("a00000000000af0f")},
        {1, "P", 2, {0x00, 0x02, 0x20, 0x00}, QByteArray::fromHex("a00100022000af2c")},
        {2, "D", 3, {0x00, 0x00, 0x00, 0x00}, QByteArray::fromHex("ff030000000003")},
    };
    for (const Case& c : cases) {
        OpenPorts(c.port == 1, c.port == 2);
        if (c.port == 2) {
            keyboard_->MSComm1().Close();
        }
        keyboard_->CurrentMode = QLatin1String(c.mode);
        keyboard_->AddressCOM1 = static_cast<std::uint8_t>(c.port == 1 ? c.address : 1);
        keyboard_->AddressCOM2 = static_cast<std::uint8_t>(c.address);
        Load(c.registers[0], c.registers[1], c.registers[2], c.registers[3]);
        keyboard_->SendCommand();
        PseudoTerminal& wire = c.port == 1 ? com1_ : com2_;
        EXPECT_EQ(wire.Read(static_cast<int>(c.wire.size())).toHex(' '), c.wire.toHex(' '));
        const QString echo = QString::fromLatin1(c.wire.toHex(' ').toUpper() + ' ');
        EXPECT_EQ(echo1_, c.port == 1 ? echo : QString());
        EXPECT_EQ(echo2_, c.port == 2 ? echo : QString());
    }
}

TEST_F(SendCommandTest, BothPortsAreInterleavedByteByByteComOneFirst) {
    // COM 2 reaches the same wire as COM 1 through a second name, so the one pty shows
    // the order in which the two ports were written.
    const QString alias = dir_.filePath(QStringLiteral("com2"));
    ASSERT_TRUE(QFile::link(com1_.SlavePath(), alias));
    Bind(2, alias);
    MakeKeyboard();
    OpenPorts(true, false);
    com1_.AllowSecondOpen();
    OpenPorts(false, true);
    keyboard_->CurrentMode = kModeD;
    keyboard_->AddressCOM2 = 2;
    keyboard_->SendCommand();
    EXPECT_EQ(com1_.Read(14), QByteArray::fromHex("ffff0102"
                                                  "0000000000000000"
                                                  "0102"));
}

TEST_F(SendCommandTest, PAddressZeroFailsBeforeAnythingIsWritten) {
    OpenPorts(true, true);
    keyboard_->CurrentMode = kModeP;
    keyboard_->AddressCOM1 = 0;
    EXPECT_THROW(keyboard_->SendCommand(), OverflowError);
    EXPECT_EQ(com1_.Drain(20), QByteArray());
    EXPECT_EQ(com2_.Drain(), QByteArray());
    EXPECT_EQ(echo1_, QStringLiteral("<untouched>"));
}

TEST_F(SendCommandTest, AsciiTextIsLeftTrimmedAndLongEchoesBreakAfterThirteen) {
    struct Case {
        const char* command;
        QByteArray wire;
        const char* stored;
        const char* echo;
    };
    const Case cases[] = {
        {"  1Ma", "1Ma", "1Ma", "1Ma"},
        {"1Ma  ", "1Ma  ", "1Ma  ", "1Ma  "},
        {"12345678901234567890", "12345678901234567890", "12345678901234567890",
         "1234567890123\r\n4567890"},
        {"", "", "", ""},
    };
    OpenPorts(true, false);
    keyboard_->CurrentMode = kModeAscii;
    for (const Case& c : cases) {
        keyboard_->AsciiCommand = QLatin1String(c.command);
        echo1_ = QStringLiteral("<untouched>");
        keyboard_->SendCommand();
        EXPECT_EQ(com1_.Drain(10), c.wire) << c.command;
        EXPECT_EQ(keyboard_->AsciiCommand, QLatin1String(c.stored));
        EXPECT_EQ(echo1_, QLatin1String(c.echo));
    }
}

TEST_F(SendCommandTest, NothingOpenSendsNothingButStillClearsTheEchoes) {
    keyboard_->CurrentMode = kModeAscii;
    keyboard_->AsciiCommand = QStringLiteral(" 5Ma");
    keyboard_->SendCommand();
    EXPECT_EQ(keyboard_->AsciiCommand, QStringLiteral("5Ma"));
    EXPECT_EQ(echo1_, QString());
    EXPECT_EQ(echo2_, QString());
    keyboard_->CurrentMode = QStringLiteral("H");
    echo1_ = QStringLiteral("<untouched>");
    keyboard_->SendCommand();
    EXPECT_EQ(echo1_, QStringLiteral("<untouched>"));
}

TEST_F(SendCommandTest, CommandBytesAreCheckedOneByOne) {
    keyboard_->LastCommand1 = 7;
    keyboard_->Command1 = 9;
    EXPECT_THROW(keyboard_->SetCommandBytes(256, 0, 0, 0), OverflowError);
    EXPECT_EQ(keyboard_->Command1, 9);
    EXPECT_EQ(keyboard_->LastCommand1, 0);
    keyboard_->SetCommandBytes(QStringLiteral("33"), "2", 0.0, 255);
    EXPECT_EQ(keyboard_->Command1, 33);
    EXPECT_EQ(keyboard_->Command2, 2);
    EXPECT_EQ(keyboard_->Data2, 255);
}

} // namespace
} // namespace quellpad::test
