#include "fixtures.h"
#include "shown_messages.h"

#include "dialogs/about.h"
#include "dialogs/build_version.h"

#include <QLabel>
#include <QPushButton>

namespace quellpad::test {
namespace {

TEST(AboutWindow, ShowsItsTitleAndTheBuildsVersion) {
    ShownMessages().clear();
    frmAbout window;
    const auto text = [&](const char* name) {
        return window.findChild<QLabel*>(QLatin1String(name))->text();
    };
    EXPECT_EQ(window.windowTitle(), QStringLiteral("About Quellpad"));
    EXPECT_EQ(VersionCaption(1, 0, 3), QStringLiteral("Quellpad-  Version 1.0.3A"));
    EXPECT_EQ(text("lblVersion"), VersionCaption(kVersionMajor, kVersionMinor, kVersionRevision));

    window.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->click();
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_EQ(ShownMessages()[0].text,
              QStringLiteral("System Information Is Unavailable At This Time"));
    window.show();
    window.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace quellpad::test
