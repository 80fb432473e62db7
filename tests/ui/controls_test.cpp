#include "fixtures.h"

#include "ui/controls.h"

#include <QAccessible>
#include <QLabel>
#include <QScrollBar>
#include <QTest>

namespace quellpad::ui {
namespace {

TEST(OneLineList, ShowsExactlyItsCurrentItemAtEveryHeight) {
    QWidget window;
    auto* label = MakeLabel(&window, "LensSpeedLabel", TwoLines("Lens", "Speed"));
    QListWidget* list = MakeList(&window, "LensSpeedList", label);
    list->addItems({"4", "3", "2", "1"});
    window.show();
    for (const int height : {14, 20, 23, 27, 31, 40, 64}) {
        for (const int row : {3, 0, 2}) {
            list->setGeometry(0, 0, 40, height);
            list->setCurrentRow(row);
            QApplication::processEvents();
            EXPECT_EQ(TopIndex(list), row) << height;
            EXPECT_EQ(list->visualItemRect(list->item(row)), list->viewport()->rect()) << height;
        }
    }
    list->verticalScrollBar()->setValue(1);
    EXPECT_EQ(list->currentRow(), 1) << "scrolled, the item on top is the current one";
    EXPECT_EQ(QAccessible::queryAccessibleInterface(list)->text(QAccessible::Name),
              QStringLiteral("Lens\r\nSpeed"));
}

TEST(LogView, CountsTextAsReceivedKeepsNoHistoryAndStaysBounded) {
    LogView log(nullptr, 100);
    log.Append(QStringLiteral("OK\r\n"));
    log.Append(QStringLiteral("\rx\n"));
    EXPECT_EQ(log.ReceivedLength(), 7);
    for (int i = 0; i < 1000; ++i) {
        log.Append(QStringLiteral("OK\r\n"));
        ASSERT_LE(log.ReceivedLength(), 100);
    }
    EXPECT_TRUE(test::WaitUntil([&] { return log.toPlainText().endsWith(u"OK\nOK\n"); }));
    EXPECT_EQ(log.document()->availableUndoSteps(), 0);
    log.Clear();
    EXPECT_EQ(log.ReceivedLength(), 0);
    EXPECT_TRUE(log.toPlainText().isEmpty());
}

TEST(Readout, IsHeardByItsNameWithItsCurrentTextAsValue) {
    QWidget window;
    QLabel* echo = MakeReadout(&window, "COM1CommandLabel", QStringLiteral("COM1 Command Sent"));
    echo->setText(QStringLiteral("FF 01 00 00 00 00 01 "));
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(echo);
    EXPECT_EQ(heard->text(QAccessible::Name), QStringLiteral("COM1 Command Sent"));
    EXPECT_EQ(heard->text(QAccessible::Value), QStringLiteral("FF 01 00 00 00 00 01 "));
    echo->clear();
    EXPECT_EQ(heard->text(QAccessible::Description), QString());
}

} // namespace
} // namespace quellpad::ui
