#include "main_window_fixture.h"

#include "protocol/commands.h"
#include "quellpad/end_signals.h"
#include "site/site.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTest>

#include <array>
#include <csignal>
#include <unistd.h>

// Run on a virtual X display under a window manager (tests/CMakeLists.txt): a window that
// opens takes the focus and the mouse there as on a desktop, while the operator still
// holds a control. Every held motion is to end with a stop on the wire, and the camera
// at the far end is to stand still.
namespace quellpad::test {
namespace {

// COM 1's far end: what the keyboard wrote, heard by a site of its own as the receivers
// on that wire hear it.
class FarEnd {
public:
    FarEnd(PseudoTerminal& wire, const char* mode) : wire_(&wire), mux_(mode == kModeMuxAscii) {}
    // Everything that arrived within settleMs.
    QByteArray Take(int settleMs = 300) { return Heard(wire_->Drain(settleMs)); }
    // The next `count` bytes, waiting for them as long as a loaded machine may need.
    QByteArray Next(qsizetype count) { return Heard(wire_->Read(static_cast<int>(count), 3000)); }
    void Rewire(PseudoTerminal& wire) { wire_ = &wire; }
    // Whether the camera (in "MUX ASCII" the multiplexer's zoom window) moves on.
    bool Moving() {
        const auto where = Where();
        site_.Advance(0.1);
        return Where() != where;
    }

private:
    QByteArray Heard(const QByteArray& bytes) {
        site_.Hear(protocol::AsBytes(bytes.toStdString()));
        return bytes;
    }
    std::array<double, 3> Where() const {
        if (mux_) {
            return {site_.Multiplexer().ZoomX(), site_.Multiplexer().ZoomY(), 0};
        }
        const site::SimCamera& camera = site_.Camera(1);
        return {camera.Pan(), camera.Tilt(), camera.Zoom()};
    }

    PseudoTerminal* wire_;
    bool mux_;
    site::Site site_;
};

// The stop of each mode as COM 1 (address 1) receives it after a pan to the right.
QByteArray StopOf(const char* mode) {
    const QString m = QString::fromLatin1(mode);
    return m == kModeD       ? QByteArray::fromHex("ff010000000001")
           : m == kModeP     ? QByteArray::fromHex("a00000000000af0f")
           : m == kModeAscii ? QByteArray("sa")
                             : QByteArray("~dRm");
}

// What the operator holds when the window is taken from under the mouse.
enum class Hold { Drag, Latch, Lens, Nothing };
// What takes it.
enum class Taker { FailingPort, OtherProgram, Popup, EndSignal };

class HeldControlsTest : public MainWindowFixture {
protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        recorded_ = ui::SetMessagePresenter(RealMessagePresenter());
        // Every box that opens is read and then closed, as the operator would.
        boxes_.setInterval(20);
        QObject::connect(&boxes_, &QTimer::timeout, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                boxTexts_ << box->text();
                box->accept();
            }
        });
        boxes_.start();
    }
    void TearDown() override {
        boxes_.stop();
        ui::SetMessagePresenter(recorded_);
        MainWindowFixture::TearDown();
    }
    void StartActive(const char* mode) {
        Start(mode, "1 2");
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get(), kExposeWait));
    }
    QWidget* Square() const { return Child("Joystick_Square"); }
    void Take(Hold hold) {
        switch (hold) {
        case Hold::Drag:
            QTest::mousePress(Square(), Qt::LeftButton, {}, InSquare(0.25, 0));
            return;
        case Hold::Latch:
            QTest::mouseClick(Square(), Qt::RightButton, {}, InSquare(0.25, 0));
            return;
        case Hold::Lens:
            QTest::mousePress(Child("ZoomIn"), Qt::LeftButton);
            return;
        case Hold::Nothing: // a drag that ended as it should
            QTest::mousePress(Square(), Qt::LeftButton, {}, InSquare(0.25, 0));
            QTest::qWait(250);
            QTest::mouseRelease(Square(), Qt::LeftButton, {}, InSquare(0.25, 0));
            return;
        }
    }

    ui::MessagePresenter recorded_;
    QTimer boxes_;
    QStringList boxTexts_;
};

TEST_F(HeldControlsTest, AWindowThatTakesTheMouseOrTheProgramsEndStopsWhatIsHeld) {
    struct Case {
        const char* mode;
        Hold hold;
        Taker taker;
    };
    const Case cases[] = {
        {"D", Hold::Drag, Taker::FailingPort},
        {"P", Hold::Drag, Taker::FailingPort},
        {"ASCII", Hold::Drag, Taker::FailingPort},
        {"MUX ASCII", Hold::Drag, Taker::FailingPort},
        {"D", Hold::Lens, Taker::FailingPort},
        {"ASCII", Hold::Lens, Taker::FailingPort},
        {"D", Hold::Drag, Taker::OtherProgram},
        {"P", Hold::Latch, Taker::OtherProgram},
        {"ASCII", Hold::Drag, Taker::OtherProgram},
        {"MUX ASCII", Hold::Latch, Taker::OtherProgram},
        {"D", Hold::Drag, Taker::Popup},
        {"D", Hold::Drag, Taker::EndSignal},
        {"P", Hold::Lens, Taker::EndSignal},
        {"ASCII", Hold::Latch, Taker::EndSignal},
        {"MUX ASCII", Hold::Drag, Taker::EndSignal},
        {"D", Hold::Nothing, Taker::EndSignal},
    };
    const bool otherProgram = !QStandardPaths::findExecutable(QStringLiteral("xmessage")).isEmpty();
    std::unique_ptr<PseudoTerminal> com2;
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.mode << " hold " << static_cast<int>(c.hold)
                                          << " taken by " << static_cast<int>(c.taker));
        if (c.taker == Taker::OtherProgram && !otherProgram) {
            ADD_FAILURE() << "xmessage is missing (apt-get install x11-utils)";
            continue;
        }
        // COM 2 on a fresh device for each case, as a case may pull it out.
        window_.reset();
        com2 = std::make_unique<PseudoTerminal>();
        Bind(2, com2->SlavePath());
        boxTexts_.clear();
        StartActive(c.mode);
        FarEnd far(com1_, c.mode);
        Take(c.hold);
        far.Take();
        ASSERT_EQ(far.Moving(), c.hold != Hold::Nothing) << "the camera moves while held";

        QProcess other;
        std::unique_ptr<EndSignals> ends;
        switch (c.taker) {
        case Taker::FailingPort:
            com2->Hangup();
            ASSERT_TRUE(WaitUntil([&] { return !boxTexts_.isEmpty(); }));
            break;
        case Taker::OtherProgram:
            other.start(QStringLiteral("xmessage"), {QStringLiteral("another program")});
            ASSERT_TRUE(WaitUntil([&] { return !window_->isActiveWindow(); }, 10000));
            break;
        case Taker::Popup:
            QTest::keyClick(window_.get(), Qt::Key_O, Qt::AltModifier);
            ASSERT_TRUE(WaitUntil([&] { return Child<QMenu>("OptionsMenu")->isVisible(); }));
            break;
        case Taker::EndSignal:
            ends = std::make_unique<EndSignals>([this](int) { window_->close(); });
            ASSERT_EQ(raise(SIGTERM), 0);
            ASSERT_TRUE(WaitUntil([&] { return !window_->isVisible(); }));
            break;
        }
        if (c.hold == Hold::Nothing) {
            EXPECT_EQ(far.Take(), QByteArray()) << "at rest the end sends nothing";
            continue;
        }
        EXPECT_EQ(far.Next(StopOf(c.mode).size()), StopOf(c.mode));
        EXPECT_FALSE(far.Moving()) << "the camera stands still";
        EXPECT_EQ(far.Take(), QByteArray()) << "one stop, nothing after it";
        if (c.taker == Taker::EndSignal) {
            EXPECT_FALSE(keyboard_->AnyPortOpen());
            continue;
        }
        if (c.hold != Hold::Lens) {
            EXPECT_EQ(Child("Joystick_Ball")->geometry().center(), Square()->geometry().center())
                << "the knob is back at rest";
        }
        // The operator's own release, when it comes at last, finds nothing left to stop.
        Child<QMenu>("OptionsMenu")->close();
        QTest::mouseRelease(Square(), Qt::LeftButton, {}, InSquare(0.25, 0));
        QTest::mouseRelease(Child("ZoomIn"), Qt::LeftButton);
        EXPECT_EQ(far.Take(), QByteArray());
        if (other.state() != QProcess::NotRunning) {
            other.kill();
            other.waitForFinished();
        }
    }
}

TEST_F(HeldControlsTest, ASessionThatLetsGoOfEverythingPutsNoExtraByteOnTheWire) {
    // A lens button pressed and let go, a refused value's box, another program's window
    // focused, the camera's menu with an arrow pressed and let go, and the end of the
    // program: the bytes the keyboard has always sent, and not one more.
    const std::pair<const char*, QByteArray> cases[] = {
        {"D", QByteArray::fromHex("ff010020000021"
                                  "ff010000000001"
                                  "ff010003005f63"
                                  "ff010002200023"
                                  "ff010000000001")},
        {"P", QByteArray::fromHex("a00000200000af2f"
                                  "a00000000000af0f"
                                  "a0000003005faf53"
                                  "a00000022000af2d"
                                  "a00000000000af0f")},
        {"ASCII", QByteArray("Tasa95^a20Rasa")},
        {"MUX ASCII", QByteArray()},
    };
    for (const auto& [mode, wire] : cases) {
        SCOPED_TRACE(mode);
        boxTexts_.clear();
        StartActive(mode);
        const bool lensAndMenu = mode != kModeMuxAscii;
        QByteArray sent;
        if (lensAndMenu) {
            QTest::mousePress(Child("ZoomIn"), Qt::LeftButton);
            sent += com1_.Drain(300);
            QTest::mouseRelease(Child("ZoomIn"), Qt::LeftButton);
            sent += com1_.Drain(300);
        }
        QTest::keyClicks(Child<QLineEdit>("RetransmitTimeTextBox"), QStringLiteral("61"));
        EXPECT_EQ(boxTexts_.size(), 1);
        QProcess other;
        other.start(QStringLiteral("xmessage"), {QStringLiteral("another program")});
        EXPECT_TRUE(WaitUntil([&] { return !window_->isActiveWindow(); }, 10000));
        other.kill();
        other.waitForFinished();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get(), kExposeWait));
        if (lensAndMenu) {
            ASSERT_TRUE(WhileOpen(
                [&] {
                    QWidget* focus = QApplication::focusWidget();
                    QTest::keyClick(focus ? focus : window_.get(), Qt::Key_M, Qt::ShiftModifier);
                },
                [&](QDialog& window) {
                    QTest::keyPress(&window, Qt::Key_Right);
                    QTest::keyRelease(&window, Qt::Key_Right);
                }));
        }
        sent += com1_.Drain(300);
        window_->close();
        sent += com1_.Drain(300);
        EXPECT_EQ(sent, wire);
    }
}

TEST_F(HeldControlsTest, AHeldMenuArrowStopsWhenABoxOpensOverItsWindow) {
    std::unique_ptr<PseudoTerminal> com2;
    for (const char* mode : {"D", "P", "ASCII"}) {
        SCOPED_TRACE(mode);
        window_.reset();
        com2 = std::make_unique<PseudoTerminal>();
        Bind(2, com2->SlavePath());
        boxTexts_.clear();
        StartActive(mode);
        FarEnd far(com1_, mode);
        QByteArray moved;
        ASSERT_TRUE(WhileOpen([&] { Choose("MenuControlOption"); },
                              [&](QDialog& window) {
                                  QTest::keyPress(&window, Qt::Key_Right);
                                  moved = far.Take();
                                  com2->Hangup(); // the box comes while the arrow is held
                                  ASSERT_TRUE(WaitUntil([&] { return !boxTexts_.isEmpty(); }));
                              }));
        EXPECT_FALSE(moved.isEmpty()) << "the arrow moved the camera";
        EXPECT_EQ(far.Next(StopOf(mode).size()), StopOf(mode));
        EXPECT_FALSE(far.Moving());
    }
}

TEST_F(HeldControlsTest, APortThatComesBackIsToldToStopWhatItMissed) {
    // COM 1 is bound to an adapter's stable name that the test points at a new
    // pseudo-terminal, as a USB adapter comes back under the same name.
    const QString byId = dir_.filePath(QStringLiteral("by-id"));
    ASSERT_TRUE(QDir().mkpath(byId));
    qputenv("QUELLPAD_SERIAL_BY_ID_DIR", QFile::encodeName(byId));
    const auto forget = qScopeGuard([] { qunsetenv("QUELLPAD_SERIAL_BY_ID_DIR"); });
    const QString link = byId + QStringLiteral("/usb-Example_USB_Serial_0001-if00-port0");
    const auto pointAt = [&](const QString& device) {
        const QString fresh = link + QStringLiteral(".new");
        ASSERT_EQ(symlink(QFile::encodeName(device).constData(), QFile::encodeName(fresh)), 0);
        ASSERT_EQ(rename(QFile::encodeName(fresh).constData(), QFile::encodeName(link)), 0);
    };
    for (const char* mode : {"D", "P", "ASCII", "MUX ASCII"}) {
        SCOPED_TRACE(mode);
        auto before = std::make_unique<PseudoTerminal>();
        pointAt(before->SlavePath());
        Bind(1, link);
        StartActive(mode);
        FarEnd far(*before, mode);
        Take(Hold::Drag);
        far.Take();
        ASSERT_TRUE(far.Moving());
        com2_.Drain();
        before->Hangup(); // the box lets go of the knob: the stop reaches COM 2 alone
        ASSERT_TRUE(WaitUntil([&] { return boxTexts_.size() == 1; }));
        EXPECT_EQ(com2_.Read(static_cast<int>(StopOf(mode).size())), StopOf(mode));

        PseudoTerminal after;
        pointAt(after.SlavePath());
        far.Rewire(after);
        EXPECT_EQ(far.Next(StopOf(mode).size()), StopOf(mode)) << "told once it is back";
        EXPECT_FALSE(far.Moving());
        EXPECT_EQ(far.Take(), QByteArray());
        window_.reset();
        boxTexts_.clear();
        com2_.Drain();
    }
}

} // namespace
} // namespace quellpad::test
