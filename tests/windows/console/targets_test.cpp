#include "main_window_fixture.h"

#include "console/targets.h"
#include "dialogs/frm_label.h"
#include "protocol/frames.h"

#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace quellpad::test {
namespace {

// A one-shot command's frame (command 2 and data 2 set) to the receiver at `address`.
QByteArray DFrame(std::uint8_t command2, std::uint8_t data2, int address = 1) {
    return QByteArray::fromStdString(protocol::BuildDFrame(address, 0, command2, 0, data2));
}
QByteArray PFrame(std::uint8_t command2, std::uint8_t data2, int address = 1) {
    return QByteArray::fromStdString(protocol::BuildPFrame(address, 0, command2, 0, data2));
}

TEST(TargetTexts, ClockAndTitleTexts) {
    EXPECT_EQ(TimeUpdateText(QDateTime(QDate(2006, 3, 7), QTime(14, 5, 9))),
              QStringLiteral("Za03/07/06/14:05:09a"));
    EXPECT_EQ(TimeUpdateText(QDateTime(QDate(2009, 12, 31), QTime(9, 5, 3))),
              QStringLiteral("Za12/31/09/09:05:03a"));
    EXPECT_EQ(CameraTitleText(12, QString()), QStringLiteral(" 12Ya!a"));
    EXPECT_EQ(CameraTitleCaption(12), QStringLiteral("Send Camera  12 Title"));
    EXPECT_EQ(FrmLabel::SizeForScreen(10800), QSizeF(8640, 3240));
    EXPECT_EQ(FrmLabel::SizeForScreen(14400), QSizeF(9600, 3600));
}

class TargetsTest : public MainWindowFixture {
protected:
    void Type(const char* box, const char* text) {
        auto* edit = Child<QLineEdit>(box);
        edit->clear();
        QTest::keyClicks(edit, QLatin1String(text));
    }
    void Click(const char* name) {
        if (auto* item = window_->findChild<QAction*>(QLatin1String(name))) {
            item->trigger();
        } else if (auto* option = window_->findChild<QRadioButton*>(QLatin1String(name))) {
            option->click(); // its caption, not its whole width, takes the click
        } else {
            QTest::mouseClick(Child<QAbstractButton>(name), Qt::LeftButton);
        }
    }
    QString Caption(const char* item) const { return Child<QAction>(item)->text(); }
};

// One row: what the boxes hold, the control chosen, and the bytes on COM 1 at the ticks
// that follow.
struct CommandCase {
    const char* box;
    const char* text;
    const char* control;
    QByteArray wire;
};

TEST_F(TargetsTest, AsciiCommandsReachTheWireAndTheSameButtonTwiceSendsTwice) {
    Start("ASCII");
    keyboard_->LabelText = QStringLiteral("AB");
    const CommandCase cases[] = {
        {"MonitorNumberTextBox", "12", "MonitorButton", "12Ma"},
        {nullptr, nullptr, "MonitorButton", "12Ma"},
        {"CameraNumberTextBox", "999999", "CameraButton", "999999#a"},
        {nullptr, nullptr, "CamForwardStepButton", "+a"},
        {nullptr, nullptr, "CamBackwardStepButton", "-a"},
        {nullptr, nullptr, "Alarm_Forward_Step_Button", "ia"},
        {nullptr, nullptr, "Alarm_Backward_Step_Button", "da"},
        {"AlarmNumberTextBox", "0", "TriggerAlarmButton", "0Ea"},
        {nullptr, nullptr, "ResetAlarmButton", "Ia"},
        {"AlarmNumberTextBox", "9999", "ResetAlarmButton", "9999Ia"},
        {"AuxNumberTextBox", "16", "AuxOnOption", "16Aa"},
        {nullptr, nullptr, "AuxOffOption", "16Ba"},
        {nullptr, nullptr, "GPI_OnOption", "16xa"},
        {nullptr, nullptr, "GPI_OffOption", "16~xa"},
        {nullptr, nullptr, "ToggleAuxOption", "16Aa16Ba"},
        {nullptr, nullptr, "ToggleGPI_Option", "16xa16~xa"},
        {"MacroNumberTextBox", "9999", "StartMacroOption", "9999Sa"},
        {nullptr, nullptr, "HaltMacroOption", "9999Ha"},
        {nullptr, nullptr, "StartSequenceOption", "9999qa"},
        {nullptr, nullptr, "HaltSequenceOption", "9999ea"},
        {nullptr, nullptr, "StartTourOption", "9999ta"},
        {nullptr, nullptr, "HaltTourOption", "9999ra"},
        {"PresetNumberTextBox", "150", "PresetGoButton", "150\\a"},
        {nullptr, nullptr, "PresetSetButton", "laAB!a150^a"},
        {nullptr, nullptr, "StartPatternButton", "0/a"},
        {nullptr, nullptr, "RunPatternButton", "0pa"},
        {nullptr, nullptr, "LockCam_Option", "Ga"},
        {nullptr, nullptr, "UnlockCam_Option", "~Ga"},
        {nullptr, nullptr, "OverrideLock_Option", "oa"},
        {nullptr, nullptr, "DigZoom_Option", "ym"},
        {nullptr, nullptr, "Hex_Option", "xm"},
        {nullptr, nullptr, "Eject_Option", "<m"},
        {nullptr, nullptr, "Pause_Option", "em"},
        {nullptr, nullptr, "FastForward_Option", ">>m"},
        {nullptr, nullptr, "FastForward_Option", ">>m"},
        {nullptr, nullptr, "Rewind_Option", "<<m"},
        {"CameraNumberTextBox", "12", "SendCameraTitleOption", "12YaAB!a"},
    };
    for (const CommandCase& c : cases) {
        if (c.box) {
            Type(c.box, c.text);
        }
        Click(c.control);
        EXPECT_EQ(com1_.Read(static_cast<int>(c.wire.size())), c.wire) << c.control;
        EXPECT_EQ(com1_.Drain(250), QByteArray()) << c.control << " sends once";
    }
    const auto cameras = window_->findChildren<QAction*>(QStringLiteral("MuxCam"));
    ASSERT_EQ(cameras.size(), 16);
    cameras.last()->trigger();
    EXPECT_EQ(com1_.Read(4), QByteArray("16#m"));
    Click("Time_Update_Option");
    const QByteArray time = com1_.Read(20);
    EXPECT_TRUE(time.startsWith("Za") && time.endsWith('a') && time.size() == 20)
        << time.constData();
}

TEST_F(TargetsTest, FrameCommandsReachTheWireInDAndP) {
    Start("D");
    const CommandCase d[] = {
        {"PresetNumberTextBox", "5", "PresetGoButton", DFrame(0x07, 5)},
        {nullptr, nullptr, "PresetGoButton", DFrame(0x07, 5)},
        {nullptr, nullptr, "PresetClearButton", DFrame(0x05, 5)},
        {nullptr, nullptr, "PresetSetButton", DFrame(0x03, 5)},
        {"AuxNumberTextBox", "8", "AuxOnOption", DFrame(0x09, 8)},
        {nullptr, nullptr, "AuxOffOption", DFrame(0x0B, 8)},
        {nullptr, nullptr, "ToggleAuxOption", DFrame(0x09, 8) + DFrame(0x0B, 8)},
        {nullptr, nullptr, "StartPatternButton", DFrame(0x1F, 0)},
        {nullptr, nullptr, "EndPatternButton", DFrame(0x21, 0)},
        {nullptr, nullptr, "ZoneScanOnOption", ""},
        {nullptr, nullptr, "ZoneButton", DFrame(0x1B, 0)},
        {nullptr, nullptr, "ZoneButton", DFrame(0x1B, 0)},
        {nullptr, nullptr, "ZoneScanOffOption", ""},
        {nullptr, nullptr, "ZoneButton", DFrame(0x1D, 0)},
        {nullptr, nullptr, "ZoneEndOption", ""},
        {nullptr, nullptr, "ZoneButton", DFrame(0x13, 1) + DFrame(0x1B, 0)},
        {nullptr, nullptr, "MiscSendButton", DFrame(0x07, 0x21)},
        {nullptr, nullptr, "MiscSendButton", DFrame(0x07, 0x21)},
        {nullptr, nullptr, "RemoteResetOption", ""},
        {nullptr, nullptr, "MiscSendButton", DFrame(0x0F, 0)},
        {nullptr, nullptr, "ClearScreenOption", ""},
        {nullptr, nullptr, "MiscSendButton", DFrame(0x17, 0)},
        {nullptr, nullptr, "ZoomSpeedOption", ""},
        {nullptr, nullptr, "MiscSendButton", DFrame(0x25, 0)},
        {nullptr, nullptr, "FocusSpeedOption", ""},
        {nullptr, nullptr, "MiscSendButton", DFrame(0x27, 0)},
        {"AddressCOM1_TextBox", "254", "PresetGoButton", DFrame(0x07, 5, 254)},
    };
    for (const CommandCase& c : d) {
        if (c.box) {
            Type(c.box, c.text);
        }
        Click(c.control);
        if (!c.wire.isEmpty()) {
            EXPECT_EQ(com1_.Read(static_cast<int>(c.wire.size())), c.wire) << c.control;
        }
        EXPECT_EQ(com1_.Drain(150), QByteArray()) << c.control;
    }
    EXPECT_EQ(keyboard_->MiscOptionChoice, 2);
    // Zone start from the button runs the labelled sequence (frame by frame DispatcherTest's)
    // to its end, storing the list's zone.
    Click("ZoneStartOption");
    Click("ZoneButton");
    const QByteArray zone = com1_.Read(22 * 7, 6000);
    EXPECT_EQ(zone.left(7), DFrame(0x1D, 0, 254)) << "begin";
    EXPECT_EQ(zone.mid(7 * 21), DFrame(0x11, 1, 254)) << "store zone 1";

    Choose("P_Protocol_Menu_Option");
    Type("AddressCOM1_TextBox", "2");
    Click("PresetGoButton");
    EXPECT_EQ(com1_.Read(8), PFrame(0x07, 5, 2));
}

// The button sets the range's own pace and the window takes back the mode's tick after it;
// which alarms go out in which order is DispatcherTest's.
TEST_F(TargetsTest, AlarmRangeStepsAtItsOwnPaceThenTheTickReturns) {
    Start("ASCII");
    Type("AlarmNumberTextBox", "3..5");
    EXPECT_EQ(keyboard_->AlarmRangeStart, 3);
    EXPECT_EQ(keyboard_->AlarmRangeEnd, 5);
    Click("TriggerAlarmButton");
    auto* tick = Child<QTimer>("CommandChangeTimer");
    EXPECT_EQ(tick->interval(), 500);
    EXPECT_EQ(com1_.Read(9, 4000), QByteArray("3Ea4Ea5Ea"));
    EXPECT_TRUE(WaitUntil([&] { return tick->interval() == 200; }));
    EXPECT_EQ(com1_.Drain(300), QByteArray());
}

// A value typed into a box: whether it is refused, with which message, and what the
// keyboard holds afterwards.
struct BoxCase {
    const char* mode;
    const char* box;
    const char* typed;
    const char* message; // empty: accepted
    const char* title;
    int (*stored)(const Quellpad_Support_Func&);
    int expected;
};

// The register a box stores into, read as an int whatever its width.
template <auto Member> int Stored(const Quellpad_Support_Func& k) {
    return k.*Member;
}
using K = Quellpad_Support_Func;

TEST_F(TargetsTest, EveryBoxValidatesAndStoresItsFallback) {
    const auto address = &Stored<&K::AddressCOM1>;
    const auto camera = &Stored<&K::CameraNumber>;
    const auto monitor = &Stored<&K::MonitorNumber>;
    const auto preset = &Stored<&K::PresetNumber>;
    const auto macro = &Stored<&K::MacroNumber>;
    const auto alarm = &Stored<&K::AlarmNumber>;
    const auto rangeEnd = &Stored<&K::AlarmRangeEnd>;
    const auto aux = &Stored<&K::AuxNumber>;
    const char* address254 = "Must be a number between 1 and 254.";
    const BoxCase cases[] = {
        {"D", "AddressCOM1_TextBox", "254", "", "", address, 254},
        {"D", "AddressCOM1_TextBox", "", "", "", address, 1},
        {"D", "AddressCOM1_TextBox", "0", address254, "Error", address, 1},
        {"D", "AddressCOM1_TextBox", "255", address254, "Error", address, 1},
        {"P", "AddressCOM1_TextBox", "1234", address254, "Error", address, 1},
        {"ASCII", "CameraNumberTextBox", "999999", "", "", camera, 999999},
        {"ASCII", "CameraNumberTextBox", "1000000", "Camera number must be between 1 and 999999.",
         "Error", camera, 1},
        {"ASCII", "MonitorNumberTextBox", "9999", "", "", monitor, 9999},
        {"ASCII", "MonitorNumberTextBox", "10000", "Monitor number must be between 1 and 9999.",
         "Error", monitor, 0},
        {"D", "PresetNumberTextBox", "150", "", "", preset, 150},
        {"D", "PresetNumberTextBox", "151", "Preset numbers range from 1 to 150.", "Error", preset,
         150},
        {"ASCII", "MacroNumberTextBox", "9999", "", "", macro, 9999},
        {"ASCII", "MacroNumberTextBox", "0", "Must be a number between 1 and 9999.", "Error", macro,
         0},
        {"ASCII", "AlarmNumberTextBox", "9999", "", "", alarm, 9999},
        {"ASCII", "AlarmNumberTextBox", "10000",
         "Alarm numbers must be greater than 0 and less than 9999.", "", alarm, 0},
        {"ASCII", "AlarmNumberTextBox", "12..40000", "Alarm numbers must be less than 9999", "",
         rangeEnd, 0},
        {"ASCII", "AlarmNumberTextBox", "123456..7",
         "Alarm numbers must be greater than 0 and less than 9999.", "", alarm, 0},
        {"ASCII", "AuxNumberTextBox", "65000", "", "", aux, 65000},
        {"ASCII", "AuxNumberTextBox", "65001",
         "In ASCII Protocol auxes must\r\nbe less than 65000.", "", aux, 0},
        {"D", "AuxNumberTextBox", "9", "In D or P Protocol auxes must\r\nbe less than 9.", "", aux,
         0},
    };
    const char* started = "";
    for (const BoxCase& c : cases) {
        if (QLatin1String(started) != QLatin1String(c.mode)) {
            Start(c.mode);
            started = c.mode;
        }
        ShownMessages().clear();
        auto* edit = Child<QLineEdit>(c.box);
        edit->clear();
        edit->insert(QLatin1String(c.typed)); // the whole text at once, as when pasted
        const QString what =
            QStringLiteral("%1 \"%2\"").arg(QLatin1String(c.box), QLatin1String(c.typed));
        if (*c.message == 0) {
            EXPECT_TRUE(ShownMessages().isEmpty()) << what.toStdString();
            EXPECT_EQ(Child<QLineEdit>(c.box)->text(), QLatin1String(c.typed))
                << what.toStdString();
        } else {
            ASSERT_EQ(ShownMessages().size(), 1) << what.toStdString();
            EXPECT_EQ(ShownMessages()[0].text, QLatin1String(c.message));
            EXPECT_EQ(ShownMessages()[0].title, QLatin1String(c.title)) << what.toStdString();
            EXPECT_EQ(Child<QLineEdit>(c.box)->text(), QString()) << what.toStdString();
        }
        EXPECT_EQ(c.stored(*keyboard_), c.expected) << what.toStdString();
    }
    EXPECT_EQ(ShownMessages().isEmpty() ? ui::MessageButtons::Ok : ShownMessages()[0].buttons,
              ui::MessageButtons::Ok);
}

TEST_F(TargetsTest, AFourthAddressDigitIsRefusedAtTheKeyAndPresetsOfferOkAndCancel) {
    Start("D");
    Type("AddressCOM2_TextBox", "1234");
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_EQ(ShownMessages()[0].text, QStringLiteral("Must be a number between 1 and 254."));
    EXPECT_EQ(Child<QLineEdit>("AddressCOM2_TextBox")->text(), QString());
    EXPECT_EQ(keyboard_->AddressCOM2, 1);
    ShownMessages().clear();
    Type("PresetNumberTextBox", "0");
    ASSERT_EQ(ShownMessages().size(), 1);
    EXPECT_EQ(ShownMessages()[0].buttons, ui::MessageButtons::OkCancel);
    EXPECT_EQ(keyboard_->PresetNumber, 1) << "the last accepted preset stays";
}

TEST_F(TargetsTest, AuxAndMacroCaptionsFollowTheirNumber) {
    struct Case {
        const char* typed;
        const char* auxOn;
        const char* toggleAux;
        const char* gpiOff;
    };
    const Case cases[] = {
        {"8", "Aux 8 ON", "Toggle Aux 8", "GPI 8 Off"},
        {"9", "GPI 1, Aux 1 ON", "Toggle GPI 1, Aux 1", "GPI 9 Off"},
        {"15", "GPI 1, Aux 7 ON", "Toggle GPI 1, Aux 7", "GPI 15 Off"},
        {"16", "GPI 2, Aux 8 ON", "Toggle GPI 2, Aux 8", "GPI 16 Off"},
        {"65000", "GPI 8125, Aux 8 ON", "Toggle GPI 8125, Aux 8", "GPI 65000 Off"},
        {"", "Aux ON", "Toggle Aux", "GPI OFF"}};
    Start("ASCII");
    for (const Case& c : cases) {
        Type("AuxNumberTextBox", c.typed);
        EXPECT_EQ(Caption("AuxOnOption"), QLatin1String(c.auxOn)) << c.typed;
        EXPECT_EQ(Caption("ToggleAuxOption"), QLatin1String(c.toggleAux)) << c.typed;
        EXPECT_EQ(Caption("GPI_OffOption"), QLatin1String(c.gpiOff)) << c.typed;
        EXPECT_EQ(Child<QAction>("GPI_OnOption")->isEnabled(), *c.typed != 0) << c.typed;
    }
    Type("MacroNumberTextBox", "42");
    EXPECT_EQ(Caption("HaltTourOption"), QStringLiteral("Halt Tour 42"));
    EXPECT_TRUE(Child<QAction>("HaltTourOption")->isEnabled());
    Type("CameraNumberTextBox", "12");
    EXPECT_EQ(Caption("SendCameraTitleOption"), QStringLiteral("Send Camera  12 Title"));

    Choose("D_Protocol_Menu_Option");
    Type("AuxNumberTextBox", "3");
    EXPECT_EQ(Caption("AuxOffOption"), QStringLiteral("Aux 3 OFF"));
    EXPECT_FALSE(Child<QAction>("GPI_OnOption")->isEnabled()) << "no GPI outside the switcher";
}

TEST_F(TargetsTest, PastedAndDroppedTextNeverReachesARegister) {
    Start("D");
    struct Case {
        const char* box;
        const char* pasted;
        const char* text;
    };
    const Case cases[] = {{"PresetNumberTextBox", "12ab", ""},
                          {"PresetNumberTextBox", "-5", ""},
                          {"AuxNumberTextBox", "1e9", ""},
                          {"AddressCOM1_TextBox", "123456789012345678901234567890", ""},
                          {"PresetNumberTextBox", "42", "42"}};
    for (const Case& c : cases) {
        auto* box = Child<QLineEdit>(c.box);
        box->clear();
        QApplication::clipboard()->setText(QLatin1String(c.pasted));
        box->paste();
        EXPECT_EQ(box->text(), QLatin1String(c.text)) << c.box << " " << c.pasted;
    }
    EXPECT_EQ(keyboard_->PresetNumber, 42);
    EXPECT_EQ(keyboard_->AddressCOM1, 1) << "30 digits are refused, the address falls back";
    EXPECT_EQ(keyboard_->AuxNumber, 0);
}

TEST_F(TargetsTest, TheLabelWindowEditsTheLabelThePresetSends) {
    Start("ASCII");
    keyboard_->LabelText = QStringLiteral("OLD");
    FrmLabel window(*keyboard_, window_.get());
    auto* box = window.findChild<QLineEdit*>(QStringLiteral("LabelTextBox"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), QStringLiteral("OLD"));
    box->clear();
    EXPECT_EQ(keyboard_->LabelText, QString()) << "an empty box is no label";
    QTest::keyClicks(box, QStringLiteral("Gate 2a!B"));
    EXPECT_EQ(keyboard_->LabelText, QStringLiteral("G 2B"));
    QTest::keyClicks(box, QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
    EXPECT_EQ(keyboard_->LabelText, QStringLiteral("G 2BABCDEFGHIJKLMNOP"));
    QTest::keyClick(box, Qt::Key_Backspace);
    EXPECT_EQ(keyboard_->LabelText.size(), 19);
    QApplication::clipboard()->setText(QStringLiteral("lower"));
    box->selectAll();
    box->paste();
    EXPECT_EQ(keyboard_->LabelText.size(), 19) << "lower case is refused when pasted too";
    window.show();
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(keyboard_->LabelText, QStringLiteral("G 2BABCDEFGHIJKLMNO"));
}

} // namespace
} // namespace quellpad::test
