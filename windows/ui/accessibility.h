#pragma once

// What a screen reader hears of the program's controls where Qt's own account falls short:
// captions as one line, readings and status texts as texts, a choice list by its label,
// and the program's own plain windows as windows.
namespace quellpad::ui {

// Installs it, once, after the application's own account of Qt's widgets (the one
// installed last is asked first); every control made through ui/controls.h does.
void InstallAccessibility();

} // namespace quellpad::ui
