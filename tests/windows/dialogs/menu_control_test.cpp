#include "window_fixture.h"

#include "dialogs/menu_control.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>

namespace quellpad::test {
namespace {

class MenuControlTest : public WindowFixture<frmMenuControl> {
protected:
    void Open(const QString& mode) {
        keyboard_->CurrentMode = mode;
        OpenPorts(true, false);
        window_ = std::make_unique<frmMenuControl>(*keyboard_);
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    }
    void Key(QEvent::Type type, Qt::Key key, bool autoRepeat = false) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), autoRepeat);
        QApplication::sendEvent(window_.get(), &event);
    }
    void Down(Qt::Key key, bool autoRepeat = false) { Key(QEvent::KeyPress, key, autoRepeat); }
    void Up(Qt::Key key, bool autoRepeat = false) { Key(QEvent::KeyRelease, key, autoRepeat); }
    // Whether the key's On picture is shown in place of its Off picture.
    bool Lit(const char* stem) const {
        const QString name = QLatin1String(stem);
        const QWidget* on = window_->findChild<QWidget*>(name + QStringLiteral("On"));
        const QWidget* off = window_->findChild<QWidget*>(name + QStringLiteral("Off"));
        EXPECT_TRUE(on && off) << stem;
        EXPECT_NE(on->isVisible(), off->isVisible()) << stem << ": exactly one of the pair";
        return on->isVisible();
    }
};

const QByteArray kStopD = QByteArray::fromHex("ff010000000001");

TEST_F(MenuControlTest, AHeldArrowSendsOneCommandIgnoresItsRepeatsAndStopsOnceAtRelease) {
    Open(kModeD);
    EXPECT_EQ(Child<QLabel>("InstructionsLabel")->text(),
              QStringLiteral("Enter menu commands via the arrow keys,\r\nthe \"O\" key for iris "
                             "open, and the \"C\"\r\nkey for iris close.  Use the \"M\" key "
                             "to\r\nobtain access to the menus."));
    Down(Qt::Key_Right);
    EXPECT_EQ(com1_.Read(7), QByteArray::fromHex("ff010002200023"));
    EXPECT_TRUE(Lit("RightArrow"));
    for (int i = 0; i < 5; ++i) {
        Up(Qt::Key_Right, true);
        Down(Qt::Key_Right, true);
    }
    EXPECT_EQ(com1_.Drain(50), QByteArray());
    Up(Qt::Key_Right);
    EXPECT_EQ(com1_.Read(7), kStopD);
    EXPECT_FALSE(Lit("RightArrow"));
}

TEST_F(MenuControlTest, EachKeyOfTheTableInEachMode) {
    struct Case {
        const QString& mode;
        Qt::Key key;
        const char* sent; // hexadecimal
        const char* stopSent;
        const char* picture;
    };
    const Case cases[] = {
        {kModeD, Qt::Key_Left, "ff010004200025", "ff010000000001", "LeftArrow"},
        {kModeD, Qt::Key_Up, "ff010008002029", "ff010000000001", "UpArrow"},
        {kModeD, Qt::Key_Down, "ff010010002031", "ff010000000001", "DownArrow"},
        {kModeD, Qt::Key_O, "ff010200000003", "ff010000000001", "IrisOpen"},
        {kModeD, Qt::Key_Return, "ff010200000003", "ff010000000001", "IrisOpen"},
        {kModeD, Qt::Key_C, "ff010400000005", "ff010000000001", "IrisClose"},
        {kModeD, Qt::Key_M,
         "ff01000300"
         "5f63",
         "", nullptr},
        {kModeP, Qt::Key_Enter,
         "a0000400"
         "0000af0b",
         "a0000000"
         "0000af0f",
         "IrisOpen"},
        {kModeP, Qt::Key_C,
         "a0000800"
         "0000af07",
         "a0000000"
         "0000af0f",
         "IrisClose"},
        {kModeAscii, Qt::Key_Up, "32305561", "7361", "UpArrow"}, // 20Ua, sa
        {kModeAscii, Qt::Key_O, "4f61", "7361", "IrisOpen"},     // Oa
        {kModeAscii, Qt::Key_M, "39355e61", "", nullptr},        // 95^a, no stop
    };
    for (const Case& c : cases) {
        Open(c.mode);
        const QByteArray sent = QByteArray::fromHex(c.sent);
        Down(c.key);
        EXPECT_EQ(com1_.Read(static_cast<int>(sent.size())), sent) << c.sent;
        if (c.picture) {
            EXPECT_TRUE(Lit(c.picture)) << c.picture;
        }
        Up(c.key);
        EXPECT_EQ(com1_.Drain(c.stopSent[0] ? 30 : 100), QByteArray::fromHex(c.stopSent)) << c.sent;
        if (c.picture) {
            EXPECT_FALSE(Lit(c.picture)) << c.picture;
        }
        keyboard_->MSComm1().Close();
    }
}

TEST_F(MenuControlTest, ASecondArrowIsIgnoredButItsReleaseEndsTheHold) {
    Open(kModeD);
    Down(Qt::Key_Right);
    com1_.Read(7);
    Down(Qt::Key_Up);
    EXPECT_EQ(com1_.Drain(50), QByteArray());
    EXPECT_FALSE(Lit("UpArrow"));
    Up(Qt::Key_Up);
    EXPECT_EQ(com1_.Read(7), kStopD);
    Up(Qt::Key_Right);
    EXPECT_EQ(com1_.Drain(50), QByteArray()) << "the first key's release is ignored";
    EXPECT_TRUE(Lit("RightArrow")) << "and its picture stays lit";
    Down(Qt::Key_Right);
    Up(Qt::Key_Right);
    EXPECT_EQ(com1_.Read(14), QByteArray::fromHex("ff010002200023") + kStopD);
    EXPECT_FALSE(Lit("RightArrow"));
}

TEST_F(MenuControlTest, EscWhileAnArrowIsHeldStopsAndOnlyTheNextEscCloses) {
    Open(kModeD);
    Down(Qt::Key_Down);
    com1_.Read(7);
    Down(Qt::Key_Escape);
    EXPECT_TRUE(window_->isVisible());
    Up(Qt::Key_Escape);
    EXPECT_EQ(com1_.Read(7), kStopD);
    EXPECT_TRUE(window_->isVisible());
    EXPECT_TRUE(Lit("DownArrow")) << "Esc has no picture to put back";
    Down(Qt::Key_Escape);
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(com1_.Drain(50), QByteArray());
}

} // namespace
} // namespace quellpad::test
