#include "extended_commands.h"

#include "protocol/vocabulary.h"

#include "ui/controls.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace quellpad {

namespace code = protocol::code;

using dialog_parts::DialogButton;

const std::array<ExtendedFixedButton, 12> kExtendedFixedButtons{{
    {"QueryButton", {0x00, code::kQuerySetup, 0x00, 0x00}},
    {"AutoFocusOnButton", {0x00, code::kAutoFocus, 0x00, 0x00}},
    {"AutoFocusOffButton", {0x00, code::kAutoFocus, 0x00, 0x01}},
    {"AutoIrisOnButton", {0x00, code::kAutoIris, 0x00, 0x00}},
    {"AutoIrisOffButton", {0x00, code::kAutoIris, 0x00, 0x01}},
    {"AutoAgcOnButton", {0x00, code::kAutoAgc, 0x00, 0x00}},
    // The receivers this keyboard was made for take gain control off through the iris
    // command; kept as it is.
    {"AutoAgcOffButton", {0x00, code::kAutoIris, 0x00, 0x01}},
    // White balance and backlight count 02 as on and 01 as off.
    {"AutoWhiteOnButton", {0x00, code::kAutoWhite, 0x00, 0x02}},
    {"AutoWhiteOffButton", {0x00, code::kAutoWhite, 0x00, 0x01}},
    {"BacklightOnButton", {0x00, code::kBacklight, 0x00, 0x02}},
    {"BacklightOffButton", {0x00, code::kBacklight, 0x00, 0x01}},
    {"ResetCamButton", {0x00, code::kResetCamera, 0x00, 0x00}},
}};

const QStringList kNtscShutterSpeeds{
    QStringLiteral("Auto"), QStringLiteral("2"),    QStringLiteral("4"),    QStringLiteral("8"),
    QStringLiteral("15"),   QStringLiteral("30"),   QStringLiteral("60"),   QStringLiteral("100"),
    QStringLiteral("120"),  QStringLiteral("180"),  QStringLiteral("250"),  QStringLiteral("500"),
    QStringLiteral("1000"), QStringLiteral("2000"), QStringLiteral("4000"), QStringLiteral("10000"),
    QStringLiteral("30000")};
const QStringList kPalShutterSpeeds{
    QStringLiteral("Auto"), QStringLiteral("1.5"),  QStringLiteral("3"),
    QStringLiteral("6"),    QStringLiteral("12"),   QStringLiteral("25"),
    QStringLiteral("50"),   QStringLiteral("100"),  QStringLiteral("150"),
    QStringLiteral("250"),  QStringLiteral("500"),  QStringLiteral("1000"),
    QStringLiteral("2000"), QStringLiteral("4000"), QStringLiteral("10000"),
    QStringLiteral("30000")};

std::optional<std::uint8_t> ShutterSpeedCode(bool ntsc, const QString& text) {
    if (ntsc) {
        // "100" came to the NTSC cameras later than the others and got the next free code.
        static const std::uint8_t codes[] = {0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x10, 0x07,
                                             0x08, 0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x0E, 0x0F};
        const qsizetype at = kNtscShutterSpeeds.indexOf(text);
        return at < 0 ? std::nullopt : std::optional(codes[at]);
    }
    const qsizetype at = kPalShutterSpeeds.indexOf(text);
    return at < 0 ? std::nullopt : std::optional(static_cast<std::uint8_t>(at));
}

void LevelAdjusters::Press(AdjustTarget target, AdjustSign sign) {
    Target = target;
    Sign = sign;
}

LevelAdjusters::Step LevelAdjusters::Tick() {
    if (HoldTicks < 50) {
        ++HoldTicks;
    }
    switch (Target) {
    case AdjustTarget::IrisLevel:
        return AdjustIrisLevel(Sign);
    case AdjustTarget::IrisPeak:
        return AdjustIrisPeak(Sign);
    case AdjustTarget::RedGain:
        return AdjustRedGain(Sign);
    case AdjustTarget::BlueGain:
        break;
    }
    return AdjustBlueGain(Sign);
}

LevelAdjusters::Step LevelAdjusters::AdjustIrisLevel(AdjustSign sign) {
    return AdjustIris(IrisLevel, 255, code::kIrisLevel, sign);
}
LevelAdjusters::Step LevelAdjusters::AdjustIrisPeak(AdjustSign sign) {
    return AdjustIris(IrisPeak, 127, code::kIrisPeak, sign);
}
LevelAdjusters::Step LevelAdjusters::AdjustRedGain(AdjustSign sign) {
    return AdjustGain(RedGain, code::kRedGain, sign);
}
LevelAdjusters::Step LevelAdjusters::AdjustBlueGain(AdjustSign sign) {
    return AdjustGain(BlueGain, code::kBlueGain, sign);
}

LevelAdjusters::Step LevelAdjusters::AdjustIris(int& level, int top, std::uint8_t command2,
                                                AdjustSign sign) {
    // The iris moves by one per tick however long the button is held; at a bound the
    // level is loaded once more and the timer stops.
    bool stop = false;
    if (sign == AdjustSign::Up) {
        level < top ? ++level : stop = true;
    } else {
        level > 0 ? --level : stop = true;
    }
    AdjustBytes = {0x00, command2, 0x00, static_cast<std::uint8_t>(level)};
    return {AdjustBytes, level, stop};
}

LevelAdjusters::Step LevelAdjusters::AdjustGain(int& gain, std::uint8_t command2, AdjustSign sign) {
    // After 2.5 seconds of holding the gain runs in tens; the last ten near each bound
    // are still taken one by one. At a bound the timer keeps running until release.
    const bool long_hold = HoldTicks >= 50;
    if (sign == AdjustSign::Up && gain < 1024) {
        gain += long_hold && gain < 1014 ? 10 : 1;
    } else if (sign == AdjustSign::Down && gain > 0) {
        gain -= long_hold && gain > 10 ? 10 : 1;
    }
    AdjustBytes = WithValue(command2, gain);
    return {AdjustBytes, gain, false};
}

namespace {

struct AdjusterRow {
    AdjustTarget target;
    const char* label;
    const char* caption;
    const char* down;
    const char* display;
    const char* up;
};
const AdjusterRow kAdjusterRows[] = {
    {AdjustTarget::IrisLevel, "Label6",
     QT_TRANSLATE_NOOP("quellpad::FrmExtendedCommands", "Auto Iris Level"), "IrisLevelDownButton",
     "IrisLevelPic", "IrisLevelUpButton"},
    {AdjustTarget::IrisPeak, "Label7",
     QT_TRANSLATE_NOOP("quellpad::FrmExtendedCommands", "Auto Iris Peak"), "IrisPeakDownButton",
     "IrisPeakPic", "IrisPeakUpButton"},
    {AdjustTarget::RedGain, "Label8",
     QT_TRANSLATE_NOOP("quellpad::FrmExtendedCommands", "R - Gain"), "RedGainDownButton",
     "RedGainPic", "RedGainUpButton"},
    {AdjustTarget::BlueGain, "Label9",
     QT_TRANSLATE_NOOP("quellpad::FrmExtendedCommands", "B - Gain"), "BlueGainDownButton",
     "BlueGainPic", "BlueGainUpButton"},
};

QLabel* MakeDisplay(QWidget* parent, const char* name, const QString& caption) {
    // A reading: heard by its caption, with the value it shows.
    QLabel* display = ui::MakeReadout(parent, name, caption);
    display->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    display->setAlignment(Qt::AlignCenter);
    display->setMinimumWidth(display->fontMetrics().horizontalAdvance(QStringLiteral("00000")));
    // Drawn as a box that holds a value, in the desktop's colours for one.
    display->setAutoFillBackground(true);
    display->setBackgroundRole(QPalette::Base);
    display->setForegroundRole(QPalette::Text);
    return display;
}

} // namespace

FrmExtendedCommands::FrmExtendedCommands(Quellpad_Support_Func& keyboard, LevelAdjusters& levels,
                                         QWidget* parent)
    : QDialog(parent), keyboard_(keyboard), boundary_(this), adjusters_(levels) {
    dialog_parts::SetUpWindow(this, "FrmExtendedCommands", tr("Extended Commands"));

    auto* frame1 = ui::MakeFrame(this, "Frame1", {});
    auto* grid1 = new QGridLayout(frame1);
    const auto fixedButton = [&](const char* name, const QString& caption) {
        for (const ExtendedFixedButton& entry : kExtendedFixedButtons) {
            if (qstrcmp(entry.name, name) == 0) {
                QPushButton* button = DialogButton(frame1, name, caption);
                const CommandBytes bytes = entry.bytes;
                connect(button, &QPushButton::clicked, this, [this, name, bytes] {
                    boundary_.Run(name, [&] { LoadCommand(keyboard_, bytes); });
                });
                return button;
            }
        }
        return static_cast<QPushButton*>(nullptr);
    };
    const auto fixedRow = [&](const char* label, const char* caption, const char* first,
                              const QString& firstCaption, const char* second) {
        const int at = grid1->rowCount();
        const QString rowText = tr(caption);
        grid1->addWidget(ui::MakeLabel(frame1, label, rowText), at, 0);
        // Several buttons read "on" or "off"; the row says which one.
        QPushButton* button = fixedButton(first, firstCaption);
        button->setAccessibleName(ui::RowActionName(rowText, firstCaption));
        button->setAccessibleDescription(rowText);
        grid1->addWidget(button, at, 1);
        if (second) {
            button = fixedButton(second, tr("off"));
            button->setAccessibleName(ui::RowActionName(rowText, button->text()));
            button->setAccessibleDescription(rowText);
            grid1->addWidget(button, at, 2);
        }
    };
    fixedRow("Label12", QT_TR_NOOP("Query"), "QueryButton", tr("Query"), nullptr);
    const QString on = tr("on");
    fixedRow("Label1", QT_TR_NOOP("Auto Focus"), "AutoFocusOnButton", on, "AutoFocusOffButton");
    fixedRow("Label2", QT_TR_NOOP("Auto Iris"), "AutoIrisOnButton", on, "AutoIrisOffButton");
    fixedRow("Label11", QT_TR_NOOP("Auto AGC"), "AutoAgcOnButton", on, "AutoAgcOffButton");
    fixedRow("Label3", QT_TR_NOOP("Auto White Balance"), "AutoWhiteOnButton", on,
             "AutoWhiteOffButton");
    fixedRow("Label4", QT_TR_NOOP("Backlight Compensation"), "BacklightOnButton", on,
             "BacklightOffButton");
    fixedRow("Label5", QT_TR_NOOP("Reset Camera to Defaults"), "ResetCamButton", tr("Reset"),
             nullptr);

    auto* frame2 = ui::MakeFrame(this, "Frame2", {});
    auto* grid2 = new QGridLayout(frame2);
    std::size_t next = 0;
    for (const AdjusterRow& row : kAdjusterRows) {
        const int at = grid2->rowCount();
        const QString caption = tr(row.caption);
        grid2->addWidget(ui::MakeLabel(frame2, row.label, caption), at, 0);
        QPushButton* down = DialogButton(frame2, row.down, QStringLiteral("<<"));
        QPushButton* up = DialogButton(frame2, row.up, QStringLiteral(">>"));
        down->setAccessibleName(tr("%1 down").arg(caption));
        up->setAccessibleName(tr("%1 up").arg(caption));
        QLabel* display = MakeDisplay(frame2, row.display, caption);
        displays_[static_cast<std::size_t>(row.target)] = display;
        grid2->addWidget(down, at, 1);
        grid2->addWidget(display, at, 2);
        grid2->addWidget(up, at, 3);
        for (auto [button, sign] : {std::pair{down, AdjustSign::Down}, {up, AdjustSign::Up}}) {
            adjusterButtons_[next++] = {button, row.target, sign};
            button->installEventFilter(this);
        }
    }
    {
        // The gain limit has no command in this keyboard; its controls are shown inert.
        const int at = grid2->rowCount();
        grid2->addWidget(ui::MakeLabel(frame2, "Label10", tr("Gain Limit")), at, 0);
        QPushButton* down = DialogButton(frame2, "GainLimitDownButton", QStringLiteral("<<"));
        QPushButton* up = DialogButton(frame2, "GainLimitUpButton", QStringLiteral(">>"));
        QLabel* display = MakeDisplay(frame2, "GainLimitPic", tr("Gain Limit"));
        down->setAccessibleName(tr("Gain Limit down"));
        up->setAccessibleName(tr("Gain Limit up"));
        for (QWidget* w : {static_cast<QWidget*>(down), static_cast<QWidget*>(display),
                           static_cast<QWidget*>(up)}) {
            w->setEnabled(false);
        }
        grid2->addWidget(down, at, 1);
        grid2->addWidget(display, at, 2);
        grid2->addWidget(up, at, 3);
    }
    ui::ShowReading(Display(AdjustTarget::IrisLevel), QString::number(adjusters_.IrisLevel));
    ui::ShowReading(Display(AdjustTarget::IrisPeak), QString::number(adjusters_.IrisPeak));
    ui::ShowReading(Display(AdjustTarget::RedGain), QString::number(adjusters_.RedGain));
    ui::ShowReading(Display(AdjustTarget::BlueGain), QString::number(adjusters_.BlueGain));

    auto* frame3 = ui::MakeFrame(this, "Frame3", tr("Shutter Speed"));
    auto* grid3 = new QGridLayout(frame3);
    OptionNTSC = ui::MakeOption(frame3, "OptionNTSC", QStringLiteral("NTSC"));
    OptionPAL = ui::MakeOption(frame3, "OptionPAL", QStringLiteral("PAL"));
    OptionNTSC->setFocusPolicy(Qt::StrongFocus);
    OptionPAL->setFocusPolicy(Qt::StrongFocus);
    ComboNTSC = new QComboBox(frame3);
    ComboNTSC->setObjectName(QStringLiteral("ComboNTSC"));
    ComboNTSC->setAccessibleName(tr("NTSC shutter speed"));
    ComboPAL = new QComboBox(frame3);
    ComboPAL->setObjectName(QStringLiteral("ComboPAL"));
    ComboPAL->setAccessibleName(tr("PAL shutter speed"));
    ComboNTSC->clear();
    ComboNTSC->addItems(kNtscShutterSpeeds);
    ComboPAL->clear();
    ComboPAL->addItems(kPalShutterSpeeds);
    ComboNTSC->setCurrentIndex(-1);
    ComboPAL->setCurrentIndex(-1);
    // Until a standard is chosen the NTSC list shows greyed and nothing can be set.
    ComboNTSC->setEnabled(false);
    ComboPAL->setVisible(false);
    SetShutterSpeedButton = DialogButton(frame3, "SetShutterSpeedButton", tr("Set"));
    SetShutterSpeedButton->setEnabled(false);
    grid3->addWidget(OptionNTSC, 0, 0);
    grid3->addWidget(OptionPAL, 1, 0);
    // The PAL list takes the place of the NTSC list.
    grid3->addWidget(ComboNTSC, 0, 1);
    grid3->addWidget(ComboPAL, 0, 1);
    grid3->addWidget(SetShutterSpeedButton, 1, 1);

    QPushButton* back = DialogButton(this, "ExtendedBackButton", tr("Back"));
    AdjustTimer = ui::MakeTimer(this, "AdjustTimer");
    AdjustTimer->setInterval(50);

    QFont face = font();
    face.setFamily(QStringLiteral("MS Sans Serif"));
    for (QLabel* label : findChildren<QLabel*>()) {
        label->setFont(face);
    }

    auto* layout = new QGridLayout(this);
    layout->addWidget(frame1, 0, 0, 2, 1);
    layout->addWidget(frame2, 0, 1);
    layout->addWidget(frame3, 1, 1);
    layout->addWidget(back, 2, 1, Qt::AlignRight);

    connect(OptionNTSC, &QRadioButton::clicked, this,
            [this] { boundary_.Run("OptionNTSC_Click", [&] { OptionNTSC_Click(); }); });
    connect(OptionPAL, &QRadioButton::clicked, this,
            [this] { boundary_.Run("OptionPAL_Click", [&] { OptionPAL_Click(); }); });
    connect(SetShutterSpeedButton, &QPushButton::clicked, this, [this] {
        boundary_.Run("SetShutterSpeedButton_Click", [&] { SetShutterSpeedButton_Click(); });
    });
    connect(AdjustTimer, &QTimer::timeout, this,
            [this] { boundary_.Run("AdjustTimer_Timer", [&] { AdjustTimer_Timer(); }); });
    connect(back, &QPushButton::clicked, this, &QDialog::reject);
}

QLabel* FrmExtendedCommands::Display(AdjustTarget target) const {
    return displays_[static_cast<std::size_t>(target)];
}

bool FrmExtendedCommands::eventFilter(QObject* watched, QEvent* event) {
    const Adjuster* adjuster = nullptr;
    for (const Adjuster& candidate : adjusterButtons_) {
        if (candidate.button == watched) {
            adjuster = &candidate;
        }
    }
    if (!adjuster) {
        return QDialog::eventFilter(watched, event);
    }
    // The adjusters act on the button going down and up, wherever the pointer goes in
    // between; Space held on the focused button does the same.
    const auto* key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease
                          ? static_cast<QKeyEvent*>(event)
                          : nullptr;
    const bool space = key && key->key() == Qt::Key_Space && !key->isAutoRepeat();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            held_ = adjuster->button;
            Adjuster_MouseDown(adjuster->target, adjuster->sign);
        }
        break;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            Adjuster_MouseUp();
        }
        break;
    case QEvent::KeyPress:
        if (space) {
            held_ = adjuster->button;
            Adjuster_MouseDown(adjuster->target, adjuster->sign);
        }
        break;
    case QEvent::KeyRelease:
        if (space) {
            Adjuster_MouseUp();
        }
        break;
    case QEvent::FocusOut:
        // Space held on a button that loses the focus never sees its release.
        if (held_ == watched) {
            Adjuster_MouseUp();
        }
        break;
    default:
        break;
    }
    return false;
}

void FrmExtendedCommands::Adjuster_MouseDown(AdjustTarget target, AdjustSign sign) {
    adjusters_.Press(target, sign);
    AdjustTimer->start();
}

void FrmExtendedCommands::Adjuster_MouseUp() {
    held_ = nullptr;
    AdjustTimer->stop();
    adjusters_.Release();
}

void FrmExtendedCommands::AdjustTimer_Timer() {
    const LevelAdjusters::Step step = adjusters_.Tick();
    ui::ShowReading(Display(adjusters_.Target), QString::number(step.level));
    LoadCommand(keyboard_, step.bytes);
    if (step.stopTimer) {
        AdjustTimer->stop();
    }
}

void FrmExtendedCommands::OptionNTSC_Click() {
    ComboNTSC->setEnabled(true);
    ComboNTSC->setVisible(true);
    ComboPAL->setVisible(false);
    SetShutterSpeedButton->setEnabled(true);
}

void FrmExtendedCommands::OptionPAL_Click() {
    ComboNTSC->setVisible(false);
    ComboPAL->setVisible(true);
    SetShutterSpeedButton->setEnabled(true);
}

void FrmExtendedCommands::SetShutterSpeedButton_Click() {
    std::optional<std::uint8_t> code;
    if (OptionNTSC->isChecked()) {
        code = ShutterSpeedCode(true, ComboNTSC->currentText());
    } else if (OptionPAL->isChecked()) {
        code = ShutterSpeedCode(false, ComboPAL->currentText());
    }
    if (code) {
        LoadCommand(keyboard_, {0x00, code::kShutterSpeed, 0x00, *code});
    }
}

void FrmExtendedCommands::done(int result) {
    AdjustTimer->stop();
    adjusters_.Release();
    boundary_.Run("Form_QueryUnload", [&] { keyboard_.ClearCommandBytes(); });
    QDialog::done(result);
}

} // namespace quellpad
