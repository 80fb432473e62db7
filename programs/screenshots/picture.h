#pragma once

#include <QString>

class QWidget;

namespace quellpad::screenshots {

// What every picture program does before its QApplication: draws offscreen, and binds COM 1
// and COM 2 to the simulated site unless `simulatedPorts` is false.
void DrawOffscreen(bool simulatedPorts = true);

// Saves what `window` shows to `path` once `delayMs` have let it settle, and ends the event
// loop with 0 when the picture was written, 1 when it was not. Returns the loop's result.
int SaveWhenSettled(QWidget& window, const QString& path, int delayMs);

} // namespace quellpad::screenshots
