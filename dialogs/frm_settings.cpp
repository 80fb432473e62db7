#include "frm_settings.h"

#include "engine/port_control.h"
#include "engine/settings_file.h"
#include "ui/controls.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quellpad {

namespace {
const char* const kBaudNames[] = {"BR2400", "BR4800", "BR9600", "BR19200"};
const char* const kBaudRates[] = {"2400", "4800", "9600", "19200"};
const char* const kParityNames[] = {"P_None", "P_Odd", "P_Even"};
const char* const kParityCaptions[] = {"None", "Odd", "Even"};
const char* const kParityLetters[] = {"n", "o", "e"};
} // namespace

frmSettings::frmSettings(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QDialog(parent), keyboard_(keyboard), boundary_(this) {
    setObjectName(QStringLiteral("frmSettings"));
    setWindowTitle(QStringLiteral("Settings"));
    setModal(true);

    auto* baudFrame = ui::MakeFrame(this, "Frame1", QStringLiteral("Baud Rate"));
    auto* baudColumn = new QVBoxLayout(baudFrame);
    for (int i = 0; i < 4; ++i) {
        const QString rate = QLatin1String(kBaudRates[i]);
        baud_[i] = ui::MakeOption(baudFrame, kBaudNames[i], rate);
        baudColumn->addWidget(baud_[i]);
        connect(baud_[i], &QRadioButton::clicked, this, [this, rate] {
            boundary_.Run("BaudRate_Click", [&] { keyboard_.BaudRate = rate; });
        });
    }
    auto* parityFrame = ui::MakeFrame(this, "Frame2", QStringLiteral("Parity"));
    auto* parityColumn = new QVBoxLayout(parityFrame);
    for (int i = 0; i < 3; ++i) {
        const QString letter = QLatin1String(kParityLetters[i]);
        parity_[i] =
            ui::MakeOption(parityFrame, kParityNames[i], QLatin1String(kParityCaptions[i]));
        parityColumn->addWidget(parity_[i]);
        connect(parity_[i], &QRadioButton::clicked, this, [this, letter] {
            boundary_.Run("Parity_Click", [&] { keyboard_.Parity = letter; });
        });
    }
    parityColumn->addStretch();

    rts_ = ui::MakeCheckBox(this, "RTS_CheckBox", QStringLiteral("Hold RTS High"));
    rts_->setToolTip(QStringLiteral("For use with \"port powered\" RS-232 to RS-422 converters"));
    connect(rts_, &QCheckBox::clicked, this, [this](bool checked) {
        boundary_.Run("RTS_CheckBox_Click", [&] {
            keyboard_.HoldRts = checked ? QStringLiteral("True") : QStringLiteral("False");
        });
    });

    auto* save = ui::MakeButton(this, "Save", QStringLiteral("Save"));
    auto* cancel = ui::MakeButton(this, "Cancel", QStringLiteral("Cancel"));
    connect(save, &QPushButton::clicked, this, [this] { Save_Click(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* frames = new QHBoxLayout;
    frames->addWidget(baudFrame);
    frames->addWidget(parityFrame);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->addLayout(frames);
    column->addWidget(rts_);
    column->addLayout(buttons);

    Form_Load();
}

void frmSettings::Form_Load() {
    boundary_.Run("frmSettings_Load", [&] {
        // The window shows the settings as saved, not as a cancelled visit left them.
        const SettingsFields saved = ReadSettingsFile(keyboard_.SettingsPath);
        keyboard_.BaudRate = saved.BaudRate;
        keyboard_.Parity = saved.Parity;
        keyboard_.HoldRts = saved.HoldRts;
        for (int i = 0; i < 4; ++i) {
            baud_[i]->setChecked(keyboard_.BaudRate == QLatin1String(kBaudRates[i]));
        }
        for (int i = 0; i < 3; ++i) {
            parity_[i]->setChecked(keyboard_.Parity == QLatin1String(kParityLetters[i]));
        }
        rts_->setChecked(keyboard_.HoldRts != u"False");
    });
}

void frmSettings::Save_Click() {
    boundary_.Run("Save_Click", [&] {
        ApplyLineSettings(keyboard_);
        keyboard_.SaveSettings();
        accept();
        emit Saved();
    });
}

} // namespace quellpad
