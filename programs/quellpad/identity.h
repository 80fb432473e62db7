#pragma once

#include <QString>

namespace quellpad {

// The desktop entry's name without ".desktop", which is also the AppStream component's.
inline const QString kDesktopId = QStringLiteral("org.quellpad.quellpad");

// Names the application before its first window: "Quellpad" (which the window class is
// made from, and the desktop entry's StartupWMClass names), its version, and its desktop
// entry, by which docks and task bars group its windows under its icon.
void NameApplication();

} // namespace quellpad
