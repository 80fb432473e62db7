#include "fixtures.h"

#include "dialogs/advanced_commands.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace quellpad::test {
namespace {

std::array<std::uint8_t, 4> Registers(const Quellpad_Support_Func& k) {
    return {k.Command1, k.Command2, k.Data1, k.Data2};
}
std::array<std::uint8_t, 4> LastSent(const Quellpad_Support_Func& k) {
    return {k.LastCommand1, k.LastCommand2, k.LastData1, k.LastData2};
}
std::array<std::uint8_t, 4> Bytes(const CommandBytes& b) {
    return {b.command1, b.command2, b.data1, b.data2};
}

class AdvancedCommandsTest : public KeyboardFixture {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        window_ = std::make_unique<FrmAdvancedCommands>(*keyboard_);
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
    void Click(const char* name) { Child(name)->click(); }
    void Scribble() {
        keyboard_->Command1 = keyboard_->Command2 = keyboard_->Data1 = keyboard_->Data2 = 0xEE;
        keyboard_->LastCommand1 = keyboard_->LastData2 = 0xEE;
    }

    std::unique_ptr<FrmAdvancedCommands> window_;
};

TEST_F(AdvancedCommandsTest, EachFixedButtonLoadsItsCommandForTheNextTick) {
    const std::pair<const char*, std::array<std::uint8_t, 4>> rows[] = {
        {"SetZeroButton", {0x00, 0x49, 0x00, 0x00}},
        {"GoToZeroButton", {0x00, 0x07, 0x00, 0x22}},
        {"QueryPanButton", {0x00, 0x51, 0x00, 0x00}},
        {"QueryTiltButton", {0x00, 0x53, 0x00, 0x00}},
        {"QueryZoomButton", {0x00, 0x55, 0x00, 0x00}},
        {"QueryMagButton", {0x00, 0x61, 0x00, 0x00}},
        {"QueryDeviceButton", {0x00, 0x6B, 0x00, 0x00}},
        {"QueryDiagnosticButton", {0x00, 0x6F, 0x00, 0x00}},
        {"ActivateEchoButton", {0x00, 0x65, 0x00, 0x00}},
        {"DownloadButton", {0x00, 0x57, 0x00, 0x00}},
        {"StartDownloadButton", {0x00, 0x69, 0x00, 0x00}},
    };
    for (const auto& [name, bytes] : rows) {
        Scribble();
        Click(name);
        EXPECT_EQ(Registers(*keyboard_), bytes) << name;
        EXPECT_EQ(LastSent(*keyboard_), (std::array<std::uint8_t, 4>{})) << name;
        EXPECT_EQ(Child(name)->focusPolicy(), Qt::StrongFocus) << name;
    }
    EXPECT_EQ(Child("SetPanButton")->text(), QStringLiteral("Set "));
}

TEST_F(AdvancedCommandsTest, PositionsAreScaledRoundedHalfToEvenAndSplitIntoTwoBytes) {
    struct Case {
        SetRequest request;
        std::array<std::uint8_t, 4> bytes;
    };
    const Case cases[] = {
        {SetPanRequest("359.99"), {0x00, 0x4B, 0x8C, 0x9F}},
        {SetPanRequest("0"), {0x00, 0x4B, 0x00, 0x00}},
        {SetPanRequest("0.125"), {0x00, 0x4B, 0x00, 0x0C}}, // 12.5 goes to the even 12
        {SetTiltRequest("-10"), {0x00, 0x4D, 0x88, 0xB8}},  // sent as 350.00
        {SetTiltRequest("-180"), {0x00, 0x4D, 0x46, 0x50}},
        {SetTiltRequest("180"), {0x00, 0x4D, 0x46, 0x50}},
        {SetTiltRequest("-"), {0x00, 0x4D, 0x00, 0x00}},
        {SetMagRequest("1"), {0x00, 0x5F, 0x00, 0x64}},
        {SetMagRequest("350"), {0x00, 0x5F, 0x88, 0xB8}},
        {SetZoomRequest("10", "10"), {0x00, 0x4F, 0xFF, 0xFF}},
        {SetZoomRequest("10", "5"), {0x00, 0x4F, 0x80, 0x00}}, // 32767.5 goes to 32768
        {SetZoomRequest("1e300", "1e300"), {0x00, 0x4F, 0xFF, 0xFF}},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(c.request.bytes.has_value()) << c.request.refusal->text.toStdString();
        EXPECT_EQ(Bytes(*c.request.bytes), c.bytes);
    }
}

TEST_F(AdvancedCommandsTest, RefusedPositionsSayWhyAndLoadNothing) {
    const ui::Message pan{QStringLiteral("A value from 0 to 359.99 is expected."), {}};
    const ui::Message tilt{QStringLiteral("Please enter a value between -180 and 180"),
                           QStringLiteral("Warning!"), ui::MessageButtons::Ok,
                           ui::MessageIcon::Critical};
    const ui::Message magEmpty{QStringLiteral("Please enter the magnification value."), {}};
    const ui::Message mag{QStringLiteral("Expected magnification values are from 1 to 350."), {}};
    const ui::Message zoomEmpty{
        QStringLiteral("Either Zoom Limit or Set Zoom is empty, please enter the value"),
        QStringLiteral("Warning!"), ui::MessageButtons::Ok, ui::MessageIcon::Critical};
    const ui::Message zoom{QStringLiteral("Either Zoom limit's or Set Zoom's values is not valid"),
                           QStringLiteral("Warning!"), ui::MessageButtons::Ok,
                           ui::MessageIcon::Critical};
    struct Case {
        SetRequest request;
        const ui::Message& message;
        bool clearBox;
    };
    const Case cases[] = {
        {SetPanRequest(""), pan, false},
        {SetPanRequest("359.995"), pan, false},
        {SetPanRequest("-5"), pan, false}, // pasted past the filter
        {SetPanRequest("1e9"), pan, false},
        {SetPanRequest("12ab"), pan, false},
        {SetTiltRequest(""), tilt, false},
        {SetTiltRequest("-180.5"), tilt, true},
        {SetTiltRequest("180.01"), tilt, true},
        {SetTiltRequest("5-"), tilt, true},
        {SetMagRequest(""), magEmpty, false},
        {SetMagRequest("0.5"), mag, false},
        {SetMagRequest("350.01"), mag, false},
        {SetMagRequest("-100"), mag, false},
        {SetZoomRequest("", "5"), zoomEmpty, false},
        {SetZoomRequest("10", ""), zoomEmpty, false},
        {SetZoomRequest("10", "11"), zoom, false},
        {SetZoomRequest("10", "0"), zoom, false},
        {SetZoomRequest("0", "1"), zoom, false},
        {SetZoomRequest("-1", "-2"), zoom, false},
        {SetZoomRequest("ten", "5"), zoom, false},
        {SetZoomRequest("10", "5x"), zoom, false},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(c.request.refusal.has_value());
        EXPECT_FALSE(c.request.bytes.has_value());
        EXPECT_EQ(c.request.refusal->text, c.message.text);
        EXPECT_EQ(c.request.refusal->title, c.message.title) << c.message.text.toStdString();
        EXPECT_EQ(c.request.refusal->buttons, c.message.buttons);
        EXPECT_EQ(c.request.refusal->icon, c.message.icon) << c.message.text.toStdString();
        EXPECT_EQ(c.request.clearBox, c.clearBox) << c.message.text.toStdString();
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

TEST_F(AdvancedCommandsTest, ASetButtonLoadsThroughTheDispatcherAndClosingClearsEverything) {
    keyboard_->CurrentMode = kModeD;
    Child<QLineEdit>("SetTiltTextBox")->setText(QStringLiteral("-10"));
    Click("SetTiltButton");
    EXPECT_EQ(Registers(*keyboard_), (std::array<std::uint8_t, 4>{0x00, 0x4D, 0x88, 0xB8}));

    Child<QLineEdit>("SetPanTextBox")->setText(QStringLiteral("-5")); // pasted past the filter
    Click("SetPanButton");
    EXPECT_EQ(Registers(*keyboard_), (std::array<std::uint8_t, 4>{0x00, 0x4D, 0x88, 0xB8}));
    Child<QLineEdit>("SetTiltTextBox")->setText(QStringLiteral("-181"));
    Click("SetTiltButton");
    EXPECT_EQ(Child<QLineEdit>("SetTiltTextBox")->text(), QString());

    keyboard_->LastCommand2 = 0x4D;
    Click("AdvancedBackButton");
    EXPECT_EQ(Registers(*keyboard_), (std::array<std::uint8_t, 4>{}));
    EXPECT_EQ(LastSent(*keyboard_), (std::array<std::uint8_t, 4>{}));
    EXPECT_FALSE(window_->isVisible());
}

} // namespace
} // namespace quellpad::test
