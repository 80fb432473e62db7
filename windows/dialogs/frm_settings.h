#pragma once

#include "engine/keyboard_state.h"
#include "engine/port_binding.h"
#include "ui/error_boundary.h"

#include <QDialog>
#include <QList>

#include <optional>

class QCheckBox;
class QLabel;
class QRadioButton;

namespace quellpad {

class PortChoiceBox;

// The serial settings window: baud rate, parity and RTS, shared by both ports, and what
// each port is bound to. Its buttons change the keyboard's settings at once; Save applies
// them to the available ports and writes Settings.dat, keeps the bindings in the bindings
// file and binds a port anew at once; Cancel leaves them to be read again from the files.
class frmSettings : public QDialog {
    Q_OBJECT
public:
    explicit frmSettings(Quellpad_Support_Func& keyboard, QWidget* parent = nullptr);

    void Save_Click();

signals:
    // Save has applied and written the settings.
    void Saved();

private:
    void Form_Load();
    // The ports whose binding the operator changed; nothing, once the operator has been
    // told why, when a choice cannot be used.
    std::optional<QList<int>> ChangedPorts();

    Quellpad_Support_Func& keyboard_;
    ui::ErrorBoundary boundary_;
    QRadioButton* baud_[4];
    QRadioButton* parity_[3];
    QCheckBox* rts_;
    // Per COM port: its choice, where its binding comes from, and the binding at load.
    PortChoiceBox* device_[2];
    QLabel* source_[2];
    PortBinding loaded_[2];
};

} // namespace quellpad
