#include "fixtures.h"

#include "ui/key_filter.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace quellpad::ui {
namespace {

struct TypingCase {
    const char* name;
    QString start;
    int cursor;
    QString typed;
    QString expected;
};

class KeyFilterTest : public ::testing::TestWithParam<TypingCase> {};

TEST_P(KeyFilterTest, TypedCharactersAreFilteredAtTheCursor) {
    const TypingCase& c = GetParam();
    QLineEdit box;
    FilterCharacters(&box, &DecimalNumber);
    box.setText(c.start);
    box.setCursorPosition(c.cursor);
    QTest::keyClicks(&box, c.typed);
    EXPECT_EQ(box.text(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    DecimalBox, KeyFilterTest,
    ::testing::Values(TypingCase{"DigitsPass", "", 0, "12", "12"},
                      TypingCase{"LettersAndMinusAreDropped", "", 0, "1a-b2", "12"},
                      TypingCase{"OnePoint", "", 0, "1.2.5", "1.25"},
                      TypingCase{"PointBeforeAnExistingPointIsDropped", "1.5", 0, ".", "1.5"},
                      TypingCase{"DigitInTheMiddle", "15", 1, "2", "125"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(KeyFilter, EditingKeysAndShortcutsPassWhileCharactersAreFiltered) {
    QWidget window;
    auto* box = new QLineEdit(&window);
    auto* next = new QLineEdit(&window);
    FilterCharacters(box, &DigitsOnly);
    window.show();
    box->setFocus();
    QTest::keyClicks(box, "1234");
    QTest::keyClick(box, Qt::Key_Home);
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClick(box, Qt::Key_End);
    QTest::keyClick(box, Qt::Key_Backspace);
    EXPECT_EQ(box->text(), QStringLiteral("23"));
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("23"));
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), next) << "Tab leaves a filtered box";
}

TEST(KeyFilter, PastedTextIsTakenOnlyWhenTheKeysCouldHaveTypedIt) {
    struct Case {
        const char* clipboard;
        const char* expected;
    };
    for (const Case& c :
         {Case{"42", "742"}, Case{"4x2", "7"}, Case{"-3", "7"},
          Case{"123456789012345678901234567890", "7123456789012345678901234567890"}}) {
        QLineEdit box;
        FilterCharacters(&box, &DigitsOnly);
        box.setText(QStringLiteral("7"));
        QApplication::clipboard()->setText(QLatin1String(c.clipboard));
        box.paste();
        EXPECT_EQ(box.text(), QLatin1String(c.expected)) << c.clipboard;
    }
}

TEST(KeyFilter, WhetherABoxWouldTakeACharacterAsItStands) {
    struct Case {
        const char* what;
        CharacterRule rule; // none: an unfiltered box
        bool readOnly;
        const char* text;
        int selectFrom, selectLength; // a selection the character replaces
        QChar character;
        bool accepted;
    };
    const Case cases[] = {
        {"a digit in a number box", &DigitsOnly, false, "12", 0, 0, u'3', true},
        {"a letter in a number box", &DigitsOnly, false, "12", 0, 0, u'M', false},
        {"a second point", &DecimalNumber, false, "1.5", 0, 0, u'.', false},
        {"a point over the selected point", &DecimalNumber, false, "1.5", 1, 1, u'.', true},
        {"a letter in a free box", {}, false, "Gate", 0, 0, u'M', true},
        {"a letter in a read-only box", {}, true, "Gate", 0, 0, u'M', false},
    };
    for (const Case& c : cases) {
        QLineEdit box(QLatin1String(c.text));
        if (c.rule) {
            FilterCharacters(&box, c.rule);
        }
        box.setReadOnly(c.readOnly);
        if (c.selectLength > 0) {
            box.setSelection(c.selectFrom, c.selectLength);
        }
        EXPECT_EQ(AcceptsCharacter(&box, c.character), c.accepted) << c.what;
    }
    QPushButton button(QStringLiteral("Zoom In"));
    EXPECT_FALSE(AcceptsCharacter(&button, u'M')) << "a button takes no text";
}

TEST(KeyFilter, TheHookActsOnTypedKeysOnly) {
    QLineEdit box;
    int hooked = 0;
    FilterCharacters(
        &box, [](QChar c, const QString&) { return c == u'-' || c.isDigit(); },
        [&](QChar c) {
            ++hooked;
            if (c == u'-') {
                box.clear(); // a minus starts a new entry
            }
            return true;
        });
    QTest::keyClicks(&box, "12-5");
    EXPECT_EQ(box.text(), QStringLiteral("-5"));
    EXPECT_EQ(hooked, 4);
    QApplication::clipboard()->setText(QStringLiteral("9"));
    box.paste();
    EXPECT_EQ(hooked, 4);
}

} // namespace
} // namespace quellpad::ui
