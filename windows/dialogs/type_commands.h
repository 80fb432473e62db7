#pragma once

#include "engine/keyboard_state.h"
#include "ui/error_boundary.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace quellpad {

// The instruction text of the type commands window for a mode.
QString TypeCommandsInstruction(const QString& mode);

// Whether a character may be typed into the command line in a mode: hexadecimal digits
// and blanks in the binary modes, codes 0 to 127 in the ASCII modes.
bool TypedCommandKey(const QString& mode, QChar character);

// Most characters of a typed line.
inline constexpr int kTypedLineLimit = 85;

// Raw commands typed by the operator and written straight to the open ports, without
// frame, address or check byte; the replies are shown in its own response box.
class FrmTypeCmnds : public QDialog {
    Q_OBJECT
public:
    explicit FrmTypeCmnds(Quellpad_Support_Func& keyboard, QWidget* parent = nullptr);

    // Prepares the window for the current mode: its instruction text, an empty reply.
    void Prepare(const QString& mode);
    // A reply from a port while the window is shown.
    void AppendResponse(const QString& response);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CommandToSendTextBox_Enter();
    void Recall(int step);
    void ClearResponses();

    Quellpad_Support_Func& keyboard_;
    ui::ErrorBoundary boundary_;
    QString mode_;
    QLabel* InstructionLabel = nullptr;
    QLineEdit* CommandToSendTextBox = nullptr;
    QPlainTextEdit* CommandResponseTextBox = nullptr;
    // The replies as they arrived: the box drops their CRs, but the 50-character rule
    // counts every character received.
    QString received_;
    // Where Up and Down stand in the lines sent during this run.
    qsizetype recalled_ = 0;
};

} // namespace quellpad
