#include "main_window_fixture.h"
#include "protocol/frames.h"
#include "pseudo_terminal.h"
#include "traffic_window/frm_traffic.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

#include <random>

namespace quellpad::test {
namespace {

using traffic_window::FrmTraffic;

class ListenWindow : public MainWindowFixture {
protected:
    FrmTraffic* Open() {
        Choose("mnuTraffic");
        return window_->findChild<FrmTraffic*>(QStringLiteral("FrmTraffic"));
    }
    // Types the bus's device into the window and presses Listen, as the operator does.
    void ListenOn(FrmTraffic& traffic, const QString& device) {
        auto* box = traffic.findChild<QLineEdit*>("ListenDeviceBox");
        box->setFocus();
        QTest::keyClicks(box, device);
        QTest::mouseClick(traffic.findChild<QPushButton*>("ListenButton"), Qt::LeftButton);
    }
    static QString Verdict(FrmTraffic& traffic) {
        return traffic.findChild<QLabel*>("ListenVerdictLabel")->text();
    }
};

TEST_F(ListenWindow, HearsABusAsItsOwnPortNamesItAndNeverWritesToIt) {
    Start("D");
    FrmTraffic* traffic = Open();
    ASSERT_NE(traffic, nullptr);
    PseudoTerminal bus;
    // Listened to by a stable name, as /dev/serial/by-id gives one for a USB adapter.
    QTemporaryDir byId;
    const QString stable = byId.filePath(QStringLiteral("usb-Example_Bus_Adapter-if00-port0"));
    ASSERT_TRUE(QFile::link(bus.SlavePath(), stable));
    ListenOn(*traffic, stable);
    ASSERT_TRUE(traffic->Listener().Listening());
    EXPECT_TRUE(Verdict(*traffic).startsWith("Still listening at 2400,n,8,1: 0 valid frames"));
    for (int i = 0; i < 10; ++i) {
        for (const int address : {3, 17, 200}) {
            bus.Write(QByteArray::fromStdString(protocol::BuildDFrame(address, 0, 0x02, 20, 0)));
        }
    }
    ASSERT_TRUE(WaitUntil([&] { return traffic->Listener().Addresses().Size() == 3; }));
    EXPECT_EQ(Verdict(*traffic), "Language D at 2400,n,8,1; addresses spoken to: 3, 17, 200.");
    // Thirty commands in D and not one answer: the diagnosis says so, and what to check.
    auto* diagnosis = traffic->findChild<QLabel*>("ListenDiagnosisLabel");
    EXPECT_TRUE(diagnosis->text().startsWith("30 commands to 3 cameras at 2400,n,8,1 in D and no "
                                             "camera answers"))
        << diagnosis->text().toStdString();
    EXPECT_EQ(diagnosis->accessibleName(), diagnosis->text());
    auto* addresses = traffic->findChild<QTableWidget*>("AddressTableWidget");
    ASSERT_EQ(addresses->rowCount(), 3);
    // Sorted by frames, most first, as a click on the header does.
    addresses->sortByColumn(0, Qt::DescendingOrder);
    EXPECT_EQ(addresses->item(0, 0)->text(), "200");
    ASSERT_TRUE(WaitUntil([&] { return traffic->Filter().rowCount() > 0; }));
    EXPECT_EQ(traffic->Filter().index(0, traffic::kPort).data().toString(), "Listen");
    ASSERT_TRUE(WaitUntil([&] {
        return traffic->Filter()
                   .index(traffic->Filter().rowCount() - 1, traffic::kMeaning)
                   .data()
                   .toString() == "Listen → camera 200: pan right 20";
    }));
    // A receiver's answer to a query heard on the bus reads as an answer, not a command.
    bus.Write(QByteArray::fromStdString(protocol::BuildDFrame(17, 0, 0x51, 0, 0) +
                                        protocol::BuildDReply(17, 0x59, 12345)));
    ASSERT_TRUE(WaitUntil([&] {
        return traffic->Filter()
                   .index(traffic->Filter().rowCount() - 1, traffic::kMeaning)
                   .data()
                   .toString() == "Listen ← camera 17: pan position 123.45°";
    }));
    // The Listen filter hides its rows as COM 1's hides COM 1's.
    traffic->findChild<QCheckBox*>("ListenFilterCheckBox")->setChecked(false);
    EXPECT_EQ(traffic->Filter().rowCount(), 0);
    QTest::mouseClick(traffic->findChild<QPushButton*>("ListenButton"), Qt::LeftButton);
    EXPECT_FALSE(traffic->Listener().Listening());
    EXPECT_EQ(bus.Drain(200), QByteArray()) << "not a byte written from opening to closing";
    EXPECT_EQ(com1_.Drain(0).size() % 7, 0) << "the keyboard's own port carries only its frames";
}

TEST_F(ListenWindow, CallsAFloodOfRandomBytesGarbageAndStaysResponsive) {
    Start("D");
    FrmTraffic* traffic = Open();
    const bool open[] = {keyboard_->Port(1).IsOpen(), keyboard_->Port(2).IsOpen()};
    PseudoTerminal bus;
    ListenOn(*traffic, bus.SlavePath());
    std::mt19937 random(11);
    QByteArray noise(4096, '\0');
    for (int round = 0; round < 64; ++round) {
        for (char& byte : noise) {
            byte = static_cast<char>(random() & 0xFF);
        }
        bus.Write(noise);
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(WaitUntil(
        [&] { return Verdict(*traffic).startsWith("Garbage under every line setting"); }));
    EXPECT_EQ(traffic->Listener().Addresses().Size(), 0u);
    EXPECT_LE(traffic->Model().rowCount(), 100000);
    EXPECT_EQ(bus.Drain(100), QByteArray());
    // The keyboard's own ports heard none of it and said nothing, open or closed as before.
    ASSERT_TRUE(open[0]);
    for (int port : {1, 2}) {
        SCOPED_TRACE(port);
        EXPECT_EQ(keyboard_->Port(port).IsOpen(), open[port - 1]);
        EXPECT_EQ((port == 1 ? com1_ : com2_).Drain(100), QByteArray());
    }
    const QString responses =
        window_->findChild<QPlainTextEdit*>("AccessResponseTextBox")->toPlainText();
    EXPECT_TRUE(responses.isEmpty()) << responses.toStdString();
}

} // namespace
} // namespace quellpad::test
