#pragma once

#include <QSettings>
#include <QString>

#include <memory>

class QWidget;

namespace quellpad::ui {

// What the windows beside the keyboard remember between runs (where they were and how
// large, the traffic window's filters and folder) lives in the user's configuration,
// $XDG_CONFIG_HOME/Quellpad/Windows.conf (~/.config by default), never in Settings.dat,
// whose six lines belong to the keyboard. The main window and the command windows keep
// none of it: they open as they always have.
QString WindowMemoryPath();
std::unique_ptr<QSettings> WindowMemory();

// Puts the window where and as large as it was last left under `key`, and keeps its
// place whenever it is hidden or the program ends. Call once, before it is first shown.
void RememberWindow(QWidget* window, const QString& key);

// The folder the operator last saved into under `key`; the user's documents folder until
// there is one, never the working directory.
QString LastFolder(const QString& key);
// Keeps the folder of the file just chosen as the one to open next time.
void KeepLastFolder(const QString& key, const QString& chosenFile);

} // namespace quellpad::ui
