#include "fixtures.h"
#include "shown_messages.h"

#include "dialogs/about.h"
#include "dialogs/advanced_commands.h"
#include "dialogs/build_version.h"
#include "dialogs/extended_commands.h"
#include "dialogs/menu_control.h"
#include "dialogs/type_commands.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
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

class CommandWindowsKeyboardTest : public KeyboardFixture {};

TEST_F(CommandWindowsKeyboardTest, EveryControlIsNamedAndEveryButtonReachableByKeyboard) {
    LevelAdjusters levels;
    FrmAdvancedCommands advanced(*keyboard_);
    FrmExtendedCommands extended(*keyboard_, levels);
    FrmTypeCmnds typed(*keyboard_);
    frmMenuControl menu(*keyboard_);
    frmAbout about;
    for (QDialog* window :
         std::initializer_list<QDialog*>{&advanced, &extended, &typed, &menu, &about}) {
        const std::string name = window->objectName().toStdString();
        EXPECT_FALSE(name.empty());
        for (QWidget* control : window->findChildren<QWidget*>()) {
            const bool operable = qobject_cast<QAbstractButton*>(control) ||
                                  qobject_cast<QLineEdit*>(control) ||
                                  qobject_cast<QComboBox*>(control);
            if (!operable || control->objectName().startsWith(u"qt_")) {
                continue;
            }
            const std::string what = name + "/" + control->objectName().toStdString();
            EXPECT_FALSE(control->objectName().isEmpty()) << what;
            // What a screen reader hears: the caption, or the buddy label's text.
            const QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(heard, nullptr) << what;
            EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty()) << what;
            EXPECT_TRUE(control->focusPolicy() & Qt::TabFocus) << what;
        }
    }
}

} // namespace
} // namespace quellpad::test
