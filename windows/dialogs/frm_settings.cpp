#include "frm_settings.h"

#include "dialogs/port_choice.h"
#include "engine/errors.h"
#include "engine/port_control.h"
#include "engine/settings_file.h"
#include "engine/settings_location.h"
#include "ui/controls.h"
#include "ui/messages.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quellpad {

namespace {
const char* const kBaudNames[] = {"BR2400", "BR4800", "BR9600", "BR19200"};
const char* const kBaudRates[] = {"2400", "4800", "9600", "19200"};
const char* const kParityNames[] = {"P_None", "P_Odd", "P_Even"};
const char* const kParityCaptions[] = {QT_TRANSLATE_NOOP("quellpad::frmSettings", "None"),
                                       QT_TRANSLATE_NOOP("quellpad::frmSettings", "Odd"),
                                       QT_TRANSLATE_NOOP("quellpad::frmSettings", "Even")};
const char* const kParityLetters[] = {"n", "o", "e"};
} // namespace

frmSettings::frmSettings(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QDialog(parent), keyboard_(keyboard), boundary_(this) {
    setObjectName(QStringLiteral("frmSettings"));
    setWindowTitle(tr("Settings"));
    setModal(true);

    auto* baudFrame = ui::MakeFrame(this, "Frame1", tr("Baud Rate"));
    auto* baudColumn = new QVBoxLayout(baudFrame);
    for (int i = 0; i < 4; ++i) {
        const QString rate = QLatin1String(kBaudRates[i]);
        baud_[i] = ui::MakeOption(baudFrame, kBaudNames[i], rate);
        baudColumn->addWidget(baud_[i], 0, Qt::AlignLeft);
        connect(baud_[i], &QRadioButton::clicked, this, [this, rate] {
            boundary_.Run("BaudRate_Click", [&] { keyboard_.BaudRate = rate; });
        });
    }
    auto* parityFrame = ui::MakeFrame(this, "Frame2", tr("Parity"));
    auto* parityColumn = new QVBoxLayout(parityFrame);
    for (int i = 0; i < 3; ++i) {
        const QString letter = QLatin1String(kParityLetters[i]);
        parity_[i] = ui::MakeOption(parityFrame, kParityNames[i], tr(kParityCaptions[i]));
        parityColumn->addWidget(parity_[i], 0, Qt::AlignLeft);
        connect(parity_[i], &QRadioButton::clicked, this, [this, letter] {
            boundary_.Run("Parity_Click", [&] { keyboard_.Parity = letter; });
        });
    }
    parityColumn->addStretch();

    rts_ = ui::MakeCheckBox(this, "RTS_CheckBox", tr("Hold RTS High"));
    rts_->setToolTip(tr("For use with \"port powered\" RS-232 to RS-422 converters"));
    connect(rts_, &QCheckBox::clicked, this, [this](bool checked) {
        boundary_.Run("RTS_CheckBox_Click", [&] {
            keyboard_.HoldRts = checked ? QStringLiteral("True") : QStringLiteral("False");
        });
    });

    // What each port is bound to. A port bound by its environment variable is shown but
    // cannot be changed here: the variable would win again at the next start.
    auto* devicesFrame = ui::MakeFrame(this, "PortsFrame", tr("Devices"));
    auto* devicesGrid = new QGridLayout(devicesFrame);
    for (int i = 0; i < 2; ++i) {
        const QByteArray com = "Com" + QByteArray::number(i + 1);
        auto* label = ui::MakeLabel(devicesFrame, ("lbl" + com + "Device").constData(),
                                    tr("COM &%1 device:").arg(i + 1));
        device_[i] = new PortChoiceBox(devicesFrame, ("cbo" + com + "Device").constData(), label);
        source_[i] = ui::MakeLabel(devicesFrame, ("lbl" + com + "Source").constData());
        devicesGrid->addWidget(label, i, 0);
        devicesGrid->addWidget(device_[i], i, 1);
        devicesGrid->addWidget(source_[i], i, 2);
    }
    devicesGrid->setColumnStretch(1, 1);

    auto* save = ui::MakeButton(this, "Save", tr("Save"));
    auto* cancel = ui::MakeButton(this, "Cancel", tr("Cancel"));
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
    column->addWidget(devicesFrame);
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
            // The window opens on the rate in use, whose neighbours the arrows choose.
            if (baud_[i]->isChecked()) {
                baud_[i]->setFocus();
            }
        }
        for (int i = 0; i < 3; ++i) {
            parity_[i]->setChecked(keyboard_.Parity == QLatin1String(kParityLetters[i]));
        }
        rts_->setChecked(keyboard_.HoldRts != u"False");
        for (int i = 0; i < 2; ++i) {
            loaded_[i] = ResolvePortBinding(i + 1);
            device_[i]->SetBinding(loaded_[i].binding);
            device_[i]->setEnabled(loaded_[i].source != BindingSource::Environment);
            source_[i]->setText(BindingSourceCaption(i + 1, loaded_[i].source));
        }
    });
}

std::optional<QList<int>> frmSettings::ChangedPorts() {
    QList<int> changed;
    for (int i = 0; i < 2; ++i) {
        if (!device_[i]->isEnabled()) {
            continue;
        }
        const QString chosen = device_[i]->Binding();
        if (const std::optional<QString> problem = BindingProblem(i + 1, chosen)) {
            ui::ShowMessage(this, {*problem, tr("Error")});
            device_[i]->setFocus();
            return std::nullopt;
        }
        // "SIM" in the file and the list's "Simulated site" are the same site: a Save that
        // changes nothing leaves the lines, and whatever the site holds, alone.
        const bool sameSite =
            IsSimulatedSiteBinding(chosen) && IsSimulatedSiteBinding(loaded_[i].binding);
        if (chosen != loaded_[i].binding && !sameSite) {
            changed.append(i + 1);
        }
    }
    return changed;
}

void frmSettings::Save_Click() {
    boundary_.Run("Save_Click", [&] {
        const std::optional<QList<int>> changed = ChangedPorts();
        if (!changed) {
            return;
        }
        const QString bindingsPath = BindingsFilePath();
        for (const int number : *changed) {
            SavePortBinding(bindingsPath, number, device_[number - 1]->Binding());
        }
        ApplyLineSettings(keyboard_);
        // A port that will not open on its new device is still bound to it and stays
        // enabled; the operator is told once the window has closed.
        QStringList problems;
        for (const int number : *changed) {
            try {
                RebindPort(keyboard_, number);
            } catch (const PortError& error) {
                problems << error.Message();
            }
        }
        keyboard_.SaveSettings();
        accept();
        emit Saved();
        for (const QString& problem : problems) {
            boundary_.Report("Save_Click", problem);
        }
    });
}

} // namespace quellpad
