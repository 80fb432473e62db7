#pragma once

// What the command windows share; not for use elsewhere.

#include "engine/keyboard_state.h"

#include <QDialog>
#include <QPushButton>
#include <QString>

#include <cstdint>

namespace quellpad {

// Command1, Command2, Data1, Data2 of one command, as a window loads them.
struct CommandBytes {
    std::uint8_t command1 = 0;
    std::uint8_t command2 = 0;
    std::uint8_t data1 = 0;
    std::uint8_t data2 = 0;
    friend bool operator==(const CommandBytes&, const CommandBytes&) = default;
};

// A command whose two data bytes carry one value of 0 to 65535, high byte first
// (n div 256, n mod 256); fails with OverflowError outside that range.
CommandBytes WithValue(std::uint8_t command2, double value);

// Loads the registers through SetCommandBytes, for the dispatcher's next tick.
void LoadCommand(Quellpad_Support_Func& keyboard, const CommandBytes& bytes);

} // namespace quellpad

namespace quellpad::dialog_parts {

// The window's name, caption and modality.
void SetUpWindow(QDialog* window, const char* name, const QString& caption);

// A button that the keyboard reaches with Tab and presses with Space, as in any dialog.
QPushButton* DialogButton(QWidget* parent, const char* name, const QString& caption);

} // namespace quellpad::dialog_parts
