#pragma once

#include "engine/keyboard_state.h"

#include <QDialog>

// The label and title window that the main window's menu opens. Modal; the main window
// takes no input while it is open.
namespace quellpad {

class FrmLabel : public QDialog {
    Q_OBJECT
public:
    explicit FrmLabel(QWidget* parent = nullptr);
};

} // namespace quellpad
