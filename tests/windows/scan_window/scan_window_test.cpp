#include "main_window_fixture.h"
#include "protocol/frames.h"
#include "scan_window/frm_scan.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

namespace quellpad::test {
namespace {

using protocol::BuildDFrame;
using scan_window::FrmScan;

class ScanWindow : public MainWindowFixture {
protected:
    FrmScan* Open() {
        Choose("mnuScan");
        return window_->findChild<FrmScan*>(QStringLiteral("FrmScan"));
    }
    template <typename T> T* In(FrmScan& scan, const char* name) {
        return scan.findChild<T*>(QLatin1String(name));
    }
};

TEST_F(ScanWindow, WarnsThenSendsOnlyQueriesListsWhoAnsweredAndGivesThePortBack) {
    Start("D");
    EXPECT_EQ(window_->findChild<FrmScan*>(), nullptr) << "made only when first asked for";
    FrmScan* scan = Open();
    ASSERT_NE(scan, nullptr);
    EXPECT_TRUE(In<QLabel>(*scan, "WarningLabel")->text().contains(com1_.SlavePath()));
    EXPECT_EQ(In<QSpinBox>(*scan, "FirstAddressBox")->value(), 1);
    EXPECT_EQ(In<QSpinBox>(*scan, "LastAddressBox")->value(), 255);
    // P cannot be scanned without moving something: the window says so and will not scan.
    In<QComboBox>(*scan, "LanguageBox")->setCurrentIndex(1);
    EXPECT_FALSE(In<QPushButton>(*scan, "ScanButton")->isEnabled());
    EXPECT_TRUE(In<QLabel>(*scan, "WarningLabel")->text().startsWith("P receivers answer no"));
    In<QComboBox>(*scan, "LanguageBox")->setCurrentIndex(0);
    const QString before = com1_.LineSettings();
    com1_.Drain(300);
    for (const char* baud : {"Baud4800Box", "Baud9600Box", "Baud19200Box"}) {
        In<QCheckBox>(*scan, baud)->setChecked(false);
    }
    In<QSpinBox>(*scan, "LastAddressBox")->setValue(3);
    In<QSpinBox>(*scan, "WaitBox")->setValue(300);
    keyboard_->Command2 = 0x02; // a pan the dispatcher would send, were it not paused
    keyboard_->Data1 = 32;
    QTest::mouseClick(In<QPushButton>(*scan, "ScanButton"), Qt::LeftButton);
    for (int address = 1; address <= 3; ++address) {
        EXPECT_EQ(com1_.Read(7), QByteArray::fromStdString(BuildDFrame(address, 0, 0x51, 0, 0)));
        if (address == 2) {
            com1_.Write(QByteArray::fromStdString(protocol::BuildDReply(2, 0x59, 12345)));
        }
    }
    ASSERT_TRUE(WaitUntil([&] { return !scan->Scanning(); }));
    auto* results = In<QTableWidget>(*scan, "ResultsTable");
    ASSERT_EQ(results->rowCount(), 1);
    EXPECT_EQ(results->item(0, 0)->text(), "COM 1");
    EXPECT_EQ(results->item(0, 1)->text(), "2400");
    EXPECT_EQ(results->item(0, 2)->text(), "2");
    EXPECT_EQ(results->item(0, 4)->text(), "pan is 123.45");
    EXPECT_EQ(com1_.LineSettings(), before);
    // The dispatcher runs again once the scan is over.
    EXPECT_EQ(com1_.Read(7), QByteArray::fromStdString(BuildDFrame(1, 0, 0x02, 32, 0)));
}

TEST_F(ScanWindow, CancelStopsTheScanAtOnce) {
    Start("D");
    FrmScan* scan = Open();
    QTest::mouseClick(In<QPushButton>(*scan, "ScanButton"), Qt::LeftButton);
    ASSERT_TRUE(scan->Scanning());
    com1_.Read(7);
    QTest::mouseClick(In<QPushButton>(*scan, "CancelButton"), Qt::LeftButton);
    EXPECT_FALSE(scan->Scanning());
    EXPECT_EQ(In<QLabel>(*scan, "TimeLeftLabel")->text(), "Cancelled.");
}

} // namespace
} // namespace quellpad::test
