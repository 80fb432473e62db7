#include "window_fixture.h"

#include "dialogs/advanced_commands.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace quellpad::test {
namespace {

class AdvancedCommandsTest : public WindowFixture<FrmAdvancedCommands> {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        window_ = std::make_unique<FrmAdvancedCommands>(*keyboard_);
    }
};

TEST_F(AdvancedCommandsTest, EachFixedButtonLoadsItsCommandForTheNextTick) {
    const std::pair<const char*, const char*> rows[] = {
        {"SetZeroButton", "00490000"},       {"GoToZeroButton", "00070022"},
        {"QueryPanButton", "00510000"},      {"QueryTiltButton", "00530000"},
        {"QueryZoomButton", "00550000"},     {"QueryMagButton", "00610000"},
        {"QueryDeviceButton", "006b0000"},   {"QueryDiagnosticButton", "006f0000"},
        {"ActivateEchoButton", "00650000"},  {"DownloadButton", "00570000"},
        {"StartDownloadButton", "00690000"},
    };
    for (const auto& [name, hex] : rows) {
        keyboard_->Command2 = keyboard_->LastCommand1 = keyboard_->LastData2 = 0xEE;
        Child(name)->click();
        EXPECT_EQ(Registers(*keyboard_), QByteArray::fromHex(hex)) << name;
        EXPECT_EQ(keyboard_->LastCommand1 | keyboard_->LastData2, 0) << name;
    }
}

TEST_F(AdvancedCommandsTest, SetRequestsLoadRoundedPositionsOrRefuseWithTheirOwnMessage) {
    struct Case {
        SetRequest request;
        const char* bytes;   // loaded, or nullptr when refused
        const char* message; // the refusal, titled "Warning!" with the stop sign when `warning`
        bool warning;
        bool clearBox;
    };
    const char* pan = "A value from 0 to 359.99 is expected.";
    const char* tilt = "Please enter a value between -180 and 180";
    const char* mag = "Expected magnification values are from 1 to 350.";
    const char* zoomEmpty = "Either Zoom Limit or Set Zoom is empty, please enter the value";
    const char* zoom = "Either Zoom limit's or Set Zoom's values is not valid";
    const Case cases[] = {
        {SetPanRequest("359.99"), "004b8c9f", nullptr, false, false},
        {SetPanRequest("0"), "004b0000", nullptr, false, false},
        {SetPanRequest("0.125"), "004b000c", nullptr, false, false}, // 12.5 to the even 12
        {SetTiltRequest("-10"), "004d88b8", nullptr, false, false},  // sent as 350.00
        {SetTiltRequest("-180"), "004d4650", nullptr, false, false},
        {SetTiltRequest("180"), "004d4650", nullptr, false, false},
        {SetMagRequest("1"), "005f0064", nullptr, false, false},
        {SetMagRequest("350"), "005f88b8", nullptr, false, false},
        {SetZoomRequest("10", "10"), "004fffff", nullptr, false, false},
        {SetZoomRequest("10", "5"), "004f8000", nullptr, false, false}, // 32767.5 to 32768
        {SetPanRequest(""), nullptr, pan, false, false},
        {SetPanRequest("359.995"), nullptr, pan, false, false},
        {SetPanRequest("-5"), nullptr, pan, false, false}, // pasted past the key filter
        {SetPanRequest("1e9"), nullptr, pan, false, false},
        {SetPanRequest("12ab"), nullptr, pan, false, false},
        {SetTiltRequest(""), nullptr, tilt, true, false},
        {SetTiltRequest("-180.5"), nullptr, tilt, true, true},
        {SetTiltRequest("5-"), nullptr, tilt, true, true},
        {SetMagRequest(""), nullptr, "Please enter the magnification value.", false, false},
        {SetMagRequest("0.5"), nullptr, mag, false, false},
        {SetMagRequest("-100"), nullptr, mag, false, false},
        {SetZoomRequest("", "5"), nullptr, zoomEmpty, true, false},
        {SetZoomRequest("10", ""), nullptr, zoomEmpty, true, false},
        {SetZoomRequest("10", "11"), nullptr, zoom, true, false},
        {SetZoomRequest("10", "0"), nullptr, zoom, true, false},
        {SetZoomRequest("0", "1"), nullptr, zoom, true, false},
        {SetZoomRequest("ten", "5"), nullptr, zoom, true, false},
    };
    for (const Case& c : cases) {
        const auto& r = c.request;
        if (c.bytes) {
            ASSERT_TRUE(r.bytes) << c.bytes << ": " << r.refusal->text.toStdString();
            const CommandBytes b = *r.bytes;
            EXPECT_EQ(Bytes(b.command1, b.command2, b.data1, b.data2),
                      QByteArray::fromHex(c.bytes));
            continue;
        }
        ASSERT_TRUE(r.refusal && !r.bytes) << c.message;
        EXPECT_EQ(r.refusal->text, QLatin1String(c.message));
        EXPECT_EQ(r.refusal->title, c.warning ? QStringLiteral("Warning!") : QString())
            << c.message;
        EXPECT_EQ(r.refusal->icon, c.warning ? ui::MessageIcon::Critical : ui::MessageIcon::None);
        EXPECT_EQ(r.refusal->buttons, ui::MessageButtons::Ok);
        EXPECT_EQ(r.clearBox, c.clearBox) << c.message;
    }
}

TEST_F(AdvancedCommandsTest, BoxesFilterTheirKeysAndRefuseOutOfRangeValuesAsTyped) {
    auto* pan = Child<QLineEdit>("SetPanTextBox");
    QTest::keyClicks(pan, QStringLiteral("3a5-9.9.95"));
    EXPECT_EQ(pan->text(), QString()) << "359.995 is refused as it is typed";
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_EQ(ShownMessages()[0].text, QStringLiteral("Values From 0 to 359.99 Expected"));
    EXPECT_EQ(ShownMessages()[0].title, QStringLiteral("Error"));
    EXPECT_EQ(ShownMessages()[0].buttons, ui::MessageButtons::OkCancel);

    auto* tilt = Child<QLineEdit>("SetTiltTextBox");
    QTest::keyClicks(tilt, QStringLiteral("12-4.5"));
    EXPECT_EQ(tilt->text(), QStringLiteral("-4.5")) << "a minus sign starts a new entry";
    QTest::keyClicks(tilt, QStringLiteral("-200"));
    EXPECT_EQ(tilt->text(), QString());
    EXPECT_EQ(ShownMessages().last().text, QStringLiteral("Values From -180 to 180 Expected"));

    auto* mag = Child<QLineEdit>("SetMagTextBox");
    QTest::keyClicks(mag, QStringLiteral("35"));
    QTest::keyClick(mag, Qt::Key_Backspace);
    QTest::keyClick(mag, Qt::Key_Backspace);
    EXPECT_EQ(ShownMessages().size(), 3) << "emptying the box counts as 0, once";
    EXPECT_EQ(ShownMessages().last().text, QStringLiteral("A Value of 1 to 350 Expected"));
}

TEST_F(AdvancedCommandsTest, AnOutOfRangeTiltEmptiesItsBoxAndClosingClearsEveryRegister) {
    Child<QLineEdit>("SetTiltTextBox")->setText(QStringLiteral("-181")); // pasted
    Child("SetTiltButton")->click();
    EXPECT_EQ(Child<QLineEdit>("SetTiltTextBox")->text(), QString());
    Child("QueryPanButton")->click();
    keyboard_->LastCommand2 = 0x51;
    Child("AdvancedBackButton")->click();
    EXPECT_EQ(Registers(*keyboard_), QByteArray(4, 0));
    EXPECT_EQ(keyboard_->LastCommand2, 0);
}

} // namespace
} // namespace quellpad::test
