#pragma once

#include <QLocale>

namespace quellpad {

// Gives the running application the texts of the language `locale` asks for: the program's
// own catalogue and, where the system has it, Qt's (the buttons of a message box, the
// command line's errors). English, the language the program is written in, needs neither.
// Needs the application object. Returns whether the program's own catalogue was found.
bool InstallTranslations(const QLocale& locale = QLocale());

// Takes back what InstallTranslations gave, so that the texts are English again.
void RemoveTranslations();

} // namespace quellpad
