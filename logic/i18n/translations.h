#pragma once

#include <QLocale>

namespace quellpad {

// Gives the running application the texts of the language `locale` asks for: the program's
// own catalogue and, where the system has it, Qt's (the buttons of a message box, the
// command line's errors). English, the language the program is written in, takes only its
// counts ("1 row", "2 rows"), for any locale the program has no catalogue for.
// Needs the application object. Returns whether the texts are in another language.
bool InstallTranslations(const QLocale& locale = QLocale());

// Takes back what InstallTranslations gave, so that the texts are English again.
void RemoveTranslations();

} // namespace quellpad
