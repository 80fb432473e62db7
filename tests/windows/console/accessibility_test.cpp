#include "main_window_fixture.h"

#include "dialogs/about.h"
#include "dialogs/advanced_commands.h"
#include "dialogs/extended_commands.h"
#include "dialogs/frm_label.h"
#include "dialogs/frm_settings.h"
#include "dialogs/menu_control.h"
#include "dialogs/type_commands.h"
#include "i18n/translations.h"
#include "scan_window/frm_scan.h"
#include "site_window/frm_simulated_site.h"
#include "traffic_window/frm_traffic.h"
#include "ui/controls.h"
#include "ui/palettes.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStatusBar>
#include <QStyle>
#include <QTest>
#include <QXmlStreamReader>

#include <cmath>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>

namespace quellpad::test {
namespace {

// What a screen reader finds wrong in one window, each as a line naming the control.
struct Findings {
    int checked = 0;
    QStringList faults;
};

bool Interactive(QAccessible::Role role) {
    switch (role) {
    case QAccessible::PushButton:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::List:
    case QAccessible::Table:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::PageTab:
        return true;
    default:
        return false;
    }
}

QString Describe(QAccessibleInterface* node) {
    const QObject* object = node->object();
    return QStringLiteral("%1 \"%2\"")
        .arg(object && !object->objectName().isEmpty() ? object->objectName()
                                                       : QStringLiteral("(unnamed object)"),
             node->text(QAccessible::Name));
}

// A choice box opens a list in which every item is heard by its text and can be picked.
void CheckChoiceList(QAccessibleInterface* node, Findings& findings) {
    const auto* box = qobject_cast<const QComboBox*>(node->object());
    QAccessibleInterface* list = node->childCount() > 0 ? node->child(0) : nullptr;
    if (box == nullptr || list == nullptr || list->role() != QAccessible::List) {
        findings.faults << QStringLiteral("no list to open: ") + Describe(node);
        return;
    }
    QStringList items;
    QStringList heard;
    for (int row = 0; row < box->count(); ++row) {
        items << box->itemText(row);
    }
    for (int i = 0; i < list->childCount(); ++i) {
        if (QAccessibleInterface* item = list->child(i); item->role() == QAccessible::ListItem) {
            heard << item->text(QAccessible::Name);
        }
    }
    if (heard != items) {
        findings.faults << QStringLiteral("its list is heard as [%1], not [%2]: ")
                                   .arg(heard.join(u'|'), items.join(u'|')) +
                               Describe(node);
    }
    if (node->indexOfChild(list) != 0) {
        findings.faults << QStringLiteral("its list does not lead back to it: ") + Describe(node);
    }
    if (!node->actionInterface() || !node->actionInterface()->actionNames().contains(
                                        QAccessibleActionInterface::showMenuAction())) {
        findings.faults << QStringLiteral("its list cannot be opened: ") + Describe(node);
    }
}

void Walk(QAccessibleInterface* node, Findings& findings, QHash<QString, QString>& buttons) {
    if (node == nullptr || node->state().invisible) {
        return;
    }
    const QAccessible::Role role = node->role();
    const QString name = node->text(QAccessible::Name);
    ++findings.checked;
    static const QRegularExpression control(QStringLiteral("[\\x00-\\x1f\\x7f]"));
    if (name.contains(control) || name.endsWith(u' ') || name.startsWith(u' ')) {
        findings.faults << QStringLiteral("control characters or edge blanks in ") + Describe(node);
    }
    // A picture the operator acts on or reads (the joystick, a key of the menu window) is a
    // control drawn by the program itself: it must say what it is.
    const bool drawn = role == QAccessible::Client && node->childCount() == 0 && node->object() &&
                       !node->object()->objectName().startsWith(u"qt_");
    if ((Interactive(role) || drawn) && name.trimmed().isEmpty()) {
        findings.faults << QStringLiteral("no name: ") + Describe(node);
    }
    if ((role == QAccessible::ComboBox || role == QAccessible::EditableText) && !name.isEmpty() &&
        name == node->text(QAccessible::Value)) {
        findings.faults << QStringLiteral("named by its value: ") + Describe(node);
    }
    if (role == QAccessible::PushButton && !name.isEmpty()) {
        const QString other = buttons.value(name);
        if (!other.isEmpty()) {
            findings.faults << QStringLiteral("two buttons heard alike: ") + other + " and " +
                                   Describe(node);
        }
        buttons.insert(name, Describe(node));
    }
    if (role == QAccessible::ComboBox) {
        CheckChoiceList(node, findings);
        return; // its list is the box's own, heard through the box
    }
    for (int i = 0; i < node->childCount(); ++i) {
        Walk(node->child(i), findings, buttons);
    }
}

// Walks a shown window: its own role and name, then every shown control in it.
Findings Check(QWidget* window) {
    Findings findings;
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(window);
    const QAccessible::Role role = heard->role();
    if (role != QAccessible::Window && role != QAccessible::Dialog) {
        findings.faults << QStringLiteral("not a window to a screen reader: ") + Describe(heard);
    }
    if (heard->text(QAccessible::Name) != window->windowTitle()) {
        findings.faults << QStringLiteral("window not named by its title: ") + Describe(heard);
    }
    QHash<QString, QString> buttons;
    for (int i = 0; i < heard->childCount(); ++i) {
        Walk(heard->child(i), findings, buttons);
    }
    return findings;
}

// Every window of the program in each mode: the main window and each window it opens.
class AccessibilityTest : public MainWindowFixture {
protected:
    void ForEveryWindow(const std::function<void(QWidget*, const std::string&)>& check) {
        for (const char* mode : {"D", "P", "ASCII", "MUX ASCII"}) {
            Start(mode);
            const std::string in = std::string(" in ") + mode;
            check(window_.get(), "main window" + in);
            LevelAdjusters levels;
            const std::pair<std::string, std::function<std::unique_ptr<QWidget>()>> windows[] = {
                {"advanced commands",
                 [&] {
                     return std::make_unique<FrmAdvancedCommands>(*keyboard_, window_.get());
                 }},
                {"extended commands",
                 [&] {
                     return std::make_unique<FrmExtendedCommands>(*keyboard_, levels,
                                                                  window_.get());
                 }},
                {"type commands",
                 [&] {
                     auto window = std::make_unique<FrmTypeCmnds>(*keyboard_, window_.get());
                     window->Prepare(keyboard_->CurrentMode);
                     return window;
                 }},
                {"menu control",
                 [&] {
                     return std::make_unique<frmMenuControl>(*keyboard_, window_.get());
                 }},
                {"label",
                 [&] {
                     return std::make_unique<FrmLabel>(*keyboard_, window_.get());
                 }},
                {"about",
                 [&] {
                     return std::make_unique<frmAbout>(window_.get());
                 }},
                {"settings",
                 [&] {
                     return std::make_unique<frmSettings>(*keyboard_, window_.get());
                 }},
                {"traffic",
                 [&] {
                     return std::make_unique<traffic_window::FrmTraffic>(*keyboard_, window_.get());
                 }},
                {"simulated site",
                 [&] {
                     return std::make_unique<site_window::FrmSimulatedSite>(*keyboard_,
                                                                            window_.get());
                 }},
                {"scan for receivers",
                 [&] {
                     return std::make_unique<scan_window::FrmScan>(
                         *keyboard_, [](int) {}, window_.get());
                 }},
            };
            for (const auto& [name, make] : windows) {
                const std::unique_ptr<QWidget> window = make();
                check(window.get(), name + in);
                window->hide();
            }
        }
    }
};

TEST_F(AccessibilityTest, EveryWindowIsHeardAsAWindowAndEveryControlByWhatItIs) {
    ForEveryWindow([this](QWidget* window, const std::string& where) {
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        const Findings findings = Check(window);
        EXPECT_GT(findings.checked, 0) << where;
        std::cout << "heard: " << where << ": " << findings.checked << " controls\n";
        for (const QString& fault : findings.faults) {
            ADD_FAILURE() << where << ": " << fault.toStdString();
        }
    });
}

TEST_F(AccessibilityTest, TabAndShiftTabLeaveEveryControlOfEveryWindow) {
    ForEveryWindow([](QWidget* window, const std::string& where) {
        window->show();
        window->activateWindow();
        // A dialog shares its owner's activation; the keys go where the application says.
        ASSERT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == window; })) << where;
        // In the command windows and About every button, box and choice, shown in this mode
        // or not, is named, heard, and on Tab's way (the settings window's baud rates and
        // parities are reached by the arrows instead).
        const bool commandWindow =
            qobject_cast<FrmAdvancedCommands*>(window) ||
            qobject_cast<FrmExtendedCommands*>(window) || qobject_cast<FrmTypeCmnds*>(window) ||
            qobject_cast<frmMenuControl*>(window) || qobject_cast<frmAbout*>(window);
        QList<QWidget*> stops;
        for (QWidget* control : window->findChildren<QWidget*>()) {
            const bool operable = qobject_cast<QAbstractButton*>(control) ||
                                  qobject_cast<QLineEdit*>(control) ||
                                  qobject_cast<QComboBox*>(control);
            if (commandWindow && operable && !control->objectName().startsWith(u"qt_")) {
                const std::string what = where + ": " + control->objectName().toStdString();
                EXPECT_FALSE(control->objectName().isEmpty()) << what;
                EXPECT_FALSE(QAccessible::queryAccessibleInterface(control)
                                 ->text(QAccessible::Name)
                                 .isEmpty())
                    << what;
                EXPECT_TRUE(control->focusPolicy() & Qt::TabFocus) << what << " is out of reach";
            }
            if ((control->focusPolicy() & Qt::TabFocus) && control->isVisible() &&
                control->isEnabled() && control->focusProxy() == nullptr) {
                stops.append(control);
            }
        }
        if (stops.size() < 2) {
            return; // a window of one box (the label window) has nowhere else to go
        }
        for (QWidget* control : stops) {
            for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
                control->setFocus(Qt::TabFocusReason);
                // In a table or list the operator has clicked a row before leaving it.
                if (auto* view = qobject_cast<QAbstractItemView*>(control);
                    view && view->model() && view->model()->rowCount() > 0) {
                    const QModelIndex first = view->model()->index(0, 0);
                    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                                      view->visualRect(first).center());
                }
                QWidget* before = QApplication::focusWidget();
                ASSERT_TRUE(before == control || control->isAncestorOf(before))
                    << where << ": " << control->objectName().toStdString() << " took no focus";
                QTest::keyClick(before, key);
                QWidget* after = QApplication::focusWidget();
                EXPECT_TRUE(after != before && !before->isAncestorOf(after))
                    << where << ": " << (key == Qt::Key_Tab ? "Tab" : "Shift+Tab") << " stays in "
                    << control->objectName().toStdString() << " ("
                    << control->metaObject()->className() << ")";
            }
        }
    });
}

// WCAG's relative luminance and contrast ratio.
double Luminance(const QColor& colour) {
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}
double Contrast(const QColor& a, const QColor& b) {
    const double la = Luminance(a);
    const double lb = Luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The text a control shows, its colour and the colour drawn behind it; nullopt for a
// control that shows no text of its own.
std::optional<std::pair<QColor, QColor>> TextAndBackground(const QWidget* control) {
    const QPalette& p = control->palette();
    const bool box = qobject_cast<const QLineEdit*>(control) ||
                     qobject_cast<const QAbstractSpinBox*>(control) ||
                     qobject_cast<const QAbstractScrollArea*>(control);
    if (box) {
        return std::pair{p.color(QPalette::Text), p.color(QPalette::Base)};
    }
    if (qobject_cast<const QPushButton*>(control) || qobject_cast<const QComboBox*>(control)) {
        return std::pair{p.color(QPalette::ButtonText), p.color(QPalette::Button)};
    }
    const auto* label = qobject_cast<const QLabel*>(control);
    const auto* option = qobject_cast<const QAbstractButton*>(control);
    const auto* frame = qobject_cast<const QGroupBox*>(control);
    const bool text = (label && !label->text().isEmpty()) ||
                      (option && !option->text().isEmpty()) || (frame && !frame->title().isEmpty());
    if (!text) {
        return std::nullopt;
    }
    for (const QWidget* behind = control; behind; behind = behind->parentWidget()) {
        if (behind->autoFillBackground() || behind->isWindow()) {
            return std::pair{p.color(control->foregroundRole()),
                             behind->palette().color(behind->backgroundRole())};
        }
    }
    return std::nullopt;
}

TEST_F(AccessibilityTest, EveryTextReadsAgainstItsBackgroundUnderEveryPalette) {
    const QPalette desktop = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(desktop); });
    const std::pair<const char*, QPalette> palettes[] = {
        {"light", QApplication::style()->standardPalette()},
        {"dark", ui::DarkPalette()},
        {"high contrast", ui::HighContrastPalette()}};
    for (const auto& [paletteName, palette] : palettes) {
        QApplication::setPalette(palette);
        ForEveryWindow([&](QWidget* window, const std::string& where) {
            window->show();
            window->grab(); // polished and drawn as the operator sees it
            int checked = 0;
            double lowest = 21;
            for (const QWidget* control : window->findChildren<QWidget*>()) {
                // The echo boxes keep their own dark face and bright text in every palette.
                if (!control->isVisible() || !control->isEnabled() || ui::IsReadout(control) ||
                    !control->styleSheet().isEmpty()) {
                    continue;
                }
                if (const auto colours = TextAndBackground(control)) {
                    ++checked;
                    const double ratio = Contrast(colours->first, colours->second);
                    lowest = std::min(lowest, ratio);
                    EXPECT_GE(ratio, 4.5) << where << " under the " << paletteName
                                          << " palette: " << control->objectName().toStdString()
                                          << " " << colours->first.name().toStdString() << " on "
                                          << colours->second.name().toStdString();
                }
            }
            std::cout << "contrast: " << where << ", " << paletteName << ": " << checked
                      << " texts, lowest " << lowest << "\n";
        });
    }
}

// The texts an operator reads in a window, each with the control that shows it.
QList<std::pair<QString, QString>> ShownTexts(QWidget* window) {
    QList<std::pair<QString, QString>> texts = {{window->windowTitle(), QStringLiteral("title")}};
    for (QWidget* control : window->findChildren<QWidget*>()) {
        if (!control->isVisibleTo(window)) {
            continue;
        }
        if (const auto* button = qobject_cast<QAbstractButton*>(control)) {
            texts.append({button->text(), button->objectName()});
        } else if (const auto* label = qobject_cast<QLabel*>(control)) {
            texts.append({label->text(), label->objectName()});
        } else if (const auto* group = qobject_cast<QGroupBox*>(control)) {
            texts.append({group->title(), group->objectName()});
        }
    }
    for (const QMenuBar* bar : window->findChildren<QMenuBar*>()) {
        for (const QAction* action : bar->actions()) {
            texts.append({action->text(), QStringLiteral("menu bar")});
            if (action->menu() != nullptr) {
                for (const QAction* item : action->menu()->actions()) {
                    texts.append({item->text(), action->menu()->objectName()});
                }
            }
        }
    }
    return texts;
}

// Access keys that two controls of one window share ("Alt+O: A and B"); a menu's items
// count apart from the window, as Alt reaches them only once the menu is open.
QStringList SharedAccessKeys(QWidget* window) {
    QStringList shared;
    QHash<QString, QString> owners;
    for (const auto& [text, owner] : ShownTexts(window)) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (key.isEmpty()) {
            continue;
        }
        const bool inMenu = owner.endsWith(QLatin1String("Menu"));
        const QString where = (inMenu ? owner + u' ' : QString()) + key.toString();
        if (owners.contains(where)) {
            shared << where + QStringLiteral(": ") + owners.value(where) + QStringLiteral(" and ") +
                          owner;
        }
        owners.insert(where, owner);
    }
    return shared;
}

// English texts of the catalogue whose German reads otherwise wherever they stand.
QSet<QString> TranslatedSources() {
    QFile file(QStringLiteral(QUELLPAD_SOURCE_DIR "/logic/i18n/quellpad_de.ts"));
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    QSet<QString> differing;
    QSet<QString> alike; // "Start" stays "Start" on the main window, whatever it is elsewhere
    QString source;
    while (!xml.atEnd()) {
        if (!xml.readNextStartElement()) {
            continue;
        }
        if (xml.name() == u"source") {
            source = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (xml.name() == u"translation") {
            const bool same = xml.readElementText(QXmlStreamReader::IncludeChildElements) == source;
            (same ? alike : differing).insert(source);
        }
    }
    return differing - alike;
}

// A German operator gets every window in German, and each Alt key still reaches one control
// only (unless the English window has the two share it too).
TEST_F(AccessibilityTest, InGermanEveryWindowSpeaksGermanAndKeepsItsAccessKeysApart) {
    QHash<std::string, QStringList> englishShared;
    ForEveryWindow([&](QWidget* window, const std::string& where) {
        englishShared.insert(where, SharedAccessKeys(window));
    });
    const QSet<QString> english = TranslatedSources();
    ASSERT_GT(english.size(), 400);
    ASSERT_TRUE(InstallTranslations(QLocale(QLocale::German, QLocale::Germany)));
    const auto restore = qScopeGuard([] { RemoveTranslations(); });
    ForEveryWindow([&](QWidget* window, const std::string& where) {
        for (const QString& shared : SharedAccessKeys(window)) {
            EXPECT_TRUE(englishShared.value(where).contains(shared))
                << where << ": " << shared.toStdString();
        }
        for (const auto& [text, owner] : ShownTexts(window)) {
            EXPECT_FALSE(english.contains(text)) << where << ": " << owner.toStdString()
                                                 << " still reads \"" << text.toStdString() << "\"";
        }
    });
}

TEST_F(AccessibilityTest, TheJoystickSaysHowToDriveIt) {
    Start("D");
    QAccessibleInterface* joystick =
        QAccessible::queryAccessibleInterface(Child("Joystick_Square"));
    EXPECT_EQ(joystick->text(QAccessible::Name), u"Joystick");
    EXPECT_TRUE(joystick->text(QAccessible::Description).contains(u"right click"));
}

TEST(RowActionName, SaysTheActionWithWhatItActsOn) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"Set Pan Position", "Set ", "Set pan position"},
        {"Query Zoom Position", "Query", "Query zoom position"},
        {"Go To Zero Pan", "Go", "Go to zero pan"},
        {"Auto Focus", "on", "Auto focus on"},
        {"Auto AGC", "off", "Auto AGC off"},
        {"Query", "Query", "Query"},
    };
    for (const auto& [row, caption, heard] : rows) {
        EXPECT_EQ(ui::RowActionName(QLatin1String(row), QLatin1String(caption)),
                  QLatin1String(heard));
    }
    // German keeps its nouns' capitals, and a row that ends on its verb is not said twice.
    ASSERT_TRUE(InstallTranslations(QLocale(QLocale::German, QLocale::Germany)));
    const auto english = qScopeGuard([] { RemoveTranslations(); });
    const std::tuple<QString, QString, QString> german[] = {
        {QStringLiteral("Schwenkposition setzen"), QStringLiteral("Setzen"),
         QStringLiteral("Schwenkposition setzen")},
        {QStringLiteral("Auto-Weißabgleich"), QStringLiteral("ein"),
         QStringLiteral("Auto-Weißabgleich ein")},
        {QStringLiteral("Kamera auf Werkseinstellungen"), QStringLiteral("Zurücksetzen"),
         QStringLiteral("Kamera auf Werkseinstellungen Zurücksetzen")},
    };
    for (const auto& [row, caption, heard] : german) {
        EXPECT_EQ(ui::RowActionName(row, caption), heard);
    }
}

} // namespace
} // namespace quellpad::test
