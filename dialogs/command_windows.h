#pragma once

#include "engine/keyboard_state.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

// The command windows that the main window's menus open. Each is modal; the main window
// takes no input while one is open.
namespace quellpad {

class FrmAdvancedCommands : public QDialog {
    Q_OBJECT
public:
    explicit FrmAdvancedCommands(QWidget* parent = nullptr);
};

class FrmExtendedCommands : public QDialog {
    Q_OBJECT
public:
    explicit FrmExtendedCommands(QWidget* parent = nullptr);
};

class frmMenuControl : public QDialog {
    Q_OBJECT
public:
    explicit frmMenuControl(QWidget* parent = nullptr);
};

class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);
};

// Raw commands typed by the operator; replies are shown in its own response box.
class FrmTypeCmnds : public QDialog {
    Q_OBJECT
public:
    explicit FrmTypeCmnds(QWidget* parent = nullptr);

    // Prepares the window for the current mode: its instruction text, an empty reply.
    void Prepare(const QString& mode);
    // A reply from a port while the window is shown.
    void AppendResponse(const QString& response);

private:
    QLabel* instruction_;
    QLineEdit* commandToSend_;
    QPlainTextEdit* response_;
};

} // namespace quellpad
