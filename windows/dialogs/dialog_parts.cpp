#include "dialog_parts.h"

#include "ui/controls.h"

namespace quellpad {

CommandBytes WithValue(std::uint8_t command2, double value) {
    const double high = IntPart(value / 256);
    return {0, command2, ToByte(high), ToByte(value - 256 * high)};
}

void LoadCommand(Quellpad_Support_Func& keyboard, const CommandBytes& bytes) {
    keyboard.SetCommandBytes(bytes.command1, bytes.command2, bytes.data1, bytes.data2);
}

} // namespace quellpad

namespace quellpad::dialog_parts {

void SetUpWindow(QDialog* window, const char* name, const QString& caption) {
    window->setObjectName(QLatin1String(name));
    window->setWindowTitle(caption);
    window->setModal(true);
}

QPushButton* DialogButton(QWidget* parent, const char* name, const QString& caption) {
    QPushButton* button = ui::MakeButton(parent, name, caption);
    button->setFocusPolicy(Qt::StrongFocus);
    // Enter in a box of the window must not press a button by default.
    button->setAutoDefault(false);
    return button;
}

} // namespace quellpad::dialog_parts
