#pragma once

#include "engine/keyboard_state.h"
#include "ui/error_boundary.h"

#include <QDialog>

class QCheckBox;
class QRadioButton;

namespace quellpad {

// The serial settings window: baud rate, parity and RTS, shared by both ports. Its
// buttons change the keyboard's settings at once; Save applies them to the available
// ports and writes Settings.dat, Cancel leaves them to be read again from the file.
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

    Quellpad_Support_Func& keyboard_;
    ui::ErrorBoundary boundary_;
    QRadioButton* baud_[4];
    QRadioButton* parity_[3];
    QCheckBox* rts_;
};

} // namespace quellpad
