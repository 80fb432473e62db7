#include "main_window_fixture.h"

#include "protocol/decoders.h"

#include <QAbstractButton>
#include <QMenu>

#include <memory>

namespace quellpad::test {
namespace {

// Every control of the main window and every one-shot menu item, used in each mode, and
// what reached COM 1 read back through the traffic monitor's decoders: each command the
// keyboard can send decodes to words, none to "unknown", and no byte is thrown away.
class KeyboardVocabularyTest : public MainWindowFixture,
                               public ::testing::WithParamInterface<const char*> {
protected:
    void Tick(int times) {
        auto* timer = window_->findChild<QTimer*>(QStringLiteral("CommandChangeTimer"));
        for (int i = 0; i < times; ++i) {
            QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
        }
    }
    static std::unique_ptr<protocol::Decoder> DecoderFor(const QString& mode) {
        if (mode == kModeD) {
            return std::make_unique<protocol::DFrameDecoder>();
        }
        if (mode == kModeP) {
            return std::make_unique<protocol::PFrameDecoder>();
        }
        return std::make_unique<protocol::AsciiDecoder>(
            mode == kModeAscii ? protocol::Language::Ascii : protocol::Language::MuxAscii);
    }
};

TEST_P(KeyboardVocabularyTest, EverythingTheKeyboardSendsDecodesToWords) {
    const QString mode = QString::fromLatin1(GetParam());
    Start(GetParam());
    for (QAbstractButton* button : window_->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->isEnabled()) {
            QTest::mousePress(button, Qt::LeftButton);
            Tick(2);
            QTest::mouseRelease(button, Qt::LeftButton);
            Tick(2);
        }
    }
    for (QMenu* menu : window_->findChildren<QMenu*>()) {
        for (QAction* item : menu->actions()) {
            // Items that open a window, change the mode or end the program send nothing
            // of their own.
            if (item->isEnabled() && item->menu() == nullptr && !item->isCheckable() &&
                !item->text().endsWith(QStringLiteral("...")) && !item->objectName().isEmpty() &&
                item->objectName() != u"ExitOption" && item->objectName() != u"MenuControlOption") {
                item->trigger();
                Tick(2);
            }
        }
    }
    const QByteArray wire = com1_.Drain(200);
    const auto decoder = DecoderFor(mode);
    const std::vector<protocol::Command> commands = decoder->Feed(protocol::AsBytes(
        std::string_view(wire.constData(), static_cast<std::size_t>(wire.size()))));
    EXPECT_GT(commands.size(), 8u);
    EXPECT_EQ(decoder->Rejected(), 0u);
    for (const protocol::Command& command : commands) {
        EXPECT_NE(command.kind, protocol::Kind::Unknown) << command.Describe();
    }
}

INSTANTIATE_TEST_SUITE_P(EveryMode, KeyboardVocabularyTest,
                         ::testing::Values("D", "P", "ASCII", "MUX ASCII"), [](const auto& param) {
                             return std::string(param.param) == "MUX ASCII"
                                        ? std::string("MuxAscii")
                                        : std::string(param.param);
                         });

} // namespace
} // namespace quellpad::test
