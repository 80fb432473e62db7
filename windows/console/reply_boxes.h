#pragma once

#include "console/frm_main_parts.h"

#include <QCoreApplication>

class QLabel;
class QLineEdit;

namespace quellpad {

namespace ui {
class LogView;
}

// The main window's top row: each port's receiver address, the command last sent on it,
// and the box of replies from the equipment.
class ReplyBoxes {
    Q_DECLARE_TR_FUNCTIONS(quellpad::FrmMain)
public:
    explicit ReplyBoxes(const frm_main_parts::PartContext& context);

    // The address boxes take digits only in "D" and "P", where a fourth digit is refused
    // outright; each change is checked and stored.
    void ConnectAddresses();

    // The response box's label, which also names the box.
    void SetResponseCaption(const QString& caption);
    // The echo of the command last sent on port `number` (1 or 2).
    QLabel* CommandLabel(int number) const;
    // A reply of the mode's kind shown at the box's end, the box emptied first when the
    // reply starts a new answer and the box is full.
    void ShowResponse(const QString& mode, const QString& response);

    QLabel* AddressCOM1Label = nullptr;
    QLineEdit* AddressCOM1_TextBox = nullptr;
    QLabel* AddressCOM2Label = nullptr;
    QLineEdit* AddressCOM2_TextBox = nullptr;
    QLabel* COM1CommandLabel = nullptr;
    QLabel* COM2CommandLabel = nullptr;
    QLabel* AccessResponseLabel = nullptr;
    ui::LogView* AccessResponseTextBox = nullptr;

private:
    frm_main_parts::PartContext context_;
};

} // namespace quellpad
