#include "fixtures.h"

#include "gamepad/frm_joystick.h"
#include "gamepad/stick_mapping.h"
#include "site_window/frm_simulated_site.h"
#include "traffic_window/frm_traffic.h"
#include "ui/window_memory.h"

#include <QCheckBox>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include <functional>

namespace quellpad::test {
namespace {

// The fixture gives each test a configuration folder of its own (XDG_CONFIG_HOME).
class WindowMemoryTest : public KeyboardFixture {
protected:
    void SetUp() override {
        KeyboardFixture::SetUp();
        WriteSettings("2400\r\nn\r\nFalse\r\n1 2\r\nD\r\nNone\r\n");
    }
};

TEST_F(WindowMemoryTest, EachWindowReopensWhereAndAsLargeAsItWasLeft) {
    const struct {
        const char* name;
        std::function<std::unique_ptr<QWidget>()> make;
    } windows[] = {
        {"Traffic",
         [&] {
             return std::make_unique<traffic_window::FrmTraffic>(*keyboard_);
         }},
        {"Simulated Site",
         [&] {
             return std::make_unique<site_window::FrmSimulatedSite>(*keyboard_);
         }},
        {"Joystick",
         [] {
             return std::make_unique<FrmJoystick>(DefaultGamepadBindings());
         }},
    };
    const QByteArray settings = ReadSettings();
    int shift = 0;
    QRect left;
    for (const auto& w : windows) {
        SCOPED_TRACE(w.name);
        {
            const std::unique_ptr<QWidget> window = w.make();
            window->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
            // Somewhere else than it opened, its title bar on the screen, and larger than its
            // smallest size.
            left = QRect(window->pos() + QPoint(25 + shift, 40 + shift),
                         window->minimumSizeHint().expandedTo(window->minimumSize()) +
                             QSize(40 + shift, 30 + shift));
            shift += 10;
            window->setGeometry(left);
            ASSERT_EQ(window->geometry(), left) << "the display took the size asked for";
            window->close();
        }
        const std::unique_ptr<QWidget> again = w.make();
        again->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(again.get()));
        EXPECT_EQ(again->geometry(), left);
    }
    const QString memory = dir_.filePath(QStringLiteral("config/Quellpad/Windows.conf"));
    EXPECT_EQ(ui::WindowMemoryPath(), memory);
    EXPECT_TRUE(QFile::exists(memory));
    EXPECT_EQ(ReadSettings(), settings) << "Settings.dat holds the keyboard's six lines only";
}

TEST_F(WindowMemoryTest, TrafficKeepsItsFiltersAndTheFolderLastSavedInto) {
    {
        traffic_window::FrmTraffic traffic(*keyboard_);
        traffic.findChild<QCheckBox*>(QStringLiteral("Com2FilterCheckBox"))->setChecked(false);
        traffic.findChild<QCheckBox*>(QStringLiteral("SentFilterCheckBox"))->setChecked(false);
    }
    traffic_window::FrmTraffic again(*keyboard_);
    const struct {
        const char* box;
        bool checked;
    } filters[] = {{"Com1FilterCheckBox", true},
                   {"Com2FilterCheckBox", false},
                   {"SentFilterCheckBox", false},
                   {"ReceivedFilterCheckBox", true}};
    for (const auto& f : filters) {
        EXPECT_EQ(again.findChild<QCheckBox*>(QLatin1String(f.box))->isChecked(), f.checked)
            << f.box;
    }

    EXPECT_EQ(ui::LastFolder(QStringLiteral("Traffic")),
              QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
        << "the documents folder at first, never the working directory";
    ui::KeepLastFolder(QStringLiteral("Traffic"), dir_.filePath(QStringLiteral("wire.csv")));
    EXPECT_EQ(ui::LastFolder(QStringLiteral("Traffic")), dir_.path());
}

} // namespace
} // namespace quellpad::test
