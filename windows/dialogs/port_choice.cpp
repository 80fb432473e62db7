#include "port_choice.h"

#include "engine/stable_device_names.h"
#include "ui/controls.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>

namespace quellpad {

namespace {

QString SimulatedSiteCaption() {
    return QCoreApplication::translate("PortChoiceBox", "Simulated site");
}

} // namespace

PortChoiceBox::PortChoiceBox(QWidget* parent, const char* name, QLabel* label) : QComboBox(parent) {
    setObjectName(QLatin1String(name));
    setEditable(true);
    // A typed path is a choice, not a new entry of the list.
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(28);
    ui::SetBuddy(label, this);
    lineEdit()->setAccessibleName(accessibleName()); // what is typed is the same choice
    Fill({});
}

void PortChoiceBox::SetBinding(const QString& binding) {
    const int entry = IsSimulatedSiteBinding(binding) ? findData(kSimulatedSiteBinding)
                                                      : findData(binding.trimmed());
    if (entry >= 0) {
        setCurrentIndex(entry);
    } else {
        setCurrentIndex(-1);
        setEditText(binding.trimmed());
    }
}

QString PortChoiceBox::Binding() const {
    const QString text = currentText().trimmed();
    const int entry = findText(text, Qt::MatchExactly);
    return PreferStableName(entry >= 0 ? itemData(entry).toString() : text);
}

void PortChoiceBox::Fill(const QList<DeviceChoice>& devices) {
    const QString shown = currentText();
    clear();
    for (const DeviceChoice& device : devices) {
        addItem(device.caption, device.path);
    }
    addItem(SimulatedSiteCaption(), kSimulatedSiteBinding);
    // Forms to complete rather than choices: picked as they are, they are refused on Save.
    for (const QString& form :
         {QStringLiteral("tcp://host:port"), QStringLiteral("rfc2217://host:port")}) {
        addItem(form, form);
    }
    setCurrentIndex(findText(shown, Qt::MatchExactly));
    if (currentIndex() < 0) {
        setEditText(shown);
    }
}

void PortChoiceBox::showPopup() {
    Fill(ChooserDevices());
    QComboBox::showPopup();
}

QString BindingSourceCaption(int portNumber, BindingSource source) {
    switch (source) {
    case BindingSource::Environment:
        return QCoreApplication::translate("PortChoiceBox", "Set by %1")
            .arg(BindingVariable(portNumber));
    case BindingSource::BindingsFile:
        return QCoreApplication::translate("PortChoiceBox", "Chosen here");
    case BindingSource::Default:
        break;
    }
    return QCoreApplication::translate("PortChoiceBox", "The system's default");
}

} // namespace quellpad
