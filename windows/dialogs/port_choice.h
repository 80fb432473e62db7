#pragma once

#include "engine/port_binding.h"

#include <QComboBox>

class QLabel;

namespace quellpad {

// The settings window's choice of what a COM port is bound to: the serial devices the
// system lists, the simulated site, the forms of a network server, or a path typed by
// hand. The system is asked for its devices each time the list is opened, never before,
// so that opening the window costs no device scan.
class PortChoiceBox : public QComboBox {
public:
    PortChoiceBox(QWidget* parent, const char* name, QLabel* label);

    // Shows the binding: as its entry when the list has one, else as text.
    void SetBinding(const QString& binding);
    // What the operator chose: the binding of the entry shown, or the text as typed; a
    // device by its stable name when it has one, so that it is found after replugging.
    QString Binding() const;

    // The entries anew, the devices first (stable names ahead); the text shown stays.
    void Fill(const QList<DeviceChoice>& devices);

    void showPopup() override;
};

// What the window says of where a binding comes from ("Set by QUELLPAD_COM1").
QString BindingSourceCaption(int portNumber, BindingSource source);

} // namespace quellpad
