#include "console/reply_boxes.h"

#include "console/receiver.h"
#include "engine/keyboard_state.h"
#include "ui/controls.h"
#include "ui/key_filter.h"
#include "ui/messages.h"

#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>

namespace quellpad {

using namespace frm_main_parts;
using ui::TwoLines;

ReplyBoxes::ReplyBoxes(const PartContext& context) : context_(context) {
    QWidget* c = context_.canvas;
    AddressCOM1Label =
        ui::MakeLabel(c, "AddressCOM1Label", TwoLines(QStringLiteral("COM1"), tr("Address")));
    AddressCOM1_TextBox = ui::MakeTextBox(c, "AddressCOM1_TextBox", AddressCOM1Label);
    AddressCOM2Label =
        ui::MakeLabel(c, "AddressCOM2Label", TwoLines(QStringLiteral("COM2"), tr("Address")));
    AddressCOM2_TextBox = ui::MakeTextBox(c, "AddressCOM2_TextBox", AddressCOM2Label);
    COM1CommandLabel = ui::MakeReadout(c, "COM1CommandLabel", tr("COM1 Command Sent"));
    COM2CommandLabel = ui::MakeReadout(c, "COM2CommandLabel", tr("COM2 Command Sent"));
    for (QLabel* echo : {COM1CommandLabel, COM2CommandLabel}) {
        echo->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        echo->setFrameShape(QFrame::StyledPanel);
        echo->setFrameShadow(QFrame::Sunken);
        echo->setAutoFillBackground(true);
        echo->setStyleSheet(
            QStringLiteral("background: #1e2328; color: #8fe388; padding: 1px 4px;"));
    }
    context_.Place(AddressCOM1Label, 6, 4, 50, 28);
    context_.Place(AddressCOM1_TextBox, 58, 8, 38, 20);
    context_.Place(COM1CommandLabel, 100, 4, 182, 28);
    context_.Place(AddressCOM2Label, 6, 36, 50, 28);
    context_.Place(AddressCOM2_TextBox, 58, 40, 38, 20);
    context_.Place(COM2CommandLabel, 100, 36, 182, 28);

    AccessResponseLabel = ui::MakeLabel(c, "AccessResponseLabel", tr("D Response"));
    AccessResponseTextBox = new ui::LogView(c, kResponseBoxMaximum);
    AccessResponseTextBox->setObjectName(QStringLiteral("AccessResponseTextBox"));
    ui::SetBuddy(AccessResponseLabel, AccessResponseTextBox);
    AccessResponseTextBox->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    context_.Place(AccessResponseLabel, 292, 2, 160, 14);
    context_.Place(AccessResponseTextBox, 292, 16, 278, 48);
}

void ReplyBoxes::ConnectAddresses() {
    Quellpad_Support_Func& k = context_.keyboard;
    QWidget* window = context_.window;
    for (QLineEdit* box : {AddressCOM1_TextBox, AddressCOM2_TextBox}) {
        std::uint8_t& address = box == AddressCOM1_TextBox ? k.AddressCOM1 : k.AddressCOM2;
        ui::FilterCharacters(
            box,
            [&k](QChar c, const QString& before) {
                return !IsFrameMode(k.CurrentMode) || ui::DigitsOnly(c, before);
            },
            [window, &k, box](QChar c) {
                if (IsFrameMode(k.CurrentMode) && c.isDigit() && box->text().size() >= 3) {
                    ui::ShowMessage(window, AddressRangeMessage());
                    box->clear();
                    return false;
                }
                return true;
            });
        OnChange(context_, box,
                 [&k, box, &address] { return CheckAddress(k.CurrentMode, box->text(), address); });
    }
}

void ReplyBoxes::SetResponseCaption(const QString& caption) {
    ui::SetCaption(AccessResponseLabel, caption);
}

QLabel* ReplyBoxes::CommandLabel(int number) const {
    return number == 1 ? COM1CommandLabel : COM2CommandLabel;
}

void ReplyBoxes::ShowResponse(const QString& mode, const QString& response) {
    if (ClearsResponseBox(mode, AccessResponseTextBox->ReceivedLength(), response)) {
        AccessResponseTextBox->Clear();
    }
    AccessResponseTextBox->Append(response);
}

} // namespace quellpad
