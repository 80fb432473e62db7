#include "main_window_fixture.h"

#include <QLabel>
#include <QTimer>

namespace quellpad::test {
namespace {

const QString kMissing = QStringLiteral("/dev/quellpad-missing");

// The program as a newcomer starts it: ports that will not open are told in the status
// bar, with the way to the simulated site where the ports were bound (here by the
// environment), and never stop the operator with a message.
class FirstStartTest : public MainWindowFixture {
protected:
    // The notice, beside the ports' bindings, which stay in view.
    QString Notice() const {
        EXPECT_TRUE(Child<QLabel>("PortBindingsLabel")->isVisible());
        auto* notice = Child<QLabel>("StartNoticeLabel");
        return notice->isVisible() ? notice->text() : QString();
    }
    QString NoticeDetail() const {
        const QString tip = Child<QLabel>("StartNoticeLabel")->toolTip();
        return tip.mid(tip.indexOf(u'\n') + 1);
    }
    // The messages shown once the start-up's queued reports have run.
    qsizetype MessagesAfterStart() const {
        WaitUntil([] { return false; }, 100);
        return ShownMessages().size();
    }
};

TEST_F(FirstStartTest, WithNoDeviceToOpenTheStatusBarShowsThePortsClosedAndNothingElse) {
    Bind(1, kMissing);
    Bind(2, kMissing);
    Load(); // no Settings.dat: no port is enabled
    EXPECT_EQ(MessagesAfterStart(), 0);
    EXPECT_EQ(Notice(), QString());
    EXPECT_EQ(Child<QLabel>("PortBindingsLabel")->text(),
              QStringLiteral("COM 1: %1 (closed)    COM 2: %1 (closed)").arg(kMissing));
}

TEST_F(FirstStartTest, AnEnabledPortThatWillNotOpenIsToldInTheStatusBarWithTheWayToTheSite) {
    const struct {
        const char* enabled;
        bool com2Missing;
        QString told;
    } cases[] = {
        {"1 2", false,
         QStringLiteral("COM 1 (%1) did not open. Bound by QUELLPAD_COM1 or the command line; to "
                        "work without equipment, start with QUELLPAD_COM1=sim")
             .arg(kMissing)},
        {"1 2", true,
         QStringLiteral("COM 1 (%1) and COM 2 (%1) did not open. Bound by QUELLPAD_COM1 or the "
                        "command line; to work without equipment, start with QUELLPAD_COM1=sim")
             .arg(kMissing)},
        {"2", false, QString()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.told.toStdString());
        ShownMessages().clear();
        Bind(1, kMissing);
        Bind(2, c.com2Missing ? kMissing : com2_.SlavePath());
        Start("D", c.enabled);
        EXPECT_EQ(MessagesAfterStart(), 0) << "no modal window";
        EXPECT_EQ(Notice(), c.told);
        if (!c.told.isEmpty()) {
            EXPECT_TRUE(NoticeDetail().startsWith(
                QStringLiteral("COM 1 (%1) could not be opened: there is no such port")
                    .arg(kMissing)))
                << NoticeDetail().toStdString();
        }
        EXPECT_EQ(keyboard_->MSComm2().IsOpen(), !c.com2Missing);
        EXPECT_EQ(com2_.Drain(300), QByteArray()) << "an idle keyboard sends nothing";
        EXPECT_EQ(Child<QTimer>("PortWatchTimer")->isActive(), !c.told.isEmpty())
            << "a port that did not open is awaited";
    }
}

TEST_F(FirstStartTest, TheNoticeGoesOnceThePortIsBoundAnew) {
    Bind(1, kMissing);
    Start("D", "1");
    ASSERT_FALSE(Notice().isEmpty());
    Choose("Com2Option");
    EXPECT_EQ(Notice(), QString());
}

} // namespace
} // namespace quellpad::test
