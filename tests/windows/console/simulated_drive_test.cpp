#include "main_window_fixture.h"
#include "protocol/frames.h"

#include "console/frm_main.h"
#include "dialogs/frm_settings.h"
#include "site/simulated_line.h"
#include "site_window/frm_simulated_site.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

#include <QPlainTextEdit>
#include <QTest>

#include <cmath>
#include <tuple>

namespace quellpad::test {
namespace {

// The real main window with both COM ports on simulated sites.
class SimulatedDriveTest : public MainWindowFixture {
protected:
    void Start(const char* mode, const char* enabled = "1 2") {
        Bind(1, QStringLiteral("sim"));
        Bind(2, QStringLiteral("sim"));
        WriteSettings(QByteArray("2400\r\nn\r\nFalse\r\n1 2\r\n") + mode + "\r\n" + enabled +
                      "\r\n");
        LoadOn(&site::MakeLine);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
        ASSERT_TRUE(keyboard_->MSComm1().IsOpen());
        ASSERT_EQ(keyboard_->MSComm2().IsOpen(), QByteArray(enabled) == "1 2");
        ASSERT_EQ(keyboard_->MSComm1().Device(), QStringLiteral("simulated site"));
    }
    const site::Site& Site1() {
        return dynamic_cast<site::SimulatedLine&>(keyboard_->MSComm1()).Equipment();
    }
    QString Responses() const {
        return Child<QPlainTextEdit>("AccessResponseTextBox")->toPlainText();
    }
    static double Turned(double from, double to) {
        const double d = std::fmod(to - from + 540.0, 360.0) - 180.0;
        return d;
    }
};

TEST_F(SimulatedDriveTest, JoystickHeldRightPansTheCameraAndThePanQueryReportsIt) {
    // COM 2 closed: two sites answering at once interleave their bytes in the one box.
    Start("D", "1");
    QWidget* square = Child("Joystick_Square");
    const QPoint right = square->rect().center() + QPoint(square->width() / 4, 0);
    const double before = Site1().Camera(1).Pan();
    QTest::mousePress(square, Qt::LeftButton, {}, right);
    ASSERT_TRUE(WaitUntil([&] { return Site1().Camera(1).Moving().pan == 1; }));
    QElapsedTimer moving;
    moving.start();
    const int speed = Site1().Camera(1).Moving().panSpeed;
    QTest::qWait(2000);
    QTest::mouseRelease(square, Qt::LeftButton, {}, right);
    ASSERT_TRUE(WaitUntil([&] { return Site1().Camera(1).Moving().pan == 0; }));
    const double seconds = static_cast<double>(moving.nsecsElapsed()) / 1e9;
    ASSERT_TRUE(WaitUntil([&] { return !Site1().Busy(); }));
    const double turned = Turned(before, Site1().Camera(1).Pan());
    // As long as it was seen moving, however long a busy machine held it.
    const double expected = seconds * site::DegreesPerSecond(speed);
    EXPECT_NEAR(turned, expected, 0.1 * expected) << "speed " << speed;

    keyboard_->SetCommandBytes(0, 0x51, 0, 0);
    const int hundredths = static_cast<int>(std::lround(Site1().Camera(1).Pan() * 100)) % 36000;
    const QString reply = QString::fromLatin1(
        QByteArray::fromStdString(protocol::BuildDReply(1, 0x59, hundredths)).toHex(' ').toUpper());
    EXPECT_TRUE(WaitUntil([&] { return Responses().contains(QLatin1Char(' ') + reply); }))
        << Responses().toStdString() << " lacks " << reply.toStdString();
}

TEST_F(SimulatedDriveTest, PresetStoredWithItsLabelAndRecalledThroughTheButtons) {
    Start("D");
    keyboard_->LabelText = QStringLiteral("DOCK");
    auto* number = Child<QLineEdit>("PresetNumberTextBox");
    number->clear();
    QTest::keyClicks(number, QStringLiteral("5"));
    const auto click = [this](const char* button) {
        QTest::mouseClick(window_->findChild<QAbstractButton*>(QLatin1String(button)),
                          Qt::LeftButton);
    };
    click("PresetSetButton");
    // Twenty label characters at one a tick, then the preset.
    ASSERT_TRUE(WaitUntil([&] { return Site1().Camera(1).StoredPreset(5).has_value(); }, 5000));
    EXPECT_EQ(Site1().Camera(1).StoredPreset(5)->label, "DOCK");
    const double stored = Site1().Camera(1).Pan();
    keyboard_->SetCommandBytes(0, 0x4B, 0x46, 0x50); // set pan 180.00
    ASSERT_TRUE(WaitUntil([&] { return std::abs(Site1().Camera(1).Pan() - 180.0) < 1e-6; }));
    click("PresetGoButton");
    EXPECT_TRUE(WaitUntil([&] { return std::abs(Site1().Camera(1).Pan() - stored) < 1e-6; }));
    EXPECT_EQ(Site1().Camera(1).PresetLabel(), "DOCK");
}

TEST_F(SimulatedDriveTest, MonitorAndCameraSelectedOnTheSwitcherThroughTheButtons) {
    Start("ASCII");
    for (const auto& [box, number, button] :
         {std::tuple{"MonitorNumberTextBox", "4", "MonitorButton"},
          std::tuple{"CameraNumberTextBox", "7", "CameraButton"}}) {
        auto* edit = window_->findChild<QLineEdit*>(QLatin1String(box));
        ASSERT_NE(edit, nullptr) << box;
        edit->clear();
        QTest::keyClicks(edit, QLatin1String(number));
        QTest::mouseClick(window_->findChild<QAbstractButton*>(QLatin1String(button)),
                          Qt::LeftButton);
        ASSERT_TRUE(WaitUntil([&] {
            return !Site1().SwitcherLog().empty() &&
                   Site1().SwitcherLog().back().find(number) != std::string::npos;
        }));
    }
    EXPECT_EQ(Site1().Switcher().SelectedMonitor(), 4);
    EXPECT_EQ(Site1().Switcher().CameraOn(4), 7);
    EXPECT_EQ(Site1().SwitcherLog().back(), "ASCII: camera 7");
}

TEST_F(SimulatedDriveTest, SiteWindowIsMadeAtTheFirstRequestAndSitsBesideTheKeyboard) {
    Start("D");
    EXPECT_EQ(window_->findChild<QWidget*>(QStringLiteral("FrmSimulatedSite")), nullptr);
    Choose("SimulatedSiteOption");
    auto* site = window_->findChild<QWidget*>(QStringLiteral("FrmSimulatedSite"));
    ASSERT_NE(site, nullptr);
    EXPECT_TRUE(site->isVisible());
    EXPECT_FALSE(site->isModal());
    EXPECT_TRUE(window_->isEnabled());
    EXPECT_NE(site->findChild<QWidget*>(QStringLiteral("COM2SitePanel")), nullptr);

    keyboard_->SetCommandBytes(0, 0x4B, 0x46, 0x50); // set pan 180.00
    QWidget* com1 = site->findChild<QWidget*>(QStringLiteral("COM1SitePanel"));
    QWidget* camera = com1->findChild<QWidget*>(QStringLiteral("Camera1View"));
    EXPECT_TRUE(WaitUntil([&] { return camera->accessibleDescription().startsWith("pan 180.00"); }))
        << camera->accessibleDescription().toStdString() << " site pan " << Site1().Camera(1).Pan()
        << " log " << Site1().CameraLog(1).size();
    auto* log = com1->findChild<QPlainTextEdit*>(QStringLiteral("CameraLogTextBox"));
    EXPECT_TRUE(log->toPlainText().contains(QStringLiteral("D: set pan 180.00")));

    Choose("SimulatedSiteOption");
    EXPECT_EQ(window_->findChildren<site_window::FrmSimulatedSite*>().size(), 1);
}

// An installer rewires COM 1's site in its window, as for commissioning a site whose domes
// sit at other addresses and speed: the pictures follow, the keyboard's line reaches the
// new equipment only at its settings, a mistyped text changes nothing, and the next start
// finds the site as it was left.
TEST_F(SimulatedDriveTest, TheSiteWindowRewiresTheSiteAndTheNextStartKeepsIt) {
    Start("D");
    Choose("SimulatedSiteOption");
    auto* panel = Child("COM1SitePanel");
    auto* cameras = panel->findChild<QLineEdit*>(QStringLiteral("SiteCamerasTextBox"));
    auto* format = panel->findChild<QLineEdit*>(QStringLiteral("SiteLineSettingsTextBox"));
    auto* rewire = panel->findChild<QAbstractButton*>(QStringLiteral("RewireSiteButton"));
    auto* note = panel->findChild<QLabel*>(QStringLiteral("SiteWiringLabel"));
    EXPECT_EQ(cameras->text(), QStringLiteral("1-8"));
    EXPECT_EQ(format->text(), QStringLiteral("2400,n,8,1"));
    const auto type = [](QLineEdit* box, const char* text) {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QLatin1String(text));
    };

    type(cameras, "3,17,300");
    QTest::mouseClick(rewire, Qt::LeftButton);
    EXPECT_TRUE(note->text().startsWith(QStringLiteral("Not rewired")));
    EXPECT_EQ(Site1().Wired().cameras.size(), 8U);

    type(cameras, "200,3,17");
    type(format, "4800,n,8,1");
    QTest::keyClick(format, Qt::Key_Return);
    EXPECT_EQ(Site1().Wired().cameras, (std::vector<int>{3, 17, 200}));
    EXPECT_EQ(cameras->text(), QStringLiteral("3,17,200"));
    for (const char* name : {"Camera3View", "Camera17View", "Camera200View"}) {
        EXPECT_NE(panel->findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
    }
    EXPECT_EQ(panel->findChild<QWidget*>(QStringLiteral("Camera1View")), nullptr);

    // The keyboard at 2400 now reaches equipment listening at 4800: garbage, no answer.
    keyboard_->AddressCOM1 = 3;
    keyboard_->SetCommandBytes(0, 0x51, 0, 0);
    QTest::qWait(300);
    EXPECT_TRUE(Site1().CameraLog(3).empty());

    window_.reset();
    keyboard_.reset();
    const auto line = site::MakeLine(1);
    auto& again = dynamic_cast<site::SimulatedLine&>(*line);
    EXPECT_EQ(again.Equipment().Wired().cameras, (std::vector<int>{3, 17, 200}));
    EXPECT_EQ(site::LineFormatText(again.EquipmentFormat()), QStringLiteral("4800,n,8,1"));
    EXPECT_EQ(site::MakeLine(2)->Device(), QStringLiteral("simulated site"));
    EXPECT_EQ(
        dynamic_cast<site::SimulatedLine&>(*site::MakeLine(2)).Equipment().Wired().cameras.size(),
        8U);
}

// The site window shows the equipment of the lines it was made for; a port bound anew
// while it is open brings up the site of the new line, never the one let go.
TEST_F(SimulatedDriveTest, APortBoundAnewInTheSettingsWindowShowsItsNewSite) {
    Start("D");
    Choose("SimulatedSiteOption");
    QPointer<QWidget> before = window_->findChild<QWidget*>(QStringLiteral("FrmSimulatedSite"));
    qunsetenv("QUELLPAD_COM2");
    QTimer::singleShot(0, [] {
        auto* settings = qobject_cast<frmSettings*>(QApplication::activeModalWidget());
        ASSERT_NE(settings, nullptr);
        auto* box = settings->findChild<QComboBox*>(QStringLiteral("cboCom2Device"));
        box->setCurrentIndex(box->findText(QStringLiteral("Simulated site")));
        settings->Save_Click();
    });
    Choose("Settings_Menu_Option");

    EXPECT_TRUE(before.isNull());
    auto* site = window_->findChild<QWidget*>(QStringLiteral("FrmSimulatedSite"));
    ASSERT_NE(site, nullptr);
    EXPECT_TRUE(site->isVisible());
    ASSERT_NE(site->findChild<QWidget*>(QStringLiteral("COM2SitePanel")), nullptr);
    EXPECT_TRUE(keyboard_->MSComm2().IsOpen());
    keyboard_->SetCommandBytes(0, 0x4B, 0x46, 0x50); // set pan 180.00
    keyboard_->SendCommand();
    EXPECT_EQ(
        dynamic_cast<site::SimulatedLine&>(keyboard_->MSComm2()).Equipment().CameraLog(1).back(),
        "D: set pan 180.00");
}

} // namespace
} // namespace quellpad::test
