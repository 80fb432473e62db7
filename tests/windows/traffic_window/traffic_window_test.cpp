#include "hostile_files.h"
#include "main_window_fixture.h"

#include "protocol/frames.h"
#include "traffic_window/frm_traffic.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTableWidget>

namespace quellpad::test {
namespace {

using traffic_window::FrmTraffic;

class TrafficWindow : public MainWindowFixture {
protected:
    FrmTraffic* Open() {
        Choose("mnuTraffic");
        auto* window = window_->findChild<FrmTraffic*>(QStringLiteral("FrmTraffic"));
        EXPECT_NE(window, nullptr);
        return window;
    }
    // The switcher's "12Ma" typed straight to the open ports, as the typed-commands window
    // writes it.
    void TypeMonitor12() {
        const QByteArray typed("12Ma");
        keyboard_->WriteToOpenPorts(WireBytes(typed), WireBytes(typed));
        EXPECT_EQ(com1_.Read(4), typed);
    }
    static QStringList Meanings(FrmTraffic& window) {
        QStringList out;
        for (int i = 0; i < window.Filter().rowCount(); ++i) {
            out << window.Filter().index(i, traffic::kMeaning).data().toString();
        }
        return out;
    }
};

TEST_F(TrafficWindow, IsMadeOnlyWhenFirstAskedForAndShowsACommandAndItsReply) {
    Start("D");
    EXPECT_EQ(window_->findChild<FrmTraffic*>(), nullptr);
    EXPECT_EQ(keyboard_->Tap, nullptr);
    FrmTraffic* traffic = Open();
    ASSERT_NE(traffic, nullptr);
    EXPECT_TRUE(traffic->isVisible());
    EXPECT_FALSE(traffic->isModal());
    EXPECT_EQ(traffic->windowTitle(), "Traffic");

    keyboard_->Command2 = 0x02;
    keyboard_->Data1 = 32;
    const QByteArray frame = QByteArray::fromStdString(protocol::BuildDFrame(1, 0, 0x02, 32, 0));
    EXPECT_EQ(com1_.Read(7), frame) << "what goes on the wire is unchanged";
    com1_.Write(QByteArray::fromStdString(protocol::BuildDReply(1, 0x59, 12345)));
    ASSERT_TRUE(WaitUntil([&] { return Meanings(*traffic).size() >= 2; }));
    EXPECT_EQ(Meanings(*traffic),
              (QStringList{"COM 1 → camera 1: pan right 32", "camera 1 ← pan position 123.45°"}));
    EXPECT_EQ(traffic->Filter().index(0, traffic::kHex).data().toString(), "FF 01 00 02 20 00 23");
    EXPECT_EQ(traffic->findChild<QLabel*>("TrafficStatusLabel")->text(), "2 rows, 0 dropped");

    // Only what was received, then copied as text.
    traffic->findChild<QCheckBox*>("SentFilterCheckBox")->setChecked(false);
    EXPECT_EQ(Meanings(*traffic), QStringList{"camera 1 ← pan position 123.45°"});
    auto* table = traffic->findChild<QTableView*>("TrafficTableView");
    table->selectAll();
    QTest::keySequence(table, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), traffic::TextLine(traffic->Model().Row(1)) + "\n");
    const QStringList copied = QApplication::clipboard()->text().split(u'\t');
    ASSERT_EQ(copied.size(), traffic::kColumns);
    EXPECT_TRUE(copied[traffic::kHex].startsWith(u"FF 01 00 59 30 39"));
    EXPECT_FALSE(copied[traffic::kHex].endsWith(u' ')) << "the copied bytes end with the last";

    traffic->findChild<QPushButton*>("ClearButton")->click();
    EXPECT_EQ(traffic->Model().rowCount(), 0);
}

TEST_F(TrafficWindow, TheTimelineShowsWhereTheCameraPointedAtTheCurveChosen) {
    Start("D");
    FrmTraffic* traffic = Open();
    ASSERT_NE(traffic, nullptr);
    keyboard_->Command2 = 0x02;
    keyboard_->Data1 = 64;
    EXPECT_EQ(com1_.Read(7).size(), 7);
    com1_.Write(QByteArray::fromStdString(protocol::BuildDReply(1, 0x59, 12345)));
    ASSERT_TRUE(WaitUntil([&] { return Meanings(*traffic).size() >= 2; }));
    traffic->findChild<QPushButton*>("TimelineButton")->click();
    auto* view = traffic->findChild<QWidget*>("TimelineView");
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(view->isVisible());
    auto* table = view->findChild<QTableWidget*>("TimelineTable");
    // The pan command, then the answer that puts the camera where it said.
    ASSERT_GE(table->rowCount(), 2);
    EXPECT_EQ(table->item(0, 0)->text(), "1");
    const int answer = table->rowCount() - 1;
    EXPECT_EQ(table->item(answer, 2)->text(), "123.45");
    EXPECT_EQ(table->item(answer, 5)->text(), "answer");
    view->findChild<QComboBox*>("ReceiverCurveBox")->setCurrentIndex(1);
    EXPECT_EQ(table->item(answer, 2)->text(), "123.45");
}

TEST_F(TrafficWindow, TypedBytesAreSeenAndLoggedWhilePausedAndShownAfter) {
    Start("ASCII");
    FrmTraffic* traffic = Open();
    ASSERT_NE(traffic, nullptr);
    const QString path = dir_.filePath(QStringLiteral("traffic.log"));
    traffic->StartLog(path);
    traffic->findChild<QPushButton*>("PauseButton")->click();
    TypeMonitor12();
    QFile log(path);
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    ASSERT_TRUE(WaitUntil([&] { return log.readAll().contains("switcher: monitor 12"); }));
    EXPECT_EQ(traffic->Model().rowCount(), 0);
    traffic->findChild<QPushButton*>("PauseButton")->click();
    EXPECT_EQ(Meanings(*traffic), QStringList{"switcher: monitor 12"});
    window_.reset();
    EXPECT_EQ(keyboard_->Tap, nullptr) << "the keyboard outlives the window it was tapped by";
}

// A log that fails stops, and says why; the window still shows every row it received.
TEST_F(TrafficWindow, ABatchTheLogCannotTakeIsStillShownAndOnlyTheLogStops) {
    Start("ASCII");
    FrmTraffic* traffic = Open();
    ASSERT_NE(traffic, nullptr);
    const QString path = dir_.filePath(QStringLiteral("traffic.log"));
    traffic->StartLog(path);
    const qint64 header = QFileInfo(path).size();
    {
        test::SmallDisk disk(test::SmallDisk::Kind::FileSizeLimit, header + 4);
        ASSERT_TRUE(disk.Unavailable().isEmpty()) << disk.Unavailable().toStdString();
        TypeMonitor12();
        ASSERT_TRUE(WaitUntil([&] { return !ShownMessages().isEmpty(); }));
        EXPECT_EQ(ShownMessages().back().text,
                  QStringLiteral("The traffic log \"%1\" cannot be written: %2. Logging has "
                                 "stopped after the last whole row; 1 row was not written.")
                      .arg(path, disk.Reason()));
    }
    EXPECT_EQ(Meanings(*traffic), QStringList{"switcher: monitor 12"});
    EXPECT_FALSE(traffic->findChild<QPushButton*>("LogToFileButton")->isChecked());
    EXPECT_EQ(QFileInfo(path).size(), header) << "the log ends on its last whole row";
}

// Alt and a letter reach one control only: each access key is its own.
TEST_F(TrafficWindow, NoTwoControlsShareAnAccessKey) {
    Start("D");
    FrmTraffic* traffic = Open();
    ASSERT_NE(traffic, nullptr);
    QHash<QString, QString> owners;
    for (const QAbstractButton* control : traffic->findChildren<QAbstractButton*>()) {
        const QKeySequence key = QKeySequence::mnemonic(control->text());
        if (key.isEmpty()) {
            continue;
        }
        const QString shortcut = key.toString();
        EXPECT_FALSE(owners.contains(shortcut))
            << shortcut.toStdString() << " is both " << owners.value(shortcut).toStdString()
            << " and " << control->objectName().toStdString();
        owners.insert(shortcut, control->objectName());
    }
    EXPECT_GE(owners.size(), 9);
}

TEST(TrafficModel, TakesABatchInOneInsertionAndKeepsItsLimitWhilePaused) {
    const auto batch = [](int count) {
        std::vector<traffic::TrafficRow> rows(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            rows[static_cast<std::size_t>(i)].meaning = QString::number(i);
        }
        return rows;
    };
    traffic_window::TrafficModel model(nullptr, 3);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.Append(batch(2));
    model.Append(batch(2));
    EXPECT_EQ(inserted.size(), 2);
    EXPECT_EQ(removed.size(), 1);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.Dropped(), 1u);

    model.SetPaused(true);
    model.Append(batch(4));
    model.Append(batch(1));
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.Dropped(), 3u) << "two of the waiting rows went for the limit";
    model.SetPaused(false);
    EXPECT_EQ(inserted.size(), 3) << "the waiting rows come in one batch";
    EXPECT_EQ(model.Dropped(), 6u);
    EXPECT_EQ(model.Row(0).meaning, "2");
    EXPECT_EQ(model.Row(2).meaning, "0");
}

} // namespace
} // namespace quellpad::test
