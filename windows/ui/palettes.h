#pragma once

#include <QPalette>

namespace quellpad::ui {

// Desktop palettes the program is drawn and checked under besides the light one: a dark
// desktop's and a high-contrast one (white on black).
QPalette DarkPalette();
QPalette HighContrastPalette();

} // namespace quellpad::ui
