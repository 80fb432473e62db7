#include "window_fixture.h"

#include "dialogs/type_commands.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

namespace quellpad::test {
namespace {

class TypeCommandsTest : public WindowFixture<FrmTypeCmnds> {
protected:
    void Open(const QString& mode) {
        keyboard_->CurrentMode = mode;
        window_ = std::make_unique<FrmTypeCmnds>(*keyboard_);
        window_->show();
        box_ = Child<QLineEdit>("CommandToSendTextBox");
    }
    void Type(const QString& line) {
        QTest::keyClicks(box_, line);
        QTest::keyClick(box_, Qt::Key_Return);
    }

    QLineEdit* box_ = nullptr;
};

// How a line reads as bytes is the TypedLine table's; here, the sending to every open port.
TEST_F(TypeCommandsTest, HexLinesGoOutAsTheyStandOnEveryOpenPort) {
    OpenPorts(true, true);
    Open(kModeD);
    EXPECT_TRUE(Child<QLabel>("InstructionLabel")
                    ->text()
                    .startsWith(QStringLiteral("\r\nType Hexadecimal bytes and send them by "
                                               "pressing the\"Enter\" key.  For example; FF")));
    const std::pair<const char*, const char*> lines[] = {
        {"FF 01 00 00 00 00 01", "ff010000000001"},
        {"G1\"x\"", "01"}, // G and quotes cannot be typed here
    };
    for (const auto& [line, hex] : lines) {
        Type(QString::fromLatin1(line));
        const QByteArray bytes = QByteArray::fromHex(hex);
        EXPECT_EQ(com1_.Read(static_cast<int>(bytes.size())), bytes) << line;
        EXPECT_EQ(com2_.Read(static_cast<int>(bytes.size())), bytes) << line;
        EXPECT_EQ(box_->text(), QString()) << line;
    }
    EXPECT_EQ(com1_.Drain(30), QByteArray()) << "no check byte, no line end";
    EXPECT_TRUE(ShownMessages().isEmpty());
}

TEST_F(TypeCommandsTest, EachQuoteWithoutItsPartnerIsReportedOnce) {
    OpenPorts(true, false);
    Open(kModeP);
    box_->setText(QStringLiteral("\"A\" 05 \"")); // pasted: quotes cannot be typed
    QTest::keyClick(box_, Qt::Key_Return);
    EXPECT_EQ(com1_.Read(1), QByteArray::fromHex("05")) << "the next byte takes A's place";
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_EQ(ShownMessages()[0].text, QStringLiteral("No closing quote found."));
    box_->setText(QStringLiteral("01 \"A\""));
    QTest::keyClick(box_, Qt::Key_Return);
    EXPECT_EQ(com1_.Read(2), QByteArray("\x01"
                                        "A"))
        << "a quoted character at the end is sent";
    EXPECT_EQ(ShownMessages().size(), 1);
}

TEST_F(TypeCommandsTest, AsciiLinesAreSentAsTextWithinTheLimitAndRecalledWithUpAndDown) {
    OpenPorts(true, false);
    Open(kModeAscii);
    auto* replies = Child<QPlainTextEdit>("CommandResponseTextBox");
    window_->AppendResponse(QStringLiteral("old"));
    Type(QStringLiteral("1Ma"));
    EXPECT_EQ(com1_.Read(3), QByteArray("1Ma"));
    EXPECT_EQ(replies->toPlainText(), QString()) << "Enter clears the reply";
    QTest::keyClicks(box_, QStringLiteral("2M"));
    QKeyEvent accented(QEvent::KeyPress, Qt::Key_Eacute, Qt::NoModifier, QStringLiteral("\u00e9"));
    QApplication::sendEvent(box_, &accented);
    QTest::keyClicks(box_, QStringLiteral("a"));
    EXPECT_EQ(box_->text(), QStringLiteral("2Ma")) << "no code above 127";
    QTest::keyClick(box_, Qt::Key_Return);
    com1_.Read(3);

    QTest::keyClick(box_, Qt::Key_Up);
    EXPECT_EQ(box_->text(), QStringLiteral("2Ma"));
    QTest::keyClick(box_, Qt::Key_Up);
    EXPECT_EQ(box_->text(), QStringLiteral("1Ma"));
    QTest::keyClick(box_, Qt::Key_Down);
    EXPECT_EQ(box_->text(), QStringLiteral("2Ma"));
    QTest::keyClick(box_, Qt::Key_Down);
    EXPECT_EQ(box_->text(), QString());

    QTest::keyClicks(box_, QString(86, u'x'));
    EXPECT_EQ(box_->text().size(), kTypedLineLimit);
    QTest::keyClick(box_, Qt::Key_Backspace);
    EXPECT_EQ(box_->text().size(), kTypedLineLimit - 1);
}

// A reply arriving when the box holds 50 characters or more, as received (a CR counts
// though the box does not show it), starts the box again.
TEST_F(TypeCommandsTest, TheBoxStartsAgainOnceItHasReceivedFiftyCharacters) {
    OpenPorts(true, false);
    Open(kModeAscii);
    auto* replies = Child<QPlainTextEdit>("CommandResponseTextBox");
    struct Case {
        QString reply;
        int repliesBeforeTheBoxStartsAgain;
    };
    for (const Case& c :
         {Case{u'x' + QString(24, u'-'), 2}, Case{u'x' + QString(48, u'-'), 2},
          Case{QStringLiteral("12345678\r\n"), 5}, Case{QStringLiteral("1ia"), 17}}) {
        Type(QStringLiteral("1Ma")); // Enter clears the box
        for (int i = 0; i < c.repliesBeforeTheBoxStartsAgain; ++i) {
            window_->AppendResponse(c.reply);
        }
        EXPECT_EQ(replies->toPlainText().count(c.reply.front()), c.repliesBeforeTheBoxStartsAgain)
            << qPrintable(c.reply);
        window_->AppendResponse(c.reply);
        EXPECT_EQ(replies->toPlainText().count(c.reply.front()), 1) << qPrintable(c.reply);
    }
}

} // namespace
} // namespace quellpad::test
